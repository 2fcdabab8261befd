// The exponential-average family: MACD, its histogram, the impulse system and Elder's
// bull and bear power.

#include "oscillators.h"
#include "seriesmath.h"

namespace Indicators {

using namespace OscillatorParts;

namespace {
struct MacdLines
{
    Series macd;
    Series signal;
};

// Both averages are seeded with the first close; the signal line averages the MACD line.
// The same as ema(fast) - ema(slow) and ema(signal) of that, with the three averages run
// in one loop: each waits only for its own previous value, so their steps overlap instead
// of running one series after another. The caller has checked that the series is longer
// than every period.
MacdLines macdLines(const Series &close, int fast, int slow, int signal)
{
    const int n = close.size();
    MacdLines lines{Series(n), Series(n)};
    const EmaStep fastStep(fast);
    const EmaStep slowStep(slow);
    const EmaStep signalStep(signal);
    const float *c = close.constData();
    float *m = lines.macd.data();
    float *s = lines.signal.data();
    float f = c[0];
    float w = c[0];
    float g = f - w;
    m[0] = g;
    s[0] = g;
    for (int i = 1; i < n; ++i) {
        f = fastStep(f, c[i]);
        w = slowStep(w, c[i]);
        m[i] = f - w;
        g = signalStep(g, m[i]);
        s[i] = g;
    }
    return lines;
}

Series histogram(const Series &close, int fast, int slow, int signal)
{
    MacdLines lines = macdLines(close, fast, slow, signal);
    float *m = lines.macd.data();
    const float *s = lines.signal.constData();
    for (int i = 0; i < close.size(); ++i)
        m[i] -= s[i];
    return lines.macd;
}

// Elder's power: a price of each bar against the trend given by ema(Period) of the close.
Result power(const QVector<QuoteBar> &bars, const Params &params, const QString &name,
             float fallback, float (QuoteBar::*price)() const)
{
    const int p = period(params, QStringLiteral("Period"), fallback);
    if (tooShort(bars.size(), {p}))
        return zeroResult(bars.size(), {name});
    Series r = ema(p, closes(bars));
    float *out = r.data();
    for (int i = 0; i < bars.size(); ++i)
        out[i] = (bars[i].*price)() - out[i];
    return singleBuffer(name, r);
}
} // namespace

Result computeMACD(const QVector<QuoteBar> &bars, const Params &params)
{
    const int fast = period(params, QStringLiteral("FastEMA"), 12);
    const int slow = period(params, QStringLiteral("SlowEMA"), 26);
    const int signal = period(params, QStringLiteral("Signal"), 9);
    if (tooShort(bars.size(), {fast, slow, signal}))
        return zeroResult(bars.size(), {QStringLiteral("MACD"), QStringLiteral("SMA")});
    const MacdLines lines = macdLines(closes(bars), fast, slow, signal);
    Result r;
    r.buffers.insert(QStringLiteral("MACD"), lines.macd);
    // The signal buffer keeps the name "SMA" although it holds an exponential average.
    r.buffers.insert(QStringLiteral("SMA"), lines.signal);
    return r;
}

Result computeOsMA(const QVector<QuoteBar> &bars, const Params &params)
{
    const int fast = period(params, QStringLiteral("FastEMA"), 12);
    const int slow = period(params, QStringLiteral("SlowEMA"), 26);
    const int signal = period(params, QStringLiteral("Signal"), 9);
    if (tooShort(bars.size(), {fast, slow, signal}))
        return zeroResult(bars.size(), {QStringLiteral("OsMA")});
    return singleBuffer(QStringLiteral("OsMA"), histogram(closes(bars), fast, slow, signal));
}

Result computeImpuls(const QVector<QuoteBar> &bars, const Params &params)
{
    const int fast = period(params, QStringLiteral("MACD_Fast"), 14);
    const int slow = period(params, QStringLiteral("MACD_Slow"), 32);
    const int signal = period(params, QStringLiteral("MACD_Signal"), 9);
    const int trend = period(params, QStringLiteral("EMA_Period"), 26);
    const int n = bars.size();
    if (tooShort(n, {fast, slow, signal, trend}))
        return zeroResult(n, {QStringLiteral("Impuls"), QStringLiteral("ImpulsD")});
    const Series close = closes(bars);
    const Series hist = histogram(close, fast, slow, signal);
    const Series e = ema(trend, close);
    // Elder's impulse: green when the trend average and the histogram both rise, red when
    // both fall, blue when they disagree or stand still.
    Result r;
    Series slope(n, 0.0f);
    r.barColours.set(0, QColor(0x00, 0x00, 0xFF));
    for (int i = 1; i < n; ++i) {
        slope[i] = e[i] - e[i - 1];
        const bool up = e[i] > e[i - 1] && hist[i] > hist[i - 1];
        const bool down = e[i] < e[i - 1] && hist[i] < hist[i - 1];
        r.barColours.set(i, up     ? QColor(0x32, 0xCD, 0x32)
                            : down ? QColor(0xFF, 0x00, 0x00)
                                   : QColor(0x00, 0x00, 0xFF));
    }
    r.buffers.insert(QStringLiteral("Impuls"), hist);
    r.buffers.insert(QStringLiteral("ImpulsD"), slope);
    return r;
}

Result computeBears(const QVector<QuoteBar> &bars, const Params &params)
{
    return power(bars, params, QStringLiteral("Bears"), 13, &QuoteBar::low);
}

Result computeBulls(const QVector<QuoteBar> &bars, const Params &params)
{
    return power(bars, params, QStringLiteral("Bulls"), 14, &QuoteBar::high);
}

} // namespace Indicators
