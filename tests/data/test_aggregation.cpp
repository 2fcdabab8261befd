// Time frames: week, month, quarter and year bars built from daily bars; range extremes.

#include "data/home.h"
#include "data/quotefile.h"
#include "data/quotesource.h"
#include "data/reader.h"

#include <QTemporaryDir>
#include <QtTest>

using namespace OrdaneData;

namespace {
// Weekday bars from..to; bar i has open 100+i, high 110+i, low 90-i, close 105+i, volume 1.
QVector<QuoteBar> weekdays(const QDate &from, const QDate &to)
{
    QVector<QuoteBar> bars;
    for (QDate d = from; d <= to; d = d.addDays(1)) {
        if (d.dayOfWeek() > 5)
            continue;
        const float i = bars.size();
        bars.append(QuoteBar(d, 100 + i, 110 + i, 90 - i, 105 + i, 1));
    }
    return bars;
}

void fill(Reader &r, const QVector<QuoteBar> &bars)
{
    r.clear();
    for (const QuoteBar &b : bars)
        r.appendBar(b);
}

using Dates = QVector<QDate>;
} // namespace

class TestAggregation : public QObject
{
    Q_OBJECT

private slots:
    void periodsEndOnTheirLastTradingDay_data();
    void periodsEndOnTheirLastTradingDay();
    void aggregatedBarFoldsItsDays();
    void emptySeriesStaysEmpty();
    void coarserFrameIsBuiltFromStoredDailyBars();
    void quarterOf_data();
    void quarterOf();
    void extremes();
};

void TestAggregation::periodsEndOnTheirLastTradingDay_data()
{
    QTest::addColumn<int>("frame");
    QTest::addColumn<QDate>("from");
    QTest::addColumn<QDate>("to");
    QTest::addColumn<Dates>("dates");

    QTest::newRow("months-30-jan-to-2-mar")
        << int(Month) << QDate(2012, 1, 30) << QDate(2012, 3, 2)
        << Dates{QDate(2012, 1, 31), QDate(2012, 2, 29), QDate(2012, 3, 2)};
    // 28 Dec 2015 to 3 Jan 2016 is ISO week 53; the new year starts with week 1.
    QTest::newRow("iso-week-53") << int(Week) << QDate(2015, 12, 21) << QDate(2016, 1, 8)
                                 << Dates{QDate(2015, 12, 25), QDate(2016, 1, 1),
                                          QDate(2016, 1, 8)};
    // 31 Dec 2012 already belongs to week 1 of 2013.
    QTest::newRow("week-across-new-year") << int(Week) << QDate(2012, 12, 24) << QDate(2013, 1, 4)
                                          << Dates{QDate(2012, 12, 28), QDate(2013, 1, 4)};
    QTest::newRow("quarters-across-new-year")
        << int(Quarter) << QDate(2011, 9, 1) << QDate(2012, 4, 3)
        << Dates{QDate(2011, 9, 30), QDate(2011, 12, 30), QDate(2012, 3, 30), QDate(2012, 4, 3)};
    QTest::newRow("years") << int(Year) << QDate(2010, 12, 30) << QDate(2012, 1, 2)
                           << Dates{QDate(2010, 12, 31), QDate(2011, 12, 30), QDate(2012, 1, 2)};
    QTest::newRow("single-day") << int(Month) << QDate(2012, 9, 25) << QDate(2012, 9, 25)
                                << Dates{QDate(2012, 9, 25)};
}

void TestAggregation::periodsEndOnTheirLastTradingDay()
{
    QFETCH(int, frame);
    QFETCH(QDate, from);
    QFETCH(QDate, to);
    QFETCH(Dates, dates);

    Reader r;
    fill(r, weekdays(from, to));
    r.setTimeFrame(frame);
    QCOMPARE(r.timeFrame(), frame);
    Dates got;
    for (const QuoteBar &b : r.bars())
        got.append(b.date());
    QCOMPARE(got, dates);
}

