// Figures drawn on charts: where their anchors land, how each kind is laid out and hit, the
// marks of a selected figure, keeping them per symbol, and drawing them with the mouse.
//
// Model cases use a plot whose rows come out whole: with the range 0 .. H and a plot H pixels
// high, price p sits on row H - p; bar i sits on column (i - first) * zoom.

#include "data/home.h"
#include "data/reader.h"
#include "support/testsettings.h"
#include "view/chartgeometry.h"
#include "view/chartlayer.h"
#include "view/chartrenderer.h"
#include "view/chartsession.h"
#include "view/computedlayer.h"
#include "view/drawobjects/drawingfile.h"
#include "view/drawobjects/drawobjectslayer.h"
#include "view/drawobjects/figuregeometry.h"
#include "view/ui/chartview.h"
#include "view/ui/drawingtool.h"
#include "view/ui/drawobjectproperties.h"
#include "view/ui/drawobjectsdialog.h"
#include "view/ui/viewoperationspanel.h"
#include "view/ui/viewscontainer.h"
#include "widgets/colorbutton.h"

#include <QComboBox>
#include <QDoubleSpinBox>
#include <QListWidget>
#include <QMenu>
#include <QPainter>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QToolButton>
#include <QtTest>

#include <cmath>

using namespace OrdaneView;

namespace {
const QColor kBackground(0, 0, 0), kFigure(255, 0, 255);
const Qt::PenStyle kStyles[] = {Qt::SolidLine, Qt::DashLine, Qt::DotLine};

// n weekday bars from Monday 3 September 2012, each spanning 0 .. 100.
OrdaneData::ReaderH weekdays(int n, const QString &symbol = QString())
{
    OrdaneData::ReaderH series = OrdaneData::ReaderH::create();
    QDate day(2012, 9, 3);
    for (int i = 0; i < n; ++i) {
        series->appendBar(QuoteBar(day, 50, 100, 0, 50, 1000));
        day = day.addDays(day.dayOfWeek() == 5 ? 3 : 1);
    }
    series->setSymbol(symbol);
    return series;
}

Anchor on(const OrdaneData::ReaderH &series, int bar, float price)
{
    return {QDateTime(series->bar(bar).date(), QTime(0, 0)), price};
}

DrawObject *figure(DrawObject::Type type, const Anchor &a, const Anchor &b, QObject *parent)
{
    DrawObject *object = DrawObject::create(type, parent).release();
    object->setAnchor(0, a);
    object->setAnchor(1, b);
    object->setColor(kFigure);
    return object;
}

// A price chart with the drawing layer: a plot 400 pixels wide and 100 high, whose range the
// bars (0 .. 100) set when it is painted.
struct Chart
{
    ChartGeometry geometry;
    ViewCanvas canvas{&geometry};
    DrawObjectsLayer *drawings = nullptr;

    explicit Chart(const OrdaneData::ReaderH &series)
    {
        ViewColors colors = ViewColors::fallback();
        colors.background = kBackground;
        canvas.setColors(colors);
        Layer *price = createPriceLayer(ChartType::Empty, &canvas);
        canvas.addLayer(price);
        canvas.setMasterLayer(price);
        drawings = new DrawObjectsLayer(&canvas);
        canvas.addLayer(drawings);
        canvas.setReader(series);
        canvas.setSize(QSize(400 + ViewCanvas::kRightMargin, 100));
    }
    QImage paint()
    {
        QImage image(canvas.size(), QImage::Format_RGB32);
        QPainter painter(&image);
        canvas.paint(painter);
        return image;
    }
};

// The first and last columns of the plot where a row is not background; -1, -1 when none.
QPair<int, int> litSpan(const QImage &image, int row, int plotWidth)
{
    int first = -1, last = -1;
    for (int x = 0; x < plotWidth; ++x) {
        if (QColor(image.pixel(x, row)) != kBackground) {
            if (first < 0)
                first = x;
            last = x;
        }
    }
    return {first, last};
}

// Bar 5 at price 150 and bar 15 at price 100 on a plot 400 x 200 with the range 0 .. 200 and
// 10 pixels per bar: the anchors' pixels are (50, 50) and (150, 100).
AnchorMapping modelMapping()
{
    return AnchorMapping(weekdays(30)->bars(), OrdaneData::Day, 0, 10, 0, 200, 400, 200);
}

DrawObject *modelFigure(DrawObject::Type type, QObject *parent)
{
    const OrdaneData::ReaderH series = weekdays(30);
    return figure(type, on(series, 5, 150), on(series, 15, 100), parent);
}

// A computed layer that computes nothing, to stand for an indicator over the prices.
class StillIndicator : public ComputedLayer
{
public:
    using ComputedLayer::ComputedLayer;
    void init() override {}
    void start() override {}
    void deinit() override {}
    QString name() const override { return QStringLiteral("Still"); }
};
} // namespace

