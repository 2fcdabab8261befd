#include "seriesmath.h"

#include "wide.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <utility>
#include <vector>

namespace Indicators {

namespace {
bool guarded(int period, const Series &source)
{
    return period < 1 || source.size() <= period;
}

// The window sums of sma, wma and the deviations are computed a block of bars at a time.
// Every bar of the block keeps its own sum and adds its terms one by one in the same order
// as a loop over that bar alone, so the results are the same to the bit; keeping the sums
// of neighbouring bars side by side only lets the compiler vectorise across bars. (A
// running sum would be faster still, but it rounds differently.)
constexpr int Block = 256;
// Terms added per pass over the block: fewer loads and stores of the sums, same order.
constexpr int TermsPerPass = 8;

// sum + term(j, i) + term(j + 1, i) + ..., added left to right.
template <typename Term, int... U>
float addTerms(float sum, Term term, int j, int i, std::integer_sequence<int, U...>)
{
    ((sum += term(j + U, i)), ...);
    return sum;
}

// out[i] = finish(0 + term(0, i) + term(1, i) + ... + term(terms - 1, i)), added left to right
// in single precision, for the Block bars from `first` on.
template <typename Term, typename Finish>
void sumBlock(int first, int terms, float *out, Term term, Finish finish)
{
    float sum[Block] = {};
    int j = 0;
    for (; j + TermsPerPass <= terms; j += TermsPerPass) {
        for (int l = 0; l < Block; ++l)
            sum[l] = addTerms(sum[l], term, j, first + l,
                              std::make_integer_sequence<int, TermsPerPass>());
    }
    for (; j < terms; ++j) {
        for (int l = 0; l < Block; ++l)
            sum[l] += term(j, first + l);
    }
    for (int l = 0; l < Block; ++l)
        out[first + l] = finish(sum[l]);
}

// The same for every bar in [first, n). The last block is moved back to end at n; the bars it
// shares with the block before it get the same values a second time.
template <typename Term, typename Finish>
void sumBars(int first, int n, int terms, float *out, Term term, Finish finish)
{
    if (n - first < Block) {
        for (int i = first; i < n; ++i) {
            float sum = 0.0f;
            for (int j = 0; j < terms; ++j)
                sum += term(j, i);
            out[i] = finish(sum);
        }
        return;
    }
    for (int i = first; i < n; i += Block)
        sumBlock(std::min(i, n - Block), terms, out, term, finish);
}

HALCYRA_WIDE Series deviation(int period, const Series &source, int f)
{
    const int n = source.size();
    if (guarded(period, source) || period - f <= 0)
        return Series(n, 0.0f);
    const Series mean = sma(period, source);
    const float *s = source.constData();
    const float *m = mean.constData();
    const float divisor = float(period - f);
    Series r(n, 0.0f);
    float *out = r.data();
    // The span is the P values before bar i, the mean that of the P values ending at bar i.
    sumBars(
        period, n, period, out,
        [=](int j, int i) {
            const float d = s[i - period + j] - m[i];
            return d * d;
        },
        [=](float sum) { return sum / divisor; });
    // The root in a loop of its own, so that the division above still vectorises.
    for (int i = period; i < n; ++i)
        out[i] = std::sqrt(out[i]);
    return r;
}

// How many values of w[0 .. P) lie below `leaving` and below `entering`; four at a time, so
// that the loop vectorises.
void countBelow(const float *w, int period, float leaving, float entering, int &at, int &below)
{
    int a[4] = {};
    int b[4] = {};
    const int whole = period / 4 * 4;
    for (int k = 0; k < whole; k += 4) {
        for (int l = 0; l < 4; ++l) {
            a[l] += w[k + l] < leaving;
            b[l] += w[k + l] < entering;
        }
    }
    at = a[0] + a[1] + a[2] + a[3];
    below = b[0] + b[1] + b[2] + b[3];
    for (int k = whole; k < period; ++k) {
        at += w[k] < leaving;
        below += w[k] < entering;
    }
}
} // namespace

HALCYRA_WIDE Series sma(int period, const Series &source)
{
    const int n = source.size();
    if (guarded(period, source))
        return Series(n, 0.0f);
    const float *s = source.constData();
    const float divisor = float(period);
    Series r(n, 0.0f);
    // Newest value first.
    sumBars(
        period - 1, n, period, r.data(), [=](int j, int i) { return s[i - j]; },
        [=](float sum) { return sum / divisor; });
    return r;
}

Series ema(int period, const Series &source)
{
    const int n = source.size();
    if (guarded(period, source))
        return Series(n, 0.0f);
    const EmaStep step(period);
    const float *s = source.constData();
    Series r(n, 0.0f);
    float *out = r.data();
    float previous = s[0];
    out[0] = previous;
    for (int i = 1; i < n; ++i) {
        previous = step(previous, s[i]);
        out[i] = previous;
    }
    return r;
}

Series smma(int period, const Series &source)
{
    const int n = source.size();
    if (guarded(period, source))
        return Series(n, 0.0f);
    const float *s = source.constData();
    const float divisor = float(period);
    Series r(n, 0.0f);
    float *out = r.data();
    float sum = 0.0f;
    for (int i = 0; i < period; ++i)
        sum += s[i];
    float previous = sum / divisor;
    out[period - 1] = previous;
    for (int i = period; i < n; ++i) {
        sum = sum - previous + s[i];
        previous = sum / divisor;
        out[i] = previous;
    }
    return r;
}

HALCYRA_WIDE Series wma(int period, const Series &source)
{
    const int n = source.size();
    if (guarded(period, source))
        return Series(n, 0.0f);
    const float *s = source.constData();
    const float divisor = float(qint64(period) * (period + 1) / 2);
    Series r(n, 0.0f);
    // Weight P on the newest value, 1 on the oldest.
    sumBars(
        period - 1, n, period, r.data(), [=](int j, int i) { return float(period - j) * s[i - j]; },
        [=](float sum) { return sum / divisor; });
    return r;
}

Series median(int period, const Series &source)
{
    const int n = source.size();
    if (guarded(period, source))
        return Series(n, 0.0f);
    const float *s = source.constData();
    Series r(n, 0.0f);
    float *out = r.data();
    // The window is kept sorted instead of being sorted anew for every bar. Where the leaving
    // value sits and where the entering one goes is counted on the source, which no bar
    // changes, so the counting need not wait for the previous bar's move. The moves always
    // shift P places (the buffer has room for that past the window): a fixed length costs
    // less than the mispredicted branches of a length that changes from bar to bar.
    std::vector<float> sorted(2 * size_t(period) + 1, 0.0f);
    float *w = sorted.data();
    std::copy(s, s + period, w);
    std::sort(w, w + period);
    const int half = period / 2;
    const auto middle = [=] {
        return period % 2 ? w[half] : (w[half - 1] + w[half]) * 0.5f;
    };
    out[period - 1] = middle();
    for (int i = period; i < n; ++i) {
        const float *before = s + i - period;
        const float entering = s[i];
        // at: the place of the first copy of the leaving value; below: how many values lie
        // below the entering one, the leaving value included.
        int at = 0;
        int below = 0;
        countBelow(before, period, before[0], entering, at, below);
        // A leaving value below the entering one was counted, and its place is gone.
        const int in = below > at ? below - 1 : below;
        std::memmove(w + at, w + at + 1, sizeof(float) * size_t(period));
        std::memmove(w + in + 1, w + in, sizeof(float) * size_t(period));
        w[in] = entering;
        out[i] = middle();
    }
    return r;
}

Series stdDev(int period, const Series &source)
{
    return deviation(period, source, 0);
}

Series stdDevNMinus1(int period, const Series &source)
{
    return deviation(period, source, 1);
}

Series shift(int bars, const Series &source)
{
    bars = std::max(bars, 0);
    Series r(source.size() + bars, 0.0f);
    std::copy(source.begin(), source.end(), r.begin() + bars);
    return r;
}

} // namespace Indicators
