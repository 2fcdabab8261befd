#include "stocklist.h"

#include <QHeaderView>
#include <QIcon>

namespace OrdaneBrowser {

StockList::StockList(QWidget *parent)
    : QTreeWidget(parent)
{
    setObjectName(QStringLiteral("StockList"));
    setColumnCount(5);
    setHeaderLabels({QString(), QString(), tr("Symbol"), tr("Name"), tr("Stock exchange")});
    // The pointer and check box columns are narrower than a style's usual smallest section.
    header()->setMinimumSectionSize(18);
    const int widths[] = {18, 22, 60, 120, 50};
    for (int c = 0; c < 5; ++c)
        setColumnWidth(c, widths[c]);
    setRootIsDecorated(false);
    setSelectionMode(QAbstractItemView::SingleSelection);
    setSortingEnabled(true);
    sortByColumn(SymbolColumn, Qt::AscendingOrder);
    setDragEnabled(true);
    setDragDropMode(QAbstractItemView::DragOnly);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);

    connect(this, &QTreeWidget::currentItemChanged, this, &StockList::movePointer);
}

QTreeWidgetItem *StockList::findSymbol(const QString &symbol) const
{
    for (int i = 0; i < topLevelItemCount(); ++i) {
        QTreeWidgetItem *row = topLevelItem(i);
        if (row->text(SymbolColumn) == symbol)
            return row;
    }
    return nullptr;
}

QStringList StockList::symbols() const
{
    QStringList result;
    result.reserve(topLevelItemCount());
    for (int i = 0; i < topLevelItemCount(); ++i)
        result << topLevelItem(i)->text(SymbolColumn);
    return result;
}

QTreeWidgetItem *StockList::addSymbol(const QString &symbol, const QString &name,
                                      const QString &exchange)
{
    // Filled before it joins the list, so that a sorted list places it once.
    auto *row = new QTreeWidgetItem;
    row->setFlags(Qt::ItemIsSelectable | Qt::ItemIsDragEnabled | Qt::ItemIsEnabled |
                  Qt::ItemIsUserCheckable);
    row->setCheckState(CheckColumn, Qt::Unchecked);
    row->setText(SymbolColumn, symbol);
    row->setText(NameColumn, name);
    row->setText(ExchangeColumn, exchange);
    addTopLevelItem(row);
    return row;
}

void StockList::movePointer(QTreeWidgetItem *current, QTreeWidgetItem *previous)
{
    // Removing the role (rather than setting an empty icon) leaves the other rows exactly
    // as new rows are.
    if (previous)
        previous->setData(PointerColumn, Qt::DecorationRole, QVariant());
    if (current)
        current->setIcon(PointerColumn, QIcon(QStringLiteral(":/pix/pointer10x10down.png")));
}

} // namespace OrdaneBrowser