class TestDrawObjects : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanup();
    void figuresFollowTheirBars_data();
    void figuresFollowTheirBars();
    void rayEnd_data();
    void rayEnd();
    void verticalRayReachesTheTop();
    void daysMissingFromAWeeklySeries_data();
    void daysMissingFromAWeeklySeries();
    void barsBeyondTheLastRoundTrip_data();
    void barsBeyondTheLastRoundTrip();
    void hitTest_data();
    void hitTest();
    void selectedMarks_data();
    void selectedMarks();
    void keptPerSymbol();
    void unreadableFilesAreIgnored_data();
    void unreadableFilesAreIgnored();
    void sessionDrawsFiguresAboveIndicators();
    void drawWithTheMouse();
    void editWithTheMouse();
    void objectsDialog();

private:
    QTemporaryDir mHome;
};

void TestDrawObjects::initTestCase()
{
    QVERIFY(TestSupport::useTestHome(mHome.path()));
}

void TestDrawObjects::cleanup()
{
    QDir(DrawingFile::folder()).removeRecursively();
}

void TestDrawObjects::figuresFollowTheirBars_data()
{
    QTest::addColumn<int>("first");
    QTest::addColumn<int>("zoom");
    QTest::addColumn<int>("height");
    QTest::newRow("first-page") << 0 << 8 << 100;
    QTest::newRow("scrolled") << 6 << 8 << 100;
    QTest::newRow("scrolled-and-zoomed-in") << 6 << 16 << 100;
    QTest::newRow("zoomed-out") << 0 << 4 << 100;
    QTest::newRow("rescaled-to-a-taller-plot") << 6 << 8 << 300;
}

void TestDrawObjects::figuresFollowTheirBars()
{
    QFETCH(int, first);
    QFETCH(int, zoom);
    QFETCH(int, height);
    const OrdaneData::ReaderH series = weekdays(80);
    Chart chart(series);
    chart.geometry.setZoom(zoom);
    chart.geometry.setFirstVisible(first);
    chart.canvas.setSize(QSize(chart.canvas.size().width(), height));
    // Level at 30 from bar 10 to bar 20: 30% of the height up from the bottom.
    chart.drawings->add(std::unique_ptr<DrawObject>(
        figure(DrawObject::Line, on(series, 10, 30), on(series, 20, 30), nullptr)));
    const int row = height * 7 / 10;
    const QImage image = chart.paint();
    QVERIFY(litSpan(image, row - 2, chart.canvas.plotWidth()).first < 0);
    const QPair<int, int> span = litSpan(image, row, chart.canvas.plotWidth());
    // The pen's square cap reaches half a pixel beyond each end.
    QVERIFY2(qAbs(span.first - (10 - first) * zoom) <= 1, qPrintable(QString::number(span.first)));
    QVERIFY2(qAbs(span.second - (20 - first) * zoom) <= 1,
             qPrintable(QString::number(span.second)));
}

void TestDrawObjects::rayEnd_data()
{
    QTest::addColumn<QPointF>("first");
    QTest::addColumn<QPointF>("second");
    QTest::addColumn<QPointF>("end");
    // The plot is 400 x 300.
    QTest::newRow("vertical-up") << QPointF(100, 200) << QPointF(100, 100) << QPointF(101, 0);
    QTest::newRow("vertical-down") << QPointF(100, 100) << QPointF(100, 200) << QPointF(101, 300);
    QTest::newRow("horizontal") << QPointF(50, 100) << QPointF(150, 100) << QPointF(400, 102.5);
    QTest::newRow("rising-to-the-top") << QPointF(0, 300) << QPointF(100, 200) << QPointF(300, 0);
    QTest::newRow("leftward") << QPointF(300, 100) << QPointF(200, 150) << QPointF(0, 250);
    QTest::newRow("one-pixel") << QPointF(100, 100) << QPointF(100, 100) << QPointF(300, 300);
    QTest::newRow("outside-heading-away")
        << QPointF(300, 100) << QPointF(500, 100) << QPointF(500, 100);
}

