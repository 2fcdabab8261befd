// The browser's symbol list and its panel: filling from a storage folder, the row model,
// the pointer, and loading the selected symbol's series.

#include "browser/ui/stocklist.h"
#include "browser/ui/storagebrowser.h"
#include "data/home.h"
#include "data/reader.h"
#include "support/testsettings.h"

#include <QDir>
#include <QFile>
#include <QLabel>
#include <QSettings>
#include <QSignalSpy>
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
    void rowModelLookupAndPointer();
    void browserListsAndLoadsTheFolder();
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

void TestStockList::rowModelLookupAndPointer()
{
    StockList list;
    // The pointer and check box columns stay narrower than a style's smallest section.
    QCOMPARE(list.columnWidth(StockList::PointerColumn), 18);
    QCOMPARE(list.columnWidth(StockList::CheckColumn), 22);
    QCOMPARE(list.selectionMode(), QAbstractItemView::SingleSelection);

    for (const char *symbol : {"MSFT", "AAPL", "UTX", "ADS.DE", "AAPL"})
        list.addSymbol(QLatin1String(symbol), QStringLiteral("name"), QStringLiteral("NYSE"));
    QTreeWidgetItem *row = list.topLevelItem(0);
    QCOMPARE(row->flags(), Qt::ItemIsSelectable | Qt::ItemIsDragEnabled | Qt::ItemIsEnabled |
                               Qt::ItemIsUserCheckable);
    QCOMPARE(row->checkState(StockList::CheckColumn), Qt::Unchecked);
    QCOMPARE(row->text(StockList::ExchangeColumn), QStringLiteral("NYSE"));
    QCOMPARE(pointedRows(list), QStringList());

    // Sorted by symbol from the start; the first of two equal rows wins a lookup.
    QCOMPARE(list.symbols().join(QLatin1Char(',')), QStringLiteral("AAPL,AAPL,ADS.DE,MSFT,UTX"));
    QCOMPARE(list.findSymbol(QStringLiteral("AAPL")), row);
    QVERIFY(!list.findSymbol(QStringLiteral("aapl")));
    QVERIFY(!list.findSymbol(QStringLiteral("ADS")));
    list.sortByColumn(StockList::SymbolColumn, Qt::DescendingOrder);
    QCOMPARE(list.symbols().join(QLatin1Char(',')), QStringLiteral("UTX,MSFT,ADS.DE,AAPL,AAPL"));
    QCOMPARE(list.findSymbol(QStringLiteral("ADS.DE")), list.topLevelItem(2));

    // The pointer marks the current row alone, moved by the mouse or the keys; a new row
    // does not take it, and re-sorting keeps it on its row.
    list.setCurrentItem(list.topLevelItem(0));
    QCOMPARE(pointedRows(list), QStringList({QStringLiteral("UTX")}));
    QVERIFY(!list.topLevelItem(0)->icon(StockList::PointerColumn).isNull());
    for (Qt::Key key : {Qt::Key_End, Qt::Key_Up, Qt::Key_Up})
        QTest::keyClick(&list, key);
    QCOMPARE(pointedRows(list), QStringList({QStringLiteral("ADS.DE")}));
    list.addSymbol(QStringLiteral("0"));
    list.sortByColumn(StockList::SymbolColumn, Qt::AscendingOrder);
    QCOMPARE(pointedRows(list), QStringList({QStringLiteral("ADS.DE")}));
}

void TestStockList::browserListsAndLoadsTheFolder()
{
    const QByteArray all(kThreeBars);
    write(QStringLiteral("ADS.DE.csv"));
    write(QStringLiteral("MSFT.csv"), all.left(all.lastIndexOf("2012-09-21")));
    // Listed by the name before the dot, but holding no series: no header, a header alone,
    // binary bytes, and quotes in a file other than the symbol's ".csv".
    static const char binary[] = "Date\n\xff\x00\x01,,\n";
    write(QStringLiteral("X1.csv"), all.mid(42));
    write(QStringLiteral("X2.csv"), all.left(42));
    write(QStringLiteral("X3.csv"), QByteArray(binary, sizeof binary - 1));
    write(QStringLiteral("X4.tdb"), all);
    write(QStringLiteral("README")); // no dot: "*.*" does not match it
    QVERIFY(QDir(mStorage->path()).mkdir(QStringLiteral("old.csv")));

    StorageBrowser browser(mStorage->path());
    auto *count = browser.findChild<QLabel *>(QStringLiteral("StorageBrowserItems"));
    QSignalSpy changed(&browser, &StorageBrowser::itemChanged);
    QSignalSpy selected(&browser, &StorageBrowser::chartItemSeletected);
    browser.slotFillChartItems();
    StockList *list = browser.stockList();
    QCOMPARE(list->symbols().join(QLatin1Char(',')), QStringLiteral("ADS.DE,MSFT,X1,X2,X3,X4"));
    QCOMPARE(count->text(), QStringLiteral("6 Items"));
    QCOMPARE(changed.count(), 1);
    QVERIFY(!list->currentItem());

    for (const char *bad : {"X1", "X2", "X3", "X4"}) {
        list->setCurrentItem(list->findSymbol(QLatin1String(bad)));
        QCOMPARE(selected.count(), 0);
        QVERIFY2(browser.statusText().contains(QLatin1String(bad) + QLatin1String(".csv")),
                 qPrintable(browser.statusText()));
    }

    // A good symbol loads as usual and clears the message.
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

    // The keyboard selects as the mouse does, each time with a series of its own.
    QTest::keyClick(list, Qt::Key_Down);
    QCOMPARE(selected.count(), 1);
    auto next = selected.takeFirst().at(0).value<OrdaneData::ReaderH>();
    QCOMPARE(next->symbol(), QStringLiteral("MSFT"));
    QCOMPARE(next->count(), 2);
    QVERIFY(next != reader);
    QCOMPARE(QSettings().value(QStringLiteral("selecteditem")).toInt(), 1);

    // A refill replaces the rows; adding a listed symbol adds nothing.
    QVERIFY(QFile::remove(mStorage->filePath(QStringLiteral("MSFT.csv"))));
    browser.slotFillChartItems();
    browser.addSymbol(QStringLiteral("ADS.DE"));
    QCOMPARE(list->symbols().join(QLatin1Char(',')), QStringLiteral("ADS.DE,X1,X2,X3,X4"));
    browser.addSymbol(QStringLiteral("AAPL"));
    QCOMPARE(count->text(), QStringLiteral("6 Items"));
    QCOMPARE(changed.count(), 3);

    QCOMPARE(StorageBrowser().storageFolder(), OrdaneData::Home::storagePath());
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

    StorageBrowser empty(mStorage->filePath(QStringLiteral("nowhere")));
    empty.slotFillChartItems();
    empty.restoreSelection();
    QVERIFY(!empty.stockList()->currentItem());
}

QTEST_MAIN(TestStockList)
#include "test_stocklist.moc"
