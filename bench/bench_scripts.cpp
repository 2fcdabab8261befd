// A script indicator against the built-in it copies: RSI(14) over 100,000 bars, computed by
// the built-in, by a script reading the series bar by bar (as the starter script does), and
// by a script reading whole columns at once. The counter "ratio" is the time of a script
// run over the time of the built-in.

#include "benchsupport.h"
#include "data/reader.h"
#include "indicators/catalogue.h"
#include "indicators/indicatorlayer.h"
#include "indicators/script/userindicator.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>
#include <chrono>
#include <cstdio>
#include <memory>

namespace {
constexpr int kBars = 100000;

// The same Wilder averages as the built-in, in the script's double arithmetic.
const char kPerBar[] = R"js(
function init() { RSIScript.createBuffer("RSI"); RSIScript.createParameter("Period", 14); }
function start() {
    var p = RSIScript.parameter("Period"), n = Shared.numberOfQuotes();
    var out = new Array(n), gain = 0, loss = 0, i, change;
    for (i = 0; i < n; ++i) out[i] = 0;
    for (i = 1; i <= p; ++i) {
        change = Shared.close(i) - Shared.close(i - 1);
        if (change > 0) gain += change; else loss -= change;
    }
    gain /= p; loss /= p;
    for (i = p; ; ) {
        out[i] = loss == 0 ? 0 : 100 - 100 / (1 + gain / loss);
        if (++i == n) break;
        change = Shared.close(i) - Shared.close(i - 1);
        gain = (gain * (p - 1) + (change > 0 ? change : 0)) / p;
        loss = (loss * (p - 1) + (change > 0 ? 0 : -change)) / p;
    }
    RSIScript.setBufferData("RSI", out);
}
)js";

QString gFolder;
OrdaneData::ReaderH gSeries;

std::unique_ptr<OrdaneView::IndicatorLayer> makeScript(bool columns)
{
    QString text = QString::fromLatin1(kPerBar);
    if (columns) {
        // The whole column once, then plain array reads.
        text.replace(QStringLiteral("n = Shared.numberOfQuotes();"),
                     QStringLiteral("n = Shared.numberOfQuotes(), c = Shared.close();"));
        text.replace(QStringLiteral("Shared.close(i - 1)"), QStringLiteral("c[i - 1]"));
        text.replace(QStringLiteral("Shared.close(i)"), QStringLiteral("c[i]"));
    }
    const QString path = QDir(gFolder).filePath(QStringLiteral("RSIScript.js"));
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate) || file.write(text.toUtf8()) < 0)
        std::abort();
    file.close();
    auto indicator = std::make_unique<OrdaneView::UserIndicator>(path, nullptr);
    indicator->setReader(gSeries);
    indicator->init();
    return indicator;
}

double gBuiltinSeconds = 0;

void BM_BuiltinRSI(benchmark::State &state)
{
    std::unique_ptr<OrdaneView::IndicatorLayer> rsi(
        OrdaneView::createBuiltinIndicator(QStringLiteral("RSI"), gSeries, nullptr));
    rsi->setParameter(QStringLiteral("Period"), 14);
    rsi->init();
    double total = 0;
    for (auto _ : state) {
        const auto begin = std::chrono::steady_clock::now();
        rsi->start();
        total += std::chrono::duration<double>(std::chrono::steady_clock::now() - begin).count();
    }
    gBuiltinSeconds = total / double(state.iterations());
    Bench::perBar(state, kBars);
}

void BM_ScriptRSI(benchmark::State &state, bool columns)
{
    auto rsi = makeScript(columns);
    double total = 0;
    for (auto _ : state) {
        const auto begin = std::chrono::steady_clock::now();
        rsi->start();
        total += std::chrono::duration<double>(std::chrono::steady_clock::now() - begin).count();
    }
    Bench::perBar(state, kBars);
    if (gBuiltinSeconds > 0)
        state.counters["ratio"] = total / double(state.iterations()) / gBuiltinSeconds;
}
} // namespace

int main(int argc, char **argv)
{
    // Every start() says so on the debug channel; not here.
    qInstallMessageHandler([](QtMsgType type, const QMessageLogContext &, const QString &text) {
        if (type != QtDebugMsg)
            std::fprintf(stderr, "%s\n", qUtf8Printable(text));
    });
    QTemporaryDir folder;
    gFolder = folder.path();
    gSeries = OrdaneData::ReaderH::create();
    for (const QuoteBar &bar : Bench::randomWalk(kBars, 14))
        gSeries->appendBar(bar);
    benchmark::RegisterBenchmark("BM_BuiltinRSI", BM_BuiltinRSI)->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark("BM_ScriptRSI/bar-by-bar", BM_ScriptRSI, false)
        ->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark("BM_ScriptRSI/columns", BM_ScriptRSI, true)
        ->Unit(benchmark::kMillisecond);
    return Bench::run(argc, argv);
}
