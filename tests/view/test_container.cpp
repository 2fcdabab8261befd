// The chart area as a user drives it: the tool strip, frames, zoom, scrolling, the mini
// view, saving, and the colour settings page.

#include "data/home.h"
#include "data/quotetable.h"
#include "data/reader.h"
#include "indicators/catalogue.h"
#include "indicators/indicatorlayer.h"
#include "indicators/script/userindicator.h"
#include "indicators/ui/indicatordialogs.h"
#include "indicators/ui/indicatorpropertiesdialog.h"
#include "support/messagebox.h"
#include "support/quoteservice.h"
#include "support/testsettings.h"
#include "view/chartgeometry.h"
#include "view/charttemplate.h"
#include "view/ui/chartview.h"
#include "view/ui/miniview.h"
#include "view/ui/viewoperationspanel.h"
#include "view/ui/viewparameters.h"
#include "view/ui/viewscontainer.h"
#include "widgets/settingsdialog.h"

#include <QDoubleSpinBox>
#include <QMainWindow>
#include <QMenu>
#include <QMessageBox>
#include <QMimeData>
#include <QPushButton>
#include <QScriptEngineDebugger>
#include <QSettings>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QToolButton>
#include <QtTest>

#include <cmath>
#include <memory>

using namespace OrdaneView;

namespace {
QList<IndicatorLayer *> indicatorsIn(const View *view)
{
    QList<IndicatorLayer *> list;
    for (ComputedLayer *layer : view->indicators())
        list << qobject_cast<IndicatorLayer *>(layer);
    return list;
}
} // namespace

class TestContainer : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();
    void toolStripReachesItsSlots();
    void framesAggregateAndFollowTheEnd();
    void zoomKeepsTheNewestBarInView();
    void positionAndMiniView();
    void savesSeriesAndPicture();
    void missingSymbolIsReported();
    void settingsPage();
    void indicatorPanesAndOverlays();
    void propertiesDialog_data();
    void propertiesDialog();
    void templatesReplaceTheSetUp();
    void droppedIndicators();
    void scriptIndicators();
    void currentPrice();

private:
    QToolButton *button(const char *name) const
    {
        return mContainer->panel()->findChild<QToolButton *>(QStringLiteral("ViewOperationsPanel") +
                                                             QLatin1String(name));
    }

    QTemporaryDir mHome;
    ViewsContainer *mContainer = nullptr;
};

void TestContainer::initTestCase()
{
    QVERIFY(TestSupport::useTestHome(mHome.path()));
    installIndicators();
}

void TestContainer::init()
{
    mContainer = new ViewsContainer;
    mContainer->resize(900, 600);
    mContainer->show();
    QVERIFY(QTest::qWaitForWindowExposed(mContainer));
    mContainer->slotFetchChartData(QStringLiteral("MSFT"));
}

void TestContainer::cleanup()
{
    delete mContainer;
    QSettings().clear();
}

void TestContainer::toolStripReachesItsSlots()
{
    ChartView *chart = mContainer->chartView();
    const struct
    {
        const char *button;
        ChartType type;
    } types[] = {{"Bar", ChartType::Bar},
                 {"Line", ChartType::Line},
                 {"Empty", ChartType::Empty},
                 {"Candle", ChartType::Candle}};
    for (const auto &t : types) {
        button(t.button)->click();
        QCOMPARE(chart->chartType(), t.type);
        QVERIFY(chart->priceLayer()->isMaster());
        QVERIFY(chart->priceLayer()->label().startsWith(QStringLiteral("MSFT")));
    }

    button("ZoomIn")->click();
    QCOMPARE(mContainer->geometry()->zoom(), 16);
    button("ZoomOut")->click();
    button("ZoomOut")->click();
    QCOMPARE(mContainer->geometry()->zoom(), 4);

    button("Grid")->click();
    QVERIFY(chart->canvas()->hasGrid());
    QVERIFY(button("Grid")->isChecked());
    button("Pointer")->click();
    QVERIFY(chart->canvas()->pointerInfoMode());
    button("Pointer")->click();
    QVERIFY(!chart->canvas()->pointerInfoMode());

    const QList<QAction *> separators = button("Separators")->menu()->actions();
    QCOMPARE(separators.size(), 5);
    separators.at(3)->trigger();
    QCOMPARE(chart->canvas()->separatorMode(), SeparatorMode::Quarter);
    separators.at(0)->trigger();
    QCOMPARE(chart->canvas()->separatorMode(), SeparatorMode::None);
}

