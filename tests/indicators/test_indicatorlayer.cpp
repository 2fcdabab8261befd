// The indicator layer: painting of its buffers, the pane's range, levels and scale labels,
// driven by catalogue rows made for the test so the values are known exactly, and by the
// ADX row of the catalogue.

#include "data/reader.h"
#include "indicators/catalogue.h"
#include "indicators/indicatorentry.h"
#include "indicators/indicatorlayer.h"
#include "support/series.h"
#include "view/chartgeometry.h"
#include "view/chartlayer.h"
#include "view/viewcanvas.h"

#include <QPainter>
#include <QtTest>

#include <algorithm>
#include <cmath>

using namespace OrdaneView;

namespace {
// "Ramp" = 0, 10, 20, ... per bar; "Flat" = 50; bar 2 coloured yellow.
Indicators::Result ramp(const QVector<QuoteBar> &bars, const Indicators::Params &)
{
    Indicators::Result r;
    for (int i = 0; i < bars.size(); ++i) {
        r.buffers[QStringLiteral("Ramp")].append(10.0f * i);
        r.buffers[QStringLiteral("Flat")].append(50.0f);
    }
    r.barColours.set(2, Qt::yellow);
    return r;
}

const IndicatorEntry kLine{"Ramp",
                           "Ramp Test",
                           {{"Period", 3}, {"LevelUp", 70}},
                           {{"Ramp", Qt::red}, {"Flat", Qt::blue}},
                           "Ramp(%1,%2)",
                           -1,
                           &ramp};
const IndicatorEntry kHistogram{"Hist",  nullptr, {},   {{"Ramp", Qt::green, HISTOGRAM}},
                                nullptr, -1,      &ramp};

// "Below" = 0, -10, -20, ... per bar: a second indicator whose values lie under the first's.
Indicators::Result below(const QVector<QuoteBar> &bars, const Indicators::Params &)
{
    Indicators::Result r;
    for (int i = 0; i < bars.size(); ++i)
        r.buffers[QStringLiteral("Below")].append(-10.0f * i);
    return r;
}
const IndicatorEntry kBelow{"Below", nullptr, {}, {{"Below", Qt::cyan}}, nullptr, -1, &below};

struct Pane
{
    ChartGeometry geometry;
    ViewCanvas canvas{&geometry};
    OrdaneData::ReaderH series = OrdaneData::ReaderH::create();

    explicit Pane(int bars)
    {
        for (int i = 0; i < bars; ++i)
            series->appendBar(QuoteBar(QDate(2012, 9, 3).addDays(i), 10, 100, 0, 10, 1));
        ViewColors c = ViewColors::fallback();
        c.background = Qt::black;
        canvas.setColors(c);
        canvas.setReader(series);
    }
    BuiltinIndicator *add(const IndicatorEntry &entry, bool master)
    {
        auto *layer = new BuiltinIndicator(entry, &canvas);
        canvas.addLayer(layer);
        if (master)
            canvas.setMasterLayer(layer);
        layer->init();
        layer->start();
        return layer;
    }
    QImage paint(int plot, int height = 100)
    {
        canvas.setSize(QSize(plot + ViewCanvas::kRightMargin, height));
        QImage image(canvas.size(), QImage::Format_RGB32);
        QPainter painter(&image);
        canvas.paint(painter);
        return image;
    }
};

QColor at(const QImage &image, int x, int y)
{
    return QColor(image.pixel(x, y));
}
} // namespace

class TestIndicatorLayer : public QObject
{
    Q_OBJECT

private slots:
    void defaultsLabelAndBuffers();
    void paneRange_data();
    void paneRange();
    void adxPaneShowsEveryLine();
    void overlayFollowsThePriceRange();
    void linesTakePerBarColours();
    void histogramsRiseFromZero();
    void hiddenOrEmptyBuffersAreNotPainted();
    void levelsAreDrawn();
    void scaleLabels_data();
    void scaleLabels();
};

void TestIndicatorLayer::defaultsLabelAndBuffers()
{
    Pane pane(10);
    BuiltinIndicator *layer = pane.add(kLine, true);
    QCOMPARE(layer->name(), QStringLiteral("Ramp"));
    QCOMPARE(layer->fullName(), QStringLiteral("Ramp Test"));
    QCOMPARE(layer->label(), QStringLiteral("Ramp(3,70)"));
    QCOMPARE(layer->parameters().keys(),
             (QStringList{QStringLiteral("LevelUp"), QStringLiteral("Period")}));
    QCOMPARE(layer->bufferData(QStringLiteral("Ramp")).size(), 10);
    QVERIFY(layer->bufferData(QStringLiteral("Nope")).isEmpty());
    layer->setParameter(QStringLiteral("Period"), 2.5f);
    layer->init();
    QCOMPARE(layer->label(), QStringLiteral("Ramp(2.5,70)"));

    BuiltinIndicator histogram(kHistogram, &pane.canvas);
    histogram.init();
    QCOMPARE(histogram.label(), QStringLiteral("Hist")); // no parameters, no format
}

