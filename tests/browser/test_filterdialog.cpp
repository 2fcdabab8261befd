// The filter dialog as a user drives it from the storage browser: its pages in order, a run
// over the browser's symbols with its progress and stop button, the results and their
// selection handed back to the browser.

#include "browser/ui/filter.h"
#include "browser/ui/filterdialog.h"
#include "browser/ui/stocklist.h"
#include "browser/ui/storagebrowser.h"
#include "data/home.h"
#include "support/testsettings.h"

#include <QComboBox>
#include <QFile>
#include <QLabel>
#include <QListWidget>
#include <QProgressBar>
#include <QPushButton>
#include <QSignalSpy>
#include <QSpinBox>
#include <QTemporaryDir>
#include <QTreeWidget>
#include <QtTest>

using namespace OrdaneBrowser;

class TestFilterDialog : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { QVERIFY(TestSupport::useTestHome(mHome.path())); }
    void pagesInOrder();
    void runStopAndApply();

private:
    QTemporaryDir mHome;
};

void TestFilterDialog::pagesInOrder()
{
    StorageBrowser browser;
    browser.slotCreateFilter();
    auto *dialog = browser.findChild<FilterDialog *>();
    QVERIFY(dialog && dialog->isVisible());
    QCOMPARE(dialog->windowTitle(), QStringLiteral("Halcyra Filter"));
    QCOMPARE(dialog->list()->width(), 150);
    QCOMPARE(dialog->stopButton()->objectName(), QStringLiteral("ComboProgressStop"));
    QCOMPARE(dialog->stopButton()->text(), QStringLiteral("Stop"));
    QStringList entries;
    for (const char *name :
         {"Fill", "Trend", "VolumeFilter", "RSIFilter", "StochasticFilter", "TimeMachine", "Price",
          "UpToDate", "VolumeBreakOut", "MoneyFlow", "MovingAverage", "HCVolatilityFilter",
          "MedianFilter", "DPOFilter", "PE", "ImpulsFilter", "ConsolidationFilter"})
        entries << QLatin1String(name);
    QStringList shown;
    for (int i = 0; i < dialog->list()->count(); ++i)
        shown << dialog->list()->item(i)->text();
    QCOMPARE(shown, entries);
    FiltersContainer *container = dialog->container();
    QCOMPARE(container->widget(3)->objectName(), QStringLiteral("OrdaneBrowser::RSIFilter"));
    QCOMPARE(container->filter(14)->name(), QStringLiteral("P/E Ratio"));
    QVERIFY(container->filter(3)->name().isEmpty());
    // Choosing an entry shows its page; hiding keeps the dialog for the next time.
    dialog->list()->setCurrentRow(10);
    QCOMPARE(container->currentIndex(), 10);
    dialog->hide();
    browser.slotCreateFilter();
    QCOMPARE(browser.findChildren<FilterDialog *>().size(), 1);
    QCOMPARE(container->currentIndex(), 10);
}

// A run over the browser's list: "Found: %1 of %2", the stop button enabled during the run
// and pressed from its progress, rows with right-justified values, the selection applied.
void TestFilterDialog::runStopAndApply()
{
    StorageBrowser browser;
    browser.slotSetSymbols({QStringLiteral("AAPL"), QStringLiteral("ADS.DE"),
                            QStringLiteral("MAN.DE"), QStringLiteral("MSFT"),
                            QStringLiteral("UTX")});
    browser.slotCreateFilter();
    auto *dialog = browser.findChild<FilterDialog *>();
    auto *rsi = qobject_cast<RSIFilter *>(dialog->container()->filter(3));
    QVERIFY(rsi);
    // Every RSI lies above 1: all five pass "Higher" than level 1.
    QVERIFY(rsi->setValue(QStringLiteral("Level"), 1));
    QSignalSpy progress(dialog->container(), &FiltersContainer::progress);
    rsi->slotFind();
    QCOMPARE(rsi->resultLabel()->text(), QStringLiteral("Found: 5 of 5"));
    QCOMPARE(rsi->results()->topLevelItemCount(), 5);
    QVERIFY(rsi->results()->topLevelItem(0)->text(1).startsWith(QLatin1Char(' ')));
    QCOMPARE(progress.constLast().at(0).toInt(), 0); // the end of a run
    QVERIFY(!dialog->stopButton()->isEnabled());

    // Stopped from the first progress over a long list: the symbols after the first batches
    // are left.
    const QString storage = OrdaneData::Home::storagePath();
    QStringList many;
    for (int i = 0; i < 300; ++i) {
        many << QStringLiteral("S%1").arg(i, 3, 10, QLatin1Char('0'));
        QVERIFY(QFile::copy(storage + QStringLiteral("/AAPL.csv"),
                            storage + QLatin1Char('/') + many.last() + QStringLiteral(".csv")));
    }
    browser.slotSetSymbols(many);
    connect(rsi, &Filter::progress, dialog->stopButton(), [dialog](int percent) {
        if (percent > 0)
            dialog->stopButton()->setChecked(true);
    });
    rsi->slotFind();
    QVERIFY2(rsi->found() < 300, qPrintable(rsi->resultLabel()->text()));
    QCOMPARE(rsi->total(), 300);
    QVERIFY(!dialog->stopButton()->isChecked());

    // The selected rows become the browser's list.
    rsi->disconnect(dialog->stopButton());
    browser.slotSetSymbols({QStringLiteral("AAPL"), QStringLiteral("ADS.DE"),
                            QStringLiteral("MAN.DE"), QStringLiteral("MSFT"),
                            QStringLiteral("UTX")});
    rsi->slotFind();
    rsi->results()->topLevelItem(1)->setSelected(true);
    rsi->results()->topLevelItem(3)->setSelected(true);
    rsi->slotApply();
    QCOMPARE(browser.stockList()->symbols().size(), 2);

    // An empty browser list: nothing found of nothing.
    browser.slotClear();
    rsi->slotFind();
    QCOMPARE(rsi->resultLabel()->text(), QStringLiteral("Found: 0 of 0"));
}

QTEST_MAIN(TestFilterDialog)
#include "test_filterdialog.moc"
