// Downloading quotes against our own quote service on loopback: the transfer rules, the
// per-symbol update step with every kind of bad reply, the overlapping runs, the current
// quote, the daily-CSV provider and fetching a new symbol with its metadata.

#include "data/home.h"
#include "data/metadata.h"
#include "data/net/datamanager.h"
#include "data/net/dataupdater.h"
#include "data/net/downloader.h"
#include "data/net/downloadmanager.h"
#include "data/quotefile.h"
#include "data/quotetable.h"
#include "data/reader.h"
#include "support/quoteservice.h"
#include "support/testsettings.h"

#include <QFile>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QtTest>

#include <memory>

using namespace OrdaneData;

namespace {
QByteArray readAll(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

// A stored file under another symbol's name, so that a bad reply has something to spoil.
void storeAs(const QString &symbol, const QString &from = QStringLiteral("MSFT"))
{
    QFile::remove(fileOf(symbol));
    QVERIFY(QFile::copy(fileOf(from), fileOf(symbol)));
}
} // namespace

class TestDownload : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void transferRules_data();
    void transferRules();
    void badRepliesLeaveTheStoreAndTheBatchGoesOn();
    void symbolsLeftAlone();
    void overlappingRunsTakeSymbolsOneAtATime();
    void currentQuoteMergesIntoTheNewestBar();
    void dailyCsvProvider();
    void fetchBringsHistoryAndMetaData();
    void withoutAServiceNothingIsTried();

private:
    QuoteService tableService() const;

    QTemporaryDir mHome;
    std::unique_ptr<TestSupport::QuoteService> mService;
};

void TestDownload::initTestCase()
{
    QVERIFY(TestSupport::useTestHome(mHome.path()));
    mService = std::make_unique<TestSupport::QuoteService>(QStringList{
        QStringLiteral("--fault"), QStringLiteral("NOTABLE=body:Data,Stuff\n2012-01-01"),
        QStringLiteral("--fault"), QStringLiteral("NODATE=nodate"), QStringLiteral("--fault"),
        QStringLiteral("HTML=html"), QStringLiteral("--fault"), QStringLiteral("E404=status:404"),
        QStringLiteral("--fault"), QStringLiteral("E500=status:500"), QStringLiteral("--fault"),
        QStringLiteral("EMPTY=empty"), QStringLiteral("--fault"), QStringLiteral("SLOW=stall:5000"),
        QStringLiteral("--fault"), QStringLiteral("UTX=redirect"), QStringLiteral("--limit"),
        QStringLiteral("1")});
    QVERIFY(mService->isRunning());
}

QuoteService TestDownload::tableService() const
{
    QuoteService s;
    s.tableHost = s.quoteHost = mService->url().toString();
    return s;
}

void TestDownload::transferRules_data()
{
    QTest::addColumn<QString>("symbol");
    QTest::addColumn<bool>("ok");
    QTest::addColumn<QString>("error");
    QTest::newRow("table") << "MSFT" << true << "";
    QTest::newRow("redirect-followed") << "UTX" << true << "";
    QTest::newRow("404-whatever-the-body") << "E404" << false << "HTTP 404";
    QTest::newRow("500-after-one-retry") << "E500" << false << "HTTP 500";
    QTest::newRow("stalling-server") << "SLOW" << false << "no answer within 0.3 s";
    QTest::newRow("larger-than-allowed") << "AAPL" << false << "reply larger than";
}

// Every transfer ends with done() or error() and a reason; a reply over the limit is
// refused.
void TestDownload::transferRules()
{
    QFETCH(QString, symbol);
    QFETCH(bool, ok);
    QFETCH(QString, error);
    QMRequest::Downloader downloader;
    downloader.manager()->setTimeout(300);
    downloader.manager()->setRetryPause(20);
    if (symbol == QLatin1String("AAPL"))
        downloader.manager()->setMaxReplySize(4096);
    const QUrl url = tableService().tableUrl(symbol, QDate(2012, 1, 2), QDate(2012, 9, 25));
    QByteArray data;
    QString why;
    QCOMPARE(downloader.get(url, &data, &why), ok);
    QVERIFY2(error.isEmpty() ? why.isEmpty() : why.startsWith(error), qPrintable(why));
    if (ok)
        QVERIFY(isValidTable(data));
    if (symbol == QLatin1String("E500"))
        QCOMPARE(mService->requestsFor(QStringLiteral("E500")), 2); // tried once more
    if (symbol == QLatin1String("E404"))
        QCOMPARE(mService->requestsFor(QStringLiteral("E404")), 1);
}

