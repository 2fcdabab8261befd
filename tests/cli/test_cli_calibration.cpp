// The command-line tool's calibrate and simulate: usage errors, the paths printed, and a
// calibration line confirmed by simulating its parameters.

#include "cli/command.h"
#include "data/home.h"
#include "data/quotefile.h"
#include "data/reader.h"
#include "indicators/compute/rsitrading.h"

#include <QDir>
#include <QFile>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QtTest>

namespace {
struct Outcome
{
    int status;
    QString out;
    QString err;
};

Outcome runCli(const QStringList &args)
{
    QString out, err;
    QTextStream o(&out), e(&err);
    const int status = Cli::run(QStringList{QStringLiteral("halcyra-cli")} + args, o, e);
    o.flush();
    e.flush();
    return {status, out, err};
}
} // namespace

class TestCliCalibration : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void usage_data();
    void usage();
    void calibratePrintsEachTable();
    void simulateConfirmsACalibrationLine();

private:
    void checkLine(const QByteArray &line);

    QTemporaryDir mDir;
    QString mHome;
};

void TestCliCalibration::initTestCase()
{
    QCoreApplication::setApplicationVersion(QStringLiteral("2.0"));
    QStandardPaths::setTestModeEnabled(true);
    mHome = mDir.filePath(QStringLiteral("home"));
    qputenv("HALCYRA_HOME", mHome.toLocal8Bit());
}

void TestCliCalibration::usage_data()
{
    QTest::addColumn<QStringList>("args");
    QTest::addColumn<int>("status");
    QTest::addColumn<QString>("says"); // on stderr
    const auto S = [](const char *s) {
        return QString::fromLatin1(s);
    };
    QTest::newRow("calibrate-nothing") << QStringList{S("calibrate")} << 2 << S("SYMBOL");
    QTest::newRow("calibrate-bad-periods")
        << QStringList{S("calibrate"), S("--periods"), S("1-99"), S("MSFT")} << 2 << S("FROM-TO");
    QTest::newRow("calibrate-unknown-symbol")
        << QStringList{S("calibrate"), S("NOSUCH")} << 1 << S("NOSUCH");
    QTest::newRow("simulate-turned-levels")
        << QStringList{S("simulate"), S("MSFT"), S("--rsi"), S("14,70,30")} << 2 << S("L below H");
    QTest::newRow("simulate-unknown-symbol")
        << QStringList{S("simulate"), S("NOSUCH"), S("--rsi"), S("14,30,70")} << 1
        << S("no such file or stored symbol: NOSUCH");
}

void TestCliCalibration::usage()
{
    QFETCH(QStringList, args);
    QFETCH(int, status);
    QFETCH(QString, says);
    const Outcome o = runCli(args);
    QCOMPARE(o.status, status);
    QVERIFY2(o.err.contains(says), qPrintable(o.err));
}

void TestCliCalibration::calibratePrintsEachTable()
{
    // In the order named; an unknown symbol is told and the others still calibrated.
    const Outcome o = runCli({QStringLiteral("calibrate"), QStringLiteral("UTX"),
                              QStringLiteral("NOSUCH"), QStringLiteral("MSFT")});
    QCOMPARE(o.status, 1);
    QVERIFY(o.err.contains(QStringLiteral("NOSUCH")));
    const QString folder = QDir(mHome).absoluteFilePath(QStringLiteral("Calibrator"));
    QCOMPARE(o.out, folder + QStringLiteral("/RSI_UTX_20120925.csv\n") + folder +
                        QStringLiteral("/RSI_MSFT_20120925.csv\n"));
    for (const QString &path : o.out.split(QLatin1Char('\n'), Qt::SkipEmptyParts)) {
        QVERIFY(QFile::exists(path));
        QVERIFY(QFile::exists(path + QStringLiteral(".manifest.txt")));
    }

    const Outcome narrow = runCli({QStringLiteral("calibrate"), QStringLiteral("--periods"),
                                   QStringLiteral("5-9"), QStringLiteral("MSFT")});
    QCOMPARE(narrow.status, 0);
    QCOMPARE(narrow.err, QString());
    QCOMPARE(narrow.out, folder + QStringLiteral("/RSI_MSFT_20120925_P5-9.csv\n"));
}

// Each line of ADS.DE's table (one of the samples whose table has lines) names P, L and H
// with their trades, days and profits; simulating those parameters trade by trade must come
// to the same totals.
void TestCliCalibration::simulateConfirmsACalibrationLine()
{
    const Outcome calibrated = runCli({QStringLiteral("calibrate"), QStringLiteral("ADS.DE")});
    QCOMPARE(calibrated.status, 0);
    QFile table(calibrated.out.trimmed());
    QVERIFY(table.open(QIODevice::ReadOnly));
    QList<QByteArray> lines = table.readAll().split('\n');
    lines.removeFirst(); // the header
    lines.removeLast();  // after the last line end
    QVERIFY(lines.size() > 100);
    // The first, the last and a few between.
    for (int i = 0; i < lines.size(); i += lines.size() / 5)
        checkLine(lines.at(i));
    checkLine(lines.constLast());
}

void TestCliCalibration::checkLine(const QByteArray &text)
{
    const QList<QByteArray> line = text.split(',');
    QCOMPARE(line.size(), 7);

    const QString rule = QString::fromLatin1(line[0] + ',' + line[1] + ',' + line[2]);
    const Outcome o = runCli(
        {QStringLiteral("simulate"), QStringLiteral("ADS.DE"), QStringLiteral("--rsi"), rule});
    QCOMPARE(o.status, 0);
    QCOMPARE(o.err, QString());
    const QStringList out = o.out.split(QLatin1Char('\n'));
    QCOMPARE(out.constFirst(), QStringLiteral("EntryDate,ExitDate,Entry,Exit,Percent"));
    const int trades = line[3].toInt();
    // Header, one row per trade, a blank line, the totals' header and the totals.
    QCOMPARE(out.size(), 1 + trades + 3 + 1);
    QCOMPARE(out.at(trades + 1), QString());
    QCOMPARE(out.at(trades + 2), QStringLiteral("Trades,Days,TotalProfit,DayProfit"));
    QCOMPARE(out.at(trades + 3),
             QString::fromLatin1(line[3] + ',' + line[5] + ',' + line[6] + ',' + line[4]));
    // Each row: two dates in order, two prices and the percent of the exit price.
    for (int i = 1; i <= trades; ++i) {
        const QStringList f = out.at(i).split(QLatin1Char(','));
        QCOMPARE(f.size(), 5);
        const QDate entry = QDate::fromString(f[0], Qt::ISODate);
        const QDate exit = QDate::fromString(f[1], Qt::ISODate);
        QVERIFY(entry.isValid() && exit > entry);
        const double in = f[2].toDouble();
        const double out_ = f[3].toDouble();
        QVERIFY(qAbs(f[4].toDouble() - (out_ - in) / out_ * 100.0) < 1e-3);
    }
}

QTEST_GUILESS_MAIN(TestCliCalibration)
#include "test_cli_calibration.moc"
