// The RSI calibrator: where its files go and what they are called, the manifest's stable
// bytes, the whole stored series whatever the simulator's limit, the dialog's runs and how
// a stop waits for the symbol under way, and the browser's ways into the dialog.

#include "browser/calibratorthread.h"
#include "browser/ui/calibrator.h"
#include "browser/ui/stocklist.h"
#include "browser/ui/storagebrowser.h"
#include "data/home.h"
#include "data/quotefile.h"
#include "data/reader.h"
#include "indicators/catalogue.h"
#include "indicators/rsicalibration.h"
#include "indicators/rsiindicator.h"
#include "support/testsettings.h"

#include <QApplication>
#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QListWidget>
#include <QLoggingCategory>
#include <QMenu>
#include <QProgressBar>
#include <QPushButton>
#include <QSignalSpy>
#include <QSpinBox>
#include <QTemporaryDir>
#include <QTimer>
#include <QtTest>

#include <memory>

using namespace OrdaneBrowser;

namespace {
QByteArray contents(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QByteArray sha256(const QByteArray &bytes)
{
    return QCryptographicHash::hash(bytes, QCryptographicHash::Sha256).toHex();
}

QPushButton *button(QWidget *parent, const char *name)
{
    return parent->findChild<QPushButton *>(QLatin1String(name));
}
} // namespace

class TestCalibrator : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanup() { OrdaneData::Reader::setHistoryLimit(-1); }
    void fileNames_data();
    void fileNames();
    void calibrateWritesTheTableAndItsManifest();
    void calibrationIgnoresTheSimulatorsLimit();
    void dialogRunsAndStopsBetweenSymbols();
    void browserOpensTheCalibrator();

private:
    QTemporaryDir mHome;
};

void TestCalibrator::initTestCase()
{
    QVERIFY(TestSupport::useTestHome(mHome.path()));
    QCoreApplication::setApplicationVersion(QStringLiteral("2.0"));
    QLoggingCategory::setFilterRules(QStringLiteral("halcyra.calibrator.debug=true"));
}

void TestCalibrator::fileNames_data()
{
    QTest::addColumn<QString>("symbol");
    QTest::addColumn<QDate>("newest");
    QTest::addColumn<int>("from");
    QTest::addColumn<int>("to");
    QTest::addColumn<QString>("name");
    QTest::newRow("whole-grid") << "MSFT" << QDate(2012, 9, 25) << 2 << 99
                                << "/RSI_MSFT_20120925.csv";
    QTest::newRow("dotted-symbol")
        << "ADS.DE" << QDate(2012, 1, 5) << 2 << 99 << "/RSI_ADS.DE_20120105.csv";
    // A narrower search never takes the name of a whole one.
    QTest::newRow("fewer-periods")
        << "MSFT" << QDate(2012, 9, 25) << 5 << 30 << "/RSI_MSFT_20120925_P5-30.csv";
}

void TestCalibrator::fileNames()
{
    QFETCH(QString, symbol);
    QFETCH(QDate, newest);
    QFETCH(int, from);
    QFETCH(int, to);
    QFETCH(QString, name);
    QCOMPARE(OrdaneView::rsiCalibrationName(symbol, newest, {from, to}), name);
}