void TestAggregation::aggregatedBarFoldsItsDays()
{
    // February 2012 holds daily bars 2..22 of this run (21 trading days).
    Reader r;
    fill(r, weekdays(QDate(2012, 1, 30), QDate(2012, 3, 2)));
    r.toMonths();
    QCOMPARE(r.count(), 3);
    const QuoteBar feb = r.bar(1);
    QCOMPARE(feb.open(), 102.0f);  // first day's open
    QCOMPARE(feb.close(), 127.0f); // last day's close
    QCOMPARE(feb.high(), 132.0f);
    QCOMPARE(feb.low(), 68.0f);
    QCOMPARE(feb.volume(), qint64(21));
}

void TestAggregation::emptySeriesStaysEmpty()
{
    Reader r;
    r.toWeeks();
    QVERIFY(r.isEmpty());
}

void TestAggregation::coarserFrameIsBuiltFromStoredDailyBars()
{
    // Months straight from days, and months after weeks, must agree: a week that spans
    // two months would otherwise land in the later month whole.
    QTemporaryDir home;
    QVERIFY(Home::setPath(home.path()));
    QVERIFY(QDir().mkpath(storagePath()));
    QVector<QuoteBar> days = weekdays(QDate(2012, 1, 2), QDate(2012, 6, 29));
    QVERIFY(writeText(fileOf(QStringLiteral("X")), seriesToText(days)));

    StorageSource source;
    Reader direct(&source), viaWeeks(&source);
    direct.setSymbol(QStringLiteral("X"));
    viaWeeks.setSymbol(QStringLiteral("X"));
    QCOMPARE(direct.count(), days.size());
    direct.toMonths();
    viaWeeks.toWeeks();
    viaWeeks.toMonths();
    QCOMPARE(viaWeeks.bars(), direct.bars());

    viaWeeks.setTimeFrame(Day);
    QCOMPARE(viaWeeks.timeFrame(), int(Day));
    QCOMPARE(viaWeeks.count(), days.size());
}

void TestAggregation::quarterOf_data()
{
    QTest::addColumn<QDate>("date");
    QTest::addColumn<int>("quarter");
    QTest::newRow("jan") << QDate(2012, 1, 1) << 1;
    QTest::newRow("mar") << QDate(2012, 3, 31) << 1;
    QTest::newRow("apr") << QDate(2012, 4, 1) << 2;
    QTest::newRow("jun") << QDate(2012, 6, 30) << 2;
    QTest::newRow("jul") << QDate(2012, 7, 1) << 3;
    QTest::newRow("sep") << QDate(2012, 9, 30) << 3;
    QTest::newRow("oct") << QDate(2012, 10, 1) << 4;
    QTest::newRow("dec") << QDate(2012, 12, 31) << 4;
    QTest::newRow("invalid-date") << QDate() << 4;
}

void TestAggregation::quarterOf()
{
    QFETCH(QDate, date);
    QTEST(Reader::quarterOf(date), "quarter");
}

void TestAggregation::extremes()
{
    Reader r;
    const float highs[] = {5, 9, 3, 9, 1};
    const float lows[] = {4, 2, 2, 0.5f, 1};
    const qint64 volumes[] = {10, 50, 20, 50, 70};
    for (int i = 0; i < 5; ++i)
        r.appendBar(QuoteBar(QDate(2012, 9, 17).addDays(i), lows[i], highs[i], lows[i], highs[i],
                             volumes[i]));

    QCOMPARE(r.highestHigh(0, 5), 9.0f);
    QCOMPARE(r.lowestLow(0, 3), 2.0f);
    QCOMPARE(r.lowestLow(1, 4), 0.5f);
    QCOMPARE(r.highestVolume(0, 4), qint64(50));
    QCOMPARE(r.highestVolume(2, 3), qint64(70));
    // A length below 2 is the start bar's own value.
    QCOMPARE(r.highestHigh(2, 1), 3.0f);
    QCOMPARE(r.lowestLow(3, 0), 0.5f);
    QCOMPARE(r.highestVolume(4, -3), qint64(70));
    // Out of range: cut at the end, or 0 for a start outside the series.
    QCOMPARE(r.highestHigh(3, 100), 9.0f);
    QCOMPARE(r.highestHigh(5, 2), 0.0f);
    QCOMPARE(Reader().lowestLow(0, 1), 0.0f);
}

QTEST_GUILESS_MAIN(TestAggregation)
#include "test_aggregation.moc"
