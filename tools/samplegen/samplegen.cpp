// Generates the sample store that ships with Halcyra: five quote files and the metadata
// store "_meta.tdb" with the rows of the three indices.
//
//   samplegen OUTDIR
//
// The series are synthetic: a seeded random walk per symbol on top of a shared market
// factor whose drift and volatility follow a fixed calendar of regimes (a bear market
// from spring 2000 to autumn 2002, a long bull market, a crash in autumn 2008, a
// recovery, a correction in summer 2011). Volatility clusters, rare overnight gaps and
// volume that swells on large moves make charts, patterns and indicators worth looking
// at. Nothing is taken from real quotes.
//
// The output is byte-for-byte reproducible: a fixed xoshiro256** generator seeded by
// splitmix64, normal deviates as the sum of twelve uniforms, and no transcendental
// functions, so no libm difference can change a digit. The metadata store is made anew each
// time from fixed rows; its bytes are those of the SQLite library at hand, its rows always
// the same.

#include "data/metadata.h"
#include "data/quotefile.h"

#include <QCoreApplication>
#include <QDate>
#include <QDir>
#include <QFile>
#include <QSet>
#include <QVector>

#include <cmath>
#include <cstdint>
#include <cstdio>
#include <iterator>

namespace {

class Rng
{
public:
    explicit Rng(std::uint64_t seed)
    {
        for (auto &word : mState) {
            seed += 0x9E3779B97F4A7C15ull;
            std::uint64_t z = seed;
            z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9ull;
            z = (z ^ (z >> 27)) * 0x94D049BB133111EBull;
            word = z ^ (z >> 31);
        }
    }
    std::uint64_t next()
    {
        const std::uint64_t result = rotl(mState[1] * 5, 7) * 9;
        const std::uint64_t t = mState[1] << 17;
        mState[2] ^= mState[0];
        mState[3] ^= mState[1];
        mState[1] ^= mState[2];
        mState[0] ^= mState[3];
        mState[2] ^= t;
        mState[3] = rotl(mState[3], 45);
        return result;
    }
    double uniform() { return double(next() >> 11) * 0x1.0p-53; }
    double normal()
    {
        double s = 0;
        for (int i = 0; i < 12; ++i)
            s += uniform();
        return s - 6.0;
    }

private:
    static std::uint64_t rotl(std::uint64_t x, int k) { return (x << k) | (x >> (64 - k)); }
    std::uint64_t mState[4];
};

QDate easterSunday(int y)
{
    const int a = y % 19, b = y / 100, c = y % 100, d = b / 4, e = b % 4;
    const int f = (b + 8) / 25, g = (b - f + 1) / 3, h = (19 * a + b - d - g + 15) % 30;
    const int i = c / 4, k = c % 4, l = (32 + 2 * e + 2 * i - h - k) % 7;
    const int m = (a + 11 * h + 22 * l) / 451;
    return QDate(y, (h + l - 7 * m + 114) / 31, (h + l - 7 * m + 114) % 31 + 1);
}

QDate nthWeekday(int y, int month, int weekday, int n)
{
    QDate d(y, month, 1);
    while (d.dayOfWeek() != weekday)
        d = d.addDays(1);
    return d.addDays(7 * (n - 1));
}

QDate lastWeekday(int y, int month, int weekday)
{
    QDate d = QDate(y, month, 1).addMonths(1).addDays(-1);
    while (d.dayOfWeek() != weekday)
        d = d.addDays(-1);
    return d;
}

QDate observed(const QDate &d)
{
    if (d.dayOfWeek() == Qt::Saturday)
        return d.addDays(-1);
    if (d.dayOfWeek() == Qt::Sunday)
        return d.addDays(1);
    return d;
}

enum class Calendar { US, Germany, GermanyShort };

QSet<QDate> holidays(int y, Calendar calendar)
{
    const QDate easter = easterSunday(y);
    switch (calendar) {
    case Calendar::US: {
        QSet<QDate> s{nthWeekday(y, 1, Qt::Monday, 3),
                      nthWeekday(y, 2, Qt::Monday, 3),
                      easter.addDays(-2),
                      lastWeekday(y, 5, Qt::Monday),
                      observed(QDate(y, 7, 4)),
                      nthWeekday(y, 9, Qt::Monday, 1),
                      nthWeekday(y, 11, Qt::Thursday, 4),
                      observed(QDate(y, 12, 25))};
        if (QDate(y, 1, 1).dayOfWeek() != Qt::Saturday)
            s.insert(observed(QDate(y, 1, 1)));
        return s;
    }
    case Calendar::Germany:
        return {QDate(y, 1, 1),   easter.addDays(-2), easter.addDays(1), QDate(y, 5, 1),
                QDate(y, 12, 24), QDate(y, 12, 25),   QDate(y, 12, 26),  QDate(y, 12, 31)};
    case Calendar::GermanyShort:
        return {easter.addDays(-2), easter.addDays(1), QDate(y, 12, 25), QDate(y, 12, 26)};
    }
    return {};
}

// The market's regimes: from this day on, this daily drift and volatility.
struct Regime
{
    QDate from;
    double drift;
    double vol;
};

const Regime kMarket[] = {
    {QDate(1999, 1, 1), 0.0008, 0.018},    {QDate(2000, 3, 24), -0.0009, 0.020},
    {QDate(2002, 10, 9), 0.0001, 0.019},   {QDate(2003, 3, 11), 0.0006, 0.010},
    {QDate(2007, 10, 9), -0.0008, 0.016},  {QDate(2008, 9, 12), -0.0040, 0.042},
    {QDate(2008, 11, 21), -0.0008, 0.028}, {QDate(2009, 3, 9), 0.0010, 0.014},
    {QDate(2011, 7, 22), -0.0030, 0.026},  {QDate(2011, 10, 3), 0.0008, 0.011},
};

const Regime &regimeOf(const QDate &d)
{
    const Regime *r = &kMarket[0];
    for (const Regime &x : kMarket)
        if (d >= x.from)
            r = &x;
    return *r;
}

struct Symbol
{
    const char *name;
    std::uint64_t seed;
    QDate start;
    Calendar calendar;
    double price;       // first close
    double beta;        // response to the market
    double drift;       // own daily drift
    double vol;         // own daily volatility
    double volume;      // typical daily volume at the start
    double volumeTrend; // daily growth of the typical volume
};

const Symbol kSymbols[] = {
    {"AAPL", 0xA11E, QDate(2000, 2, 1), Calendar::US, 26.0, 1.35, 0.0012, 0.019, 14e6, 0.0003},
    {"MSFT", 0x3A5F, QDate(2000, 3, 1), Calendar::US, 44.0, 1.00, -0.0001, 0.012, 62e6, -0.0001},
    {"UTX", 0x07C5, QDate(2000, 6, 1), Calendar::US, 32.0, 0.90, 0.0003, 0.011, 3.5e6, 0.0002},
    {"MAN.DE", 0x3A4D, QDate(2000, 6, 1), Calendar::Germany, 28.0, 1.30, 0.0004, 0.017, 0.9e6,
     0.0002},
    {"ADS.DE", 0xAD5D, QDate(2003, 1, 2), Calendar::GermanyShort, 24.0, 0.95, 0.0005, 0.013, 1.1e6,
     0.0001},
};

const QDate kLastDay(2012, 9, 25);

double cents(double x)
{
    return std::floor(x * 100.0 + 0.5) / 100.0;
}

double clamp(double x, double lo, double hi)
{
    return x < lo ? lo : (x > hi ? hi : x);
}

QVector<QuoteBar> generate(const Symbol &s)
{
    Rng market(0x5EED0001); // the same market path for every symbol
    Rng own(s.seed);
    QVector<QuoteBar> bars;

    double close = s.price;
    double cluster = 1.0; // volatility clustering, mean about 1
    double volumeLevel = s.volume;
    int year = 0;
    QSet<QDate> closed;
    for (QDate d(1999, 1, 1); d <= kLastDay; d = d.addDays(1)) {
        if (d.dayOfWeek() > 5)
            continue;
        // The market path advances on every weekday, listed or not, so that symbols
        // starting on different days still share the same history.
        const Regime &regime = regimeOf(d);
        const double zMarket = market.normal();
        const double marketReturn = regime.drift + regime.vol * zMarket;
        if (d < s.start)
            continue;
        if (d.year() != year) {
            year = d.year();
            closed = holidays(year, s.calendar);
        }
        if (closed.contains(d))
            continue;

        const double z = own.normal();
        cluster = clamp(0.94 * cluster + 0.06 * (z * z + zMarket * zMarket) * 0.5, 0.4, 4.0);
        const double sigma = s.vol * cluster;
        double r = s.beta * marketReturn + s.drift + sigma * z;

        // Rare overnight gaps, as after a report.
        double gap = 0.0;
        if (own.uniform() < 0.004) {
            gap = (own.uniform() < 0.5 ? -1.0 : 1.0) * (0.04 + 0.08 * own.uniform());
            r += gap;
        }
        r = clamp(r, -0.35, 0.35);

        const double prev = close;
        close = cents(std::fmax(prev * (1.0 + r), 0.5));
        const double partial = 0.25 * r + 0.35 * sigma * own.normal() + 0.8 * gap;
        const double open = cents(std::fmax(prev * (1.0 + clamp(partial, -0.3, 0.3)), 0.5));
        const double spread = (regime.vol + sigma) * 0.5;
        double high =
            cents(std::fmax(open, close) * (1.0 + std::fabs(own.normal()) * 0.55 * spread));
        double low =
            cents(std::fmin(open, close) * (1.0 - std::fabs(own.normal()) * 0.55 * spread));
        high = std::fmax(high, std::fmax(open, close));
        low = std::fmax(std::fmin(low, std::fmin(open, close)), 0.01);

        volumeLevel *= 1.0 + s.volumeTrend + 0.02 * own.normal() * 0.5;
        volumeLevel = clamp(volumeLevel, s.volume * 0.3, s.volume * 4.0);
        const double surprise = std::fabs(r) / (s.vol + 1e-9);
        const double noise = clamp(1.0 + 0.28 * own.normal(), 0.35, 2.5);
        const double volume = volumeLevel * noise * (0.7 + 0.35 * surprise) * (0.8 + 0.2 * cluster);

        bars.append(QuoteBar(d, float(open), float(high), float(low), float(close),
                             qint64(std::floor(volume))));
    }
    return bars;
}

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
    for (const Symbol &s : kSymbols) {
        const QVector<QuoteBar> bars = generate(s);
        const QString path = out.filePath(QLatin1String(s.name) + QLatin1String(".csv"));
        QString error;
        if (!OrdaneData::writeText(path, OrdaneData::seriesToBytes(bars), &error)) {
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
