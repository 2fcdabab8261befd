// The trading simulator: its bookkeeping (levels, profits, the report) without widgets, its
// panel's buttons, the browser's simulation mode as a user drives it, day by day through the
// bar-history limit, and what the main window's chart does meanwhile.

#include "app/mainwindow.h"
#include "browser/simulation.h"
#include "browser/ui/simulator.h"
#include "browser/ui/stocklist.h"
#include "browser/ui/storagebrowser.h"
#include "data/home.h"
#include "data/quotefile.h"
#include "data/reader.h"
#include "support/testsettings.h"
#include "view/ui/viewscontainer.h"

#include <QApplication>
#include <QCheckBox>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTimer>
#include <QToolButton>
#include <QtTest>

using namespace OrdaneBrowser;

namespace {
// Answers every message box that comes up while it lives with `answer`, recording titles and
// texts; a box without that button is accepted.
class BoxAnswerer : public QObject
{
public:
    explicit BoxAnswerer(QMessageBox::StandardButton answer = QMessageBox::Ok)
        : mAnswer(answer)
    {
        connect(&mTimer, &QTimer::timeout, this, &BoxAnswerer::look);
        mTimer.start(5);
    }

    QStringList titles;
    QStringList texts;

private:
    void look()
    {
        auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
        if (!box || !box->isVisible())
            return;
        titles << box->windowTitle();
        texts << box->text();
        if (QAbstractButton *b = box->button(mAnswer))
            b->click();
        else
            box->accept();
    }

    QMessageBox::StandardButton mAnswer;
    QTimer mTimer;
};

// A series whose newest bar closes at `close`.
OrdaneData::ReaderH dayAt(float close, const QDate &date = QDate(2012, 9, 25))
{
    OrdaneData::ReaderH series = OrdaneData::ReaderH::create();
    series->appendBar(QuoteBar(date.addDays(-1), 1, 1, 1, 1, 1));
    series->appendBar(QuoteBar(date, close, close, close, close, 1));
    return series;
}

// Stores "SIM": 70 bars closing at `start`, then one bar per close of `days`.
void storeSimulated(float start, const QVector<float> &days)
{
    QVector<QuoteBar> bars;
    QDate d(2012, 1, 2);
    const auto add = [&bars, &d](float close) {
        while (d.dayOfWeek() > 5)
            d = d.addDays(1);
        bars.append(QuoteBar(d, close, close, close, close, 1000));
        d = d.addDays(1);
    };
    for (int i = 0; i < 70; ++i)
        add(start);
    for (float close : days)
        add(close);
    QVERIFY(OrdaneData::writeText(OrdaneData::fileOf(QStringLiteral("SIM")),
                                  OrdaneData::seriesToText(bars)));
}

template <typename T> T *child(QWidget *parent, const char *name)
{
    T *found = parent->findChild<T *>(QLatin1String(name));
    if (!found)
        qFatal("no %s", name);
    return found;
}
} // namespace

class TestSimulator : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanup();
    void report_data();
    void report();
    void profitsOfBothDirections();
    void panelButtons();
    void historyLimitStepsAndLeaving();
    void levelsTriggerFromThePanel_data();
    void levelsTriggerFromThePanel();
    void endOfTheStoredDays();
    void chartFollowsTheSimulator();

private:
    QTemporaryDir mHome;
};

void TestSimulator::initTestCase()
{
    QVERIFY(TestSupport::useTestHome(mHome.path()));
    qRegisterMetaType<OrdaneData::ReaderH>();
}

void TestSimulator::cleanup()
{
    OrdaneData::Reader::setHistoryLimit(-1);
}

