#include "averages.h"

#include "seriesmath.h"
#include "wide.h"

#include <algorithm>
#include <cmath>

namespace Indicators {

namespace {
using Routine = Series (*)(int, const Series &);

// One routine over the closes, into the buffer named after the indicator.
Result ofCloses(const QVector<QuoteBar> &bars, const Params &params, const QString &name,
                Routine routine, float defaultPeriod)
{
    Result r;
    r.buffers.insert(
        name, routine(period(params, QStringLiteral("Period"), defaultPeriod), closes(bars)));
    return r;
}
} // namespace

Result computeSMA(const QVector<QuoteBar> &bars, const Params &params)
{
    return ofCloses(bars, params, QStringLiteral("SMA"), &sma, 32);
}

Result computeEMA(const QVector<QuoteBar> &bars, const Params &params)
{
    return ofCloses(bars, params, QStringLiteral("EMA"), &ema, 32);
}

Result computeSMMA(const QVector<QuoteBar> &bars, const Params &params)
{
    return ofCloses(bars, params, QStringLiteral("SMMA"), &smma, 32);
}

Result computeWMA(const QVector<QuoteBar> &bars, const Params &params)
{
    return ofCloses(bars, params, QStringLiteral("WMA"), &wma, 32);
}

Result computeMedian(const QVector<QuoteBar> &bars, const Params &params)
{
    return ofCloses(bars, params, QStringLiteral("Median"), &median, 32);
}

Result computeStdDev(const QVector<QuoteBar> &bars, const Params &params)
{
    return ofCloses(bars, params, QStringLiteral("StdDev"), &stdDev, 20);
}

Result computeMedianPrice(const QVector<QuoteBar> &bars, const Params &)
{
    Result r;
    r.buffers.insert(QStringLiteral("MedianPrice"), medianPrices(bars));
    return r;
}

Result computeEnvelopes(const QVector<QuoteBar> &bars, const Params &params)
{
    const Series m = sma(period(params, QStringLiteral("Period"), 14), closes(bars));
    const double d = double(param(params, QStringLiteral("Deviation"), 8.5f)) / 100.0;
    Series upper(m.size(), 0.0f);
    Series lower(m.size(), 0.0f);
    for (int i = 0; i < m.size(); ++i) {
        upper[i] = float(double(m[i]) * (1.0 + d));
        lower[i] = float(double(m[i]) * (1.0 - d));
    }
    Result r;
    r.buffers.insert(QStringLiteral("EnvelopesUpper"), upper);
    r.buffers.insert(QStringLiteral("EnvelopesLower"), lower);
    return r;
}

namespace {
// Middle and deviation of Bollinger's bands for bars [p, n): the mean of the p closes before
// bar i, oldest first, and the root of the mean of their squared differences from it, each
// difference widened to double before squaring. A block of bars is summed side by side so
// that the compiler can vectorise across bars; every bar still adds its own terms in order.
HALCYRA_WIDE void bollinger(int p, int n, const float *close, float *middle, float *deviation)
{
    constexpr int Block = 256;
    float mean[Block];
    float squares[Block];
    for (int start = p; start < n; start += Block) {
        const int count = std::min(Block, n - start);
        const float *window = close + start - p; // window[l + j]: term j of bar start + l
        std::fill(mean, mean + count, 0.0f);
        for (int j = 0; j < p; ++j)
            for (int l = 0; l < count; ++l)
                mean[l] += window[l + j];
        for (int l = 0; l < count; ++l)
            mean[l] /= float(p);
        std::fill(squares, squares + count, 0.0f);
        const auto square = [&](int l, int j) {
            const double d = window[l + j] - mean[l];
            return d * d;
        };
        int j = 0;
        // Four terms per pass keep a bar's sum in a register between them.
        for (; j + 4 <= p; j += 4) {
            for (int l = 0; l < count; ++l) {
                float sum = squares[l];
                sum = float(sum + square(l, j));
                sum = float(sum + square(l, j + 1));
                sum = float(sum + square(l, j + 2));
                sum = float(sum + square(l, j + 3));
                squares[l] = sum;
            }
        }
        for (; j < p; ++j)
            for (int l = 0; l < count; ++l)
                squares[l] = float(squares[l] + square(l, j));
        for (int l = 0; l < count; ++l) {
            middle[start + l] = mean[l];
            deviation[start + l] = std::sqrt(squares[l] / float(p));
        }
    }
}
} // namespace

Result computeBollingerBands(const QVector<QuoteBar> &bars, const Params &params)
{
    const int p = period(params, QStringLiteral("Period"), 20);
    const float width = param(params, QStringLiteral("Deviation"), 2.0f);
    const Series close = closes(bars);
    const int n = close.size();
    Series middle(n, 0.0f);
    Series upper(n, 0.0f);
    Series lower(n, 0.0f);
    if (p >= 1 && p < n) {
        // The deviation goes into `upper` first, then both bands are formed from it.
        float *m = middle.data();
        float *u = upper.data();
        float *l = lower.data();
        bollinger(p, n, close.constData(), m, u);
        for (int i = p; i < n; ++i) {
            const float s = u[i];
            u[i] = m[i] + width * s;
            l[i] = m[i] - width * s;
        }
    }
    Result r;
    r.buffers.insert(QStringLiteral("BollingerBandsMiddle"), middle);
    r.buffers.insert(QStringLiteral("BollingerBandsUpper"), upper);
    r.buffers.insert(QStringLiteral("BollingerBandsLower"), lower);
    return r;
}

} // namespace Indicators
