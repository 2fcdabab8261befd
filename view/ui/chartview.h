#pragma once

#include "view.h"
#include "view/chartlayer.h"
#include "view/patterns/candlepattern.h"

namespace OrdaneView {

class CandlesPatternLayer;
class DrawingTool;

// The price chart of a session: its price layer (candles, bars, line or empty) as the master
// layer, the candle-pattern marks over it (hidden until the user activates them), and any
// indicators over the prices.
class ChartView : public View
{
    Q_OBJECT

public:
    explicit ChartView(ChartSession *session, QWidget *parent = nullptr);

    ChartType chartType() const;
    Layer *priceLayer() const;
    CandlesPatternLayer *patternLayer() const;
    // Draws and edits the figures of the session's drawing layer with the mouse and keys.
    DrawingTool *drawingTool() const { return mDrawing; }

signals:
    void dataChanged();

public slots:
    void slotSetCandle();
    void slotSetEmpty();
    void slotSetLine();
    void slotSetBar();
    void slotReaderDataChanged();
    // The candle-pattern settings of the panel, handed to the pattern layer. The first is
    // spelled so in the interface; keep.
    void slotSetCandlePatternRequirments(const QList<CandlePattern::Pattern> &patterns);
    void slotSetCandlePatternStrength(int mask);
    void slotSetCandlePatternBlending(bool on);
    void slotShowCandlePatterns(bool on);
    // The chart's colours, or the parameters of an indicator drawn over the prices.
    void slotProperties() override;
    // Lists the chart's figures in a DrawObjectsDialog.
    void slotDrawObjects();

protected:
    void addMenuEntries(QMenu &menu) override;

private:
    void setChartType(ChartType type);

    DrawingTool *mDrawing;
};

} // namespace OrdaneView
