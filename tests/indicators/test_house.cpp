// The house indicators on flat and rising series, short series and odd periods, and where
// consolidations start, extend, end and restart.

#include "indicators/compute/house.h"

#include <QtTest>

#include <algorithm>
#include <utility>

using namespace Indicators;

namespace {
QuoteBar bar(float open, float high, float low, float close)
{
    return QuoteBar(QDate(2024, 1, 2), open, high, low, close, 100);
}

// A bar reaching half a unit beyond its open and close.
QuoteBar body(float open, float close)
{
    return bar(open, std::max(open, close) + 0.5f, std::min(open, close) - 0.5f, close);
}

Series buffer(Computation compute, const QVector<QuoteBar> &bars, const QString &name,
              const Params &params = Params())
{
    return compute(bars, params).buffers.value(name);
}

// The bars of a consolidation case: the reference bar (10, 12, 8, 10), then one body per close.
QVector<QuoteBar> afterReference(const Series &opens, const Series &closes)
{
    QVector<QuoteBar> bars{bar(10, 12, 8, 10)};
    for (int i = 0; i < closes.size(); ++i)
        bars.append(body(opens.isEmpty() ? closes[i] : opens[i], closes[i]));
    return bars;
}
} // namespace

class TestHouse : public QObject
{
    Q_OBJECT

private slots:
    void flatSeries();
    void risingSeries();
    void consolidation_data();
    void consolidation();
    void consolidationQuery();
};

// O = C = 8, H = 10, L = 6 on 30 bars (more than the channel's 26).
void TestHouse::flatSeries()
{
    const QVector<QuoteBar> bars(30, bar(8, 10, 6, 8));
    const Result v = computeHCVolatility(bars, Params());
    for (const auto &[name, value] : {std::make_pair("High", 10), std::make_pair("Low", 6),
                                      std::make_pair("Mid", 8), std::make_pair("Difference", 4)})
        for (float x : v.buffers.value(QStringLiteral("HCVolatility") + QLatin1String(name)))
            QVERIFY(qAbs(x - float(value)) < 1e-5f);
    QCOMPARE(buffer(computeHCDrevik, bars, QStringLiteral("HCDrevikMinus")), Series(30, 0));
    QCOMPARE(buffer(computeHCDrevikPR, bars, QStringLiteral("HCDrevikPRPlus")), Series(30, 0));
    // (10 - 8) / 8 * 100 = 25 above and (6 - 8) / 8 * 100 = -25 below; ema(1) is the identity.
    QCOMPARE(buffer(computeHCPriceChange, bars, QStringLiteral("HCPriceChangeHigh")),
             Series(30, 25));
    QCOMPARE(buffer(computeHCPriceChange, bars, QStringLiteral("HCPriceChangeLow")),
             Series(30, -25));
    QCOMPARE(buffer(computeHCPriceChangeO, bars, QStringLiteral("HCPriceChange")), Series(30, 0));
    // Closing at the open is not bullish.
    QCOMPARE(buffer(computeHCPriceChangeBulls, bars, QStringLiteral("HCPriceChangeBullsHigh")),
             Series(30, 0));
    // Every close stays in the first bar's range: in force from bar 4, counting bar 0.
    Series duration(30, 0);
    for (int i = 4; i < 30; ++i)
        duration[i] = float(i + 1);
    QCOMPARE(buffer(computeConsolidation, bars, QStringLiteral("ConsolidationA")), duration);
}

// Bar i opens and lows at 2^i and closes at its high 2^(i+1): each close doubles the last.
void TestHouse::risingSeries()
{
    QVector<QuoteBar> bars;
    for (int i = 0; i < 4; ++i)
        bars.append(bar(float(1 << i), float(2 << i), float(1 << i), float(2 << i)));
    // Closes 2, 4, 8, 16 against the lowest close 2: up 0, 2, 6, 14, i.e. 0, 100, 300, 700 %.
    QCOMPARE(buffer(computeHCDrevik, bars, QStringLiteral("HCDrevikPlus")), (Series{0, 2, 6, 14}));
    QCOMPARE(buffer(computeHCDrevik, bars, QStringLiteral("HCDrevikMinus")), Series(4, 0));
    QCOMPARE(buffer(computeHCDrevikPR, bars, QStringLiteral("HCDrevikPRPlus")),
             (Series{0, 100, 300, 700}));
    // Each high is twice the previous close (bar 0: its open), each low equals it: 100 % and 0.
    for (Computation c : {computeHCPriceChange, computeHCPriceChangeBulls}) {
        const Result r = c(bars, Params());
        QCOMPARE(r.buffers.first(), Series(4, 100));
        QCOMPARE(r.buffers.last(), Series(4, 0));
    }
    QCOMPARE(buffer(computeConsolidation, bars, QStringLiteral("Consolidation")), Series(4, 0));
}

