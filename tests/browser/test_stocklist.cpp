// The browser's symbol list and its panel: filling from a storage folder, the row model,
// the pointer, and loading the selected symbol's series.

#include "browser/stocklist.h"
#include "browser/storagebrowser.h"
#include "data/home.h"
#include "data/reader.h"
#include "support/testsettings.h"

#include <QDir>
#include <QFile>
#include <QHeaderView>
#include <QLabel>
#include <QSettings>
#include <QSignalSpy>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QtTest>

using namespace OrdaneBrowser;

namespace {

// Three daily bars, newest first as stored; the 21st is a Friday, so they span two weeks.
const char kThreeBars[] = "Date,Open,High,Low,Close,Volume,Adj Close\n"
                          "2012-09-25,10.5,11,10,10.75,3000,0.00\n"
                          "2012-09-24,10,10.75,9.5,10.5,2000,0.00\n"
                          "2012-09-21,9.5,10.25,9,10,1000,0.00\n";

QStringList pointedRows(const StockList &list)
{
    QStringList rows;
    for (int i = 0; i < list.topLevelItemCount(); ++i)
        if (list.topLevelItem(i)->data(StockList::PointerColumn, Qt::DecorationRole).isValid())
            rows << list.topLevelItem(i)->text(StockList::SymbolColumn);
    return rows;
}

} // namespace

class TestStockList : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void fillListsFilesByName();
    void rowModelAndLookup();
    void pointerFollowsCurrentRow();
    void selectingLoadsSeries();
    void unreadableFileEmitsNothing_data();
    void unreadableFileEmitsNothing();
    void selectionIsRestored();

private:
    void write(const QString &name, const QByteArray &content = kThreeBars)
    {
        QFile file(mStorage->filePath(name));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(content);
    }

    QTemporaryDir mHome;
    std::unique_ptr<QTemporaryDir> mStorage;
};

void TestStockList::initTestCase()
{
    TestSupport::useTestSettings();
    QVERIFY(OrdaneData::Home::setPath(mHome.path()));
}

void TestStockList::init()
{
    QSettings().clear();
    mStorage = std::make_unique<QTemporaryDir>();
}

void TestStockList::fillListsFilesByName()
{
    write(QStringLiteral("MSFT.csv"));
    write(QStringLiteral("ADS.DE.csv"));
    write(QStringLiteral("_meta.tdb"));
    write(QStringLiteral("README")); // no dot: "*.*" does not match it
    QVERIFY(QDir(mStorage->path()).mkdir(QStringLiteral("old.csv")));

    StorageBrowser browser(mStorage->path());
    auto *count = browser.findChild<QLabel *>(QStringLiteral("StorageBrowserItems"));
    QSignalSpy changed(&browser, &StorageBrowser::itemChanged);
    browser.slotFillChartItems();
    QCOMPARE(
        browser.stockList()->symbols(),
        QStringList({QStringLiteral("ADS.DE"), QStringLiteral("MSFT"), QStringLiteral("_meta")}));
    QCOMPARE(count->text(), QStringLiteral("3 Items"));
    QCOMPARE(changed.count(), 1);
    QVERIFY(!browser.stockList()->currentItem());

    // A refill replaces the rows; adding a listed symbol adds nothing.
    QVERIFY(QFile::remove(mStorage->filePath(QStringLiteral("MSFT.csv"))));
    browser.slotFillChartItems();
    browser.addSymbol(QStringLiteral("ADS.DE"));
    QCOMPARE(browser.stockList()->symbols().join(QLatin1Char(',')), QStringLiteral("ADS.DE,_meta"));
    browser.addSymbol(QStringLiteral("AAPL"));
    QCOMPARE(count->text(), QStringLiteral("3 Items"));
    QCOMPARE(changed.count(), 3);

    QCOMPARE(StorageBrowser().storageFolder(), OrdaneData::Home::storagePath());
}

