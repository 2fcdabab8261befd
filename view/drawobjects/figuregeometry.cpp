#include "figuregeometry.h"

#include <QPainterPathStroker>

#include <algorithm>
#include <cmath>
#include <limits>

namespace OrdaneView {
namespace FigureGeometry {

QPointF rayEnd(const QPointF &first, const QPointF &second, const QRectF &plot)
{
    const qreal dx = second.x() - first.x(), dy = second.y() - first.y();
    const QPointF step(dx == 0 ? 1 : dx, dy == 0 ? 1 : dy);
    // Along second + t * step, t >= 0: the first bound the ray crosses going outward.
    const auto exitAlong = [](qreal from, qreal d, qreal low, qreal high) {
        return ((d > 0 ? high : low) - from) / d;
    };
    const qreal t = std::min(exitAlong(second.x(), step.x(), plot.left(), plot.right()),
                             exitAlong(second.y(), step.y(), plot.top(), plot.bottom()));
    return t > 0 ? second + t * step : second;
}

QPointF triangleCorner(const QPointF &first, const QPointF &second)
{
    return QPointF(2 * second.x() - first.x(), first.y());
}

QPainterPath arcPath(const QPointF &first, const QPointF &second)
{
    QPainterPath path(first);
    const qreal rx = std::abs(second.x() - first.x()), ry = std::abs(second.y() - first.y());
    if (rx == 0 || ry == 0) {
        path.lineTo(second);
        return path;
    }
    const QPointF centre(first.x(), second.y());
    // Qt's angles run counter-clockwise from three o'clock, with rows growing downward.
    const qreal start = first.y() < centre.y() ? 90 : 270;
    const qreal end = second.x() > centre.x() ? 0 : 180;
    qreal sweep = end - start;
    if (sweep < -180)
        sweep += 360;
    path.arcTo(QRectF(centre.x() - rx, centre.y() - ry, 2 * rx, 2 * ry), start, sweep);
    return path;
}

QPainterPath outline(DrawObject::Type type, const QPointF &first, const QPointF &second,
                     const QRectF &plot)
{
    QPainterPath path(first);
    switch (type) {
    case DrawObject::Line:
        path.lineTo(second);
        break;
    case DrawObject::Ray:
        path.lineTo(second);
        path.lineTo(rayEnd(first, second, plot));
        break;
    case DrawObject::Arc:
        return arcPath(first, second);
    case DrawObject::Ellipse:
        path = QPainterPath();
        path.addEllipse(QRectF(first, second).normalized());
        break;
    case DrawObject::Rect:
        path = QPainterPath();
        path.addRect(QRectF(first, second).normalized());
        break;
    case DrawObject::Triangle:
        path.lineTo(second);
        path.lineTo(triangleCorner(first, second));
        path.closeSubpath();
        break;
    }
    return path;
}

int anchorAt(const DrawObject &object, const AnchorMapping &mapping, const QPointF &point,
             qreal tolerance)
{
    int found = -1;
    qreal nearest = std::numeric_limits<qreal>::max();
    for (int i = 0; i < 2; ++i) {
        const QPointF d = point - QPointF(mapping.toPixel(object.anchor(i)));
        const qreal distance = std::max(std::abs(d.x()), std::abs(d.y()));
        if (distance <= tolerance && distance < nearest) {
            found = i;
            nearest = distance;
        }
    }
    return found;
}

bool hitTest(const DrawObject &object, const AnchorMapping &mapping, const QPointF &point,
             qreal tolerance)
{
    if (anchorAt(object, mapping, point, tolerance) >= 0)
        return true;
    const QPainterPath path = outline(object.type(), mapping.toPixel(object.anchor(0)),
                                      mapping.toPixel(object.anchor(1)), mapping.plot());
    QPainterPathStroker stroker;
    stroker.setWidth(2 * tolerance + object.width());
    stroker.setCapStyle(Qt::RoundCap);
    stroker.setJoinStyle(Qt::RoundJoin);
    return stroker.createStroke(path).contains(point);
}

} // namespace FigureGeometry
} // namespace OrdaneView