void TestContainer::framesAggregateAndFollowTheEnd()
{
    const int days = mContainer->reader()->count();
    const struct
    {
        const char *button;
        int frame;
        const char *label;
    } frames[] = {{"Week", 1, "Weekly"},
                  {"Month", 2, "Monthly"},
                  {"Quarter", 3, "Quarterly"},
                  {"Year", 4, "Yearly"},
                  {"Day", 0, "Daily"}};
    int previous = days;
    for (const auto &f : frames) {
        button(f.button)->click();
        QCOMPARE(mContainer->timeFrame(), f.frame);
        QCOMPARE(mContainer->reader()->timeFrame(), f.frame);
        QVERIFY(mContainer->chartView()->priceLayer()->label().endsWith(QLatin1String(f.label)));
        if (f.frame > 0)
            QVERIFY(mContainer->reader()->count() < previous);
        previous = mContainer->reader()->count();
        // The newest bar stays in view.
        const int plot = mContainer->chartView()->canvas()->plotWidth();
        QCOMPARE(mContainer->geometry()->firstVisible(),
                 mContainer->geometry()->lastPage(plot, mContainer->reader()->count()));
    }
    QCOMPARE(mContainer->reader()->count(), days);
}

void TestContainer::zoomKeepsTheNewestBarInView()
{
    ChartGeometry *g = mContainer->geometry();
    const int plot = mContainer->chartView()->canvas()->plotWidth();
    // Scrolled back: the bar at the right edge stays there.
    mContainer->slotSetPosition(1000);
    const int end = g->firstVisible() + g->visibleCount(plot, mContainer->reader()->count());
    mContainer->slotZoomIn();
    QCOMPARE(g->firstVisible() + g->visibleCount(plot, mContainer->reader()->count()), end);
    mContainer->slotZoomOut();
    QCOMPARE(g->firstVisible() + g->visibleCount(plot, mContainer->reader()->count()), end);
}

void TestContainer::positionAndMiniView()
{
    mContainer->slotSetPosition(-25);
    QCOMPARE(mContainer->geometry()->firstVisible(), 0);
    MiniView *mini = mContainer->miniView();
    const int count = mContainer->reader()->count();
    const int visible =
        mContainer->geometry()->visibleCount(mContainer->chartView()->canvas()->plotWidth(), count);
    QTest::mouseClick(mini, Qt::LeftButton, {}, QPoint(mini->width() / 2, 20));
    QCOMPARE(mContainer->geometry()->firstVisible(), count / 2 - visible / 2);
    QTest::mouseClick(mini, Qt::LeftButton, {}, QPoint(mini->width() - 1, 20));
    QCOMPARE(mContainer->geometry()->firstVisible(), count - visible);

    // Measuring with the right button does not move the chart.
    QTest::mousePress(mini, Qt::RightButton, {}, QPoint(10, 20));
    QTest::mouseMove(mini, QPoint(mini->width() / 2, 20));
    QVERIFY(mini->readOut().startsWith(QStringLiteral("Price:\t")));
    QVERIFY(mini->readOut().contains(QStringLiteral("\nDifference:\t")));
    QTest::mouseRelease(mini, Qt::RightButton, {}, QPoint(mini->width() / 2, 20));
    QCOMPARE(mContainer->geometry()->firstVisible(), count - visible);

    // Dragging the chart moves it, and the pointer information follows the pointer.
    ChartView *chart = mContainer->chartView();
    mContainer->slotSetPosition(count / 2);
    QTest::mousePress(chart, Qt::LeftButton, {}, QPoint(400, 100));
    QMouseEvent drag(QEvent::MouseMove, QPointF(240, 100), Qt::NoButton, Qt::LeftButton, {});
    QApplication::sendEvent(chart, &drag);
    QTest::mouseRelease(chart, Qt::LeftButton, {}, QPoint(240, 100));
    QCOMPARE(mContainer->geometry()->firstVisible(),
             count / 2 + 160 / mContainer->geometry()->zoom());
    QCOMPARE(mContainer->geometry()->pointerX(), 240);
}

