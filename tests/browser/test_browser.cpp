// The storage browser as a user drives it: symbol list files and the list kept between runs,
// the list operations, fetching a typed symbol against the local quote service with the
// suggestions for one that has no quotes, exporting, erasing and pairing.

#include "browser/suggestions.h"
#include "browser/symbollist.h"
#include "browser/ui/stocklist.h"
#include "browser/ui/storagebrowser.h"
#include "browser/ui/suggestdialog.h"
#include "data/home.h"
#include "data/metadata.h"
#include "data/quotefile.h"
#include "data/reader.h"
#include "support/messagebox.h"
#include "support/quoteservice.h"
#include "support/testsettings.h"

#include <QApplication>
#include <QBuffer>
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSettings>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTimer>
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

QString itemsText(const StorageBrowser &browser)
{
    return browser.findChild<QLabel *>(QStringLiteral("StorageBrowserItems"))->text();
}

// Plays the user of the next suggestion dialog: once the service has answered about every
// candidate, selects `symbol` (or cancels when it is empty, or is not selectable) and
// records what the dialog offered.
void chooseSuggestion(const QString &symbol, QStringList *offered)
{
    QTimer::singleShot(20, [=] {
        auto *dialog = qobject_cast<SuggestDialog *>(QApplication::activeModalWidget());
        if (!dialog || !dialog->isChecked()) {
            chooseSuggestion(symbol, offered);
            return;
        }
        QTreeWidget *list = dialog->list();
        for (int i = 0; i < list->topLevelItemCount(); ++i) {
            QTreeWidgetItem *row = list->topLevelItem(i);
            if (!row->isDisabled())
                *offered << row->text(3);
            if (row->text(3) == symbol)
                row->setSelected(true);
        }
        if (dialog->chosenSymbols().isEmpty())
            dialog->reject();
        else
            dialog->accept();
    });
}
} // namespace

class TestBrowser : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void symbolListFiles_data();
    void symbolListFiles();
    void listKeptBetweenRuns();
    void listOperations();
    void suggestionsForATypedSymbol();
    void fetchAddsRowsAndSuggests();
    void exportEraseAndPair();
    void importsAddTheirRows();

private:
    QTemporaryDir mHome;
};

void TestBrowser::initTestCase()
{
    QVERIFY(TestSupport::useTestHome(mHome.path()));
}

void TestBrowser::symbolListFiles_data()
{
    QTest::addColumn<QStringList>("symbols");
    QTest::addColumn<QByteArray>("file");
    QTest::addColumn<QStringList>("readBack");
    QTest::newRow("list") << symbolsOf({"MSFT", "ADS.DE", "^GDAXI"})
                          << QByteArray("MSFT;ADS.DE;^GDAXI")
                          << symbolsOf({"MSFT", "ADS.DE", "^GDAXI"});
    // Written as nothing; read back as one empty symbol, which no store holds.
    QTest::newRow("empty-list") << QStringList() << QByteArray() << symbolsOf({""});
    QTest::newRow("empty-parts") << symbolsOf({"A", "", "B"}) << QByteArray("A;;B")
                                 << symbolsOf({"A", "", "B"});
}

void TestBrowser::symbolListFiles()
{
    QFETCH(QStringList, symbols);
    QFETCH(QByteArray, file);
    QFETCH(QStringList, readBack);
    const QString path = mHome.filePath(QStringLiteral("list.sym"));
    QVERIFY(writeSymbolListFile(path, symbols));
    QFile written(path);
    QVERIFY(written.open(QIODevice::ReadOnly));
    QCOMPARE(written.readAll(), file);
    QStringList read;
    QVERIFY(readSymbolListFile(path, &read));
    QCOMPARE(read, readBack);

    QCOMPARE(withSymbolListExtension(QStringLiteral("/x/mylist")), QStringLiteral("/x/mylist.sym"));
    QCOMPARE(withSymbolListExtension(QStringLiteral("/x/mylist.sym")),
             QStringLiteral("/x/mylist.sym"));
}

// "lastknown.sym" holds the list at quit (not when it is empty) and gives it back at the
// next start without fetching; without it a first start fetches the default symbols.
void TestBrowser::listKeptBetweenRuns()
{
    const QString lastKnown = OrdaneData::Home::lastKnownSymbolsFile();
    QFile::remove(lastKnown);
    {
        StorageBrowser first;
        first.loadLastKnown();
        QTRY_COMPARE(first.stockList()->symbols(),
                     symbolsOf({"AAPL", "ADS.DE", "MAN.DE", "MSFT", "UTX"}));
        QCOMPARE(itemsText(first), QStringLiteral("5 Items"));
        first.stockList()->setCurrentItem(first.stockList()->findSymbol(QStringLiteral("MSFT")));
        delete first.stockList()->findSymbol(QStringLiteral("UTX"));
        first.slotAddSymbol(QStringLiteral("NOTSTORED"));
        first.slotSaveLastKnownSymbols();
    }
    QCOMPARE(QSettings().value(QStringLiteral("selecteditem")).toInt(), 3);
    StorageBrowser next;
    QSignalSpy done(&next, &StorageBrowser::done);
    next.loadLastKnown();
    QCOMPARE(next.stockList()->symbols(),
             symbolsOf({"AAPL", "ADS.DE", "MAN.DE", "MSFT", "NOTSTORED"}));
    QCOMPARE(done.count(), 0); // nothing was fetched
    QCOMPARE(next.stockList()->currentItem()->text(StockList::SymbolColumn),
             QStringLiteral("MSFT"));

    // Quitting with an empty list keeps the previous file.
    next.slotClear();
    next.slotSaveLastKnownSymbols();
    QStringList kept;
    QVERIFY(readSymbolListFile(lastKnown, &kept));
    QCOMPARE(kept.size(), 5);
}

