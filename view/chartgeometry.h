#pragma once

#include <QObject>

namespace OrdaneView {

// The horizontal geometry shared by every view of one container: the index of the first
// visible bar, the zoom (bar width in pixels) and the column of the pointer. Bar k of the
// visible run is centred on column k * zoom.
class ChartGeometry : public QObject
{
    Q_OBJECT

public:
    static constexpr int kDefaultZoom = 8;

    explicit ChartGeometry(QObject *parent = nullptr);

    int firstVisible() const { return mFirstVisible; }
    // A negative index becomes 0; there is no upper clamp.
    void setFirstVisible(int index);

    int zoom() const { return mZoom; }
    void setZoom(int zoom); // below 1 becomes 1
    // Doubles the zoom while it is below 100; returns whether it changed.
    bool zoomIn();
    // Halves it (integer division) while it is at least 2; returns whether it changed.
    bool zoomOut();

    // The pointer's column in the plot, or -1 when the pointer is over no plot.
    int pointerX() const { return mPointerX; }
    void setPointerX(int x);

    // The bar under column x.
    int barAt(int x) const { return mFirstVisible + x / mZoom; }
    // How many bars fit a plot `plotWidth` pixels wide, cut back so as not to run past
    // the last of `barCount` bars.
    int visibleCount(int plotWidth, int barCount) const;
    // The first visible index that shows the last bars of the series.
    int lastPage(int plotWidth, int barCount) const;

signals:
    // The first visible bar or the zoom changed: every view redraws.
    void changed();
    void pointerMoved(int x);

private:
    int mFirstVisible = 0;
    int mZoom = kDefaultZoom;
    int mPointerX = -1;
};

} // namespace OrdaneView
