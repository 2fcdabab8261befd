#pragma once

#include "data/readerh.h"

#include <QWidget>

class QLabel;
class QTreeWidgetItem;

namespace OrdaneBrowser {

class StockList;
class FolderSource;

// The docked panel of stored symbols: the symbol list over the "%1 Items" count.
//
// Making a row current (by mouse or keyboard) loads that symbol's stored daily series
// into a new Reader and emits chartItemSeletected() with its handle. A symbol whose file
// cannot be read leaves its reason in statusText() and emits nothing.
//
// The index of the current row is kept in the setting "selecteditem" whenever it changes
// and when the application quits; restoreSelection() brings it back after a fill.
class StorageBrowser : public QWidget
{
    Q_OBJECT

public:
    // Lists the storage folder of the home folder as it is now.
    explicit StorageBrowser(QWidget *parent = nullptr);
    // Lists `storageFolder` instead; empty means the home's storage folder.
    explicit StorageBrowser(const QString &storageFolder, QWidget *parent = nullptr);

    StockList *stockList() const { return mList; }
    QString storageFolder() const { return mFolder; }
    // Why the last selected symbol could not be loaded; empty after a successful load.
    QString statusText() const;

    // Adds a row for `symbol` unless one is listed already; updates the count and emits
    // itemChanged() when a row was added. Returns the symbol's row.
    QTreeWidgetItem *addSymbol(const QString &symbol, const QString &name = QString(),
                               const QString &exchange = QString());

    // Makes the row stored in "selecteditem" current, or the first row when that index is
    // not in the list; the list's change of row then loads and emits the series. Does
    // nothing on an empty list.
    void restoreSelection();
    // Stores the index of the current row in "selecteditem"; nothing when no row is current.
    void saveSelection() const;

public slots:
    // Lists the storage folder anew: one row per file matching "*.*" (subfolders and names
    // without a dot are left out), named by the file name up to its last ".".
    void slotFillChartItems();
    // Loads the row's symbol and emits chartItemSeletected(); a null item is ignored.
    void slotChartItemActivated(QTreeWidgetItem *item, int column);

signals:
    // Spelled so in the interface other parts connect to; keep.
    void chartItemSeletected(OrdaneData::ReaderH reader);
    // After the list was filled or a row added.
    void itemChanged();

private:
    void editQuotes(QTreeWidgetItem *item);
    void fitSymbolColumn();
    void updateCount();
    void showStatus(const QString &text);

    QString mFolder;
    FolderSource *mSource;
    StockList *mList;
    QLabel *mCount;
    QLabel *mStatus;
};

} // namespace OrdaneBrowser