void TestDrawObjects::rayEnd()
{
    QFETCH(QPointF, first);
    QFETCH(QPointF, second);
    QFETCH(QPointF, end);
    const QPointF got = FigureGeometry::rayEnd(first, second, QRectF(0, 0, 400, 300));
    QVERIFY(std::isfinite(got.x()) && std::isfinite(got.y()));
    QVERIFY2(qAbs(got.x() - end.x()) < 1e-9 && qAbs(got.y() - end.y()) < 1e-9,
             qPrintable(QStringLiteral("%1, %2").arg(got.x()).arg(got.y())));
}

void TestDrawObjects::verticalRayReachesTheTop()
{
    const OrdaneData::ReaderH series = weekdays(80);
    Chart chart(series);
    // Bar 10 (column 80) from price 20 up to 40: rows 80 to 60, carried on to row 0.
    chart.drawings->add(std::unique_ptr<DrawObject>(
        figure(DrawObject::Ray, on(series, 10, 20), on(series, 10, 40), nullptr)));
    const QImage image = chart.paint();
    for (int row : {2, 30})
        QVERIFY2(litSpan(image, row, chart.canvas.plotWidth()).first >= 79 &&
                     litSpan(image, row, chart.canvas.plotWidth()).second <= 85,
                 qPrintable(QString::number(row)));
}

void TestDrawObjects::daysMissingFromAWeeklySeries_data()
{
    QTest::addColumn<QDate>("day");
    QTest::addColumn<int>("index");
    // Weekly bars dated Fridays 7 September .. 12 October 2012 are indices 0 .. 5.
    QTest::newRow("the-bars-own-day") << QDate(2012, 9, 21) << 2;
    QTest::newRow("a-tuesday-of-its-week") << QDate(2012, 9, 18) << 2;
    QTest::newRow("a-sunday-goes-to-the-next-bar") << QDate(2012, 9, 23) << 3;
    QTest::newRow("before-the-first-bar") << QDate(2012, 8, 1) << 0;
    QTest::newRow("the-weekend-after-the-last-bar") << QDate(2012, 10, 13) << 6;
    QTest::newRow("the-week-after-the-last-bar") << QDate(2012, 10, 17) << 6;
    QTest::newRow("five-weeks-after-the-last-bar") << QDate(2012, 11, 14) << 10;
}

void TestDrawObjects::daysMissingFromAWeeklySeries()
{
    QFETCH(QDate, day);
    QFETCH(int, index);
    const OrdaneData::ReaderH series = weekdays(30);
    series->toWeeks();
    QCOMPARE(series->count(), 6);
    const AnchorMapping mapping(series->bars(), OrdaneData::Week, 1, 8, 0, 100, 400, 100);
    QCOMPARE(mapping.indexOf(day), index);
    QCOMPARE(mapping.toPixel({QDateTime(day, QTime(0, 0)), 25}), QPoint((index - 1) * 8, 75));
}

void TestDrawObjects::barsBeyondTheLastRoundTrip_data()
{
    QTest::addColumn<int>("frame");
    QTest::newRow("days") << int(OrdaneData::Day);
    QTest::newRow("weeks") << int(OrdaneData::Week);
    QTest::newRow("months") << int(OrdaneData::Month);
    QTest::newRow("quarters") << int(OrdaneData::Quarter);
    QTest::newRow("years") << int(OrdaneData::Year);
}

void TestDrawObjects::barsBeyondTheLastRoundTrip()
{
    QFETCH(int, frame);
    const OrdaneData::ReaderH series = weekdays(700);
    series->setTimeFrame(frame);
    const AnchorMapping mapping(series->bars(), frame, 0, 8, 0, 100, 400, 100);
    QDate before;
    for (int i = 0; i < series->count() + 40; ++i) {
        const QDate day = mapping.dateOf(i);
        QVERIFY2(day > before && day.dayOfWeek() <= 5, qPrintable(day.toString(Qt::ISODate)));
        QCOMPARE(mapping.indexOf(day), i);
        // Every day up to a bar's goes to that bar.
        if (before.isValid())
            QCOMPARE(mapping.indexOf(before.addDays(1)), i);
        before = day;
    }
}

