#include "drawobject.h"

#include "figures.h"

#include <QCoreApplication>
#include <QPainter>

#include <iterator>

namespace OrdaneView {

namespace {
const char *const kDisplayNames[] = {
    QT_TRANSLATE_NOOP("OrdaneView::DrawObject", "Line"),
    QT_TRANSLATE_NOOP("OrdaneView::DrawObject", "Ray"),
    QT_TRANSLATE_NOOP("OrdaneView::DrawObject", "Arc"),
    QT_TRANSLATE_NOOP("OrdaneView::DrawObject", "Ellipse"),
    QT_TRANSLATE_NOOP("OrdaneView::DrawObject", "Rectangle"),
    QT_TRANSLATE_NOOP("OrdaneView::DrawObject", "Triangle"),
};
static_assert(std::size(kDisplayNames) == DrawObject::kTypeCount);

// Amber: clear on the dark plot backgrounds and still readable on white.
const QColor kDefaultColor(255, 176, 0);
} // namespace

DrawObject::DrawObject(Type type, QObject *parent)
    : QObject(parent)
    , mType(type)
    , mColor(kDefaultColor)
{}

std::unique_ptr<DrawObject> DrawObject::create(Type type, QObject *parent)
{
    switch (type) {
    case Line:
        return std::make_unique<OrdaneView::Line>(parent);
    case Ray:
        return std::make_unique<OrdaneView::Ray>(parent);
    case Arc:
        return std::make_unique<OrdaneView::Arc>(parent);
    case Ellipse:
        return std::make_unique<OrdaneView::Ellipse>(parent);
    case Rect:
        return std::make_unique<OrdaneView::Rect>(parent);
    case Triangle:
        return std::make_unique<OrdaneView::Triangle>(parent);
    }
    return nullptr;
}

QString DrawObject::displayName(Type type)
{
    const int i = int(type);
    return i >= 0 && i < kTypeCount
               ? QCoreApplication::translate("OrdaneView::DrawObject", kDisplayNames[i])
               : QString();
}

void DrawObject::setColor(const QColor &color)
{
    if (color == mColor)
        return;
    mColor = color;
    emit changed();
}

void DrawObject::setSelected(bool selected)
{
    if (selected == mSelected)
        return;
    mSelected = selected;
    emit changed();
}

void DrawObject::setAnchor(int i, const Anchor &anchor)
{
    if (anchor == mAnchors[i & 1])
        return;
    mAnchors[i & 1] = anchor;
    emit changed();
}

void DrawObject::setWidth(qreal width)
{
    if (width == mWidth)
        return;
    mWidth = width;
    emit changed();
}

void DrawObject::setPenStyle(Qt::PenStyle style)
{
    if (style == mPenStyle)
        return;
    mPenStyle = style;
    emit changed();
}

QPen DrawObject::pen() const
{
    return QPen(mColor, mWidth, mPenStyle);
}

void DrawObject::drawMarks(QPainter &painter, const QPointF &first, const QPointF &second,
                           bool markSegments) const
{
    painter.save();
    painter.setPen(QPen(mColor, 6.0, Qt::SolidLine, Qt::SquareCap, Qt::BevelJoin));
    for (const QPointF &p : {first, second}) {
        if (markSegments)
            painter.drawLine(p - QPointF(1, 0), p + QPointF(1, 0));
        else
            painter.drawPoint(p);
    }
    painter.restore();
}

} // namespace OrdaneView
