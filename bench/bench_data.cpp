// Loading stored quote files. The goal: at least 300 MB/s of file text, about 0.5 ms for
// a 3,000-line file. Writing them, and merging a downloaded table into one.

#include "benchsupport.h"
#include "data/quotefile.h"
#include "data/quotetable.h"
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
        const QByteArray text = OrdaneData::seriesToBytes(syntheticBars(lines));
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
    const QByteArray text = OrdaneData::seriesToBytes(syntheticBars(int(state.range(0))));
    for (auto _ : state) {
        const QVector<QuoteBar> bars = OrdaneData::scanBars(
            text.constData(), text.constData() + text.size(), OrdaneData::LineScan::WholeFile);
        benchmark::DoNotOptimize(bars.constData());
    }
    state.SetBytesProcessed(state.iterations() * text.size());
    state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(BM_ScanBars)->Arg(3000)->Arg(10000)->Unit(benchmark::kMicrosecond);

// The writer before it printed numbers itself, through the toolkit's conversions: the
// baseline the writer below is measured against, in the same run.
QString referenceSeriesToText(const QVector<QuoteBar> &barsOldestFirst)
{
    const auto number = [](float v) {
        return QString::number(double(v), 'g', 6);
    };
    QString text = QLatin1String(OrdaneData::kQuoteFileHeader);
    text.reserve(text.size() + barsOldestFirst.size() * 48);
    for (int i = barsOldestFirst.size() - 1; i >= 0; --i) {
        const QuoteBar &bar = barsOldestFirst.at(i);
        QString line;
        line.reserve(64);
        line += bar.date().toString(QStringLiteral("yyyy-MM-dd"));
        line += QLatin1Char(',');
        line += number(bar.open());
        line += QLatin1Char(',');
        line += number(bar.high());
        line += QLatin1Char(',');
        line += number(bar.low());
        line += QLatin1Char(',');
        line += number(bar.close());
        line += QLatin1Char(',');
        line += QString::number(bar.volume());
        line += QLatin1String(",0.00");
        text += QLatin1Char('\n');
        text += line;
    }
    return text;
}

// Bytes per second count the file's bytes (one per character), so the three compare.
template <typename Writer> void seriesWriter(benchmark::State &state, Writer write)
{
    const QVector<QuoteBar> bars = syntheticBars(int(state.range(0)));
    const qint64 bytes = OrdaneData::seriesToBytes(bars).size();
    if (OrdaneData::seriesToText(bars) != referenceSeriesToText(bars))
        state.SkipWithError("the writer's text differs from the reference");
    for (auto _ : state)
        benchmark::DoNotOptimize(write(bars));
    state.SetBytesProcessed(state.iterations() * bytes);
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

void BM_SeriesToTextReference(benchmark::State &state)
{
    seriesWriter(state, referenceSeriesToText);
}
BENCHMARK(BM_SeriesToTextReference)->Arg(3000)->Unit(benchmark::kMicrosecond);

void BM_SeriesToText(benchmark::State &state)
{
    seriesWriter(state,
                 [](const QVector<QuoteBar> &bars) { return OrdaneData::seriesToText(bars); });
}
BENCHMARK(BM_SeriesToText)->Arg(3000)->Unit(benchmark::kMicrosecond);

void BM_SeriesToBytes(benchmark::State &state)
{
    seriesWriter(state,
                 [](const QVector<QuoteBar> &bars) { return OrdaneData::seriesToBytes(bars); });
}
BENCHMARK(BM_SeriesToBytes)->Arg(3000)->Unit(benchmark::kMicrosecond);

// A stored file of range(0) rows and a reply of 20 rows, the newest 10 of them new and the
// other 10 replacing stored rows (their "Adj Close" differs).
void BM_MergeTable(benchmark::State &state)
{
    const int storedRows = int(state.range(0));
    const QVector<QuoteBar> bars = syntheticBars(storedRows + 10);
    const QByteArray stored = OrdaneData::seriesToBytes(bars.mid(0, storedRows));
    const QByteArray reply =
        OrdaneData::seriesToBytes(bars.mid(bars.size() - 20)).replace(",0.00", ",0.01");
    const OrdaneData::TableMerge check = OrdaneData::mergeTable(stored, reply);
    if (check.added != 10 || check.replaced != 10)
        state.SkipWithError("unexpected merge counts");
    for (auto _ : state)
        benchmark::DoNotOptimize(OrdaneData::mergeTable(stored, reply));
    state.SetBytesProcessed(state.iterations() * (stored.size() + reply.size()));
    state.SetItemsProcessed(state.iterations() * (storedRows + 20));
}
BENCHMARK(BM_MergeTable)->Arg(3000)->Unit(benchmark::kMicrosecond);

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
