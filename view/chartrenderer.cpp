#include "chartrenderer.h"

#include "chartgeometry.h"
#include "data/reader.h"
#include "dateaxis.h"

#include <QPainter>

namespace OrdaneView {

QImage renderChart(const OrdaneData::ReaderH &series, const ChartPicture &picture)
{
    QImage image(picture.size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::black);

    ChartGeometry geometry;
    geometry.setZoom(picture.zoom);
    ViewCanvas canvas(&geometry);
    canvas.setColors(picture.colors);
    canvas.setLocale(picture.locale);
    canvas.setSeparatorMode(picture.separators);
    canvas.setSize(QSize(picture.size.width(), picture.size.height() - DateAxis::kHeight));
    canvas.setGrid(picture.grid);
    Layer *price = createPriceLayer(picture.type, &canvas);
    price->setLabel(picture.label);
    canvas.addLayer(price);
    canvas.setMasterLayer(price);
    canvas.setReader(series);
    const int count = series.isNull() ? 0 : series->count();
    geometry.setFirstVisible(picture.first >= 0 ? picture.first
                                                : geometry.lastPage(canvas.plotWidth(), count));

    QPainter painter(&image);
    canvas.paint(painter);
    DateAxis::paint(painter,
                    QRect(0, canvas.size().height(), picture.size.width(), DateAxis::kHeight),
                    series.isNull() ? nullptr : series.reader(), geometry,
                    picture.colors.background, canvas.font(), picture.locale);
    return image;
}

} // namespace OrdaneView
