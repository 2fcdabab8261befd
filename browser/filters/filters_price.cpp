// The filters of prices, dates and stored files: Fill, Trend, TimeMachine, Price, UpToDate, PE.

#include "data/metadata.h"
#include "data/reader.h"
#include "filtertests.h"

#include <QFileInfo>

#include <algorithm>
#include <cmath>

namespace OrdaneBrowser::FilterTests {

namespace {
// The growth from close `from` to close `to` in percent; none from a close that is not above 0.
std::optional<double> performance(const QuoteBar &from, const QuoteBar &to)
{
    const double base = from.close();
    if (!(base > 0))
        return std::nullopt;
    return double(to.close()) * 100.0 / base - 100.0;
}

bool inTrend(double performance, int trendType)
{
    return trendType == 1 ? performance < 0 : performance > 0; // 0 Up, 1 Down
}
} // namespace

Outcome fill(const FilterSpec &spec, const FilterValues &values, const FilterInput &input)
{
    const QFileInfo file(input.file);
    const qint64 minimum = qint64(number(spec, values, QStringLiteral("Minimal file size (KB)")));
    if (!file.isFile() || file.size() < minimum * 1024)
        return std::nullopt;
    const QStringList exchanges = list(spec, values, QStringLiteral("Exchanges"));
    if (!exchanges.contains(QStringLiteral("*"))) {
        // A symbol the store knows nothing about has the exchange "".
        const QString exchange =
            input.meta ? input.meta->record(input.symbol).value(QStringLiteral("exchange"))
                       : QString();
        if (!exchanges.contains(exchange.isNull() ? QStringLiteral("") : exchange))
            return std::nullopt;
    }
    return row(input, {});
}

Outcome trend(const FilterSpec &spec, const FilterValues &values, const FilterInput &input)
{
    if (!input.series)
        return std::nullopt;
    const QVector<QuoteBar> &bars = input.series->bars();
    const int period = int(number(spec, values, QStringLiteral("Period (Days)")));
    const int last = bars.size() - 1;
    if (period < 1 || last < period)
        return std::nullopt;
    const auto p = performance(bars[last - period], bars[last]);
    if (!p || !inTrend(*p, choice(spec, values, QStringLiteral("Trend type"))))
        return std::nullopt;
    return row(input, {*p});
}

Outcome timeMachine(const FilterSpec &spec, const FilterValues &values, const FilterInput &input)
{
    if (!input.series || input.series->isEmpty())
        return std::nullopt;
    const QVector<QuoteBar> &bars = input.series->bars();
    const int period = int(number(spec, values, QStringLiteral("Period (Days)")));
    QDate start = date(spec, values, QStringLiteral("Start"));
    if (!start.isValid())
        start = bars.constLast().date().addDays(-90);
    const int from =
        int(std::lower_bound(bars.cbegin(), bars.cend(), start,
                             [](const QuoteBar &b, const QDate &d) { return b.date() < d; }) -
            bars.cbegin());
    // The end bar must exist: a start too close to the newest bar tells nothing yet.
    if (period < 1 || from + period >= bars.size())
        return std::nullopt;
    const auto p = performance(bars[from], bars[from + period]);
    if (!p || !inTrend(*p, choice(spec, values, QStringLiteral("Trend type"))))
        return std::nullopt;
    return row(input, {*p});
}

Outcome price(const FilterSpec &spec, const FilterValues &values, const FilterInput &input)
{
    if (!input.series || input.series->isEmpty())
        return std::nullopt;
    const double close = input.series->bars().constLast().close();
    const auto [lower, upper] = range(spec, values, QStringLiteral("Price Range"));
    if (!(close >= lower && close <= upper))
        return std::nullopt;
    return row(input, {close});
}

Outcome upToDate(const FilterSpec &spec, const FilterValues &values, const FilterInput &input)
{
    if (!input.series || input.series->isEmpty())
        return std::nullopt;
    const QDate asOf = input.asOf.isValid() ? input.asOf : QDate::currentDate();
    const qint64 distance = input.series->bars().constLast().date().daysTo(asOf);
    if (distance > qint64(number(spec, values, QStringLiteral("UpToDate Distance"))))
        return std::nullopt;
    return row(input, {});
}

Outcome pe(const FilterSpec &spec, const FilterValues &values, const FilterInput &input)
{
    if (!input.meta)
        return std::nullopt;
    bool ok = false;
    const double ratio =
        input.meta->record(input.symbol).value(QStringLiteral("pe")).trimmed().toDouble(&ok);
    const auto [lower, upper] = range(spec, values, QStringLiteral("PE Range"));
    if (!ok || !std::isfinite(ratio) || ratio < lower || ratio > upper)
        return std::nullopt;
    return row(input, {ratio});
}

} // namespace OrdaneBrowser::FilterTests
