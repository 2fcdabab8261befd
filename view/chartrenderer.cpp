#include "chartrenderer.h"

#include "chartgeometry.h"
#include "data/reader.h"
#include "dateaxis.h"

#include <QPainter>

#include <algorithm>
#include <memory>
#include <numeric>
#include <vector>

namespace OrdaneView {

namespace {
// The heights of the panes under a chart in `views` pixels.
QList<int> shareHeights(int views, int panes, const QList<int> &heights)
{
    QList<int> result;
    qint64 sum = 0;
    bool usable = heights.size() == panes + 1;
    for (int h : heights) {
        usable = usable && h >= 0;
        sum += h;
    }
    if (panes > 0 && usable && sum > 0) {
        // Rounded from the running total, so the panes' heights add up without drift.
        qint64 before = heights.first();
        for (int i = 1; i <= panes; ++i) {
            const int top = int(before * views / sum);
            before += heights.at(i);
            result.append(int(before * views / sum) - top);
        }
        return result;
    }
    // Panes take a fifth of the height each, but together never more than three fifths.
    const int paneHeight = panes ? std::min(views / 5, views * 3 / 5 / panes) : 0;
    for (int i = 0; i < panes; ++i)
        result.append(paneHeight);
    return result;
}
} // namespace

QImage renderChart(const OrdaneData::ReaderH &series, const ChartPicture &picture,
                   const PopulateChart &populate)
{
    QImage image(picture.size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::black);
    const int width = picture.size.width();
    const int views = picture.size.height() - DateAxis::kHeight;
    const int panes = std::max(picture.panes, 0);
    const QList<int> paneHeights = shareHeights(views, panes, picture.heights);
    const int panesTotal = std::accumulate(paneHeights.cbegin(), paneHeights.cend(), 0);

    ChartGeometry geometry;
    geometry.setZoom(picture.zoom);
    const auto makeCanvas = [&](int height) {
        auto *canvas = new ViewCanvas(&geometry);
        canvas->setColors(picture.colors);
        canvas->setLocale(picture.locale);
        canvas->setSeparatorMode(picture.separators);
        canvas->setSize(QSize(width, height));
        canvas->setGrid(picture.grid);
        return canvas;
    };
    std::unique_ptr<ViewCanvas> chart(makeCanvas(views - panesTotal));
    chart->setColoured(picture.colored);
    QList<ViewCanvas *> paneCanvases;
    std::vector<std::unique_ptr<ViewCanvas>> owned;
    for (int i = 0; i < panes; ++i) {
        owned.emplace_back(makeCanvas(paneHeights.at(i)));
        paneCanvases.append(owned.back().get());
    }

    Layer *price = createPriceLayer(picture.type, chart.get());
    price->setLabel(picture.label);
    chart->addLayer(price);
    chart->setMasterLayer(price);
    chart->setReader(series);
    for (ViewCanvas *pane : qAsConst(paneCanvases))
        pane->setReader(series);
    if (populate)
        populate(*chart, paneCanvases);
    const int count = series.isNull() ? 0 : series->count();
    geometry.setFirstVisible(picture.first >= 0 ? picture.first
                                                : geometry.lastPage(chart->plotWidth(), count));

    QPainter painter(&image);
    chart->paint(painter);
    int top = chart->size().height();
    QColor edge = picture.colors.grid.isValid() ? picture.colors.grid.lighter(170) : Qt::gray;
    for (ViewCanvas *pane : qAsConst(paneCanvases)) {
        painter.save();
        painter.translate(0, top);
        pane->paint(painter);
        painter.setPen(edge);
        painter.drawLine(0, 0, width, 0);
        painter.restore();
        top += pane->size().height();
    }
    DateAxis::paint(painter, QRect(0, top, width, DateAxis::kHeight),
                    series.isNull() ? nullptr : series.reader(), geometry,
                    picture.colors.background, chart->font(), picture.locale);
    return image;
}

} // namespace OrdaneView
