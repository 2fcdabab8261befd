#pragma once

#include "data/readerh.h"

#include <QWidget>

namespace OrdaneView {

class ChartGeometry;
class ViewCanvas;

// The whole series in small, with the visible window marked. A click or a drag with the
// left button moves the chart there. Dragging with the right button (or with Shift and
// the left button) measures from the press to the pointer: price and date at the pointer,
// the number of quotes between, the profit in percent and the difference.
class MiniView : public QWidget
{
    Q_OBJECT

public:
    explicit MiniView(ViewCanvas *chart, QWidget *parent = nullptr);

    // The first visible bar the last click or drag asked for.
    int requestedPosition() const { return mRequested; }
    // The read-out of the measurement under way, empty when none.
    QString readOut() const { return mReadOut; }

signals:
    void positionChanged();

protected:
    void paintEvent(QPaintEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;

private:
    int visibleBars() const;
    int barCount() const;
    void moveTo(int x);
    void measureTo(const QPoint &pos);

    ViewCanvas *mChart;
    int mRequested = 0;
    int mMeasureFrom = -1;
    bool mDragging = false;
    QString mReadOut;
};

} // namespace OrdaneView