void TestContainer::savesSeriesAndPicture()
{
    QTemporaryDir out;
    mContainer->slotSetMonthFrameMode();
    const QString csv = out.filePath(QStringLiteral("MSFT-months.csv"));
    QVERIFY(mContainer->saveCsv(csv));
    OrdaneData::Reader months;
    QVERIFY(months.loadFile(csv));
    QCOMPARE(months.bars(), mContainer->reader()->bars());

    const QString png = out.filePath(QStringLiteral("chart.png"));
    QVERIFY(mContainer->savePicture(png));
    const QImage picture(png);
    QVERIFY(!picture.isNull());
    QCOMPARE(picture.width(), mContainer->chartView()->width());

    QString error;
    QVERIFY(!mContainer->saveCsv(out.filePath(QStringLiteral("missing/x.csv")), &error));
    QVERIFY(!error.isEmpty());
}

void TestContainer::missingSymbolIsReported()
{
    const OrdaneData::ReaderH before = mContainer->reader();
    QString text;
    TestSupport::answerNextMessageBox(&text);
    mContainer->slotFetchChartData(QStringLiteral("NOPE"));
    QCOMPARE(text, QStringLiteral("There are no stored quotes for NOPE."));
    QCOMPARE(mContainer->reader(), before);
}

void TestContainer::settingsPage()
{
    QMWidgets::SettingsDialog dialog;
    auto *settings = new ViewSettings;
    dialog.addPage(settings, QStringLiteral("Chart Colours"));
    dialog.addPage(new QWidget, QStringLiteral("Other"));
    // One way to apply, the dialog's, as on every page.
    QList<QAbstractButton *> applyButtons;
    for (QAbstractButton *b : dialog.findChildren<QAbstractButton *>())
        if (b->text().remove(QLatin1Char('&')) == QLatin1String("Apply"))
            applyButtons << b;
    QCOMPARE(applyButtons.size(), 1);
    ViewParameters *page = settings->parameters();
    auto *schemes = page->findChild<QToolButton *>(QStringLiteral("ViewParametersSchemes"));
    QStringList entries;
    for (QAction *a : schemes->menu()->actions())
        entries << a->text();
    QCOMPARE(entries, (QStringList{QStringLiteral("Halcyra2 (default)"), QStringLiteral("Matrix"),
                                   QStringLiteral("Black On White")}));

    QSignalSpy changed(page, &ViewParameters::parametersChanged);
    schemes->menu()->actions().at(2)->trigger();
    QCOMPARE(page->colors(), ViewColors::scheme(ViewColors::BlackOnWhite));
    page->slotSetPinkColors();
    QCOMPARE(page->colors(), ViewColors::scheme(ViewColors::Pink));
    QCOMPARE(changed.count(), 2);
    // Nothing is stored until the page is applied.
    QCOMPARE(ViewColors::load(), ViewColors::fallback());
    QSignalSpy applied(settings, &ViewSettings::applied);
    applyButtons.first()->click();
    QCOMPARE(applied.count(), 1);
    QCOMPARE(ViewColors::load(), ViewColors::scheme(ViewColors::Pink));
    mContainer->slotUpdate();
    QCOMPARE(mContainer->chartView()->canvas()->colors(), ViewColors::scheme(ViewColors::Pink));

    // Reset writes its own palette straight into the store, and a page opened afterwards
    // shows it.
    page->findChild<QPushButton *>(QStringLiteral("ViewParametersReset"))->click();
    QCOMPARE(applied.count(), 2);
    ViewParameters reopened;
    QCOMPARE(reopened.colors().background, QColor(Qt::darkBlue));
    QCOMPARE(reopened.colors().line, QColor(Qt::white));
}

