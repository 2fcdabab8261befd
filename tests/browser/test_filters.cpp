// The filter engine: each filter's test on small crafted series, the "As of:" cut, runs over
// many symbols (order, threads, progress and stop) and the setting of controls by text.

#include "browser/filters/filtercatalogue.h"
#include "browser/filters/filterrun.h"
#include "data/metadata.h"
#include "data/quotefile.h"
#include "data/readerh.h"
#include "support/series.h"

#include <QTemporaryDir>
#include <QtTest>

#include <memory>

using namespace OrdaneBrowser;

namespace {
using Bars = QVector<QuoteBar>;

// Weekdays from Monday 1 Jan 2024.
QDate weekday(int i)
{
    return QDate(2024, 1, 1).addDays(i / 5 * 7 + i % 5);
}

// One bar per weekday per close: open = close, high and low half a unit beyond it.
Bars closes(std::initializer_list<float> values, qint64 volume = 1000)
{
    Bars bars;
    for (float c : values)
        bars << QuoteBar(weekday(bars.size()), c, c + 0.5f, c - 0.5f, c, volume);
    return bars;
}

Bars volumes(std::initializer_list<qint64> values)
{
    Bars bars;
    for (qint64 v : values)
        bars << QuoteBar(weekday(bars.size()), 10, 11, 9, 10, v);
    return bars;
}

// A bar with its body from open to close, reaching half a unit beyond.
QuoteBar body(const QDate &date, float open, float close, qint64 volume = 100)
{
    return QuoteBar(date, open, std::max(open, close) + 0.5f, std::min(open, close) - 0.5f, close,
                    volume);
}

QStringList trimmed(const QStringList &values)
{
    QStringList r;
    for (const QString &v : values)
        r << v.trimmed();
    return r;
}
} // namespace

Q_DECLARE_METATYPE(Bars)

class TestFilters : public QObject
{
    Q_OBJECT

private slots:
    void catalogue();
    void eachFilter_data();
    void eachFilter();
    void metadataFilters_data();
    void metadataFilters();
    void asOfSeesNothingLater();
    void emptyAndUnreadable();
    void stopKeepsTheRowsSoFar_data();
    void stopKeepsTheRowsSoFar();
    void threadsGiveTheSameRows();
    void settingByText_data();
    void settingByText();
    void numbers();

private:
    // Writes `bars` as SYMBOL's stored file.
    void store(const QString &symbol, const Bars &bars);
    QVector<FilterRow> run(const QString &filter, const QStringList &settings,
                           const QStringList &symbols, int threads = 1,
                           OrdaneData::MetaData *meta = nullptr);

    QTemporaryDir mDir; // the storage folder
    std::unique_ptr<OrdaneData::MetaData> mMeta;
};

void TestFilters::store(const QString &symbol, const Bars &bars)
{
    QVERIFY(OrdaneData::writeText(mDir.filePath(symbol + QLatin1String(".csv")),
                                  OrdaneData::seriesToBytes(bars)));
}

QVector<FilterRow> TestFilters::run(const QString &filter, const QStringList &settings,
                                    const QStringList &symbols, int threads,
                                    OrdaneData::MetaData *meta)
{
    const FilterSpec *spec = findFilter(filter);
    if (!spec)
        qFatal("no filter %s", qPrintable(filter));
    FilterValues values = defaultValues(*spec);
    for (const QString &setting : settings) {
        QString error;
        if (!setFilterValue(*spec, values, setting, &error))
            qFatal("%s", qPrintable(error));
    }
    return FilterRun(*spec, values, mDir.path(), meta, threads).run(symbols);
}

