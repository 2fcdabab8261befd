// The averages and bands: buffer names and lengths, the close as the price, parameters read by
// name, the precision of the bands, and the Bollinger window before each bar.

#include "indicators/compute/averages.h"
#include "indicators/compute/seriesmath.h"

#include <QtTest>

#include <cmath>
#include <initializer_list>
#include <random>
#include <utility>

using namespace Indicators;

Q_DECLARE_METATYPE(Computation)

namespace {
// Bars whose other prices differ from the close: high = c + 1, low = c - 2, so the median
// price is c - 0.5.
QVector<QuoteBar> bars(const Series &close)
{
    QVector<QuoteBar> b;
    for (float c : close)
        b.append(QuoteBar(QDate(2024, 1, 2).addDays(b.size()), c + 3, c + 1, c - 2, c, 100));
    return b;
}

Series walk(int n)
{
    std::mt19937 random(11);
    std::normal_distribution<float> step(0.0f, 1.0f);
    Series s;
    for (float v = 50.0f; s.size() < n;)
        s.append(v = std::max(1.0f, v + step(random)));
    return s;
}

Params with(std::initializer_list<std::pair<const char *, float>> values)
{
    Params p;
    for (const auto &v : values)
        p.insert(QLatin1String(v.first), v.second);
    return p;
}
} // namespace

class TestAverages : public QObject
{
    Q_OBJECT

private slots:
    void handComputed_data();
    void handComputed();
    void bollingerBandsAroundMiddle();
    void bollingerBandsMatchThePlainLoop_data();
    void bollingerBandsMatchThePlainLoop();
    void columnsFollowTheirSeries();
};

// Empty, shorter than the default periods, and long: every buffer, no more, one value a bar;
// all zeros for a period below 1 (0.5 truncates to 0).

void TestAverages::handComputed_data()
{
    QTest::addColumn<Computation>("compute");
    QTest::addColumn<Params>("params");
    QTest::addColumn<Series>("close");
    QTest::addColumn<QString>("buffer");
    QTest::addColumn<Series>("expected");

    // "Period" 3.9 truncates to 3; the closes are {2, 4, 8, 0}. sma: (8 + 4 + 2) / 3 and
    // (0 + 8 + 4) / 3; ema (k = 0.5, seeded with 2): 3, 5.5, 2.75; smma: 14 / 3, then
    // (14 - 14 / 3 + 0) / 3; wma: (3*8 + 2*4 + 2) / 6 and (3*0 + 2*8 + 4) / 6; median: 4, 4.
    const Params three = with({{"Period", 3.9f}});
    const Series closes = {2, 4, 8, 0};
    QTest::newRow("sma") << &computeSMA << three << closes << "SMA" << Series{0, 0, 14.0f / 3, 4};
    QTest::newRow("ema") << &computeEMA << three << closes << "EMA" << Series{2, 3, 5.5f, 2.75f};
    QTest::newRow("smma") << &computeSMMA << three << closes << "SMMA"
                          << Series{0, 0, 14.0f / 3, (14 - 14.0f / 3) / 3};
    QTest::newRow("wma") << &computeWMA << three << closes << "WMA"
                         << Series{0, 0, 34.0f / 6, 20.0f / 6};
    QTest::newRow("median") << &computeMedian << three << closes << "Median" << Series{0, 0, 4, 4};
    const Params one = with({{"Period", 1}});
    const Series close = {3, 5, 4};
    // Bar i: |close[i - 1] - close[i]|, the one value before it against its own mean.
    QTest::newRow("stddev-period-one")
        << &computeStdDev << one << close << "StdDev" << Series{0, 2, 1};
    QTest::newRow("median-price") << &computeMedianPrice << Params() << close << "MedianPrice"
                                  << Series{2.5f, 4.5f, 3.5f};

    // sma(2) = {0, 10, 10}: 0 where the average is 0; 10 * (1 + 0.085) and 10 * (1 - 0.085)
    // in double round to the floats nearest 10.85 and 9.15 (in float, 9.15000057).
    const Params envelopes = with({{"Period", 2}});
    const Series tens = {10, 10, 10};
    QTest::newRow("envelopes-upper")
        << &computeEnvelopes << envelopes << tens << "EnvelopesUpper" << Series{0, 10.85f, 10.85f};
    QTest::newRow("envelopes-lower")
        << &computeEnvelopes << envelopes << tens << "EnvelopesLower" << Series{0, 9.15f, 9.15f};
    QTest::newRow("envelopes-shift-moves-nothing")
        << &computeEnvelopes << with({{"Period", 2}, {"Shift", 5}}) << tens << "EnvelopesLower"
        << Series{0, 9.15f, 9.15f};

    // Bar 2 over {1, 3}: mean 2, s = sqrt((1 + 1) / 2) = 1; bar 3 over {3, 5}: mean 4, s = 1.
    const Params bands = with({{"Period", 2}});
    const Series rising = {1, 3, 5, 6};
    QTest::newRow("bollinger-middle-before-bar") << &computeBollingerBands << bands << rising
                                                 << "BollingerBandsMiddle" << Series{0, 0, 2, 4};
    QTest::newRow("bollinger-upper")
        << &computeBollingerBands << bands << rising << "BollingerBandsUpper" << Series{0, 0, 4, 6};
    QTest::newRow("bollinger-lower")
        << &computeBollingerBands << bands << rising << "BollingerBandsLower" << Series{0, 0, 0, 2};
    // A template's misspelt "Devitation" is not read: the width stays 2.
    QTest::newRow("bollinger-misspelt-deviation-ignored")
        << &computeBollingerBands << with({{"Period", 2}, {"Devitation", 5}}) << rising
        << "BollingerBandsUpper" << Series{0, 0, 4, 6};
    // Bar 3 over {1.1, 1.1, 10.7}: mean 12.9 / 3 = 4.29999971; differences -3.19999981 (twice)
    // and 6.40000010, squared in double 10.2399988 and 40.9600012, summed 61.4399986;
    // s = sqrt(61.4399986 / 3) = 4.52548313; 4.29999971 + 2 * s = 13.3509655. (Squared in
    // float the sum is 61.4400024 and the band 13.3509674.)
    QTest::newRow("bollinger-difference-squared-in-double")
        << &computeBollingerBands << with({{"Period", 3}}) << Series{1.1f, 1.1f, 10.7f, 0}
        << "BollingerBandsUpper" << Series{0, 0, 0, 13.3509655f};
}

