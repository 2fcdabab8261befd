#include "drawingtool.h"

#include "view.h"
#include "view/drawobjects/drawobjectslayer.h"
#include "view/drawobjects/figuregeometry.h"

#include <QKeyEvent>
#include <QMouseEvent>

namespace OrdaneView {

DrawingTool::DrawingTool(View *view, DrawObjectsLayer *layer)
    : QObject(view)
    , mView(view)
    , mLayer(layer)
{
    view->installEventFilter(this);
    connect(layer, &DrawObjectsLayer::changed, view, qOverload<>(&QWidget::update));
}

void DrawingTool::setDrawMode(DrawObject::Type type)
{
    mType = type;
    mLayer->select(nullptr);
    mView->setCursor(Qt::CrossCursor);
    mHoverCursor = false;
    if (!mDrawing) {
        mDrawing = true;
        emit drawModeChanged(true);
    }
}

void DrawingTool::leaveDrawMode()
{
    if (!mDrawing)
        return;
    if (mEdited) {
        // A figure still being placed is dropped.
        mLayer->remove(mEdited);
        mEdited = nullptr;
    }
    mDrawing = false;
    mView->unsetCursor();
    emit drawModeChanged(false);
}

std::optional<AnchorMapping> DrawingTool::mapping() const
{
    if (mView->canvas()->reader().isNull())
        return std::nullopt;
    return AnchorMapping::of(*mView->canvas());
}

bool DrawingTool::eventFilter(QObject *watched, QEvent *event)
{
    if (watched != mView)
        return false;
    switch (event->type()) {
    case QEvent::MouseButtonPress:
        return press(static_cast<QMouseEvent *>(event));
    case QEvent::MouseMove:
        return move(static_cast<QMouseEvent *>(event));
    case QEvent::MouseButtonRelease:
        return release(static_cast<QMouseEvent *>(event));
    case QEvent::KeyPress:
        return key(static_cast<QKeyEvent *>(event), false);
    case QEvent::ShortcutOverride:
        // Taken here, Delete and Escape reach the view as key presses instead of triggering
        // a shortcut elsewhere in the window.
        return key(static_cast<QKeyEvent *>(event), true);
    default:
        return false;
    }
}

bool DrawingTool::press(QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton)
        return false;
    const std::optional<AnchorMapping> m = mapping();
    if (!m)
        return mDrawing;
    const QPoint pos = event->pos();
    if (mDrawing) {
        if (pos.x() >= m->plot().width())
            return true; // on the value scale
        auto figure = DrawObject::create(mType);
        const Anchor at = m->toAnchor(pos);
        figure->setAnchor(0, at);
        figure->setAnchor(1, at);
        mEdited = mLayer->add(std::move(figure));
        mEditedAnchor = 1;
        mLayer->select(mEdited);
        return true;
    }
    // The selected figure's anchors first: it may lie beneath another figure's.
    QList<DrawObject *> order;
    if (DrawObject *selected = mLayer->selected())
        order << selected;
    const QList<DrawObject *> &objects = mLayer->objects();
    for (auto it = objects.crbegin(); it != objects.crend(); ++it)
        order << *it;
    for (DrawObject *object : qAsConst(order)) {
        const int anchor = FigureGeometry::anchorAt(*object, *m, pos);
        if (anchor >= 0) {
            mLayer->select(object);
            mEdited = object;
            mEditedAnchor = anchor;
            return true;
        }
    }
    mLayer->select(mLayer->objectAt(pos, *m));
    return false;
}

bool DrawingTool::move(QMouseEvent *event)
{
    if (!mEdited) {
        if (event->buttons() == Qt::NoButton)
            showHoverCursor(event->pos());
        return false;
    }
    if (const std::optional<AnchorMapping> m = mapping())
        mEdited->setAnchor(mEditedAnchor, m->toAnchor(event->pos()));
    // The view still moves its pointer; it pans only after a press it was given.
    return false;
}

bool DrawingTool::release(QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton)
        return false;
    if (!mEdited)
        return mDrawing;
    const std::optional<AnchorMapping> m = mapping();
    if (m)
        mEdited->setAnchor(mEditedAnchor, m->toAnchor(event->pos()));
    DrawObject *figure = mEdited;
    mEdited = nullptr;
    if (mDrawing) {
        if (!m || m->toPixel(figure->anchor(0)) == m->toPixel(figure->anchor(1))) {
            mLayer->remove(figure);
            return true;
        }
        figure->setSelected(false);
    }
    mLayer->store();
    return true;
}

bool DrawingTool::key(QKeyEvent *event, bool overrideOnly)
{
    switch (event->key()) {
    case Qt::Key_Delete:
    case Qt::Key_Backspace: {
        DrawObject *selected = mLayer->selected();
        if (!selected || mEdited)
            return false;
        if (!overrideOnly) {
            mLayer->remove(selected);
            mLayer->store();
        }
        break;
    }
    case Qt::Key_Escape:
        if (!mDrawing && !mLayer->selected())
            return false;
        if (!overrideOnly) {
            leaveDrawMode();
            mLayer->select(nullptr);
        }
        break;
    default:
        return false;
    }
    event->accept();
    return true;
}

void DrawingTool::showHoverCursor(const QPoint &pos)
{
    if (mDrawing)
        return;
    const std::optional<AnchorMapping> m = mapping();
    bool over = false;
    if (m)
        for (const DrawObject *object : mLayer->objects())
            over = over || FigureGeometry::anchorAt(*object, *m, pos) >= 0;
    if (over != mHoverCursor) {
        mHoverCursor = over;
        if (over)
            mView->setCursor(Qt::SizeAllCursor);
        else
            mView->unsetCursor();
    }
}

} // namespace OrdaneView
