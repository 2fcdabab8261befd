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

// ema(fast) - ema(slow) of the close and ema(signal) of that difference, each average seeded
// with its first value and under its own guard, so that over a series not longer than the slow
// period the line is the fast average alone. When every average has values, the three run in
// one loop, each waiting only for its own previous value, so that their steps overlap instead
// of running one series after another; EmaStep rounds as ema does, so the lines are the same to
// the bit. The loop knows nothing of the guard: a series too short for one of the averages
// takes the plain routines instead (being short, it costs little).
MacdLines macdLines(const Series &close, int fast, int slow, int signal)
{
    const int n = close.size();
    if (tooShort(n, {fast, slow, signal})) {
        MacdLines lines{ema(fast, close), Series()};
        const Series slowLine = ema(slow, close);
        for (int i = 0; i < n; ++i)
            lines.macd[i] -= slowLine[i];
        lines.signal = ema(signal, lines.macd);
        return lines;
    }
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
    return singleBuffer(QStringLiteral("OsMA"), histogram(closes(bars), fast, slow, signal));
}

Result computeImpuls(const QVector<QuoteBar> &bars, const Params &params)
{
    const int fast = period(params, QStringLiteral("MACD_Fast"), 14);
    const int slow = period(params, QStringLiteral("MACD_Slow"), 32);
    const int signal = period(params, QStringLiteral("MACD_Signal"), 9);
    const int trend = period(params, QStringLiteral("EMA_Period"), 26);
    const int n = bars.size();
    const Series close = closes(bars);
    const Series hist = histogram(close, fast, slow, signal);
    const Series e = ema(trend, close);
    Result r;
    Series slope(n, 0.0f);
    for (int i = 1; i < n; ++i)
        slope[i] = e[i] - e[i - 1];
    // Elder's impulse: green when the trend average and the histogram both rise, red when
    // both fall, blue when they disagree or stand still. Bars are judged only when both have
    // values: a trend average, or a MACD line, that the guard leaves all zeros stands still
    // and would make every bar blue.
    if (!tooShort(n, {trend}) && !(tooShort(n, {fast}) && tooShort(n, {slow}))) {
        r.barColours.set(0, QColor(0x00, 0x00, 0xFF));
        for (int i = 1; i < n; ++i) {
            const bool up = e[i] > e[i - 1] && hist[i] > hist[i - 1];
            const bool down = e[i] < e[i - 1] && hist[i] < hist[i - 1];
            r.barColours.set(i, up     ? QColor(0x32, 0xCD, 0x32)
                                : down ? QColor(0xFF, 0x00, 0x00)
                                       : QColor(0x00, 0x00, 0xFF));
        }
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