void TestContainer::indicatorPanesAndOverlays()
{
    QSignalSpy messages(mContainer, &ViewsContainer::message);
    mContainer->slotTriggerNewIndicatorView(
        {QStringLiteral("RSI"), QStringLiteral("Nope"), QStringLiteral("MACD")});
    QCOMPARE(messages.takeFirst().at(0).toString(), QStringLiteral("Unknown indicator: Nope"));
    QList<View *> views = mContainer->views();
    QCOMPARE(views.size(), 3);
    auto *rsiPane = views.at(1);
    QCOMPARE(rsiPane->indicators().size(), 1);
    IndicatorLayer *rsi = indicatorsIn(rsiPane).first();
    QVERIFY(rsi->isMaster());
    QCOMPARE(rsi->label(), QStringLiteral("RSI(7,70,30)"));
    QCOMPARE(rsi->bufferData(QStringLiteral("RSI")).size(), mContainer->reader()->count());

    // The same report, whichever way an unknown name comes.
    mContainer->slotTriggerChartIndicators({QStringLiteral("SMA"), QStringLiteral("Nope")});
    QCOMPARE(messages.takeFirst().at(0).toString(), QStringLiteral("Unknown indicator: Nope"));
    QCOMPARE(mContainer->chartView()->indicators().size(), 1);
    QVERIFY(!mContainer->chartView()->indicators().first()->isMaster());

    // A new frame recomputes every indicator over the new bars.
    mContainer->slotSetWeekFrameMode();
    QCOMPARE(rsi->bufferData(QStringLiteral("RSI")).size(), mContainer->reader()->count());
    QCOMPARE(
        indicatorsIn(mContainer->chartView()).first()->bufferData(QStringLiteral("SMA")).size(),
        mContainer->reader()->count());

    // Removing a pane's only indicator closes the pane.
    rsiPane->slotRemoveIndicatorLayer();
    QTRY_COMPARE(mContainer->views().size(), 2);
}

void TestContainer::propertiesDialog_data()
{
    QTest::addColumn<float>("value");
    QTest::addColumn<QString>("shown");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<float>("stored");
    QTest::newRow("whole-number") << 7.0f << "7"
                                  << "10" << 10.0f;
    QTest::newRow("negative-whole-number") << -3.0f << "-3"
                                           << "-12" << -12.0f;
    QTest::newRow("thousands-without-separator") << 12000.0f << "12000"
                                                 << "2" << 2.0f;
    QTest::newRow("one-decimal") << 2.5f << "2.5"
                                 << "0.25" << 0.25f;
    QTest::newRow("float-of-a-tenth") << 0.1f << "0.1"
                                      << "0.7" << 0.7f;
    QTest::newRow("four-decimals") << 0.0125f << "0.0125"
                                   << "1.2345" << 1.2345f;
    QTest::newRow("beyond-four-decimals") << 0.33333f << "0.3333"
                                          << "0.00015" << 0.0001f;
}

// The dialog shows each parameter with the decimals it needs, takes what is typed to four
// decimals, sets the parameters by name and recomputes.
void TestContainer::propertiesDialog()
{
    QFETCH(float, value);
    QFETCH(QString, typed);
    QFETCH(float, stored);
    std::unique_ptr<IndicatorLayer> rsi(
        createBuiltinIndicator(QStringLiteral("RSI"), mContainer->reader(), nullptr));
    rsi->setParameter(QStringLiteral("Period"), value);
    rsi->init();
    IndicatorPropertiesDialog dialog(rsi.get());
    QDoubleSpinBox *field = dialog.field(QStringLiteral("Period"));
    QTEST(field->text(), "shown");
    QCOMPARE(dialog.field(QStringLiteral("LevelUp"))->text(), QStringLiteral("70"));

    field->selectAll();
    QTest::keyClicks(field, typed);
    dialog.slotApply();
    QCOMPARE(rsi->parameter(QStringLiteral("Period")), stored);
    QVERIFY2(rsi->label().startsWith(QStringLiteral("RSI(%1,").arg(stored)),
             qPrintable(rsi->label()));
    QCOMPARE(rsi->bufferData(QStringLiteral("RSI")).size(), mContainer->reader()->count());
}