// A failed, slow or garbled transfer leaves the stored file byte for byte as it was, is
// reported with its reason, and the symbols after it are still brought up to date.
void TestDownload::badRepliesLeaveTheStoreAndTheBatchGoesOn()
{
    const QStringList bad = {QStringLiteral("NOTABLE"), QStringLiteral("NODATE"),
                             QStringLiteral("HTML"),    QStringLiteral("E404"),
                             QStringLiteral("E500"),    QStringLiteral("EMPTY"),
                             QStringLiteral("SLOW"),    QStringLiteral("CLOSED")};
    QMap<QString, QByteArray> before;
    for (const QString &symbol : bad) {
        storeAs(symbol);
        before[symbol] = readAll(fileOf(symbol));
    }
    const QByteArray adsBefore = readAll(fileOf(QStringLiteral("ADS.DE")));

    DataManager manager;
    manager.setService(tableService());
    QMRequest::Downloader downloader;
    downloader.manager()->setTimeout(300);
    downloader.manager()->setRetryPause(20);
    const QDate today = QDate::currentDate();
    for (const QString &symbol : bad) {
        if (symbol == QLatin1String("CLOSED")) {
            // A port nobody listens on.
            QuoteService closed = tableService();
            closed.tableHost = QStringLiteral("http://127.0.0.1:9");
            manager.setService(closed);
        }
        const UpdateOutcome outcome = manager.updateSymbol(symbol, downloader, today);
        QCOMPARE(outcome.kind, UpdateOutcome::Failed);
        QVERIFY2(!outcome.reason.isEmpty(), qPrintable(symbol));
        QCOMPARE(readAll(fileOf(symbol)), before.value(symbol));
        QVERIFY(!manager.changed());
    }
    manager.setService(tableService());
    const UpdateOutcome good = manager.updateSymbol(QStringLiteral("ADS.DE"), downloader, today);
    QCOMPARE(good.kind, UpdateOutcome::Updated);
    QVERIFY(manager.changed());
    QVERIFY(good.rows > 2000); // from 26 September 2012 to yesterday
    Reader updated;
    QVERIFY(updated.loadFile(fileOf(QStringLiteral("ADS.DE"))));
    QCOMPARE(updated.bars().constLast().date(), lastCompletedTradingDay(today));
    // The stored days stay, one row per date, newest first.
    QVERIFY(
        readAll(fileOf(QStringLiteral("ADS.DE"))).endsWith(adsBefore.mid(adsBefore.indexOf('\n'))));
    // A second run finds it up to date and asks for nothing.
    const int asked = mService->requestsFor(QStringLiteral("ADS.DE"));
    QCOMPARE(manager.updateSymbol(QStringLiteral("ADS.DE"), downloader, today).kind,
             UpdateOutcome::UpToDate);
    QCOMPARE(mService->requestsFor(QStringLiteral("ADS.DE")), asked);
    QCOMPARE(good.describe(QStringLiteral("ADS.DE")),
             QStringLiteral("ADS.DE: updated %1 rows").arg(good.rows));
}

