#pragma once

#include "chartlayer.h"

#include <QHash>
#include <QImage>

namespace OrdaneView {

// Japanese candles: shadows from the high to the close and from the open to the low, and a
// body two thirds of the zoom wide, flat or shaded (3D). A bar whose close equals its open
// is drawn in the rising colours.
class CandleChartLayer : public ChartLayer
{
    Q_OBJECT

public:
    using ChartLayer::ChartLayer;
    void draw(QPainter &painter, int plotWidth) override;

    // The shading of a 3D body `width` pixels wide: a horizontal gradient from the body
    // colour darkened by 170 at its left edge, through light grey a fifth of the way, to the
    // darkened colour at its right edge, one pixel high.
    static QImage shading(const QColor &body, int width);

private:
    const QImage &cachedShading(const QColor &body, int width);

    // Every body of one width and colour shades alike, so each shading is drawn once and
    // then stretched over the body's height.
    QHash<quint64, QImage> mShadings;
};

} // namespace OrdaneView
