#pragma once

#include "view/drawobjects/drawobject.h"

#include <QObject>
#include <QPoint>
#include <QPointer>

#include <optional>

class QKeyEvent;
class QMouseEvent;

namespace OrdaneView {

class DrawObjectsLayer;
class View;

// Drawing and editing figures on a chart view with the mouse and keys. It watches the view's
// events and takes only those it acts on, so everything else (panning, the wheel, the
// arrow keys, the pointer information) reaches the view as before.
//
// In drawing mode a press places a new figure's two anchors at the pointer, dragging moves
// the second and the release finishes the figure; it is selected while being placed, then
// not. A click that does not move leaves no figure. Drawing mode lasts until Escape or
// leaveDrawMode().
//
// Outside it, a press on an anchor of a figure selects the figure and dragging moves that
// anchor; a press on a figure's outline selects it and pans as any other press, and a press
// elsewhere clears the selection. Delete removes the selected figure. Every finished edit is
// stored for the chart's symbol.
class DrawingTool : public QObject
{
    Q_OBJECT

public:
    // Watches `view`, whose canvas holds `layer`. The view owns the tool.
    DrawingTool(View *view, DrawObjectsLayer *layer);

    bool isDrawing() const { return mDrawing; }
    DrawObject::Type drawType() const { return mType; }
    void setDrawMode(DrawObject::Type type);
    void leaveDrawMode();

signals:
    void drawModeChanged(bool on);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    std::optional<AnchorMapping> mapping() const;
    bool press(QMouseEvent *event);
    bool move(QMouseEvent *event);
    bool release(QMouseEvent *event);
    bool key(QKeyEvent *event, bool overrideOnly);
    void showHoverCursor(const QPoint &pos);

    View *mView;
    DrawObjectsLayer *mLayer;
    bool mDrawing = false;
    DrawObject::Type mType = DrawObject::Line;
    // The figure being placed, or whose anchor mEditedAnchor is being dragged.
    QPointer<DrawObject> mEdited;
    int mEditedAnchor = -1;
    bool mHoverCursor = false;
};

} // namespace OrdaneView
