#pragma once

#include <QMainWindow>

class QTreeWidget;
class QTreeWidgetItem;

namespace OrdaneView {
class ViewsContainer;
}

namespace Halcyra {

// The program's one top-level window: the stored symbols beside the chart area. A
// double-click charts a symbol; its context menu edits the stored quotes.
class MainWindow : public QMainWindow
{
    Q_OBJECT

public:
    explicit MainWindow(QWidget *parent = nullptr);

    QTreeWidget *storedSymbols() const { return mSymbols; }
    OrdaneView::ViewsContainer *viewsContainer() const { return mViews; }

public slots:
    void slotFillStoredSymbols();
    void slotGotoDataFolder();
    void slotAbout();
    void slotReminders();
    void slotCheckUpdates();

private:
    void editSymbol(const QString &symbol);
    // Asks for a built-in indicator and adds it in a new pane or over the chart.
    void addIndicator(bool overChart);
    void showReminder(const QString &text);

    QTreeWidget *mSymbols;
    OrdaneView::ViewsContainer *mViews;
};

} // namespace Halcyra