void TestDrawObjects::hitTest_data()
{
    QTest::addColumn<DrawObject::Type>("type");
    QTest::addColumn<QPointF>("point");
    QTest::addColumn<bool>("hit");
    // Anchors at (50, 50) and (150, 100).
    const struct
    {
        const char *name;
        DrawObject::Type type;
        QPointF on, near, beyond, away;
    } cases[] = {
        {"line", DrawObject::Line, {100, 75}, {100, 77}, {100, 85}, {300, 150}},
        // The extension beyond the second anchor.
        {"ray", DrawObject::Ray, {250, 150}, {250, 152}, {250, 160}, {100, 150}},
        // The arc centred on (50, 100) with radii 100 and 50, at 45 degrees; away: its centre.
        {"arc", DrawObject::Arc, {120.71, 64.64}, {120.71, 62.64}, {120.71, 54.64}, {50, 100}},
        // Away: the inside.
        {"ellipse", DrawObject::Ellipse, {100, 50}, {100, 48}, {100, 42}, {100, 75}},
        {"rectangle", DrawObject::Rect, {100, 50}, {100, 52}, {100, 58}, {300, 150}},
        // The base from (50, 50) to the third corner (250, 50).
        {"triangle", DrawObject::Triangle, {150, 50}, {150, 48}, {150, 42}, {150, 150}},
    };
    for (const auto &c : cases) {
        const QByteArray name(c.name);
        QTest::newRow(name + "-on-the-outline") << c.type << c.on << true;
        QTest::newRow(name + "-two-pixels-off") << c.type << c.near << true;
        QTest::newRow(name + "-beyond-the-tolerance") << c.type << c.beyond << false;
        QTest::newRow(name + "-far-off") << c.type << c.away << false;
        QTest::newRow(name + "-second-anchor") << c.type << QPointF(152, 103) << true;
    }
}

void TestDrawObjects::hitTest()
{
    QFETCH(DrawObject::Type, type);
    QFETCH(QPointF, point);
    QFETCH(bool, hit);
    QObject owner;
    const DrawObject *object = modelFigure(type, &owner);
    QCOMPARE(FigureGeometry::hitTest(*object, modelMapping(), point), hit);
}

void TestDrawObjects::selectedMarks_data()
{
    QTest::addColumn<DrawObject::Type>("type");
    QTest::addColumn<bool>("selected");
    QTest::addColumn<bool>("marked");
    for (int t = 0; t < DrawObject::kTypeCount; ++t) {
        const auto type = DrawObject::Type(t);
        const QByteArray name = DrawObject::displayName(type).toLower().toUtf8();
        QTest::newRow(name + "-selected") << type << true << (type != DrawObject::Triangle);
        QTest::newRow(name + "-not-selected") << type << false << false;
    }
}

void TestDrawObjects::selectedMarks()
{
    QFETCH(DrawObject::Type, type);
    QFETCH(bool, selected);
    QFETCH(bool, marked);
    QObject owner;
    DrawObject *object = modelFigure(type, &owner);
    object->setSelected(selected);
    QImage image(400, 200, QImage::Format_RGB32);
    image.fill(kBackground);
    QPainter painter(&image);
    object->draw(painter, modelMapping());
    painter.end();
    // Two pixels off each anchor, diagonally: inside a 6-pixel mark, clear of every outline.
    for (const QPoint &p : {QPoint(48, 52), QPoint(152, 102)})
        QCOMPARE(QColor(image.pixel(p)), marked ? kFigure : kBackground);
}

