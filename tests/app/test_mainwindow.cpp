// The main window as one working program: its docks, menu panel, menus and shortcuts, the
// wiring between the indicator list, the browser and the chart views, and the set-up kept
// from one run to the next.

#include "app/mainwindow.h"
#include "app/quoteupdates.h"
#include "browser/ui/observerwindow.h"
#include "browser/ui/stocklist.h"
#include "browser/ui/storagebrowser.h"
#include "data/home.h"
#include "data/quotefile.h"
#include "data/quotetable.h"
#include "data/reader.h"
#include "indicators/indicatorlayer.h"
#include "indicators/ui/candlesexpertpanel.h"
#include "indicators/ui/indicatorfactorywidget.h"
#include "support/messagebox.h"
#include "support/quoteservice.h"
#include "support/testsettings.h"
#include "view/candlespatternlayer.h"
#include "view/charttemplate.h"
#include "view/ui/chartview.h"
#include "view/ui/viewscontainer.h"

#include <QAction>
#include <QDialog>
#include <QDir>
#include <QDockWidget>
#include <QFile>
#include <QMenu>
#include <QSettings>
#include <QStatusBar>
#include <QTemporaryDir>
#include <QToolButton>
#include <QtTest>

using Halcyra::MainWindow;
using namespace OrdaneView;

class TestMainWindow : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { QVERIFY(TestSupport::useTestHome(mHome.path())); }
    void init() { open(); }
    void cleanup();
    void docksMenusAndShortcuts();
    void signalsOfTheWindow();
    void partsReachTheViews();
    void templatesKeptBetweenRuns();
    void startUpScriptFailuresWaitForTheWindow();
    void quotesCatchUpInTheBackground();

private:
    void open()
    {
        mWindow = new MainWindow;
        mWindow->show();
        QVERIFY(QTest::qWaitForWindowExposed(mWindow));
    }
    QAction *action(const QString &name) const { return mWindow->findChild<QAction *>(name); }

    QTemporaryDir mHome;
    MainWindow *mWindow = nullptr;
};

void TestMainWindow::cleanup()
{
    delete mWindow;
    mWindow = nullptr;
    QFile::remove(MainWindow::lastTemplatePath());
    QSettings().clear();
}

void TestMainWindow::docksMenusAndShortcuts()
{
    const QList<QWidget *> parts{mWindow->viewsContainer(), mWindow->storageBrowser(),
                                 mWindow->indicatorList(), mWindow->candlePanel(),
                                 mWindow->observerList()->parentWidget()->parentWidget()};
    const QStringList titles{QStringLiteral("Work Area"), QStringLiteral("Browser"),
                             QStringLiteral("Indicators"), QStringLiteral("Candle Guru"),
                             QStringLiteral("Observer")};
    QCOMPARE(mWindow->docks().size(), 5);
    for (int i = 0; i < 5; ++i) {
        QCOMPARE(mWindow->docks().at(i)->windowTitle(), titles.at(i));
        QCOMPARE(mWindow->docks().at(i)->widget(), parts.at(i));
    }

    // Each action with its text and shortcut; the menu panel's button of the same meaning,
    // named after its caption, triggers it.
    const struct
    {
        const char *name, *text, *shortcut, *caption;
    } actions[] = {
        {"actionSettings", "&Settings...", "Ctrl+O", "Settings"},
        {"actionFullScreen", "Full &Screen", "Ctrl+Alt+S", "Full Screen"},
        {"actionVirtualResolution", "&Virtual Resolution", "Ctrl+Alt+V", "Virtual Resolution"},
        {"actionLoadTemplate", "Load &Template", "Ctrl+Alt+T", "Load Template"},
        {"actionSaveTemplate", "Save T&emplate", "Ctrl+Alt+A", "Save Template"},
        {"actionAbout", "&About", "", "Help"},
        {"actionGotoDataFolder", "Go to data folder", "", nullptr},
    };
    for (const auto &a : actions) {
        QAction *found = action(QLatin1String(a.name));
        QVERIFY2(found, a.name);
        QCOMPARE(found->text(), QLatin1String(a.text));
        QCOMPARE(found->shortcut().toString(), QLatin1String(a.shortcut));
        if (!a.caption)
            continue;
        const QString name =
            QStringLiteral("MenuPanel") + QString::fromLatin1(a.caption).remove(QLatin1Char(' '));
        auto *button = mWindow->findChild<QToolButton *>(name);
        QVERIFY2(button, qPrintable(name));
        QCOMPARE(button->text(), QLatin1String(a.caption));
        // Count the triggers instead of opening the dialogs behind them.
        QObject::disconnect(found, &QAction::triggered, nullptr, nullptr);
        QSignalSpy triggered(found, &QAction::triggered);
        button->click();
        QCOMPARE(triggered.count(), 1);
    }

    auto *menu = mWindow->findChild<QToolButton *>(QStringLiteral("MenuPanelMenu"));
    QVERIFY(menu && menu->menu());
    QStringList menus;
    for (QAction *a : menu->menu()->actions())
        menus << a->text();
    QCOMPARE(menus, QStringList({QStringLiteral("&View"), QStringLiteral("&Tools"),
                                 QStringLiteral("&Languages"), QStringLiteral("&Help")}));

    QStringList languages;
    for (const char *code : {"en", "ru", "de"}) {
        QAction *a = action(QStringLiteral("actionLanguage_") + QLatin1String(code));
        QVERIFY(a && !a->icon().isNull());
        languages << a->text();
    }
    QCOMPARE(languages, QStringList({QStringLiteral("&English"), QStringLiteral("&Russian"),
                                     QStringLiteral("&German")}));
}

