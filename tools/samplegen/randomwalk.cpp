#include "randomwalk.h"

#include <QSet>

#include <algorithm>
#include <cmath>

namespace SampleGen {

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

// The market's regimes: from this day on, this daily drift and volatility. The rows after
// the histories' last day only move the continued series; their drifts add up to a modest
// rise, so that a series continued for decades keeps prices of the same order.
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
    {QDate(2012, 9, 26), 0.0003, 0.010},   {QDate(2015, 8, 17), -0.0015, 0.020},
    {QDate(2016, 2, 12), 0.0004, 0.009},   {QDate(2018, 10, 1), -0.0020, 0.020},
    {QDate(2018, 12, 24), 0.0008, 0.011},  {QDate(2020, 2, 20), -0.0100, 0.045},
    {QDate(2020, 3, 23), 0.0020, 0.022},   {QDate(2021, 1, 4), 0.0004, 0.011},
    {QDate(2022, 1, 4), -0.0010, 0.017},   {QDate(2022, 10, 13), 0.0003, 0.011},
};

// The market path advances on every weekday from its first day, listed or not, so that
// symbols starting (or continuing) on different days still share the same history.
const QDate kMarketStart(1999, 1, 1);
constexpr std::uint64_t kMarketSeed = 0x5EED0001;

const Regime &regimeOf(const QDate &d)
{
    const Regime *r = &kMarket[0];
    for (const Regime &x : kMarket)
        if (d >= x.from)
            r = &x;
    return *r;
}

double cents(double x)
{
    return std::floor(x * 100.0 + 0.5) / 100.0;
}

double clamp(double x, double lo, double hi)
{
    return x < lo ? lo : (x > hi ? hi : x);
}

// One symbol's walk, a bar per call. The histories depend on the exact order of the draws
// and of the operations here: any change alters the shipped sample files.
class Walker
{
public:
    Walker(const Walk &walk, double close, double volume, double volumeTrend)
        : mWalk(walk)
        , mOwn(walk.seed)
        , mClose(close)
        , mVolume(volume)
        , mVolumeTrend(volumeTrend)
        , mVolumeLevel(volume)
    {}

    double close() const { return mClose; }

    QuoteBar next(const QDate &d, const Regime &regime, double zMarket, double marketReturn,
                  double drift)
    {
        const double z = mOwn.normal();
        // Volatility clustering, mean about 1.
        mCluster = clamp(0.94 * mCluster + 0.06 * (z * z + zMarket * zMarket) * 0.5, 0.4, 4.0);
        const double sigma = mWalk.vol * mCluster;
        double r = mWalk.beta * marketReturn + drift + sigma * z;

        // Rare overnight gaps, as after a report.
        double gap = 0.0;
        if (mOwn.uniform() < 0.004) {
            gap = (mOwn.uniform() < 0.5 ? -1.0 : 1.0) * (0.04 + 0.08 * mOwn.uniform());
            r += gap;
        }
        r = clamp(r, -0.35, 0.35);

        const double prev = mClose;
        mClose = cents(std::fmax(prev * (1.0 + r), 0.5));
        const double partial = 0.25 * r + 0.35 * sigma * mOwn.normal() + 0.8 * gap;
        const double open = cents(std::fmax(prev * (1.0 + clamp(partial, -0.3, 0.3)), 0.5));
        const double spread = (regime.vol + sigma) * 0.5;
        double high =
            cents(std::fmax(open, mClose) * (1.0 + std::fabs(mOwn.normal()) * 0.55 * spread));
        double low =
            cents(std::fmin(open, mClose) * (1.0 - std::fabs(mOwn.normal()) * 0.55 * spread));
        high = std::fmax(high, std::fmax(open, mClose));
        low = std::fmax(std::fmin(low, std::fmin(open, mClose)), 0.01);

        mVolumeLevel *= 1.0 + mVolumeTrend + 0.02 * mOwn.normal() * 0.5;
        mVolumeLevel = clamp(mVolumeLevel, mVolume * 0.3, mVolume * 4.0);
        // Volume swells on large moves.
        const double surprise = std::fabs(r) / (mWalk.vol + 1e-9);
        const double noise = clamp(1.0 + 0.28 * mOwn.normal(), 0.35, 2.5);
        const double volume =
            mVolumeLevel * noise * (0.7 + 0.35 * surprise) * (0.8 + 0.2 * mCluster);

        return QuoteBar(d, float(open), float(high), float(low), float(mClose),
                        qint64(std::floor(volume)));
    }

private:
    Walk mWalk;
    Rng mOwn;
    double mClose;
    double mCluster = 1.0;
    double mVolume;
    double mVolumeTrend;
    double mVolumeLevel;
};

} // namespace

