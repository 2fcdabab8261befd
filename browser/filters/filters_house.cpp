// The filters of Halcyra's own indicators: HCVolatilityFilter and ConsolidationFilter.

#include "data/reader.h"
#include "filtertests.h"

namespace OrdaneBrowser::FilterTests {

Outcome hcVolatility(const FilterSpec &spec, const FilterValues &values, const FilterInput &input)
{
    // The channel's first line, the average of the highs, is the value the filter compares: it
    // is in price units, so "Level:" is a price. The averages are left at zero unless the
    // series is longer than the period.
    const int period = int(number(spec, values, QStringLiteral("HCVolatility Period")));
    return levelTest(spec, values, input, QStringLiteral("HCVolatility"),
                     {{QStringLiteral("EMAPeriod"), float(period)}},
                     QStringLiteral("HCVolatilityHigh"), period + 1);
}

Outcome consolidation(const FilterSpec &spec, const FilterValues &values, const FilterInput &input)
{
    if (!input.series || input.series->isEmpty())
        return std::nullopt;
    // "Typ" 0 makes the buffers give the duration in bars; the closes alone, or the opens and
    // the closes, must stay within the reference bar's range.
    const bool openAndClose = choice(spec, values, QStringLiteral("Type")) == 1;
    std::optional<FilterWorkspace> own;
    const auto *found = indicator(
        input, own, QStringLiteral("Consolidation"),
        {{QStringLiteral("Interval"), float(number(spec, values, QStringLiteral("Interval")))},
         {QStringLiteral("Typ"), 0.0f}});
    const QVector<QuoteBar> &bars = input.series->bars();
    const int last = bars.size() - 1;
    const auto duration =
        valueAt(found, QLatin1String(openAndClose ? "ConsolidationA" : "Consolidation"), last);
    if (!duration || *duration < 1 || *duration > bars.size())
        return std::nullopt;
    // The range is that of the reference bar, where the run began.
    const QuoteBar &reference = bars[last - int(*duration) + 1];
    const QuoteBar &now = bars[last];
    return row(input,
               {*duration, reference.high(), reference.low(), now.close(), double(now.volume())});
}

} // namespace OrdaneBrowser::FilterTests