// Imported data, symbols marked as not downloaded and symbols whose exchange is unknown are
// left alone; a currency pair has no exchange and is fetched all the same.
void TestDownload::symbolsLeftAlone()
{
    MetaData meta(mHome.filePath(QStringLiteral("left.tdb")));
    QVERIFY(meta.open());
    QStringList row;
    for (int i = 0; i < 22; ++i)
        row << QStringLiteral("N/A");
    for (const QString &symbol : {QStringLiteral("EURUSD=X"), QStringLiteral("UTX")}) {
        row[0] = symbol;
        QVERIFY(meta.insert(row));
    }
    storeAs(QStringLiteral("EURUSD=X"));
    storeAs(QStringLiteral("OLDnoyahoo"));
    storeAs(QStringLiteral("MAN.DE.IMP"), QStringLiteral("MAN.DE")); // the marker file
    QFile::rename(fileOf(QStringLiteral("MAN.DE.IMP")),
                  storagePath() + QStringLiteral("/MAN.DE.IMP"));

    DataManager manager;
    manager.setService(tableService());
    manager.setMetaData(&meta);
    QMRequest::Downloader downloader;
    const struct
    {
        const char *symbol;
        UpdateOutcome::Kind kind;
    } cases[] = {{"MAN.DE", UpdateOutcome::Skipped},
                 {"EURUSD.IMP", UpdateOutcome::Skipped},
                 {"OLDnoyahoo", UpdateOutcome::Skipped},
                 {"UTX", UpdateOutcome::Skipped},
                 {"EURUSD=X", UpdateOutcome::Failed}}; // asked for: the service knows no such file
    for (const auto &c : cases) {
        const int asked = mService->requestsFor(QLatin1String(c.symbol));
        QCOMPARE(manager.updateSymbol(QLatin1String(c.symbol), downloader).kind, c.kind);
        QCOMPARE(mService->requestsFor(QLatin1String(c.symbol)),
                 asked + (c.kind == UpdateOutcome::Failed));
    }
}

// Two runs over the same manager: the mutex makes their steps strictly one after another.
void TestDownload::overlappingRunsTakeSymbolsOneAtATime()
{
    for (const QString &s :
         {QStringLiteral("RUN1"), QStringLiteral("RUN2"), QStringLiteral("RUN3")})
        storeAs(s, QStringLiteral("UTX"));
    DataManager manager;
    manager.setService(tableService());
    QMutex lock;
    QStringList steps;
    connect(
        &manager, &DataManager::symbolStarted, &manager,
        [&](const QString &s) {
            const QMutexLocker locker(&lock);
            steps << QStringLiteral("+") + s;
        },
        Qt::DirectConnection);
    connect(
        &manager, &DataManager::symbolFinished, &manager,
        [&](const QString &s) {
            const QMutexLocker locker(&lock);
            steps << QStringLiteral("-") + s;
        },
        Qt::DirectConnection);
    const QStringList symbols = {QStringLiteral("RUN1"), QStringLiteral("RUN2"),
                                 QStringLiteral("RUN3")};
    QPointer<DataManagerThread> first = manager.start(symbols);
    QPointer<DataManagerThread> second = manager.start(symbols);
    QSignalSpy progress(first.data(), &DataManagerThread::progress);
    QTRY_VERIFY_WITH_TIMEOUT(!first && !second, 20000);
    QCOMPARE(progress.count(), 3);
    QCOMPARE(steps.size(), 12);
    for (int i = 0; i < steps.size(); i += 2) {
        QVERIFY(steps.at(i).startsWith(QLatin1Char('+')));
        QCOMPARE(steps.at(i + 1), QStringLiteral("-") + steps.at(i).mid(1));
    }
}

// The current quote ("l1d1t1ohgv") becomes the newest bar of a shown series.
void TestDownload::currentQuoteMergesIntoTheNewestBar()
{
    DataManager manager;
    manager.setService(tableService());
    DataUpdater updater(&manager);
    QSignalSpy quotes(&updater, &DataUpdater::quote);
    updater.requestQuote(QStringLiteral("MSFT"));
    QVERIFY(quotes.wait(10000));
    const QuoteBar bar = quotes.at(0).at(1).value<QuoteBar>();
    QCOMPARE(bar.date(), lastCompletedTradingDay(QDate::currentDate()));

    Reader series(&updater);
    series.setSymbol(QStringLiteral("UTX")); // stored up to 2012-09-25
    const int count = series.count();
    QSignalSpy changed(&series, &Reader::dataChanged);
    series.mergeQuote(bar);
    QCOMPARE(changed.count(), 1);
    QCOMPARE(series.count(), count + 1);
    QCOMPARE(series.bars().constLast(), bar);

    QSignalSpy failures(&updater, &DataUpdater::failed);
    updater.requestQuote(QStringLiteral("HTML"));
    QVERIFY(failures.wait(10000));
}