// Invariants the dialog and the command line build on.
void TestFilters::catalogue()
{
    QStringList names;
    for (const FilterSpec &spec : filterCatalogue()) {
        names << spec.name;
        QVERIFY(spec.test);
        QCOMPARE(spec.controls.constLast().label, QStringLiteral("As of:"));
        QCOMPARE(spec.controls.constLast().kind, FilterControl::Date);
        QCOMPARE(spec.columns.constFirst(), QStringLiteral("Symbol"));
        QSet<QString> keys;
        for (const FilterControl &c : spec.controls) {
            QVERIFY2(!keys.contains(c.key), qPrintable(spec.name + QLatin1Char(' ') + c.key));
            keys.insert(c.key);
            if (c.kind == FilterControl::Integer || c.kind == FilterControl::Decimal)
                QVERIFY(c.minimum <= c.value && c.value <= c.maximum);
            if (c.kind == FilterControl::Choice)
                QVERIFY(int(c.value) < c.items.size());
        }
    }
    QCOMPARE(names.join(QLatin1Char(' ')),
             QStringLiteral("Fill Trend VolumeFilter RSIFilter StochasticFilter TimeMachine Price "
                            "UpToDate VolumeBreakOut MoneyFlow MovingAverage HCVolatilityFilter "
                            "MedianFilter DPOFilter PE ImpulsFilter ConsolidationFilter"));
    // The comparison beside the stochastic's level is not its "Rule:".
    const FilterValues stochastic = defaultValues(*findFilter(QStringLiteral("StochasticFilter")));
    QCOMPARE(stochastic.value(QStringLiteral("Level Rule")).toString(), QStringLiteral("Higher"));
    QCOMPARE(stochastic.value(QStringLiteral("Rule")).toString(),
             QStringLiteral("K Higher D (Just Signaled)"));
    QCOMPARE(filterTimeFrame(defaultValues(*findFilter(QStringLiteral("ConsolidationFilter")))), 1);
    QCOMPARE(volumePresets().at(2).name, QStringLiteral("Major"));
    QCOMPARE(volumePresets().at(2).end, 1e7);
}

