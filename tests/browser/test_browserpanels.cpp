// The storage browser's scanner, bulk updater and benchmarking panel, driven through the
// browser's buttons and against the local quote service.

#include "browser/ui/benchmarking.h"
#include "browser/ui/browserupdater.h"
#include "browser/ui/scanner.h"
#include "browser/ui/stocklist.h"
#include "browser/ui/storagebrowser.h"
#include "data/metadata.h"
#include "data/net/datamanager.h"
#include "data/quotefile.h"
#include "data/reader.h"
#include "support/quoteservice.h"
#include "support/testsettings.h"

#include <QDir>
#include <QLineEdit>
#include <QMenu>
#include <QProgressBar>
#include <QPushButton>
#include <QSignalSpy>
#include <QSpinBox>
#include <QTemporaryDir>
#include <QTreeWidget>
#include <QtTest>

using namespace OrdaneBrowser;

namespace {
QStringList symbolsOf(std::initializer_list<const char *> list)
{
    QStringList result;
    for (const char *symbol : list)
        result << QLatin1String(symbol);
    return result;
}

OrdaneData::QuoteService serviceAt(const TestSupport::QuoteService &service, bool fields)
{
    OrdaneData::QuoteService s;
    s.tableHost = service.url().toString();
    if (fields)
        s.quoteHost = s.tableHost;
    return s;
}

// Three weekdays of quotes, as the service's data folder and the store keep them.
bool writeQuotes(const QString &path)
{
    QVector<QuoteBar> bars;
    for (int day = 3; day <= 5; ++day)
        bars.append(QuoteBar(QDate(2012, 9, day), 10, 12, 9, 11, 1000));
    return OrdaneData::writeText(path, OrdaneData::seriesToBytes(bars));
}

template <typename T> T *child(const QObject &parent, const char *name)
{
    return parent.findChild<T *>(QLatin1String(name));
}

// The scanner of `browser`, made through its button, with the given settings.
Scanner *openScanner(StorageBrowser &browser, const QString &symbols, int padding, int start,
                     const QString &postfix, const QString &fill = QString())
{
    child<QPushButton>(browser, "StorageBrowserS")->click();
    auto *scanner = browser.findChild<Scanner *>();
    if (!scanner)
        return nullptr;
    child<QLineEdit>(*scanner, "ScannerSymbols")->setText(symbols);
    child<QSpinBox>(*scanner, "ScannerPadding")->setValue(padding);
    child<QSpinBox>(*scanner, "ScannerStart")->setValue(start);
    child<QLineEdit>(*scanner, "ScannerPostfix")->setText(postfix);
    child<QLineEdit>(*scanner, "ScannerFill")->setText(fill);
    return scanner;
}
} // namespace

class TestBrowserPanels : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void scannerFindsWhatTheServiceHas();
    void scannerStartAndStop_data();
    void scannerStartAndStop();
    void updaterWorkLists_data();
    void updaterWorkLists();
    void updaterNeedsABrowser();
    void updaterRunListsTheFailures();
    void benchmarkingListsAndPairs();
    void buttonsKeepTheirWindows();

private:
    QTemporaryDir mHome;
    QTemporaryDir mServiceData;
};

void TestBrowserPanels::initTestCase()
{
    QVERIFY(TestSupport::useTestHome(mHome.path()));
    QVERIFY(writeQuotes(mServiceData.filePath(QStringLiteral("A.csv"))));
    QVERIFY(writeQuotes(mServiceData.filePath(QStringLiteral("XA.csv"))));
    QVERIFY(writeQuotes(mServiceData.filePath(QStringLiteral("0007.csv"))));
}

