// Importing MetaTrader history exports as `halcyra-cli import metatrader` does: 200 files of
// 3,000 lines each, read, converted and written through save files into an empty storage
// folder, replacing the targets. Files per second and MB/s count the sources. The conversion
// of one such file in memory, without reading or writing, runs beside it for comparison.

#include "benchsupport.h"
#include "data/import/importer.h"
#include "data/import/textformats.h"
#include "data/quotefile.h"

#include <QDir>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

namespace {

constexpr int kFiles = 200;
constexpr int kLines = 3000;

// An export of the bars as MetaTrader writes it: oldest first, dotted dates, a time of day,
// fixed decimals, CRLF line ends.
QByteArray exportOf(const QVector<QuoteBar> &bars)
{
    QByteArray text;
    text.reserve(bars.size() * 64);
    for (const QuoteBar &bar : bars) {
        text += bar.date().toString(QStringLiteral("yyyy.MM.dd")).toLatin1() + ",00:00";
        for (float price : {bar.open(), bar.high(), bar.low(), bar.close()})
            text += ',' + QByteArray::number(double(price), 'f', 2);
        text += ',' + QByteArray::number(bar.volume()) + "\r\n";
    }
    return text;
}

// The sources, made once per run in a temporary folder.
struct Sources
{
    QTemporaryDir dir;
    QStringList paths;
    qint64 bytes = 0;
};

const Sources &sources()
{
    static Sources s;
    if (s.paths.isEmpty()) {
        for (int i = 0; i < kFiles; ++i) {
            const QByteArray text = exportOf(Bench::randomWalk(kLines, 7000 + i));
            const QString path = s.dir.filePath(QStringLiteral("SYM%1.csv").arg(i));
            if (!OrdaneData::writeText(path, text))
                std::abort();
            s.paths << path;
            s.bytes += text.size();
        }
    }
    return s;
}

void BM_ImportMetaTraderFiles(benchmark::State &state)
{
    const Sources &s = sources();
    QTemporaryDir storage;
    OrdaneData::Importer importer(storage.path());
    for (auto _ : state) {
        const OrdaneData::ImportReport report =
            importer.run(OrdaneData::ImportFormat::MetaTrader, s.paths, false);
        if (report.symbols.size() != kFiles || report.rows != kFiles * kLines)
            state.SkipWithError("not every file was imported whole");
    }
    state.SetBytesProcessed(state.iterations() * s.bytes);
    state.SetItemsProcessed(state.iterations() * kFiles * kLines);
    state.counters["files/s"] = benchmark::Counter(double(kFiles) * double(state.iterations()),
                                                   benchmark::Counter::kIsRate);
}
// Reading and writing files: wall-clock time is what a user waits.
BENCHMARK(BM_ImportMetaTraderFiles)->Unit(benchmark::kMillisecond)->UseRealTime();

void BM_ConvertMetaTraderFile(benchmark::State &state)
{
    const QByteArray text = exportOf(Bench::randomWalk(kLines, 7000));
    for (auto _ : state) {
        const OrdaneData::ImportedTable table = OrdaneData::convertMetaTrader(text);
        if (table.rows != kLines)
            state.SkipWithError("lines were lost");
        benchmark::DoNotOptimize(table.text.constData());
    }
    state.SetBytesProcessed(state.iterations() * text.size());
    Bench::perBar(state, kLines);
}
BENCHMARK(BM_ConvertMetaTraderFile)->Unit(benchmark::kMicrosecond);

} // namespace

int main(int argc, char **argv)
{
    return Bench::run(argc, argv);
}