void TestCalibrator::calibrateWritesTheTableAndItsManifest()
{
    const QString folder = OrdaneData::Home::calibratorPath();
    QDir(folder).removeRecursively();
    const OrdaneData::ReaderH series = loadStoredSeries(QStringLiteral("MSFT"));
    QVERIFY(!series.isNull());
    std::unique_ptr<OrdaneView::IndicatorLayer> layer(
        OrdaneView::createBuiltinIndicator(QStringLiteral("RSI"), series, nullptr));
    auto *rsi = qobject_cast<OrdaneView::RsiIndicator *>(layer.get());
    QVERIFY(rsi);
    QSignalSpy progress(rsi, &OrdaneView::IndicatorLayer::progress);
    QTest::ignoreMessage(QtDebugMsg, "RSI::calibrate()");
    rsi->calibrate();

    // The folder is made; the name follows the newest bar.
    const QString table = folder + QStringLiteral("/RSI_MSFT_20120925.csv");
    QCOMPARE(rsi->calibrationFile(), table);
    QCOMPARE(progress.size(), 98);
    QCOMPARE(progress.constFirst().at(0).toInt(), 2);
    QCOMPARE(progress.constLast().at(0).toInt(), 99);
    const QByteArray bytes = contents(table);
    QCOMPARE(bytes, Indicators::rsiCalibrationTable(series->bars()));

    const QByteArray manifest = contents(OrdaneView::rsiManifestPath(table));
    const QByteArray stored = contents(OrdaneData::fileOf(QStringLiteral("MSFT")));
    for (const QByteArray &line :
         {QByteArray("Program: Halcyra 2.0\n"), QByteArray("Table: RSI_MSFT_20120925.csv\n"),
          "Table SHA-256: " + sha256(bytes) + '\n', QByteArray("Stored file: MSFT.csv\n"),
          "Stored file SHA-256: " + sha256(stored) + '\n',
          "Bars: " + QByteArray::number(series->count()) + '\n',
          "First date: " + series->bar(0).date().toString(Qt::ISODate).toLatin1() + '\n',
          QByteArray("Last date: 2012-09-25\n"),
          QByteArray("Grid: Period 2..99; HighLevel 1..98; LowLevel 1..HighLevel-1; "
                     "HighLevel - LowLevel >= 33\n")})
        QVERIFY2(manifest.contains(line), line.constData());

    // The same quotes give the same bytes, manifest included.
    QTest::ignoreMessage(QtDebugMsg, "RSI::calibrate()");
    rsi->calibrate();
    QCOMPARE(contents(table), bytes);
    QCOMPARE(contents(OrdaneView::rsiManifestPath(table)), manifest);

    // A changed stored file is a different source, named by its digest.
    QVERIFY(OrdaneData::writeText(OrdaneData::fileOf(QStringLiteral("MSFT")), stored + "\n"));
    QTest::ignoreMessage(QtDebugMsg, "RSI::calibrate()");
    rsi->calibrate();
    QCOMPARE(contents(table), bytes);
    QVERIFY(contents(OrdaneView::rsiManifestPath(table)) != manifest);
    QVERIFY(OrdaneData::writeText(OrdaneData::fileOf(QStringLiteral("MSFT")), stored));
}

void TestCalibrator::calibrationIgnoresTheSimulatorsLimit()
{
    const int stored = loadStoredSeries(QStringLiteral("AAPL"))->count();
    OrdaneData::Reader::setHistoryLimit(70);
    QString error;
    QTest::ignoreMessage(QtDebugMsg, "RSI::calibrate()");
    const QString table = calibrateRsi(QStringLiteral("AAPL"), {}, {}, &error);
    QVERIFY2(!table.isEmpty(), qPrintable(error));
    QVERIFY(contents(OrdaneView::rsiManifestPath(table))
                .contains("Bars: " + QByteArray::number(stored) + '\n'));
    QCOMPARE(OrdaneData::Reader::historyLimit(), 70);

    QVERIFY(calibrateRsi(QStringLiteral("NOSUCH"), {}, {}, &error).isEmpty());
    QVERIFY(error.contains(QStringLiteral("NOSUCH")));
}

