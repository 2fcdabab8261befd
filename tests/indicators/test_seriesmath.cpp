// The series routines: hand-computed windows, the short-series guard, shift, and the
// block-wise and incremental routines against plain bar-by-bar loops, bit for bit.

#include "indicators/compute/seriesmath.h"

#include <QtTest>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <random>
#include <tuple>

using namespace Indicators;

using Routine = Series (*)(int, const Series &);
Q_DECLARE_METATYPE(Routine)

namespace {
// Plain bar-by-bar loops, every step as the routines' contracts state it.
namespace Plain {
// weighted: weight P on the newest value down to 1, else 1; added newest first.
Series average(int p, const Series &s, bool weighted)
{
    Series r(s.size(), 0.0f);
    for (int i = p - 1; p >= 1 && s.size() > p && i < s.size(); ++i) {
        float sum = 0.0f;
        for (int j = 0; j < p; ++j)
            sum += (weighted ? float(p - j) : 1.0f) * s[i - j];
        r[i] = sum / float(weighted ? p * (p + 1) / 2 : p);
    }
    return r;
}
Series sma(int p, const Series &s)
{
    return average(p, s, false);
}
Series wma(int p, const Series &s)
{
    return average(p, s, true);
}

Series median(int p, const Series &s)
{
    Series r(s.size(), 0.0f);
    for (int i = p - 1; p >= 1 && s.size() > p && i < s.size(); ++i) {
        Series w = s.mid(i - p + 1, p);
        std::sort(w.begin(), w.end());
        r[i] = p % 2 ? w[p / 2] : (w[p / 2 - 1] + w[p / 2]) * 0.5f;
    }
    return r;
}

template <int F> Series deviation(int p, const Series &s)
{
    const Series m = sma(p, s);
    Series r(s.size(), 0.0f);
    for (int i = p; p - F >= 1 && s.size() > p && i < s.size(); ++i) {
        float sum = 0.0f;
        for (int j = i - p; j < i; ++j)
            sum += (s[j] - m[i]) * (s[j] - m[i]);
        r[i] = std::sqrt(sum / float(p - F));
    }
    return r;
}
} // namespace Plain

// A random walk of daily closes around 100, never below 1.
Series walk(int n, unsigned seed)
{
    std::mt19937 random(seed);
    std::normal_distribution<float> step(0.0f, 1.0f);
    Series s;
    for (float v = 100.0f; s.size() < n;)
        s.append(v = std::max(1.0f, v + step(random)));
    return s;
}
} // namespace

class TestSeriesMath : public QObject
{
    Q_OBJECT

private slots:
    void handComputed_data();
    void handComputed();
    void shortSeriesGivesZeros_data();
    void shortSeriesGivesZeros();
    void shift();
    void matchesPlainLoops_data();
    void matchesPlainLoops();
};

void TestSeriesMath::handComputed_data()
{
    QTest::addColumn<Routine>("routine");
    QTest::addColumn<int>("period");
    QTest::addColumn<Series>("source");
    QTest::addColumn<Series>("expected");

    // n = P + 1: two values. Bar 2: -1e8 + 1e8 = 0, + 1 = 1, / 3. Bar 3: 2 + -1e8 rounds to
    // -1e8 (floats there are 8 apart), + 1e8 = 0. Oldest first would give 0 and 2 / 3.
    QTest::newRow("sma-adds-newest-first")
        << &sma << 3 << Series{1, 1e8f, -1e8f, 2} << Series{0, 0, 1.0f / 3, 0};
    // k = 2 / 2 = 1: each value replaces the average.
    QTest::newRow("ema-period-one-copies") << &ema << 1 << Series{3, -1, 7} << Series{3, -1, 7};
    // k = 0.5, seeded with 2: 4 * 0.5 + 2 * 0.5 = 3; 8 * 0.5 + 3 * 0.5 = 5.5; 0 + 2.75.
    QTest::newRow("ema-seeded-with-first-value")
        << &ema << 3 << Series{2, 4, 8, 0} << Series{2, 3, 5.5f, 2.75f};
    // k = 0.4 is the float 0.400000006, and 1 - k in double 0.599999994 (as a float it would
    // be 0.600000024). Bar 1: 2k = 0.800000012, + 0.599999994 = 1.400000006, nearest float
    // 1.39999998 (1.4000001 with 1 - k in float); then each bar r * 0.599999994, rounded.
    QTest::newRow("ema-complement-in-double")
        << &ema << 4 << Series{1, 2, 0, 0, 0}
        << Series{1, 1.39999998f, 0.839999974f, 0.504000008f, 0.302399993f};
    // S = 4, r1 = 2 (= sma); S = 4 - 2 + 5 = 7, r2 = 3.5; S = 7 - 3.5 + 7 = 10.5, r3 = 5.25.
    QTest::newRow("smma-starts-at-simple-average")
        << &smma << 2 << Series{1, 3, 5, 7} << Series{0, 2, 3.5f, 5.25f};
    // Divisor 6: (3*3 + 2*2 + 1*1) / 6 = 14 / 6; (3*6 + 2*3 + 1*2) / 6 = 26 / 6.
    QTest::newRow("wma-newest-weighs-most")
        << &wma << 3 << Series{1, 2, 3, 6} << Series{0, 0, 14.0f / 6, 26.0f / 6};
    // Sorted windows {1 4 5}, {1 2 4}, {2 3 4}.
    QTest::newRow("median-odd-period")
        << &median << 3 << Series{5, 1, 4, 2, 3} << Series{0, 0, 4, 2, 3};
    // {1 2 4 5} -> (2 + 4) * 0.5; {1 2 3 4} -> 2.5; {2 3 4 7} -> 3.5.
    QTest::newRow("median-even-period-averages-pair")
        << &median << 4 << Series{5, 1, 4, 2, 3, 7} << Series{0, 0, 0, 3, 2.5f, 3.5f};
    // {2 2 2}, {1 2 2}, {1 2 2}, {1 1 2}, {1 1 2}.
    QTest::newRow("median-repeated-values")
        << &median << 3 << Series{2, 2, 2, 1, 2, 1, 1} << Series{0, 0, 2, 2, 2, 1, 1};
    // Bar 2 uses source[0..1] = {1, 3} against sma[2] = 4: (9 + 1) / 2 = 5.
    QTest::newRow("stddev-span-before-bar-mean-at-bar")
        << &stdDev << 2 << Series{1, 3, 5} << Series{0, 0, std::sqrt(5.0f)};
    // The same with divisor 2 - 1: (9 + 1) / 1 = 10.
    QTest::newRow("stddev-n-minus-1")
        << &stdDevNMinus1 << 2 << Series{1, 3, 5} << Series{0, 0, std::sqrt(10.0f)};
}

