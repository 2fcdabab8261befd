#pragma once

#include <QStringList>
#include <QTreeWidget>

namespace OrdaneBrowser {

// The browser's list of symbols: one top-level row per symbol, identified by the text of
// its Symbol column. The current row carries the pointer picture in its first column; no
// other row shows it. Rows are checkable, draggable and sorted by symbol at the start.
class StockList : public QTreeWidget
{
    Q_OBJECT

public:
    enum Column {
        PointerColumn = 0,
        CheckColumn = 1,
        SymbolColumn = 2,
        NameColumn = 3,
        ExchangeColumn = 4,
    };

    explicit StockList(QWidget *parent = nullptr);

    // The first top-level row, in the current row order, whose symbol is `symbol`
    // (compared exactly), or nullptr.
    QTreeWidgetItem *findSymbol(const QString &symbol) const;

    // The symbols of all rows, checked or not, in the current row order.
    QStringList symbols() const;

    // Appends an unchecked row (sorting puts it in its place when on) and returns it. Does
    // not look for an existing row of the same symbol.
    QTreeWidgetItem *addSymbol(const QString &symbol, const QString &name = QString(),
                               const QString &exchange = QString());

private:
    void movePointer(QTreeWidgetItem *current, QTreeWidgetItem *previous);
};

} // namespace OrdaneBrowser
