#include "mainwindow.h"

#include "browser/ui/bullwindow.h"
#include "browser/ui/observerwindow.h"
#include "browser/ui/storagebrowser.h"
#include "core/language.h"
#include "core/reminders.h"
#include "core/setting.h"
#include "core/updater.h"
#include "data/home.h"
#include "data/metadata.h"
#include "data/net/datamanager.h"
#include "data/reader.h"
#include "data/ui/quoteservicepage.h"
#include "indicators/ui/candlesexpertpanel.h"
#include "indicators/ui/indicatordialogs.h"
#include "indicators/ui/indicatorfactorywidget.h"
#include "indicators/ui/scriptdebugger.h"
#include "quoteupdates.h"
#include "view/charttemplate.h"
#include "view/ui/viewparameters.h"
#include "view/ui/viewscontainer.h"
#include "widgets/app.h"
#include "widgets/languagepage.h"
#include "widgets/remindersdialog.h"
#include "widgets/settingsdialog.h"
#include "widgets/updaterpage.h"
#include "widgets/updatespage.h"
#include "widgets/virtualresolutiondialog.h"

#include <QActionGroup>
#include <QCloseEvent>
#include <QDesktopServices>
#include <QDir>
#include <QDockWidget>
#include <QHBoxLayout>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QStatusBar>
#include <QTabWidget>
#include <QToolBar>
#include <QToolButton>
#include <QUrl>