void TestSeriesMath::handComputed()
{
    QFETCH(Routine, routine);
    QFETCH(int, period);
    QFETCH(Series, source);
    QFETCH(Series, expected);
    QCOMPARE(routine(period, source), expected);
}

void TestSeriesMath::shortSeriesGivesZeros_data()
{
    QTest::addColumn<int>("n");
    QTest::addColumn<int>("period");

    QTest::newRow("series-as-long-as-period") << 32 << 32;
    QTest::newRow("period-longer-than-series") << 3 << 5;
    QTest::newRow("empty-series") << 0 << 3;
    QTest::newRow("period-zero") << 40 << 0;
    QTest::newRow("period-negative") << 40 << -2;
}

void TestSeriesMath::shortSeriesGivesZeros()
{
    QFETCH(int, n);
    QFETCH(int, period);
    for (Routine routine : {&sma, &ema, &smma, &wma, &median, &stdDev, &stdDevNMinus1})
        QCOMPARE(routine(period, walk(n, 1)), Series(n, 0.0f));
}

void TestSeriesMath::shift()
{
    const Series source = {4, 5, 6};
    QCOMPARE(Indicators::shift(0, source), source);
    QCOMPARE(Indicators::shift(2, source), (Series{0, 0, 4, 5, 6})); // last value at n - 1 + 2
    QCOMPARE(Indicators::shift(-3, source), source);
}

void TestSeriesMath::matchesPlainLoops_data()
{
    QTest::addColumn<Routine>("routine");
    QTest::addColumn<Routine>("plain");
    QTest::addColumn<int>("period");
    QTest::addColumn<Series>("source");

    Series ties;
    for (int i = 0; i < 3000; ++i)
        ties.append(float(i * 7919 % 13));
    // A long walk, lengths at the edges of the 256-bar blocks, and many equal values.
    const QVector<QPair<const char *, Series>> sources = {
        {"walk", walk(20000, 7)},
        {"block-1", walk(256 + 31, 8)},
        {"block+1", walk(256 + 33, 9)},
        {"two-blocks+7", walk(2 * 256 + 32 + 7, 10)},
        {"ties", ties}};
    const QVector<std::tuple<const char *, Routine, Routine>> routines = {
        {"sma", &sma, &Plain::sma},
        {"wma", &wma, &Plain::wma},
        {"median", &median, &Plain::median},
        {"stdDev", &stdDev, &Plain::deviation<0>},
        {"stdDevNMinus1", &stdDevNMinus1, &Plain::deviation<1>}};
    for (const auto &[name, routine, plain] : routines) {
        for (int period : {1, 2, 3, 7, 8, 9, 20, 32, 33, 100}) {
            for (const auto &source : sources) {
                QTest::addRow("%s-%d-%s", name, period, source.first)
                    << routine << plain << period << source.second;
            }
            // The shortest series with values (shorter ones: shortSeriesGivesZeros).
            QTest::addRow("%s-%d-over-%d-values", name, period, period + 1)
                << routine << plain << period << walk(period + 1, 12);
        }
    }
}

void TestSeriesMath::matchesPlainLoops()
{
    QFETCH(Routine, routine);
    QFETCH(Routine, plain);
    QFETCH(int, period);
    QFETCH(Series, source);
    const Series fast = routine(period, source);
    const Series expected = plain(period, source);
    QCOMPARE(fast.size(), expected.size());
    QVERIFY(std::memcmp(fast.constData(), expected.constData(), sizeof(float) * fast.size()) == 0);
}

QTEST_GUILESS_MAIN(TestSeriesMath)
#include "test_seriesmath.moc"