// The daily-CSV provider: its reply is stored in our format; its limit message is a
// failure with that reason.
void TestDownload::dailyCsvProvider()
{
    storeAs(QStringLiteral("aapl.us"), QStringLiteral("AAPL"));
    storeAs(QStringLiteral("utx.us"), QStringLiteral("UTX"));
    QuoteService daily = tableService();
    daily.provider = QuoteService::DailyCsv;
    daily.apiKey = QStringLiteral("k&y");
    DataManager manager;
    manager.setService(daily);
    QMRequest::Downloader downloader;
    const UpdateOutcome first = manager.updateSymbol(QStringLiteral("aapl.us"), downloader);
    QCOMPARE(first.kind, UpdateOutcome::Updated);
    Reader aapl;
    QVERIFY(aapl.loadFile(fileOf(QStringLiteral("aapl.us"))));
    QCOMPARE(aapl.bars().constLast().date(), lastCompletedTradingDay(QDate::currentDate()));
    QVERIFY(readAll(fileOf(QStringLiteral("aapl.us")))
                .startsWith("Date,Open,High,Low,Close,Volume,Adj Close\n"));

    const QByteArray before = readAll(fileOf(QStringLiteral("utx.us")));
    const UpdateOutcome limited = manager.updateSymbol(QStringLiteral("utx.us"), downloader);
    QCOMPARE(limited.kind, UpdateOutcome::Failed);
    QCOMPARE(limited.reason, QStringLiteral("Exceeded the daily hits limit"));
    QCOMPARE(readAll(fileOf(QStringLiteral("utx.us"))), before);
}

// A symbol new to the store: its whole history, and its metadata.
void TestDownload::fetchBringsHistoryAndMetaData()
{
    MetaData meta(mHome.filePath(QStringLiteral("fetch.tdb")));
    QVERIFY(meta.open());
    QFile::remove(fileOf(QStringLiteral("MSFT")));
    DataManager manager;
    manager.setService(tableService());
    manager.setMetaData(&meta);
    QMRequest::Downloader downloader;
    const UpdateOutcome outcome = manager.fetchSymbol(QStringLiteral("MSFT"), downloader);
    QCOMPARE(outcome.kind, UpdateOutcome::Updated);
    Reader msft;
    QVERIFY(msft.loadFile(fileOf(QStringLiteral("MSFT"))));
    QVERIFY(msft.count() > 5000);
    QCOMPARE(msft.bars().constFirst().date().year(), 2000);
    const QMap<QString, QString> record = meta.record(QStringLiteral("msft"));
    QVERIFY(!record.value(QStringLiteral("name")).isEmpty());
    QCOMPARE(record.value(QStringLiteral("lastupdate")),
             QLocale::c().toString(QDate::currentDate(), QStringLiteral("dd MMM yyyy")));
}

void TestDownload::withoutAServiceNothingIsTried()
{
    DataManager manager;
    manager.setService(QuoteService());
    QMRequest::Downloader downloader;
    const UpdateOutcome outcome =
        manager.updateSymbol(QStringLiteral("AAPL"), downloader, QDate(2030, 1, 9));
    QCOMPARE(outcome.describe(QStringLiteral("AAPL")),
             QStringLiteral("AAPL: failed (No quote service is configured)"));

    DataUpdater updater(&manager);
    QSignalSpy failures(&updater, &DataUpdater::failed);
    updater.requestQuote(QStringLiteral("AAPL"));
    QCOMPARE(failures.count(), 1);
    QCOMPARE(failures.at(0).at(1).toString(), QuoteService::notConfigured());
}

QTEST_MAIN(TestDownload)
#include "test_download.moc"