void TestIndicatorLayer::paneRange_data()
{
    // Bars `first` .. first + 9 are visible. Ramp is 10 per bar, Flat 50, Below -10 per bar.
    QTest::addColumn<int>("first");
    QTest::addColumn<QStringList>("hidden");     // buffers of the master set invisible
    QTest::addColumn<QStringList>("emptied");    // buffers of the master left without data
    QTest::addColumn<bool>("second");            // Below as a second indicator in the pane
    QTest::addColumn<QVector<int>>("undefined"); // bars whose Ramp is NaN, then inf, -inf
    QTest::addColumn<float>("min");
    QTest::addColumn<float>("max");
    const QStringList flat{QStringLiteral("Flat")};
    const QStringList none;
    QTest::newRow("every-buffer-of-the-master")
        << 20 << none << none << false << QVector<int>() << 50.0f << 290.0f;
    QTest::newRow("hidden-buffer-left-out")
        << 20 << flat << none << false << QVector<int>() << 200.0f << 290.0f;
    QTest::newRow("empty-buffer-left-out") << 20 << none << QStringList{QStringLiteral("Ramp")}
                                           << false << QVector<int>() << 50.0f << 50.0f;
    QTest::newRow("other-indicator-in-the-pane")
        << 20 << flat << none << true << QVector<int>() << -290.0f << 290.0f;
    QTest::newRow("clipped-at-the-end-of-data")
        << 95 << flat << none << false << QVector<int>() << 950.0f << 990.0f;
    QTest::newRow("undefined-and-infinite-ignored")
        << 20 << flat << none << false << QVector<int>{20, 29, 28} << 210.0f << 270.0f;
}

void TestIndicatorLayer::paneRange()
{
    QFETCH(int, first);
    QFETCH(QStringList, hidden);
    QFETCH(QStringList, emptied);
    QFETCH(bool, second);
    QFETCH(QVector<int>, undefined);
    Pane pane(100);
    BuiltinIndicator *layer = pane.add(kLine, true);
    BuiltinIndicator *other = second ? pane.add(kBelow, false) : nullptr;
    for (const QString &name : hidden)
        layer->buffers()[name].visible = false;
    for (const QString &name : emptied)
        layer->buffers()[name].data.clear();
    const float spoilers[] = {std::nanf(""), INFINITY, -INFINITY};
    for (int k = 0; k < undefined.size(); ++k)
        layer->buffers()[QStringLiteral("Ramp")].data[undefined.at(k)] = spoilers[k];
    pane.geometry.setFirstVisible(first);
    pane.paint(80); // zoom 8: ten bars
    QTEST(layer->min(), "min");
    QTEST(layer->max(), "max");
    if (other) {
        QVERIFY(!other->isMaster());
        QCOMPARE(other->min(), layer->min());
        QCOMPARE(other->max(), layer->max());
    }
}

// The first chart's pane: ADX with +DI and -DI, which run far below and above the ADX line.
void TestIndicatorLayer::adxPaneShowsEveryLine()
{
    OrdaneData::ReaderH series = TestSupport::randomSeries(300);
    ChartGeometry geometry;
    ViewCanvas canvas(&geometry);
    canvas.setReader(series);
    IndicatorLayer *adx = createBuiltinIndicator(QStringLiteral("ADX"), series, &canvas);
    canvas.addLayer(adx);
    canvas.setMasterLayer(adx);
    adx->init();
    adx->start();
    geometry.setFirstVisible(200);
    canvas.setSize(QSize(400 + ViewCanvas::kRightMargin, 120)); // zoom 8: bars 200 .. 249
    QImage image(canvas.size(), QImage::Format_RGB32);
    QPainter painter(&image);
    canvas.paint(painter);

    const QVector<float> line = adx->bufferData(QStringLiteral("ADX")).mid(200, 50);
    const QVector<float> all = line + adx->bufferData(QStringLiteral("+DI")).mid(200, 50) +
                               adx->bufferData(QStringLiteral("-DI")).mid(200, 50);
    QCOMPARE(all.size(), 150);
    const auto [lineLo, lineHi] = std::minmax_element(line.begin(), line.end());
    const auto [lo, hi] = std::minmax_element(all.begin(), all.end());
    // In this window the directional lines leave the ADX line's span, so a range fitted to
    // ADX alone would cut them.
    QVERIFY(*lo < *lineLo || *hi > *lineHi);
    QCOMPARE(adx->min(), *lo);
    QCOMPARE(adx->max(), *hi);
}

