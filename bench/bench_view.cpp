// Repainting a chart view. The goal: a 1600 x 1000 view with 400 visible bars (3D candles,
// grid, scale and date axis) in at most 4 ms.

#include "benchsupport.h"
#include "data/reader.h"
#include "view/chartgeometry.h"
#include "view/chartlayer.h"
#include "view/chartrenderer.h"
#include "view/chartsession.h"
#include "view/dateaxis.h"
#include "view/viewcanvas.h"

#include <QImage>
#include <QPainter>

#include <benchmark/benchmark.h>

namespace {

OrdaneData::ReaderH syntheticSeries(int n)
{
    OrdaneData::ReaderH series = OrdaneData::ReaderH::create();
    for (const QuoteBar &bar : Bench::randomWalk(n, 0xC0FFEE))
        series->appendBar(bar);
    return series;
}

void BM_RepaintChartView(benchmark::State &state)
{
    const QSize size(1600, 1000);
    const OrdaneData::ReaderH series = syntheticSeries(3000);
    OrdaneView::ChartGeometry geometry;
    OrdaneView::ViewCanvas canvas(&geometry);
    canvas.setSize(QSize(size.width(), size.height() - OrdaneView::DateAxis::kHeight));
    canvas.setGrid(true);
    OrdaneView::Layer *price = OrdaneView::createPriceLayer(OrdaneView::ChartType::Candle, &canvas);
    canvas.addLayer(price);
    canvas.setMasterLayer(price);
    canvas.setReader(series);
    geometry.setZoom(int(state.range(0)));
    geometry.setFirstVisible(geometry.lastPage(canvas.plotWidth(), series->count()));
    const int visible = geometry.visibleCount(canvas.plotWidth(), series->count());
    const QRect axis(0, canvas.size().height(), size.width(), OrdaneView::DateAxis::kHeight);

    QImage image(size, QImage::Format_ARGB32_Premultiplied);
    for (auto _ : state) {
        QPainter painter(&image);
        canvas.paint(painter);
        OrdaneView::DateAxis::paint(painter, axis, series.reader(), geometry,
                                    canvas.colors().background, canvas.font(), canvas.locale());
        painter.end();
        benchmark::DoNotOptimize(image.constBits());
    }
    if (!canvas.colors().threeD)
        state.SkipWithError("3D candles expected");
    state.counters["visible_bars"] = visible;
    state.SetItemsProcessed(state.iterations() * visible);
}
// zoom 4: 1542 plot pixels hold 385 bars; zoom 3 holds 514. 400 lie between.
BENCHMARK(BM_RepaintChartView)->Arg(4)->Arg(3)->Arg(8)->Unit(benchmark::kMillisecond);

void BM_RenderChartPicture(benchmark::State &state)
{
    OrdaneView::ChartSession session;
    session.setReader(syntheticSeries(3000));
    const OrdaneView::ChartPicture picture;
    for (auto _ : state)
        benchmark::DoNotOptimize(OrdaneView::renderChart(session, picture));
}
BENCHMARK(BM_RenderChartPicture)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char **argv)
{
    return Bench::run(argc, argv, true);
}