void TestStockList::rowModelAndLookup()
{
    StockList list;
    const QStringList headers = {QString(), QString(), QStringLiteral("Symbol"),
                                 QStringLiteral("Name"), QStringLiteral("Stock exchange")};
    const int widths[] = {18, 22, 60, 120, 50};
    QCOMPARE(list.columnCount(), 5);
    for (int c = 0; c < 5; ++c) {
        QCOMPARE(list.headerItem()->text(c), headers.at(c));
        QCOMPARE(list.columnWidth(c), widths[c]);
    }
    QVERIFY(!list.rootIsDecorated());
    QCOMPARE(list.selectionMode(), QAbstractItemView::SingleSelection);

    for (const char *symbol : {"MSFT", "AAPL", "UTX", "ADS.DE", "AAPL"})
        list.addSymbol(QLatin1String(symbol), QStringLiteral("name"), QStringLiteral("NYSE"));
    QTreeWidgetItem *row = list.topLevelItem(0);
    QCOMPARE(row->flags(), Qt::ItemIsSelectable | Qt::ItemIsDragEnabled | Qt::ItemIsEnabled |
                               Qt::ItemIsUserCheckable);
    QCOMPARE(row->checkState(StockList::CheckColumn), Qt::Unchecked);
    QCOMPARE(row->text(StockList::ExchangeColumn), QStringLiteral("NYSE"));

    // Sorted by symbol from the start; the first of two equal rows wins a lookup.
    QCOMPARE(list.symbols().join(QLatin1Char(',')), QStringLiteral("AAPL,AAPL,ADS.DE,MSFT,UTX"));
    QCOMPARE(list.findSymbol(QStringLiteral("AAPL")), row);
    QVERIFY(!list.findSymbol(QStringLiteral("aapl")));
    QVERIFY(!list.findSymbol(QStringLiteral("ADS")));
    list.sortByColumn(StockList::SymbolColumn, Qt::DescendingOrder);
    QCOMPARE(list.symbols().join(QLatin1Char(',')), QStringLiteral("UTX,MSFT,ADS.DE,AAPL,AAPL"));
    QCOMPARE(list.findSymbol(QStringLiteral("ADS.DE")), list.topLevelItem(2));
}

void TestStockList::pointerFollowsCurrentRow()
{
    StockList list;
    for (const char *symbol : {"A", "B", "C"})
        list.addSymbol(QLatin1String(symbol));
    QCOMPARE(pointedRows(list), QStringList());

    list.setCurrentItem(list.topLevelItem(0));
    QCOMPARE(pointedRows(list), QStringList({QStringLiteral("A")}));
    QVERIFY(!list.topLevelItem(0)->icon(StockList::PointerColumn).isNull());
    QTest::keyClick(&list, Qt::Key_End);
    QTest::keyClick(&list, Qt::Key_Up);
    QCOMPARE(pointedRows(list), QStringList({QStringLiteral("B")}));

    // A new row does not take the pointer, and re-sorting keeps it on its row.
    list.addSymbol(QStringLiteral("0"));
    list.sortByColumn(StockList::SymbolColumn, Qt::DescendingOrder);
    QCOMPARE(pointedRows(list), QStringList({QStringLiteral("B")}));
}

void TestStockList::selectingLoadsSeries()
{
    write(QStringLiteral("ADS.DE.csv"));
    const QByteArray all(kThreeBars);
    write(QStringLiteral("MSFT.csv"), all.left(all.lastIndexOf("2012-09-21")));
    StorageBrowser browser(mStorage->path());
    browser.slotFillChartItems();
    QSignalSpy selected(&browser, &StorageBrowser::chartItemSeletected);
    StockList *list = browser.stockList();

    list->setCurrentItem(list->findSymbol(QStringLiteral("ADS.DE")));
    QCOMPARE(selected.count(), 1);
    auto reader = selected.takeFirst().at(0).value<OrdaneData::ReaderH>();
    QCOMPARE(reader->symbol(), QStringLiteral("ADS.DE"));
    QCOMPARE(reader->count(), 3);
    QCOMPARE(reader->bar(0).date(), QDate(2012, 9, 21));
    QCOMPARE(reader->bars().constLast().close(), 10.75f);
    QVERIFY(browser.statusText().isEmpty());

    // Another frame is rebuilt from the daily bars of the same folder, not the home's.
    reader->setTimeFrame(OrdaneData::Week);
    QCOMPARE(reader->count(), 2);
    reader->setTimeFrame(OrdaneData::Day);
    QCOMPARE(reader->count(), 3);

    // The keyboard selects as the mouse does, each time with a series of its own.
    QTest::keyClick(list, Qt::Key_Down);
    QCOMPARE(selected.count(), 1);
    auto next = selected.takeFirst().at(0).value<OrdaneData::ReaderH>();
    QCOMPARE(next->symbol(), QStringLiteral("MSFT"));
    QCOMPARE(next->count(), 2);
    QVERIFY(next != reader);
    QCOMPARE(QSettings().value(QStringLiteral("selecteditem")).toInt(), 1);
}

