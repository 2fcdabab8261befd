// The main window as one working program: its docks, menu panel, menus and shortcuts, the
// wiring between the indicator list, the browser and the chart views, and the set-up kept
// from one run to the next.

#include "app/mainwindow.h"
#include "browser/stocklist.h"
#include "browser/storagebrowser.h"
#include "data/home.h"
#include "data/reader.h"
#include "indicators/candlespatternlayer.h"
#include "indicators/indicatorlayer.h"
#include "indicators/ui/candlesexpertpanel.h"
#include "indicators/ui/indicatorfactorywidget.h"
#include "support/testsettings.h"
#include "view/charttemplate.h"
#include "view/ui/chartview.h"
#include "view/ui/viewscontainer.h"

#include <QAction>
#include <QDialog>
#include <QDockWidget>
#include <QFile>
#include <QMenu>
#include <QSettings>
#include <QStandardPaths>
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
    void initTestCase();
    void init();
    void cleanup();
    void docksAndMenuPanel();
    void actionsAndShortcuts();
    void signalsOfTheWindow();
    void indicatorListReachesTheViews();
    void browserSelectionReachesTheViews();
    void candleGuruReachesTheChart();
    void builtinTemplatesFromTheMenu();
    void setUpKeptBetweenRuns();
    void brokenLastTemplateFallsBackToTheWeek();

private:
    QAction *action(const char *name) const
    {
        return mWindow->findChild<QAction *>(QLatin1String(name));
    }

    QTemporaryDir mHome;
    MainWindow *mWindow = nullptr;
};

void TestMainWindow::initTestCase()
{
    QVERIFY(TestSupport::useTestHome(mHome.path()));
}

void TestMainWindow::init()
{
    mWindow = new MainWindow;
    mWindow->show();
    QVERIFY(QTest::qWaitForWindowExposed(mWindow));
}

void TestMainWindow::cleanup()
{
    delete mWindow;
    mWindow = nullptr;
    QFile::remove(MainWindow::lastTemplatePath());
    QSettings().clear();
}

void TestMainWindow::docksAndMenuPanel()
{
    QStringList titles;
    for (QDockWidget *dock : mWindow->docks())
        titles << dock->windowTitle();
    QCOMPARE(titles, QStringList({QStringLiteral("Work Area"), QStringLiteral("Browser"),
                                  QStringLiteral("Indicators"), QStringLiteral("Candle Guru")}));
    QCOMPARE(mWindow->docks().at(0)->widget(), mWindow->viewsContainer());
    QCOMPARE(mWindow->docks().at(1)->widget(), mWindow->storageBrowser());
    QCOMPARE(mWindow->docks().at(2)->widget(), mWindow->indicatorList());

    // Each button of the panel triggers the action of the same meaning.
    const struct
    {
        const char *button;
        const char *caption;
        const char *action;
    } panel[] = {
        {"MenuPanelSettings", "Settings", "actionSettings"},
        {"MenuPanelFullScreen", "Full Screen", "actionFullScreen"},
        {"MenuPanelVirtualResolution", "Virtual Resolution", "actionVirtualResolution"},
        {"MenuPanelLoadTemplate", "Load Template", "actionLoadTemplate"},
        {"MenuPanelSaveTemplate", "Save Template", "actionSaveTemplate"},
        {"MenuPanelHelp", "Help", "actionAbout"},
    };
    for (const auto &p : panel) {
        auto *button = mWindow->findChild<QToolButton *>(QLatin1String(p.button));
        QVERIFY2(button, p.button);
        QCOMPARE(button->text(), QLatin1String(p.caption));
        QAction *a = action(p.action);
        QVERIFY2(a, p.action);
        // Count the triggers instead of opening the dialogs behind them.
        QObject::disconnect(a, &QAction::triggered, nullptr, nullptr);
        QSignalSpy triggered(a, &QAction::triggered);
        button->click();
        QCOMPARE(triggered.count(), 1);
    }
    auto *menu = mWindow->findChild<QToolButton *>(QStringLiteral("MenuPanelMenu"));
    QVERIFY(menu);
    QCOMPARE(menu->text(), QStringLiteral("Menu"));
    QVERIFY(menu->menu());
    QStringList menus;
    for (QAction *a : menu->menu()->actions())
        menus << a->text();
    QCOMPARE(menus, QStringList({QStringLiteral("&View"), QStringLiteral("&Tools"),
                                 QStringLiteral("&Languages"), QStringLiteral("&Help")}));
}

void TestMainWindow::actionsAndShortcuts()
{
    const struct
    {
        const char *name;
        const char *text;
        const char *shortcut;
    } actions[] = {
        {"actionSettings", "&Settings...", "Ctrl+O"},
        {"actionFullScreen", "Full &Screen", "Ctrl+Alt+S"},
        {"actionLoadTemplate", "Load &Template", "Ctrl+Alt+T"},
        {"actionSaveTemplate", "Save T&emplate", "Ctrl+Alt+A"},
        {"actionVirtualResolution", "&Virtual Resolution", "Ctrl+Alt+V"},
        {"actionGotoDataFolder", "Go to data folder", ""},
        {"actionAbout", "&About", ""},
    };
    for (const auto &a : actions) {
        QAction *found = action(a.name);
        QVERIFY2(found, a.name);
        QCOMPARE(found->text(), QLatin1String(a.text));
        QCOMPARE(found->shortcut().toString(), QLatin1String(a.shortcut));
    }
    QCOMPARE(action("actionSettings")->statusTip(), QStringLiteral("Open a Settings Dialog"));
    QCOMPARE(action("actionVirtualResolution")->toolTip(), QStringLiteral("Virtul Resolution"));

    auto *templates = mWindow->findChild<QMenu *>(QStringLiteral("menuPredefinedTemplates"));
    QVERIFY(templates);
    QCOMPARE(templates->title(), QStringLiteral("&Predefined Templates"));
    QStringList texts;
    for (QAction *a : templates->actions())
        texts << a->text();
    QCOMPARE(texts,
             QStringList({QStringLiteral("Trawler &Week"), QStringLiteral("Trawler &Day"),
                          QStringLiteral("W&ork Template"), QStringLiteral("W&illiams"),
                          QStringLiteral("&Elder Rays"), QStringLiteral("&BollingerBands")}));

    QStringList languages;
    for (const char *code : {"en", "ru", "de"}) {
        QAction *a = action(qPrintable(QStringLiteral("actionLanguage_") + QLatin1String(code)));
        QVERIFY(a);
        QVERIFY(!a->icon().isNull());
        languages << a->text();
    }
    QCOMPARE(languages, QStringList({QStringLiteral("&English"), QStringLiteral("&Russian"),
                                     QStringLiteral("&German")}));
}