void TestIndicatorLayer::overlayFollowsThePriceRange()
{
    Pane pane(12);
    Layer *price = createPriceLayer(ChartType::Candle, &pane.canvas);
    pane.canvas.addLayer(price);
    pane.canvas.setMasterLayer(price);
    BuiltinIndicator *overlay = pane.add(kLine, false); // Ramp up to 110, above every high
    pane.paint(80);
    QVERIFY(!overlay->isMaster());
    QCOMPARE(price->max(), 100.0f);
    QCOMPARE(overlay->max(), 100.0f);
    QCOMPARE(overlay->min(), 0.0f);
}

void TestIndicatorLayer::linesTakePerBarColours()
{
    Pane pane(10);
    BuiltinIndicator *layer = pane.add(kLine, true);
    layer->buffers()[QStringLiteral("Flat")].visible = false;
    const QImage image = pane.paint(80); // Ramp 0 .. 90 over rows 100 .. 0
    const auto coloursIn = [&](int x) {
        QSet<QRgb> colours;
        for (int y = 25; y < 100; ++y)
            colours.insert(image.pixel(x, y));
        return colours;
    };
    // The segment ending at bar 2 (columns 8 .. 16) is yellow, its neighbours red.
    QVERIFY(coloursIn(12).contains(QColor(Qt::yellow).rgb()));
    QVERIFY(!coloursIn(12).contains(QColor(Qt::red).rgb()));
    QVERIFY(coloursIn(4).contains(QColor(Qt::red).rgb()));
    QVERIFY(coloursIn(20).contains(QColor(Qt::red).rgb()));
}

void TestIndicatorLayer::histogramsRiseFromZero()
{
    Pane pane(10);
    BuiltinIndicator *layer = pane.add(kHistogram, true);
    const QImage image = pane.paint(80);
    // Bar 5 (column 40): from the zero row (100) up to the row of 50.
    QCOMPARE(at(image, 40, 90), QColor(Qt::green));
    QCOMPARE(at(image, 40, layer->row(50) + 1), QColor(Qt::green));
    QCOMPARE(at(image, 40, layer->row(50) - 3), QColor(Qt::black));
    QCOMPARE(at(image, 16, 95), QColor(Qt::yellow)); // bar 2's own colour
    QCOMPARE(at(image, 44, 95), QColor(Qt::black));  // between bars
}

void TestIndicatorLayer::hiddenOrEmptyBuffersAreNotPainted()
{
    Pane pane(10);
    BuiltinIndicator *layer = pane.add(kLine, true);
    layer->buffers()[QStringLiteral("Ramp")].visible = false;
    layer->buffers()[QStringLiteral("Flat")].data.clear();
    const QImage image = pane.paint(80);
    for (int x = 0; x < 80; x += 3)
        for (int y = 0; y < 100; y += 3)
            if (layer->label().isEmpty() || y > 20)
                QVERIFY(at(image, x, y) == QColor(Qt::black) ||
                        at(image, x, y) == QColor(128, 128, 128));
}

void TestIndicatorLayer::levelsAreDrawn()
{
    Pane pane(10);
    BuiltinIndicator *layer = pane.add(kLine, true); // LevelUp 70
    layer->addLevel(30, QStringLiteral("#00ffff"));
    const QImage image = pane.paint(80);
    QCOMPARE(at(image, 77, layer->row(70)), QColor(128, 128, 128));
    QCOMPARE(at(image, 77, layer->row(30)), QColor(Qt::cyan));
}

void TestIndicatorLayer::scaleLabels_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<double>("step");
    QTest::addColumn<QString>("label");
    QTest::newRow("billions") << 1.5e9 << 1e8 << QStringLiteral("1.5 Bio.");
    QTest::newRow("millions") << -2.54e6 << 1e5 << QStringLiteral("-2.5 Mio.");
    QTest::newRow("thousands") << 12000.0 << 500.0 << QStringLiteral("12.0 Tsd.");
    QTest::newRow("hundreds") << 123.0 << 10.0 << QStringLiteral("123");
    QTest::newRow("oscillator") << 0.35 << 0.05 << QStringLiteral("0.350");
    QTest::newRow("no-range") << 5.0 << 0.0 << QStringLiteral("5.00");
}

void TestIndicatorLayer::scaleLabels()
{
    QFETCH(double, value);
    QFETCH(double, step);
    QTEST(IndicatorLayer::scaleLabel(value, step), "label");
}

QTEST_MAIN(TestIndicatorLayer)
#include "test_indicatorlayer.moc"