void TestStockList::unreadableFileEmitsNothing_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QByteArray>("content");

    QTest::newRow("no-header") << QStringLiteral("X.csv") << QByteArray(kThreeBars).mid(42);
    QTest::newRow("header-only") << QStringLiteral("X.csv") << QByteArray(kThreeBars).left(42);
    static const char binary[] = "Date\n\xff\x00\x01,,\n";
    QTest::newRow("binary") << QStringLiteral("X.csv") << QByteArray(binary, sizeof binary - 1);
    // Listed by its name before the dot, but a symbol's quotes are always its ".csv".
    QTest::newRow("not-a-csv") << QStringLiteral("X.txt") << QByteArray(kThreeBars);
}

void TestStockList::unreadableFileEmitsNothing()
{
    QFETCH(QString, file);
    QFETCH(QByteArray, content);
    write(file, content);
    write(QStringLiteral("GOOD.csv"));
    StorageBrowser browser(mStorage->path());
    browser.slotFillChartItems();
    QSignalSpy selected(&browser, &StorageBrowser::chartItemSeletected);
    StockList *list = browser.stockList();

    list->setCurrentItem(list->findSymbol(QStringLiteral("X")));
    QCOMPARE(selected.count(), 0);
    QVERIFY2(browser.statusText().contains(QStringLiteral("X.csv")),
             qPrintable(browser.statusText()));

    // The next good symbol loads as usual and clears the message.
    list->setCurrentItem(list->findSymbol(QStringLiteral("GOOD")));
    QCOMPARE(selected.count(), 1);
    QVERIFY(browser.statusText().isEmpty());
}

void TestStockList::selectionIsRestored()
{
    for (const char *name : {"A.csv", "B.csv", "C.csv"})
        write(QLatin1String(name));
    // The row made current at start, as the list shows it and as the series says.
    auto restored = [this](const QVariant &stored) {
        if (stored.isValid())
            QSettings().setValue(QStringLiteral("selecteditem"), stored);
        StorageBrowser browser(mStorage->path());
        browser.slotFillChartItems();
        QSignalSpy selected(&browser, &StorageBrowser::chartItemSeletected);
        browser.restoreSelection();
        if (selected.count() != 1)
            return QStringLiteral("%1 series").arg(selected.count());
        const QString symbol = selected.at(0).at(0).value<OrdaneData::ReaderH>()->symbol();
        return symbol == browser.stockList()->currentItem()->text(2) ? symbol : QString();
    };
    QCOMPARE(restored(QVariant()), QStringLiteral("A"));
    QCOMPARE(restored(2), QStringLiteral("C"));
    QCOMPARE(restored(3), QStringLiteral("A"));
    QCOMPARE(restored(-1), QStringLiteral("A"));
    {
        StorageBrowser browser(mStorage->path());
        browser.slotFillChartItems();
        browser.stockList()->setCurrentItem(browser.stockList()->topLevelItem(1));
    }
    QCOMPARE(restored(QVariant()), QStringLiteral("B"));

    StorageBrowser empty(mStorage->filePath(QStringLiteral("nowhere")));
    empty.slotFillChartItems();
    empty.restoreSelection();
    QVERIFY(!empty.stockList()->currentItem());
}

QTEST_MAIN(TestStockList)
#include "test_stocklist.moc"