void TestDrawObjects::keptPerSymbol()
{
    const OrdaneData::ReaderH aaa = weekdays(60, QStringLiteral("AAA"));
    {
        Chart chart(aaa);
        for (int t = 0; t < DrawObject::kTypeCount; ++t) {
            DrawObject *object =
                chart.drawings->add(DrawObject::create(DrawObject::Type(t), nullptr));
            object->setAnchor(0, on(aaa, t, 10.25f + t));
            object->setAnchor(1, on(aaa, 30 + t, 1234.5678f / (t + 1)));
            object->setColor(QColor::fromHsv(t * 50, 255, 255));
            object->setWidth(1 + t * 0.5);
            object->setPenStyle(kStyles[t % 3]);
        }
        chart.drawings->objects().first()->setSelected(true);
        QVERIFY(chart.drawings->store());
        QVERIFY(QFile::exists(mHome.filePath(QStringLiteral("Drawings/AAA.json"))));

        // Another symbol has figures of its own: none yet.
        chart.canvas.setReader(weekdays(60, QStringLiteral("BBB")));
        QCOMPARE(chart.drawings->symbol(), QStringLiteral("BBB"));
        QVERIFY(chart.drawings->objects().isEmpty());
    }

    // A chart made afresh, as after a restart, gets them back.
    Chart chart(weekdays(60, QStringLiteral("AAA")));
    const QList<DrawObject *> &objects = chart.drawings->objects();
    QCOMPARE(objects.size(), int(DrawObject::kTypeCount));
    for (int t = 0; t < objects.size(); ++t) {
        const DrawObject *object = objects.at(t);
        QCOMPARE(object->type(), DrawObject::Type(t));
        QCOMPARE(object->anchor(0), on(aaa, t, 10.25f + t));
        QCOMPARE(object->anchor(1), on(aaa, 30 + t, 1234.5678f / (t + 1)));
        QCOMPARE(object->color().rgb(), QColor::fromHsv(t * 50, 255, 255).rgb());
        QCOMPARE(object->width(), 1 + t * 0.5);
        QCOMPARE(object->penStyle(), kStyles[t % 3]);
        QVERIFY(!object->isSelected());
    }

    // Without figures the file goes.
    chart.drawings->clear();
    QVERIFY(chart.drawings->store());
    QVERIFY(!QFile::exists(mHome.filePath(QStringLiteral("Drawings/AAA.json"))));
}

void TestDrawObjects::unreadableFilesAreIgnored_data()
{
    QTest::addColumn<QString>("fixture");
    QTest::addColumn<QString>("warning");
    QTest::addColumn<QStringList>("left");
    const QString ignored = QStringLiteral("Drawings ignored: .*");
    QTest::newRow("not-json") << "not_json.json" << ignored + QLatin1String("not a drawing file")
                              << QStringList();
    QTest::newRow("no-figure-list")
        << "no_figure_list.json" << ignored + QLatin1String("no list of figures") << QStringList();
    QTest::newRow("unknown-type") << "unknown_type.json"
                                  << "1 figure.* left out"
                                  << QStringList{QStringLiteral("Line, 2, dash")};
    // The ellipse gives no width or style: it gets the defaults.
    QTest::newRow("bad-anchor-date")
        << "bad_anchor_date.json"
        << "1 figure.* left out" << QStringList{QStringLiteral("Ellipse, 1, solid")};
    QTest::newRow("a-folder-in-its-place")
        << QString() << ignored + QLatin1String("CCC.json") << QStringList();
}

void TestDrawObjects::unreadableFilesAreIgnored()
{
    QFETCH(QString, fixture);
    QFETCH(QString, warning);
    QFETCH(QStringList, left);
    QVERIFY(QDir().mkpath(DrawingFile::folder()));
    const QString path = DrawingFile::pathFor(QStringLiteral("CCC"));
    if (fixture.isEmpty())
        QVERIFY(QDir().mkpath(path));
    else
        QVERIFY(QFile::copy(QFINDTESTDATA(QStringLiteral("../data/drawobjects/") + fixture), path));
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression(warning));
    Chart chart(weekdays(60, QStringLiteral("CCC")));
    QStringList figures;
    for (const DrawObject *object : chart.drawings->objects())
        figures << QStringLiteral("%1, %2, %3")
                       .arg(object->displayName())
                       .arg(object->width())
                       .arg(QLatin1String(object->penStyle() == Qt::SolidLine ? "solid" : "dash"));
    QCOMPARE(figures, left);
    chart.paint(); // and the chart still paints
}

void TestDrawObjects::sessionDrawsFiguresAboveIndicators()
{
    ChartSession session;
    DrawObjectsLayer *drawings = session.drawObjectsLayer();
    auto *indicator = new StillIndicator(session.chart());
    session.install(session.chart(), indicator);
    QCOMPARE(session.chart()->layers().last(), drawings);
    QVERIFY(session.chart()->layers().indexOf(indicator) <
            session.chart()->layers().indexOf(drawings));

    // Without a series there is nothing to pin the figure to, and nothing is drawn.
    const OrdaneData::ReaderH series = weekdays(60);
    // Two pixels wide, its outline covers whole pixels in its own colour.
    drawings
        ->add(std::unique_ptr<DrawObject>(
            figure(DrawObject::Rect, on(series, 20, 20), on(series, 40, 80), nullptr)))
        ->setWidth(2);
    const auto figurePixels = [&session] {
        const QImage image = renderChart(session, {QSize(600, 300), 0, {}});
        int n = 0;
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x)
                n += QColor(image.pixel(x, y)) == kFigure;
        return n;
    };
    QCOMPARE(figurePixels(), 0);
    session.setReader(series);
    QVERIFY(figurePixels() > 100);
}