void TestSimulator::report_data()
{
    QTest::addColumn<bool>("open");
    QTest::addColumn<int>("closed");
    QTest::addColumn<QString>("figures");
    QTest::addColumn<QStringList>("trades");

    const QString sep = QStringLiteral("---------------------------\n");
    const QString d1 = QDate(2012, 9, 24).toString();
    const QString d2 = QDate(2012, 9, 25).toString();
    QTest::newRow("nothing-traded")
        << false << 0
        << QStringLiteral("=========Symbol:SIM========\nStart Value: ? (Date: ?)\n"
                          "End Value  : ? (Date: ?)\nProfit: 0%\n") +
               sep + QStringLiteral("Total Profit: 0%\n")
        << QStringList();
    QTest::newRow("position-open")
        << true << 0
        << QStringLiteral("=========Symbol:SIM========\nStart Value: 30.39 (Date: %1)\n"
                          "End Value  : ? (Date: ?)\nProfit: 0%\n")
                   .arg(d1) +
               sep + QStringLiteral("Total Profit: 0%\n")
        << QStringList();
    // Long 30.39 -> 31.1234567 (shown with 6 digits), then long 30.39 again and out at 31.1234567.
    QTest::newRow("two-trades")
        << false << 2
        << QStringLiteral("=========Symbol:SIM========\nStart Value: 30.39 (Date: %1)\n"
                          "End Value  : 31.1235 (Date: %2)\nProfit: 2.41348%\n")
                   .arg(d1, d2) +
               sep + QStringLiteral("Total Profit: 4.82697%\n")
        << QStringList{QStringLiteral("1. Long, %1 at 30.39 to %2 at 31.1235: 2.41348%, closed "
                                      "by the user")
                           .arg(d1, d2),
                       QStringLiteral("2. Long, %1 at 30.39 to %2 at 31.1235: 2.41348%, closed "
                                      "by the user")
                           .arg(d1, d2)};
}

void TestSimulator::report()
{
    QFETCH(bool, open);
    QFETCH(int, closed);
    QFETCH(QString, figures);
    QFETCH(QStringList, trades);
    Simulation s;
    s.reset(QStringLiteral("SIM"));
    for (int i = 0; i < closed; ++i) {
        s.setSeries(dayAt(30.39f, QDate(2012, 9, 24)));
        QVERIFY(s.open(SimulatedTrade::Long));
        s.setSeries(dayAt(31.1234567f));
        QVERIFY(s.close());
    }
    if (open) {
        s.setSeries(dayAt(30.39f, QDate(2012, 9, 24)));
        QVERIFY(s.open(SimulatedTrade::Long));
    }
    QString expected = figures + QStringLiteral("\nTrades of this session: %1\n").arg(closed);
    for (const QString &line : trades)
        expected += line + QLatin1Char('\n');
    QCOMPARE(simulationReport(s.figures(), s.trades()), expected);

    // The panel writes the same into its text area.
    Simulator panel;
    panel.showSimulation(s);
    panel.slotReport();
    QCOMPARE(panel.reportText(), expected);
}

void TestSimulator::profitsOfBothDirections()
{
    Simulation s;
    s.reset(QStringLiteral("SIM"));
    QVERIFY(!s.open(SimulatedTrade::Long)); // no day yet
    const auto trade = [&s](SimulatedTrade::Direction d, float in, float out) {
        s.setSeries(dayAt(in, QDate(2012, 9, 24)));
        QVERIFY(s.open(d));
        QVERIFY(!s.open(d)); // one position at a time
        s.setSeries(dayAt(out));
        QVERIFY(s.close());
        QVERIFY(!s.close());
    };
    trade(SimulatedTrade::Short, 100, 90); // a fall earns a short position 10 %
    QCOMPARE(s.trades().constLast().percent, 10.0);
    trade(SimulatedTrade::Short, 100, 125);
    QCOMPARE(s.trades().constLast().percent, -25.0);
    trade(SimulatedTrade::Long, 80, 100); // (100 - 80) / 80
    QCOMPARE(s.trades().constLast().percent, 25.0);
    QCOMPARE(s.totalProfit(), 10.0);
    const SimulationFigures f = s.figures();
    QCOMPARE(f.startValue, 80.0f);
    QCOMPARE(f.endValue, 100.0f);
    QCOMPARE(f.profit, 25.0f);
    QCOMPARE(f.totalProfit, 10.0f);
    s.reset(QStringLiteral("SIM"));
    QCOMPARE(s.figures().startValue, -1.0f);
    QCOMPARE(s.figures().totalProfit, 0.0f);
}

