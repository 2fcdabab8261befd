// The filters of traded volume: VolumeFilter, VolumeBreakOut, MoneyFlow.

#include "data/reader.h"
#include "filtertests.h"

namespace OrdaneBrowser::FilterTests {

namespace {
// The mean of `value` over the last `period` bars; none when there are fewer bars.
template <typename Value>
std::optional<double> lastMean(const QVector<QuoteBar> &bars, int period, Value value)
{
    if (period < 1 || bars.size() < period)
        return std::nullopt;
    double sum = 0;
    for (int i = bars.size() - period; i < bars.size(); ++i)
        sum += value(bars[i]);
    return sum / period;
}
} // namespace

Outcome volume(const FilterSpec &spec, const FilterValues &values, const FilterInput &input)
{
    if (!input.series)
        return std::nullopt;
    const auto mean =
        lastMean(input.series->bars(), int(number(spec, values, QStringLiteral("Period (Days)"))),
                 [](const QuoteBar &b) { return double(b.volume()); });
    if (!mean || *mean < number(spec, values, QStringLiteral("Begin")) ||
        *mean > number(spec, values, QStringLiteral("End")))
        return std::nullopt;
    return row(input, {*mean});
}

Outcome volumeBreakOut(const FilterSpec &spec, const FilterValues &values, const FilterInput &input)
{
    if (!input.series)
        return std::nullopt;
    const QVector<QuoteBar> &bars = input.series->bars();
    const int period = int(number(spec, values, QStringLiteral("Observation Period (Days)")));
    const double times = number(spec, values, QStringLiteral("N Times greater than previous"));
    // Every day of the window is compared with the day before it, so one more bar is needed.
    if (period < 1 || bars.size() < period + 1)
        return std::nullopt;
    int found = -1;
    double best = 0;
    for (int i = bars.size() - period; i < bars.size(); ++i) {
        const double before = double(bars[i - 1].volume());
        const double now = double(bars[i].volume());
        if (before <= 0 || now < times * before)
            continue;
        // Of equal ratios the later day is shown: the fresher news.
        if (now / before >= best) {
            best = now / before;
            found = i;
        }
    }
    if (found < 0)
        return std::nullopt;
    FilterRow r = row(input, {best});
    r.values << bars[found].date().toString(QStringLiteral("yyyy-MM-dd"));
    return r;
}

Outcome moneyFlow(const FilterSpec &spec, const FilterValues &values, const FilterInput &input)
{
    if (!input.series)
        return std::nullopt;
    const auto mean =
        lastMean(input.series->bars(), int(number(spec, values, QStringLiteral("Period (Days)"))),
                 [](const QuoteBar &b) {
                     const double typical = (double(b.high()) + b.low() + b.close()) / 3.0;
                     return typical * double(b.volume());
                 });
    if (!mean || *mean < number(spec, values, QStringLiteral("Min")))
        return std::nullopt;
    return row(input, {*mean});
}

} // namespace OrdaneBrowser::FilterTests