const QVector<Sample> &samples()
{
    static const QVector<Sample> table = {
        {"AAPL", 0xA11E, QDate(2000, 2, 1), Calendar::US, 26.0, 1.35, 0.0012, 0.019, 14e6, 0.0003},
        {"MSFT", 0x3A5F, QDate(2000, 3, 1), Calendar::US, 44.0, 1.00, -0.0001, 0.012, 62e6,
         -0.0001},
        {"UTX", 0x07C5, QDate(2000, 6, 1), Calendar::US, 32.0, 0.90, 0.0003, 0.011, 3.5e6, 0.0002},
        {"MAN.DE", 0x3A4D, QDate(2000, 6, 1), Calendar::Germany, 28.0, 1.30, 0.0004, 0.017, 0.9e6,
         0.0002},
        {"ADS.DE", 0xAD5D, QDate(2003, 1, 2), Calendar::GermanyShort, 24.0, 0.95, 0.0005, 0.013,
         1.1e6, 0.0001},
    };
    return table;
}

QDate historyEnd()
{
    return QDate(2012, 9, 25);
}

QVector<QuoteBar> history(const Sample &sample)
{
    Rng market(kMarketSeed);
    Walker walker(sample.walk(), sample.price, sample.volume, sample.volumeTrend);
    QVector<QuoteBar> bars;
    const QDate last = historyEnd();
    int year = 0;
    QSet<QDate> closed;
    for (QDate d = kMarketStart; d <= last; d = d.addDays(1)) {
        if (d.dayOfWeek() > 5)
            continue;
        const Regime &regime = regimeOf(d);
        const double zMarket = market.normal();
        const double marketReturn = regime.drift + regime.vol * zMarket;
        if (d < sample.start)
            continue;
        if (d.year() != year) {
            year = d.year();
            closed = holidays(year, sample.calendar);
        }
        if (closed.contains(d))
            continue;
        bars.append(walker.next(d, regime, zMarket, marketReturn, sample.drift));
    }
    return bars;
}

QVector<QuoteBar> continueSeries(const QVector<QuoteBar> &oldestFirst, const Walk &walk,
                                 const QDate &until)
{
    QVector<QuoteBar> bars;
    if (oldestFirst.isEmpty() || until <= oldestFirst.constLast().date())
        return bars;
    const QDate last = oldestFirst.constLast().date();

    // The typical volume of the last three months or so; a floor keeps every volume above 0
    // even after a series without volumes.
    const int tail = std::min(int(oldestFirst.size()), 60);
    double volume = 0.0;
    for (int i = oldestFirst.size() - tail; i < oldestFirst.size(); ++i)
        volume += double(std::max<qint64>(oldestFirst.at(i).volume(), 0));
    volume = std::fmax(volume / tail, 1000.0);

    // A stream of its own, so that the continuation does not replay the history's first days.
    Walk own = walk;
    own.seed ^= 0xC0471A5EED5ull;
    const double start = std::fmax(double(oldestFirst.constLast().close()), 0.5);
    Walker walker(own, start, volume, 0.0);

    // Where the market alone would have taken the price. Pulling the close towards it by a
    // small fraction of the gap each day bounds the own random walk (its spread settles near
    // vol / sqrt(2 * kPull)) while the market's regimes still show.
    constexpr double kPull = 0.004;
    double anchor = start;
    // Days before the market path's first day draw from a path of their own.
    Rng market(kMarketSeed);
    Rng early(~kMarketSeed);
    for (QDate d = std::min(kMarketStart, last.addDays(1)); d <= until; d = d.addDays(1)) {
        if (d.dayOfWeek() > 5)
            continue;
        const Regime &regime = regimeOf(d);
        const double zMarket = d < kMarketStart ? early.normal() : market.normal();
        const double marketReturn = regime.drift + regime.vol * zMarket;
        if (d <= last)
            continue;
        anchor *= 1.0 + walk.beta * marketReturn;
        const double pull = kPull * (anchor / walker.close() - 1.0);
        bars.append(walker.next(d, regime, zMarket, marketReturn, pull));
    }
    return bars;
}

} // namespace SampleGen
