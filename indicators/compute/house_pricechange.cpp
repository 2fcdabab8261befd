#include "house.h"
#include "seriesmath.h"

#include <algorithm>

namespace Indicators {

namespace {
// The smoothed reach of the bars beyond the previous close, in percent of that close.
struct Reach
{
    Series up;   // >= 0
    Series down; // <= 0
};

// A bar that opens with a gap beyond the previous close reaches nothing on the other side,
// so each side is clamped at 0. Bars left out by `bullsOnly` count as 0, which lets the
// average decay through bearish stretches instead of holding its last value.
Reach reach(const QVector<QuoteBar> &bars, const Params &params, bool bullsOnly)
{
    const int n = bars.size();
    Series up(n, 0.0f);
    Series down(n, 0.0f);
    for (int i = 0; i < n; ++i) {
        const QuoteBar &b = bars[i];
        if (bullsOnly && !(b.close() > b.open()))
            continue;
        const float base = i > 0 ? bars[i - 1].close() : b.open();
        up[i] = percentOf(std::max(b.high() - base, 0.0f), base);
        down[i] = percentOf(std::min(b.low() - base, 0.0f), base);
    }
    const int p = period(params, QStringLiteral("EMAPeriod"), 1);
    return {ema(p, up), ema(p, down)};
}

Result twoBuffers(const QString &upName, const QString &downName, const Reach &r)
{
    Result result;
    result.buffers.insert(upName, r.up);
    result.buffers.insert(downName, r.down);
    return result;
}
} // namespace

Result computeHCPriceChange(const QVector<QuoteBar> &bars, const Params &params)
{
    return twoBuffers(QStringLiteral("HCPriceChangeHigh"), QStringLiteral("HCPriceChangeLow"),
                      reach(bars, params, false));
}

Result computeHCPriceChangeO(const QVector<QuoteBar> &bars, const Params &params)
{
    const Reach r = reach(bars, params, false);
    Series sum(r.up.size());
    for (int i = 0; i < sum.size(); ++i)
        sum[i] = r.up[i] + r.down[i];
    Result result;
    result.buffers.insert(QStringLiteral("HCPriceChange"), sum);
    return result;
}

Result computeHCPriceChangeBulls(const QVector<QuoteBar> &bars, const Params &params)
{
    return twoBuffers(QStringLiteral("HCPriceChangeBullsHigh"),
                      QStringLiteral("HCPriceChangeBullsLow"), reach(bars, params, true));
}

} // namespace Indicators
