#include "williams.h"

#include <algorithm>

namespace Indicators {

namespace {
// True when value beats (by `better`) the values of the two bars on each side of bar i.
template <typename Better> bool beatsNeighbours(const Series &s, int i, Better better)
{
    return better(s[i], s[i - 2]) && better(s[i], s[i - 1]) && better(s[i], s[i + 1]) &&
           better(s[i], s[i + 2]);
}
} // namespace

// A fractal needs strictly lower highs (or strictly higher lows) on both sides, so a run of
// equal highs is no fractal. An outside bar can be both kinds; its high wins, because one
// buffer holds one value per bar.
Result computeFractals(const QVector<QuoteBar> &bars, const Params &)
{
    const Series high = highs(bars);
    const Series low = lows(bars);
    Series r(bars.size(), 0.0f);
    for (int i = 2; i + 2 < bars.size(); ++i) {
        if (beatsNeighbours(high, i, [](float a, float b) { return a > b; }))
            r[i] = high[i];
        else if (beatsNeighbours(low, i, [](float a, float b) { return a < b; }))
            r[i] = low[i];
    }
    Result result;
    result.buffers.insert(QStringLiteral("Fractals"), r);
    return result;
}

// Williams' divergent bars: a bar that undercuts the recent lows but is bought back into its
// upper half is a bull bar, the mirror image a bear bar.
Result computeWilliamsBars(const QVector<QuoteBar> &bars, const Params &params)
{
    const int look = period(params, QStringLiteral("Bars Number"), 3);
    Result r;
    if (look < 1)
        return r;
    for (int i = look; i < bars.size(); ++i) {
        float lowest = bars[i - look].low();
        float highest = bars[i - look].high();
        for (int j = i - look + 1; j < i; ++j) {
            lowest = std::min(lowest, bars[j].low());
            highest = std::max(highest, bars[j].high());
        }
        const QuoteBar &b = bars[i];
        const float middle = (b.high() + b.low()) * 0.5f;
        if (b.low() < lowest && b.close() > middle)
            r.barColours.set(i, QColor(Qt::green));
        else if (b.high() > highest && b.close() < middle)
            r.barColours.set(i, QColor(Qt::red));
    }
    return r;
}

} // namespace Indicators