void TestAverages::handComputed()
{
    QFETCH(Computation, compute);
    QFETCH(Params, params);
    QFETCH(Series, close);
    QFETCH(QString, buffer);
    QFETCH(Series, expected);
    QCOMPARE(compute(bars(close), params).buffers.value(buffer), expected);
}

// Upper and lower lie the same distance from the middle, and the middle is the average of
// the 20 closes that end one bar earlier (added in another order, hence the tolerance).
void TestAverages::bollingerBandsAroundMiddle()
{
    const Series close = walk(3000);
    const Result r = computeBollingerBands(bars(close), Params());
    const Series middle = r.buffers.value(QStringLiteral("BollingerBandsMiddle"));
    const Series upper = r.buffers.value(QStringLiteral("BollingerBandsUpper"));
    const Series lower = r.buffers.value(QStringLiteral("BollingerBandsLower"));
    const Series average = sma(20, close);
    for (int i = 20; i < close.size(); ++i) {
        const float tolerance = 1e-5f * middle[i];
        QVERIFY(upper[i] > middle[i] && middle[i] > lower[i]);
        QVERIFY(std::abs((upper[i] - middle[i]) - (middle[i] - lower[i])) <= tolerance);
        QVERIFY(std::abs(middle[i] - average[i - 1]) <= tolerance);
    }
}

// The bands are worked out for many bars side by side; bar by bar, as stated, they are the same
// to the bit: over a series long enough for several blocks, and over series one bar shorter
// than, as long as and one bar longer than the period, where the guard decides.
void TestAverages::bollingerBandsMatchThePlainLoop_data()
{
    QTest::addColumn<int>("period");
    QTest::addColumn<int>("n");
    for (const int p : {1, 7, 20})
        QTest::addRow("period-%d-long-walk", p) << p << 5000;
    for (const int n : {39, 40, 41})
        QTest::addRow("period-40-over-%d-bars", n) << 40 << n;
}

void TestAverages::bollingerBandsMatchThePlainLoop()
{
    QFETCH(int, period);
    QFETCH(int, n);
    const Series close = walk(n);
    const Result r = computeBollingerBands(bars(close), with({{"Period", float(period)}}));
    Series middle(n, 0.0f), upper(n, 0.0f), lower(n, 0.0f);
    for (int i = period; i < n; ++i) {
        float sum = 0.0f;
        for (int j = i - period; j < i; ++j)
            sum += close[j];
        const float mean = sum / float(period);
        float squares = 0.0f;
        for (int j = i - period; j < i; ++j) {
            const double d = close[j] - mean;
            squares = float(squares + d * d);
        }
        const float s = std::sqrt(squares / float(period));
        middle[i] = mean;
        upper[i] = mean + 2.0f * s;
        lower[i] = mean - 2.0f * s;
    }
    QCOMPARE(r.buffers.value(QStringLiteral("BollingerBandsMiddle")), middle);
    QCOMPARE(r.buffers.value(QStringLiteral("BollingerBandsUpper")), upper);
    QCOMPARE(r.buffers.value(QStringLiteral("BollingerBandsLower")), lower);
}

// The price columns of a long series are kept between computations; a changed series, a
// copy changed afterwards, or another series of the same length must never get the old ones.
void TestAverages::columnsFollowTheirSeries()
{
    QVector<QuoteBar> series = bars(walk(6000));
    const Series before = closes(series);
    QCOMPARE(before[100], series[100].close());

    QVector<QuoteBar> copy = series;
    series[100] = QuoteBar(series[100].date(), 1, 2, 0.5f, 1.5f, 7);
    QCOMPARE(closes(series)[100], 1.5f);
    QCOMPARE(volumes(series)[100], 7.0f);
    QCOMPARE(closes(copy)[100], before[100]);

    copy.last() = QuoteBar(copy.last().date(), 1, 2, 0.5f, 1.25f, 7);
    QCOMPARE(closes(copy).last(), 1.25f);
    QCOMPARE(closes(copy)[100], before[100]);

    const QVector<QuoteBar> other = bars(Series(6000, 3.0f));
    QCOMPARE(closes(other)[100], 3.0f);
    QCOMPARE(highs(other)[100], 4.0f);
    QCOMPARE(closes(series)[100], 1.5f);
    // The short ones are never kept, and answer just the same.
    QCOMPARE(closes(series.mid(0, 200))[100], 1.5f);
}

QTEST_GUILESS_MAIN(TestAverages)
#include "test_averages.moc"
