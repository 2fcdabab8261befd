// The RSI trading rule and the search of its parameters: the rule's trades on RSI values
// given outright, the table on short series worked out by hand, and the search against the
// plain loop over every bar on random series.

#include "data/reader.h"
#include "indicators/compute/rsitrading.h"

#include <QtTest>

#include <cmath>

using Indicators::RsiTrade;

Q_DECLARE_METATYPE(QVector<QuoteBar>)

Q_DECLARE_METATYPE(QVector<RsiTrade>)

namespace {
QVector<QuoteBar> closesAsBars(const QVector<float> &closes)
{
    QVector<QuoteBar> bars;
    for (int i = 0; i < closes.size(); ++i)
        bars.append(QuoteBar(QDate(2012, 1, 2).addDays(i), closes[i], closes[i], closes[i],
                             closes[i], 100));
    return bars;
}

// A seeded random walk whose close moves up to `swing` (a fraction) either way each day:
// swings wide enough for many combinations to clear 0.3 % a day.
QVector<QuoteBar> walk(int n, quint64 seed, double swing)
{
    const auto next = [&seed] {
        seed = seed * 6364136223846793005ull + 1442695040888963407ull;
        return double(seed >> 11) * 0x1.0p-53;
    };
    QVector<float> closes;
    double close = 50;
    for (int i = 0; i < n; ++i) {
        close = std::max(1.0, close * (1 + (next() - 0.5) * 2 * swing));
        closes.append(float(close));
    }
    return closesAsBars(closes);
}

QVector<QuoteBar> sample(const char *symbol)
{
    OrdaneData::Reader reader;
    reader.loadFile(QStringLiteral(":/Storage/%1.csv").arg(QLatin1String(symbol)));
    return reader.bars();
}

const QByteArray kHeader = "Period,LowLevel,HighLevel,Trades,DayProfit, Days, TotalProfit\n";
} // namespace

class TestRsiTrading : public QObject
{
    Q_OBJECT

private slots:
    void rule_data();
    void rule();
    void table_data();
    void table();
    void searchMatchesThePlainLoop_data();
    void searchMatchesThePlainLoop();
};

void TestRsiTrading::rule_data()
{
    QTest::addColumn<QVector<float>>("rsi");
    QTest::addColumn<int>("period");
    QTest::addColumn<QVector<RsiTrade>>("trades");
    const float nan = std::nanf("");
    // L = 30, H = 70 throughout.
    QTest::newRow("up-then-down") << QVector<float>{0, 0, 20, 40, 80, 60} << 2
                                  << QVector<RsiTrade>{{3, 5}};
    QTest::newRow("reaching-the-levels-counts")
        << QVector<float>{0, 0, 20, 30, 80, 70, 75} << 2 << QVector<RsiTrade>{{3, 5}};
    // Leaving a level is no cross: RSI[i - 1] must lie strictly beyond it.
    QTest::newRow("leaving-the-low-level-opens-nothing")
        << QVector<float>{0, 0, 30, 40, 50} << 2 << QVector<RsiTrade>{};
    QTest::newRow("leaving-the-high-level-closes-nothing")
        << QVector<float>{0, 0, 20, 40, 70, 60, 65} << 2 << QVector<RsiTrade>{{3, 6}};
    QTest::newRow("no-entry-at-the-last-bar")
        << QVector<float>{0, 0, 20, 20, 20, 40} << 2 << QVector<RsiTrade>{};
    // RSI[2] is the first value with period 2, but only RSI[3] with period 3: bar 3 can
    // trade with the first and not with the second.
    QTest::newRow("first-value-period-2")
        << QVector<float>{0, 0, 0, 50, 60, 20} << 2 << QVector<RsiTrade>{{3, 5}};
    QTest::newRow("before-the-first-value-period-3")
        << QVector<float>{0, 0, 0, 50, 60, 20} << 3 << QVector<RsiTrade>{};
    // The second up-cross at bar 5 falls inside the open trade.
    QTest::newRow("no-overlap") << QVector<float>{0, 0, 20, 40, 20, 40, 80, 60} << 2
                                << QVector<RsiTrade>{{3, 7}};
    QTest::newRow("two-trades") << QVector<float>{0, 0, 20, 40, 80, 60, 20, 40, 50} << 2
                                << QVector<RsiTrade>{{3, 5}, {7, 8}};
    QTest::newRow("nan-crosses-nothing")
        << QVector<float>{0, 0, 20, nan, 40, 80, nan, 60, 50} << 2 << QVector<RsiTrade>{};
}

void TestRsiTrading::rule()
{
    QFETCH(QVector<float>, rsi);
    QFETCH(int, period);
    QFETCH(QVector<RsiTrade>, trades);
    const QVector<RsiTrade> got = Indicators::rsiTrades(rsi, period, 30, 70);
    QCOMPARE(got.size(), trades.size());
    for (int i = 0; i < got.size(); ++i) {
        QCOMPARE(got[i].entry, trades[i].entry);
        QCOMPARE(got[i].exit, trades[i].exit);
    }
}