void TestFilters::eachFilter_data()
{
    QTest::addColumn<QString>("filter");
    QTest::addColumn<Bars>("bars");
    QTest::addColumn<QStringList>("settings");
    QTest::addColumn<bool>("passes");
    QTest::addColumn<QStringList>("values"); // the row's columns after the symbol

    const auto S = [](const char *s) {
        return QString::fromLatin1(s);
    };
    const auto pass = [](const char *name, const char *filter, const Bars &bars,
                         QStringList settings, QStringList values = {}) {
        QTest::newRow(name) << QString::fromLatin1(filter) << bars << settings << true << values;
    };
    const auto fail = [](const char *name, const char *filter, const Bars &bars,
                         QStringList settings) {
        QTest::newRow(name) << QString::fromLatin1(filter) << bars << settings << false
                            << QStringList();
    };

    // 15 / 10 * 100 - 100 = 50 over the last 5 bars.
    const Bars rising = closes({10, 11, 12, 13, 14, 15});
    pass("trend-up", "Trend", rising, {S("Period (Days)=5")}, {S("50.000")});
    fail("trend-down-on-a-rise", "Trend", rising, {S("Period (Days)=5"), S("Trend type=Down")});
    fail("trend-period-as-long-as-the-series", "Trend", rising, {S("Period (Days)=6")});

    // The mean of the last two volumes, 350, within [300, 350] (inclusive).
    const Bars fourVolumes = volumes({100, 200, 300, 400});
    pass("volume-at-end-of-range", "VolumeFilter", fourVolumes,
         {S("Period (Days)=2"), S("Begin=300"), S("End=350")}, {S("350.000")});
    fail("volume-below-range", "VolumeFilter", fourVolumes,
         {S("Period (Days)=2"), S("Begin=351"), S("End=1000")});
    fail("volume-period-longer-than-series", "VolumeFilter", fourVolumes,
         {S("Period (Days)=5"), S("Begin=0")});

    // RSI(2) on changes +1, -1, +2: gain, loss = 0.5, 0.5, then (0.5 + 2) / 2 = 1.25 and
    // 0.5 / 2 = 0.25: 100 - 100 / (1 + 5) = 83.333.
    const Bars rsiSeries = closes({10, 11, 10, 12});
    pass("rsi-higher", "RSIFilter", rsiSeries, {S("RSI Period=2"), S("Level=80")}, {S("83.333")});
    fail("rsi-higher-is-not-lower", "RSIFilter", rsiSeries,
         {S("RSI Period=2"), S("Level=80"), S("Rule=Lower")});
    pass("rsi-lower", "RSIFilter", rsiSeries, {S("RSI Period=2"), S("Level=90"), S("Rule=Lower")},
         {S("83.333")});
    fail("rsi-too-few-bars", "RSIFilter", rsiSeries, {S("RSI Period=4"), S("Level=0")});

    // Stochastic(K 2, D 2, slowing 1), highs and lows half a unit beyond the closes:
    // K = 25, 25, 75 at bars 1..3 and (10.4 - 8.5) / (10.9 - 8.5) = 79.167 at bar 4;
    // D = 25 at bar 2, (25 + 75) / 2 = 50 at bar 3, 77.083 at bar 4.
    const QStringList kd = {S("K Period=2"), S("D Period=2"), S("Slowing=1")};
    const Bars kCrosses = closes({10, 9, 8, 9});      // K = D before, K > D now
    const Bars kStays = closes({10, 9, 8, 9, 10.4f}); // K > D before and now
    pass("stochastic-just-signaled-first-bar", "StochasticFilter", kCrosses, kd,
         {S("75.000"), S("50.000")});
    fail("stochastic-just-signaled-second-bar", "StochasticFilter", kStays, kd);
    pass("stochastic-higher-second-bar", "StochasticFilter", kStays,
         kd + QStringList{S("Rule=K Higher D")}, {S("79.167"), S("77.083")});
    fail("stochastic-below-k-level", "StochasticFilter", kStays,
         kd + QStringList{S("Rule=K Higher D"), S("K Level=80")});
    fail("stochastic-lower-rule", "StochasticFilter", kCrosses,
         kd + QStringList{S("Rule=K Lower D")});
    fail("stochastic-d-not-yet-defined", "StochasticFilter", closes({10, 9, 8}),
         kd + QStringList{S("Rule=K Higher D"), S("K Level=0")});

    // Closes 10, 11, ... on weekdays from Monday 1 Jan 2024. Start Wed 3 Jan (12), 3 bars
    // later Mon 8 Jan (15): 15 * 100 / 12 - 100 = 25.
    const Bars sevenDays = closes({10, 11, 12, 13, 14, 15, 16});
    pass("timemachine-up", "TimeMachine", sevenDays, {S("Start=2024-01-03"), S("Period (Days)=3")},
         {S("25.000")});
    fail("timemachine-down", "TimeMachine", sevenDays,
         {S("Start=2024-01-03"), S("Period (Days)=3"), S("Trend type=Down")});
    // Saturday 6 Jan starts at Monday 8 Jan (15); one bar later 16.
    pass("timemachine-start-on-a-weekend", "TimeMachine", sevenDays,
         {S("Start=2024-01-06"), S("Period (Days)=1")}, {S("6.667")});
    fail("timemachine-end-after-the-series", "TimeMachine", sevenDays,
         {S("Start=2024-01-06"), S("Period (Days)=2")});

    pass("price-at-lower-bound", "Price", rising, {S("Price Range=15..20")}, {S("15.000")});
    fail("price-above-range", "Price", rising, {S("Price Range=0..14.99")});

    // The last bar, Tue 9 Jan 2024, three days before Friday the 12th.
    pass("uptodate-within", "UpToDate", sevenDays,
         {S("As of=2024-01-12"), S("UpToDate Distance=3")});
    fail("uptodate-too-old", "UpToDate", sevenDays,
         {S("As of=2024-01-12"), S("UpToDate Distance=2")});

    // Over the last 4 days: after a zero volume (never counts), 500 -> 100, 100 -> 300 (3
    // times, Fri 5 Jan), 300 -> 250.
    const Bars breakOut = volumes({100, 0, 500, 100, 300, 250});
    const QStringList observe = {S("Observation Period (Days)=4")};
    pass("breakout-largest-ratio", "VolumeBreakOut", breakOut, observe,
         {S("3.000"), S("2024-01-05")});
    pass("breakout-exactly-n-times", "VolumeBreakOut", breakOut,
         observe + QStringList{S("N Times greater than previous=3")},
         {S("3.000"), S("2024-01-05")});
    fail("breakout-not-four-times", "VolumeBreakOut", breakOut,
         observe + QStringList{S("N Times greater than previous=4")});
    fail("breakout-window-without-a-day-before", "VolumeBreakOut", breakOut,
         {S("Observation Period (Days)=6")});

    // Typical price (12 + 9 + 9) / 3 = 10; the last two days 30,000 and 50,000 on average 40,000.
    Bars flows;
    for (qint64 v : {1000, 3000, 5000})
        flows << QuoteBar(weekday(flows.size()), 10, 12, 9, 9, v);
    pass("moneyflow-at-min", "MoneyFlow", flows, {S("Period (Days)=2"), S("Min=40000")},
         {S("40000.000")});
    fail("moneyflow-below-min", "MoneyFlow", flows, {S("Period (Days)=2"), S("Min=40001")});

    // SMA(2) and SMA(3): 5 and 5 at bar 3; 6.5 and 6 at bar 4; 8 and 7 at bar 5.
    const QStringList ma = {S("MA1 Period=2"), S("MA2 Period=3")};
    const Bars maCrosses = closes({5, 5, 5, 5, 8});
    const Bars maStays = closes({5, 5, 5, 5, 8, 8});
    pass("ma-just-signaled-first-bar", "MovingAverage", maCrosses, ma);
    fail("ma-just-signaled-second-bar", "MovingAverage", maStays, ma);
    pass("ma-higher-second-bar", "MovingAverage", maStays,
         ma + QStringList{S("Rule=MA1 Higher MA2")});
    fail("ma-lower-on-a-rise", "MovingAverage", maStays, ma + QStringList{S("Rule=MA1 Lower MA2")});
    pass("ma-lower-just-signaled", "MovingAverage", closes({5, 5, 5, 5, 2}),
         ma + QStringList{S("Rule=MA1 Lower MA2 (Just Signaled)")});
    fail("ma-period-as-long-as-the-series", "MovingAverage", maCrosses,
         {S("MA1 Period=2"), S("MA2 Period=5"), S("Rule=MA1 Higher MA2")});

    // Medians of 2 and 3 closes at the last bar: (5 + 100) / 2 = 52.5 against 5; both 5 before.
    const Bars spike = closes({5, 5, 5, 5, 100});
    pass("median-just-signaled", "MedianFilter", spike, {S("M1 Period=2"), S("M2 Period=3")});
    fail("median-lower", "MedianFilter", spike,
         {S("M1 Period=2"), S("M2 Period=3"), S("Rule=M1 Lower M2")});

    // The average of highs of a flat series is its high, 10.
    Bars channel;
    for (int i = 0; i < 5; ++i)
        channel << QuoteBar(weekday(i), 8, 10, 6, 8, 100);
    pass("hcvolatility-higher", "HCVolatilityFilter", channel,
         {S("HCVolatility Period=3"), S("Level=9")}, {S("10.000")});
    fail("hcvolatility-equal-is-not-higher", "HCVolatilityFilter", channel,
         {S("HCVolatility Period=3"), S("Level=10")});
    fail("hcvolatility-too-few-bars", "HCVolatilityFilter", channel,
         {S("HCVolatility Period=5"), S("Level=-100")});

    // DPO(2): the close against the mean of 2 closes ending 2 bars earlier: 20 - 11 = 9.
    const Bars dpoSeries = closes({10, 12, 14, 20});
    pass("dpo-higher", "DPOFilter", dpoSeries, {S("DPO Period=2"), S("Level=8")}, {S("9.000")});
    fail("dpo-equal-is-not-higher", "DPOFilter", dpoSeries, {S("DPO Period=2"), S("Level=9")});
    fail("dpo-too-few-bars", "DPOFilter", dpoSeries, {S("DPO Period=3")});

    // Impulse with a fast average of 1 (the close), a slow one and a signal of 2, a trend of 1
    // (the close): flat closes are blue; a rise to 13 gives macd 1, signal 2/3, histogram 1/3
    // (up from 0): green; a fall to 7 after it gives histogram -0.778: red; a flat close after
    // either is blue again.
    const QStringList impulse = {S("MACD_Fast=1"), S("MACD_Slow=2"), S("MACD_Signal=2"),
                                 S("EMA_Period=1")};
    const auto rule = [&](const char *r) {
        return impulse + QStringList{S("Rule=") + S(r)};
    };
    const Bars green = closes({10, 10, 10, 10, 13});
    const Bars greenThenRed = closes({10, 10, 10, 10, 13, 7});
    const Bars greenThenBlue = closes({10, 10, 10, 10, 13, 13});
    const Bars redThenBlue = closes({10, 10, 10, 10, 7, 7});
    pass("impuls-green", "ImpulsFilter", green, rule("green"));
    pass("impuls-just-turned-green", "ImpulsFilter", green, rule("just turned green"));
    fail("impuls-green-is-not-blue", "ImpulsFilter", green, rule("blue"));
    pass("impuls-blue-or-green", "ImpulsFilter", green, rule("blue or green"));
    pass("impuls-just-turned-red", "ImpulsFilter", greenThenRed, rule("just turned red"));
    pass("impuls-blue-or-red", "ImpulsFilter", greenThenRed, rule("blue or red"));
    pass("impuls-blue-from-green", "ImpulsFilter", greenThenBlue,
         rule("just turned blue from green"));
    fail("impuls-blue-not-from-red", "ImpulsFilter", greenThenBlue,
         rule("just turned blue from red"));
    pass("impuls-blue-from-red", "ImpulsFilter", redThenBlue, rule("just turned blue from red"));
    fail("impuls-blue-stays-blue", "ImpulsFilter", closes({10, 10, 10, 10}),
         rule("just turned blue"));

    // One bar per week, so that the weekly bars are the daily ones. The reference bar's range is
    // 8 .. 12; closes 11, 9, 10 stay in it, but the second week opens at 12 and its body reaches
    // 12.5.
    Bars weeks;
    weeks << QuoteBar(QDate(2024, 1, 1), 10, 12, 8, 10, 100) << body(QDate(2024, 1, 8), 9, 11)
          << body(QDate(2024, 1, 15), 12.5f, 9) << body(QDate(2024, 1, 22), 10, 10, 700);
    pass("consolidation-on-closes", "ConsolidationFilter", weeks, {S("Interval=2")},
         {S("4.000"), S("12.000"), S("8.000"), S("10.000"), S("700.000")});
    fail("consolidation-on-opens-and-closes", "ConsolidationFilter", weeks,
         {S("Interval=2"), S("Type=Open+Close")});
    fail("consolidation-shorter-than-interval", "ConsolidationFilter", weeks, {S("Interval=4")});
}

