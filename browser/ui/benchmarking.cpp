#include "benchmarking.h"

#include "data/metadata.h"
#include "stocklist.h"
#include "storagebrowser.h"

#include <QHeaderView>
#include <QLabel>
#include <QPainter>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace OrdaneBrowser {

Benchmarking::Benchmarking(QWidget *parent, Qt::WindowFlags flags)
    : QWidget(parent, flags)
    , mHeading(new QLabel(tr("<H2>Compare with selected:</H2>"), this))
    , mTree(new QTreeWidget(this))
{
    setObjectName(QStringLiteral("Benchmarking"));
    setWindowTitle(tr("Benchmarking"));
    mHeading->setObjectName(QStringLiteral("BenchmarkingHeading"));
    mHeading->setTextFormat(Qt::RichText);
    // Light on the black background, whatever the palette around it.
    QPalette light = mHeading->palette();
    light.setColor(QPalette::WindowText, Qt::white);
    mHeading->setPalette(light);

    mTree->setObjectName(QStringLiteral("BenchmarkingList"));
    mTree->setColumnCount(3);
    mTree->setHeaderLabels({tr("Symbol"), tr("Name"), tr("Stock exchange")});
    mTree->setRootIsDecorated(false);
    mTree->setUniformRowHeights(true);
    mTree->setSelectionMode(QAbstractItemView::SingleSelection);
    mTree->header()->setStretchLastSection(true);
    connect(mTree, &QTreeWidget::itemSelectionChanged, this, &Benchmarking::slotItemChanged);

    auto *layout = new QVBoxLayout(this);
    layout->addWidget(mHeading);
    layout->addWidget(mTree, 1);
    resize(420, 360);
}

StorageBrowser *Benchmarking::browser() const
{
    for (QWidget *w = parentWidget(); w; w = w->parentWidget())
        if (auto *found = qobject_cast<StorageBrowser *>(w))
            return found;
    return nullptr;
}

void Benchmarking::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    StorageBrowser *target = browser();
    if (!target)
        return;
    connect(target, &StorageBrowser::itemChanged, this, &Benchmarking::slotUnselectAll,
            Qt::UniqueConnection);
    connect(target->stockList(), &QTreeWidget::currentItemChanged, this,
            &Benchmarking::slotUnselectAll, Qt::UniqueConnection);
    fill(target);
}

void Benchmarking::fill(StorageBrowser *target)
{
    const QSignalBlocker quiet(mTree);
    mTree->clear();
    const StockList *list = target->stockList();
    for (int i = 0; i < list->topLevelItemCount(); ++i) {
        const QTreeWidgetItem *row = list->topLevelItem(i);
        const QString symbol = row->text(StockList::SymbolColumn);
        QString name = row->text(StockList::NameColumn);
        QString exchange = row->text(StockList::ExchangeColumn);
        const QMap<QString, QString> record =
            mMeta ? mMeta->record(symbol) : QMap<QString, QString>();
        if (!record.isEmpty()) {
            name = record.value(QStringLiteral("name"));
            exchange = record.value(QStringLiteral("exchange"));
        }
        new QTreeWidgetItem(mTree, {symbol, name, exchange});
    }
    mTree->resizeColumnToContents(SymbolColumn);
    mTree->resizeColumnToContents(NameColumn);
}

void Benchmarking::slotUnselectAll()
{
    mTree->clearSelection();
}

void Benchmarking::slotItemChanged()
{
    const QList<QTreeWidgetItem *> selected = mTree->selectedItems();
    if (!selected.isEmpty())
        emit pair(selected.constFirst()->text(SymbolColumn));
}

void Benchmarking::paintEvent(QPaintEvent *event)
{
    Q_UNUSED(event)
    QPainter(this).fillRect(rect(), Qt::black);
}

} // namespace OrdaneBrowser