// Each position button changes its text while pressed, opens and closes through its signals
// and locks the other one out. (Next and the levels are driven in the flows below.)
void TestSimulator::panelButtons()
{
    Simulator panel;
    QSignalSpy goLong(&panel, &Simulator::goLong);
    QSignalSpy goShort(&panel, &Simulator::goShort);
    QSignalSpy close(&panel, &Simulator::closePosition);
    auto *buy = child<QPushButton>(&panel, "SimulatorBuy");
    auto *sell = child<QPushButton>(&panel, "SimulatorShort");
    const struct
    {
        QPushButton *button, *other;
        QSignalSpy *opened;
        const char *off, *on;
    } positions[] = {{buy, sell, &goLong, "&Buy", "&Sale"},
                     {sell, buy, &goShort, "Go &Short", "&Close Position"}};
    for (const auto &p : positions) {
        QCOMPARE(p.button->text(), QLatin1String(p.off));
        p.button->click();
        QCOMPARE(p.button->text(), QLatin1String(p.on));
        QCOMPARE(p.opened->count(), 1);
        QVERIFY(!p.other->isEnabled());
        p.button->click();
        QCOMPARE(p.button->text(), QLatin1String(p.off));
        QCOMPARE(close.count(), p.button == buy ? 1 : 2);
        QVERIFY(p.other->isEnabled());
    }
}

void TestSimulator::historyLimitStepsAndLeaving()
{
    StorageBrowser browser;
    browser.slotSetSymbols({QStringLiteral("MSFT")});
    browser.show();
    QSignalSpy charts(&browser, &StorageBrowser::chartItemSeletected);
    QSignalSpy off(&browser, &StorageBrowser::simulatorOff);
    browser.stockList()->setCurrentItem(browser.stockList()->topLevelItem(0));
    QCOMPARE(charts.count(), 1);
    const auto shown = [&charts] {
        return charts.constLast().at(0).value<OrdaneData::ReaderH>();
    };
    const QVector<QuoteBar> full = shown()->bars();
    QVERIFY(full.size() > 100);

    auto *simulate = child<QPushButton>(&browser, "StorageBrowserSI");
    QVERIFY(simulate->isCheckable());
    simulate->click();
    QVERIFY(browser.isSimulating());
    QVERIFY(browser.simulator()->isVisible());
    QCOMPARE(off.count(), 1);
    QCOMPARE(off.constLast().at(0).toBool(), false);
    const QList<QWidget *> browsing{child<QLineEdit>(&browser, "StorageBrowserSymbol"),
                                    child<QPushButton>(&browser, "StorageBrowserFetch"),
                                    child<QPushButton>(&browser, "StorageBrowserLS"),
                                    child<QPushButton>(&browser, "StorageBrowserID"),
                                    browser.stockList()};
    for (QWidget *w : browsing)
        QVERIFY2(!w->isEnabled(), qPrintable(w->objectName()));

    // 70 bars at first, then one more bar per day; the newest is the simulated day.
    for (int limit : {70, 71, 72}) {
        if (limit > 70)
            child<QPushButton>(browser.simulator(), "SimulatorNext")->click();
        QCOMPARE(OrdaneData::Reader::historyLimit(), limit);
        QCOMPARE(shown()->count(), limit);
        QCOMPARE(shown()->bar(limit - 1), full.at(limit - 1));
        QCOMPARE(browser.simulation().day(), full.at(limit - 1).date());
    }

    {
        BoxAnswerer cancel(QMessageBox::Cancel);
        simulate->click();
        QCOMPARE(cancel.texts, QStringList{QStringLiteral(
                                   "You are about to leave the simulation mode.\nIt will erase "
                                   "you report data.\nClose anyway?")});
        QCOMPARE(cancel.titles, QStringList{QString()});
    }
    QVERIFY(simulate->isChecked());
    QVERIFY(browser.isSimulating());
    QCOMPARE(OrdaneData::Reader::historyLimit(), 72);
    QCOMPARE(off.count(), 1);

    {
        BoxAnswerer ok(QMessageBox::Ok);
        simulate->click();
        QCOMPARE(ok.texts.size(), 1);
    }
    QVERIFY(!browser.isSimulating());
    QCOMPARE(OrdaneData::Reader::historyLimit(), -1);
    QCOMPARE(shown()->count(), full.size());
    QVERIFY(!browser.simulator()->isVisible());
    QCOMPARE(off.count(), 2);
    QCOMPARE(off.constLast().at(0).toBool(), true);
    for (QWidget *w : browsing)
        QVERIFY2(w->isEnabled(), qPrintable(w->objectName()));
}