void TestFilters::eachFilter()
{
    QFETCH(QString, filter);
    QFETCH(Bars, bars);
    QFETCH(QStringList, settings);
    QFETCH(bool, passes);
    QFETCH(QStringList, values);
    store(QStringLiteral("S"), bars);
    const QVector<FilterRow> rows = run(filter, settings, {QStringLiteral("S")});
    QCOMPARE(rows.size(), passes ? 1 : 0);
    if (passes) {
        QCOMPARE(rows.first().symbol, QStringLiteral("S"));
        QCOMPARE(trimmed(rows.first().values), values);
        QCOMPARE(rows.first().values.size() + 1, findFilter(filter)->columns.size());
    }
}

void TestFilters::metadataFilters_data()
{
    QTest::addColumn<QString>("filter");
    QTest::addColumn<QStringList>("settings");
    QTest::addColumn<QStringList>("found"); // symbol and values, "|" between rows

    const auto S = [](const char *s) {
        return QString::fromLatin1(s);
    };
    const auto row = [](const char *name, const char *filter, QStringList settings,
                        const char *found) {
        QTest::newRow(name) << QString::fromLatin1(filter) << settings
                            << QString::fromLatin1(found).split(QLatin1Char('|'),
                                                                Qt::SkipEmptyParts);
    };
    // A: pe 14.15 on NYSE; B: pe N/A; C: pe 25 on XETRA; D: a record but no file; E: no record.
    row("pe-default-range", "PE", {}, "A 14.150");
    row("pe-inclusive-upper", "PE", {S("PE Range=14.15..25")}, "A 14.150|C 25.000");
    row("pe-negative-range", "PE", {S("PE Range=-10..-1")}, "");
    // Files: A 100 bars (over 2 KB), C 40 bars (1 to 2 KB), B one bar and E two (below 1 KB).
    row("fill-default", "Fill", {}, "A|C");
    row("fill-any-size", "Fill", {S("Minimal file size (KB)=0")}, "A|B|C|E");
    row("fill-by-size", "Fill", {S("Minimal file size (KB)=2")}, "A");
    row("fill-one-exchange", "Fill", {S("Minimal file size (KB)=0"), S("Exchanges=NYSE")}, "A|B");
    row("fill-unknown-exchange", "Fill", {S("Minimal file size (KB)=0"), S("Exchanges=XETRA,")},
        "C|E");
}

