// The candle pattern panel and the layer that marks the patterns on the price chart: what
// the panel's controls send and keep between runs, which mark each bar gets under the
// chosen patterns, strengths and blending, and where the marks are drawn.

#include "data/reader.h"
#include "indicators/ui/candlesexpertpanel.h"
#include "support/testsettings.h"
#include "view/candlespatternlayer.h"
#include "view/chartgeometry.h"
#include "view/chartlayer.h"
#include "view/viewcanvas.h"

#include <QCheckBox>
#include <QPainter>
#include <QRandomGenerator>
#include <QSettings>
#include <QSignalSpy>
#include <QTreeWidget>
#include <QtTest>

#include <array>

using namespace OrdaneView;
using CandlePattern::Pattern;

namespace {

// The list order, written out independently of the classifier's table.
const char kListOrder[] = "Doji Riksha Dragon Gravestone Hammer HangingMan BeltHold Engulfing "
                          "EngulfingCross Harami HaramiCross PiercingLine DarkCloudCover "
                          "MorningStar EveningStar MorningDojiStar EveningDojiStar TriStar "
                          "AbandonedBaby ThreeWhiteSoldiers ThreeBlackCrows ThreeIdenticalCrows";

QuoteBar bar(float o, float h, float l, float c)
{
    static QDate day(2014, 1, 1);
    day = day.addDays(1);
    return QuoteBar(day, o, h, l, c, 1000);
}

// A fall of twelve plain bars (bodies a third of the range, long upper shadows: no pattern
// alone, in pairs, blended or in threes), then at 12..14 a morning abandoned baby whose
// third bar is a low-grade hammer and whose middle bar is a doji.
constexpr int kBabyEnd = 14;
QVector<QuoteBar> babySeries()
{
    QVector<QuoteBar> bars;
    for (int k = 0; k < 12; ++k) {
        const float p = 80 - 2 * k;
        bars << bar(p + 0.5f, p + 1.5f, p - 1.5f, p - 0.5f);
    }
    bars << bar(57, 57.2f, 52.8f, 53);     // long falling body
    bars << bar(50, 50.5f, 49.5f, 50.01f); // doji, its range below both neighbours
    bars << bar(53.1f, 54, 51, 54);        // rising, body 0.3 of the range, no upper shadow
    return bars;
}

// Bars of every kind of shape in a random walk, so that patterns of each span turn up.
QVector<QuoteBar> randomSeries(int n, quint32 seed)
{
    QRandomGenerator random(seed);
    QVector<QuoteBar> bars;
    double price = 100;
    for (int i = 0; i < n; ++i) {
        const double range = 1 + random.bounded(3.0);
        const double share = std::array<double, 4>{0.01, 0.25, 0.8, 0.95}[random.bounded(4)];
        const double dir = random.bounded(2) ? 1 : -1;
        const double open = price + random.bounded(0.6) - 0.3;
        const double close = open + dir * share * range;
        const double low = std::min(open, close) - random.bounded(range - share * range);
        bars << bar(float(open), float(low + range), float(low), float(close));
        price = std::max(close, 10.0);
    }
    return bars;
}

// A candle chart with the pattern layer over it, shown, in flat colours.
struct Chart
{
    OrdaneView::ChartGeometry geometry;
    ViewCanvas canvas{&geometry};
    OrdaneData::ReaderH series = OrdaneData::ReaderH::create();
    Layer *price = createPriceLayer(ChartType::Candle, &canvas);
    CandlesPatternLayer *patterns = new CandlesPatternLayer(&canvas);

