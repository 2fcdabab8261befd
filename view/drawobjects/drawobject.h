#pragma once

#include "anchormapping.h"

#include <QColor>
#include <QObject>
#include <QPen>
#include <QString>

#include <memory>

class QPainter;

namespace OrdaneView {

// A figure the user draws on a chart: two anchors pinned to the quote series (see
// AnchorMapping), so that it stays on its bars and prices while the chart is scrolled,
// zoomed or rescaled, drawn in its colour, line width and pen style.
//
// While selected (being placed or edited) its anchors are marked: 6-pixel squares on lines and
// rays, short segments of the same wide pen on arcs, ellipses and rectangles, nothing on a
// triangle. How each kind fits its anchors is in figuregeometry.h.
//
// Setters emit changed() when the value changes; the layer holding the figure repaints then.
class DrawObject : public QObject
{
    Q_OBJECT

public:
    // The order is the drawing menu's; the saved form names them (see DrawingFile).
    enum Type { Line, Ray, Arc, Ellipse, Rect, Triangle };
    Q_ENUM(Type)
    static constexpr int kTypeCount = 6;

    // A new figure of the given kind with both anchors unset.
    static std::unique_ptr<DrawObject> create(Type type, QObject *parent = nullptr);
    // "Line", "Ray", "Arc", "Ellipse", "Rectangle", "Triangle", translated.
    static QString displayName(Type type);

    Type type() const { return mType; }
    QString displayName() const { return displayName(mType); }

    QColor color() const { return mColor; }
    void setColor(const QColor &color);
    bool isSelected() const { return mSelected; }
    void setSelected(bool selected);
    // i is 0 or 1.
    Anchor anchor(int i) const { return mAnchors[i & 1]; }
    void setAnchor(int i, const Anchor &anchor);
    // Pixels; 1 by default.
    qreal width() const { return mWidth; }
    void setWidth(qreal width);
    Qt::PenStyle penStyle() const { return mPenStyle; }
    void setPenStyle(Qt::PenStyle style);

    // Paints the figure where `mapping` puts its anchors, with antialiasing, and its anchor
    // marks when selected. The painter's state is left as it was.
    virtual void draw(QPainter &painter, const AnchorMapping &mapping) const = 0;

signals:
    void changed();

protected:
    DrawObject(Type type, QObject *parent);

    // The figure's pen: its colour, width and style.
    QPen pen() const;
    // The anchor marks: each anchor as a 6-pixel square point, or (markSegments) as a short
    // horizontal segment drawn with the same wide pen.
    void drawMarks(QPainter &painter, const QPointF &first, const QPointF &second,
                   bool markSegments = false) const;

private:
    Type mType;
    QColor mColor;
    bool mSelected = false;
    Anchor mAnchors[2];
    qreal mWidth = 1;
    Qt::PenStyle mPenStyle = Qt::SolidLine;
};

} // namespace OrdaneView
