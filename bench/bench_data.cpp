// Loading stored quote files. The goal: at least 300 MB/s of file text, about 0.5 ms for
// a 3,000-line file.

#include "benchsupport.h"
#include "data/quotefile.h"
#include "data/reader.h"

#include <QTemporaryDir>

#include <benchmark/benchmark.h>
#include <map>

namespace {

QVector<QuoteBar> syntheticBars(int n)
{
    return Bench::randomWalk(n, 0x5EED);
}

struct StoredFile
{
    QString path;
    qint64 bytes;
};

const StoredFile &storedFile(int lines)
{
    static QTemporaryDir dir;
    static std::map<int, StoredFile> files;
    auto it = files.find(lines);
    if (it == files.end()) {
        const QString path = dir.filePath(QStringLiteral("S%1.csv").arg(lines));
        const QString text = OrdaneData::seriesToText(syntheticBars(lines));
        if (!OrdaneData::writeText(path, text))
            std::abort();
        it = files.emplace(lines, StoredFile{path, text.size()}).first;
    }
    return it->second;
}

void BM_LoadFile(benchmark::State &state)
{
    const StoredFile &file = storedFile(int(state.range(0)));
    OrdaneData::Reader reader;
    for (auto _ : state) {
        reader.loadFile(file.path);
        benchmark::DoNotOptimize(reader.count());
    }
    if (reader.count() != state.range(0))
        state.SkipWithError("wrong bar count");
    state.SetBytesProcessed(state.iterations() * file.bytes);
    state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(BM_LoadFile)->Arg(3000)->Arg(10000)->Unit(benchmark::kMicrosecond);

// The scanner alone, on text already in memory.
void BM_ScanBars(benchmark::State &state)
{
    const QByteArray text = OrdaneData::seriesToText(syntheticBars(int(state.range(0)))).toLatin1();
    for (auto _ : state) {
        const QVector<QuoteBar> bars = OrdaneData::scanBars(
            text.constData(), text.constData() + text.size(), OrdaneData::LineScan::WholeFile);
        benchmark::DoNotOptimize(bars.constData());
    }
    state.SetBytesProcessed(state.iterations() * text.size());
    state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(BM_ScanBars)->Arg(3000)->Arg(10000)->Unit(benchmark::kMicrosecond);

void BM_SeriesToText(benchmark::State &state)
{
    const QVector<QuoteBar> bars = syntheticBars(int(state.range(0)));
    for (auto _ : state)
        benchmark::DoNotOptimize(OrdaneData::seriesToText(bars));
    state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(BM_SeriesToText)->Arg(3000)->Unit(benchmark::kMicrosecond);

void BM_Aggregate(benchmark::State &state)
{
    const QVector<QuoteBar> bars = syntheticBars(10000);
    for (auto _ : state) {
        OrdaneData::Reader reader;
        for (const QuoteBar &b : bars)
            reader.appendBar(b);
        reader.setTimeFrame(int(state.range(0)));
        benchmark::DoNotOptimize(reader.count());
    }
    state.SetItemsProcessed(state.iterations() * bars.size());
}
BENCHMARK(BM_Aggregate)->DenseRange(1, 4)->Unit(benchmark::kMicrosecond);

} // namespace

int main(int argc, char **argv)
{
    return Bench::run(argc, argv);
}
