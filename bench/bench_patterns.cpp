// Candle pattern classification over 1,000,000 bars of a seeded random walk, every pattern
// required, reported in nanoseconds per bar.

#include "benchsupport.h"
#include "view/patterns/candlepattern.h"

#include <benchmark/benchmark.h>

namespace {

constexpr int kBars = 1000000;

const QVector<QuoteBar> &bars()
{
    static const QVector<QuoteBar> series = Bench::randomWalk(kBars, 0xCA4D1E);
    return series;
}

void BM_Classify(benchmark::State &state, CandlePattern::Span span, bool blending)
{
    const CandlePattern::PatternSet all = CandlePattern::PatternSet::all();
    for (auto _ : state)
        benchmark::DoNotOptimize(CandlePattern::classify(bars(), span, all, blending));
    Bench::perBar(state, kBars);
}

void BM_TrendFlags(benchmark::State &state)
{
    for (auto _ : state)
        benchmark::DoNotOptimize(CandlePattern::trendFlags(bars()));
    Bench::perBar(state, kBars);
}

// What the chart does for a series: the flags once, then singles, pairs and triples.
void BM_WholeChart(benchmark::State &state)
{
    const CandlePattern::PatternSet all = CandlePattern::PatternSet::all();
    for (auto _ : state) {
        benchmark::DoNotOptimize(CandlePattern::classify(bars(), CandlePattern::Span::Single, all));
        benchmark::DoNotOptimize(
            CandlePattern::classify(bars(), CandlePattern::Span::Pair, all, true));
        benchmark::DoNotOptimize(CandlePattern::classify(bars(), CandlePattern::Span::Triple, all));
    }
    Bench::perBar(state, kBars);
}

} // namespace

int main(int argc, char **argv)
{
    using CandlePattern::Span;
    benchmark::RegisterBenchmark("BM_Classify/single", BM_Classify, Span::Single, false)
        ->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark("BM_Classify/pair", BM_Classify, Span::Pair, false)
        ->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark("BM_Classify/pair-blending", BM_Classify, Span::Pair, true)
        ->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark("BM_Classify/triple", BM_Classify, Span::Triple, false)
        ->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark("BM_TrendFlags", BM_TrendFlags)->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark("BM_WholeChart", BM_WholeChart)->Unit(benchmark::kMillisecond);
    return Bench::run(argc, argv);
}
