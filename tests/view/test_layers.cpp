// Price layers drawn into images, checked pixel by pixel. Prices are chosen so that rows
// come out whole: with low 0, high 100 and a plot 100 pixels high, value v sits on row
// 100 - v.

#include "data/reader.h"
#include "view/chartgeometry.h"
#include "view/chartlayer.h"
#include "view/pairlayer.h"
#include "view/viewcanvas.h"

#include <QPainter>
#include <QtTest>

#include <cmath>

using namespace OrdaneView;

namespace {
const QColor kUpBody(0, 255, 0), kUpBorder(0, 0, 255), kDownBody(255, 0, 0),
    kDownBorder(255, 0, 255), kBackground(0, 0, 0), kNumbers(255, 255, 255);

ViewColors flatColours(bool threeD = false)
{
    ViewColors c = ViewColors::fallback();
    c.threeD = threeD;
    c.upCandle = c.line = kUpBody;
    c.upCandleBorder = c.upBar = kUpBorder;
    c.downCandle = kDownBody;
    c.downCandleBorder = c.downBar = kDownBorder;
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

    Chart(ChartType type, int zoom, const QVector<QuoteBar> &bars, bool threeD = false)
    {
        geometry.setZoom(zoom);
        canvas.setColors(flatColours(threeD));
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
    void valueRows_data()
    {
        QTest::addColumn<float>("min");
        QTest::addColumn<float>("max");
        QTest::addColumn<int>("height");
        QTest::newRow("whole-numbers") << 0.0f << 100.0f << 100;
        QTest::newRow("prices") << 47.37f << 59.85f << 600;
        QTest::newRow("awkward") << 0.1f << 0.3f << 777;
        QTest::newRow("large") << 1234.56f << 98765.4f << 1000;
    }

    void valueRows()
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

    void candleBodies_data()
    {
        QTest::addColumn<int>("zoom");
        QTest::addColumn<int>("left");
        QTest::addColumn<int>("right");
        // Bar 1 is centred on column zoom; the body spans trunc(x -+ zoom / 3.0).
        QTest::newRow("zoom-8") << 8 << 5 << 10;
        QTest::newRow("zoom-9") << 9 << 6 << 12;
        QTest::newRow("zoom-16") << 16 << 10 << 21;
    }

    void candleBodies()
    {
        QFETCH(int, zoom);
        QFETCH(int, left);
        QFETCH(int, right);
        // Bar 1 rises from 20 to 60 (rows 80 and 40; the body's edges are one row higher),
        // bar 2 falls from 60 to 20, and bar 3 is a doji at 40.
        Chart chart(
            ChartType::Candle, zoom,
            {bar(50, 100, 0, 50), bar(20, 90, 10, 60), bar(60, 90, 10, 20), bar(40, 70, 20, 40)});
        const QImage image = chart.paint(4);

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

        // The falling candle, one bar to the right, in the falling colours.
        QCOMPARE(litColumns(image, 60, left + zoom, right + zoom, kDownBorder),
                 (QVector<int>{left + zoom, right + zoom}));
        QCOMPARE(at(image, left + zoom + 1, 60), kDownBody);
        QCOMPARE(at(image, 2 * zoom, 15), kDownBorder);

        // The doji: a rising line on row trunc(60 - 1.0) = 59, across the body's columns.
        QVector<int> columns;
        for (int x = left + 2 * zoom; x <= right + 2 * zoom; ++x)
            columns.append(x);
        QCOMPARE(litColumns(image, 59, left + 2 * zoom - 2, right + 2 * zoom + 2, kUpBorder),
                 columns);
        QCOMPARE(at(image, left + 2 * zoom + 1, 58), kBackground);
        QCOMPARE(at(image, left + 2 * zoom + 1, 60), kBackground);
    }

    void shadingIsTheGradientFill()
    {
        // The 3D body is painted from a cached strip; it must match a gradient fill from the
        // body's left to its right column at any width, in the rising and the falling candle's
        // colour. The toolkit's gradient arithmetic is not exactly the same at every origin: it
        // differs by up to two levels per channel (under 1 %) in the steep fifth of the ramp,
        // so that much is allowed.
        for (int zoom : {3, 8, 17, 64}) {
            Chart chart(ChartType::Candle, zoom,
                        {bar(50, 100, 0, 50), bar(20, 90, 10, 60), bar(60, 90, 10, 20),
                         bar(50, 50, 50, 50)},
                        true);
            const QImage image = chart.paint(4);
            QImage reference(image.size(), QImage::Format_RGB32);
            reference.fill(Qt::black);
            for (const auto &[centre, colour] :
                 {std::pair{zoom, kUpBody}, std::pair{2 * zoom, kDownBody}}) {
                const int left = int(centre - zoom / 3.0), right = int(centre + zoom / 3.0);
                const QRect body(QPoint(left, 39), QPoint(right, 79));
                QLinearGradient shade(left, 0, right, 0);
                shade.setColorAt(0.0, colour.darker(170));
                shade.setColorAt(0.2, QColor(Qt::lightGray));
                shade.setColorAt(1.0, colour.darker(170));
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
    }

    void widthsFollowTheZoom()
    {
        const QVector<QuoteBar> same = {bar(20, 90, 10, 60), bar(20, 90, 10, 60),
                                        bar(20, 100, 0, 60)};
        // zoom 3: the half-width zoom / 3.0 is exactly one pixel on either side, so each body
        // has one column of fill between its borders (the first bar's left border is cut off).
        const QImage three = Chart(ChartType::Candle, 3, same).paint(3);
        QCOMPARE(litColumns(three, 60, 0, 8, kUpBorder), (QVector<int>{1, 2, 4, 5, 7}));
        QCOMPARE(litColumns(three, 60, 0, 8, kUpBody), (QVector<int>{0, 3, 6}));
        // zoom 2: trunc(x - 0.67) and trunc(x + 0.67) give a line for the bar on column 0 and
        // two columns for the bar on column 2.
        const QImage two = Chart(ChartType::Candle, 2, same).paint(3);
        QCOMPARE(litColumns(two, 60, 0, 5, kUpBorder), (QVector<int>{0, 1, 2, 3, 4}));

        // Row 15 crosses only the high-low line: candle shadows are 1 pixel wide up to zoom 16
        // and 2 from zoom 17, bars 1 pixel up to zoom 8 and 2 from zoom 9.
        const QVector<QuoteBar> bars = {bar(50, 100, 0, 50), bar(20, 90, 10, 60),
                                        bar(50, 50, 50, 50)};
        for (const auto &[type, zoom, width] :
             {std::tuple{ChartType::Candle, 16, 1}, std::tuple{ChartType::Candle, 17, 2},
              std::tuple{ChartType::Bar, 8, 1}, std::tuple{ChartType::Bar, 9, 2}}) {
            QCOMPARE(litColumns(Chart(type, zoom, bars).paint(3), 15, zoom - 3, zoom + 3, kUpBorder)
                         .size(),
                     width);
        }
        // The close line: a flat run at 50 (row 50) between a low of 0 and a high of 100, one
        // row up to zoom 8 and two full rows from zoom 9.
        const QVector<QuoteBar> flat = {bar(50, 100, 50, 50), bar(50, 50, 50, 50),
                                        bar(50, 50, 50, 50), bar(50, 50, 0, 50)};
        for (const auto &[zoom, fullRows] : {std::pair{8, 0}, std::pair{9, 2}}) {
            const QImage image = Chart(ChartType::Line, zoom, flat).paint(4);
            int full = 0;
            for (int y = 45; y < 55; ++y)
                full += at(image, zoom + zoom / 2, y) == kUpBody;
            QCOMPARE(full, fullRows);
        }
    }

    void scaleTicks_data()
    {
        QTest::addColumn<float>("min");
        QTest::addColumn<float>("max");
        QTest::addColumn<int>("height");
        QTest::addColumn<QVector<int>>("rows");
        QTest::newRow("33-only-max") << 10.0f << 20.0f << 33 << QVector<int>{1};
        QTest::newRow("34-min-and-max") << 10.0f << 20.0f << 34 << QVector<int>{33, 1};
        QTest::newRow("68-two-and-max") << 10.0f << 20.0f << 68 << QVector<int>{67, 33, 1};
        QTest::newRow("zero-height") << 10.0f << 20.0f << 0 << QVector<int>{1};
        QTest::newRow("one-price") << 5.0f << 5.0f << 100 << QVector<int>{50};
    }

    void scaleTicks()
    {
        QFETCH(float, min);
        QFETCH(float, max);
        QFETCH(int, height);
        QFETCH(QVector<int>, rows);
        const auto ticks = Layer::scaleTicks(min, max, height);
        QVector<int> got;
        for (const auto &t : ticks)
            got.append(t.row);
        QCOMPARE(got, rows);
        QCOMPARE(ticks.first().value, double(rows.size() == 1 ? max : min));
        QCOMPARE(ticks.last().value, double(max));
        if (height == 68) // not snapped to tidy values: min + (max - min) / 2
            QCOMPARE(ticks.at(1).value, 15.0);

        // Drawn on the same rows in the scale strip.
        if (height == 0)
            return;
        Chart chart(ChartType::Candle, 8, {bar(min, max, min, max), bar(min, max, min, max)});
        const QImage image = chart.paint(2, height);
        QVector<int> drawn;
        for (int y = height - 1; y >= 0; --y)
            if (at(image, 2 * 8 + 1, y) == kNumbers)
                drawn.append(y);
        QCOMPARE(drawn, rows);
    }

    void pointerBoxOnlyOverBars()
    {
        Chart chart(ChartType::Candle, 8,
                    {bar(50, 100, 0, 50), bar(20, 90, 10, 60), bar(50, 60, 40, 55)});
        const QImage plain = chart.paint(25);
        chart.canvas.setPointerInfoMode(true);
        chart.geometry.setPointerX(100); // bar 12 of 3: past the last bar
        QImage past = chart.paint(25);
        // Only the pointer line is drawn there.
        for (int y = 0; y < 100; ++y)
            past.setPixel(100, y, plain.pixel(100, y));
        QCOMPARE(past, plain);

        chart.geometry.setPointerX(9); // over bar 1
        QVERIFY(chart.paint(25) != plain);
        QCOMPARE(ChartLayer::pointerText(chart.series->bar(1)),
                 QStringLiteral("high:\t90\nopen:\t20\nclose:\t60\nlow:\t10"));
    }

    void degenerateSeries()
    {
        // One price: a flat line across the middle, and an empty range.
        for (ChartType type :
             {ChartType::Candle, ChartType::Bar, ChartType::Line, ChartType::Empty}) {
            Chart chart(type, 8, {bar(5, 5, 5, 5), bar(5, 5, 5, 5), bar(5, 5, 5, 5)});
            const QImage image = chart.paint(3);
            QCOMPARE(chart.price->max(), chart.price->min());
            if (type == ChartType::Candle || type == ChartType::Bar)
                QCOMPARE(at(image, 8, 50), kUpBorder);
        }

        // No series at all: the layer meets "Null handle" and is left out.
        ChartGeometry geometry;
        ViewCanvas canvas(&geometry);
        Layer *price = createPriceLayer(ChartType::Candle, &canvas);
        canvas.addLayer(price);
        canvas.setSize(QSize(200, 100));
        QImage image(canvas.size(), QImage::Format_RGB32);
        QPainter painter(&image);
        canvas.paint(painter);
        QCOMPARE(at(image, 50, 50), canvas.colors().background);
        QCOMPARE(price->numberOfQuotes(), 0);
        QCOMPARE(price->close(3), 0.0f);
        QVERIFY(price->close().isEmpty());
    }

    // A paired series is matched to the chart's bars by date: a day it lacks shows its last
    // close before, a bar before its first day shows nothing; it is drawn on its own range.
    void pairFollowsTheChartsDays()
    {
        Chart chart(ChartType::Line, 8, {});
        const QDate monday(2012, 9, 3);
        for (int d = 0; d < 5; ++d)
            chart.series->appendBar(QuoteBar(monday.addDays(d), 10, 10, 10, 10 + d, 1));
        OrdaneData::ReaderH other = OrdaneData::ReaderH::create();
        other->appendBar(QuoteBar(monday.addDays(1), 500, 500, 500, 500, 1));
        other->appendBar(QuoteBar(monday.addDays(3), 700, 700, 700, 700, 1));
        auto *pair = new PairLayer(other, &chart.canvas);
        chart.canvas.addLayer(pair);
        QVector<float> aligned = pair->alignedCloses();
        QVERIFY(std::isnan(aligned.at(0)));
        QCOMPARE(aligned.mid(1), QVector<float>({500, 500, 700, 700}));
        chart.paint(5);
        QCOMPARE(pair->min(), 500.0f);
        QCOMPARE(pair->max(), 700.0f);
        // The chart's frame is the pair's too.
        chart.series->setTimeFrame(OrdaneData::Week);
        emit chart.series->dataChanged();
        QCOMPARE(other->timeFrame(), int(OrdaneData::Week));
        QCOMPARE(pair->alignedCloses(), QVector<float>({700}));
    }
};

QTEST_MAIN(TestLayers)
#include "test_layers.moc"
