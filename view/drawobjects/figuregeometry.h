#pragma once

#include "drawobject.h"

#include <QPainterPath>
#include <QPointF>
#include <QRectF>

namespace OrdaneView {

// How each kind of figure fits its two anchors, in pixels, and whether a point is on a
// figure. `first` and `second` are the anchors' pixels (AnchorMapping::toPixel).
namespace FigureGeometry {

// How close to a figure's outline (or to one of its anchors) a point must be to be on it.
constexpr qreal kHitTolerance = 4;

// Where a ray from `first` through `second` ends. Its slope is the ratio of the anchors'
// pixel differences, each difference of 0 counted as 1 so that nothing is divided by zero
// (a vertical ray leans one pixel to the right over its anchors' height; a horizontal one
// falls one pixel over their width). Carried on along that slope beyond `second`, it ends
// where it leaves `plot`; when `second` lies outside and the ray heads away, at `second`.
QPointF rayEnd(const QPointF &first, const QPointF &second, const QRectF &plot);

// The triangle's third corner: `first` mirrored across the column of `second`.
QPointF triangleCorner(const QPointF &first, const QPointF &second);

// The arc: the quarter of the ellipse centred on the first anchor's column and the second
// anchor's row that runs from `first` (leaving it horizontally) to `second` (meeting it
// vertically). Anchors in one row or column give the straight segment between them.
QPainterPath arcPath(const QPointF &first, const QPointF &second);

// The figure's outline as it is drawn: the segment; the ray's two segments; the arc; the
// ellipse and the rectangle within the rectangle the anchors span as opposite corners; the
// triangle's three sides.
QPainterPath outline(DrawObject::Type type, const QPointF &first, const QPointF &second,
                     const QRectF &plot);

// Whether `point` lies within `tolerance` pixels of the figure's outline (of the edge of its
// line, for a wide pen) or of one of its anchors. The inside of a closed figure is not on it.
bool hitTest(const DrawObject &object, const AnchorMapping &mapping, const QPointF &point,
             qreal tolerance = kHitTolerance);

// The anchor (0 or 1) within `tolerance` pixels of `point` in both directions, the nearer
// when both are; -1 when neither is.
int anchorAt(const DrawObject &object, const AnchorMapping &mapping, const QPointF &point,
             qreal tolerance = kHitTolerance);

} // namespace FigureGeometry
} // namespace OrdaneView