void TestFilters::metadataFilters()
{
    QFETCH(QString, filter);
    QFETCH(QStringList, settings);
    QFETCH(QStringList, found);
    if (!mMeta) { // one store and its files for every row
        mMeta = std::make_unique<OrdaneData::MetaData>(mDir.filePath(QStringLiteral("_meta.tdb")));
        const auto record = [this](const char *symbol, const char *exchange, const char *pe) {
            QStringList values{QLatin1String(symbol), QStringLiteral("Name"),
                               QLatin1String(exchange)};
            while (values.size() < OrdaneData::MetaData::columns().size())
                values << QStringLiteral("N/A");
            values[OrdaneData::MetaData::columns().indexOf(QStringLiteral("pe"))] =
                QLatin1String(pe);
            QVERIFY(mMeta->insert(values));
        };
        record("A", "NYSE", "14.15");
        record("B", "NYSE", "N/A");
        record("C", "XETRA", "25");
        record("D", "NYSE", "10");
        const auto days = [](int n) {
            Bars bars;
            for (int i = 0; i < n; ++i)
                bars << QuoteBar(weekday(i), 10, 11, 9, 10, 1000);
            return bars;
        };
        store(QStringLiteral("A"), days(100));
        store(QStringLiteral("B"), days(1));
        store(QStringLiteral("C"), days(40));
        store(QStringLiteral("E"), days(2));
        const auto size = [this](const char *symbol) {
            return QFileInfo(mDir.filePath(QLatin1String(symbol) + QLatin1String(".csv"))).size();
        };
        QVERIFY(size("A") >= 2048 && size("C") >= 1024 && size("C") < 2048 && size("E") < 1024);
    }

    const QStringList symbols = {QStringLiteral("A"), QStringLiteral("B"), QStringLiteral("C"),
                                 QStringLiteral("D"), QStringLiteral("E")};
    QStringList rows;
    for (const FilterRow &r : run(filter, settings, symbols, 2, mMeta.get()))
        rows << (QStringList{r.symbol} + trimmed(r.values)).join(QLatin1Char(' '));
    QCOMPARE(rows, found);
}

