#pragma once

#include "layer.h"

namespace OrdaneView {

enum class ChartType { Candle, Bar, Line, Empty };

// The base of the price layers and indicators: after a layer's own drawing it shows the
// pointer information (in pointer-info mode) and the value scale with 2 decimals.
class ChartLayer : public Layer
{
    Q_OBJECT

public:
    using Layer::Layer;

    void draw(QPainter &painter, int plotWidth) override;
    void drawScale(QPainter &painter) override;

    // The pointer box's text for a bar: "high:\t..\nopen:\t..\nclose:\t..\nlow:\t..".
    static QString pointerText(const QuoteBar &bar);

protected:
    int scaleDecimals() const override { return 2; }

    // The price layers' common frame: fits the range to the visible bars (highest high,
    // lowest low, no margin) and returns how many bars are visible.
    int fitToVisibleBars(int plotWidth);
};

// A new price layer of the given type for `view`.
Layer *createPriceLayer(ChartType type, ViewCanvas *view);
QString chartTypeName(ChartType type); // "candle", "bar", "line", "empty"

} // namespace OrdaneView
