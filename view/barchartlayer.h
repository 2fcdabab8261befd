#pragma once

#include "chartlayer.h"

namespace OrdaneView {

// Open-high-low-close bars: a line from the low to the high, the open as a tick to the
// left and the close as a tick to the right.
class BarChartLayer : public ChartLayer
{
    Q_OBJECT

public:
    using ChartLayer::ChartLayer;
    void draw(QPainter &painter, int plotWidth) override;
};

} // namespace OrdaneView
