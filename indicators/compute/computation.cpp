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
template <typename Get> Series column(const QVector<QuoteBar> &bars, Get get)
{
    // Sized once and filled through plain pointers: appending costs several times more.
    Series s(bars.size());
    float *out = s.data();
    const QuoteBar *in = bars.constData();
    for (int i = 0, n = bars.size(); i < n; ++i)
        out[i] = get(in[i]);
    return s;
}
} // namespace

Series closes(const QVector<QuoteBar> &bars)
{
    return column(bars, [](const QuoteBar &b) { return b.close(); });
}

Series opens(const QVector<QuoteBar> &bars)
{
    return column(bars, [](const QuoteBar &b) { return b.open(); });
}

Series highs(const QVector<QuoteBar> &bars)
{
    return column(bars, [](const QuoteBar &b) { return b.high(); });
}

Series lows(const QVector<QuoteBar> &bars)
{
    return column(bars, [](const QuoteBar &b) { return b.low(); });
}

Series volumes(const QVector<QuoteBar> &bars)
{
    return column(bars, [](const QuoteBar &b) { return float(b.volume()); });
}

Series medianPrices(const QVector<QuoteBar> &bars)
{
    return column(bars, [](const QuoteBar &b) { return (b.high() + b.low()) * 0.5f; });
}

} // namespace Indicators