void TestSimulator::levelsTriggerFromThePanel_data()
{
    QTest::addColumn<QString>("position"); // the button opening it
    QTest::addColumn<QString>("level");    // the check box to tick, at 10 %
    QTest::addColumn<float>("start");
    QTest::addColumn<QVector<float>>("days");
    QTest::addColumn<QString>("says"); // empty: still open after the days

    const QString buy = QStringLiteral("SimulatorBuy");
    const QString sell = QStringLiteral("SimulatorShort");
    const QString stop = QStringLiteral("SimulatorStopLoss");
    const QString take = QStringLiteral("SimulatorTakeProfit");
    const QString stopped = QStringLiteral("The \"StopLos\" is triggered!");
    const QString taken = QStringLiteral("The \"TakeProfit\" is triggered!");
    QTest::newRow("long-stop-loss-at-the-level")
        << buy << stop << 100.f << QVector<float>{95, 90} << stopped;
    QTest::newRow("long-stop-loss-just-short-of-it")
        << buy << stop << 100.f << QVector<float>{95, 90.01f} << QString();
    // -9.9999987 % in floats: a fall of exactly 10 % between stored prices.
    QTest::newRow("long-stop-loss-stored-prices")
        << buy << stop << 30.39f << QVector<float>{29, 27.351f} << stopped;
    QTest::newRow("long-stop-loss-not-on-a-rise")
        << buy << stop << 100.f << QVector<float>{150} << QString();
    QTest::newRow("short-stop-loss-at-the-level")
        << sell << stop << 100.f << QVector<float>{110} << stopped;
    QTest::newRow("short-stop-loss-not-on-a-fall")
        << sell << stop << 100.f << QVector<float>{50} << QString();
    QTest::newRow("long-take-profit-at-the-level")
        << buy << take << 100.f << QVector<float>{105, 110} << taken;
    QTest::newRow("long-take-profit-just-short-of-it")
        << buy << take << 100.f << QVector<float>{109.99f} << QString();
    QTest::newRow("short-take-profit-at-the-level")
        << sell << take << 100.f << QVector<float>{90} << taken;
}

