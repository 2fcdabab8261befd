#pragma once

#include <QMainWindow>

class QAction;
class QDockWidget;
class QMenu;

namespace OrdaneData {
class DataManager;
class MetaData;
} // namespace OrdaneData
namespace OrdaneBrowser {
class BullWindow;
class ObserverWindow;
class StorageBrowser;
} // namespace OrdaneBrowser
namespace OrdaneView {
class CandlesExpertPanel;
class IndicatorFactoryWidget;
class ViewsContainer;
} // namespace OrdaneView

namespace Halcyra {

class QuoteUpdates;

// The program's one top-level window. Its work area is five docks: "Work Area" (the chart
// views), "Browser" (the stored symbols), "Indicators" (the indicator list), "Candle Guru"
// (the candle-pattern panel) and "Observer" (the observer lists). Above them the menu panel,
// a row of buttons for the most used actions; the menus "&View", "&Tools", "&Languages" and
// "&Help" hold every action.
//
// The window's geometry and dock layout, and the chart set-up (as the template
// "lasttemplate.tt" in the templates folder), are kept when the window closes and
// restored when the next one opens.
class MainWindow : public QMainWindow
{
    Q_OBJECT

public:
    explicit MainWindow(QWidget *parent = nullptr);

    OrdaneView::ViewsContainer *viewsContainer() const { return mViews; }
    OrdaneBrowser::StorageBrowser *storageBrowser() const { return mBrowser; }
    OrdaneView::IndicatorFactoryWidget *indicatorList() const { return mIndicators; }
    OrdaneView::CandlesExpertPanel *candlePanel() const { return mCandles; }
    OrdaneBrowser::ObserverWindow *observerList() const { return mObservers; }
    OrdaneBrowser::BullWindow *bullList() const { return mBulls; }
    OrdaneData::DataManager *dataManager() const { return mData; }
    QuoteUpdates *quoteUpdates() const { return mUpdates; }
    // The docks in the order "Work Area", "Browser", "Indicators", "Candle Guru", "Observer".
    QList<QDockWidget *> docks() const { return mDocks; }

    // Where the chart set-up is kept between runs.
    static QString lastTemplatePath();
    // Writes the current set-up there; false (and *error) when it cannot be written.
    bool saveLastTemplate(QString *error = nullptr) const;
    // Applies the kept set-up, or the week template when there is none or it cannot be
    // read. Returns the path applied.
    QString restoreLastTemplate();

signals:
    // Full screen was asked on (true) or off (false).
    void showFullScreen(bool on);
    // The virtual-resolution settings were asked for.
    // Spelled so in the interface; keep.
    void showVirtualResoltionSettings();

public slots:
    void slotSettings();
    void slotFullScreen();
    void slotVR();
    // Loads the built-in template of the sending action.
    void slotSetTemplate();
    // Stores the language of the sending action; it takes effect at the next start.
    void slotLanguageChanged();
    void slotGotoDataFolder();
    void slotAbout();
    void slotTemplateChanged();
    void slotReminders();
    void slotCheckUpdates();
    // Brings every stored symbol up to date in the background.
    void slotUpdateQuotes();

protected:
    void showEvent(QShowEvent *event) override;
    void closeEvent(QCloseEvent *event) override;

private:
    QDockWidget *addDock(const QString &objectName, const QString &title, QWidget *content,
                         Qt::DockWidgetArea area);
    void buildMenus();
    void buildMenuPanel();
    void showReminder(const QString &text);

    OrdaneData::MetaData *mMeta;
    OrdaneData::DataManager *mData;
    QuoteUpdates *mUpdates;
    OrdaneView::ViewsContainer *mViews;
    OrdaneBrowser::StorageBrowser *mBrowser;
    OrdaneView::IndicatorFactoryWidget *mIndicators;
    OrdaneView::CandlesExpertPanel *mCandles;
    OrdaneBrowser::ObserverWindow *mObservers;
    OrdaneBrowser::BullWindow *mBulls;
    QList<QDockWidget *> mDocks;
    bool mStateRestored = false;
    QMenu *mMainMenu = nullptr; // every menu, for the panel's "Menu" button
    // The menu actions the panel's buttons trigger.
    struct
    {
        QAction *settings = nullptr;
        QAction *fullScreen = nullptr;
        QAction *virtualResolution = nullptr;
        QAction *loadTemplate = nullptr;
        QAction *saveTemplate = nullptr;
        QAction *help = nullptr;
    } mPanelActions;
};

} // namespace Halcyra