// A symbol that passes only with later bars fails as of an earlier day, and a week in progress
// on that day is as partial as it was then.
void TestFilters::asOfSeesNothingLater()
{
    store(QStringLiteral("JUMP"), closes({10, 10, 10, 50})); // Thursday 4 Jan: 50
    const QStringList jump = {QStringLiteral("JUMP")};
    const QString range = QStringLiteral("Price Range=40..60");
    QCOMPARE(run(QStringLiteral("Price"), {range}, jump).size(), 1);
    QCOMPARE(run(QStringLiteral("Price"), {range, QStringLiteral("As of=2024-01-03")}, jump).size(),
             0);

    // Three weeks of one bar (the reference bar's range 8 .. 12), then a whole week whose
    // Friday closes at 20, outside the range. As of Wednesday the fourth week is Monday to
    // Wednesday: closes in range, volume 1 + 2 + 4.
    Bars bars;
    bars << QuoteBar(QDate(2024, 1, 1), 10, 12, 8, 10, 100) << body(QDate(2024, 1, 8), 10, 10)
         << body(QDate(2024, 1, 15), 10, 10);
    const float weekCloses[] = {10, 11, 9, 11, 20};
    for (int i = 0; i < 5; ++i)
        bars << body(QDate(2024, 1, 22 + i), 10, weekCloses[i], qint64(1) << i);
    store(QStringLiteral("WEEK"), bars);
    const QStringList week = {QStringLiteral("WEEK")};
    const QString interval = QStringLiteral("Interval=3");
    QCOMPARE(run(QStringLiteral("ConsolidationFilter"), {interval}, week).size(), 0);
    const QVector<FilterRow> asOfWednesday =
        run(QStringLiteral("ConsolidationFilter"), {interval, QStringLiteral("As of=2024-01-24")},
            week);
    QCOMPARE(asOfWednesday.size(), 1);
    QCOMPARE(
        trimmed(asOfWednesday.first().values),
        QStringList({QStringLiteral("4.000"), QStringLiteral("12.000"), QStringLiteral("8.000"),
                     QStringLiteral("9.000"), QStringLiteral("7.000")}));
}