// A template replaces the panes and overlays shown before, sets the frame, zoom, type and
// look, creates its indicators with its parameters and reports the names it cannot make;
// the set-up described back gives the same template.
void TestContainer::templatesReplaceTheSetUp()
{
    mContainer->slotTriggerChartIndicators({QStringLiteral("EMA")});
    mContainer->slotTriggerNewIndicatorView({QStringLiteral("CCI"), QStringLiteral("ATR")});
    QCOMPARE(mContainer->views().size(), 3);

    ChartTemplate t;
    t.timeFrame = OrdaneData::Week;
    t.zoom = 4;
    t.background = QColor(0x10, 0x20, 0x30);
    t.type = ChartType::Bar;
    t.threeD = false;
    t.colored = false;
    t.chartIndicators = {{QStringLiteral("SMA"), {{QStringLiteral("Period"), 50}}},
                         {QStringLiteral("NoSuchThing"), {}}};
    t.panes = {{{QStringLiteral("MACD"),
                 {{QStringLiteral("FastEMA"), 5},
                  {QStringLiteral("SlowEMA"), 35},
                  {QStringLiteral("Signal"), 5}}},
                {QStringLiteral("OsMA"), {}}},
               {{QStringLiteral("Nope"), {}}},
               {{QStringLiteral("Volume"), {}}}};
    t.splitter = {300, 120}; // the last pane keeps the height the splitter gives it
    const QStringList unknown = mContainer->applyTemplate(t);
    QCOMPARE(unknown, QStringList({QStringLiteral("NoSuchThing"), QStringLiteral("Nope")}));
    QTRY_COMPARE(mContainer->views().size(), 3);
    QCOMPARE(mContainer->reader()->timeFrame(), int(OrdaneData::Week));
    QCOMPARE(mContainer->geometry()->zoom(), 4);
    QCOMPARE(mContainer->chartView()->chartType(), ChartType::Bar);
    QVERIFY(!mContainer->chartView()->canvas()->isColoured());
    QCOMPARE(mContainer->views().at(2)->canvas()->colors().background, t.background);

    IndicatorLayer *sma = indicatorsIn(mContainer->chartView()).value(0);
    QVERIFY(sma);
    QCOMPARE(sma->label(), QStringLiteral("SMA(50)"));
    QCOMPARE(sma->bufferData(QStringLiteral("SMA")).size(), mContainer->reader()->count());
    const QList<ComputedLayer *> macdPane = mContainer->views().at(1)->indicators();
    QCOMPARE(macdPane.size(), 2);
    QVERIFY(macdPane.at(0)->isMaster());
    QCOMPARE(macdPane.at(0)->parameter(QStringLiteral("SlowEMA")), 35.0f);
    // Heights keep the template's proportions within the room there is.
    const double ratio =
        double(mContainer->views().at(1)->height()) / mContainer->views().at(0)->height();
    QVERIFY2(std::abs(ratio - 0.4) < 0.03, qPrintable(QString::number(ratio)));

    const ChartTemplate back = mContainer->currentTemplate();
    QCOMPARE(back.timeFrame, t.timeFrame);
    QCOMPARE(back.zoom, t.zoom);
    QCOMPARE(back.background, t.background);
    QCOMPARE(back.type, t.type);
    QCOMPARE(back.threeD, false);
    QCOMPARE(back.colored, false);
    QCOMPARE(back.chartIndicators.size(), 1);
    QCOMPARE(back.chartIndicators.first().parameters.value(QStringLiteral("Period")), 50.0f);
    QCOMPARE(back.panes.size(), 2);
    QCOMPARE(back.panes.at(0).at(0).name, QStringLiteral("MACD"));
    QCOMPARE(back.panes.at(1).at(0).name, QStringLiteral("Volume"));
    QCOMPARE(back.splitter.size(), 3);
    QCOMPARE(back.splitter.at(1), mContainer->views().at(1)->height());

    // A new symbol is shown in the template's frame, its indicators recomputed.
    mContainer->slotFetchChartData(QStringLiteral("ADS.DE"));
    QCOMPARE(mContainer->reader()->timeFrame(), int(OrdaneData::Week));
    QCOMPARE(sma->bufferData(QStringLiteral("SMA")).size(), mContainer->reader()->count());

    // Saved and loaded through a file; an unreadable file changes nothing.
    const QString path = mHome.filePath(QStringLiteral("saved.tt"));
    QVERIFY(mContainer->saveTemplate(path));
    QSignalSpy changed(mContainer, &ViewsContainer::templateChanged);
    QSignalSpy messages(mContainer, &ViewsContainer::message);
    QVERIFY(mContainer->slotSetTemplate(path));
    QCOMPARE(changed.count(), 1);
    QVERIFY(messages.isEmpty());
    // Names left out are told after the template is announced, so the status bar keeps them.
    t.splitter.clear();
    QVERIFY(writeTemplateFile(path, t));
    connect(mContainer, &ViewsContainer::templateChanged, &messages,
            [&messages] { QVERIFY(messages.isEmpty()); });
    QVERIFY(mContainer->slotSetTemplate(path));
    QCOMPARE(messages.takeFirst().at(0).toString(),
             QStringLiteral("Unknown indicators left out: NoSuchThing, Nope"));
    QTRY_COMPARE(mContainer->views().size(), 3);
    QString warning;
    TestSupport::answerNextMessageBox(&warning);
    QVERIFY(!mContainer->slotSetTemplate(mHome.filePath(QStringLiteral("missing.tt"))));
    QCOMPARE(warning.count(QLatin1String("missing.tt")), 1);
    QCOMPARE(changed.count(), 2);
    QCOMPARE(mContainer->views().size(), 3);
}

