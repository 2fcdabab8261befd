// Generates the sample store that ships with Halcyra: five quote files and the metadata
// store "_meta.tdb" with the rows of the three indices.
//
//   samplegen OUTDIR
//
// The series are synthetic (see randomwalk.h): a seeded random walk per symbol on top of a
// shared market factor whose drift and volatility follow a fixed calendar of regimes (a bear
// market from spring 2000 to autumn 2002, a long bull market, a crash in autumn 2008, a
// recovery, a correction in summer 2011). Volatility clusters, rare overnight gaps and volume
// that swells on large moves make charts, patterns and indicators worth looking at. The
// output is byte-for-byte reproducible. The metadata store is made anew each time from fixed
// rows; its bytes are those of the SQLite library at hand, its rows always the same.

#include "data/metadata.h"
#include "data/quotefile.h"
#include "randomwalk.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>

#include <cmath>
#include <cstdio>
#include <iterator>

namespace {
// The three indices, with the currency of their quotes and no figures, refreshed the day after
// the quote files' last bar.
bool writeMetaData(const QString &path)
{
    if (QFile::exists(path) && !QFile::remove(path)) {
        std::fprintf(stderr, "samplegen: cannot replace %s\n", qPrintable(path));
        return false;
    }
    const struct
    {
        const char *symbol, *name, *exchange, *currency;
    } kIndices[] = {
        {"^GSPC", "S&P 500", "SNP", "USD"},
        {"^GDAXI", "DAX", "XETRA", "EUR"},
        {"^FTSE", "FTSE 100", "FSI", "GBP"},
    };
    OrdaneData::MetaData store(path);
    if (!store.open())
        return false;
    for (const auto &index : kIndices) {
        // symbol, name, exchange, 17 figures, currency, lastupdate
        QStringList row = {QLatin1String(index.symbol), QString::fromUtf8(index.name),
                           QLatin1String(index.exchange)};
        for (int i = 0; i < 17; ++i)
            row << QStringLiteral("N/A");
        row << QLatin1String(index.currency) << QStringLiteral("26 Sep 2012");
        if (!store.insert(row)) {
            std::fprintf(stderr, "samplegen: cannot write %s to %s\n", index.symbol,
                         qPrintable(path));
            return false;
        }
    }
    std::printf("_meta.tdb %d symbols\n", int(std::size(kIndices)));
    return true;
}
} // namespace

int main(int argc, char **argv)
{
    QCoreApplication app(argc, argv);
    const QStringList args = QCoreApplication::arguments();
    if (args.size() != 2) {
        std::fprintf(stderr, "usage: samplegen OUTDIR\n");
        return 2;
    }
    const QDir out(args.at(1));
    if (!QDir().mkpath(out.absolutePath())) {
        std::fprintf(stderr, "samplegen: cannot create %s\n", qPrintable(args.at(1)));
        return 1;
    }
    int status = 0;
    for (const SampleGen::Sample &s : SampleGen::samples()) {
        const QVector<QuoteBar> bars = SampleGen::history(s);
        const QString path = out.filePath(QLatin1String(s.name) + QLatin1String(".csv"));
        QString error;
        if (!OrdaneData::writeText(path, OrdaneData::seriesToText(bars), &error)) {
            std::fprintf(stderr, "samplegen: %s: %s\n", qPrintable(path), qPrintable(error));
            return 1;
        }
        float lo = bars.first().low(), hi = bars.first().high();
        for (const QuoteBar &b : bars) {
            lo = std::fmin(lo, b.low());
            hi = std::fmax(hi, b.high());
        }
        std::printf("%-7s %d bars %s..%s close %.2f -> %.2f range %.2f..%.2f\n", s.name,
                    bars.size(), qPrintable(bars.first().date().toString(Qt::ISODate)),
                    qPrintable(bars.last().date().toString(Qt::ISODate)),
                    double(bars.first().close()), double(bars.last().close()), double(lo),
                    double(hi));
        if (bars.size() < 2500 || bars.size() > 3200) {
            std::fprintf(stderr, "samplegen: %s has %d bars, outside 2500..3200\n", s.name,
                         bars.size());
            status = 1;
        }
    }
    if (!writeMetaData(out.filePath(QStringLiteral("_meta.tdb"))))
        return 1;
    return status;
}
