#include "dateaxis.h"

#include "chartgeometry.h"
#include "data/reader.h"

#include <QImage>
#include <QLinearGradient>
#include <QPainter>

namespace OrdaneView::DateAxis {

QVector<int> labelColumns(int width)
{
    QVector<int> columns;
    for (int x = 0; x < width - kRightBlank; x += kPitch)
        columns.append(x);
    return columns;
}

QString labelAt(const OrdaneData::Reader *series, const ChartGeometry &geometry, int x,
                const QLocale &locale)
{
    if (!series)
        return QString();
    const int bar = geometry.barAt(x);
    if (bar < 0 || bar >= series->count())
        return QString();
    return locale.toString(series->bar(bar).date(), QStringLiteral("dd.MMM.yyyy"));
}

void paint(QPainter &painter, const QRect &rect, const OrdaneData::Reader *series,
           const ChartGeometry &geometry, const QColor &fill, const QFont &font,
           const QLocale &locale)
{
    painter.save();
    painter.translate(rect.topLeft());
    const QRect area(0, 0, rect.width(), rect.height());
    painter.fillRect(area, fill);
    QLinearGradient bevel(0, 0, 0, rect.height());
    bevel.setColorAt(0.0, QColor(90, 90, 90));
    bevel.setColorAt(0.5, Qt::black);
    bevel.setColorAt(1.0, QColor(90, 90, 90));
    painter.fillRect(area, bevel);

    painter.setFont(font);
    painter.setPen(Qt::white);
    for (int x : labelColumns(rect.width())) {
        painter.drawLine(x, 0, x, 6);
        const QString label = labelAt(series, geometry, x, locale);
        if (!label.isEmpty())
            painter.drawText(QPoint(x + 2, 10), label);
    }

    const int pointer = geometry.pointerX();
    if (pointer >= 0 && pointer < rect.width()) {
        static const QImage mark(QStringLiteral(":/pix/pointer.png"));
        painter.drawImage(QPoint(pointer - mark.width() / 2, 0), mark);
    }
    painter.restore();
}

} // namespace OrdaneView::DateAxis