// Indicators dragged from the indicator list: over the prices when dropped on the chart,
// into the pane they are dropped on.
void TestContainer::droppedIndicators()
{
    mContainer->slotTriggerNewIndicatorView({QStringLiteral("RSI")});
    View *pane = mContainer->views().at(1);
    emit mContainer->chartView()->indicatorsDropped({QStringLiteral("EMA")});
    emit pane->indicatorsDropped({QStringLiteral("CCI")});
    QCOMPARE(mContainer->chartView()->indicators().size(), 1);
    QCOMPARE(pane->indicators().size(), 2);
    QVERIFY(pane->indicators().at(0)->isMaster());
    QCOMPARE(pane->indicators().at(1)->name(), QStringLiteral("CCI"));

    QMimeData data;
    data.setData(QStringLiteral("application/x-halcyra-indicators"), "MACD\nATR");
    QCOMPARE(View::droppedIndicators(&data),
             QStringList({QStringLiteral("MACD"), QStringLiteral("ATR")}));
    QMimeData other;
    other.setText(QStringLiteral("MACD"));
    QVERIFY(View::droppedIndicators(&other).isEmpty());
}

// The current price from the quote service becomes the newest bar while the button is on;
// failures are told in message(); price updates can be switched off altogether.
void TestContainer::currentPrice()
{
    TestSupport::QuoteService service({QStringLiteral("--fault"), QStringLiteral("UTX=html")});
    QVERIFY(service.isRunning());
    QSettings().setValue(QStringLiteral("QuoteService/TableHost"), service.url().toString());
    QSettings().setValue(QStringLiteral("QuoteService/QuoteHost"), service.url().toString());
    mContainer->slotSetDayFrameMode();
    const int stored = mContainer->reader()->count();
    QToolButton *cpr = button("Cpr");
    cpr->click();
    QVERIFY(cpr->isChecked());
    QTRY_COMPARE(mContainer->reader()->count(), stored + 1);
    QCOMPARE(mContainer->reader()->bars().constLast().date(),
             OrdaneData::lastCompletedTradingDay(QDate::currentDate()));
    QCOMPARE(service.requestsFor(QStringLiteral("MSFT")), 1);
    // Every interval again, merged into the same newest bar.
    mContainer->setPriceInterval(50);
    QTRY_VERIFY(service.requestsFor(QStringLiteral("MSFT")) >= 3);
    QCOMPARE(mContainer->reader()->count(), stored + 1);

    // Off while simulating: the button goes off and nothing more is asked for.
    mContainer->slotEnablePriceUpdates(false);
    QVERIFY(!cpr->isChecked() && !cpr->isEnabled());
    const int asked = service.requestsFor(QStringLiteral("MSFT"));
    mContainer->slotUpdateCurrentPrice();
    QTest::qWait(200);
    QCOMPARE(service.requestsFor(QStringLiteral("MSFT")), asked);
    mContainer->slotEnablePriceUpdates(true);

    QSignalSpy messages(mContainer, &ViewsContainer::message);
    mContainer->slotFetchChartData(QStringLiteral("UTX"));
    mContainer->slotUpdateCurrentPrice();
    QVERIFY(messages.wait(10000));
    QVERIFY2(messages.constLast().at(0).toString().startsWith(
                 QStringLiteral("No current price for UTX")),
             qPrintable(messages.constLast().at(0).toString()));
}

QTEST_MAIN(TestContainer)
#include "test_container.moc"

