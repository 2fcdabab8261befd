#include "colorbutton.h"

#include <QColorDialog>
#include <QPainter>

namespace QMWidgets {

ColorButton::ColorButton(QWidget *parent)
    : QToolButton(parent)
{
    setIconSize(QSize(36, 14));
    setToolButtonStyle(Qt::ToolButtonIconOnly);
    connect(this, &QToolButton::clicked, this, &ColorButton::choose);
    updateSwatch();
}

void ColorButton::setColor(const QColor &color)
{
    mColor = color;
    setToolTip(color.isValid() ? color.name() : tr("No valid colour"));
    updateSwatch();
}

void ColorButton::choose()
{
    const QColor chosen = QColorDialog::getColor(mColor.isValid() ? mColor : Qt::white, this);
    if (!chosen.isValid() || chosen == mColor)
        return;
    setColor(chosen);
    emit colorChanged(chosen);
}

void ColorButton::updateSwatch()
{
    QPixmap swatch(iconSize());
    swatch.fill(Qt::transparent);
    QPainter p(&swatch);
    const QRect r = swatch.rect().adjusted(0, 0, -1, -1);
    if (mColor.isValid()) {
        p.fillRect(r, mColor);
    } else {
        p.setPen(Qt::gray);
        p.drawLine(r.topLeft(), r.bottomRight());
        p.drawLine(r.bottomLeft(), r.topRight());
    }
    p.setPen(QColor(128, 128, 128));
    p.drawRect(r);
    setIcon(QIcon(swatch));
}

} // namespace QMWidgets
