// Building blocks shared by the oscillators: guards, window extremes and window sums.

#include "oscillators.h"
#include "wide.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace Indicators {
namespace OscillatorParts {

namespace {
float lower(float a, float b)
{
    return b < a ? b : a;
}

float higher(float a, float b)
{
    return b > a ? b : a;
}

// out[i] = 0.0f + term(s[i], c[i]) + term(s[i - 1], c[i]) + ... + term(s[i - p + 1], c[i])
// for i from p - 1 to n - 1, added in exactly that order; c may be null (c[i] taken as 0).
// The bars of a block are summed side by side in fixed-length loops that the compiler
// turns into vector adds, four terms per pass. Blocks run from the newest backwards, so
// out may be s: a block reads only values that are not yet replaced.
template <typename Term>
void blockedWindowSums(int p, int n, const float *s, const float *c, float *out, Term term)
{
    constexpr int Block = 256;
    const int first = p - 1;
    std::vector<float> window(Block + first);
    float centre[Block];
    float acc[Block];
    for (int end = n; end > first; end -= Block) {
        const int start = std::max(first, end - Block);
        const int count = end - start;
        std::fill(std::copy(s + start - first, s + end, window.begin()), window.end(), 0.0f);
        std::fill(c ? std::copy(c + start, c + end, centre) : centre, centre + Block, 0.0f);
        std::fill(acc, acc + Block, 0.0f);
        int k = 0;
        for (; k + 4 <= p; k += 4) {
            const float *w = window.data() + (first - k);
            for (int t = 0; t < Block; ++t) {
                const float m = centre[t];
                acc[t] = acc[t] + term(w[t], m) + term(w[t - 1], m) + term(w[t - 2], m) +
                         term(w[t - 3], m);
            }
        }
        for (; k < p; ++k) {
            const float *w = window.data() + (first - k);
            for (int t = 0; t < Block; ++t)
                acc[t] += term(w[t], centre[t]);
        }
        std::copy(acc, acc + count, out + start);
    }
}
} // namespace

Result zeroResult(int n, std::initializer_list<QString> names)
{
    Result r;
    for (const QString &name : names)
        r.buffers.insert(name, Series(std::max(n, 0), 0.0f));
    return r;
}

Result singleBuffer(const QString &name, const Series &values)
{
    Result r;
    r.buffers.insert(name, values);
    return r;
}

bool tooShort(int n, std::initializer_list<int> periods)
{
    return std::any_of(periods.begin(), periods.end(), [n](int p) { return p < 1 || n <= p; });
}

// Van Herk / Gil-Werman: cut the series into blocks of `period` values. The window ending
// at i covers the tail of the previous block (a suffix extreme, kept from before the block
// was overwritten) and the head of its own (a running prefix extreme). Each bar costs three
// comparisons whatever the period, and the result is exactly the extreme a rescan of the
// window would find. Lows and highs go through the same loops, so that their two chains of
// comparisons overlap.
void slideExtremes(int period, Series &lows, Series &highs)
{
    const int n = lows.size();
    if (period < 1 || highs.size() != n) {
        lows.fill(0.0f);
        highs.fill(0.0f);
        return;
    }
    float *lo = lows.data();
    float *hi = highs.data();
    std::vector<float> buffer(4 * period);
    float *suffixLow = buffer.data();
    float *suffixHigh = suffixLow + period;
    float *previousLow = suffixHigh + period;
    float *previousHigh = previousLow + period;
    for (int b = 0; b < n; b += period) {
        const int end = std::min(b + period, n);
        std::swap(previousLow, suffixLow);
        std::swap(previousHigh, suffixHigh);
        float runLow = lo[end - 1];
        float runHigh = hi[end - 1];
        suffixLow[end - 1 - b] = runLow;
        suffixHigh[end - 1 - b] = runHigh;
        for (int i = end - 2; i >= b; --i) {
            runLow = lower(lo[i], runLow);
            runHigh = higher(hi[i], runHigh);
            suffixLow[i - b] = runLow;
            suffixHigh[i - b] = runHigh;
        }
        float prefixLow = lo[b];
        float prefixHigh = hi[b];
        for (int i = b; i < end; ++i) {
            prefixLow = lower(prefixLow, lo[i]);
            prefixHigh = higher(prefixHigh, hi[i]);
            const int from = i - b + 1; // where the window starts in the previous block
            if (b > 0 && from < period) {
                lo[i] = lower(previousLow[from], prefixLow);
                hi[i] = higher(previousHigh[from], prefixHigh);
            } else {
                lo[i] = prefixLow;
                hi[i] = prefixHigh;
            }
        }
    }
}

HALCYRA_WIDE Series windowSums(int period, Series values)
{
    const int n = values.size();
    if (period < 1 || n < period) {
        values.fill(0.0f);
        return values;
    }
    float *v = values.data();
    blockedWindowSums(period, n, v, nullptr, v, [](float x, float) { return x; });
    std::fill(v, v + period - 1, 0.0f);
    return values;
}

HALCYRA_WIDE Series meanDeviations(int period, const Series &values, const Series &means)
{
    const int n = values.size();
    Series r(n, 0.0f);
    if (period < 1 || n < period)
        return r;
    float *out = r.data();
    blockedWindowSums(period, n, values.constData(), means.constData(), out,
                      [](float x, float m) { return std::fabs(x - m); });
    for (int i = period - 1; i < n; ++i)
        out[i] /= float(period);
    return r;
}

HALCYRA_WIDE Series trueRanges(const float *high, const float *low, const float *close, int count)
{
    Series r(count, 0.0f);
    if (count == 0)
        return r;
    float *out = r.data();
    out[0] = high[0] - low[0];
    for (int i = 1; i < count; ++i)
        out[i] = std::max(high[i], close[i - 1]) - std::min(low[i], close[i - 1]);
    return r;
}

} // namespace OscillatorParts
} // namespace Indicators