    Chart(const QVector<QuoteBar> &bars, int zoom = 16)
    {
        geometry.setZoom(zoom);
        ViewColors c = ViewColors::fallback();
        c.threeD = false;
        canvas.setColors(c);
        canvas.addLayer(price);
        canvas.setMasterLayer(price);
        canvas.addLayer(patterns);
        patterns->setShown(true);
        for (const QuoteBar &b : bars)
            series->appendBar(b);
        canvas.setReader(series);
    }
    QImage paint(int width)
    {
        canvas.setSize(QSize(width + ViewCanvas::kRightMargin, 300));
        QImage image(canvas.size(), QImage::Format_RGB32);
        QPainter painter(&image);
        canvas.paint(painter);
        return image;
    }
};

// Pixels of column x above row `top` and below row `bottom` in none of the chart's own
// colours: what the marks painted there.
QPair<int, int> markPixels(const QImage &image, int x, int top, int bottom, const ViewColors &c)
{
    const QList<QRgb> chart{c.background.rgb(), c.upCandle.rgb(), c.downCandle.rgb(),
                            c.upCandleBorder.rgb(), c.downCandleBorder.rgb()};
    QPair<int, int> counts{0, 0};
    for (int y = 0; y < image.height(); ++y) {
        if (chart.contains(image.pixel(x, y)))
            continue;
        counts.first += y < top;
        counts.second += y > bottom;
    }
    return counts;
}

QCheckBox *box(const QWidget &panel, const char *role)
{
    return panel.findChild<QCheckBox *>(QStringLiteral("CandleGuruPanel") + QLatin1String(role));
}

// The first argument of each signal the spy caught.
QVariantList sent(const QSignalSpy &spy)
{
    QVariantList values;
    for (const QList<QVariant> &arguments : spy)
        values << arguments.value(0);
    return values;
}

} // namespace

class TestCandleGui : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { TestSupport::useTestSettings(); }
    void init() { QSettings().clear(); }

    void panelControlsSendAndKeepTheChoices();

    void marksFollowTheClassifier_data();
    void marksFollowTheClassifier();
    void plantedPatterns();
    void paintsAtEveryZoom_data();
    void paintsAtEveryZoom();
};

void TestCandleGui::panelControlsSendAndKeepTheChoices()
{
    CandlesExpertPanel panel;
    QTreeWidget *list = panel.findChild<QTreeWidget *>();
    // At a first start every pattern and grade is chosen (the signals below show which
    // boxes were checked), and only "Activate Guru" is enabled.
    QVERIFY(box(panel, "Guru")->isEnabled() && !box(panel, "Blending")->isEnabled());
    QVERIFY(!list->isEnabled() && !box(panel, "Strong")->isEnabled());
    QCOMPARE(list->selectionMode(), QAbstractItemView::ExtendedSelection);
    QStringList texts;
    for (int row = 0; row < list->topLevelItemCount(); ++row)
        texts << list->topLevelItem(row)->text(0);
    QCOMPARE(texts.join(QLatin1Char(' ')), QLatin1String(kListOrder));
    QCOMPARE(list->selectedItems().size(), 22);

    QSignalSpy required(&panel, &CandlesExpertPanel::required);
    QSignalSpy strength(&panel, &CandlesExpertPanel::strengthChanged);
    QSignalSpy blend(&panel, &CandlesExpertPanel::blendingChanged);
    QSignalSpy shown(&panel, &CandlesExpertPanel::showCandlePatterns);

    list->clearSelection();
    // Picked against the list order, sent in value order; "Riksha" is chosen like any other.
    for (const char *text : {"TriStar", "Hammer", "Riksha"})
        list->findItems(QLatin1String(text), Qt::MatchExactly).value(0)->setSelected(true);
    QCOMPARE(required.size(), 4);
    QVERIFY(required.first().at(0).value<QList<Pattern>>().isEmpty());
    const QList<Pattern> expected{CandlePattern::Riksha, CandlePattern::Hammer,
                                  CandlePattern::TriStar};
    QCOMPARE(required.last().at(0).value<QList<Pattern>>(), expected);

    box(panel, "Guru")->setChecked(true);
    QVERIFY(list->isEnabled() && box(panel, "Blending")->isEnabled());
    QVERIFY(box(panel, "Low")->isEnabled());
    // Each grade box sends the whole mask.
    for (const char *role : {"Strong", "Normal", "Low"})
        box(panel, role)->setChecked(false);
    box(panel, "Normal")->setChecked(true);
    for (bool on : {true, false, true})
        box(panel, "Blending")->setChecked(on);
    box(panel, "Guru")->setChecked(false);
    QVERIFY(!list->isEnabled() && !box(panel, "Blending")->isEnabled());
    QVERIFY(box(panel, "Guru")->isEnabled());
    box(panel, "Guru")->setChecked(true);
    QCOMPARE(sent(strength), (QVariantList{6, 4, 0, 2}));
    QCOMPARE(sent(blend), (QVariantList{true, false, true}));
    QCOMPARE(sent(shown), (QVariantList{true, false, true}));
    // Stored under the keys and in the forms earlier versions wrote.
    const QSettings stored;
    QCOMPARE(stored.value(QStringLiteral("CandleGuru/Patterns")).toString(),
             QStringLiteral("Riksha,Hammer,TriStar"));
    QCOMPARE(stored.value(QStringLiteral("CandleGuru/Strength")).toInt(), 2);
    QCOMPARE(stored.value(QStringLiteral("CandleGuru/Active")).toBool(), true);
    QCOMPARE(stored.value(QStringLiteral("CandleGuru/Blending")).toBool(), true);

    // The next panel starts with these choices; an empty choice is a choice too, and does
    // not fall back to every pattern.
    CandlesExpertPanel next;
    QVERIFY(next.isActive() && next.isBlending());
    QVERIFY(next.findChild<QTreeWidget *>()->isEnabled());
    QCOMPARE(next.strength(), 2);
    QCOMPARE(next.requiredPatterns(), expected);
    next.findChild<QTreeWidget *>()->clearSelection();
    QVERIFY(CandlesExpertPanel().requiredPatterns().isEmpty());

    // Squeezed to its smallest, the panel still shows several patterns.
    next.show();
    next.resize(next.minimumSizeHint());
    QVERIFY(QTest::qWaitForWindowExposed(&next));
    QTreeWidget *shownList = next.findChild<QTreeWidget *>();
    QVERIFY2(shownList->viewport()->height() >= 4 * shownList->sizeHintForRow(0),
             qPrintable(QString::number(shownList->viewport()->height())));
}

