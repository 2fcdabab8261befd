// The catalogue as a whole: every identifier creates a working indicator with its defaults;
// labels, titles and the list order; full, finite buffers on a long series; no crash on
// short series or odd parameters.

#include "data/reader.h"
#include "indicators/catalogue.h"
#include "indicators/indicatorlayer.h"
#include "support/series.h"

#include <QtTest>

#include <cmath>
#include <memory>

using namespace OrdaneView;

namespace {
using TestSupport::randomSeries;

std::unique_ptr<IndicatorLayer> make(const QString &id, const OrdaneData::ReaderH &series)
{
    return std::unique_ptr<IndicatorLayer>(createBuiltinIndicator(id, series, nullptr));
}

void allIds()
{
    QTest::addColumn<QString>("id");
    for (const IndicatorEntry &entry : catalogue())
        QTest::newRow(entry.id) << QString::fromLatin1(entry.id);
}
} // namespace

class TestCatalogue : public QObject
{
    Q_OBJECT

private slots:
    void tableAndList();
    void labels_data();
    void labels();
    void fullBuffersOnALongSeries_data() { allIds(); }
    void fullBuffersOnALongSeries();
    void shortSeriesAndOddParameters_data() { allIds(); }
    void shortSeriesAndOddParameters();
    void periodsBelowOneGiveZeros_data() { allIds(); }
    void periodsBelowOneGiveZeros();
};

void TestCatalogue::tableAndList()
{
    QSet<QString> ids;
    for (const IndicatorEntry &entry : catalogue())
        ids.insert(QLatin1String(entry.id));
    QCOMPARE(int(catalogue().size()), 48);
    QCOMPARE(ids.size(), 48);

    const QString expected = QStringLiteral(
        "Volume RSI EMA WMA SMA SMMA Median MACD FRC OsMA AD OBV ROC VROC ATR Momentum CHO CHV "
        "CCI MedianPrice AO AC Bears Bulls DeMarker MFaI StdDev WilliamsPR RVI MFI Stochastic "
        "HCVolatility HCPriceChange Impuls Envelopes BollingerBands DPO DI ADX");
    QCOMPARE(listedIndicators().join(QLatin1Char(' ')), expected);

    QCOMPARE(indicatorTitle(QStringLiteral("RSI")), QStringLiteral("Relative Strength Index"));
    QCOMPARE(indicatorTitle(QStringLiteral("Median")), QStringLiteral("Median"));
    QCOMPARE(indicatorTitle(QStringLiteral("my.js")), QStringLiteral("my.js"));
    QVERIFY(!createBuiltinIndicator(QStringLiteral("NoSuchIndicator"), OrdaneData::ReaderH(), nullptr));
}

void TestCatalogue::labels_data()
{
    QTest::addColumn<QString>("id");
    QTest::addColumn<QString>("label");
    const auto row = [](const char *id, const char *label) {
        QTest::newRow(id) << QString::fromLatin1(id) << QString::fromLatin1(label);
    };
    row("RSI", "RSI(7,70,30)");
    row("EMA", "EMA(32)");
    row("AD", "A/D");
    row("DI", "+DI,-DI(14)");
    row("WilliamsPR", "Williams %R(14,-20,-80)");
    row("Stochastic", "Stochastic(14,3,3,80,20)");
    row("DeMarker", "DeMarker(14)");
    row("Volume", "Volume");
    row("Envelopes", "Envelopes(14,0,8.5)");
}

void TestCatalogue::labels()
{
    QFETCH(QString, id);
    auto layer = make(id, OrdaneData::ReaderH());
    layer->init();
    QTEST(layer->label(), "label");
    // The same identifier and parameters give the same label.
    auto again = make(id, OrdaneData::ReaderH());
    again->init();
    QCOMPARE(again->label(), layer->label());
    QCOMPARE(layer->name(), id);
}

void TestCatalogue::fullBuffersOnALongSeries()
{
    QFETCH(QString, id);
    const int n = 600;
    const OrdaneData::ReaderH series = randomSeries(n);
    auto layer = make(id, series);
    layer->init();
    layer->start();
    const auto &buffers = layer->buffers();
    for (auto it = buffers.cbegin(); it != buffers.cend(); ++it) {
        const QVector<float> &data = it.value().data;
        // Shifted lines run past the last bar; every other buffer has one value per bar.
        QVERIFY2(data.size() == n || (data.size() > n && data.size() <= n + 100),
                 qPrintable(it.key() + QStringLiteral(": %1 values").arg(data.size())));
        for (float v : data)
            QVERIFY2(std::isfinite(v), qPrintable(it.key()));
        QVERIFY2(std::any_of(data.begin(), data.end(), [](float v) { return v != 0.0f; }),
                 qPrintable(it.key() + QStringLiteral(" is all zeros")));
    }
    if (buffers.isEmpty())
        QVERIFY(!layer->barColours().isEmpty()); // bars coloured instead of buffers
}

void TestCatalogue::shortSeriesAndOddParameters()
{
    QFETCH(QString, id);
    for (int n : {0, 1, 2, 5, 40}) {
        const OrdaneData::ReaderH series = randomSeries(n, 11);
        for (float odd : {0.0f, -3.0f, 1.0f, 2.5f, 100000.0f}) {
            auto layer = make(id, series);
            for (const QString &name : layer->parameters().keys())
                layer->setParameter(name, odd);
            layer->init();
            layer->start();
            // Some formulas are unguarded by design (0 / 0 in DeMarker, x / 0 in MFaI), so
            // only the lengths are checked here; the painting copes with such values.
            for (const auto &buffer : layer->buffers())
                QVERIFY(buffer.data.size() >= n || buffer.data.isEmpty());
        }
    }
}

void TestCatalogue::periodsBelowOneGiveZeros()
{
    // Every parameter that counts bars is set to 0.9, which truncates to 0.
    QFETCH(QString, id);
    const QStringList levels = {QStringLiteral("LevelUp"), QStringLiteral("LevelDown"),
                                QStringLiteral("Deviation"), QStringLiteral("Typ")};
    const OrdaneData::ReaderH series = randomSeries(120, 5);
    auto layer = make(id, series);
    bool periods = false;
    for (const QString &name : layer->parameters().keys()) {
        if (levels.contains(name) || name.contains(QLatin1String("Shift")))
            continue;
        layer->setParameter(name, 0.9f);
        periods = true;
    }
    if (!periods)
        QSKIP("no period to set");
    layer->init();
    layer->start();
    for (auto it = layer->buffers().cbegin(); it != layer->buffers().cend(); ++it) {
        QVERIFY(it.value().data.size() >= 120); // shifted lines run past the last bar
        QVERIFY2(std::all_of(it.value().data.begin(), it.value().data.end(),
                             [](float v) { return v == 0.0f; }),
                 qPrintable(it.key()));
    }
    QVERIFY(layer->barColours().isEmpty());
}

QTEST_GUILESS_MAIN(TestCatalogue)
#include "test_catalogue.moc"
