#pragma once

#include "chartlayer.h"

namespace OrdaneView {

// No price picture: the range is fitted as for the other price layers, so the scale, the
// pointer information and the indicators that follow the chart's range still work.
class EmptyChartLayer : public ChartLayer
{
    Q_OBJECT

public:
    using ChartLayer::ChartLayer;
    void draw(QPainter &painter, int plotWidth) override;
};

} // namespace OrdaneView
