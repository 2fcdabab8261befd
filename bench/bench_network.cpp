// Updating a store from the local quote service: 500 symbols of 3,000 bars, each ten
// trading days behind, brought up to date one after another as an update run does it
// (request, check, merge, write through a save file). The service runs as a child process
// on loopback.

#include "benchsupport.h"
#include "data/home.h"
#include "data/net/datamanager.h"
#include "data/net/downloader.h"
#include "data/quotefile.h"

#include <QDir>
#include <QProcess>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

namespace {

constexpr int kSymbols = 500;
constexpr int kBars = 3000;
constexpr int kBehind = 10;

QString symbolName(int i)
{
    return QStringLiteral("S%1").arg(i, 3, 10, QLatin1Char('0'));
}

// The service's data, the store's stale copies of them, and the service itself.
struct Setup
{
    QTemporaryDir served;
    QTemporaryDir home;
    QProcess service;
    QString url;
    QVector<QByteArray> stale;

    bool start()
    {
        if (!OrdaneData::Home::setPath(home.path()) ||
            !QDir().mkpath(OrdaneData::Home::storagePath()))
            return false;
        for (int i = 0; i < kSymbols; ++i) {
            const QVector<QuoteBar> bars = Bench::randomWalk(kBars, 1000 + i);
            if (!OrdaneData::writeText(
                    QDir(served.path()).filePath(symbolName(i) + QStringLiteral(".csv")),
                    OrdaneData::seriesToBytes(bars)))
                return false;
            stale.append(OrdaneData::seriesToBytes(bars.mid(0, kBars - kBehind)));
        }
        service.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        service.start(QStringLiteral(HALCYRA_QUOTE_SERVICE),
                      {QStringLiteral("--port"), QStringLiteral("0"), QStringLiteral("--data"),
                       served.path()});
        while (!service.canReadLine() && service.waitForReadyRead(30000)) {
        }
        const QByteArray line = service.readLine().trimmed();
        url = QString::fromLatin1(line.mid(line.indexOf("http")));
        // The request log is not read; let it go.
        service.setStandardOutputFile(QProcess::nullDevice());
        return line.startsWith("Listening on ");
    }

    void makeStale() const
    {
        for (int i = 0; i < kSymbols; ++i)
            OrdaneData::writeText(OrdaneData::fileOf(symbolName(i)), stale.at(i));
    }

    ~Setup()
    {
        service.terminate();
        service.waitForFinished();
    }
};

void BM_UpdateStaleStore(benchmark::State &state)
{
    Setup setup;
    if (!setup.start()) {
        state.SkipWithError("the quote service did not start");
        return;
    }
    OrdaneData::QuoteService service;
    service.tableHost = setup.url;
    OrdaneData::DataManager manager;
    manager.setService(service);
    QMRequest::Downloader downloader;
    int rows = 0;
    for (auto _ : state) {
        state.PauseTiming();
        setup.makeStale();
        state.ResumeTiming();
        rows = 0;
        for (int i = 0; i < kSymbols; ++i) {
            const OrdaneData::UpdateOutcome outcome =
                manager.updateSymbol(symbolName(i), downloader, QDate(2030, 6, 5));
            if (outcome.kind != OrdaneData::UpdateOutcome::Updated) {
                state.SkipWithError(qPrintable(outcome.describe(symbolName(i))));
                return;
            }
            rows += outcome.rows;
        }
    }
    state.counters["rows_per_symbol"] = double(rows) / kSymbols;
    // items: symbols brought up to date
    state.SetItemsProcessed(state.iterations() * kSymbols);
}
BENCHMARK(BM_UpdateStaleStore)->Unit(benchmark::kMillisecond)->Iterations(3)->UseRealTime();

} // namespace

int main(int argc, char **argv)
{
    return Bench::run(argc, argv);
}
