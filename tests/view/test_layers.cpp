// Price layers drawn into images, checked pixel by pixel. Prices are chosen so that rows
// come out whole: with low 0, high 100 and a plot 100 pixels high, value v sits on row
// 100 - v.

#include "data/reader.h"
#include "view/chartgeometry.h"
#include "view/chartlayer.h"
#include "view/viewcanvas.h"

#include <QPainter>
#include <QtTest>

using namespace OrdaneView;

namespace {
const QColor kUpBody(0, 255, 0), kUpBorder(0, 0, 255), kDownBody(255, 0, 0),
    kDownBorder(255, 0, 255), kBackground(0, 0, 0), kNumbers(255, 255, 255);

ViewColors flatColours()
{
    ViewColors c = ViewColors::fallback();
    c.threeD = false;
    c.upCandle = kUpBody;
    c.upCandleBorder = kUpBorder;
    c.downCandle = kDownBody;
    c.downCandleBorder = kDownBorder;
    c.upBar = kUpBorder;
    c.downBar = kDownBorder;
    c.line = kUpBody;
    c.background = kBackground;
    c.marginBackground = c.marginBackground2 = QColor(40, 40, 40);
    c.marginNumbers = kNumbers;
    return c;
}

QuoteBar bar(float o, float h, float l, float c)
{
    static QDate day(2012, 9, 3);
    day = day.addDays(1);
    return QuoteBar(day, o, h, l, c, 100);
}

struct Chart
{
    ChartGeometry geometry;
    ViewCanvas canvas{&geometry};
    OrdaneData::ReaderH series = OrdaneData::ReaderH::create();
    Layer *price = nullptr;

