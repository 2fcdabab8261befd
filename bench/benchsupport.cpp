#include "benchsupport.h"

#include "data/heap.h"

#include <QCoreApplication>
#include <QGuiApplication>

#include <algorithm>
#include <benchmark/benchmark.h>
#include <cmath>
#include <cstdlib>
#include <memory>

namespace Bench {

QVector<QuoteBar> randomWalk(int n, quint64 seed)
{
    quint64 state = seed;
    auto uniform = [&] {
        state = state * 6364136223846793005ull + 1442695040888963407ull;
        return double(state >> 11) * 0x1.0p-53;
    };
    QVector<QuoteBar> bars;
    bars.reserve(n);
    double close = 40.0;
    QDate d(1990, 1, 1);
    while (bars.size() < n) {
        d = d.addDays(1);
        if (d.dayOfWeek() > 5)
            continue;
        const double open = close * (1 + (uniform() - 0.5) * 0.01);
        close = std::max(1.0, close * (1 + (uniform() - 0.5) * 0.04));
        const double high = std::max(open, close) * (1 + uniform() * 0.01);
        const double low = std::min(open, close) * (1 - uniform() * 0.01);
        const QuoteBar bar(d, float(std::round(open * 100) / 100),
                           float(std::ceil(high * 100) / 100), float(std::floor(low * 100) / 100),
                           float(std::round(close * 100) / 100), qint64(1e6 + uniform() * 5e7));
        if (!(bar.low() <= bar.open() && bar.open() <= bar.high() && bar.low() <= bar.close() &&
              bar.close() <= bar.high()))
            std::abort();
        bars.append(bar);
    }
    return bars;
}

void perBar(benchmark::State &state, int bars)
{
    state.SetItemsProcessed(state.iterations() * bars);
    state.counters["ns/bar"] =
        benchmark::Counter(double(bars) * state.iterations() * 1e-9,
                           benchmark::Counter::kIsRate | benchmark::Counter::kInvert);
}

int run(int argc, char **argv, bool pictures)
{
    // As the program and its command-line tool do.
    OrdaneData::Heap::reuseLargeBlocks();
    std::unique_ptr<QCoreApplication> app;
    if (pictures) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
        app = std::make_unique<QGuiApplication>(argc, argv);
    } else {
        app = std::make_unique<QCoreApplication>(argc, argv);
    }
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 1;
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}

} // namespace Bench