void TestBrowser::listOperations()
{
    StorageBrowser browser;
    browser.slotSetSymbols({QStringLiteral("A"), QStringLiteral("B"), QStringLiteral("C")});
    StockList *list = browser.stockList();
    const auto checked = [&] {
        return browser.checkedSymbols().join(QLatin1Char(','));
    };
    browser.slotCheckAll();
    QCOMPARE(checked(), QStringLiteral("A,B,C"));
    list->topLevelItem(1)->setCheckState(StockList::CheckColumn, Qt::Unchecked);
    browser.slotInvertChecked();
    QCOMPARE(checked(), QStringLiteral("B"));
    browser.slotHideChecked();
    QCOMPARE(list->symbols(), symbolsOf({"A", "C"}));
    QCOMPARE(itemsText(browser), QStringLiteral("2 Items"));
    browser.slotUncheckAll();
    QCOMPARE(checked(), QString());

    // Find selects the first row whose symbol or name holds the text.
    browser.slotSetSymbols({QStringLiteral("MSFT"), QStringLiteral("^GDAXI")});
    list->findSymbol(QStringLiteral("^GDAXI"))
        ->setText(StockList::NameColumn, QStringLiteral("DAX"));
    browser.findChild<QLineEdit *>(QStringLiteral("StorageBrowserSymbol"))
        ->setText(QStringLiteral("dax"));
    browser.slotFind();
    QCOMPARE(list->currentItem()->text(StockList::SymbolColumn), QStringLiteral("^GDAXI"));
    browser.slotClear();
    QCOMPARE(itemsText(browser), QStringLiteral("0 Items"));
}

// The candidates of a typed symbol: what the metadata store knows by symbol or name, then
// the text on the usual markets, in the provider's forms.
void TestBrowser::suggestionsForATypedSymbol()
{
    OrdaneData::MetaData meta(mHome.filePath(QStringLiteral("suggest.tdb")));
    QVERIFY(meta.open());
    QStringList row;
    for (int i = 0; i < 22; ++i)
        row << QStringLiteral("N/A");
    row[0] = QStringLiteral("^GDAXI");
    row[1] = QStringLiteral("DAX Performance Index");
    row[2] = QStringLiteral("XETRA");
    QVERIFY(meta.insert(row));
    const QVector<Candidate> byName =
        suggestSymbols(QStringLiteral("dax"), &meta, OrdaneData::QuoteService::Table);
    QCOMPARE(byName.first().symbol, QStringLiteral("^GDAXI"));
    QCOMPARE(byName.first().type, QStringLiteral("Index"));
    QCOMPARE(byName.at(1).symbol, QStringLiteral("DAX"));
    QVERIFY(byName.contains({QString(), QString(), QString(), QStringLiteral("DAX.DE")}));

    const QVector<Candidate> daily =
        suggestSymbols(QStringLiteral("ADS.DE"), nullptr, OrdaneData::QuoteService::DailyCsv);
    QCOMPARE(daily.first().symbol, QStringLiteral("ads.de"));
    QVERIFY(daily.contains({QString(), QString(), QString(), QStringLiteral("ads.us")}));
    QCOMPARE(suggestSymbols(QStringLiteral("  "), &meta, OrdaneData::QuoteService::Table).size(),
             0);
}

