#include "computation.h"

#include <algorithm>
#include <limits>

namespace Indicators {

void BarColours::set(int bar, const QColor &colour)
{
    if (bar < 0)
        return;
    if (bar >= mRgba.size())
        mRgba.resize(std::max(bar + 1, mRgba.size() * 2));
    const QRgb rgba = colour.alpha() == 0 ? 0 : colour.rgba();
    mCount += (rgba != 0) - (mRgba[bar] != 0);
    mRgba[bar] = rgba;
}

QColor BarColours::value(int bar, const QColor &fallback) const
{
    return contains(bar) ? QColor::fromRgba(mRgba[bar]) : fallback;
}

QList<int> BarColours::keys() const
{
    QList<int> bars;
    for (int i = 0; i < mRgba.size(); ++i)
        if (mRgba[i] != 0)
            bars.append(i);
    return bars;
}

QMap<int, QColor> BarColours::toMap() const
{
    QMap<int, QColor> map;
    for (int i = 0; i < mRgba.size(); ++i)
        if (mRgba[i] != 0)
            map.insert(map.cend(), i, QColor::fromRgba(mRgba[i]));
    return map;
}

float param(const Params &params, const QString &name, float fallback)
{
    return params.value(name, fallback);
}

int period(const Params &params, const QString &name, float fallback)
{
    // Truncation toward zero; values no int can hold saturate (and NaN reads as 0), since
    // converting them directly is undefined.
    const float v = param(params, name, fallback);
    if (!(v == v))
        return 0;
    if (v >= 2147483647.0f)
        return std::numeric_limits<int>::max();
    if (v <= -2147483648.0f)
        return std::numeric_limits<int>::min();
    return int(v);
}

namespace {
enum Field { Close, Open, High, Low, Volume, MedianPrice, TypicalPrice, FieldCount };

template <typename Get> Series extract(const QVector<QuoteBar> &bars, Get get)
{
    // Sized once and filled through plain pointers: appending costs several times more.
    Series s(bars.size());
    float *out = s.data();
    const QuoteBar *in = bars.constData();
    for (int i = 0, n = bars.size(); i < n; ++i)
        out[i] = get(in[i]);
    return s;
}

// The columns of the last long series this thread read. Several indicators over one chart,
// or a filter running many over one symbol, read the same columns; pulling a field out of
// a long series of bars costs more than most computations over it. The entry keeps a
// shared copy of the bars, so their memory cannot be reused while it stands, and a caller
// that changes its bars detaches from that copy and no longer matches.
struct ColumnCache
{
    QVector<QuoteBar> bars;
    Series columns[FieldCount];
};

// Short series are extracted every time: that is cheap, and they need not stay alive.
constexpr int kCachedFrom = 4096;

// The cache entry of `bars`, emptied first when it held another series.
ColumnCache &cacheOf(const QVector<QuoteBar> &bars)
{
    thread_local ColumnCache cache;
    if (cache.bars.constData() != bars.constData() || cache.bars.size() != bars.size()) {
        cache.bars = bars;
        for (Series &c : cache.columns)
            c.clear();
    }
    return cache;
}

template <typename Get> Series column(const QVector<QuoteBar> &bars, Field field, Get get)
{
    if (bars.size() < kCachedFrom)
        return extract(bars, get);
    Series &c = cacheOf(bars).columns[field];
    if (c.size() != bars.size())
        c = extract(bars, get);
    return c;
}
} // namespace

Series closes(const QVector<QuoteBar> &bars)
{
    return column(bars, Close, [](const QuoteBar &b) { return b.close(); });
}

Series opens(const QVector<QuoteBar> &bars)
{
    return column(bars, Open, [](const QuoteBar &b) { return b.open(); });
}

Series highs(const QVector<QuoteBar> &bars)
{
    return column(bars, High, [](const QuoteBar &b) { return b.high(); });
}

Series lows(const QVector<QuoteBar> &bars)
{
    return column(bars, Low, [](const QuoteBar &b) { return b.low(); });
}

Series volumes(const QVector<QuoteBar> &bars)
{
    return column(bars, Volume, [](const QuoteBar &b) { return float(b.volume()); });
}

Series medianPrices(const QVector<QuoteBar> &bars)
{
    return column(bars, MedianPrice, [](const QuoteBar &b) { return (b.high() + b.low()) * 0.5f; });
}

Series typicalPrices(const QVector<QuoteBar> &bars)
{
    return column(bars, TypicalPrice,
                  [](const QuoteBar &b) { return (b.high() + b.low() + b.close()) / 3.0f; });
}

} // namespace Indicators