namespace Halcyra {

namespace {
const QMWidgets::Setting<QByteArray> kGeometry{QStringLiteral("MainWindow/Geometry"), {}};
const QMWidgets::Setting<QByteArray> kState{QStringLiteral("MainWindow/State"), {}};
// Bumped when the docks change, so that a layout saved by an older build is not applied.
constexpr int kStateVersion = 2;

const struct
{
    const char *text;
    const char *code;
    const char *picture;
} kLanguages[] = {
    {QT_TRANSLATE_NOOP("Halcyra::MainWindow", "&English"), "en", ":/pix/fen.bmp"},
    {QT_TRANSLATE_NOOP("Halcyra::MainWindow", "&Russian"), "ru", ":/pix/fru.bmp"},
    {QT_TRANSLATE_NOOP("Halcyra::MainWindow", "&German"), "de", ":/pix/fde.bmp"},
};
} // namespace

MainWindow::MainWindow(QWidget *parent)
    : QMainWindow(parent)
    , mMeta(new OrdaneData::MetaData(this))
    , mData(new OrdaneData::DataManager(this))
    , mUpdates(new QuoteUpdates(mData, statusBar(), this))
    , mViews(new OrdaneView::ViewsContainer(this))
    , mBrowser(new OrdaneBrowser::StorageBrowser(this))
    , mIndicators(new OrdaneView::IndicatorFactoryWidget(this))
    , mCandles(new OrdaneView::CandlesExpertPanel(this))
    , mObservers(new OrdaneBrowser::ObserverWindow(this))
    , mBulls(new OrdaneBrowser::BullWindow(this))
{
    OrdaneView::installIndicators();
    if (mMeta->open())
        mData->setMetaData(mMeta);
    // A symbol the update rewrote is shown again from its new file.
    connect(mUpdates, &QuoteUpdates::symbolChanged, this, [this](const QString &symbol) {
        const OrdaneData::ReaderH shown = mViews->reader();
        if (!shown.isNull() && shown->symbol() == symbol)
            shown->setSymbol(symbol);
    });
    setObjectName(QStringLiteral("MainWindow"));
    setWindowTitle(QStringLiteral("Halcyra %1").arg(QCoreApplication::applicationVersion()));
    setDockNestingEnabled(true);
    setDockOptions(AnimatedDocks | AllowNestedDocks | AllowTabbedDocks);

    // The work area is all docks; the chart dock takes the room a central widget would.
    QDockWidget *work =
        addDock(QStringLiteral("WorkAreaDock"), tr("Work Area"), mViews, Qt::RightDockWidgetArea);
    QDockWidget *browser =
        addDock(QStringLiteral("BrowserDock"), tr("Browser"), mBrowser, Qt::LeftDockWidgetArea);
    QDockWidget *indicators = addDock(QStringLiteral("IndicatorsDock"), tr("Indicators"),
                                      mIndicators, Qt::LeftDockWidgetArea);
    QDockWidget *candles = addDock(QStringLiteral("CandleGuruDock"), tr("Candle Guru"), mCandles,
                                   Qt::LeftDockWidgetArea);
    splitDockWidget(browser, work, Qt::Horizontal);
    splitDockWidget(browser, indicators, Qt::Vertical);
    tabifyDockWidget(indicators, candles);
    auto *observers = new QTabWidget(this);
    observers->setObjectName(QStringLiteral("ObserverTabs"));
    observers->addTab(mObservers, tr("Observer"));
    observers->addTab(mBulls, tr("Bulls"));
    QDockWidget *observer =
        addDock(QStringLiteral("ObserverDock"), tr("Observer"), observers, Qt::LeftDockWidgetArea);
    tabifyDockWidget(candles, observer);
    indicators->raise();

    // What scripts say, and their errors, come up over this window.
    OrdaneView::showScriptMessagesIn(this);
    buildMenus();
    buildMenuPanel();

    // In the stated order.
    connect(mViews, &OrdaneView::ViewsContainer::templateChanged, this,
            &MainWindow::slotTemplateChanged);
    connect(mIndicators, &OrdaneView::IndicatorFactoryWidget::addIndicators, mViews,
            &OrdaneView::ViewsContainer::slotTriggerNewIndicatorView);
    connect(mIndicators, &OrdaneView::IndicatorFactoryWidget::addChartIndicators, mViews,
            &OrdaneView::ViewsContainer::slotTriggerChartIndicators);
    connect(mIndicators, &OrdaneView::IndicatorFactoryWidget::debugChartIndicator, mViews,
            &OrdaneView::ViewsContainer::slotDebugChartIndicator);
    connect(mIndicators, &OrdaneView::IndicatorFactoryWidget::debugIndicator, mViews,
            &OrdaneView::ViewsContainer::slotDebugIndicator);
    connect(mCandles, &OrdaneView::CandlesExpertPanel::required, mViews,
            &OrdaneView::ViewsContainer::slotSetCandlePatternRequirments);
    connect(mCandles, &OrdaneView::CandlesExpertPanel::strengthChanged, mViews,
            &OrdaneView::ViewsContainer::slotSetCandlePatternStrength);
    connect(mCandles, &OrdaneView::CandlesExpertPanel::blendingChanged, mViews,
            &OrdaneView::ViewsContainer::slotSetCandlePatternBlending);
    connect(mCandles, &OrdaneView::CandlesExpertPanel::showCandlePatterns, mViews,
            &OrdaneView::ViewsContainer::slotShowCandlePatterns);
    // The panel's choices from the last run.
    mViews->slotSetCandlePatternRequirments(mCandles->requiredPatterns());
    mViews->slotSetCandlePatternStrength(mCandles->strength());
    mViews->slotSetCandlePatternBlending(mCandles->isBlending());
    mViews->slotShowCandlePatterns(mCandles->isActive());

    for (OrdaneBrowser::ObserverWindow *list :
         {mObservers, static_cast<OrdaneBrowser::ObserverWindow *>(mBulls)})
        connect(list, &OrdaneBrowser::ObserverWindow::observerItemSeletected, mViews,
                &OrdaneView::ViewsContainer::slotSetReader);
    connect(mBrowser, &OrdaneBrowser::StorageBrowser::pairSelected, mViews,
            &OrdaneView::ViewsContainer::slotShowPair);
    connect(mBrowser, &OrdaneBrowser::StorageBrowser::message, this,
            [this](const QString &text) { statusBar()->showMessage(text, 8000); });
    connect(mBrowser, &OrdaneBrowser::StorageBrowser::chartItemSeletected, mViews,
            &OrdaneView::ViewsContainer::slotSetReader);
    // While simulating no current price reaches the chart, and the chart shows daily bars, one
    // more each simulated day.
    connect(mBrowser, &OrdaneBrowser::StorageBrowser::simulatorOff, mViews,
            &OrdaneView::ViewsContainer::slotEnablePriceUpdates);
    connect(mBrowser, &OrdaneBrowser::StorageBrowser::simulatorOff, mViews, [this](bool off) {
        if (!off)
            mViews->slotSetDayFrameMode();
    });
    connect(mViews, &OrdaneView::ViewsContainer::message, this,
            [this](const QString &text) { statusBar()->showMessage(text, 8000); });
    connect(this, &MainWindow::showFullScreen, this, [this](bool on) {
        if (on)
            QWidget::showFullScreen();
        else
            showNormal();
    });
    connect(this, &MainWindow::showVirtualResoltionSettings, this, [this] {
        auto *dialog = new QMWidgets::VirtualResolutionDialog(this);
        dialog->setAttribute(Qt::WA_DeleteOnClose);
        dialog->open();
    });
    if (auto *app = QMWidgets::App::instance())
        connect(app->reminders(), &QMWidgets::Reminders::remind, this, &MainWindow::showReminder);

    resize(1280, 800);
    restoreGeometry(kGeometry.value());

    statusBar()->showMessage(QDir::toNativeSeparators(OrdaneData::Home::path()), 8000);
    // After the home folder's note, so that indicators the set-up lost are what it shows.
    restoreLastTemplate();
    mBrowser->setDataManager(mData);
    mBrowser->setMetaData(mMeta);
    mBrowser->loadLastKnown();
    // The store catches up in the background when there is a quote service to ask.
    if (mData->service().hasTables())
        slotUpdateQuotes();
}

QDockWidget *MainWindow::addDock(const QString &objectName, const QString &title, QWidget *content,
                                 Qt::DockWidgetArea area)
{
    auto *dock = new QDockWidget(title, this);
    dock->setObjectName(objectName);
    dock->setWidget(content);
    dock->setFeatures(QDockWidget::DockWidgetMovable | QDockWidget::DockWidgetFloatable |
                      QDockWidget::DockWidgetClosable);
    addDockWidget(area, dock);
    mDocks.append(dock);
    return dock;
}

void MainWindow::buildMenus()
{
    const auto action = [this](QMenu *menu, const QString &objectName, const QString &text,
                               const QKeySequence &shortcut = {}) {
        QAction *a = menu->addAction(text);
        a->setObjectName(objectName);
        a->setShortcut(shortcut);
        return a;
    };

    QMenu *view = menuBar()->addMenu(tr("&View"));
    QAction *a = action(view, QStringLiteral("actionFullScreen"), tr("Full &Screen"),
                        QKeySequence(QStringLiteral("CTRL+ALT+S")));
    connect(a, &QAction::triggered, this, &MainWindow::slotFullScreen);
    mPanelActions.fullScreen = a;
    a = action(view, QStringLiteral("actionVirtualResolution"), tr("&Virtual Resolution"),
               QKeySequence(QStringLiteral("CTRL+ALT+V")));
    mPanelActions.virtualResolution = a;
    // The tip is spelled so on purpose; keep.
    a->setToolTip(tr("Virtul Resolution"));
    a->setStatusTip(tr("Virtul Resolution"));
    connect(a, &QAction::triggered, this, &MainWindow::slotVR);
    view->addSeparator();
    a = action(view, QStringLiteral("actionLoadTemplate"), tr("Load &Template"),
               QKeySequence(QStringLiteral("CTRL+ALT+T")));
    connect(a, &QAction::triggered, mViews, &OrdaneView::ViewsContainer::slotLoadTemplate);
    mPanelActions.loadTemplate = a;
    a = action(view, QStringLiteral("actionSaveTemplate"), tr("Save T&emplate"),
               QKeySequence(QStringLiteral("CTRL+ALT+A")));
    connect(a, &QAction::triggered, mViews, &OrdaneView::ViewsContainer::slotSaveTemplate);
    mPanelActions.saveTemplate = a;
    QMenu *templates = view->addMenu(tr("&Predefined Templates"));
    templates->setObjectName(QStringLiteral("menuPredefinedTemplates"));
    for (const OrdaneView::BuiltinTemplate &t : OrdaneView::builtinTemplates()) {
        QAction *entry = templates->addAction(
            QCoreApplication::translate("OrdaneView::ChartTemplate", t.menuText));
        entry->setData(QLatin1String(t.resource));
        connect(entry, &QAction::triggered, this, &MainWindow::slotSetTemplate);
    }
    view->addSeparator();
    for (QDockWidget *dock : qAsConst(mDocks))
        view->addAction(dock->toggleViewAction());

    QMenu *tools = menuBar()->addMenu(tr("&Tools"));
    a = action(tools, QStringLiteral("actionSettings"), tr("&Settings..."),
               QKeySequence(QStringLiteral("CTRL+O")));
    a->setStatusTip(tr("Open a Settings Dialog"));
    connect(a, &QAction::triggered, this, &MainWindow::slotSettings);
    mPanelActions.settings = a;
    a = action(tools, QStringLiteral("actionReminders"), tr("&Reminders..."));
    connect(a, &QAction::triggered, this, &MainWindow::slotReminders);
    a = action(tools, QStringLiteral("actionCheckUpdates"), tr("Check for &Updates..."));
    connect(a, &QAction::triggered, this, &MainWindow::slotCheckUpdates);
    a = action(tools, QStringLiteral("actionUpdateQuotes"), tr("Update &Quotes"),
               QKeySequence(QStringLiteral("CTRL+U")));
    a->setStatusTip(tr("Bring every stored symbol up to date from the quote service"));
    connect(a, &QAction::triggered, this, &MainWindow::slotUpdateQuotes);
    a = action(tools, QStringLiteral("actionGotoDataFolder"), tr("Go to data folder"));
    connect(a, &QAction::triggered, this, &MainWindow::slotGotoDataFolder);
    tools->addSeparator();
    a = action(tools, QStringLiteral("actionQuit"), tr("&Quit"), QKeySequence::Quit);
    connect(a, &QAction::triggered, this, &QWidget::close);

    QMenu *languages = menuBar()->addMenu(tr("&Languages"));
    auto *group = new QActionGroup(this);
    const QString current = QMWidgets::interfaceLanguage();
    for (const auto &language : kLanguages) {
        a = languages->addAction(QIcon(QLatin1String(language.picture)), tr(language.text));
        a->setObjectName(QStringLiteral("actionLanguage_") + QLatin1String(language.code));
        a->setData(QLatin1String(language.code));
        a->setCheckable(true);
        a->setChecked(current == QLatin1String(language.code));
        group->addAction(a);
        connect(a, &QAction::triggered, this, &MainWindow::slotLanguageChanged);
    }

    QMenu *help = menuBar()->addMenu(tr("&Help"));
    a = action(help, QStringLiteral("actionAbout"), tr("&About"));
    connect(a, &QAction::triggered, this, &MainWindow::slotAbout);
    mPanelActions.help = a;

    mMainMenu = new QMenu(this);
    for (QMenu *menu : {view, tools, languages, help})
        mMainMenu->addMenu(menu);
}

void MainWindow::buildMenuPanel()
{
    auto *panel = new QToolBar(tr("Menu Panel"), this);
    panel->setObjectName(QStringLiteral("MenuPanel"));
    panel->setMovable(false);
    panel->setFloatable(false);
    panel->setToolButtonStyle(Qt::ToolButtonTextOnly);
    addToolBar(Qt::TopToolBarArea, panel);

    const auto button = [this, panel](const char *objectName, const QString &caption,
                                      QAction *action) {
        auto *b = new QToolButton(panel);
        b->setObjectName(QLatin1String(objectName));
        b->setText(caption);
        b->setAutoRaise(true);
        panel->addWidget(b);
        if (action) {
            b->setToolTip(action->text().remove(QLatin1Char('&')));
            connect(b, &QToolButton::clicked, action, &QAction::trigger);
        }
        return b;
    };
    QToolButton *menu = button("MenuPanelMenu", tr("Menu"), nullptr);
    menu->setMenu(mMainMenu);
    menu->setPopupMode(QToolButton::InstantPopup);
    button("MenuPanelSettings", tr("Settings"), mPanelActions.settings);
    button("MenuPanelFullScreen", tr("Full Screen"), mPanelActions.fullScreen);
    button("MenuPanelVirtualResolution", tr("Virtual Resolution"), mPanelActions.virtualResolution);
    button("MenuPanelLoadTemplate", tr("Load Template"), mPanelActions.loadTemplate);
    button("MenuPanelSaveTemplate", tr("Save Template"), mPanelActions.saveTemplate);
    button("MenuPanelHelp", tr("Help"), mPanelActions.help);
}

QString MainWindow::lastTemplatePath()
{
    return OrdaneView::ViewsContainer::templatesFolder() + QStringLiteral("/lasttemplate.tt");
}

bool MainWindow::saveLastTemplate(QString *error) const
{
    QDir().mkpath(OrdaneView::ViewsContainer::templatesFolder());
    return mViews->saveTemplate(lastTemplatePath(), error);
}

QString MainWindow::restoreLastTemplate()
{
    OrdaneView::ChartTemplate t;
    QString path = lastTemplatePath();
    if (!QFile::exists(path) || !OrdaneView::readTemplateFile(path, &t)) {
        path = OrdaneView::fallbackTemplate();
        OrdaneView::readTemplateFile(path, &t);
    }
    mViews->reportLeftOut(mViews->applyTemplate(t));
    return path;
}

void MainWindow::showEvent(QShowEvent *event)
{
    QMainWindow::showEvent(event);
    // The docks' sizes are restored only once the window has its own size: restored into a
    // window not yet shown, the docks share space the window does not have yet, and with no
    // central widget to take up the difference they come back far from what they were.
    if (!mStateRestored) {
        mStateRestored = true;
        // A first start lays the docks out for the window it has: the browser gets most of
        // the left column, the chart the rest of the width.
        if (!restoreState(kState.value(), kStateVersion)) {
            resizeDocks({mDocks.at(1), mDocks.at(0)}, {width() * 3 / 10, width() * 7 / 10},
                        Qt::Horizontal);
            resizeDocks({mDocks.at(1), mDocks.at(2)}, {height() * 6 / 10, height() * 4 / 10},
                        Qt::Vertical);
        }
    }
}

void MainWindow::closeEvent(QCloseEvent *event)
{
    // Scripts with unsaved changes: the user may still keep them, or stay.
    if (!mIndicators->closeEditors()) {
        event->ignore();
        return;
    }
    mBrowser->slotSaveLastKnownSymbols();
    kGeometry.setValue(saveGeometry());
    // A window never shown has not restored the docks it would overwrite.
    if (mStateRestored)
        kState.setValue(saveState(kStateVersion));
    QString error;
    if (!saveLastTemplate(&error))
        qWarning("The chart set-up could not be kept: %s", qPrintable(error));
    QMainWindow::closeEvent(event);
}

void MainWindow::slotSettings()
{
    QMWidgets::SettingsDialog dialog(this);
    auto *colours = new OrdaneView::ViewSettings;
    connect(colours, &OrdaneView::ViewSettings::applied, mViews,
            &OrdaneView::ViewsContainer::slotUpdate);
    dialog.addPage(colours, tr("Chart Colours"), QIcon(QStringLiteral(":/pix/chart_candle.png")));
    auto *language = new QMWidgets::LanguagePage;
    dialog.addPage(language, tr("Language"), QIcon(QStringLiteral(":/pix/fen.bmp")));
    dialog.addPage(new OrdaneData::QuoteServicePage, tr("Quote Service"),
                   QIcon(QStringLiteral(":/pix/uptick.png")));
    dialog.addPage(new QMWidgets::UpdatesPage, tr("Updates"), QIcon(QStringLiteral(":/app.png")));
    dialog.exec();
}

void MainWindow::slotFullScreen()
{
    emit showFullScreen(!isFullScreen());
}

void MainWindow::slotVR()
{
    emit showVirtualResoltionSettings();
}

void MainWindow::slotSetTemplate()
{
    if (auto *a = qobject_cast<QAction *>(sender()))
        mViews->slotSetTemplate(a->data().toString());
}

void MainWindow::slotLanguageChanged()
{
    auto *a = qobject_cast<QAction *>(sender());
    if (!a)
        return;
    QMWidgets::storeLanguage(a->data().toString());
    QMWidgets::tellLanguageChanged(this);
}

void MainWindow::slotTemplateChanged()
{
    statusBar()->showMessage(tr("Template loaded"), 4000);
}

void MainWindow::slotGotoDataFolder()
{
    QDesktopServices::openUrl(QUrl::fromLocalFile(OrdaneData::Home::path()));
}

void MainWindow::slotAbout()
{
    QMessageBox::about(
        this, tr("About Halcyra"),
        tr("<h3>Halcyra %1</h3><p>Technical analysis of end-of-day stock quotes.</p>"
           "<p>Home folder: %2</p><p>Released under the MIT License.</p>")
            .arg(QCoreApplication::applicationVersion(),
                 QDir::toNativeSeparators(OrdaneData::Home::path()).toHtmlEscaped()));
}

void MainWindow::slotReminders()
{
    auto *app = QMWidgets::App::instance();
    if (!app)
        return;
    auto *dialog = new QMWidgets::RemindersDialog(app->reminders(), this);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->show();
}

void MainWindow::slotCheckUpdates()
{
    auto *app = QMWidgets::App::instance();
    if (!app)
        return;
    auto *page = new QMWidgets::UpdaterPage(app->updater(), this);
    page->setAttribute(Qt::WA_DeleteOnClose);
    page->show();
    app->updater()->search();
}

void MainWindow::slotUpdateQuotes()
{
    mUpdates->start(OrdaneData::Home::storedSymbols());
}

void MainWindow::showReminder(const QString &text)
{
    QMessageBox::information(this, tr("Reminder"), text);
}

} // namespace Halcyra
