#pragma once

#include <QColor>
#include <QVector>

namespace OrdaneView {

// How a buffer is painted; scripts see the same three values as DrawStyle.
enum DrawStyle { LINE = 0, HISTOGRAM = 1, POINTS = 2 };

// One computed series of an indicator: one float per bar, index 0 the oldest bar. An
// empty buffer, or one whose visible flag is off, is not painted.
struct IndicatorBuffer
{
    QVector<float> data;
    QColor colour;
    int drawStyle = LINE;
    int penWidth = 1;
    int penStyle = 1; // Qt::SolidLine
    bool visible = true;
};

} // namespace OrdaneView
