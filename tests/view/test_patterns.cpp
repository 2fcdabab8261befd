// Candle pattern recognition: the names, the grading, the single-candle tests with their
// stated boundaries, and one matching and one failing case for every pair and triple.

#include "view/patterns/candlepattern.h"

#include <QtTest>

using namespace CandlePattern;

namespace CandlePattern {
// Failures name the pattern and grade.
char *toString(const Match &m)
{
    return qstrdup(qPrintable(QStringLiteral("%1/%2").arg(text(m.pattern)).arg(m.grade)));
}
} // namespace CandlePattern

namespace {
QuoteBar bar(float open, float high, float low, float close)
{
    return QuoteBar(QDate(2024, 1, 2), open, high, low, close, 1000);
}

Match single(const QuoteBar &b, bool trend, PatternSet required = PatternSet::all())
{
    return classifySingle(b, trend, required);
}
} // namespace

Q_DECLARE_METATYPE(CandlePattern::Match)

class TestPatterns : public QObject
{
    Q_OBJECT

private slots:
    void textsBothWays();
    void grading_data();
    void grading();
    void singleCandles();
    void beltHoldGradesTheRawDifference();
    void pairs_data();
    void pairs();
    void blendingMakesOneBar();
    void triples_data();
    void triples();
    void seriesAndTrend();
};

void TestPatterns::textsBothWays()
{
    QCOMPARE(text(None), QStringLiteral("None"));
    QCOMPARE(text(Riksha), QStringLiteral("Riksha"));
    QCOMPARE(text(ThreeIdenticalCrows), QStringLiteral("ThreeIdenticalCrows"));
    QCOMPARE(text(23), QStringLiteral("Unknown"));
    QCOMPARE(text(-1), QStringLiteral("Unknown"));
    for (Pattern p : allPatterns())
        QCOMPARE(fromText(text(p)), p);
    QCOMPARE(fromText(QStringLiteral("Unknown")), None);
    QCOMPARE(fromText(QStringLiteral("doji")), None);
    QCOMPARE(allPatterns().size(), 22);
}

void TestPatterns::grading_data()
{
    QTest::addColumn<double>("r");
    QTest::addColumn<int>("grade");
    QTest::newRow("0") << 0.0 << 1;
    QTest::newRow("below 0.3") << 0.29999 << 1;
    QTest::newRow("0.3 exactly") << 0.3 << 4;
    QTest::newRow("above 0.3") << 0.30001 << 2;
    QTest::newRow("below 0.7") << 0.69999 << 2;
    QTest::newRow("0.7") << 0.7 << 4;
    QTest::newRow("NaN") << std::nan("") << 4;
}

void TestPatterns::grading()
{
    QFETCH(double, r);
    QFETCH(int, grade);
    QCOMPARE(CandlePattern::grade(r), grade);
}

void TestPatterns::singleCandles()
{
    // 0.02 / 2.00 = 0.01: a doji; a ratio of exactly 0.05 is not one.
    QVERIFY(isDoji(bar(10.00f, 11.00f, 9.00f, 10.02f)));
    QVERIFY(!isDoji(bar(1.0f, 10.0f, 0.0f, 1.5f)));
    QVERIFY(!isDoji(bar(5, 5, 5, 5))); // no range, no doji, no crash
    QCOMPARE(single(bar(5, 5, 5, 5), true), Match());

    // A doji closing in its lower third after a rise: T = 1, d = 0.1, grade 1; at r = 0.3
    // exactly (d = 0.75, T = 2.5) grade 4. After a fall it is no gravestone but a doji.
    const QuoteBar grave = bar(9.1f, 12.0f, 9.0f, 9.1f);
    QCOMPARE(gravestone(grave, true), (Match{Gravestone, 1}));
    QCOMPARE(gravestone(bar(0.75f, 7.5f, 0.0f, 0.75f), true), (Match{Gravestone, 4}));
    QCOMPARE(gravestone(grave, false), Match());
    QCOMPARE(single(grave, false), (Match{Doji, 1}));
    // Only the required patterns are tried.
    QCOMPARE(single(grave, true), (Match{Gravestone, 1}));
    QCOMPARE(single(grave, true, {Doji}), (Match{Doji, 1}));
    QCOMPARE(single(grave, true, {Hammer}), Match());

    // The mirror: a doji closing in its upper third after a fall.
    QCOMPARE(single(bar(11.9f, 12.0f, 9.0f, 11.9f), false), (Match{Dragon, 1}));
    QCOMPARE(single(bar(11.9f, 12.0f, 9.0f, 11.9f), true), (Match{Doji, 1}));

    // High at the top of the body, body 0.5 of a third of 0.8333: grade 2 both ways.
    const QuoteBar hammerBar = bar(10.0f, 10.5f, 8.0f, 10.5f);
    const PatternSet hammers{Hammer, HangingMan};
    QCOMPARE(single(hammerBar, false, hammers), (Match{Hammer, 2}));
    QCOMPARE(single(hammerBar, true, hammers), (Match{HangingMan, 2}));
    QCOMPARE(single(hammerBar, false, {HangingMan}), Match());
    // An upper shadow of 0.3 of a third or more is no hammer.
    QCOMPARE(hammer(bar(10.0f, 11.0f, 8.0f, 10.5f), false), Match());
}