void TestCandleGui::marksFollowTheClassifier_data()
{
    QTest::addColumn<int>("mask");
    QTest::addColumn<bool>("blending");
    for (int mask : {7, 1, 2, 4, 5, 0})
        for (bool blending : {false, true})
            QTest::addRow("mask-%d%s", mask, blending ? "-blended" : "") << mask << blending;
}

// Against the classifier's whole-series results: a bar is marked exactly when one of its
// three results has an enabled grade, with the longest such result.
void TestCandleGui::marksFollowTheClassifier()
{
    QFETCH(int, mask);
    QFETCH(bool, blending);
    const QVector<QuoteBar> bars = randomSeries(1500, 7);
    Chart chart(bars);
    chart.patterns->setBlending(blending);
    chart.patterns->setStrength(mask);

    const auto all = CandlePattern::PatternSet::all();
    QVector<QVector<CandlePattern::Match>> bySpan;
    for (auto span :
         {CandlePattern::Span::Single, CandlePattern::Span::Pair, CandlePattern::Span::Triple})
        bySpan << CandlePattern::classify(bars, span, all, blending);
    int marked[4] = {0, 0, 0, 0};
    for (int i = 0; i < bars.size(); ++i) {
        int longest = 0;
        for (int span = 1; span <= 3; ++span) {
            const CandlePattern::Match &m = bySpan[span - 1][i];
            if (m.pattern != CandlePattern::None && (m.grade & mask))
                longest = span;
        }
        const CandlesPatternLayer::Mark mark = chart.patterns->markAt(i);
        QCOMPARE(mark.span, longest);
        if (longest)
            QCOMPARE(mark.match, bySpan[longest - 1][i]);
        ++marked[longest];
    }
    // The series holds marks of every span, and pairs that only blending finds, or the
    // comparison proves little.
    if (mask == 7)
        QVERIFY(marked[1] > 0 && marked[2] > 0 && marked[3] > 0);
    if (mask == 7 && blending)
        QVERIFY(bySpan[1] != CandlePattern::classify(bars, CandlePattern::Span::Pair, all));
}

