#include "linechartlayer.h"

#include "chartgeometry.h"
#include "data/reader.h"
#include "viewcanvas.h"

#include <QPainter>

namespace OrdaneView {

void LineChartLayer::draw(QPainter &painter, int plotWidth)
{
    const int n = fitToVisibleBars(plotWidth);
    const OrdaneData::Reader &s = series();
    const int zoom = view()->geometry()->zoom();
    const int first = firstVisible();

    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(view()->colors().line, zoom > 8 ? 2 : 1));
    if (n >= 2) {
        QVector<QPoint> points(n);
        for (int k = 0; k < n; ++k)
            points[k] = QPoint(k * zoom, row(s.bar(first + k).close()));
        painter.drawPolyline(points.constData(), n);
    }
    painter.restore();
    ChartLayer::draw(painter, plotWidth);
}

} // namespace OrdaneView