// "AX-" with length 2 probes A X A AX XA XX AA AX XA (the generator's order, repeats
// included): the service has A and XA, found twice each, and nothing else is left stored.
void TestBrowserPanels::scannerFindsWhatTheServiceHas()
{
    TestSupport::QuoteService service({}, mServiceData.path());
    QVERIFY(service.isRunning());
    OrdaneData::DataManager manager;
    manager.setService(serviceAt(service, false));
    StorageBrowser browser;
    browser.setDataManager(&manager);
    Scanner *scanner = openScanner(browser, QStringLiteral("AX-"), 2, 0, QString());
    QVERIFY(scanner && scanner->isVisible());
    QCOMPARE(scanner->windowTitle(), QStringLiteral("Halcyra Scanner"));
    QSignalSpy found(scanner, &Scanner::found);
    auto *scan = child<QPushButton>(*scanner, "ScannerScan");
    scan->click();
    QVERIFY(scanner->isScanning());
    QCOMPARE(scan->text(), QStringLiteral("&Stop"));
    QTRY_VERIFY_WITH_TIMEOUT(!scanner->isScanning() && !scanner->isProbing(), 30000);

    QStringList symbols;
    for (const QList<QVariant> &signal : qAsConst(found))
        symbols << signal.at(0).toString();
    QCOMPARE(symbols, symbolsOf({"A", "A", "XA", "XA"}));
    QCOMPARE(scanner->foundCount(), 4);
    QCOMPARE(scanner->statusText(),
             QStringLiteral("<CENTER>Scaned 9 of 9<BR>Found: 4<BR>Current: XA<BR></CENTER>"));
    QCOMPARE(child<QProgressBar>(*scanner, "ScannerProgress")->value(), 100);
    QCOMPARE(scan->text(), QStringLiteral("&Scan"));
    QCOMPARE(browser.stockList()->symbols(), symbolsOf({"A", "XA"}));
    OrdaneData::Reader stored;
    QVERIFY(stored.loadFile(OrdaneData::fileOf(QStringLiteral("XA"))));
    QCOMPARE(stored.count(), 3);
    for (const char *missing : {"X", "AX", "XX", "AA"})
        QVERIFY2(!QFile::exists(OrdaneData::fileOf(QLatin1String(missing))), missing);
    QTRY_COMPARE(service.requestsFor(QStringLiteral("AX")), 2);
}

void TestBrowserPanels::scannerStartAndStop_data()
{
    QTest::addColumn<QString>("symbols");
    QTest::addColumn<int>("padding");
    QTest::addColumn<int>("start");
    QTest::addColumn<QString>("fill");
    QTest::addColumn<bool>("configured");
    QTest::addColumn<QString>("firstProbe"); // the service has it; empty: the scan ends at once

    const QString standard = SymbolGenerator::defaultAlphabet();
    QTest::newRow("start-at-the-count")
        << QStringLiteral("AX-") << 2 << 9 << QString() << true << QString();
    QTest::newRow("fill-out-to-the-padding")
        << standard << 4 << 7 << QStringLiteral("0") << true << QStringLiteral("0007");
    QTest::newRow("no-quote-service") << standard << 4 << 0 << QString() << false << QString();
}

// A scan from the start value, which "&Stop" ends once the probe under way is back; a scan
// without candidates left, or without a service, ends at once without asking anything.
void TestBrowserPanels::scannerStartAndStop()
{
    QFETCH(QString, symbols);
    QFETCH(int, padding);
    QFETCH(int, start);
    QFETCH(QString, fill);
    QFETCH(bool, configured);
    QFETCH(QString, firstProbe);
    TestSupport::QuoteService service({}, mServiceData.path());
    QVERIFY(service.isRunning());
    OrdaneData::DataManager manager;
    manager.setService(configured ? serviceAt(service, false) : OrdaneData::QuoteService());
    StorageBrowser browser;
    browser.setDataManager(&manager);
    Scanner *scanner = openScanner(browser, symbols, padding, start, QString(), fill);
    QVERIFY(scanner);
    const QString before = scanner->statusText();
    auto *scan = child<QPushButton>(*scanner, "ScannerScan");
    if (firstProbe.isEmpty()) {
        scan->click();
        QVERIFY(!scanner->isScanning() && !scanner->isProbing());
        QCOMPARE(scan->text(), QStringLiteral("&Scan"));
        QCOMPARE(scanner->generator().index(), quint64(start));
        if (configured)
            QCOMPARE(scanner->statusText(), before);
        else
            QCOMPARE(scanner->statusText(), OrdaneData::QuoteService::notConfigured());
        return;
    }
    // "&Stop" as the first symbol is found: the scan ends after that probe.
    QSignalSpy found(scanner, &Scanner::found);
    connect(scanner, &Scanner::found, scan, &QPushButton::click);
    scan->click();
    QCOMPARE(scan->text(), QStringLiteral("&Stop"));
    QTRY_VERIFY_WITH_TIMEOUT(!scanner->isScanning() && !scanner->isProbing(), 20000);
    QCOMPARE(found.count(), 1);
    QCOMPARE(found.at(0).at(0).toString(), firstProbe);
    QCOMPARE(scan->text(), QStringLiteral("&Scan"));
    QCOMPARE(scanner->generator().index(), quint64(start) + 1);
    QCOMPARE(scanner->statusText(),
             QStringLiteral("<CENTER>Scaned %1 of %2<BR>Found: 1<BR>Current: %3<BR></CENTER>")
                 .arg(start + 1)
                 .arg(scanner->generator().candidateCount())
                 .arg(firstProbe));
    QCOMPARE(service.requestsFor(firstProbe), 1);
    QCOMPARE(service.requestsFor(QStringLiteral("0008")), 0);
}