void TestPatterns::beltHoldGradesTheRawDifference()
{
    // Opening at the low after a fall: x = range / 3 - |high - close| in price units, so the
    // same shape grades 1 at a price near 1 and 4 at a price near 100.
    QCOMPARE(beltHold(bar(1.0f, 1.3f, 1.0f, 1.25f), false), (Match{BeltHold, 1}));
    QCOMPARE(beltHold(bar(100.0f, 130.0f, 100.0f, 125.0f), false), (Match{BeltHold, 4}));
    // Opening at the high after a rise.
    QCOMPARE(beltHold(bar(1.3f, 1.3f, 1.0f, 1.05f), true), (Match{BeltHold, 1}));
    QCOMPARE(beltHold(bar(1.3f, 1.3f, 1.0f, 1.05f), false), Match());
    // A close too far from the far end: x <= 0.
    QCOMPARE(beltHold(bar(1.0f, 1.3f, 1.0f, 1.1f), false), Match());
}

void TestPatterns::pairs_data()
{
    QTest::addColumn<QuoteBar>("a");
    QTest::addColumn<QuoteBar>("b");
    QTest::addColumn<bool>("trend");
    QTest::addColumn<int>("pattern");
    QTest::addColumn<int>("grade");
    const auto row = [](const char *name, QuoteBar a, QuoteBar b, bool trend, Pattern p, int g) {
        QTest::newRow(name) << a << b << trend << int(p) << g;
    };
    const QuoteBar falling = bar(11, 11.05f, 9.95f, 10);
    const QuoteBar rising = bar(10, 11.05f, 9.95f, 11);
    row("engulfing", bar(10, 10.1f, 9.4f, 9.5f), bar(9.4f, 10.4f, 9.3f, 10.3f), false, Engulfing,
        2);
    row("engulfing not covering", bar(10, 10.1f, 9.4f, 9.5f), bar(9.6f, 10.4f, 9.55f, 10.3f), false,
        None, 0);
    row("engulfing cross", bar(10, 10.3f, 9.7f, 10.01f), bar(9.6f, 10.55f, 9.58f, 10.5f), false,
        EngulfingCross, 1);
    row("engulfing cross short", bar(10, 10.3f, 9.7f, 10.01f), bar(9.6f, 10.25f, 9.58f, 10.2f),
        false, None, 0);
    row("harami", rising, bar(10.7f, 10.8f, 10.2f, 10.3f), true, Harami, 2);
    row("harami outside", rising, bar(10.7f, 10.8f, 9.7f, 9.8f), true, None, 0);
    row("harami cross", rising, bar(10.5f, 10.7f, 10.3f, 10.51f), true, HaramiCross, 2);
    row("harami cross outside", rising, bar(11.5f, 11.6f, 11.4f, 11.5f), true, None, 0);
    row("piercing line", falling, bar(9.8f, 10.75f, 9.75f, 10.7f), false, PiercingLine, 2);
    row("piercing below the middle", falling, bar(9.8f, 10.45f, 9.75f, 10.4f), false, None, 0);
    row("dark cloud cover", rising, bar(11.2f, 11.25f, 10.25f, 10.3f), true, DarkCloudCover, 2);
    row("dark cloud above the middle", rising, bar(11.2f, 11.25f, 10.55f, 10.6f), true, None, 0);
}

