#pragma once

#include "chartlayer.h"

namespace OrdaneView {

// A line through the closes of the visible bars.
class LineChartLayer : public ChartLayer
{
    Q_OBJECT

public:
    using ChartLayer::ChartLayer;
    void draw(QPainter &painter, int plotWidth) override;
};

} // namespace OrdaneView