void TestBrowserPanels::updaterWorkLists_data()
{
    QTest::addColumn<int>("mode");
    QTest::addColumn<QStringList>("symbols");
    // Files: A, B, ABC.IMP and the store's own _x.csv and _meta.tdb, and a note; rows in the
    // order Z, A, ABC.IMP, B.
    QTest::newRow("all-data") << int(BrowserUpdater::AllData) << symbolsOf({"A", "B"});
    QTest::newRow("visible-items-in-row-order")
        << int(BrowserUpdater::VisibleItems) << symbolsOf({"Z", "A", "B"});
}

void TestBrowserPanels::updaterWorkLists()
{
    QFETCH(int, mode);
    QFETCH(QStringList, symbols);
    QTemporaryDir storage;
    for (const char *file : {"A.csv", "B.csv", "ABC.IMP.csv", "_x.csv", "_meta.tdb", "notes.txt"})
        QVERIFY(writeQuotes(storage.filePath(QLatin1String(file))));
    StorageBrowser browser(storage.path());
    browser.slotSetSymbols(symbolsOf({"A", "ABC.IMP", "B", "Z"}));
    StockList *list = browser.stockList();
    list->setSortingEnabled(false);
    list->insertTopLevelItem(0, list->takeTopLevelItem(3));
    QCOMPARE(list->symbols(), symbolsOf({"Z", "A", "ABC.IMP", "B"}));

    BrowserUpdater updater(nullptr, &browser);
    updater.setMode(BrowserUpdater::Mode(mode));
    QCOMPARE(updater.workList(), symbols);
}

void TestBrowserPanels::updaterNeedsABrowser()
{
    BrowserUpdater updater;
    QCOMPARE(updater.workList(), QStringList());
    QTest::ignoreMessage(QtWarningMsg, "Can't find the StorageBrowser");
    child<QPushButton>(updater, "BrowserUpdaterUpdate")->click();
    QVERIFY(!updater.isUpdating() && !updater.isRunning());
}

// The visible rows AAPL, MSFT (which the service answers with an error page) and UTX: the
// samples are brought up to date, their metadata refreshed, and MSFT is named at the end.
void TestBrowserPanels::updaterRunListsTheFailures()
{
    TestSupport::QuoteService service({QStringLiteral("--fault"), QStringLiteral("MSFT=html")});
    QVERIFY(service.isRunning());
    OrdaneData::MetaData meta;
    QVERIFY(meta.open());
    OrdaneData::DataManager manager;
    manager.setService(serviceAt(service, true));
    manager.setMetaData(&meta);
    StorageBrowser browser;
    browser.setDataManager(&manager);
    browser.slotSetSymbols(symbolsOf({"AAPL", "MSFT", "UTX"}));
    child<QPushButton>(browser, "StorageBrowserU")->menu()->actions().at(1)->trigger();
    auto *updater = browser.findChild<BrowserUpdater *>();
    QVERIFY(updater && updater->isVisible());
    QCOMPARE(updater->mode(), BrowserUpdater::VisibleItems);
    QCOMPARE(updater->windowTitle(), QStringLiteral("Halcyra Updater"));
    QSignalSpy ended(updater, &BrowserUpdater::runEnded);
    auto *update = child<QPushButton>(*updater, "BrowserUpdaterUpdate");
    update->click();
    QCOMPARE(update->text(), QStringLiteral("&Stop"));
    QVERIFY(ended.wait(30000));

    QCOMPARE(update->text(), QStringLiteral("&Update"));
    QVERIFY(!updater->isUpdating());
    QCOMPARE(updater->summary().updated, 2);
    QCOMPARE(updater->summary().failed, 1);
    QCOMPARE(child<QProgressBar>(*updater, "BrowserUpdaterProgress")->value(), 3);
    const QString status = updater->statusText();
    QVERIFY2(status.startsWith(QStringLiteral("Quotes: 2 updated, 1 failed (MSFT: not a quote")),
             qPrintable(status));
    OrdaneData::Reader aapl;
    QVERIFY(aapl.loadFile(OrdaneData::fileOf(QStringLiteral("AAPL"))));
    QVERIFY(aapl.bars().constLast().date() > QDate(2012, 9, 25));
    const QString today =
        QLocale(QLocale::English).toString(QDate::currentDate(), QStringLiteral("dd MMM yyyy"));
    QTRY_COMPARE_WITH_TIMEOUT(
        meta.record(QStringLiteral("UTX")).value(QStringLiteral("lastupdate")), today, 20000);
    QVERIFY(meta.record(QStringLiteral("MSFT")).isEmpty());
}

