#include "emptychartlayer.h"

namespace OrdaneView {

void EmptyChartLayer::draw(QPainter &painter, int plotWidth)
{
    fitToVisibleBars(plotWidth);
    ChartLayer::draw(painter, plotWidth);
}

} // namespace OrdaneView
