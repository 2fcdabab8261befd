#pragma once

#include "drawobject.h"

namespace OrdaneView {

// The six kinds of figure. Each draws its outline as figuregeometry.h lays it out; they differ
// only in that outline and in how a selected one marks its anchors.

// One segment between the anchors; anchors marked as points.
class Line : public DrawObject
{
    Q_OBJECT

public:
    explicit Line(QObject *parent = nullptr);
    void draw(QPainter &painter, const AnchorMapping &mapping) const override;
};

// From the first anchor through the second on to the edge of the plot; anchors marked as
// points.
class Ray : public DrawObject
{
    Q_OBJECT

public:
    explicit Ray(QObject *parent = nullptr);
    void draw(QPainter &painter, const AnchorMapping &mapping) const override;
};

// A quarter ellipse from the first anchor to the second; anchors marked as short segments.
class Arc : public DrawObject
{
    Q_OBJECT

public:
    explicit Arc(QObject *parent = nullptr);
    void draw(QPainter &painter, const AnchorMapping &mapping) const override;
};

// The ellipse in the rectangle the anchors span; anchors marked as short segments.
class Ellipse : public DrawObject
{
    Q_OBJECT

public:
    explicit Ellipse(QObject *parent = nullptr);
    void draw(QPainter &painter, const AnchorMapping &mapping) const override;
};

// The rectangle with the anchors as opposite corners; anchors marked as short segments.
class Rect : public DrawObject
{
    Q_OBJECT

public:
    explicit Rect(QObject *parent = nullptr);
    void draw(QPainter &painter, const AnchorMapping &mapping) const override;
};

// The two anchors and the first mirrored across the second's column; no anchor marks.
class Triangle : public DrawObject
{
    Q_OBJECT

public:
    explicit Triangle(QObject *parent = nullptr);
    void draw(QPainter &painter, const AnchorMapping &mapping) const override;
};

} // namespace OrdaneView