void TestBrowserPanels::benchmarkingListsAndPairs()
{
    OrdaneData::MetaData meta;
    QVERIFY(meta.open());
    StorageBrowser browser;
    browser.setMetaData(&meta);
    browser.slotSetSymbols(symbolsOf({"AAPL", "^GDAXI", "MSFT"}));
    child<QPushButton>(browser, "StorageBrowserBenchmark")->click();
    auto *panel = browser.findChild<Benchmarking *>();
    QVERIFY(panel && panel->isVisible() && panel->isWindow());
    QTreeWidget *tree = panel->tree();
    const QTreeWidgetItem *header = tree->headerItem();
    QCOMPARE(QStringList({header->text(0), header->text(1), header->text(2)}),
             symbolsOf({"Symbol", "Name", "Stock exchange"}));
    QCOMPARE(tree->topLevelItemCount(), 3);
    QStringList rows;
    for (int i = 0; i < tree->topLevelItemCount(); ++i)
        rows << tree->topLevelItem(i)->text(0);
    QCOMPARE(rows, browser.stockList()->symbols());
    const QTreeWidgetItem *dax =
        tree->findItems(QStringLiteral("^GDAXI"), Qt::MatchExactly).value(0);
    QVERIFY(dax);
    QCOMPARE(dax->text(Benchmarking::NameColumn), QStringLiteral("DAX"));
    QCOMPARE(dax->text(Benchmarking::ExchangeColumn), QStringLiteral("XETRA"));

    // A pick pairs the chart with the symbol.
    QSignalSpy pair(panel, &Benchmarking::pair);
    QSignalSpy paired(&browser, &StorageBrowser::pairSelected);
    tree->findItems(QStringLiteral("MSFT"), Qt::MatchExactly).value(0)->setSelected(true);
    QCOMPARE(pair.count(), 1);
    QCOMPARE(pair.at(0).at(0).toString(), QStringLiteral("MSFT"));
    QCOMPARE(paired.count(), 1);
    QCOMPARE(paired.at(0).at(0).value<OrdaneData::ReaderH>()->symbol(), QStringLiteral("MSFT"));

    // Another chart in the browser, or another list, clears the pick.
    browser.stockList()->setCurrentItem(browser.stockList()->topLevelItem(0));
    QVERIFY(tree->selectedItems().isEmpty());
    tree->topLevelItem(0)->setSelected(true);
    browser.slotAddSymbol(QStringLiteral("UTX"));
    QVERIFY(tree->selectedItems().isEmpty());
    QCOMPARE(pair.count(), 2);

    // Shown again, it lists the browser as it is then.
    panel->hide();
    child<QPushButton>(browser, "StorageBrowserBenchmark")->click();
    QCOMPARE(tree->topLevelItemCount(), 4);
}

// Each button makes its window once and shows the same one again after "&Hide"; the
// updater's menu sets its mode.
void TestBrowserPanels::buttonsKeepTheirWindows()
{
    StorageBrowser browser;
    auto *scannerButton = child<QPushButton>(browser, "StorageBrowserS");
    scannerButton->click();
    auto *scanner = browser.findChild<Scanner *>();
    QVERIFY(scanner && scanner->isVisible() && !scanner->isModal());
    child<QLineEdit>(*scanner, "ScannerPrefix")->setText(QStringLiteral("X"));
    child<QPushButton>(*scanner, "ScannerHide")->click();
    QVERIFY(!scanner->isVisible());
    scannerButton->click();
    QCOMPARE(browser.findChildren<Scanner *>().size(), 1);
    QVERIFY(scanner->isVisible());
    QCOMPARE(child<QLineEdit>(*scanner, "ScannerPrefix")->text(), QStringLiteral("X"));
    child<QPushButton>(*scanner, "ScannerClose")->click();
    QVERIFY(!scanner->isVisible());

    const QList<QAction *> entries =
        child<QPushButton>(browser, "StorageBrowserU")->menu()->actions();
    QCOMPARE(entries.size(), 2);
    QCOMPARE(entries.at(0)->text(), QStringLiteral("Update All Data"));
    QCOMPARE(entries.at(1)->text(), QStringLiteral("Update Visible Items Only"));
    entries.at(1)->trigger();
    auto *updater = browser.findChild<BrowserUpdater *>();
    QVERIFY(updater && updater->isVisible());
    QCOMPARE(updater->mode(), BrowserUpdater::VisibleItems);
    child<QPushButton>(*updater, "BrowserUpdaterHide")->click();
    entries.at(0)->trigger();
    QCOMPARE(browser.findChildren<BrowserUpdater *>().size(), 1);
    QCOMPARE(updater->mode(), BrowserUpdater::AllData);
    QVERIFY(updater->isVisible());

    auto *benchmark = child<QPushButton>(browser, "StorageBrowserBenchmark");
    benchmark->click();
    benchmark->click();
    QCOMPARE(browser.findChildren<Benchmarking *>().size(), 1);
}

QTEST_MAIN(TestBrowserPanels)
#include "test_browserpanels.moc"
