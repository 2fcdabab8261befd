#pragma once

#include <QColor>
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
// date of the bar under that column as "dd.MMM.yyyy" in the interface language. The last
// 44 pixels, under the value scale, carry no labels.
namespace DateAxis {

constexpr int kHeight = 16;
constexpr int kPitch = 64;
constexpr int kRightBlank = 44;

// Label columns of an axis `width` pixels wide: 0, 64, 128, ... while x < width - 44.
QVector<int> labelColumns(int width);

// The label at column x, empty past the last bar (or without a series).
QString labelAt(const OrdaneData::Reader *series, const ChartGeometry &geometry, int x,
                const QLocale &locale);

// Paints the axis into `rect`: the fill colour under a grey-black-grey gradient, ticks,
// labels in white, and the pointer mark at the pointer's column.
void paint(QPainter &painter, const QRect &rect, const OrdaneData::Reader *series,
           const ChartGeometry &geometry, const QColor &fill, const QFont &font,
           const QLocale &locale);

} // namespace DateAxis
} // namespace OrdaneView
