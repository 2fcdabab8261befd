// Indicators built on the traded volume: the volume itself, on-balance volume,
// accumulation/distribution and its Chaikin oscillator, money flow and force.

#include "oscillators.h"
#include "seriesmath.h"

namespace Indicators {

using namespace OscillatorParts;

namespace {
// Running total of the money-flow multiplier ((close - low) - (high - close)) / (high - low)
// times the volume; a bar without a range has no multiplier and adds nothing.
Series accumulation(const QVector<QuoteBar> &bars)
{
    Series r(bars.size(), 0.0f);
    float *out = r.data();
    float total = 0.0f;
    for (int i = 0; i < bars.size(); ++i) {
        const QuoteBar &b = bars[i];
        const float range = b.high() - b.low();
        if (range != 0.0f)
            total += ((b.close() - b.low()) - (b.high() - b.close())) / range * float(b.volume());
        out[i] = total;
    }
    return r;
}
} // namespace

Result computeVolume(const QVector<QuoteBar> &bars, const Params &)
{
    return singleBuffer(QStringLiteral("Volume"), volumes(bars));
}

Result computeOBV(const QVector<QuoteBar> &bars, const Params &)
{
    const int n = bars.size();
    Series r(n, 0.0f);
    if (n == 0)
        return singleBuffer(QStringLiteral("OBV"), r);
    const Series close = closes(bars);
    const Series volume = volumes(bars);
    const float *c = close.constData();
    const float *v = volume.constData();
    float *out = r.data();
    float total = v[0];
    out[0] = total;
    for (int i = 1; i < n; ++i) {
        // The direction 1, -1 or 0 times the volume is exactly v, -v or 0 (adding a zero
        // leaves the total as it is), without a branch that a random walk would mispredict
        // half of the time.
        const int direction = int(c[i] > c[i - 1]) - int(c[i] < c[i - 1]);
        total += float(direction) * v[i];
        out[i] = total;
    }
    return singleBuffer(QStringLiteral("OBV"), r);
}

Result computeAD(const QVector<QuoteBar> &bars, const Params &)
{
    return singleBuffer(QStringLiteral("AD"), accumulation(bars));
}

Result computeCHO(const QVector<QuoteBar> &bars, const Params &params)
{
    const int fast = period(params, QStringLiteral("Period1"), 3);
    const int slow = period(params, QStringLiteral("Period2"), 10);
    // Each average under its own guard: over a series not longer than Period2 the result is
    // the fast average alone.
    const Series ad = accumulation(bars);
    Series r = ema(fast, ad);
    const Series s = ema(slow, ad);
    float *out = r.data();
    for (int i = 0; i < r.size(); ++i)
        out[i] -= s[i];
    return singleBuffer(QStringLiteral("CHO"), r);
}

Result computeMFI(const QVector<QuoteBar> &bars, const Params &params)
{
    const int p = period(params, QStringLiteral("Period"), 14);
    const int n = bars.size();
    if (tooShort(n, {p}))
        return zeroResult(n, {QStringLiteral("MFI")});
    // Each bar's money flow, volume times typical price, counts as positive when the typical
    // price rose against the bar before and as negative when it fell. Adding the 0 of the
    // other bars changes no sum, so the window sums take every bar.
    const Series typicalPrice = typicalPrices(bars);
    const Series volume = volumes(bars);
    const float *t = typicalPrice.constData();
    const float *v = volume.constData();
    Series r(n, 0.0f);
    float *out = r.data();
    inChunks(n, p, [&](int from, int begin, int end) {
        Series up(end - from, 0.0f);
        Series down(end - from, 0.0f);
        float *u = up.data();
        float *d = down.data();
        for (int j = from + 1; j < end; ++j) {
            const float flow = v[j] * t[j];
            u[j - from] = t[j] > t[j - 1] ? flow : 0.0f;
            d[j - from] = t[j] < t[j - 1] ? flow : 0.0f;
        }
        const Series positive = windowSums(p, std::move(up));
        const Series negative = windowSums(p, std::move(down));
        for (int i = std::max(begin, p); i < end; ++i) {
            const int j = i - from;
            out[i] =
                negative[j] == 0.0f ? 100.0f : 100.0f - 100.0f / (1.0f + positive[j] / negative[j]);
        }
    });
    return singleBuffer(QStringLiteral("MFI"), r);
}

Result computeFRC(const QVector<QuoteBar> &bars, const Params &params)
{
    const int p = period(params, QStringLiteral("Period"), 13);
    const int n = bars.size();
    if (tooShort(n, {p}))
        return zeroResult(n, {QStringLiteral("FRC")});
    // Elder's force of bar i is (close(i) - close(i - 1)) * volume(i); bar 0 has none, so
    // the average starts from the force of bar 1.
    Series force(n - 1);
    for (int i = 1; i < n; ++i)
        force[i - 1] = (bars[i].close() - bars[i - 1].close()) * float(bars[i].volume());
    return singleBuffer(QStringLiteral("FRC"), shift(1, ema(p, force)));
}

} // namespace Indicators