void TestPatterns::pairs()
{
    QFETCH(QuoteBar, a);
    QFETCH(QuoteBar, b);
    QFETCH(bool, trend);
    QFETCH(int, pattern);
    QFETCH(int, grade);
    const PatternSet twoCandle{Engulfing,   EngulfingCross, Harami,
                               HaramiCross, PiercingLine,   DarkCloudCover};
    QCOMPARE(classifyPair(a, b, trend, twoCandle, false), (Match{Pattern(pattern), grade}));
    if (pattern != None) {
        // Not required, not found; the opposite trend finds nothing of the kind either.
        PatternSet others;
        for (Pattern p : twoCandle.toList())
            if (p != pattern)
                others.insert(p);
        QVERIFY(classifyPair(a, b, trend, others, false).pattern != Pattern(pattern));
        QVERIFY(classifyPair(a, b, !trend, twoCandle, false).pattern != Pattern(pattern));
    }
}

void TestPatterns::blendingMakesOneBar()
{
    const QuoteBar a = bar(10, 11.2f, 9.8f, 11);
    const QuoteBar b = bar(11, 11.1f, 9.9f, 10.02f);
    const QuoteBar one = blend(a, b);
    QCOMPARE(one.open(), 10.0f);
    QCOMPARE(one.close(), 10.02f);
    QCOMPARE(one.high(), 11.2f);
    QCOMPARE(one.low(), 9.8f);
    QCOMPARE(one.volume(), qint64(0));
    QVERIFY(!one.date().isValid());
    QCOMPARE(classifyPair(a, b, false, {Doji}, true), (Match{Doji, 1}));
    QCOMPARE(classifyPair(a, b, false, {Doji}, false), Match());
}

