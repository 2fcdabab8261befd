#include "dateaxis.h"

#include "chartgeometry.h"
#include "data/reader.h"

#include <QFontMetrics>
#include <QImage>
#include <QLinearGradient>
#include <QPainter>

#include <algorithm>

namespace OrdaneView::DateAxis {

QString dateLabel(const QDate &date, const QLocale &locale, LabelForm form)
{
    const QChar dot = QLatin1Char('.');
    QString month;
    if (form == LabelForm::Numeric) {
        month = locale.toString(date, QStringLiteral("MM"));
    } else {
        month = locale.monthName(date.month(), QLocale::ShortFormat);
        if (month.endsWith(dot))
            month.chop(1);
    }
    const QString year = locale.toString(date, form == LabelForm::Full ? QStringLiteral("yyyy")
                                                                       : QStringLiteral("yy"));
    return locale.toString(date, QStringLiteral("dd")) + dot + month + dot + year;
}

LabelForm labelForm(const QLocale &locale, const QFont &font)
{
    const QFontMetrics metrics(font);
    for (LabelForm form : {LabelForm::Full, LabelForm::ShortYear}) {
        int widest = 0;
        for (int month = 1; month <= 12; ++month)
            widest = std::max(
                widest, metrics.horizontalAdvance(dateLabel(QDate(2000, month, 28), locale, form)));
        if (kLabelOffset + widest + kGap <= kPitch)
            return form;
    }
    return LabelForm::Numeric;
}

QVector<int> labelColumns(int width)
{
    QVector<int> columns;
    for (int x = 0; x < width - kRightBlank; x += kPitch)
        columns.append(x);
    return columns;
}

QString labelAt(const OrdaneData::Reader *series, const ChartGeometry &geometry, int x,
                const QLocale &locale, LabelForm form)
{
    if (!series)
        return QString();
    const int bar = geometry.barAt(x);
    if (bar < 0 || bar >= series->count())
        return QString();
    return dateLabel(series->bar(bar).date(), locale, form);
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
    const LabelForm form = labelForm(locale, font);
    for (int x : labelColumns(rect.width())) {
        painter.drawLine(x, 0, x, 6);
        const QString label = labelAt(series, geometry, x, locale, form);
        if (!label.isEmpty())
            painter.drawText(QPoint(x + kLabelOffset, 10), label);
    }

    const int pointer = geometry.pointerX();
    if (pointer >= 0 && pointer < rect.width()) {
        static const QImage mark(QStringLiteral(":/pix/pointer.png"));
        painter.drawImage(QPoint(pointer - mark.width() / 2, 0), mark);
    }
    painter.restore();
}

} // namespace OrdaneView::DateAxis
