#include "house.h"
#include "seriesmath.h"

#include <algorithm>

namespace Indicators {

float percentOf(float change, float base)
{
    return base > 0.0f ? change / base * 100.0f : 0.0f;
}

namespace {
// Each close against the lowest and the highest close up to and including its bar. With
// `percent` the distances are in percent of that extreme.
Result drevik(const QVector<QuoteBar> &bars, const QString &plusName, const QString &minusName,
              bool percent)
{
    const Series c = closes(bars);
    Series plus(c.size(), 0.0f);
    Series minus(c.size(), 0.0f);
    float lowest = c.isEmpty() ? 0.0f : c[0];
    float highest = lowest;
    for (int i = 0; i < c.size(); ++i) {
        lowest = std::min(lowest, c[i]);
        highest = std::max(highest, c[i]);
        plus[i] = percent ? percentOf(c[i] - lowest, lowest) : c[i] - lowest;
        minus[i] = percent ? percentOf(c[i] - highest, highest) : c[i] - highest;
    }
    Result r;
    r.buffers.insert(plusName, plus);
    r.buffers.insert(minusName, minus);
    return r;
}
} // namespace

Result computeHCVolatility(const QVector<QuoteBar> &bars, const Params &params)
{
    const int p = period(params, QStringLiteral("EMAPeriod"), 26);
    const Series high = ema(p, highs(bars));
    const Series low = ema(p, lows(bars));
    Series width(high.size());
    for (int i = 0; i < high.size(); ++i)
        width[i] = high[i] - low[i];
    const int mid = period(params, QStringLiteral("MidEMAPeriod"), 10);
    Result r;
    r.buffers.insert(QStringLiteral("HCVolatilityHigh"), high);
    r.buffers.insert(QStringLiteral("HCVolatilityLow"), low);
    r.buffers.insert(QStringLiteral("HCVolatilityMid"), ema(mid, medianPrices(bars)));
    r.buffers.insert(QStringLiteral("HCVolatilityDifference"), width);
    return r;
}

Result computeHCDrevik(const QVector<QuoteBar> &bars, const Params &)
{
    return drevik(bars, QStringLiteral("HCDrevikPlus"), QStringLiteral("HCDrevikMinus"), false);
}

Result computeHCDrevikPR(const QVector<QuoteBar> &bars, const Params &)
{
    return drevik(bars, QStringLiteral("HCDrevikPRPlus"), QStringLiteral("HCDrevikPRMinus"), true);
}

} // namespace Indicators
