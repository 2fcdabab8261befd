#include "observerlist.h"

#include <QDataStream>
#include <QDropEvent>
#include <QHash>
#include <QIcon>
#include <QKeyEvent>
#include <QMap>
#include <QMimeData>
#include <QPainter>
#include <QRegularExpression>

namespace OrdaneBrowser {

namespace {

const QString kItemList = QStringLiteral("application/x-qabstractitemmodeldatalist");
// The storage browser's Symbol column.
const int kBrowserSymbolColumn = 2;

// A symbol names a file in the storage folder; text that holds a path or an address (a
// file dragged from a file manager arrives as "file:///...") is none.
bool isSymbol(const QString &text)
{
    static const QRegularExpression pathLike(QStringLiteral("[/\\\\:]"));
    return !text.isEmpty() && !text.contains(pathLike);
}

// The symbols of an item view's drag: one per row, in the order the rows come.
QStringList symbolsOfItems(QByteArray encoded)
{
    QDataStream stream(&encoded, QIODevice::ReadOnly);
    QVector<int> order;
    QHash<int, QMap<int, QString>> rows;
    while (!stream.atEnd()) {
        int row = 0, column = 0;
        QMap<int, QVariant> roles;
        stream >> row >> column >> roles;
        if (stream.status() != QDataStream::Ok)
            break;
        if (!rows.contains(row))
            order << row;
        rows[row].insert(column, roles.value(Qt::DisplayRole).toString());
    }
    QStringList symbols;
    for (const int row : qAsConst(order)) {
        const QMap<int, QString> &columns = rows[row];
        // A row of the storage browser names its symbol in the Symbol column; an item of a
        // one-column list, such as another observer list, is the symbol.
        if (columns.contains(kBrowserSymbolColumn))
            symbols << columns.value(kBrowserSymbolColumn).trimmed();
        else if (columns.size() == 1 && columns.contains(0))
            symbols << columns.value(0).trimmed();
    }
    return symbols;
}

} // namespace

ObserverList::ObserverList(QWidget *parent)
    : QListWidget(parent)
    , mPicture(QStringLiteral(":/pix/bearicon.bmp"))
{
    setObjectName(QStringLiteral("ObserverList"));
    setSelectionMode(QAbstractItemView::ExtendedSelection);
    setSortingEnabled(true);
    setIconSize(QSize(16, 16));
    setDragDropMode(QAbstractItemView::DragDrop);
    setDefaultDropAction(Qt::CopyAction);
    setAcceptDrops(true);
}

// The picture as it is in every state: a selected row keeps its head in its colours rather
// than the tinted form an icon gets for selection by default.
QIcon ObserverList::itemIcon() const
{
    const QPixmap pixmap(mPicture);
    QIcon icon;
    icon.addPixmap(pixmap, QIcon::Normal);
    icon.addPixmap(pixmap, QIcon::Selected);
    return icon;
}

void ObserverList::setPicture(const QString &resource)
{
    mPicture = resource;
    const QIcon icon = itemIcon();
    for (int i = 0; i < count(); ++i)
        item(i)->setIcon(icon);
}

QStringList ObserverList::symbols() const
{
    QStringList result;
    result.reserve(count());
    for (int i = 0; i < count(); ++i)
        result << item(i)->text();
    return result;
}

QStringList ObserverList::selectedSymbols() const
{
    QStringList result;
    for (int i = 0; i < count(); ++i)
        if (item(i)->isSelected())
            result << item(i)->text();
    return result;
}

QListWidgetItem *ObserverList::findSymbol(const QString &symbol) const
{
    for (int i = 0; i < count(); ++i)
        if (item(i)->text() == symbol)
            return item(i);
    return nullptr;
}

bool ObserverList::insert(const QString &symbol)
{
    const QString trimmed = symbol.trimmed();
    if (trimmed.isEmpty() || findSymbol(trimmed))
        return false;
    auto *entry = new QListWidgetItem(itemIcon(), trimmed);
    entry->setFlags(Qt::ItemIsSelectable | Qt::ItemIsEnabled | Qt::ItemIsDragEnabled);
    addItem(entry);
    return true;
}

bool ObserverList::addSymbol(const QString &symbol)
{
    return addSymbols({symbol}) == 1;
}

int ObserverList::addSymbols(const QStringList &symbols)
{
    int added = 0;
    for (const QString &symbol : symbols)
        added += insert(symbol) ? 1 : 0;
    if (added > 0)
        emit symbolsChanged();
    return added;
}

void ObserverList::setSymbols(const QStringList &symbols)
{
    clear();
    for (const QString &symbol : symbols)
        insert(symbol);
}

bool ObserverList::removeSymbol(const QString &symbol)
{
    QListWidgetItem *entry = findSymbol(symbol);
    if (!entry)
        return false;
    delete entry;
    emit symbolsChanged();
    return true;
}

void ObserverList::removeSelected()
{
    const QList<QListWidgetItem *> selected = selectedItems();
    if (selected.isEmpty())
        return;
    qDeleteAll(selected);
    emit symbolsChanged();
}

QStringList ObserverList::symbolsIn(const QMimeData *data)
{
    QStringList candidates;
    if (!data)
        return candidates;
    if (data->hasFormat(kItemList)) {
        candidates = symbolsOfItems(data->data(kItemList));
    } else if (data->hasText()) {
        static const QRegularExpression separators(QStringLiteral("[\\s,;]+"));
        candidates = data->text().split(separators, Qt::SkipEmptyParts);
    }
    QStringList symbols;
    for (const QString &candidate : qAsConst(candidates))
        if (isSymbol(candidate))
            symbols << candidate;
    return symbols;
}

void ObserverList::dragEnterEvent(QDragEnterEvent *event)
{
    dragMoveEvent(event);
}

void ObserverList::dragMoveEvent(QDragMoveEvent *event)
{
    // The list's own items are in it already; anything else is welcome when it names a
    // symbol and may be copied.
    if (event->source() != this && (event->possibleActions() & Qt::CopyAction) &&
        !symbolsIn(event->mimeData()).isEmpty()) {
        event->setDropAction(Qt::CopyAction);
        event->accept();
    } else {
        event->ignore();
    }
}

void ObserverList::dropEvent(QDropEvent *event)
{
    if (event->source() == this) {
        event->ignore();
        return;
    }
    const QStringList symbols = symbolsIn(event->mimeData());
    if (symbols.isEmpty()) {
        event->ignore();
        return;
    }
    // A move would have the storage browser delete the rows it gave.
    event->setDropAction(Qt::CopyAction);
    event->accept();
    addSymbols(symbols);
}

void ObserverList::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Delete || event->key() == Qt::Key_Backspace) {
        removeSelected();
        event->accept();
        return;
    }
    QListWidget::keyPressEvent(event);
}

void ObserverList::paintEvent(QPaintEvent *event)
{
    QListWidget::paintEvent(event);
    if (count() > 0)
        return;
    QPainter painter(viewport());
    painter.setPen(palette().color(QPalette::PlaceholderText));
    painter.drawText(viewport()->rect().adjusted(8, 8, -8, -8), Qt::AlignCenter | Qt::TextWordWrap,
                     tr("Drag symbols from the browser and drop them here."));
}

} // namespace OrdaneBrowser