void TestMainWindow::signalsOfTheWindow()
{
    QSignalSpy full(mWindow, &MainWindow::showFullScreen);
    for (bool on : {true, false}) {
        mWindow->slotFullScreen();
        QCOMPARE(full.size(), 1);
        QCOMPARE(full.takeFirst().at(0).toBool(), on);
        QTRY_COMPARE(mWindow->isFullScreen(), on);
    }

    QSignalSpy vr(mWindow, &MainWindow::showVirtualResoltionSettings);
    mWindow->slotVR();
    QCOMPARE(vr.count(), 1);
    QDialog *dialog = nullptr;
    QTRY_VERIFY((dialog = mWindow->findChild<QDialog *>()) != nullptr);
    QCOMPARE(dialog->windowTitle(), QStringLiteral("Virtual Resolution"));
    dialog->reject();
}

// The indicator list, the browser and the candle panel each reach the views.
void TestMainWindow::partsReachTheViews()
{
    ViewsContainer *views = mWindow->viewsContainer();
    const int panes = views->views().size();
    emit mWindow->indicatorList()->addIndicators({QStringLiteral("RSI")});
    QCOMPARE(views->views().size(), panes + 1);
    QCOMPARE(views->views().last()->indicators().first()->name(), QStringLiteral("RSI"));
    const int overlays = views->chartView()->indicators().size();
    emit mWindow->indicatorList()->addChartIndicators({QStringLiteral("EMA")});
    QCOMPARE(views->chartView()->indicators().size(), overlays + 1);

    OrdaneBrowser::StockList *list = mWindow->storageBrowser()->stockList();
    // A first start fetches the default symbols once the window is up.
    QTRY_COMPARE(list->symbols().size(), 5);
    list->setCurrentItem(list->findSymbol(QStringLiteral("MSFT")));
    QTRY_VERIFY(!views->reader().isNull());
    QCOMPARE(views->reader()->symbol(), QStringLiteral("MSFT"));
    // The chart keeps the frame of the set-up (the week template at a first start).
    QCOMPARE(views->reader()->timeFrame(), int(OrdaneData::Week));

    CandlesPatternLayer *layer = views->chartView()->patternLayer();
    QVERIFY(!layer->isShown());
    emit mWindow->candlePanel()->showCandlePatterns(true);
    QVERIFY(layer->isShown());
    emit mWindow->candlePanel()->strengthChanged(CandlePattern::Strong);
    QCOMPARE(layer->strength(), int(CandlePattern::Strong));
    emit mWindow->candlePanel()->blendingChanged(true);
    QVERIFY(layer->isBlending());
    emit mWindow->candlePanel()->required({CandlePattern::Doji});
    QCOMPARE(layer->required(), CandlePattern::PatternSet({CandlePattern::Doji}));
}

