#pragma once

#include "layer.h"

namespace OrdaneView {

// Grid lines in the grid colour: vertical ones under the date labels (every 64 pixels)
// and horizontal ones on the scale's ticks (every 34 pixels from the bottom).
class GridLayer : public Layer
{
    Q_OBJECT

public:
    using Layer::Layer;
    void draw(QPainter &painter, int plotWidth) override;
};

} // namespace OrdaneView