void TestHouse::consolidation_data()
{
    QTest::addColumn<Series>("opens"); // empty: open = close
    QTest::addColumn<Series>("closes");
    QTest::addColumn<Series>("onClose");
    QTest::addColumn<Series>("onBody");
    // Interval 4 after the reference bar (10, 12, 8, 10); the duration counts the reference.
    QTest::newRow("one-short-of-interval")
        << Series() << Series{10, 8, 12} << Series(4, 0) << Series(4, 0);
    QTest::newRow("bounds-included-starts-at-interval")
        << Series() << Series{10, 8, 12, 9} << Series{0, 0, 0, 0, 5} << Series{0, 0, 0, 0, 5};
    QTest::newRow("extends") << Series() << Series(6, 10) << Series{0, 0, 0, 0, 5, 6, 7}
                             << Series{0, 0, 0, 0, 5, 6, 7};
    // 12.5 leaves [8, 12]; its bar [12, 13] is the next reference, held by four more closes.
    QTest::newRow("ends-on-break-and-restarts")
        << Series() << Series{10, 10, 10, 10, 12.5f, 12.5f, 12.5f, 12.5f, 12.5f}
        << Series{0, 0, 0, 0, 5, 0, 0, 0, 0, 5} << Series{0, 0, 0, 0, 5, 0, 0, 0, 0, 5};
    // Opens at 13 leave the range for bodies only; bar 1 [9.5, 13.5] then holds just 3 bars.
    QTest::newRow("opens-outside-break-bodies-only")
        << Series(4, 13) << Series(4, 10) << Series{0, 0, 0, 0, 5} << Series(5, 0);
}

void TestHouse::consolidation()
{
    QFETCH(Series, opens);
    QFETCH(Series, closes);
    QFETCH(Series, onClose);
    QFETCH(Series, onBody);
    const Result r = computeConsolidation(afterReference(opens, closes), Params());
    QCOMPARE(r.buffers.value(QStringLiteral("Consolidation")), onClose);
    QCOMPARE(r.buffers.value(QStringLiteral("ConsolidationA")), onBody);
}

void TestHouse::consolidationQuery()
{
    const QVector<QuoteBar> bars =
        afterReference({}, {10, 10, 10, 10, 12.5f, 12.5f, 12.5f, 12.5f, 12.5f});
    const auto at = [&bars](int index, int interval = 4) {
        const ConsolidationState s =
            consolidationAt(bars, index, interval, ConsolidationPrices::Close);
        return QVector<float>{float(s.inForce), float(s.since), float(s.duration), s.high, s.low};
    };
    QCOMPARE(at(3), (Series{0, -1, 0, 0, 0}));
    QCOMPARE(at(4), (Series{1, 0, 5, 12, 8}));
    QCOMPARE(at(5), (Series{0, -1, 0, 0, 0}));
    QCOMPARE(at(9), (Series{1, 5, 5, 13, 12}));
    QCOMPARE(at(9, 5), (Series{0, -1, 0, 0, 0}));
    QCOMPARE(at(10), (Series{0, -1, 0, 0, 0}));
    QCOMPARE(at(-1), (Series{0, -1, 0, 0, 0}));
    QCOMPARE(at(4, 0), (Series{0, -1, 0, 0, 0}));
    // Typ 1: the range height (12 - 8) / 8 * 100 = 50 % instead of the duration.
    const Series width = buffer(computeConsolidation, bars, QStringLiteral("Consolidation"),
                                {{QStringLiteral("Typ"), 1}});
    QCOMPARE(width[4], 50.0f);
    QCOMPARE(width[3], 0.0f);
}

QTEST_GUILESS_MAIN(TestHouse)
#include "test_house.moc"