// Worked out by hand from the RSI's definition (Wilder's averages of the gains and losses;
// docs/indicators.md). Grid combinations are visited P up, then H from 34 (the first H with
// room for L >= 1) up, then L up; a line needs DayProfit > 0.3 and a DayProfit other than the
// last line's.
void TestRsiTrading::table_data()
{
    QTest::addColumn<QVector<float>>("closes");
    QTest::addColumn<QByteArray>("lines");

    // Changes -1, -1, +4, +1 give, with P = 2: bar 2 G = 0, L = 1, RSI 0; bar 3 G = 2,
    // L = 0.5, RSI 80. Every L from 1 to 65 is crossed up at bar 3 (0 < L <= 80), and bar 4
    // is the last bar, so every combination trades 3 -> 4 once: (13 - 12) / 13 * 100 =
    // 7.69230769 in 1 day. Only the first combination, H = 34 and L = 1, is written. P = 3
    // could only enter at bar 4, the last one.
    QTest::newRow("one-trade-to-the-last-bar")
        << QVector<float>{10, 9, 8, 12, 13} << QByteArray("2,1,34,1,7.69230769,1,7.69230769\n");
    // The same trade earning (12.03 - 12) / 12.03 * 100 = 0.249 a day: under 0.3.
    QTest::newRow("under-the-threshold") << QVector<float>{10, 9, 8, 12, 12.03f} << QByteArray();
    // (12.04 - 12) / 12.04 * 100 = 0.332225598: over it.
    QTest::newRow("over-the-threshold") << QVector<float>{10, 9, 8, 12, 12.04f}
                                        << QByteArray("2,1,34,1,0.332225598,1,0.332225598\n");
    // P = 2: RSI 0, 80, 88.89, 61.54, 82.76, 53.33 at bars 2 .. 7. Entry at bar 3 for every
    // L. Bar 5 crosses down through H = 62 .. 88 (88.89 > H >= 61.54): those combinations
    // trade 3 -> 5, (13 - 12) / 13 * 100 = 7.69230769 in 2 days, 3.84615385 a day; a second
    // entry would need L >= 62 (61.54 < L at bar 6), out of reach with H <= 88. Every other
    // H holds to the last bar: 3 -> 7, (14 - 12) / 14 * 100 = 14.2857143 in 4 days,
    // 3.57142857 a day. In visiting order: H = 34 (3.57), H = 62 (3.85), H = 89 (3.57 again,
    // but other than the line before). Larger periods only lose: P = 3 and P = 4 enter at
    // bar 6 (close 15) and leave at bar 7 (close 14); P = 5 crosses only above L = 65.
    QTest::newRow("exits-by-cross-and-at-the-end")
        << QVector<float>{10, 9, 8, 12, 14, 13, 15, 14}
        << QByteArray("2,1,34,1,3.57142857,4,14.2857143\n"
                      "2,1,62,1,3.84615385,2,7.69230769\n"
                      "2,1,89,1,3.57142857,4,14.2857143\n");
    // P = 2: RSI 0, 80, 57.14, 84.21, 88.89 at bars 2 .. 6; H = 58 .. 79 exit at bar 4
    // at a loss, every other H holds 3 -> 6: (15 - 12) / 15 * 100 = 20 in 3 days,
    // 6.66666667 a day. P = 3 (RSI 66.67, 53.33, 75.44, 80.14) enters at bar 5 for
    // L = 54 .. 65 and holds to bar 6: (15 - 14) / 15 * 100 in 1 day, the very same
    // 6.66666667 a day, so nothing more is written: the last line's DayProfit carries over
    // from one period to the next.
    QTest::newRow("same-day-profit-in-the-next-period")
        << QVector<float>{10, 9, 8, 12, 11, 14, 15} << QByteArray("2,1,34,1,6.66666667,3,20\n");
    QTest::newRow("no-bars") << QVector<float>{} << QByteArray();
    QTest::newRow("flat") << QVector<float>(40, 25.0f) << QByteArray();
}

void TestRsiTrading::table()
{
    QFETCH(QVector<float>, closes);
    QFETCH(QByteArray, lines);
    const QVector<QuoteBar> bars = closesAsBars(closes);
    QCOMPARE(Indicators::rsiCalibrationTable(bars), kHeader + lines);
    QCOMPARE(Indicators::rsiCalibrationTablePlain(bars), kHeader + lines);
}

void TestRsiTrading::searchMatchesThePlainLoop_data()
{
    QTest::addColumn<QVector<QuoteBar>>("bars");
    QTest::addColumn<int>("from");
    QTest::addColumn<int>("to");
    QTest::addColumn<bool>("lines"); // whether the table must hold lines to compare
    QTest::newRow("sample-ADS.DE") << sample("ADS.DE") << 2 << 99 << true;
    QTest::newRow("sample-AAPL") << sample("AAPL") << 2 << 99 << true;
    QTest::newRow("3000-bars-wild-swings") << walk(3000, 11, 0.15) << 2 << 99 << true;
    QTest::newRow("800-bars-wild-swings") << walk(800, 5, 0.2) << 2 << 99 << true;
    QTest::newRow("periods-10-to-20") << walk(1500, 23, 0.08) << 10 << 20 << true;
    QTest::newRow("one-period") << walk(1200, 31, 0.08) << 2 << 2 << true;
    // Barely longer than the smaller periods: most find no bar to trade on.
    QTest::newRow("40-bars") << walk(40, 3, 0.06) << 2 << 99 << false;
}

void TestRsiTrading::searchMatchesThePlainLoop()
{
    QFETCH(QVector<QuoteBar>, bars);
    QFETCH(int, from);
    QFETCH(int, to);
    QFETCH(bool, lines);
    const QByteArray fast = Indicators::rsiCalibrationTable(bars, {from, to});
    QCOMPARE(fast, Indicators::rsiCalibrationTablePlain(bars, {from, to}));
    // A table without lines would compare nothing.
    if (lines)
        QVERIFY2(fast.count('\n') > 10, fast.constData());
}

QTEST_GUILESS_MAIN(TestRsiTrading)
#include "test_rsitrading.moc"
