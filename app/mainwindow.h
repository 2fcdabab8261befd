#pragma once

#include <QMainWindow>

class QTreeWidget;
class QTreeWidgetItem;

namespace Halcyra {

// The program's one top-level window. For now it shows the stored symbols with their
// extent and opens a symbol's file for editing; the chart work area and its docks
// take its centre later.
class MainWindow : public QMainWindow
{
    Q_OBJECT

public:
    explicit MainWindow(QWidget *parent = nullptr);

    QTreeWidget *storedSymbols() const { return mSymbols; }

public slots:
    void slotFillStoredSymbols();
    void slotGotoDataFolder();
    void slotAbout();
    void slotReminders();
    void slotCheckUpdates();

private:
    void editSymbol(QTreeWidgetItem *item);
    void showReminder(const QString &text);

    QTreeWidget *mSymbols;
};

} // namespace Halcyra
