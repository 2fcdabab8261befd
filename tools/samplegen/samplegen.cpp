// Generates the five sample quote files that ship with Halcyra.
//
//   samplegen OUTDIR
//
// The series are synthetic (see randomwalk.h): a seeded random walk per symbol on top of a
// shared market factor whose drift and volatility follow a fixed calendar of regimes (a bear
// market from spring 2000 to autumn 2002, a long bull market, a crash in autumn 2008, a
// recovery, a correction in summer 2011). Volatility clusters, rare overnight gaps and volume
// that swells on large moves make charts, patterns and indicators worth looking at. The
// output is byte-for-byte reproducible.

#include "data/quotefile.h"
#include "randomwalk.h"

#include <QCoreApplication>
#include <QDir>

#include <cmath>
#include <cstdio>

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
    return status;
}
