#pragma once

#include "indicators/patterns/candlepattern.h"
#include "view.h"
#include "view/chartlayer.h"

namespace OrdaneView {

// The price chart: one price layer (candles, bars, line or empty) as the master layer, the
// candle-pattern marks over it (hidden until the user activates them), and any chart
// indicators.
class CandlesPatternLayer;

class ChartView : public View
{
    Q_OBJECT

public:
    ChartView(ChartGeometry *geometry, QWidget *parent = nullptr);

    ChartType chartType() const { return mType; }
    Layer *priceLayer() const { return mPrice; }
    CandlesPatternLayer *patternLayer() const { return mPatterns; }

signals:
    void dataChanged();

public slots:
    void slotSetCandle();
    void slotSetEmpty();
    void slotSetLine();
    void slotSetBar();
    void slotReaderDataChanged();
    // The candle-pattern settings of the panel, handed to the pattern layer.
    void slotSetCandlePatternRequirments(const QList<CandlePattern::Pattern> &patterns);
    void slotSetCandlePatternStrength(int mask);
    void slotSetCandlePatternBlending(bool on);
    void slotShowCandlePatterns(bool on);
    // The chart's colours, or the parameters of an indicator drawn over the prices.
    void slotProperties() override;

private:
    void setChartType(ChartType type);

    ChartType mType = ChartType::Candle;
    Layer *mPrice = nullptr;
    CandlesPatternLayer *mPatterns = nullptr;
};

} // namespace OrdaneView