namespace {
// The debugger halts at the script's first statement; this plays the user who presses
// Continue whenever it has halted, until *halts is set to -1.
void continueWhenHalted(QObject *container, int *halts)
{
    QTimer::singleShot(10, container, [container, halts] {
        if (*halts < 0)
            return;
        for (auto *debugger : container->findChildren<QScriptEngineDebugger *>()) {
            QAction *proceed = debugger->action(QScriptEngineDebugger::ContinueAction);
            if (debugger->standardWindow()->isVisible() && proceed->isEnabled()) {
                ++*halts;
                proceed->trigger();
            }
        }
        continueWhenHalted(container, halts);
    });
}
} // namespace

// A script indicator travels through a template like a built-in, its parameters with it; the
// debugger commands run a script file in a pane or over the prices with a debugger attached.
void TestContainer::scriptIndicators()
{
    const QString path =
        QDir(OrdaneData::Home::userIndicatorsPath()).filePath(QStringLiteral("Lag.js"));
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("function init() { Lag.createBuffer('Lag'); Lag.createParameter('Bars', 3); }\n"
               "function start() { Lag.setBufferData('Lag', "
               "Lag.shift(Lag.parameter('Bars'), Shared.close())); }\n");
    file.close();

    ChartTemplate t = mContainer->currentTemplate();
    t.panes = {{{QStringLiteral("Lag.js"), {{QStringLiteral("Bars"), 5}}}}};
    QVERIFY(mContainer->applyTemplate(t).isEmpty());
    QCOMPARE(mContainer->views().size(), 2);
    IndicatorLayer *lag = indicatorsIn(mContainer->views().at(1)).value(0);
    QVERIFY(qobject_cast<UserIndicator *>(lag));
    QCOMPARE(lag->bufferData(QStringLiteral("Lag")).mid(0, 6).indexOf(0.0f, 5), -1);
    QCOMPARE(lag->bufferData(QStringLiteral("Lag")).at(5), mContainer->reader()->bar(0).close());
    const ChartTemplate back = mContainer->currentTemplate();
    QCOMPARE(back.panes.value(0).value(0).name, QStringLiteral("Lag.js"));
    QCOMPARE(back.panes.value(0).value(0).parameters.value(QStringLiteral("Bars")), 5.0f);

    QSettings().setValue(QStringLiteral("TransparencyParameters/Debugger"), 0.8);
    int halts = 0;
    continueWhenHalted(mContainer, &halts);
    mContainer->slotDebugChartIndicator(QStringLiteral("Lag.js"), path);
    QVERIFY(halts >= 1);
    auto *onChart = qobject_cast<UserIndicator *>(mContainer->chartView()->indicators().value(0));
    QVERIFY(onChart);
    auto *debugger = qobject_cast<QScriptEngineDebugger *>(onChart->debugger());
    QVERIFY(debugger);
    QCOMPARE(debugger->standardWindow()->windowTitle(), QStringLiteral("Lag.js Debugger"));
    QCOMPARE(debugger->standardWindow()->windowOpacity(), 0.8);
    const int before = halts;
    mContainer->slotDebugIndicator(QStringLiteral("Lag.js"), path);
    QVERIFY(halts > before);
    halts = -1;
    QCOMPARE(mContainer->views().size(), 3);
    QString warning;
    TestSupport::answerNextMessageBox(&warning);
    mContainer->slotDebugExpert(QStringLiteral("None.js"),
                                mHome.filePath(QStringLiteral("None.js")));
    QVERIFY(warning.contains(QLatin1String("None.js")));
    QCOMPARE(mContainer->views().size(), 3);

    // A run that fails (the script reports why itself) leaves no pane and no overlay behind.
    const int overlays = mContainer->chartView()->indicators().size();
    for (const char *source : {"function start() { throw 'broken'; }", "function start( {"}) {
        QFile broken(
            QDir(OrdaneData::Home::userIndicatorsPath()).filePath(QStringLiteral("Broken.js")));
        QVERIFY(broken.open(QIODevice::WriteOnly));
        broken.write(source);
        broken.close();
        mContainer->slotTriggerNewIndicatorView({QStringLiteral("Broken.js")});
        mContainer->slotTriggerChartIndicators({QStringLiteral("Broken.js")});
        QCOMPARE(mContainer->views().size(), 3);
        QCOMPARE(mContainer->chartView()->indicators().size(), overlays);
    }
}
