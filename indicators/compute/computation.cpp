#include "computation.h"

namespace Indicators {

float param(const Params &params, const QString &name, float fallback)
{
    return params.value(name, fallback);
}

int period(const Params &params, const QString &name, float fallback)
{
    return int(param(params, name, fallback));
}

namespace {
template <typename Get>
Series column(const QVector<QuoteBar> &bars, Get get)
{
    Series s;
    s.reserve(bars.size());
    for (const QuoteBar &b : bars)
        s.append(get(b));
    return s;
}
} // namespace

Series closes(const QVector<QuoteBar> &bars)
{
    return column(bars, [](const QuoteBar &b) { return b.close(); });
}

Series opens(const QVector<QuoteBar> &bars)
{
    return column(bars, [](const QuoteBar &b) { return b.open(); });
}

Series highs(const QVector<QuoteBar> &bars)
{
    return column(bars, [](const QuoteBar &b) { return b.high(); });
}

Series lows(const QVector<QuoteBar> &bars)
{
    return column(bars, [](const QuoteBar &b) { return b.low(); });
}

Series volumes(const QVector<QuoteBar> &bars)
{
    return column(bars, [](const QuoteBar &b) { return float(b.volume()); });
}

Series medianPrices(const QVector<QuoteBar> &bars)
{
    return column(bars, [](const QuoteBar &b) { return (b.high() + b.low()) * 0.5f; });
}

} // namespace Indicators
