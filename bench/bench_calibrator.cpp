// The RSI calibration's search over a 3,000-bar sample: the search the program runs and the
// plain loop over every bar for every combination, in the same run, with the ratio of their
// times at the end.

#include "benchsupport.h"
#include "indicators/compute/rsitrading.h"

#include <QCoreApplication>

#include <benchmark/benchmark.h>
#include <cstdio>
#include <map>
#include <string>

namespace {

constexpr int kBars = 3000;

const QVector<QuoteBar> &bars()
{
    static const QVector<QuoteBar> series = Bench::randomWalk(kBars, 0xCA11B);
    return series;
}

void BM_Calibration(benchmark::State &state, bool plain)
{
    const QVector<QuoteBar> &series = bars();
    for (auto _ : state)
        benchmark::DoNotOptimize(plain ? Indicators::rsiCalibrationTablePlain(series)
                                       : Indicators::rsiCalibrationTable(series));
    state.counters["combinations/s"] =
        benchmark::Counter(210210.0 * double(state.iterations()), benchmark::Counter::kIsRate);
}

// The console's report, keeping each benchmark's real time per iteration for the ratio.
class RatioReporter : public benchmark::ConsoleReporter
{
public:
    void ReportRuns(const std::vector<Run> &runs) override
    {
        for (const Run &run : runs)
            if (run.run_type == Run::RT_Iteration && run.iterations > 0)
                seconds[run.benchmark_name()] =
                    run.GetAdjustedRealTime() / benchmark::GetTimeUnitMultiplier(run.time_unit);
        ConsoleReporter::ReportRuns(runs);
    }

    std::map<std::string, double> seconds;
};

} // namespace

int main(int argc, char **argv)
{
    QCoreApplication app(argc, argv);
    benchmark::RegisterBenchmark("BM_Calibration/fast", BM_Calibration, false)
        ->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark("BM_Calibration/plain", BM_Calibration, true)
        ->Unit(benchmark::kMillisecond);
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 1;
    RatioReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    benchmark::Shutdown();
    const auto fast = reporter.seconds.find("BM_Calibration/fast");
    const auto plain = reporter.seconds.find("BM_Calibration/plain");
    if (fast != reporter.seconds.end() && plain != reporter.seconds.end() && fast->second > 0)
        std::printf("%d bars: fast %.1f ms, plain %.1f ms, plain / fast = %.1f\n", kBars,
                    fast->second * 1e3, plain->second * 1e3, plain->second / fast->second);
    return 0;
}