void TestPatterns::triples_data()
{
    QTest::addColumn<QVector<QuoteBar>>("bars");
    QTest::addColumn<bool>("trend");
    QTest::addColumn<int>("pattern");
    QTest::addColumn<int>("grade");
    const auto row = [](const char *name, QVector<QuoteBar> bars, bool trend, Pattern p, int g) {
        QTest::newRow(name) << bars << trend << int(p) << g;
    };
    const QuoteBar falling = bar(11, 11.05f, 9.95f, 10);
    const QuoteBar rising = bar(10, 11.05f, 9.95f, 11);
    const QuoteBar up = bar(9.9f, 10.85f, 9.85f, 10.8f);
    const QuoteBar down = bar(11.1f, 11.15f, 10.15f, 10.2f);
    row("morning star", {falling, bar(9.7f, 9.85f, 9.6f, 9.8f), up}, false, MorningStar, 1);
    row("morning star weak close",
        {falling, bar(9.7f, 9.85f, 9.6f, 9.8f), bar(9.9f, 10.35f, 9.85f, 10.3f)}, false, None, 0);
    row("morning doji star", {falling, bar(9.7f, 9.97f, 9.6f, 9.705f), up}, false, MorningDojiStar,
        1);
    row("morning doji star no gap", {falling, bar(10.1f, 10.2f, 10.0f, 10.105f), up}, false, None,
        0);
    row("evening star", {rising, bar(11.3f, 11.35f, 11.1f, 11.2f), down}, true, EveningStar, 1);
    row("evening star after a fall", {rising, bar(11.3f, 11.35f, 11.1f, 11.2f), down}, false, None,
        0);
    row("evening doji star", {rising, bar(11.3f, 11.4f, 11.0f, 11.305f), down}, true,
        EveningDojiStar, 1);
    row("evening doji star weak close",
        {rising, bar(11.3f, 11.4f, 11.0f, 11.305f), bar(11.1f, 11.15f, 10.6f, 10.7f)}, true, None,
        0);
    const QuoteBar dojiA = bar(10, 10.2f, 9.8f, 10.01f);
    const QuoteBar dojiC = bar(10.1f, 10.3f, 9.9f, 10.105f);
    row("tri star", {dojiA, bar(10.5f, 10.7f, 10.3f, 10.51f), dojiC}, true, TriStar, 1);
    row("tri star without gap", {dojiA, bar(10.0f, 10.2f, 9.8f, 10.0f), dojiC}, true, None, 0);
    const QuoteBar baby = bar(9.5f, 9.6f, 9.4f, 9.505f);
    const QuoteBar recovery = bar(9.8f, 10.65f, 9.75f, 10.6f);
    row("abandoned baby", {falling, baby, recovery}, false, AbandonedBaby, 1);
    // Its shadow reaches the first bar's range: only a doji star.
    row("abandoned baby touching", {falling, bar(9.5f, 9.98f, 9.4f, 9.505f), recovery}, false,
        MorningDojiStar, 2);
    const QuoteBar s1 = bar(10, 10.95f, 9.95f, 10.9f);
    const QuoteBar s2 = bar(10.5f, 11.45f, 10.45f, 11.4f);
    row("three white soldiers", {s1, s2, bar(11.0f, 11.95f, 10.95f, 11.9f)}, false,
        ThreeWhiteSoldiers, 1);
    row("three white soldiers falling back", {s1, s2, bar(11.0f, 11.35f, 10.35f, 11.3f)}, false,
        None, 0);
    const QuoteBar c1 = bar(12, 12.05f, 11.05f, 11.1f);
    row("three black crows",
        {c1, bar(11.6f, 11.65f, 10.65f, 10.7f), bar(11.2f, 11.25f, 10.25f, 10.3f)}, true,
        ThreeBlackCrows, 1);
    row("three black crows opening above",
        {c1, bar(12.1f, 12.15f, 11.15f, 11.2f), bar(11.2f, 11.25f, 10.25f, 10.3f)}, true, None, 0);
    row("three identical crows",
        {c1, bar(11.1f, 11.15f, 10.15f, 10.2f), bar(10.2f, 10.25f, 9.25f, 9.3f)}, true,
        ThreeIdenticalCrows, 1);
}

void TestPatterns::triples()
{
    QFETCH(QVector<QuoteBar>, bars);
    QFETCH(bool, trend);
    QFETCH(int, pattern);
    QFETCH(int, grade);
    const Match m = classifyTriple(bars[0], bars[1], bars[2], trend, PatternSet::all());
    QCOMPARE(m, (Match{Pattern(pattern), grade}));
    // The same through the whole-series classification with the trend forced.
    const QVector<Match> all =
        classify(bars, Span::Triple, PatternSet::all(), false, trend ? 1 : 0);
    QCOMPARE(all.size(), 3);
    QCOMPARE(all[0], Match());
    QCOMPARE(all[2], m);
}

void TestPatterns::seriesAndTrend()
{
    // A steady rise then a steady fall: the flag follows the short average of the closes.
    QVector<QuoteBar> bars;
    for (int i = 0; i < 20; ++i)
        bars << bar(10 + i, 10.5f + i, 9.5f + i, 10 + i);
    for (int i = 0; i < 20; ++i)
        bars << bar(29 - i, 29.5f - i, 28.5f - i, 29 - i);
    const QVector<bool> flags = trendFlags(bars);
    QCOMPARE(flags.size(), 40);
    QVERIFY(!flags[0] && !flags[1]);
    QVERIFY(flags[2] && flags[10] && flags[19]);
    QVERIFY(!flags[30] && !flags[39]);
    QVERIFY(trendFlags({}).isEmpty());

    // Pairs are dated with their later bar; the first bar ends none.
    const QVector<Match> pairs = classify(bars, Span::Pair, {Doji}, true, 0);
    QCOMPARE(pairs.size(), 40);
    QCOMPARE(pairs[0], Match());
    QCOMPARE(classify({}, Span::Triple, PatternSet::all()).size(), 0);
    QCOMPARE(classify(bars.mid(0, 1), Span::Triple, PatternSet::all()).size(), 1);
}

QTEST_GUILESS_MAIN(TestPatterns)
#include "test_patterns.moc"
