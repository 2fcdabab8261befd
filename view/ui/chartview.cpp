#include "chartview.h"

namespace OrdaneView {

ChartView::ChartView(ChartGeometry *geometry, QWidget *parent)
    : View(geometry, parent)
{
    setObjectName(QStringLiteral("ChartView"));
    mPrice = createPriceLayer(mType, canvas());
    canvas()->addLayer(mPrice);
    canvas()->setMasterLayer(mPrice);
}

void ChartView::setChartType(ChartType type)
{
    if (type == mType)
        return;
    Layer *layer = createPriceLayer(type, canvas());
    layer->setLabel(mPrice->label());
    canvas()->replaceLayer(mPrice, layer);
    mPrice = layer;
    mType = type;
    update();
}

void ChartView::slotSetCandle()
{
    setChartType(ChartType::Candle);
}

void ChartView::slotSetEmpty()
{
    setChartType(ChartType::Empty);
}

void ChartView::slotSetLine()
{
    setChartType(ChartType::Line);
}

void ChartView::slotSetBar()
{
    setChartType(ChartType::Bar);
}

void ChartView::slotReaderDataChanged()
{
    update();
    emit dataChanged();
}

} // namespace OrdaneView