    Chart(ChartType type, int zoom, const QVector<QuoteBar> &bars)
    {
        geometry.setZoom(zoom);
        canvas.setColors(flatColours());
        price = createPriceLayer(type, &canvas);
        canvas.addLayer(price);
        canvas.setMasterLayer(price);
        for (const QuoteBar &b : bars)
            series->appendBar(b);
        canvas.setReader(series);
    }
    // A plot exactly `bars` bars wide and 100 pixels high, plus the scale strip.
    QImage paint(int bars, int height = 100)
    {
        canvas.setSize(QSize(bars * geometry.zoom() + ViewCanvas::kRightMargin, height));
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

// Columns lit in a row, between two columns.
QVector<int> litColumns(const QImage &image, int y, int from, int to, const QColor &colour)
{
    QVector<int> lit;
    for (int x = from; x <= to; ++x)
        if (at(image, x, y) == colour)
            lit.append(x);
    return lit;
}
} // namespace

class TestLayers : public QObject
{
    Q_OBJECT

private slots:
    void valueRows_data();
    void valueRows();
    void candleBodyRowsAndColumns_data();
    void candleBodyRowsAndColumns();
    void dojiIsARisingLineAtItsOpen();
    void downCandleUsesFallingColours();
    void shadingIsTheGradientFill();
    void bodyHalfWidthAtSmallZooms();
    void penWidthsFollowTheZoom();
    void lineWidthFollowsTheZoom();
    void scaleTicks_data();
    void scaleTicks();
    void scaleIsDrawnOnItsTickRows();
    void pointerBoxOnlyOverBars();
    void onePriceDrawsAFlatLine();
    void missingSeriesDrawsNothing();
};

void TestLayers::valueRows_data()
{
    QTest::addColumn<float>("min");
    QTest::addColumn<float>("max");
    QTest::addColumn<int>("height");
    QTest::newRow("whole-numbers") << 0.0f << 100.0f << 100;
    QTest::newRow("prices") << 47.37f << 59.85f << 600;
    QTest::newRow("awkward") << 0.1f << 0.3f << 777;
    QTest::newRow("large") << 1234.56f << 98765.4f << 1000;
}

void TestLayers::valueRows()
{
    QFETCH(float, min);
    QFETCH(float, max);
    QFETCH(int, height);
    Chart chart(ChartType::Empty, 8, {});
    chart.price->setGeometry(300, height, ViewCanvas::kRightMargin);
    chart.price->setMin(min);
    chart.price->setMax(max);
    QCOMPARE(chart.price->row(max), 0);
    QCOMPARE(chart.price->row(min), height);
    // Rows fall as values rise, and are truncated toward zero.
    const float mid = min + (max - min) / 2;
    QVERIFY(qAbs(chart.price->row(mid) - height / 2) <= 1);
    QCOMPARE(chart.price->row(mid), int(chart.price->rowOf(mid)));
}

void TestLayers::candleBodyRowsAndColumns_data()
{
    QTest::addColumn<int>("zoom");
    QTest::addColumn<int>("left");
    QTest::addColumn<int>("right");
    // Bar 1 is centred on column zoom; the body spans trunc(x -+ zoom / 3.0).
    QTest::newRow("zoom-8") << 8 << 5 << 10;
    QTest::newRow("zoom-9") << 9 << 6 << 12;
    QTest::newRow("zoom-16") << 16 << 10 << 21;
}

void TestLayers::candleBodyRowsAndColumns()
{
    QFETCH(int, zoom);
    QFETCH(int, left);
    QFETCH(int, right);
    // Open 20 and close 60 sit on rows 80 and 40; the body's edges are one row higher.
    Chart chart(ChartType::Candle, zoom,
                {bar(50, 100, 0, 50), bar(20, 90, 10, 60), bar(50, 50, 50, 50)});
    const QImage image = chart.paint(3);

    QCOMPARE(litColumns(image, 60, left, right, kUpBorder), (QVector<int>{left, right}));
    QCOMPARE(at(image, left + 1, 60), kUpBody);
    QCOMPARE(at(image, left - 1, 60), kBackground);
    QCOMPARE(at(image, right + 1, 60), kBackground);
    QCOMPARE(at(image, left + 1, 39), kUpBorder); // top edge: trunc(40 - 1.0)
    QCOMPARE(at(image, left + 1, 79), kUpBorder); // bottom edge: trunc(80 - 1.0)
    QCOMPARE(at(image, left + 1, 38), kBackground);
    QCOMPARE(at(image, left + 1, 80), kBackground);
    // Shadows run from the high to the body and from the body to the low.
    QCOMPARE(at(image, zoom, 15), kUpBorder);
    QCOMPARE(at(image, zoom, 85), kUpBorder);
    QCOMPARE(at(image, zoom, 5), kBackground); // above the high of 90
}

void TestLayers::dojiIsARisingLineAtItsOpen()
{
    Chart chart(ChartType::Candle, 9,
                {bar(50, 100, 0, 50), bar(40, 70, 20, 40), bar(50, 50, 50, 50)});
    const QImage image = chart.paint(3);
    // Open = close = 40: row 60, the zero-height body on row trunc(60 - 1.0) = 59.
    QCOMPARE(litColumns(image, 59, 0 + 9 - 5, 9 + 5, kUpBorder),
             (QVector<int>{6, 7, 8, 9, 10, 11, 12}));
    QCOMPARE(at(image, 7, 58), kBackground);
    QCOMPARE(at(image, 7, 60), kBackground);
    QVERIFY(!litColumns(image, 59, 0, 20, kDownBorder).size());
}

void TestLayers::downCandleUsesFallingColours()
{
    Chart chart(ChartType::Candle, 9,
                {bar(50, 100, 0, 50), bar(60, 90, 10, 20), bar(50, 50, 50, 50)});
    const QImage image = chart.paint(3);
    QCOMPARE(at(image, 7, 60), kDownBody);
    QCOMPARE(at(image, 6, 60), kDownBorder);
    QCOMPARE(at(image, 9, 15), kDownBorder);

    // In 3D the body is shaded, light grey a fifth of the way across, with no border.
    chart.canvas.setColors([] {
        ViewColors c = flatColours();
        c.threeD = true;
        return c;
    }());
    const QImage shaded = chart.paint(3);
    QVERIFY(at(shaded, 7, 60).lightness() > at(shaded, 11, 60).lightness());
    QVERIFY(at(shaded, 6, 60) != kDownBorder);
}

void TestLayers::shadingIsTheGradientFill()
{
    // The 3D body is painted from a cached strip; it must match a gradient fill from the
    // body's left to its right column at any width. The toolkit's gradient arithmetic is not
    // exactly the same at every origin: it differs by up to two levels per channel (under 1 %)
    // in the steep fifth of the ramp, so that much is allowed.
    for (int zoom : {3, 8, 17, 64}) {
        Chart chart(ChartType::Candle, zoom,
                    {bar(50, 100, 0, 50), bar(20, 90, 10, 60), bar(50, 50, 50, 50)});
        chart.canvas.setColors([] {
            ViewColors c = flatColours();
            c.threeD = true;
            return c;
        }());
        const QImage image = chart.paint(3);
        const int left = int(zoom - zoom / 3.0), right = int(zoom + zoom / 3.0);
        const QRect body(QPoint(left, 39), QPoint(right, 79));
        QImage reference(image.size(), QImage::Format_RGB32);
        reference.fill(Qt::black);
        QLinearGradient shade(left, 0, right, 0);
        shade.setColorAt(0.0, kUpBody.darker(170));
        shade.setColorAt(0.2, QColor(Qt::lightGray));
        shade.setColorAt(1.0, kUpBody.darker(170));
        QPainter(&reference).fillRect(body, shade);
        for (int y = body.top(); y <= body.bottom(); y += 10) {
            for (int x = body.left(); x <= body.right(); ++x) {
                const QColor a = at(image, x, y), b = at(reference, x, y);
                QVERIFY2(qAbs(a.red() - b.red()) <= 2 && qAbs(a.green() - b.green()) <= 2 &&
                             qAbs(a.blue() - b.blue()) <= 2,
                         qPrintable(a.name() + QLatin1Char(' ') + b.name()));
            }
        }
    }
}

void TestLayers::bodyHalfWidthAtSmallZooms()
{
    const QVector<QuoteBar> bars = {bar(20, 90, 10, 60), bar(20, 90, 10, 60), bar(20, 100, 0, 60)};
    // zoom 3: the half-width zoom / 3.0 is exactly one pixel on either side, so each body
    // has one column of fill between its borders (the first bar's left border is cut off).
    Chart three(ChartType::Candle, 3, bars);
    const QImage wide = three.paint(3);
    QCOMPARE(litColumns(wide, 60, 0, 8, kUpBorder), (QVector<int>{1, 2, 4, 5, 7}));
    QCOMPARE(litColumns(wide, 60, 0, 8, kUpBody), (QVector<int>{0, 3, 6}));
    // zoom 2: trunc(x - 0.67) and trunc(x + 0.67) give a line for the bar on column 0 and
    // two columns for the bar on column 2.
    Chart two(ChartType::Candle, 2, bars);
    const QImage image = two.paint(3);
    QCOMPARE(litColumns(image, 60, 0, 5, kUpBorder), (QVector<int>{0, 1, 2, 3, 4}));
    QCOMPARE(at(image, 0, 60), kUpBorder);
}

void TestLayers::penWidthsFollowTheZoom()
{
    const QVector<QuoteBar> bars = {bar(50, 100, 0, 50), bar(20, 90, 10, 60), bar(50, 50, 50, 50)};
    // Candle shadows: 1 pixel up to zoom 16, 2 from zoom 17. Row 15 crosses only the shadow.
    for (const auto &[zoom, width] : {std::pair{16, 1}, std::pair{17, 2}}) {
        Chart chart(ChartType::Candle, zoom, bars);
        QCOMPARE(litColumns(chart.paint(3), 15, zoom - 3, zoom + 3, kUpBorder).size(), width);
    }
    // Bars: 1 pixel up to zoom 8, 2 from zoom 9.
    for (const auto &[zoom, width] : {std::pair{8, 1}, std::pair{9, 2}}) {
        Chart chart(ChartType::Bar, zoom, bars);
        QCOMPARE(litColumns(chart.paint(3), 15, zoom - 2, zoom + 2, kUpBorder).size(), width);
    }
}

void TestLayers::lineWidthFollowsTheZoom()
{
    // A flat run of closes at 50 (row 50) between a low of 0 and a high of 100.
    const QVector<QuoteBar> bars = {bar(50, 100, 50, 50), bar(50, 50, 50, 50), bar(50, 50, 50, 50),
                                    bar(50, 50, 0, 50)};
    for (const auto &[zoom, fullRows] : {std::pair{8, 0}, std::pair{9, 2}}) {
        Chart chart(ChartType::Line, zoom, bars);
        const QImage image = chart.paint(4);
        int full = 0;
        for (int y = 45; y < 55; ++y)
            full += at(image, zoom + zoom / 2, y) == kUpBody;
        QCOMPARE(full, fullRows);
    }
}

void TestLayers::scaleTicks_data()
{
    QTest::addColumn<int>("height");
    QTest::addColumn<QVector<int>>("rows");
    QTest::newRow("33-only-max") << 33 << QVector<int>{1};
    QTest::newRow("34-min-and-max") << 34 << QVector<int>{33, 1};
    QTest::newRow("68-two-and-max") << 68 << QVector<int>{67, 33, 1};
    QTest::newRow("zero-height") << 0 << QVector<int>{1};
}

void TestLayers::scaleTicks()
{
    QFETCH(int, height);
    QFETCH(QVector<int>, rows);
    const auto ticks = Layer::scaleTicks(10.0f, 20.0f, height);
    QVector<int> got;
    for (const auto &t : ticks)
        got.append(t.row);
    QCOMPARE(got, rows);
    QCOMPARE(ticks.first().value, rows.size() == 1 ? 20.0 : 10.0);
    QCOMPARE(ticks.last().value, 20.0);
    if (height == 68) // not snapped to tidy values: min + (max - min) / 2
        QCOMPARE(ticks.at(1).value, 15.0);
}

void TestLayers::scaleIsDrawnOnItsTickRows()
{
    Chart chart(ChartType::Candle, 8, {bar(10, 20, 10, 20), bar(10, 20, 10, 20)});
    const QImage image = chart.paint(2, 68);
    const int left = 2 * 8;
    QVector<int> rows;
    for (int y = 0; y < 68; ++y)
        if (at(image, left + 1, y) == kNumbers)
            rows.append(y);
    QCOMPARE(rows, (QVector<int>{1, 33, 67}));
}

void TestLayers::pointerBoxOnlyOverBars()
{
    Chart chart(ChartType::Candle, 8,
                {bar(50, 100, 0, 50), bar(20, 90, 10, 60), bar(50, 60, 40, 55)});
    chart.canvas.setSize(QSize(200 + ViewCanvas::kRightMargin, 100));
    const auto paint = [&] {
        QImage image(chart.canvas.size(), QImage::Format_RGB32);
        QPainter painter(&image);
        chart.canvas.paint(painter);
        return image;
    };
    const QImage plain = paint();
    chart.canvas.setPointerInfoMode(true);
    chart.geometry.setPointerX(100); // bar 12 of 3: past the last bar
    QImage past = paint();
    // Only the pointer line is drawn there.
    for (int y = 0; y < 100; ++y)
        past.setPixel(100, y, plain.pixel(100, y));
    QCOMPARE(past, plain);

    chart.geometry.setPointerX(9); // over bar 1
    QVERIFY(paint() != plain);
    QCOMPARE(ChartLayer::pointerText(chart.series->bar(1)),
             QStringLiteral("high:\t90\nopen:\t20\nclose:\t60\nlow:\t10"));
}

void TestLayers::onePriceDrawsAFlatLine()
{
    for (ChartType type : {ChartType::Candle, ChartType::Bar, ChartType::Line, ChartType::Empty}) {
        Chart chart(type, 8, {bar(5, 5, 5, 5), bar(5, 5, 5, 5), bar(5, 5, 5, 5)});
        const QImage image = chart.paint(3);
        QCOMPARE(chart.price->max(), chart.price->min());
        if (type == ChartType::Candle || type == ChartType::Bar)
            QCOMPARE(at(image, 8, 50), kUpBorder);
        const auto ticks = Layer::scaleTicks(5, 5, 100);
        QCOMPARE(ticks.size(), 1);
        QCOMPARE(ticks.first().row, 50);
    }
}

void TestLayers::missingSeriesDrawsNothing()
{
    ChartGeometry geometry;
    ViewCanvas canvas(&geometry);
    Layer *price = createPriceLayer(ChartType::Candle, &canvas);
    canvas.addLayer(price);
    canvas.setSize(QSize(200, 100));
    QImage image(canvas.size(), QImage::Format_RGB32);
    QPainter painter(&image);
    canvas.paint(painter); // the layer meets "Null handle" and is left out
    QCOMPARE(at(image, 50, 50), canvas.colors().background);
    QCOMPARE(price->numberOfQuotes(), 0);
    QCOMPARE(price->close(3), 0.0f);
    QVERIFY(price->close().isEmpty());
}

QTEST_MAIN(TestLayers)
#include "test_layers.moc"
