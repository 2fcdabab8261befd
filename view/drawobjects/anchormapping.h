#pragma once

#include "data/quotebar.h"

#include <QDateTime>
#include <QPoint>
#include <QRect>
#include <QVector>

namespace OrdaneView {

class ViewCanvas;

// A point of a drawn figure, pinned to the quote series: a trading day and a price.
struct Anchor
{
    QDateTime date;
    float price = 0;

    bool operator==(const Anchor &o) const { return date == o.date && price == o.price; }
    bool operator!=(const Anchor &o) const { return !(*this == o); }
};

// Where anchors fall on a view's pixels, and which anchor a pixel stands for, for one state
// of the view: the series and its time frame, the first visible bar, the zoom, the value
// range of the master layer and the view's size. No widget is involved; a mapping is made
// for each paint or mouse event and not kept, since any scroll, zoom or new range changes it.
//
// Columns follow the bars' convention: bar i is centred on column (i - firstVisible) * zoom.
// Rows follow Layer::row: H - (price - min) * H / (max - min) in single precision, truncated
// toward zero, and the middle row when max equals min.
//
// A day missing from the series (a figure drawn in another time frame) goes to the first bar
// dated on or after it: for a trading day, the bar whose period holds it, since bars are
// dated on their period's last trading day. A day before the first bar goes to the first bar.
// After the last bar the bars go on at the series' frame, one column step per period
// (weekday, week, month, quarter, year), each dated on the last weekday of its period, and
// a later day goes to the first of them dated on or after it.
class AnchorMapping
{
public:
    // `frame` is OrdaneData::Day .. Year; `plotWidth` and `height` give the plot's size.
    AnchorMapping(QVector<QuoteBar> bars, int frame, int firstVisible, int zoom, float min,
                  float max, int plotWidth, int height);
    // The mapping of a canvas as it was last painted: its series (MTools::Error("Null handle")
    // when it has none), geometry, size and the current range of its master layer (none:
    // every price on the middle row).
    static AnchorMapping of(const ViewCanvas &canvas);

    // The index of the bar an anchor's day falls on; beyond the last bar for later days.
    // An empty series gives 0.
    int indexOf(const QDate &date) const;
    // The day of bar `index`: the bar's own date inside the series, the first bar's before it,
    // and after it the last weekday of the period `index - last` periods after the last
    // bar's. indexOf(dateOf(i)) == i for every i from 0 on (for a series with one bar per
    // date). Null for an empty series.
    QDate dateOf(int index) const;

    int column(int index) const { return (index - mFirstVisible) * mZoom; }
    int row(float price) const;
    QPoint toPixel(const Anchor &anchor) const;
    // The anchor of a pixel: the bar whose column is nearest (the first bar for columns left
    // of it) and the price of the row.
    Anchor toAnchor(const QPoint &pixel) const;

    // The plot, scale strip excluded.
    QRect plot() const { return QRect(0, 0, mPlotWidth, mHeight); }
    int zoom() const { return mZoom; }
    int firstVisible() const { return mFirstVisible; }
    int barCount() const { return mBars.size(); }

private:
    QVector<QuoteBar> mBars;
    int mFrame;
    int mFirstVisible;
    int mZoom;
    float mMin;
    float mMax;
    int mPlotWidth;
    int mHeight;
};

} // namespace OrdaneView
