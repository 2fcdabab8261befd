#include "house.h"

namespace Indicators {

namespace {
bool withinRange(const QuoteBar &reference, const QuoteBar &b, ConsolidationPrices prices)
{
    const auto inside = [&reference](float v) {
        return v >= reference.low() && v <= reference.high();
    };
    return inside(b.close()) && (prices == ConsolidationPrices::Close || inside(b.open()));
}

ConsolidationState stateOf(const QVector<QuoteBar> &bars, int since, int index, int interval)
{
    ConsolidationState s;
    if (index - since < interval)
        return s;
    s.inForce = true;
    s.since = since;
    s.duration = index - since + 1;
    s.high = bars[since].high();
    s.low = bars[since].low();
    return s;
}

// One pass over bars 0 .. last, handing each bar's state to `visit`. The bar that leaves the
// range becomes the next reference bar, so runs never overlap and a bar's state depends only
// on the bars before it.
template <typename Visit>
void walk(const QVector<QuoteBar> &bars, int last, int interval, ConsolidationPrices prices,
          Visit visit)
{
    int since = 0;
    for (int i = 0; i <= last; ++i) {
        if (!withinRange(bars[since], bars[i], prices))
            since = i;
        visit(i, stateOf(bars, since, i, interval));
    }
}

Series measure(const QVector<QuoteBar> &bars, int interval, ConsolidationPrices prices, bool width)
{
    Series r(bars.size(), 0.0f);
    if (interval < 1)
        return r;
    walk(bars, bars.size() - 1, interval, prices, [&r, width](int i, const ConsolidationState &s) {
        if (s.inForce)
            r[i] = width ? percentOf(s.high - s.low, s.low) : float(s.duration);
    });
    return r;
}
} // namespace

ConsolidationState consolidationAt(const QVector<QuoteBar> &bars, int index, int interval,
                                   ConsolidationPrices prices)
{
    ConsolidationState found;
    if (interval < 1 || index < 0 || index >= bars.size())
        return found;
    walk(bars, index, interval, prices, [&found](int, const ConsolidationState &s) { found = s; });
    return found;
}

Result computeConsolidation(const QVector<QuoteBar> &bars, const Params &params)
{
    const int interval = period(params, QStringLiteral("Interval"), 4);
    const bool width = period(params, QStringLiteral("Typ"), 0) == 1;
    Result r;
    r.buffers.insert(QStringLiteral("Consolidation"),
                     measure(bars, interval, ConsolidationPrices::Close, width));
    r.buffers.insert(QStringLiteral("ConsolidationA"),
                     measure(bars, interval, ConsolidationPrices::OpenClose, width));
    return r;
}

} // namespace Indicators
