// The filters of one indicator value against a level: RSIFilter and DPOFilter (and, in
// filters_house.cpp, HCVolatilityFilter).

#include "data/reader.h"
#include "filtertests.h"

namespace OrdaneBrowser::FilterTests {

Outcome levelTest(const FilterSpec &spec, const FilterValues &values, const FilterInput &input,
                  const QString &id, const Indicators::Params &params, const QString &buffer,
                  int needed)
{
    if (!input.series || input.series->count() < needed)
        return std::nullopt;
    std::optional<FilterWorkspace> own;
    const auto v = valueAt(indicator(input, own, id, params), buffer, input.series->count() - 1);
    if (!v || !beyond(*v, number(spec, values, QStringLiteral("Level")),
                      text(spec, values, QStringLiteral("Rule"))))
        return std::nullopt;
    return row(input, {*v});
}

Outcome rsi(const FilterSpec &spec, const FilterValues &values, const FilterInput &input)
{
    // The first value stands at bar `period`, after `period` changes.
    const int period = int(number(spec, values, QStringLiteral("RSI Period")));
    return levelTest(spec, values, input, QStringLiteral("RSI"),
                     {{QStringLiteral("Period"), float(period)}}, QStringLiteral("RSI"),
                     period + 1);
}

Outcome dpo(const FilterSpec &spec, const FilterValues &values, const FilterInput &input)
{
    // The close against the average of `period` closes ending period / 2 + 1 bars earlier: the
    // first value stands at bar period - 1 + period / 2 + 1.
    const int period = int(number(spec, values, QStringLiteral("DPO Period")));
    return levelTest(spec, values, input, QStringLiteral("DPO"),
                     {{QStringLiteral("Period"), float(period)}}, QStringLiteral("DPO"),
                     period + period / 2 + 1);
}

} // namespace OrdaneBrowser::FilterTests
