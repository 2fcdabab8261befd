#include "chartrenderer.h"

#include "chartgeometry.h"
#include "data/reader.h"
#include "dateaxis.h"

#include <QPainter>

#include <algorithm>
#include <memory>
#include <vector>

namespace OrdaneView {

QImage renderChart(const OrdaneData::ReaderH &series, const ChartPicture &picture,
                   const PopulateChart &populate)
{
    QImage image(picture.size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::black);
    const int width = picture.size.width();
    const int views = picture.size.height() - DateAxis::kHeight;
    // Panes take a fifth of the height each, but together never more than three fifths.
    const int panes = std::max(picture.panes, 0);
    const int paneHeight = panes ? std::min(views / 5, views * 3 / 5 / panes) : 0;

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
    std::unique_ptr<ViewCanvas> chart(makeCanvas(views - panes * paneHeight));
    QList<ViewCanvas *> paneCanvases;
    std::vector<std::unique_ptr<ViewCanvas>> owned;
    for (int i = 0; i < panes; ++i) {
        owned.emplace_back(makeCanvas(paneHeight));
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
