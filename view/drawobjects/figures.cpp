#include "figures.h"

#include "figuregeometry.h"

#include <QPainter>

namespace OrdaneView {

namespace {
// Runs `paint` with the figure's pen, no brush and antialiasing; the painter is left as it was.
template <typename Paint> void paintFigure(QPainter &painter, const QPen &pen, Paint paint)
{
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(pen);
    painter.setBrush(Qt::NoBrush);
    paint();
    painter.restore();
}
} // namespace

Line::Line(QObject *parent)
    : DrawObject(DrawObject::Line, parent)
{}

void Line::draw(QPainter &painter, const AnchorMapping &mapping) const
{
    const QPointF a = mapping.toPixel(anchor(0)), b = mapping.toPixel(anchor(1));
    paintFigure(painter, pen(), [&] { painter.drawLine(a, b); });
    if (isSelected())
        drawMarks(painter, a, b);
}

Ray::Ray(QObject *parent)
    : DrawObject(DrawObject::Ray, parent)
{}

void Ray::draw(QPainter &painter, const AnchorMapping &mapping) const
{
    const QPointF a = mapping.toPixel(anchor(0)), b = mapping.toPixel(anchor(1));
    const QPointF end = FigureGeometry::rayEnd(a, b, mapping.plot());
    paintFigure(painter, pen(), [&] { painter.drawPolyline(QPolygonF({a, b, end})); });
    if (isSelected())
        drawMarks(painter, a, b);
}

Arc::Arc(QObject *parent)
    : DrawObject(DrawObject::Arc, parent)
{}

void Arc::draw(QPainter &painter, const AnchorMapping &mapping) const
{
    const QPointF a = mapping.toPixel(anchor(0)), b = mapping.toPixel(anchor(1));
    paintFigure(painter, pen(), [&] { painter.drawPath(FigureGeometry::arcPath(a, b)); });
    if (isSelected())
        drawMarks(painter, a, b, true);
}

Ellipse::Ellipse(QObject *parent)
    : DrawObject(DrawObject::Ellipse, parent)
{}

void Ellipse::draw(QPainter &painter, const AnchorMapping &mapping) const
{
    const QPointF a = mapping.toPixel(anchor(0)), b = mapping.toPixel(anchor(1));
    paintFigure(painter, pen(), [&] { painter.drawEllipse(QRectF(a, b).normalized()); });
    if (isSelected())
        drawMarks(painter, a, b, true);
}

Rect::Rect(QObject *parent)
    : DrawObject(DrawObject::Rect, parent)
{}

void Rect::draw(QPainter &painter, const AnchorMapping &mapping) const
{
    const QPointF a = mapping.toPixel(anchor(0)), b = mapping.toPixel(anchor(1));
    paintFigure(painter, pen(), [&] { painter.drawRect(QRectF(a, b).normalized()); });
    if (isSelected())
        drawMarks(painter, a, b, true);
}

Triangle::Triangle(QObject *parent)
    : DrawObject(DrawObject::Triangle, parent)
{}

void Triangle::draw(QPainter &painter, const AnchorMapping &mapping) const
{
    const QPointF a = mapping.toPixel(anchor(0)), b = mapping.toPixel(anchor(1));
    const QPointF c = FigureGeometry::triangleCorner(a, b);
    // The two sides through the apex, then the base.
    paintFigure(painter, pen(), [&] {
        painter.drawPolyline(QPolygonF({a, b, c}));
        painter.drawLine(c, a);
    });
}

} // namespace OrdaneView