void TestFilters::emptyAndUnreadable()
{
    const FilterSpec &price = *findFilter(QStringLiteral("Price"));
    FilterRun empty(price, defaultValues(price), mDir.path());
    int calls = 0;
    QVERIFY(empty.run({}, [&calls](int, int) { ++calls; }).isEmpty());
    QCOMPARE(calls, 0);
    QCOMPARE(empty.examined(), 0);

    // A missing file, a file of no bars and a file of text fail silently, and count.
    store(QStringLiteral("OK"), closes({10}));
    QVERIFY(OrdaneData::writeText(mDir.filePath(QStringLiteral("HEADER.csv")),
                                  QByteArray(OrdaneData::kQuoteFileHeader)));
    QVERIFY(OrdaneData::writeText(mDir.filePath(QStringLiteral("JUNK.csv")),
                                  QByteArray("not, a quote file\n")));
    FilterRun mixed(price, defaultValues(price), mDir.path(), nullptr, 1);
    const QVector<FilterRow> rows =
        mixed.run({QStringLiteral("OK"), QStringLiteral("MISSING"), QStringLiteral("HEADER"),
                   QStringLiteral("JUNK"), QStringLiteral("OK")});
    QCOMPARE(rows.size(), 2);
    QCOMPARE(mixed.examined(), 5);
}

void TestFilters::stopKeepsTheRowsSoFar_data()
{
    QTest::addColumn<int>("threads");
    QTest::newRow("one-thread") << 1;
    QTest::newRow("four-threads") << 4;
}

void TestFilters::stopKeepsTheRowsSoFar()
{
    QFETCH(int, threads);
    QStringList symbols;
    for (int i = 0; i < 100; ++i) {
        symbols << QStringLiteral("P%1").arg(i, 3, 10, QLatin1Char('0'));
        if (threads == 1) // written once for both rows
            store(symbols.constLast(), closes({float(i % 2 ? 10 : 30)})); // every other passes
    }
    const FilterSpec &price = *findFilter(QStringLiteral("Price"));
    FilterValues values = defaultValues(price);
    QVERIFY(setFilterValue(price, values, QStringLiteral("Price Range=20..40"), nullptr));
    FilterRun run(price, values, mDir.path(), nullptr, threads);
    QVector<int> reported;
    const QVector<FilterRow> rows = run.run(symbols, [&](int examined, int total) {
        QCOMPARE(total, 100);
        reported << examined;
        if (examined >= 3)
            run.stop();
    });
    QVERIFY(run.isStopped());
    if (threads == 1)
        QCOMPARE(reported, QVector<int>({1, 2, 3}));
    const int examined = run.examined();
    QCOMPARE(reported.constLast(), examined);
    QVERIFY(examined < 100);
    // The passing symbols among the first `examined`, in order.
    QCOMPARE(rows.size(), examined / 2 + examined % 2);
    for (int i = 0; i < rows.size(); ++i)
        QCOMPARE(rows.at(i).symbol, symbols.at(2 * i));
}

void TestFilters::threadsGiveTheSameRows()
{
    QStringList symbols;
    for (int i = 0; i < 50; ++i) {
        symbols << QStringLiteral("R%1").arg(i);
        const OrdaneData::ReaderH walk = TestSupport::randomSeries(300 + 7 * i, 100 + quint64(i));
        store(symbols.constLast(), walk->bars());
    }
    const struct
    {
        const char *filter;
        QStringList settings;
    } cases[] = {
        {"RSIFilter", {QStringLiteral("Level=50")}},
        {"MovingAverage", {QStringLiteral("Rule=MA1 Higher MA2")}},
        {"StochasticFilter", {QStringLiteral("Rule=K Lower D"), QStringLiteral("K Level=0")}},
        {"VolumeBreakOut", {QStringLiteral("N Times greater than previous=5")}},
        {"ConsolidationFilter", {QStringLiteral("Interval=2")}},
        {"ImpulsFilter", {QStringLiteral("Rule=blue or green")}},
    };
    for (const auto &c : cases) {
        const QVector<FilterRow> one = run(QLatin1String(c.filter), c.settings, symbols, 1);
        const QVector<FilterRow> four = run(QLatin1String(c.filter), c.settings, symbols, 4);
        QVERIFY2(!one.isEmpty() && one.size() < symbols.size(), c.filter);
        QCOMPARE(four, one);
    }
}

