#include "chartview.h"

#include "indicators/candlespatternlayer.h"
#include "indicators/indicatorlayer.h"
#include "indicators/ui/indicatorpropertiesdialog.h"

#include <QInputDialog>

namespace OrdaneView {

ChartView::ChartView(ChartGeometry *geometry, QWidget *parent)
    : View(geometry, parent)
{
    setObjectName(QStringLiteral("ChartView"));
    mPrice = createPriceLayer(mType, canvas());
    canvas()->addLayer(mPrice);
    canvas()->setMasterLayer(mPrice);
    mPatterns = new CandlesPatternLayer(canvas());
    canvas()->addLayer(mPatterns);
}

void ChartView::slotSetCandlePatternRequirments(const QList<CandlePattern::Pattern> &patterns)
{
    mPatterns->setRequired(patterns);
    update();
}

void ChartView::slotSetCandlePatternStrength(int mask)
{
    mPatterns->setStrength(mask);
    update();
}

void ChartView::slotSetCandlePatternBlending(bool on)
{
    mPatterns->setBlending(on);
    update();
}

void ChartView::slotShowCandlePatterns(bool on)
{
    mPatterns->setShown(on);
    update();
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

void ChartView::slotProperties()
{
    const QList<IndicatorLayer *> overlays = indicators();
    if (overlays.isEmpty()) {
        emit propertiesRequested();
        return;
    }
    QStringList choices{tr("Chart Colours")};
    for (const IndicatorLayer *indicator : overlays)
        choices << indicator->label();
    bool ok = false;
    const QString chosen =
        QInputDialog::getItem(this, tr("Properties"), tr("Properties of:"), choices, 0, false, &ok);
    const int index = choices.indexOf(chosen);
    if (!ok || index < 0)
        return;
    if (index == 0) {
        emit propertiesRequested();
        return;
    }
    IndicatorPropertiesDialog dialog(overlays.at(index - 1), this);
    if (dialog.exec() == QDialog::Accepted) {
        update();
        emit indicatorsChanged();
    }
}

void ChartView::slotReaderDataChanged()
{
    update();
    emit dataChanged();
}

} // namespace OrdaneView
