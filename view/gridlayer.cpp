#include "gridlayer.h"

#include "dateaxis.h"
#include "viewcanvas.h"

#include <QPainter>

namespace OrdaneView {

void GridLayer::draw(QPainter &painter, int plotWidth)
{
    painter.save();
    painter.setPen(QPen(view()->colors().grid, 1));
    for (int x = 0; x < plotWidth; x += DateAxis::kPitch)
        painter.drawLine(x, 0, x, height());
    for (int r = height() - 1; r > 0; r -= 34)
        painter.drawLine(0, r, plotWidth - 1, r);
    painter.restore();
}

} // namespace OrdaneView
