// Oscillators that place the price within its recent range: the stochastic oscillator,
// Williams %R, the commodity channel index and DeMarker.

#include "oscillators.h"
#include "seriesmath.h"

namespace Indicators {

using namespace OscillatorParts;

namespace {
struct Extremes
{
    Series lowest;
    Series highest;
};

// The lowest low and the highest high of the p bars ending at each bar of [from, end).
Extremes extremes(const Series &lows, const Series &highs, int from, int end, int p)
{
    Extremes e{lows.mid(from, end - from), highs.mid(from, end - from)};
    slideExtremes(p, e.lowest, e.highest);
    return e;
}
} // namespace

Result computeStochastic(const QVector<QuoteBar> &bars, const Params &params)
{
    const int kPeriod = period(params, QStringLiteral("KPeriod"), 14);
    const int dPeriod = period(params, QStringLiteral("DPeriod"), 3);
    const int slowing = period(params, QStringLiteral("Slowing"), 3);
    const int n = bars.size();
    // DPeriod only smooths K into D, so it guards D alone (the guard of sma).
    if (tooShort(n, {kPeriod, slowing}))
        return zeroResult(n, {QStringLiteral("K"), QStringLiteral("D")});
    const Series low = lows(bars);
    const Series high = highs(bars);
    const Series close = closes(bars);
    const float *c = close.constData();
    const int first = kPeriod + slowing - 2;
    Series k(n, 0.0f);
    float *out = k.data();
    inChunks(n, first, [&](int from, int begin, int end) {
        // The extremes start from the sentinels 1e6 (low) and -1e6 (high), so prices beyond
        // them are clipped. Per bar: close - lowest and highest - lowest, in place.
        Extremes e = extremes(low, high, from, end, kPeriod);
        float *above = e.lowest.data();
        float *range = e.highest.data();
        for (int j = 0; j < end - from; ++j) {
            const float ll = std::min(above[j], 1000000.0f);
            const float hh = std::max(range[j], -1000000.0f);
            above[j] = c[from + j] - ll;
            range[j] = hh - ll;
        }
        const Series sumAbove = windowSums(slowing, std::move(e.lowest));
        const Series sumRange = windowSums(slowing, std::move(e.highest));
        for (int i = std::max(begin, first); i < end; ++i) {
            const int j = i - from;
            out[i] = sumRange[j] == 0.0f ? 100.0f : sumAbove[j] / sumRange[j] * 100.0f;
        }
    });
    Result r;
    r.buffers.insert(QStringLiteral("D"), sma(dPeriod, k));
    r.buffers.insert(QStringLiteral("K"), k);
    return r;
}

Result computeWilliamsPR(const QVector<QuoteBar> &bars, const Params &params)
{
    const int p = period(params, QStringLiteral("Period"), 14);
    const int n = bars.size();
    if (tooShort(n, {p}))
        return zeroResult(n, {QStringLiteral("WilliamsPR")});
    const Series low = lows(bars);
    const Series high = highs(bars);
    const Series close = closes(bars);
    Series r(n, 0.0f);
    float *out = r.data();
    inChunks(n, p - 1, [&](int from, int begin, int end) {
        const Extremes e = extremes(low, high, from, end, p);
        for (int i = std::max(begin, p - 1); i < end; ++i) {
            const float hh = e.highest[i - from];
            const float range = hh - e.lowest[i - from];
            // A flat window reads as the bottom of its scale; a close outside its bar's
            // range (inconsistent data) is held to the scale.
            const float v = range == 0.0f ? -100.0f : (hh - close[i]) / range * -100.0f;
            out[i] = std::min(std::max(v, -100.0f), 0.0f);
        }
    });
    return singleBuffer(QStringLiteral("WilliamsPR"), r);
}

Result computeCCI(const QVector<QuoteBar> &bars, const Params &params)
{
    const int p = period(params, QStringLiteral("Period"), 14);
    const int n = bars.size();
    if (tooShort(n, {p}))
        return zeroResult(n, {QStringLiteral("CCI")});
    const Series typicalPrice = typicalPrices(bars);
    Series r(n, 0.0f);
    float *out = r.data();
    // A chunk keeps p bars of history, one more than a window needs, so that it is always
    // longer than the period that sma guards against.
    inChunks(n, p, [&](int from, int begin, int end) {
        const Series typical = typicalPrice.mid(from, end - from);
        const float *t = typical.constData();
        // Lambert (1980): (typical - its mean) / (0.015 * mean absolute deviation); 0 where
        // the deviation is 0.
        const Series mean = sma(p, typical);
        const Series deviation = meanDeviations(p, typical, mean);
        for (int i = std::max(begin, p - 1); i < end; ++i) {
            const int j = i - from;
            out[i] = deviation[j] == 0.0f ? 0.0f : (t[j] - mean[j]) / (0.015f * deviation[j]);
        }
    });
    return singleBuffer(QStringLiteral("CCI"), r);
}

Result computeDeMarker(const QVector<QuoteBar> &bars, const Params &params)
{
    const int p = period(params, QStringLiteral("Period"), 14);
    const int n = bars.size();
    if (tooShort(n, {p}))
        return zeroResult(n, {QStringLiteral("DeMarker")});
    const QuoteBar *b = bars.constData();
    Series rise(n, 0.0f);
    Series fall(n, 0.0f);
    float *up = rise.data();
    float *down = fall.data();
    for (int i = 1; i < n; ++i) {
        up[i] = b[i].high() > b[i - 1].high() ? b[i].high() - b[i - 1].high() : 0.0f;
        down[i] = b[i].low() < b[i - 1].low() ? b[i - 1].low() - b[i].low() : 0.0f;
    }
    const Series a = sma(p, rise);
    const Series d = sma(p, fall);
    // Unguarded: a window in which neither the high rose nor the low fell gives 0 / 0.
    Series r(n, 0.0f);
    float *out = r.data();
    for (int i = p - 1; i < n; ++i)
        out[i] = a[i] / (a[i] + d[i]);
    return singleBuffer(QStringLiteral("DeMarker"), r);
}

} // namespace Indicators
