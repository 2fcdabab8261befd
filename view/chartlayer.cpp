#include "chartlayer.h"

#include "barchartlayer.h"
#include "candlechartlayer.h"
#include "chartgeometry.h"
#include "data/reader.h"
#include "emptychartlayer.h"
#include "linechartlayer.h"
#include "viewcanvas.h"

#include <QPainter>

namespace OrdaneView {

namespace {
const QImage &markerPicture()
{
    static const QImage marker(QStringLiteral(":/pix/marker.png"));
    return marker;
}
} // namespace

QString ChartLayer::pointerText(const QuoteBar &bar)
{
    const auto g = [](float v) {
        return QString::number(double(v), 'g', 6);
    };
    return QStringLiteral("high:\t%1\nopen:\t%2\nclose:\t%3\nlow:\t%4")
        .arg(g(bar.high()), g(bar.open()), g(bar.close()), g(bar.low()));
}

int ChartLayer::fitToVisibleBars(int plotWidth)
{
    const OrdaneData::Reader &s = series();
    const int first = firstVisible();
    const int n = view()->geometry()->visibleCount(plotWidth, s.count());
    if (n <= 0) {
        setMax(0);
        setMin(0);
        return 0;
    }
    setMax(s.highestHigh(first, n));
    setMin(s.lowestLow(first, n));
    return n;
}

void ChartLayer::draw(QPainter &painter, int plotWidth)
{
    ViewCanvas *canvas = view();
    const int x = canvas ? canvas->geometry()->pointerX() : -1;
    if (canvas && canvas->pointerInfoMode() && x >= 0 && x < plotWidth && !reader().isNull()) {
        const int zoom = canvas->geometry()->zoom();
        const int bar = canvas->geometry()->barAt(x);
        if (bar >= 0 && bar < reader()->count()) {
            const QuoteBar &b = reader()->bar(bar);
            const QPoint centre((bar - firstVisible()) * zoom, row(b.close()));
            const QImage &marker = markerPicture();
            painter.drawImage(centre - QPoint(marker.width() / 2, marker.height() / 2), marker);

            painter.save();
            painter.setFont(canvas->font());
            const QString text = pointerText(b);
            QRect box = painter.fontMetrics()
                            .boundingRect(QRect(0, 0, 400, 400), Qt::TextExpandTabs, text)
                            .adjusted(-6, -4, 6, 4);
            box.moveTopLeft(centre + QPoint(12, 12));
            if (box.right() >= plotWidth)
                box.moveRight(centre.x() - 12);
            if (box.bottom() >= height())
                box.moveBottom(centre.y() - 12);
            painter.setOpacity(0.6);
            painter.setPen(canvas->colors().label);
            painter.setBrush(canvas->colors().marginBackground2);
            painter.drawRect(box);
            painter.drawText(box.adjusted(6, 4, -6, -4), Qt::TextExpandTabs, text);
            painter.restore();
        }
    }
    drawScale(painter);
}

void ChartLayer::drawScale(QPainter &painter)
{
    drawScaleWith(painter, 2);
}

Layer *createPriceLayer(ChartType type, ViewCanvas *view)
{
    switch (type) {
    case ChartType::Candle:
        return new CandleChartLayer(view);
    case ChartType::Bar:
        return new BarChartLayer(view);
    case ChartType::Line:
        return new LineChartLayer(view);
    case ChartType::Empty:
        return new EmptyChartLayer(view);
    }
    return new EmptyChartLayer(view);
}

QString chartTypeName(ChartType type)
{
    switch (type) {
    case ChartType::Candle:
        return QStringLiteral("candle");
    case ChartType::Bar:
        return QStringLiteral("bar");
    case ChartType::Line:
        return QStringLiteral("line");
    case ChartType::Empty:
        return QStringLiteral("empty");
    }
    return QString();
}

} // namespace OrdaneView
