// Every series routine and every catalogue row over 1,000,000 bars of a seeded random walk,
// with default parameters, reported in nanoseconds per bar.

#include "benchsupport.h"
#include "indicators/catalogue.h"
#include "indicators/compute/seriesmath.h"

#include <benchmark/benchmark.h>

namespace {

constexpr int kBars = 1000000;

const QVector<QuoteBar> &bars()
{
    static const QVector<QuoteBar> series = Bench::randomWalk(kBars, 0xBEEF);
    return series;
}

void BM_Routine(benchmark::State &state,
                Indicators::Series (*routine)(int, const Indicators::Series &), int period)
{
    const Indicators::Series closes = Indicators::closes(bars());
    for (auto _ : state)
        benchmark::DoNotOptimize(routine(period, closes));
    Bench::perBar(state, kBars);
}

void BM_Indicator(benchmark::State &state, const OrdaneView::IndicatorEntry *entry)
{
    Indicators::Params params;
    for (const auto &p : entry->params)
        params.insert(QLatin1String(p.name), p.value);
    const QVector<QuoteBar> &series = bars();
    for (auto _ : state)
        benchmark::DoNotOptimize(entry->compute(series, params));
    Bench::perBar(state, kBars);
}

} // namespace

int main(int argc, char **argv)
{
    const struct
    {
        const char *name;
        Indicators::Series (*routine)(int, const Indicators::Series &);
        int period;
    } routines[] = {
        {"sma/32", &Indicators::sma, 32},
        {"ema/32", &Indicators::ema, 32},
        {"smma/32", &Indicators::smma, 32},
        {"wma/32", &Indicators::wma, 32},
        {"median/32", &Indicators::median, 32},
        {"stdDev/20", &Indicators::stdDev, 20},
        {"stdDevNMinus1/20", &Indicators::stdDevNMinus1, 20},
        {"shift/8", &Indicators::shift, 8},
    };
    for (const auto &r : routines)
        benchmark::RegisterBenchmark((std::string("BM_Routine/") + r.name).c_str(), BM_Routine,
                                     r.routine, r.period)
            ->Unit(benchmark::kMillisecond);
    for (const OrdaneView::IndicatorEntry &entry : OrdaneView::catalogue())
        benchmark::RegisterBenchmark((std::string("BM_Indicator/") + entry.id).c_str(),
                                     BM_Indicator, &entry)
            ->Unit(benchmark::kMillisecond);

    return Bench::run(argc, argv);
}