void TestDrawObjects::drawWithTheMouse()
{
    ViewsContainer container;
    container.resize(900, 600);
    container.show();
    QVERIFY(QTest::qWaitForWindowExposed(&container));
    container.slotFetchChartData(QStringLiteral("MSFT"));
    ChartView *chart = container.chartView();
    chart->repaint(); // the price range the anchors are read against
    DrawObjectsLayer *drawings = container.session()->drawObjectsLayer();
    QCOMPARE(drawings->symbol(), QStringLiteral("MSFT"));

    auto *draw =
        container.panel()->findChild<QToolButton *>(QStringLiteral("ViewOperationsPanelDraw"));
    QVERIFY(draw && draw->menu());
    QCOMPARE(draw->menu()->actions().size(), int(DrawObject::kTypeCount));
    draw->menu()->actions().at(DrawObject::Line)->trigger();
    QVERIFY(chart->drawingTool()->isDrawing());
    QVERIFY(draw->isChecked());

    // Columns on whole bars, so that the bar under each end is plain.
    const int zoom = container.geometry()->zoom(), first = container.geometry()->firstVisible();
    const QPoint from(20 * zoom, 60), to(40 * zoom, 140);
    QTest::mousePress(chart, Qt::LeftButton, {}, from);
    QMouseEvent drag(QEvent::MouseMove, to, Qt::NoButton, Qt::LeftButton, {});
    QApplication::sendEvent(chart, &drag);
    QCOMPARE(drawings->objects().size(), 1);
    QVERIFY(drawings->objects().first()->isSelected());
    QTest::mouseRelease(chart, Qt::LeftButton, {}, to);

    QCOMPARE(drawings->objects().size(), 1);
    const DrawObject *line = drawings->objects().first();
    QCOMPARE(line->type(), DrawObject::Line);
    QVERIFY(!line->isSelected());
    QCOMPARE(line->anchor(0).date.date(), container.reader()->bar(first + 20).date());
    QCOMPARE(line->anchor(1).date.date(), container.reader()->bar(first + 40).date());
    const AnchorMapping mapping = AnchorMapping::of(*chart->canvas());
    QCOMPARE(mapping.toPixel(line->anchor(0)), from);
    QCOMPARE(mapping.toPixel(line->anchor(1)), to);
    QVERIFY(QFile::exists(DrawingFile::pathFor(QStringLiteral("MSFT"))));
    // The chart's pan did not take the drag.
    QCOMPARE(container.geometry()->firstVisible(), first);

    // A click without a drag leaves nothing; Escape ends drawing.
    QTest::mouseClick(chart, Qt::LeftButton, {}, QPoint(10 * zoom, 100));
    QCOMPARE(drawings->objects().size(), 1);
    QTest::keyClick(chart, Qt::Key_Escape);
    QVERIFY(!chart->drawingTool()->isDrawing());
    QVERIFY(!draw->isChecked());
}

