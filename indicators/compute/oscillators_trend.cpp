// Range and trend measures: average true range, Chaikin volatility, Wilder's directional
// movement, the detrended price oscillator and the relative vigour index.

#include "oscillators.h"
#include "seriesmath.h"

#include <cmath>

namespace Indicators {

using namespace OscillatorParts;

namespace {
struct Directional
{
    Series plus;
    Series minus;
};

// Wilder (1978): per bar from bar 1 on, the up move counts as +DM when it is positive and
// larger than the down move, the down move as -DM in the mirror case. +DM, -DM and the
// true range are smoothed by Wilder's rule, which is smma; +DI = 100 * (+DM / TR).
Directional directional(const QVector<QuoteBar> &bars, int p)
{
    const int n = bars.size();
    Series up(n - 1);
    Series down(n - 1);
    for (int i = 1; i < n; ++i) {
        const float u = bars[i].high() - bars[i - 1].high();
        const float d = bars[i - 1].low() - bars[i].low();
        up[i - 1] = u > d && u > 0.0f ? u : 0.0f;
        down[i - 1] = d > u && d > 0.0f ? d : 0.0f;
    }
    const Series high = highs(bars);
    const Series low = lows(bars);
    const Series close = closes(bars);
    const Series trueRange = trueRanges(high.constData(), low.constData(), close.constData(), n);
    const Series range = shift(1, smma(p, trueRange.mid(1)));
    const Series plus = shift(1, smma(p, up));
    const Series minus = shift(1, smma(p, down));
    Directional di{Series(n, 0.0f), Series(n, 0.0f)};
    float *plusDI = di.plus.data();
    float *minusDI = di.minus.data();
    for (int i = 0; i < n; ++i) {
        if (range[i] != 0.0f) {
            plusDI[i] = 100.0f * (plus[i] / range[i]);
            minusDI[i] = 100.0f * (minus[i] / range[i]);
        }
    }
    return di;
}

// Ehlers' symmetric weighting (1, 2, 2, 1) / 6 of the four values ending at each bar, from
// bar `from` + 3 on.
Series symmetric(const Series &s, int from)
{
    Series r(s.size(), 0.0f);
    for (int i = from + 3; i < s.size(); ++i)
        r[i] = (s[i] + 2.0f * s[i - 1] + 2.0f * s[i - 2] + s[i - 3]) / 6.0f;
    return r;
}
} // namespace

Result computeATR(const QVector<QuoteBar> &bars, const Params &params)
{
    const int p = period(params, QStringLiteral("Period"), 14);
    const int n = bars.size();
    if (tooShort(n, {p}))
        return zeroResult(n, {QStringLiteral("ATR")});
    // A chunk keeps p bars of history: one more than a window needs, so that it is always
    // longer than the period that sma guards against. Its first true range, which lacks the
    // close before it, is never inside a window that is kept.
    const Series high = highs(bars);
    const Series low = lows(bars);
    const Series close = closes(bars);
    Series r(n, 0.0f);
    float *out = r.data();
    inChunks(n, p, [&](int from, int begin, int end) {
        const Series atr = sma(p, trueRanges(high.constData() + from, low.constData() + from,
                                             close.constData() + from, end - from));
        std::copy(atr.begin() + (begin - from), atr.end(), out + begin);
    });
    return singleBuffer(QStringLiteral("ATR"), r);
}

Result computeCHV(const QVector<QuoteBar> &bars, const Params &params)
{
    const int p = period(params, QStringLiteral("Period"), 10);
    const int n = bars.size();
    if (tooShort(n, {p}))
        return zeroResult(n, {QStringLiteral("CHV")});
    Series range(n);
    float *h = range.data();
    for (int i = 0; i < n; ++i)
        h[i] = bars[i].high() - bars[i].low();
    const Series e = ema(p, range);
    // Unguarded: an average range of 0 p bars back divides by zero.
    Series r(n, 0.0f);
    float *out = r.data();
    for (int i = p; i < n; ++i)
        out[i] = (e[i] - e[i - p]) / e[i - p] * 100.0f;
    return singleBuffer(QStringLiteral("CHV"), r);
}

Result computeDI(const QVector<QuoteBar> &bars, const Params &params)
{
    const int p = period(params, QStringLiteral("Period"), 14);
    if (tooShort(bars.size(), {p}))
        return zeroResult(bars.size(), {QStringLiteral("+DI"), QStringLiteral("-DI")});
    const Directional di = directional(bars, p);
    Result r;
    r.buffers.insert(QStringLiteral("+DI"), di.plus);
    r.buffers.insert(QStringLiteral("-DI"), di.minus);
    return r;
}

Result computeADX(const QVector<QuoteBar> &bars, const Params &params)
{
    const int p = period(params, QStringLiteral("Period"), 14);
    const int n = bars.size();
    if (tooShort(n, {p}))
        return zeroResult(n, {QStringLiteral("+DI"), QStringLiteral("-DI"), QStringLiteral("ADX")});
    Result r = computeDI(bars, params);
    const Series &plus = r.buffers[QStringLiteral("+DI")];
    const Series &minus = r.buffers[QStringLiteral("-DI")];
    // DX = 100 * |+DI - -DI| / (+DI + -DI) from bar p on; ADX is its Wilder smoothing.
    Series dx(n - p);
    for (int i = p; i < n; ++i) {
        const float sum = plus[i] + minus[i];
        dx[i - p] = sum == 0.0f ? 0.0f : 100.0f * (std::fabs(plus[i] - minus[i]) / sum);
    }
    r.buffers.insert(QStringLiteral("ADX"), shift(p, smma(p, dx)));
    return r;
}

Result computeDPO(const QVector<QuoteBar> &bars, const Params &params)
{
    const int p = period(params, QStringLiteral("Period"), 20);
    const int n = bars.size();
    if (tooShort(n, {p}))
        return zeroResult(n, {QStringLiteral("DPO")});
    const Series close = closes(bars);
    const Series mean = sma(p, close);
    const int back = p / 2 + 1;
    Series r(n, 0.0f);
    for (int i = p - 1 + back; i < n; ++i)
        r[i] = close[i] - mean[i - back];
    return singleBuffer(QStringLiteral("DPO"), r);
}

Result computeRVI(const QVector<QuoteBar> &bars, const Params &params)
{
    const int p = period(params, QStringLiteral("Period"), 10);
    const int n = bars.size();
    if (tooShort(n, {p}))
        return zeroResult(n, {QStringLiteral("RVI"), QStringLiteral("RVISignal")});
    // Ehlers (2002): the weighted body (close - open) over the weighted range (high - low),
    // each summed over p bars.
    Series body(n);
    Series range(n);
    for (int i = 0; i < n; ++i) {
        body[i] = bars[i].close() - bars[i].open();
        range[i] = bars[i].high() - bars[i].low();
    }
    const Series up = windowSums(p, symmetric(body, 0));
    const Series down = windowSums(p, symmetric(range, 0));
    Series rvi(n, 0.0f);
    for (int i = p + 2; i < n; ++i)
        rvi[i] = down[i] == 0.0f ? 0.0f : up[i] / down[i];
    Result r;
    r.buffers.insert(QStringLiteral("RVI"), rvi);
    r.buffers.insert(QStringLiteral("RVISignal"), symmetric(rvi, p + 2));
    return r;
}

} // namespace Indicators