void TestFilters::settingByText_data()
{
    QTest::addColumn<QString>("filter");
    QTest::addColumn<QString>("assignment");
    QTest::addColumn<QString>("key");
    QTest::addColumn<QVariant>("value"); // invalid: an error
    QTest::addColumn<QString>("error");  // what the error names

    const auto S = [](const char *s) {
        return QString::fromLatin1(s);
    };
    const auto ok = [&](const char *name, const char *filter, const char *assignment,
                        const char *key, const QVariant &value) {
        QTest::newRow(name) << S(filter) << S(assignment) << S(key) << value << QString();
    };
    const auto bad = [&](const char *name, const char *filter, const char *assignment,
                         const char *error) {
        QTest::newRow(name) << S(filter) << S(assignment) << QString() << QVariant() << S(error);
    };
    ok("integer", "RSIFilter", "RSI Period=14", "RSI Period", 14.0);
    ok("label-as-shown", "RSIFilter", "&RSI Period:=9", "RSI Period", 9.0);
    ok("item-in-any-case", "Trend", "trend type=down", "Trend type", S("Down"));
    ok("range", "Price", "Price Range=1.5..20", "Price Range", QVariantList{1.5, 20.0});
    ok("date", "TimeMachine", "Start=2012-03-01", "Start", QDate(2012, 3, 1));
    ok("date-back-to-newest", "Price", "As of=", "As of", QDate());
    ok("exchanges", "Fill", "Exchanges=NYSE, XETRA", "Exchanges",
       QStringList{S("NYSE"), S("XETRA")});
    bad("unknown-key", "RSIFilter", "Perod=5",
        "RSIFilter has no control \"Perod\" (its controls: RSI Period, Time Frame, Level, Rule, "
        "As of)");
    bad("unknown-item", "StochasticFilter", "Level Rule=Above",
        "\"Above\" is not an item of Level Rule (its items: Higher, Lower)");
    bad("unknown-frame", "ConsolidationFilter", "Time Frame=Day", "Week, Month, Quartal");
    bad("without-value", "Trend", "Period (Days)", "expected Period (Days)=VALUE");
    bad("out-of-range", "RSIFilter", "RSI Period=101", "RSI Period must lie within 1 .. 100");
    bad("fraction-for-integer", "RSIFilter", "Level=30.5", "Level expects a whole number");
    bad("not-a-date", "Price", "As of=2012-02-30", "As of expects a date yyyy-MM-dd");
    bad("range-upside-down", "Price", "Price Range=20..1", "lies above");
    bad("range-without-dots", "PE", "PE Range=5", "PE Range expects lower..upper");
}

void TestFilters::settingByText()
{
    QFETCH(QString, filter);
    QFETCH(QString, assignment);
    QFETCH(QString, key);
    QFETCH(QVariant, value);
    QFETCH(QString, error);
    const FilterSpec &spec = *findFilter(filter);
    FilterValues values = defaultValues(spec);
    const FilterValues before = values;
    QString message;
    const bool set = setFilterValue(spec, values, assignment, &message);
    QCOMPARE(set, value.isValid());
    if (set) {
        QCOMPARE(values.value(key), value);
    } else {
        QVERIFY2(message.contains(error), qPrintable(message));
        QCOMPARE(values, before);
    }
}

void TestFilters::numbers()
{
    QCOMPARE(filterNumber(1234.5678), QStringLiteral("    1234.568"));
    QCOMPARE(filterNumber(-0.0004), QStringLiteral("       0.000"));
    QCOMPARE(filterNumber(-2.5), QStringLiteral("      -2.500"));
    QCOMPARE(filterNumber(1e12), QStringLiteral("1000000000000.000"));
}

QTEST_MAIN(TestFilters)
#include "test_filters.moc"