void TestDrawObjects::editWithTheMouse()
{
    ViewsContainer container;
    container.resize(900, 600);
    container.show();
    QVERIFY(QTest::qWaitForWindowExposed(&container));
    container.slotFetchChartData(QStringLiteral("MSFT"));
    ChartView *chart = container.chartView();
    chart->repaint();
    DrawObjectsLayer *drawings = container.session()->drawObjectsLayer();
    ChartGeometry *geometry = container.geometry();
    const int zoom = geometry->zoom();
    // Scrolled back a little, so that the chart can pan either way.
    geometry->setFirstVisible(geometry->firstVisible() - 30);
    chart->repaint();
    const AnchorMapping mapping = AnchorMapping::of(*chart->canvas());
    const QPoint a(20 * zoom, 60), b(40 * zoom, 60);
    DrawObject *line = drawings->add(DrawObject::create(DrawObject::Line));
    line->setAnchor(0, mapping.toAnchor(a));
    line->setAnchor(1, mapping.toAnchor(b));
    const int first = geometry->firstVisible();

    // A click on the outline selects the figure.
    QTest::mouseClick(chart, Qt::LeftButton, {}, QPoint(30 * zoom, 61));
    QVERIFY(line->isSelected());
    QCOMPARE(geometry->firstVisible(), first);

    // Dragging an anchor moves it, not the chart.
    const QPoint moved(25 * zoom, 120);
    QTest::mousePress(chart, Qt::LeftButton, {}, b + QPoint(2, -2));
    QMouseEvent drag(QEvent::MouseMove, moved, Qt::NoButton, Qt::LeftButton, {});
    QApplication::sendEvent(chart, &drag);
    QTest::mouseRelease(chart, Qt::LeftButton, {}, moved);
    QCOMPARE(geometry->firstVisible(), first);
    QCOMPARE(mapping.toPixel(line->anchor(1)), moved);
    QCOMPARE(mapping.toPixel(line->anchor(0)), a);

    // A drag elsewhere pans, and clears the selection.
    QTest::mousePress(chart, Qt::LeftButton, {}, QPoint(60 * zoom, 200));
    QMouseEvent pan(QEvent::MouseMove, QPoint(70 * zoom, 200), Qt::NoButton, Qt::LeftButton, {});
    QApplication::sendEvent(chart, &pan);
    QTest::mouseRelease(chart, Qt::LeftButton, {}, QPoint(70 * zoom, 200));
    QCOMPARE(geometry->firstVisible(), first - 10);
    QVERIFY(!line->isSelected());

    // Delete removes the selected figure; with none selected it removes nothing.
    QTest::keyClick(chart, Qt::Key_Delete);
    QCOMPARE(drawings->objects().size(), 1);
    drawings->select(line);
    QTest::keyClick(chart, Qt::Key_Delete);
    QVERIFY(drawings->objects().isEmpty());
    QVERIFY(!QFile::exists(DrawingFile::pathFor(QStringLiteral("MSFT"))));
}

void TestDrawObjects::objectsDialog()
{
    const OrdaneData::ReaderH series = weekdays(60);
    Chart chart(series);
    for (DrawObject::Type type : {DrawObject::Rect, DrawObject::Ray, DrawObject::Triangle})
        chart.drawings->add(std::unique_ptr<DrawObject>(
            figure(type, on(series, 5, 10), on(series, 15, 20), nullptr)));
    DrawObject *ray = chart.drawings->objects().at(1);

    DrawObjectsDialog dialog(chart.drawings);
    QListWidget *list = dialog.list();
    QStringList names;
    for (int i = 0; i < list->count(); ++i)
        names << list->item(i)->text();
    QCOMPARE(names, (QStringList{QStringLiteral("Rectangle"), QStringLiteral("Ray"),
                                 QStringLiteral("Triangle")}));

    // Pressing an entry selects its figure on the chart.
    dialog.slotItemPressed(list->item(1));
    QCOMPARE(chart.drawings->selected(), ray);

    // The properties page of the figure applies on OK.
    {
        DrawObjectProperties properties(ray);
        auto *tabs = properties.findChild<QTabWidget *>();
        QVERIFY(tabs);
        QCOMPARE(tabs->tabText(0), QStringLiteral("Color&Style"));
        properties.colorButton()->setColor(QColor(0, 200, 0));
        properties.widthBox()->setValue(3);
        properties.styleBox()->setCurrentIndex(
            properties.styleBox()->findData(int(Qt::DashDotLine)));
        QCOMPARE(ray->color(), kFigure);
        properties.slotApply();
        QCOMPARE(ray->color(), QColor(0, 200, 0));
        QCOMPARE(ray->width(), 3.0);
        QCOMPARE(ray->penStyle(), Qt::DashDotLine);
    }

    // Remove takes the selected entry's figure away.
    list->setCurrentRow(1);
    dialog.slotRemove();
    QCOMPARE(chart.drawings->objects().size(), 2);
    QVERIFY(!chart.drawings->objects().contains(ray));
    QCOMPARE(list->count(), 2);
    QCOMPARE(list->item(1)->text(), QStringLiteral("Triangle"));
    // With no entry selected nothing goes.
    list->setCurrentRow(-1);
    dialog.slotRemove();
    QCOMPARE(chart.drawings->objects().size(), 2);
}

QTEST_MAIN(TestDrawObjects)
#include "test_drawobjects.moc"
