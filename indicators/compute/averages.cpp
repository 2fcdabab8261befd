#include "averages.h"

#include "seriesmath.h"

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

Result computeBollingerBands(const QVector<QuoteBar> &bars, const Params &params)
{
    const int p = period(params, QStringLiteral("Period"), 20);
    const float width = param(params, QStringLiteral("Deviation"), 2.0f);
    const Series close = closes(bars);
    const int n = close.size();
    Series middle(n, 0.0f);
    Series upper(n, 0.0f);
    Series lower(n, 0.0f);
    // Over the P closes before bar i, oldest first: unlike sma's, bar i is not among them.
    for (int i = p; p >= 1 && i < n; ++i) {
        float sum = 0.0f;
        for (int j = i - p; j < i; ++j)
            sum += close[j];
        const float mean = sum / float(p);
        float squares = 0.0f;
        for (int j = i - p; j < i; ++j) {
            const double d = close[j] - mean;
            squares = float(squares + d * d);
        }
        const float s = std::sqrt(squares / float(p));
        middle[i] = mean;
        upper[i] = mean + width * s;
        lower[i] = mean - width * s;
    }
    Result r;
    r.buffers.insert(QStringLiteral("BollingerBandsMiddle"), middle);
    r.buffers.insert(QStringLiteral("BollingerBandsUpper"), upper);
    r.buffers.insert(QStringLiteral("BollingerBandsLower"), lower);
    return r;
}

} // namespace Indicators