void TestMainWindow::signalsOfTheWindow()
{
    QSignalSpy full(mWindow, &MainWindow::showFullScreen);
    mWindow->slotFullScreen();
    QCOMPARE(full.count(), 1);
    QCOMPARE(full.at(0).at(0).toBool(), true);
    QTRY_VERIFY(mWindow->isFullScreen());
    mWindow->slotFullScreen();
    QCOMPARE(full.at(1).at(0).toBool(), false);
    QTRY_VERIFY(!mWindow->isFullScreen());

    QSignalSpy vr(mWindow, &MainWindow::showVirtualResoltionSettings);
    mWindow->slotVR();
    QCOMPARE(vr.count(), 1);
    QDialog *dialog = nullptr;
    QTRY_VERIFY((dialog = mWindow->findChild<QDialog *>()) != nullptr);
    QCOMPARE(dialog->windowTitle(), QStringLiteral("Virtual Resolution"));
    dialog->reject();
}

void TestMainWindow::indicatorListReachesTheViews()
{
    ViewsContainer *views = mWindow->viewsContainer();
    const int panes = views->views().size();
    emit mWindow->indicatorList()->addIndicators({QStringLiteral("RSI")});
    QCOMPARE(views->views().size(), panes + 1);
    QCOMPARE(views->views().last()->indicators().first()->name(), QStringLiteral("RSI"));
    const int overlays = views->chartView()->indicators().size();
    emit mWindow->indicatorList()->addChartIndicators({QStringLiteral("EMA")});
    QCOMPARE(views->chartView()->indicators().size(), overlays + 1);
}

void TestMainWindow::browserSelectionReachesTheViews()
{
    OrdaneBrowser::StockList *list =
        mWindow->storageBrowser()->findChild<OrdaneBrowser::StockList *>();
    QVERIFY(list);
    QVERIFY(list->topLevelItemCount() > 1);
    QTreeWidgetItem *item = list->findSymbol(QStringLiteral("MSFT"));
    QVERIFY(item);
    list->setCurrentItem(item);
    QTRY_VERIFY(!mWindow->viewsContainer()->reader().isNull());
    QCOMPARE(mWindow->viewsContainer()->reader()->symbol(), QStringLiteral("MSFT"));
    // The chart keeps the frame of the set-up (the week template at a first start).
    QCOMPARE(mWindow->viewsContainer()->reader()->timeFrame(), int(OrdaneData::Week));
}

void TestMainWindow::candleGuruReachesTheChart()
{
    QCOMPARE(mWindow->docks().at(3)->widget(), mWindow->candlePanel());
    CandlesPatternLayer *layer = mWindow->viewsContainer()->chartView()->patternLayer();
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

void TestMainWindow::builtinTemplatesFromTheMenu()
{
    auto *templates = mWindow->findChild<QMenu *>(QStringLiteral("menuPredefinedTemplates"));
    for (QAction *a : templates->actions()) {
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
}

void TestMainWindow::setUpKeptBetweenRuns()
{
    // A first start shows the week template.
    QCOMPARE(mWindow->viewsContainer()->currentTemplate().timeFrame, int(OrdaneData::Week));
    QCOMPARE(mWindow->viewsContainer()->views().size(), 4);

    QVERIFY(mWindow->viewsContainer()->slotSetTemplate(QStringLiteral(":/Templates/Williams.tt")));
    mWindow->docks().at(2)->hide();
    mWindow->resize(1111, 777);
    const ChartTemplate before = mWindow->viewsContainer()->currentTemplate();
    mWindow->close();
    QVERIFY(QFile::exists(MainWindow::lastTemplatePath()));
    delete mWindow;

    mWindow = new MainWindow;
    mWindow->show();
    QVERIFY(QTest::qWaitForWindowExposed(mWindow));
    const ChartTemplate after = mWindow->viewsContainer()->currentTemplate();
    QCOMPARE(after.timeFrame, before.timeFrame);
    QCOMPARE(after.chartIndicators, before.chartIndicators);
    QCOMPARE(after.panes, before.panes);
    QVERIFY(!mWindow->docks().at(2)->isVisible());
    QCOMPARE(mWindow->size(), QSize(1111, 777));
}

void TestMainWindow::brokenLastTemplateFallsBackToTheWeek()
{
    delete mWindow;
    QFile file(MainWindow::lastTemplatePath());
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("<Template><TimeFrame>MONTH</Tim");
    file.close();
    mWindow = new MainWindow;
    QCOMPARE(mWindow->restoreLastTemplate(), fallbackTemplate());
    QCOMPARE(mWindow->viewsContainer()->currentTemplate().timeFrame, int(OrdaneData::Week));
}

QTEST_MAIN(TestMainWindow)
#include "test_mainwindow.moc"
