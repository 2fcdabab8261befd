#pragma once

#include "view.h"
#include "view/chartlayer.h"

namespace OrdaneView {

// The price chart: one price layer (candles, bars, line or empty) as the master layer,
// beneath any chart indicators.
class ChartView : public View
{
    Q_OBJECT

public:
    ChartView(ChartGeometry *geometry, QWidget *parent = nullptr);

    ChartType chartType() const { return mType; }
    Layer *priceLayer() const { return mPrice; }

signals:
    void dataChanged();

public slots:
    void slotSetCandle();
    void slotSetEmpty();
    void slotSetLine();
    void slotSetBar();
    void slotReaderDataChanged();
    // The chart's colours, or the parameters of an indicator drawn over the prices.
    void slotProperties() override;

private:
    void setChartType(ChartType type);

    ChartType mType = ChartType::Candle;
    Layer *mPrice = nullptr;
};

} // namespace OrdaneView
