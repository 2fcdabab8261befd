// The filters of one line against another, or of a signal that changes from bar to bar:
// StochasticFilter, MovingAverage, MedianFilter, ImpulsFilter.

#include "data/reader.h"
#include "filtertests.h"
#include "indicators/indicatorlayer.h"

#include <algorithm>

namespace OrdaneBrowser::FilterTests {

namespace {
// A "Rule:" of a crossing, by item: "A Higher B (Just Signaled)", "A Higher B",
// "A Lower B (Just Signaled)", "A Lower B".
struct Crossing
{
    bool higher;
    bool just; // the relation must be new at the last bar
};

std::optional<Crossing> crossingOf(const FilterSpec &spec, const FilterValues &values)
{
    const int item = choice(spec, values, QStringLiteral("Rule"));
    if (item < 0)
        return std::nullopt;
    return Crossing{item < 2, item % 2 == 0};
}

// Whether the relation holds for a against b at the last bar and, when just signaled, did not
// hold at the bar before (the lines stood the other way round or equal).
bool signaled(const Crossing &rule, double a, double b, double aBefore, double bBefore)
{
    const auto holds = [&rule](double x, double y) {
        return rule.higher ? x > y : x < y;
    };
    return holds(a, b) && (!rule.just || !holds(aBefore, bBefore));
}

// Two averages `id` of the closes, periods from `key1` and `key2`, by "Rule:".
Outcome twoAverages(const FilterSpec &spec, const FilterValues &values, const FilterInput &input,
                    const QString &id, const QString &key1, const QString &key2)
{
    const auto rule = crossingOf(spec, values);
    const int p1 = int(number(spec, values, key1));
    const int p2 = int(number(spec, values, key2));
    // An average of p closes has no value unless the series is longer than p; then it has one
    // at the bar before the last too.
    if (!rule || !input.series || input.series->count() <= std::max({p1, p2, 1}))
        return std::nullopt;
    std::optional<FilterWorkspace> own;
    const QString period = QStringLiteral("Period");
    const auto *first = indicator(input, own, id, {{period, float(p1)}}, 0);
    const auto *second = indicator(input, own, id, {{period, float(p2)}}, 1);
    const int last = input.series->count() - 1;
    const auto a = valueAt(first, id, last);
    const auto b = valueAt(second, id, last);
    const auto aBefore = valueAt(first, id, last - 1);
    const auto bBefore = valueAt(second, id, last - 1);
    if (!a || !b || !aBefore || !bBefore || !signaled(*rule, *a, *b, *aBefore, *bBefore))
        return std::nullopt;
    return row(input, {});
}

// The impulse system's colours, as the indicator sets them (docs/indicators.md).
enum class Impulse { None, Green, Red, Blue };

Impulse impulseOf(const QMap<int, QColor> &colours, int bar)
{
    const auto it = colours.constFind(bar);
    if (it == colours.constEnd())
        return Impulse::None;
    switch (it->rgb() & 0xFFFFFFu) {
    case 0x32CD32u:
        return Impulse::Green;
    case 0xFF0000u:
        return Impulse::Red;
    case 0x0000FFu:
        return Impulse::Blue;
    default:
        return Impulse::None;
    }
}
} // namespace

Outcome stochastic(const FilterSpec &spec, const FilterValues &values, const FilterInput &input)
{
    const auto rule = crossingOf(spec, values);
    const int k = int(number(spec, values, QStringLiteral("K Period")));
    const int d = int(number(spec, values, QStringLiteral("D Period")));
    const int slowing = int(number(spec, values, QStringLiteral("Slowing")));
    if (!rule || !input.series || k < 1 || d < 1 || slowing < 1)
        return std::nullopt;
    // %K has values from bar k + slowing - 2 on, and %D, its average over d bars, from d - 1
    // bars later; the indicator leaves both at zero unless the series is longer than each period.
    const int n = input.series->count();
    const int firstD = k + slowing - 2 + d - 1;
    if (n - 1 < firstD + (rule->just ? 1 : 0) || n <= std::max({k, d, slowing}))
        return std::nullopt;
    std::optional<FilterWorkspace> own;
    const auto *s = indicator(input, own, QStringLiteral("Stochastic"),
                              {{QStringLiteral("KPeriod"), float(k)},
                               {QStringLiteral("DPeriod"), float(d)},
                               {QStringLiteral("Slowing"), float(slowing)}});
    const QString K = QStringLiteral("K");
    const QString D = QStringLiteral("D");
    const auto kNow = valueAt(s, K, n - 1);
    const auto dNow = valueAt(s, D, n - 1);
    const auto kBefore = valueAt(s, K, n - 2);
    const auto dBefore = valueAt(s, D, n - 2);
    if (!kNow || !dNow || !kBefore || !dBefore ||
        !signaled(*rule, *kNow, *dNow, *kBefore, *dBefore) ||
        !beyond(*kNow, number(spec, values, QStringLiteral("K Level")),
                text(spec, values, QStringLiteral("Level Rule"))))
        return std::nullopt;
    return row(input, {*kNow, *dNow});
}

Outcome movingAverage(const FilterSpec &spec, const FilterValues &values, const FilterInput &input)
{
    return twoAverages(spec, values, input, QStringLiteral("SMA"), QStringLiteral("MA1 Period"),
                       QStringLiteral("MA2 Period"));
}

Outcome median(const FilterSpec &spec, const FilterValues &values, const FilterInput &input)
{
    return twoAverages(spec, values, input, QStringLiteral("Median"), QStringLiteral("M1 Period"),
                       QStringLiteral("M2 Period"));
}

Outcome impuls(const FilterSpec &spec, const FilterValues &values, const FilterInput &input)
{
    // Items: green, blue, blue or red, blue or green, just turned red, just turned green, just
    // turned blue, just turned blue from red, just turned blue from green.
    const int item = choice(spec, values, QStringLiteral("Rule"));
    if (item < 0 || !input.series || input.series->isEmpty())
        return std::nullopt;
    Indicators::Params params;
    for (const char *name : {"MACD_Fast", "MACD_Slow", "MACD_Signal", "EMA_Period"})
        params.insert(QLatin1String(name), float(number(spec, values, QLatin1String(name))));
    std::optional<FilterWorkspace> own;
    auto *system = indicator(input, own, QStringLiteral("Impuls"), params);
    if (!system)
        return std::nullopt;
    // The indicator colours no bar of a series too short for its averages.
    const int last = input.series->count() - 1;
    const Impulse now = impulseOf(system->barColours(), last);
    const Impulse before = last > 0 ? impulseOf(system->barColours(), last - 1) : Impulse::None;
    if (now == Impulse::None || (item >= 4 && before == Impulse::None))
        return std::nullopt;
    bool passes = false;
    switch (item) {
    case 0:
        passes = now == Impulse::Green;
        break;
    case 1:
        passes = now == Impulse::Blue;
        break;
    case 2:
        passes = now == Impulse::Blue || now == Impulse::Red;
        break;
    case 3:
        passes = now == Impulse::Blue || now == Impulse::Green;
        break;
    case 4:
        passes = now == Impulse::Red && before != Impulse::Red;
        break;
    case 5:
        passes = now == Impulse::Green && before != Impulse::Green;
        break;
    case 6:
        passes = now == Impulse::Blue && before != Impulse::Blue;
        break;
    case 7:
        passes = now == Impulse::Blue && before == Impulse::Red;
        break;
    case 8:
        passes = now == Impulse::Blue && before == Impulse::Green;
        break;
    }
    if (!passes)
        return std::nullopt;
    return row(input, {});
}

} // namespace OrdaneBrowser::FilterTests
