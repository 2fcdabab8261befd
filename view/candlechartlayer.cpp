#include "candlechartlayer.h"

#include "chartgeometry.h"
#include "data/reader.h"
#include "viewcanvas.h"

#include <QLinearGradient>
#include <QPainter>

namespace OrdaneView {

void CandleChartLayer::draw(QPainter &painter, int plotWidth)
{
    const int n = fitToVisibleBars(plotWidth);
    const OrdaneData::Reader &s = series();
    ViewColors c = view()->colors();
    if (!view()->isColoured()) {
        c.upCandle = c.background;
        c.downCandle = c.line;
        c.upCandleBorder = c.downCandleBorder = c.line;
        c.threeD = false;
    }
    const int zoom = view()->geometry()->zoom();
    const int first = firstVisible();

    painter.save();
    QPen pen(Qt::SolidPattern, zoom > 16 ? 2 : 1);
    for (int k = 0; k < n; ++k) {
        const QuoteBar &b = s.bar(first + k);
        const bool down = b.close() < b.open();
        const QColor &body = down ? c.downCandle : c.upCandle;
        pen.setColor(down ? c.downCandleBorder : c.upCandleBorder);
        painter.setPen(pen);

        const int x = k * zoom;
        painter.drawLine(x, row(b.high()), x, row(b.close()));
        painter.drawLine(x, row(b.open()), x, row(b.low()));

        const int left = int(x - zoom / 3.0);
        const int right = int(x + zoom / 3.0);
        const int rowOpen = toPixel(rowOf(b.open()) - 1.0);
        const int rowClose = toPixel(rowOf(b.close()) - 1.0);
        const int top = std::min(rowOpen, rowClose), bottom = std::max(rowOpen, rowClose);
        if (c.threeD) {
            const QRect area(QPoint(left, top), QPoint(right, bottom));
            painter.drawImage(area, cachedShading(body, right - left));
        } else {
            painter.setBrush(body);
            painter.drawRect(QRect(left, top, right - left, bottom - top));
        }
    }
    painter.restore();
    ChartLayer::draw(painter, plotWidth);
}

QImage CandleChartLayer::shading(const QColor &body, int width)
{
    QImage strip(width + 1, 1, QImage::Format_RGB32);
    QLinearGradient shade(0, 0, width, 0);
    shade.setColorAt(0.0, body.darker(170));
    shade.setColorAt(0.2, QColor(Qt::lightGray));
    shade.setColorAt(1.0, body.darker(170));
    QPainter p(&strip);
    p.setCompositionMode(QPainter::CompositionMode_Source);
    p.fillRect(strip.rect(), shade);
    return strip;
}

const QImage &CandleChartLayer::cachedShading(const QColor &body, int width)
{
    const quint64 key = (quint64(body.rgba()) << 32) | quint32(width);
    auto it = mShadings.find(key);
    if (it == mShadings.end()) {
        if (mShadings.size() > 64)
            mShadings.clear();
        it = mShadings.insert(key, shading(body, width));
    }
    return *it;
}

} // namespace OrdaneView
