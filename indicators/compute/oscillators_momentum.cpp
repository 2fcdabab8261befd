// Oscillators of the change of one value over a number of bars: RSI, momentum and the
// rates of change of the close and the volume.

#include "oscillators.h"
#include "wide.h"

#include <algorithm>

namespace Indicators {

using namespace OscillatorParts;

namespace {
// From bar p on: the change against the value p bars back, in percent of that value, or
// the raw change when that value is 0.
HALCYRA_WIDE Series rateOfChange(int p, const Series &values)
{
    const int n = values.size();
    Series r(n, 0.0f);
    const float *v = values.constData();
    float *out = r.data();
    for (int i = p; i < n; ++i) {
        const float base = v[i - p];
        const float d = v[i] - base;
        out[i] = base == 0.0f ? d : d * 100.0f / base;
    }
    return r;
}

// From bar p on: the close in percent of the close p bars back, worked in double.
HALCYRA_WIDE Series momentum(int p, const Series &close)
{
    const int n = close.size();
    Series r(n, 0.0f);
    const float *c = close.constData();
    float *out = r.data();
    for (int i = p; i < n; ++i)
        out[i] = float(double(c[i]) / double(c[i - p]) * 100.0);
    return r;
}
} // namespace

Result computeRSI(const QVector<QuoteBar> &bars, const Params &params)
{
    const int p = period(params, QStringLiteral("Period"), 7);
    const int n = bars.size();
    if (tooShort(n, {p}))
        return zeroResult(n, {QStringLiteral("RSI")});
    Series r(n, 0.0f);
    float *out = r.data();
    const Series close = closes(bars);
    const float *c = close.constData();
    // Average gain and loss: simple averages of the changes of bars 1 .. p (gains and losses
    // each summed oldest first), then each bar keeps (p - 1) / p of the previous average.
    // A change c > 0 is a gain; otherwise -c is a loss. g = max(c, 0) and g - c give
    // exactly these values (a zero change adds 0 to the losses, which sums the same as -0)
    // without a branch that a random walk would mispredict half of the time.
    float gain = 0.0f;
    float loss = 0.0f;
    for (int j = 1; j <= p; ++j) {
        const float change = c[j] - c[j - 1];
        const float g = std::max(change, 0.0f);
        gain += g;
        loss += g - change;
    }
    const float count = float(p);
    const float keep = float(p - 1);
    gain /= count;
    loss /= count;
    for (int j = p;;) {
        // A series that never fell has no loss to compare with and shows 0, not 100.
        out[j] = loss == 0.0f ? 0.0f : 100.0f - 100.0f / (1.0f + gain / loss);
        if (++j == n)
            break;
        const float change = c[j] - c[j - 1];
        const float g = std::max(change, 0.0f);
        gain = (gain * keep + g) / count;
        loss = (loss * keep + (g - change)) / count;
    }
    return singleBuffer(QStringLiteral("RSI"), r);
}

Result computeMomentum(const QVector<QuoteBar> &bars, const Params &params)
{
    const int p = period(params, QStringLiteral("Period"), 14);
    const int n = bars.size();
    if (tooShort(n, {p}))
        return zeroResult(n, {QStringLiteral("Momentum")});
    return singleBuffer(QStringLiteral("Momentum"), momentum(p, closes(bars)));
}

Result computeROC(const QVector<QuoteBar> &bars, const Params &params)
{
    const int p = period(params, QStringLiteral("Period"), 12);
    if (tooShort(bars.size(), {p}))
        return zeroResult(bars.size(), {QStringLiteral("ROC")});
    return singleBuffer(QStringLiteral("ROC"), rateOfChange(p, closes(bars)));
}

Result computeVROC(const QVector<QuoteBar> &bars, const Params &params)
{
    const int p = period(params, QStringLiteral("Period"), 25);
    if (tooShort(bars.size(), {p}))
        return zeroResult(bars.size(), {QStringLiteral("VROC")});
    return singleBuffer(QStringLiteral("VROC"), rateOfChange(p, volumes(bars)));
}

} // namespace Indicators