void TestCandleGui::plantedPatterns()
{
    const QVector<QuoteBar> bars = babySeries();
    Chart chart(bars);
    CandlesPatternLayer *layer = chart.patterns;
    QCOMPARE(layer->patternAt(kBabyEnd), QStringLiteral("AbandonedBaby (Normal)"));
    QCOMPARE(layer->patternAt(kBabyEnd - 1), QStringLiteral("Doji (Strong)"));
    for (int i : {-1, 0, kBabyEnd - 3, kBabyEnd - 2, kBabyEnd + 1, 100000})
        QCOMPARE(layer->patternAt(i), QString());

    // Patterns outside the required set are never found.
    layer->setRequired({CandlePattern::Hammer, CandlePattern::Doji});
    QCOMPARE(layer->patternAt(kBabyEnd), QStringLiteral("Hammer (Low)"));
    layer->setRequired({CandlePattern::Dragon});
    for (int i = 0; i < bars.size(); ++i)
        QVERIFY(layer->markAt(i).isNull());

    // A new series replaces the marks.
    layer->setRequired(CandlePattern::allPatterns());
    chart.canvas.setReader(OrdaneData::ReaderH::create());
    QCOMPARE(layer->patternAt(kBabyEnd), QString());
}

void TestCandleGui::paintsAtEveryZoom_data()
{
    QTest::addColumn<int>("zoom");
    QTest::addColumn<bool>("upsideDown");
    for (int zoom : {1, 16, 128})
        for (bool upsideDown : {false, true})
            QTest::addRow("zoom-%d%s", zoom, upsideDown ? "-upside-down" : "")
                << zoom << upsideDown;
}

// The planted pattern, or upside down (p becomes 200 - p) its evening twin, scrolled into
// sight: the mark sits below a bullish bar and above a bearish one and spares the body;
// over the bar the pointer information names the pattern behind a dot in the grade's colour.
void TestCandleGui::paintsAtEveryZoom()
{
    QFETCH(int, zoom);
    QFETCH(bool, upsideDown);
    QVector<QuoteBar> bars = babySeries();
    if (upsideDown)
        for (QuoteBar &b : bars)
            b = bar(200 - b.open(), 200 - b.low(), 200 - b.high(), 200 - b.close());
    Chart chart(bars, zoom);
    QCOMPARE(chart.patterns->markAt(kBabyEnd).match.pattern, CandlePattern::AbandonedBaby);
    QCOMPARE(chart.patterns->markAt(kBabyEnd).bearish, upsideDown);
    chart.geometry.setFirstVisible(kBabyEnd - 2);
    const QImage plain = chart.paint(800);

    const int x = 2 * zoom;
    const QuoteBar &b = bars[kBabyEnd];
    const ViewColors &colors = chart.canvas.colors();
    const auto counts =
        markPixels(plain, x, chart.price->row(b.high()), chart.price->row(b.low()), colors);
    QVERIFY(upsideDown ? counts.first > 0 : counts.second > 0);
    QCOMPARE(upsideDown ? counts.second : counts.first, 0);
    if (zoom > 1) { // a body one pixel wide is all border
        const int middle = chart.price->row((b.open() + b.close()) / 2);
        QCOMPARE(QColor(plain.pixel(x + 2, middle)),
                 b.close() > b.open() ? colors.upCandle : colors.downCandle);
    }

    const QRgb dot = CandlesPatternLayer::gradeColour(CandlePattern::Normal).rgb();
    const auto dotPixels = [dot](const QImage &image) {
        const QImage corner = image.copy(0, 0, 24, 24);
        const QRgb *p = reinterpret_cast<const QRgb *>(corner.constBits());
        return std::count(p, p + 24 * 24, dot);
    };
    chart.canvas.setPointerInfoMode(true);
    chart.geometry.setPointerX(x);
    QVERIFY(dotPixels(chart.paint(800)) > dotPixels(plain) + 10);

    // Hidden, the layer leaves the picture as the price layer drew it.
    chart.patterns->setShown(false);
    const QImage hidden = chart.paint(800);
    chart.canvas.removeLayer(chart.patterns);
    QCOMPARE(hidden, chart.paint(800));
}

QTEST_MAIN(TestCandleGui)
#include "test_candlegui.moc"
