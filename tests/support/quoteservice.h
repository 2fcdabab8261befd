#pragma once

#include <QProcess>
#include <QStringList>
#include <QUrl>
#include <QUrlQuery>
#include <QtTest>

// The path of the service binary; halcyra_use_quote_service() in tests/CMakeLists.txt defines it
// and builds the service before the test.
#ifndef HALCYRA_QUOTE_SERVICE
#error "Register the test with halcyra_use_quote_service(TEST) in tests/CMakeLists.txt"
#endif

namespace TestSupport {

// The local quote service (tools/quoteservice) running as a child process on a free loopback
// port, for tests of anything that downloads quotes:
//
//   TestSupport::QuoteService service({QStringLiteral("--fault"), QStringLiteral("MSFT=empty")});
//   QVERIFY(service.isRunning());
//   QUrl table = service.url().resolved(QUrl(QStringLiteral("/table.csv?s=MSFT&...")));
//
// The service's own error output goes to the test's. Destroy it inside a test function (as a
// local, or reset in cleanup() or cleanupTestCase()): the destructor stops the service and
// fails that test function unless the service ended with exit code 0.
class QuoteService
{
public:
    // Starts the service with "--port 0", "--data dataDir" when dataDir is not empty (stored
    // quote files and metadata.csv; otherwise it serves the samples continued to yesterday) and
    // then `arguments`. Returns once the service listens, or has failed (up to 30 seconds).
    explicit QuoteService(const QStringList &arguments = {}, const QString &dataDir = QString())
    {
        QStringList all{QStringLiteral("--port"), QStringLiteral("0")};
        if (!dataDir.isEmpty())
            all << QStringLiteral("--data") << dataDir;
        mProcess.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        mProcess.start(QStringLiteral(HALCYRA_QUOTE_SERVICE), all + arguments);
        while (!mProcess.canReadLine() && mProcess.waitForReadyRead(30000)) {
        }
        const QByteArray line = mProcess.readLine().trimmed();
        const QByteArray prefix = "Listening on ";
        if (line.startsWith(prefix))
            mUrl = QUrl(QString::fromLatin1(line.mid(prefix.size())));
    }
    ~QuoteService()
    {
        if (mUrl.isValid())
            QVERIFY2(stop(), "the quote service did not end with exit code 0");
    }
    QuoteService(const QuoteService &) = delete;
    QuoteService &operator=(const QuoteService &) = delete;

    // Whether the service listens: it printed its address and has not ended.
    bool isRunning() const { return mUrl.isValid() && mProcess.state() == QProcess::Running; }
    // Where it listens, "http://127.0.0.1:PORT"; empty when it did not start.
    QUrl url() const { return mUrl; }
    // The process, for signals of a test's own choosing; 0 when it is not running.
    qint64 processId() const { return mProcess.processId(); }

    // How many requests named `symbol` (its "s=" query value) the service has logged. The
    // service logs a request once it has answered it, so the count may lag a reply that has
    // just arrived by a moment: compare with QTRY_COMPARE.
    int requestsFor(const QString &symbol)
    {
        while (mProcess.waitForReadyRead(20)) {
        }
        mLog += mProcess.readAllStandardOutput();
        int count = 0;
        for (const QByteArray &line : mLog.split('\n')) {
            const QList<QByteArray> fields = line.split(' ');
            if (fields.size() < 2)
                continue;
            const QUrl target(QStringLiteral("http://host") + QString::fromLatin1(fields.at(1)));
            if (QUrlQuery(target).queryItemValue(QStringLiteral("s"), QUrl::FullyDecoded) == symbol)
                ++count;
        }
        return count;
    }

    // Sends SIGTERM unless the service has already ended, and waits for the end (killing it
    // after 30 seconds). Returns whether it ended normally with exit code 0.
    bool stop()
    {
        if (mProcess.state() != QProcess::NotRunning) {
            mProcess.terminate();
            if (!mProcess.waitForFinished(30000)) {
                mProcess.kill();
                mProcess.waitForFinished();
                return false;
            }
        }
        return mProcess.exitStatus() == QProcess::NormalExit && mProcess.exitCode() == 0;
    }

private:
    QProcess mProcess;
    QUrl mUrl;
    QByteArray mLog;
};

} // namespace TestSupport