void TestSimulator::levelsTriggerFromThePanel()
{
    QFETCH(QString, position);
    QFETCH(QString, level);
    QFETCH(float, start);
    QFETCH(QVector<float>, days);
    QFETCH(QString, says);
    storeSimulated(start, days + QVector<float>{start});
    StorageBrowser browser;
    browser.slotSetSymbols({QStringLiteral("SIM")});
    browser.stockList()->setCurrentItem(browser.stockList()->topLevelItem(0));
    child<QPushButton>(&browser, "StorageBrowserSI")->click();
    Simulator *panel = browser.simulator();
    child<QCheckBox>(panel, qPrintable(level))->click();
    auto *button = child<QPushButton>(panel, qPrintable(position));
    const QString off = button->text();
    button->click();
    QCOMPARE(panel->startValue(), start);
    QCOMPARE(panel->endValue(), -1.0f);

    BoxAnswerer boxes;
    for (int i = 0; i < days.size(); ++i)
        child<QPushButton>(panel, "SimulatorNext")->click();
    if (says.isEmpty()) {
        QVERIFY(boxes.texts.isEmpty());
        QVERIFY(button->isChecked());
        QVERIFY(browser.simulation().hasPosition());
        return;
    }
    QCOMPARE(boxes.texts, QStringList{says});
    QCOMPARE(boxes.titles, QStringList{QStringLiteral("Information")});
    // Closed as if the button had been pressed: unchecked, its first text back, the trade
    // booked at the day's close.
    QVERIFY(!button->isChecked());
    QCOMPARE(button->text(), off);
    QVERIFY(!browser.simulation().hasPosition());
    QCOMPARE(browser.simulation().trades().size(), 1);
    QCOMPARE(panel->endValue(), days.constLast());
    QCOMPARE(panel->endDate(), browser.simulation().day());
    child<QPushButton>(panel, "SimulatorReport")->click();
    QVERIFY(panel->reportText().contains(level == QLatin1String("SimulatorStopLoss")
                                             ? QStringLiteral("closed by the stop loss")
                                             : QStringLiteral("closed by the take profit")));
}

void TestSimulator::endOfTheStoredDays()
{
    storeSimulated(100, {101, 102});
    StorageBrowser browser;
    browser.slotSetSymbols({QStringLiteral("SIM")});
    browser.stockList()->setCurrentItem(browser.stockList()->topLevelItem(0));
    child<QPushButton>(&browser, "StorageBrowserSI")->click();
    Simulator *panel = browser.simulator();
    child<QPushButton>(panel, "SimulatorBuy")->click();
    BoxAnswerer boxes;
    auto *next = child<QPushButton>(panel, "SimulatorNext");
    next->click();
    next->click();
    QVERIFY(boxes.texts.isEmpty());
    QCOMPARE(browser.simulation().barCount(), 72);
    // No 73rd day: the position closes at the last close and the user is told.
    next->click();
    QCOMPARE(boxes.texts.size(), 1);
    QVERIFY(boxes.texts.constFirst().contains(QStringLiteral("no more stored days")));
    QVERIFY(!child<QPushButton>(panel, "SimulatorBuy")->isChecked());
    QCOMPARE(browser.simulation().trades().size(), 1);
    QCOMPARE(int(browser.simulation().trades().constFirst().closedBy),
             int(SimulatedTrade::EndOfData));
    QCOMPARE(panel->endValue(), 102.0f);
    next->click();
    QCOMPARE(boxes.texts.size(), 2);
    QCOMPARE(browser.simulation().trades().size(), 1);
}

// The chart shows daily bars while simulating, and no current price may reach it.
void TestSimulator::chartFollowsTheSimulator()
{
    Halcyra::MainWindow window;
    window.show();
    OrdaneView::ViewsContainer *views = window.viewsContainer();
    StockList *list = window.storageBrowser()->stockList();
    QTRY_VERIFY(list->findSymbol(QStringLiteral("MSFT")));
    list->setCurrentItem(list->findSymbol(QStringLiteral("MSFT")));
    QTRY_VERIFY(!views->reader().isNull());
    QVERIFY(views->timeFrame() != OrdaneData::Day);
    auto *price = views->findChild<QToolButton *>(QStringLiteral("ViewOperationsPanelCpr"));
    QVERIFY(price && price->isEnabled());
    auto *simulate = child<QPushButton>(window.storageBrowser(), "StorageBrowserSI");

    simulate->click();
    QCOMPARE(views->timeFrame(), int(OrdaneData::Day));
    QCOMPARE(views->reader()->count(), 70);
    QVERIFY(!price->isEnabled());
    child<QPushButton>(window.storageBrowser()->simulator(), "SimulatorNext")->click();
    QCOMPARE(views->reader()->count(), 71);

    BoxAnswerer ok;
    simulate->click();
    QVERIFY(price->isEnabled());
    QVERIFY(views->reader()->count() > 71);
}

QTEST_MAIN(TestSimulator)
#include "test_simulator.moc"
