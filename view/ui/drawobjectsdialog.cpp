#include "drawobjectsdialog.h"

#include "drawobjectproperties.h"
#include "view/drawobjects/drawobjectslayer.h"

#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QListWidget>
#include <QPainter>
#include <QPushButton>
#include <QVBoxLayout>

namespace OrdaneView {

namespace {
QIcon swatch(const QColor &color)
{
    QPixmap pixmap(14, 14);
    pixmap.fill(Qt::transparent);
    QPainter p(&pixmap);
    p.fillRect(QRect(1, 1, 12, 12), color);
    p.setPen(QColor(128, 128, 128));
    p.drawRect(QRect(1, 1, 11, 11));
    return QIcon(pixmap);
}
} // namespace

DrawObjectsDialog::DrawObjectsDialog(DrawObjectsLayer *layer, QWidget *parent)
    : QDialog(parent)
    , mLayer(layer)
    , mList(new QListWidget(this))
    , mProperties(new QPushButton(tr("&Properties..."), this))
    , mRemove(new QPushButton(tr("&Remove"), this))
{
    setObjectName(QStringLiteral("DrawObjectsDialog"));
    setWindowTitle(tr("Draw Objects"));
    mList->setObjectName(QStringLiteral("DrawObjectsList"));
    mProperties->setObjectName(QStringLiteral("DrawObjectsProperties"));
    mRemove->setObjectName(QStringLiteral("DrawObjectsRemove"));

    auto *side = new QVBoxLayout;
    side->addWidget(mProperties);
    side->addWidget(mRemove);
    side->addStretch(1);
    auto *row = new QHBoxLayout;
    row->addWidget(mList, 1);
    row->addLayout(side);
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Close, this);
    auto *layout = new QVBoxLayout(this);
    layout->addLayout(row);
    layout->addWidget(buttons);

    connect(mList, &QListWidget::itemPressed, this, &DrawObjectsDialog::slotItemPressed);
    connect(mList, &QListWidget::itemDoubleClicked, this, &DrawObjectsDialog::slotProperties);
    connect(mList, &QListWidget::itemSelectionChanged, this, &DrawObjectsDialog::updateButtons);
    connect(mProperties, &QPushButton::clicked, this, &DrawObjectsDialog::slotProperties);
    connect(mRemove, &QPushButton::clicked, this, &DrawObjectsDialog::slotRemove);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    fill();
}

void DrawObjectsDialog::fill()
{
    mList->clear();
    mRows.clear();
    for (DrawObject *object : mLayer->objects()) {
        auto *item = new QListWidgetItem(swatch(object->color()), object->displayName(), mList);
        if (object->isSelected())
            mList->setCurrentItem(item);
        mRows << object;
    }
    updateButtons();
}

int DrawObjectsDialog::selectedRow() const
{
    // The current row alone may be a focus frame without a selection.
    const QList<QListWidgetItem *> selected = mList->selectedItems();
    return selected.isEmpty() ? -1 : mList->row(selected.constFirst());
}

void DrawObjectsDialog::updateButtons()
{
    const bool any = objectAt(selectedRow()) != nullptr;
    mProperties->setEnabled(any);
    mRemove->setEnabled(any);
}

DrawObject *DrawObjectsDialog::objectAt(int row) const
{
    return row >= 0 && row < mRows.size() ? mRows.at(row).data() : nullptr;
}

void DrawObjectsDialog::slotItemPressed(QListWidgetItem *item)
{
    if (DrawObject *object = objectAt(mList->row(item)))
        mLayer->select(object);
}

void DrawObjectsDialog::slotRemove()
{
    DrawObject *object = objectAt(selectedRow());
    if (!object)
        return;
    mLayer->remove(object);
    mLayer->store();
    fill();
}

void DrawObjectsDialog::slotProperties()
{
    const int row = selectedRow();
    DrawObject *object = objectAt(row);
    if (!object)
        return;
    DrawObjectProperties properties(object, this);
    if (properties.exec() != QDialog::Accepted)
        return;
    mLayer->store();
    mList->item(row)->setIcon(swatch(object->color()));
}

} // namespace OrdaneView
