#include "miniview.h"

#include "data/reader.h"
#include "view/chartgeometry.h"
#include "view/minimap.h"
#include "view/viewcanvas.h"

#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>
#include <QToolTip>

#include <algorithm>

namespace OrdaneView {

MiniView::MiniView(ViewCanvas *chart, QWidget *parent)
    : QWidget(parent)
    , mChart(chart)
{
    setObjectName(QStringLiteral("MiniView"));
    setFixedHeight(44);
    setMouseTracking(false);
    setCursor(Qt::PointingHandCursor);
    setToolTip(tr("The whole series. Click or drag to move the chart; drag with the right "
                  "button to measure."));
}

int MiniView::barCount() const
{
    const auto r = mChart->reader();
    return r.isNull() ? 0 : r->count();
}

int MiniView::visibleBars() const
{
    return mChart->geometry()->visibleCount(mChart->plotWidth(), barCount());
}

void MiniView::paintEvent(QPaintEvent *)
{
    QPainter p(this);
    const ViewColors &c = mChart->colors();
    p.fillRect(rect(), c.background);
    const int count = barCount();
    if (count > 0) {
        const OrdaneData::Reader &s = *mChart->reader();
        const float lo = s.lowestLow(0, count), hi = s.highestHigh(0, count);
        const double span = hi > lo ? double(hi - lo) : 1.0;
        const int w = width(), h = height() - 4;
        // One point per column: the close of the last bar that falls into it.
        QPainterPath area;
        area.moveTo(0, height());
        for (int x = 0; x < w; ++x) {
            const int bar = MiniMap::barAt(x, w, count);
            area.lineTo(x, 2 + h - (s.bar(bar).close() - lo) / span * h);
        }
        area.lineTo(w, height());
        QColor fill = c.line;
        fill.setAlpha(60);
        p.setRenderHint(QPainter::Antialiasing);
        p.fillPath(area, fill);
        p.setPen(QPen(c.line, 1));
        p.drawPath(area);
        p.setRenderHint(QPainter::Antialiasing, false);

        const QRect window =
            MiniMap::window(mChart->geometry()->firstVisible(), visibleBars(), count, size());
        QColor mark = c.label;
        mark.setAlpha(45);
        p.fillRect(window, mark);
        mark.setAlpha(160);
        p.setPen(mark);
        p.drawRect(window.adjusted(0, 0, -1, -1));
    }
    QColor edge = c.grid.isValid() ? c.grid : QColor(Qt::gray);
    p.setPen(edge.lighter(160));
    p.drawLine(0, 0, width(), 0);
}

void MiniView::moveTo(int x)
{
    mRequested = MiniMap::firstForColumn(x, visibleBars(), width(), barCount());
    emit positionChanged();
}

void MiniView::measureTo(const QPoint &pos)
{
    if (mMeasureFrom < 0 || barCount() == 0)
        return;
    const int to = MiniMap::barAt(pos.x(), width(), barCount());
    mReadOut = MiniMap::readOut(MiniMap::measure(*mChart->reader(), mMeasureFrom, to));
    QToolTip::showText(mapToGlobal(pos), mReadOut, this);
}

void MiniView::mousePressEvent(QMouseEvent *event)
{
    if (barCount() == 0)
        return;
    const bool measure =
        event->button() == Qt::RightButton ||
        (event->button() == Qt::LeftButton && (event->modifiers() & Qt::ShiftModifier));
    if (measure) {
        mMeasureFrom = MiniMap::barAt(event->pos().x(), width(), barCount());
        measureTo(event->pos());
    } else if (event->button() == Qt::LeftButton) {
        mDragging = true;
        moveTo(event->pos().x());
    }
}

void MiniView::mouseMoveEvent(QMouseEvent *event)
{
    if (mMeasureFrom >= 0)
        measureTo(event->pos());
    else if (mDragging)
        moveTo(event->pos().x());
}

void MiniView::mouseReleaseEvent(QMouseEvent *)
{
    mDragging = false;
    mMeasureFrom = -1;
}

} // namespace OrdaneView
