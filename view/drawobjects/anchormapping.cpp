#include "anchormapping.h"

#include "data/reader.h"
#include "view/chartgeometry.h"
#include "view/layer.h"
#include "view/viewcanvas.h"

#include <algorithm>
#include <cmath>

namespace OrdaneView {

namespace {
// Far enough for any plot; keeps absurd dates from overflowing the column arithmetic.
constexpr qint64 kMaxBarsBeyond = 1000000;

qint64 floorDiv(qint64 a, qint64 b)
{
    return a / b - ((a % b != 0) && ((a < 0) != (b < 0)));
}

// A running number of the period of `frame` that holds `date`: consecutive periods differ by
// one. Daily periods are weekdays; a Saturday or Sunday counts as the Monday after it, the
// first trading day on or after it. Weeks start on Monday, as the weekly bars' do. Julian
// day 0 was a Monday.
qint64 periodNumber(int frame, const QDate &date)
{
    const qint64 day = date.toJulianDay();
    switch (frame) {
    case OrdaneData::Week:
        return floorDiv(day, 7);
    case OrdaneData::Month:
        return qint64(date.year()) * 12 + date.month() - 1;
    case OrdaneData::Quarter:
        return qint64(date.year()) * 4 + (date.month() - 1) / 3;
    case OrdaneData::Year:
        return date.year();
    default: {
        const qint64 week = floorDiv(day, 7);
        return week * 5 + std::min<qint64>(day - week * 7, 5);
    }
    }
}

QDate weekdayOnOrBefore(const QDate &date)
{
    const int weekday = date.dayOfWeek();
    return weekday > 5 ? date.addDays(5 - weekday) : date;
}

// The last weekday of period `number` of `frame` (the inverse of periodNumber).
QDate periodEnd(int frame, qint64 number)
{
    const auto lastOfMonth = [](qint64 year, int month) {
        return weekdayOnOrBefore(QDate(int(year), month, 1).addMonths(1).addDays(-1));
    };
    switch (frame) {
    case OrdaneData::Week:
        return QDate::fromJulianDay(number * 7 + 4);
    case OrdaneData::Month: {
        const qint64 year = floorDiv(number, 12);
        return lastOfMonth(year, int(number - year * 12) + 1);
    }
    case OrdaneData::Quarter: {
        const qint64 year = floorDiv(number, 4);
        return lastOfMonth(year, int(number - year * 4) * 3 + 3);
    }
    case OrdaneData::Year:
        return weekdayOnOrBefore(QDate(int(number), 12, 31));
    default: {
        const qint64 week = floorDiv(number, 5);
        return QDate::fromJulianDay(week * 7 + (number - week * 5));
    }
    }
}
} // namespace

AnchorMapping::AnchorMapping(QVector<QuoteBar> bars, int frame, int firstVisible, int zoom,
                             float min, float max, int plotWidth, int height)
    : mBars(std::move(bars))
    , mFrame(frame)
    , mFirstVisible(firstVisible)
    , mZoom(std::max(zoom, 1))
    , mMin(min)
    , mMax(max)
    , mPlotWidth(plotWidth)
    , mHeight(height)
{}

AnchorMapping AnchorMapping::of(const ViewCanvas &canvas)
{
    const OrdaneData::Reader &series = *canvas.reader(); // throws "Null handle"
    const ChartGeometry *geometry = canvas.geometry();
    const Layer *master = canvas.masterLayer();
    return AnchorMapping(series.bars(), series.timeFrame(), geometry->firstVisible(),
                         geometry->zoom(), master ? master->min() : 0.0f,
                         master ? master->max() : 0.0f, canvas.plotWidth(), canvas.size().height());
}

int AnchorMapping::indexOf(const QDate &date) const
{
    if (mBars.isEmpty())
        return 0;
    const QDate &last = mBars.constLast().date();
    if (date <= last) {
        const auto it =
            std::lower_bound(mBars.cbegin(), mBars.cend(), date,
                             [](const QuoteBar &bar, const QDate &d) { return bar.date() < d; });
        return int(it - mBars.cbegin());
    }
    // The bars beyond the last are dated on the last weekday of their periods; a weekend
    // after that day goes on to the next one, as any day goes to the first bar on or after it.
    qint64 period = periodNumber(mFrame, date);
    if (date > periodEnd(mFrame, period))
        ++period;
    const qint64 beyond = period - periodNumber(mFrame, last);
    return mBars.size() - 1 + int(std::clamp<qint64>(beyond, 1, kMaxBarsBeyond));
}

QDate AnchorMapping::dateOf(int index) const
{
    if (mBars.isEmpty())
        return QDate();
    if (index <= 0)
        return mBars.constFirst().date();
    if (index < mBars.size())
        return mBars.at(index).date();
    const int last = mBars.size() - 1;
    return periodEnd(mFrame, periodNumber(mFrame, mBars.at(last).date()) + (index - last));
}

int AnchorMapping::row(float price) const
{
    if (mMax == mMin || !std::isfinite(mMax - mMin))
        return mHeight / 2;
    // As Layer::rowOf, in single precision.
    return Layer::toPixel(
        double(float(mHeight) - (price - mMin) / ((mMax - mMin) / float(mHeight))));
}

QPoint AnchorMapping::toPixel(const Anchor &anchor) const
{
    return QPoint(column(indexOf(anchor.date.date())), row(anchor.price));
}

Anchor AnchorMapping::toAnchor(const QPoint &pixel) const
{
    const int index = std::max(0, mFirstVisible + int(floorDiv(pixel.x() + mZoom / 2, mZoom)));
    Anchor anchor;
    anchor.date = QDateTime(dateOf(index), QTime(0, 0));
    if (mMax == mMin || !std::isfinite(mMax - mMin) || mHeight <= 0) {
        anchor.price = mMin;
    } else {
        // The price at the middle of the pixel's row, so that row() truncates it back to
        // the same row.
        const double perRow = double(mMax - mMin) / mHeight;
        anchor.price = float(mMin + (mHeight - pixel.y() - 0.5) * perRow);
    }
    return anchor;
}

} // namespace OrdaneView