// A whole run over the listed symbols, then one stopped while its first symbol is under way.
void TestCalibrator::dialogRunsAndStopsBetweenSymbols()
{
    Calibrator dialog;
    QCOMPARE(dialog.windowTitle(), QStringLiteral("Halcyra Calibrator"));
    QCOMPARE(dialog.findChild<QListWidget *>(QStringLiteral("CalibratorIndicators"))->count(), 1);
    QPushButton *calibrate = button(&dialog, "CalibratorCalibrate");
    // Nothing listed: nothing to run.
    calibrate->click();
    QVERIFY(!calibrate->isChecked());
    QVERIFY(!dialog.isRunning());

    for (const char *symbol : {"MSFT", "UTX", "MSFT"})
        dialog.slotAddSymbol(QLatin1String(symbol));
    QCOMPARE(dialog.symbols(), (QStringList{QStringLiteral("MSFT"), QStringLiteral("UTX")}));
    QSignalSpy finished(&dialog, &Calibrator::runFinished);
    for (const char *message : {"Symbol:MSFT", "RSI::calibrate()", "Done:MSFT", "Symbol:UTX",
                                "RSI::calibrate()", "Done:UTX"})
        QTest::ignoreMessage(QtDebugMsg, message);
    calibrate->click();
    QCOMPARE(calibrate->text(), QStringLiteral("&Stop"));
    QVERIFY(finished.wait(30000));
    const QString folder = OrdaneData::Home::calibratorPath();
    QCOMPARE(dialog.resultFiles(), (QStringList{folder + QStringLiteral("/RSI_MSFT_20120925.csv"),
                                                folder + QStringLiteral("/RSI_UTX_20120925.csv")}));
    QCOMPARE(dialog.findChild<QProgressBar *>(QStringLiteral("CalibratorProgress"))->value(), 99);
    QVERIFY(!calibrate->isChecked());
    QCOMPARE(calibrate->text(), QStringLiteral("&Calibrate"));

    // Pressed again while MSFT is under way: MSFT finishes, UTX never starts.
    dialog.findChild<QSpinBox *>(QStringLiteral("CalibratorPeriodTo"))->setValue(20);
    QTest::ignoreMessage(QtDebugMsg, "Symbol:MSFT");
    QTest::ignoreMessage(QtDebugMsg, "RSI::calibrate()");
    QTest::ignoreMessage(QtDebugMsg, "Done:MSFT");
    calibrate->click();
    calibrate->click();
    QVERIFY(!calibrate->isEnabled());
    QVERIFY(dialog.isRunning());
    QVERIFY(finished.wait(30000));
    QCOMPARE(dialog.resultFiles(),
             QStringList{folder + QStringLiteral("/RSI_MSFT_20120925_P2-20.csv")});
    QVERIFY(!dialog.isRunning());
    QVERIFY(calibrate->isEnabled());
    QVERIFY(!calibrate->isChecked());
    QCOMPARE(calibrate->text(), QStringLiteral("&Calibrate"));
}

void TestCalibrator::browserOpensTheCalibrator()
{
    StorageBrowser browser;
    browser.slotSetSymbols({QStringLiteral("MSFT"), QStringLiteral("AAPL"), QStringLiteral("UTX")});
    browser.show();
    QVERIFY(!browser.calibrator());
    browser.stockList()
        ->findSymbol(QStringLiteral("AAPL"))
        ->setCheckState(StockList::CheckColumn, Qt::Checked);
    QPushButton *open = button(&browser, "StorageBrowserC");
    QVERIFY(open);
    open->click();
    Calibrator *calibrator = browser.calibrator();
    QVERIFY(calibrator && calibrator->isVisible());
    QCOMPARE(calibrator->symbols(), QStringList{QStringLiteral("AAPL")});
    button(calibrator, "CalibratorHide")->click();
    QVERIFY(!calibrator->isVisible());
    open->click();
    QCOMPARE(browser.calibrator(), calibrator);
    QVERIFY(calibrator->isVisible());

    // "Send to Calibrator" in the list's context menu.
    QTreeWidgetItem *row = browser.stockList()->findSymbol(QStringLiteral("UTX"));
    QTimer poll;
    connect(&poll, &QTimer::timeout, &poll, [] {
        auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
        if (!menu)
            return;
        for (QAction *a : menu->actions())
            if (a->text() == QLatin1String("Send to &Calibrator"))
                a->trigger();
        menu->close();
    });
    poll.start(5);
    emit browser.stockList()->customContextMenuRequested(
        browser.stockList()->visualItemRect(row).center());
    poll.stop();
    QCOMPARE(calibrator->symbols(), (QStringList{QStringLiteral("AAPL"), QStringLiteral("UTX")}));
}

QTEST_MAIN(TestCalibrator)
#include "test_calibrator.moc"