// "&Add" fetches the typed symbol: one the service has gets its row; one it has not opens
// the suggestions, whose chosen symbols are fetched in turn; a list load names those it
// could not find at its end.
void TestBrowser::fetchAddsRowsAndSuggests()
{
    TestSupport::QuoteService service;
    QVERIFY(service.isRunning());
    QSettings().setValue(QStringLiteral("QuoteService/TableHost"), service.url().toString());
    QFile::remove(OrdaneData::fileOf(QStringLiteral("MSFT")));
    StorageBrowser browser;
    auto *edit = browser.findChild<QLineEdit *>(QStringLiteral("StorageBrowserSymbol"));
    auto *add = browser.findChild<QPushButton *>(QStringLiteral("StorageBrowserFetch"));

    QSignalSpy done(&browser, &StorageBrowser::done);
    edit->setText(QStringLiteral("msft"));
    add->click();
    QVERIFY(browser.isFetching() && !edit->isEnabled());
    QVERIFY(done.wait(20000));
    QCOMPARE(done.takeFirst().at(0).toString(), QStringLiteral("MSFT"));
    QVERIFY(!browser.isFetching());
    QCOMPARE(browser.stockList()->symbols(), symbolsOf({"MSFT"}));
    OrdaneData::Reader msft;
    QVERIFY(msft.loadFile(OrdaneData::fileOf(QStringLiteral("MSFT"))));
    QVERIFY(msft.count() > 5000);

    // "ADS" has no quotes; the service knows "ADS.DE" among the suggestions.
    QStringList offered;
    chooseSuggestion(QStringLiteral("ADS.DE"), &offered);
    edit->setText(QStringLiteral("ADS"));
    add->click();
    QTRY_VERIFY_WITH_TIMEOUT(browser.stockList()->findSymbol(QStringLiteral("ADS.DE")), 20000);
    QVERIFY2(offered.contains(QStringLiteral("ADS.DE")) &&
                 !offered.contains(QStringLiteral("ADS.F")),
             qPrintable(offered.join(QLatin1Char(','))));

    // A list load asks nothing of the user on the way; the missing ones come at the end.
    QString heading;
    QTimer::singleShot(0, [&heading] {
        const auto answer = [&heading] {
            if (auto *dialog =
                    qobject_cast<NotAvailableDialog *>(QApplication::activeModalWidget())) {
                heading = dialog->list()->topLevelItem(0)->text(2);
                dialog->accept();
                return true;
            }
            return false;
        };
        auto *timer = new QTimer;
        QObject::connect(timer, &QTimer::timeout, [timer, answer] {
            if (answer())
                timer->deleteLater();
        });
        timer->start(20);
    });
    browser.slotLoadSymbols({QStringLiteral("UTX"), QStringLiteral("NOPE")});
    QCOMPARE(browser.notFound(), symbolsOf({"NOPE"}));
    QCOMPARE(heading, QStringLiteral("NOPE"));
    QVERIFY(browser.stockList()->findSymbol(QStringLiteral("UTX")));
    QVERIFY(!browser.stockList()->findSymbol(QStringLiteral("NOPE")));
}

void TestBrowser::exportEraseAndPair()
{
    StorageBrowser browser;
    browser.slotSetSymbols({QStringLiteral("AAPL"), QStringLiteral("MAN.DE")});
    browser.stockList()
        ->findSymbol(QStringLiteral("MAN.DE"))
        ->setCheckState(StockList::CheckColumn, Qt::Checked);

    // Pairing the checked symbol with the chart hands on its series.
    QSignalSpy paired(&browser, &StorageBrowser::pairSelected);
    browser.slotPaarCheckedWithSelected();
    QCOMPARE(paired.count(), 1);
    QCOMPARE(paired.at(0).at(0).value<OrdaneData::ReaderH>()->symbol(), QStringLiteral("MAN.DE"));

    // Erasing asks first and names the symbols; "No" keeps everything.
    QString question;
    TestSupport::answerNextMessageBox(&question); // closes it without a Yes
    browser.slotEraseChecked();
    QVERIFY(question.contains(QLatin1String("MAN.DE")));
    QVERIFY(QFile::exists(OrdaneData::fileOf(QStringLiteral("MAN.DE"))));
    QCOMPARE(browser.stockList()->symbols().size(), 2);
}

// An import writes the ".IMP" symbols, adds their rows and says what it did.
void TestBrowser::importsAddTheirRows()
{
    const QString source = mHome.filePath(QStringLiteral("EURUSD.csv"));
    QFile file(source);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("2010.03.15,00:00,1.3712,1.3780,1.3690,1.3755,1200\r\n"
               "2010.03.16,00:00,1.3755,1.3810,1.3701,1.3790,1500\r\n");
    file.close();
    StorageBrowser browser;
    QSignalSpy messages(&browser, &StorageBrowser::message);
    QString warning; // files were skipped: a box says so
    TestSupport::answerNextMessageBox(&warning);
    const OrdaneData::ImportReport report =
        browser.importFiles(OrdaneData::ImportFormat::MetaTrader,
                            {source, mHome.filePath(QStringLiteral("missing.csv"))}, false);
    QCOMPARE(report.symbols, symbolsOf({"EURUSD.IMP"}));
    QCOMPARE(browser.stockList()->symbols(), symbolsOf({"EURUSD.IMP"}));
    QCOMPARE(report.skipped.size(), 1);
    QVERIFY(messages.constLast().at(0).toString().contains(QLatin1String("missing.csv")));
    QVERIFY(warning.contains(QLatin1String("missing.csv")));
    OrdaneData::Reader imported;
    QVERIFY(imported.loadFile(OrdaneData::fileOf(QStringLiteral("EURUSD.IMP"))));
    QCOMPARE(imported.count(), 2);
    QCOMPARE(imported.bars().constLast().close(), 1.379f);
}

QTEST_MAIN(TestBrowser)
#include "test_browser.moc"
