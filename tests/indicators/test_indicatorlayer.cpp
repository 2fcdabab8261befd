// The indicator layer: painting of its buffers, range fitting, levels and scale labels,
// driven by catalogue rows made for the test so the values are known exactly.

#include "data/reader.h"
#include "indicators/indicatorentry.h"
#include "indicators/indicatorlayer.h"
#include "view/chartgeometry.h"
#include "view/chartlayer.h"
#include "view/viewcanvas.h"

#include <QPainter>
#include <QtTest>

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
    void masterFitsTheVisibleBars();
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

void TestIndicatorLayer::masterFitsTheVisibleBars()
{
    Pane pane(100);
    BuiltinIndicator *layer = pane.add(kLine, true);
    pane.geometry.setFirstVisible(20);
    pane.paint(80); // zoom 8: bars 20 .. 29
    QCOMPARE(layer->min(), 200.0f);
    QCOMPARE(layer->max(), 290.0f);
    // Clipped at the end of the data.
    pane.geometry.setFirstVisible(95);
    pane.paint(80);
    QCOMPARE(layer->max(), 990.0f);
    // Undefined and infinite values do not stretch the range.
    layer->buffers()[QStringLiteral("Ramp")].data[96] = std::nanf("");
    layer->buffers()[QStringLiteral("Ramp")].data[97] = INFINITY;
    pane.paint(80);
    QCOMPARE(layer->max(), 990.0f);
    QCOMPARE(layer->min(), 950.0f);
}

void TestIndicatorLayer::overlayFollowsThePriceRange()
{
    Pane pane(12);
    Layer *price = createPriceLayer(ChartType::Candle, &pane.canvas);
    pane.canvas.addLayer(price);
    pane.canvas.setMasterLayer(price);
    BuiltinIndicator *overlay = pane.add(kLine, false);
    pane.paint(80);
    QCOMPARE(overlay->max(), 100.0f);
    QCOMPARE(overlay->min(), 0.0f);
    QVERIFY(!overlay->isMaster());
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
