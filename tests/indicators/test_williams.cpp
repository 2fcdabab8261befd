// Bill Williams' indicators: shifted Alligator lines, Gator signs, the oscillators' short-series
// edge and falling-bar colours, fractals and bull and bear bars.

#include "indicators/compute/williams.h"

#include <QtTest>

#include <cmath>
#include <tuple>

using namespace Indicators;

namespace {
QuoteBar bar(float open, float high, float low, float close, qint64 volume = 1)
{
    return QuoteBar(QDate(2024, 1, 2), open, high, low, close, volume);
}

// Bars with the given median prices (high = mp + 1, low = mp - 1).
QVector<QuoteBar> medians(const Series &mp)
{
    QVector<QuoteBar> bars;
    for (float m : mp)
        bars.append(bar(m, m + 1, m - 1, m));
    return bars;
}

// mp[i] = step * (i + 1).
Series rising(int n, float step = 1)
{
    Series mp;
    for (int i = 0; i < n; ++i)
        mp.append(step * float(i + 1));
    return mp;
}
} // namespace

class TestWilliams : public QObject
{
    Q_OBJECT

private slots:
    void alligatorShiftedLines();
    void gatorSigns();
    void ao_data();
    void ao();
    void acColours();
    void mfaiZeroVolume();
    void fractals_data();
    void fractals();
    void williamsBars_data();
    void williamsBars();
};

// Flat bars of up to 5 (the shortest average's period) give zeros and no colours everywhere.

// Constant median price 7: every smma value is exactly 7, from index shift + period - 1 to the
// last bar's index n - 1 + shift.
void TestWilliams::alligatorShiftedLines()
{
    const Result r = computeAlligator(medians(Series(40, 7)), Params());
    for (const auto &[name, period, shift] :
         {std::make_tuple("Jaws", 13, 8), std::make_tuple("Teeth", 8, 5),
          std::make_tuple("Lips", 5, 3)}) {
        const Series s = r.buffers.value(QLatin1String(name));
        QCOMPARE(s, Series(shift + period - 1, 0) + Series(40 - period + 1, 7));
    }
}

// A wavy median price; Jaws holds values from bar 8 + 13 - 1 = 20, Teeth from 5 + 8 - 1 = 12,
// Lips from 3 + 5 - 1 = 7. Each histogram is as long as the shorter of its lines.
void TestWilliams::gatorSigns()
{
    Series mp;
    for (int i = 0; i < 60; ++i)
        mp.append(10 + 5 * std::sin(float(i) / 3));
    const Result a = computeAlligator(medians(mp), Params());
    const Result g = computeGator(medians(mp), Params());
    const auto expected = [&a](const char *line, int size, int first, float sign) {
        Series s(size, 0);
        for (int i = first; i < size; ++i)
            s[i] = sign * std::fabs(a.buffers[QLatin1String(line)][i] -
                                    a.buffers[QStringLiteral("Teeth")][i]);
        return s;
    };
    const Series upper = g.buffers.value(QStringLiteral("JawsTeeth"));
    const Series lower = g.buffers.value(QStringLiteral("LipsTeeth"));
    QCOMPARE(upper, expected("Jaws", 60 + 5, 20, 1));
    QCOMPARE(lower, expected("Lips", 60 + 3, 12, -1));
    QVERIFY(upper.last() > 0 && lower.last() < 0);
}

void TestWilliams::ao_data()
{
    QTest::addColumn<int>("n");
    QTest::addColumn<Series>("tail"); // values from bar 33 on
    QTest::addColumn<QList<int>>("redBars");
    // Median prices 1, 2, ...: sma(5) at bar i is (i-3 + ... + i+1) / 5 = i - 1 from bar 4 on.
    // sma(34) needs 35 bars, so AO is sma(5) alone: 3, 4, ..., 32 on bars 4 .. 33.
    QTest::newRow("34-bars-fast-average-only") << 34 << Series{32} << QList<int>();
    // Bar 33: 32 - (1+...+34)/34 = 32 - 17.5 = 14.5, a fall: red. Bar 34: 33 - (2+...+35)/34
    // = 33 - 18.5 = 14.5, equal to bar 33: not red.
    QTest::newRow("35-bars") << 35 << Series{14.5f, 14.5f} << QList<int>{33};
}

void TestWilliams::ao()
{
    QFETCH(int, n);
    QFETCH(Series, tail);
    QFETCH(QList<int>, redBars);
    Series expected(n, 0);
    for (int i = 4; i < std::min(n, 33); ++i)
        expected[i] = float(i - 1);
    for (int i = 0; i < tail.size(); ++i)
        expected[33 + i] = tail[i];
    const Result r = computeAO(medians(rising(n)), Params());
    QCOMPARE(r.buffers.value(QStringLiteral("AO")), expected);
    QCOMPARE(r.barColours.keys(), redBars);
}

