#pragma once

#include <QColor>
#include <QDate>
#include <QFont>
#include <QLocale>
#include <QRect>
#include <QString>
#include <QVector>

class QPainter;

namespace OrdaneData {
class Reader;
}

namespace OrdaneView {

class ChartGeometry;

// The date axis under the charts: a label every 64 pixels, whatever the zoom, naming the
// date of the bar under that column in the interface language, such as "03.Sep.2012". The
// last 44 pixels, under the value scale, carry no labels.
namespace DateAxis {

constexpr int kHeight = 16;
constexpr int kPitch = 64;
constexpr int kRightBlank = 44;
// A label starts this far right of its tick and ends at least kGap pixels before the next
// label starts.
constexpr int kLabelOffset = 2;
constexpr int kGap = 4;

// How a label writes its date. The month is the locale's short name without the full stop
// some languages end it with ("Aug." in German, "нояб." in Russian), since a full stop
// follows it anyway.
enum class LabelForm {
    Full,      // "03.Sep.2012"
    ShortYear, // "03.Sep.12"
    Numeric,   // "03.09.12"
};

QString dateLabel(const QDate &date, const QLocale &locale, LabelForm form);

// The first form, in the order above, in which every month's label written in `font` fits
// between its tick and the next label; Numeric when none does.
LabelForm labelForm(const QLocale &locale, const QFont &font);

// Label columns of an axis `width` pixels wide: 0, 64, 128, ... while x < width - 44.
QVector<int> labelColumns(int width);

// The label at column x, empty past the last bar (or without a series).
QString labelAt(const OrdaneData::Reader *series, const ChartGeometry &geometry, int x,
                const QLocale &locale, LabelForm form);

// Paints the axis into `rect`: the fill colour under a grey-black-grey gradient, ticks,
// labels in white in the form that fits `font`, and the pointer mark at the pointer's
// column.
void paint(QPainter &painter, const QRect &rect, const OrdaneData::Reader *series,
           const ChartGeometry &geometry, const QColor &fill, const QFont &font,
           const QLocale &locale);

} // namespace DateAxis
} // namespace OrdaneView