// Each entry of the predefined templates menu loads its template; the last one, the docks
// and the window's size are there again at the next start.
void TestMainWindow::templatesKeptBetweenRuns()
{
    auto *templates = mWindow->findChild<QMenu *>(QStringLiteral("menuPredefinedTemplates"));
    QStringList texts;
    for (QAction *a : templates->actions()) {
        texts << a->text();
        ChartTemplate expected;
        QVERIFY(readTemplateFile(a->data().toString(), &expected));
        a->trigger();
        QTRY_COMPARE(mWindow->viewsContainer()->views().size(), 1 + expected.panes.size());
        const ChartTemplate shown = mWindow->viewsContainer()->currentTemplate();
        QCOMPARE(shown.timeFrame, expected.timeFrame);
        QCOMPARE(shown.chartIndicators.size(), expected.chartIndicators.size());
        for (int i = 0; i < expected.panes.size(); ++i)
            QCOMPARE(shown.panes.at(i).size(), expected.panes.at(i).size());
    }
    QCOMPARE(texts,
             QStringList({QStringLiteral("Trawler &Week"), QStringLiteral("Trawler &Day"),
                          QStringLiteral("W&ork Template"), QStringLiteral("W&illiams"),
                          QStringLiteral("&Elder Rays"), QStringLiteral("&BollingerBands")}));

    mWindow->docks().at(2)->hide();
    mWindow->resize(1211, 877);
    QDockWidget *browser = mWindow->docks().at(1);
    mWindow->resizeDocks({browser}, {380}, Qt::Horizontal);
    QTRY_VERIFY2(browser->width() > 340, qPrintable(QString::number(browser->width())));
    const int browserWidth = browser->width();
    const ChartTemplate before = mWindow->viewsContainer()->currentTemplate();
    // Unlike the week template of a first start, or keeping it would prove nothing.
    QVERIFY(before.timeFrame != int(OrdaneData::Week));
    mWindow->close();
    delete mWindow;
    open();
    const ChartTemplate after = mWindow->viewsContainer()->currentTemplate();
    QCOMPARE(after.timeFrame, before.timeFrame);
    QCOMPARE(after.chartIndicators, before.chartIndicators);
    QCOMPARE(after.panes, before.panes);
    QVERIFY(!mWindow->docks().at(2)->isVisible());
    QCOMPARE(mWindow->size(), QSize(1211, 877));
    QTest::qWait(50);
    QCOMPARE(mWindow->docks().at(1)->width(), browserWidth);

    // A broken record of the last set-up falls back to the week template.
    delete mWindow;
    QFile file(MainWindow::lastTemplatePath());
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("<Template><TimeFrame>MONTH</Tim");
    file.close();
    mWindow = new MainWindow;
    QCOMPARE(mWindow->restoreLastTemplate(), fallbackTemplate());
    QCOMPARE(mWindow->viewsContainer()->currentTemplate().timeFrame, int(OrdaneData::Week));
}

// A script of the kept set-up that fails reports itself only once the window is up, so that
// start-up never blocks on a box.
void TestMainWindow::startUpScriptFailuresWaitForTheWindow()
{
    delete mWindow;
    QFile script(
        QDir(OrdaneData::Home::userIndicatorsPath()).filePath(QStringLiteral("Throws.js")));
    QVERIFY(script.open(QIODevice::WriteOnly));
    script.write("function start() { throw 'no data'; }");
    script.close();
    ChartTemplate t;
    t.panes = {{{QStringLiteral("Throws.js"), {}}}};
    QVERIFY(writeTemplateFile(MainWindow::lastTemplatePath(), t));

    QString text;
    TestSupport::answerNextMessageBox(&text);
    mWindow = new MainWindow;
    QCoreApplication::processEvents();
    QVERIFY(text.isEmpty());
    mWindow->show();
    QTRY_COMPARE(text, QStringLiteral("EXEPTION!!!"));
    QVERIFY(script.remove());
}

// With a quote service set, the store is brought up to date at start: progress and a Stop
// button in the status bar, the shown chart reloaded, and what was done at the end. A run
// can be stopped.
void TestMainWindow::quotesCatchUpInTheBackground()
{
    delete mWindow;
    mWindow = nullptr;
    TestSupport::QuoteService service(
        {QStringLiteral("--fault"), QStringLiteral("MAN.DE=stall:400")});
    QVERIFY(service.isRunning());
    QSettings().setValue(QStringLiteral("QuoteService/TableHost"), service.url().toString());
    open();
    auto *updates = mWindow->quoteUpdates();
    auto *stop = mWindow->statusBar()->findChild<QToolButton *>(QStringLiteral("QuoteUpdatesStop"));
    QVERIFY(updates->isRunning());
    QVERIFY(stop && stop->isVisible());
    QTRY_VERIFY_WITH_TIMEOUT(!updates->isRunning(), 30000);
    QVERIFY(!stop->isVisible());
    QCOMPARE(mWindow->statusBar()->currentMessage(), QStringLiteral("Quotes: 5 updated"));
    // The chart shows the new days.
    QTRY_COMPARE(mWindow->viewsContainer()->reader()->bars().constLast().date(),
                 OrdaneData::lastCompletedTradingDay(QDate::currentDate()));

    // Stopped during the stalled symbol: the run ends there and says so.
    QFile sample(QStringLiteral(":/Storage/MAN.DE.csv"));
    QVERIFY(sample.open(QIODevice::ReadOnly));
    QVERIFY(OrdaneData::writeText(OrdaneData::fileOf(QStringLiteral("MAN.DE")), sample.readAll()));
    QVERIFY(updates->start({QStringLiteral("MAN.DE"), QStringLiteral("MSFT")}));
    stop->click();
    QTRY_VERIFY_WITH_TIMEOUT(!updates->isRunning(), 30000);
    QVERIFY2(mWindow->statusBar()->currentMessage().startsWith(QStringLiteral("Stopped.")),
             qPrintable(mWindow->statusBar()->currentMessage()));
}

QTEST_MAIN(TestMainWindow)
#include "test_mainwindow.moc"