// Median prices 5, 10, ..., 50: AO = sma(5) = 15, 20, ..., 40 from bar 4; sma(5, AO) = 15/5,
// 35/5, 60/5, 90/5, 125/5, 150/5 = 3, 7, 12, 18, 25, 30; AC = 12, 13, 13, 12, 10, 10.
void TestWilliams::acColours()
{
    const Result r = computeAC(medians(rising(10, 5)), Params());
    QCOMPARE(r.buffers.value(QStringLiteral("AC")), (Series{0, 0, 0, 0, 12, 13, 13, 12, 10, 10}));
    QCOMPARE(r.barColours.keys(), (QList<int>{7, 8}));
    QCOMPARE(r.barColours.value(7), QColor(Qt::red));
}

void TestWilliams::mfaiZeroVolume()
{
    const Result r = computeMFaI({bar(10, 12, 8, 10, 4), bar(10, 12, 8, 10, 0)}, Params());
    QCOMPARE(r.buffers.value(QStringLiteral("MFaI"))[0], 1.0f); // (12 - 8) / 4
    QVERIFY(std::isinf(r.buffers.value(QStringLiteral("MFaI"))[1]));
}

void TestWilliams::fractals_data()
{
    QTest::addColumn<Series>("high");
    QTest::addColumn<Series>("low");
    QTest::addColumn<Series>("expected");
    QTest::newRow("up-fractal-marks-high")
        << Series{1, 2, 5, 3, 1, 1} << Series{0, 1, 4, 2, 0, 0} << Series{0, 0, 5, 0, 0, 0};
    QTest::newRow("down-fractal-marks-low")
        << Series{9, 8, 3, 8, 9} << Series{5, 4, 1, 4, 5} << Series{0, 0, 1, 0, 0};
    QTest::newRow("peaks-in-first-and-last-two-bars")
        << Series{1, 5, 1, 1, 1, 5, 1} << Series{0, 4, 0, 0, 0, 4, 0} << Series(7, 0);
    QTest::newRow("equal-highs-are-no-fractal")
        << Series{1, 2, 5, 5, 2, 1} << Series{0, 1, 4, 4, 1, 0} << Series(6, 0);
    QTest::newRow("outside-bar-keeps-high")
        << Series{5, 6, 9, 6, 5} << Series{4, 3, 1, 3, 4} << Series{0, 0, 9, 0, 0};
}

void TestWilliams::fractals()
{
    QFETCH(Series, high);
    QFETCH(Series, low);
    QFETCH(Series, expected);
    QVector<QuoteBar> bars;
    for (int i = 0; i < high.size(); ++i)
        bars.append(bar(low[i], high[i], low[i], low[i]));
    QCOMPARE(computeFractals(bars, Params()).buffers.value(QStringLiteral("Fractals")), expected);
}

void TestWilliams::williamsBars_data()
{
    QTest::addColumn<QuoteBar>("first"); // then two bars (10, 12, 8, 10) and the bar tested
    QTest::addColumn<QuoteBar>("last");
    QTest::addColumn<float>("barsNumber");
    QTest::addColumn<QColor>("colour"); // of the last bar; invalid: none
    const QuoteBar plain = bar(10, 12, 8, 10);
    // Median prices 9 and 11 of the tested bars decide the half they close in.
    QTest::newRow("bull") << plain << bar(9, 11, 7, 10.5f) << 3.f << QColor(Qt::green);
    QTest::newRow("bear") << plain << bar(10, 13, 9, 9.5f) << 3.f << QColor(Qt::red);
    QTest::newRow("new-low-closing-low") << plain << bar(9, 11, 7, 8) << 3.f << QColor();
    QTest::newRow("equal-low") << plain << bar(9, 11, 8, 10.5f) << 3.f << QColor();
    QTest::newRow("low-undercut-3-back")
        << bar(10, 12, 6, 10) << bar(9, 11, 7, 10.5f) << 3.f << QColor();
    QTest::newRow("only-2-back-counted")
        << bar(10, 12, 6, 10) << bar(9, 11, 7, 10.5f) << 2.f << QColor(Qt::green);
    QTest::newRow("bars-number-negative") << plain << bar(9, 11, 7, 10.5f) << -1.f << QColor();
}

void TestWilliams::williamsBars()
{
    QFETCH(QuoteBar, first);
    QFETCH(QuoteBar, last);
    QFETCH(float, barsNumber);
    QFETCH(QColor, colour);
    const QVector<QuoteBar> bars{first, bar(10, 12, 8, 10), bar(10, 12, 8, 10), last};
    const Result r = computeWilliamsBars(bars, {{QStringLiteral("Bars Number"), barsNumber}});
    QVERIFY(r.buffers.isEmpty());
    QCOMPARE(r.barColours.value(3), colour);
    QVERIFY(r.barColours.size() <= 1);
}

QTEST_GUILESS_MAIN(TestWilliams)
#include "test_williams.moc"
