#include "barchartlayer.h"

#include "chartgeometry.h"
#include "data/reader.h"
#include "viewcanvas.h"

#include <QPainter>

namespace OrdaneView {

void BarChartLayer::draw(QPainter &painter, int plotWidth)
{
    const int n = fitToVisibleBars(plotWidth);
    const OrdaneData::Reader &s = series();
    ViewColors c = view()->colors();
    if (!view()->isColoured())
        c.upBar = c.downBar = c.line;
    const int zoom = view()->geometry()->zoom();
    const int first = firstVisible();
    const int tick = int(zoom / 2.8);

    painter.save();
    QPen pen(Qt::SolidPattern, zoom > 8 ? 2 : 1);
    for (int k = 0; k < n; ++k) {
        const QuoteBar &b = s.bar(first + k);
        pen.setColor(b.close() < b.open() ? c.downBar : c.upBar);
        painter.setPen(pen);
        const int x = k * zoom;
        painter.drawLine(x, row(b.low()), x, row(b.high()));
        painter.drawLine(x - tick, row(b.open()), x, row(b.open()));
        painter.drawLine(x, row(b.close()), x + tick, row(b.close()));
    }
    painter.restore();
    ChartLayer::draw(painter, plotWidth);
}

} // namespace OrdaneView
