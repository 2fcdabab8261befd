// A live quote merged into the newest bar, in each time frame.

#include "data/reader.h"

#include <QSignalSpy>
#include <QtTest>

using namespace OrdaneData;

class TestMerge : public QObject
{
    Q_OBJECT

private slots:
    void mergeQuote_data();
    void mergeQuote();
    void invalidQuoteIsIgnoredSilently();
};

void TestMerge::mergeQuote_data()
{
    QTest::addColumn<int>("frame");
    QTest::addColumn<QuoteBar>("last");
    QTest::addColumn<QuoteBar>("quote");
    QTest::addColumn<int>("count"); // bars afterwards (one before)
    QTest::addColumn<QuoteBar>("newest");

    const QuoteBar last(QDate(2012, 9, 25), 30, 32, 29, 31, 1000);
    QTest::newRow("day-later-appends")
        << int(Day) << last << QuoteBar(QDate(2012, 9, 26), 31, 33, 30, 32, 500) << 2
        << QuoteBar(QDate(2012, 9, 26), 31, 33, 30, 32, 500);
    QTest::newRow("day-same-day-replaces")
        << int(Day) << last << QuoteBar(QDate(2012, 9, 25), 31, 31.5f, 30, 31.2f, 200) << 1
        << QuoteBar(QDate(2012, 9, 25), 31, 31.5f, 30, 31.2f, 200);
    QTest::newRow("day-earlier-changes-nothing")
        << int(Day) << last << QuoteBar(QDate(2012, 9, 24), 1, 1, 1, 1, 1) << 1 << last;

    // Same period: date, close and volume are taken (volume replaced, not added), and
    // the high and low widen only outward.
    QTest::newRow("month-same-period-folds")
        << int(Month) << last << QuoteBar(QDate(2012, 9, 27), 99, 35, 29.5f, 34, 300) << 1
        << QuoteBar(QDate(2012, 9, 27), 30, 35, 29, 34, 300);
    QTest::newRow("month-older-quote-only-widens")
        << int(Month) << last << QuoteBar(QDate(2012, 9, 20), 99, 31, 28, 99, 999) << 1
        << QuoteBar(QDate(2012, 9, 25), 30, 32, 28, 31, 1000);
    QTest::newRow("month-next-period-appends")
        << int(Month) << last << QuoteBar(QDate(2012, 10, 1), 31, 33, 30, 32, 500) << 2
        << QuoteBar(QDate(2012, 10, 1), 31, 33, 30, 32, 500);
    QTest::newRow("week-same-iso-week-folds")
        << int(Week) << last << QuoteBar(QDate(2012, 9, 28), 0, 31, 30, 30.5f, 7) << 1
        << QuoteBar(QDate(2012, 9, 28), 30, 32, 29, 30.5f, 7);

    // Keys carry no year: the first period of a new year waits for the next reload.
    const QuoteBar december(QDate(2012, 12, 31), 30, 32, 29, 31, 1000);
    const QuoteBar january(QDate(2013, 1, 2), 31, 33, 30, 32, 500);
    QTest::newRow("month-new-year-left-out") << int(Month) << december << january << 1 << december;
    QTest::newRow("quarter-new-year-left-out")
        << int(Quarter) << december << january << 1 << december;
    const QuoteBar week53(QDate(2015, 12, 31), 30, 32, 29, 31, 1000);
    QTest::newRow("week-53-then-week-1-left-out")
        << int(Week) << week53 << QuoteBar(QDate(2016, 1, 4), 1, 1, 1, 1, 1) << 1 << week53;
    QTest::newRow("year-next-year-appends") << int(Year) << december << january << 2 << january;
}

void TestMerge::mergeQuote()
{
    QFETCH(int, frame);
    QFETCH(QuoteBar, last);
    QFETCH(QuoteBar, quote);

    Reader r;
    r.appendBar(last);
    // The frame a series is shown in is set by aggregating; one bar aggregates to itself.
    r.setTimeFrame(frame);
    QCOMPARE(r.bar(0), last);

    QSignalSpy changed(&r, &Reader::dataChanged);
    r.mergeQuote(quote);
    QCOMPARE(changed.count(), 1);
    QTEST(r.count(), "count");
    QTEST(r.bars().constLast(), "newest");
}

void TestMerge::invalidQuoteIsIgnoredSilently()
{
    Reader r;
    r.appendBar(QuoteBar(QDate(2012, 9, 25), 30, 32, 29, 31, 1000));
    QSignalSpy changed(&r, &Reader::dataChanged);
    r.mergeQuote(QuoteBar());
    QCOMPARE(changed.count(), 0);
    QCOMPARE(r.count(), 1);
}

QTEST_GUILESS_MAIN(TestMerge)
#include "test_merge.moc"
