// The candle pattern panel and the layer that marks the patterns on the price chart: what
// the panel's controls send and keep between runs, which mark each bar gets under the
// chosen patterns, strengths and blending, and where the marks are drawn.

#include "data/reader.h"
#include "indicators/candlespatternlayer.h"
#include "indicators/ui/candlesexpertpanel.h"
#include "support/testsettings.h"
#include "view/chartgeometry.h"
#include "view/chartlayer.h"
#include "view/viewcanvas.h"

#include <QCheckBox>
#include <QPainter>
#include <QRandomGenerator>
#include <QSettings>
#include <QSignalSpy>
#include <QStandardPaths>
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
        const double lowSide = random.bounded(range - share * range);
        const double low = std::min(open, close) - lowSide;
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

QTreeWidgetItem *item(const QTreeWidget *list, const char *text)
{
    return list->findItems(QLatin1String(text), Qt::MatchExactly).value(0);
}

} // namespace

class TestCandleGui : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init() { QSettings().clear(); }

    void panelControlsAndStartingState();
    void strengthBoxes_data();
    void strengthBoxes();
    void selectionBlendingAndActivation();
    void choicesAreRestored();

    void marksFollowTheClassifier_data();
    void marksFollowTheClassifier();
    void plantedPatterns();
    void blendingTurnsAPairIntoAMark();
    void marksSitOnTheirSideAndSpareTheCandles();
    void paintsAtEveryZoom_data();
    void paintsAtEveryZoom();
};

void TestCandleGui::initTestCase()
{
    TestSupport::useTestSettings();
}

void TestCandleGui::panelControlsAndStartingState()
{
    CandlesExpertPanel panel;
    // Role, text; only the strength boxes start checked, and only "Activate Guru" enabled.
    const char *boxes[][2] = {{"Guru", "Activate Guru"},
                              {"Blending", "Blending"},
                              {"Strong", "Strong"},
                              {"Normal", "Normal"},
                              {"Low", "Low"}};
    for (int i = 0; i < 5; ++i) {
        const QCheckBox *check = box(panel, boxes[i][0]);
        QVERIFY2(check, boxes[i][0]);
        QCOMPARE(check->text(), QLatin1String(boxes[i][1]));
        QCOMPARE(check->isChecked(), i >= 2);
        QCOMPARE(check->isEnabled(), i == 0);
    }
    const auto lists = panel.findChildren<QTreeWidget *>();
    QCOMPARE(lists.size(), 1);
    const QTreeWidget *list = lists.first();
    QCOMPARE(list->headerItem()->text(0), QStringLiteral("Pattern Name"));
    QVERIFY(!list->isHeaderHidden() && !list->isEnabled());
    QCOMPARE(list->selectionMode(), QAbstractItemView::ExtendedSelection);
    QStringList texts;
    for (int row = 0; row < list->topLevelItemCount(); ++row)
        texts << list->topLevelItem(row)->text(0);
    QCOMPARE(texts.join(QLatin1Char(' ')), QLatin1String(kListOrder));
    QCOMPARE(list->selectedItems().size(), 22);
    QCOMPARE(panel.strength(), 7);
}

void TestCandleGui::strengthBoxes_data()
{
    QTest::addColumn<QStringList>("unchecked");
    QTest::addColumn<int>("mask");
    const QString strong = QStringLiteral("Strong"), normal = QStringLiteral("Normal"),
                  low = QStringLiteral("Low");
    QTest::newRow("strong-off") << QStringList{strong} << 6;
    QTest::newRow("normal-off") << QStringList{normal} << 5;
    QTest::newRow("low-off") << QStringList{low} << 3;
    QTest::newRow("only-strong") << QStringList{normal, low} << 1;
    QTest::newRow("none") << QStringList{strong, normal, low} << 0;
}

void TestCandleGui::strengthBoxes()
{
    QFETCH(QStringList, unchecked);
    QFETCH(int, mask);
    CandlesExpertPanel panel;
    QSignalSpy spy(&panel, &CandlesExpertPanel::strengthChanged);
    for (const QString &name : unchecked)
        box(panel, qPrintable(name))->setChecked(false);
    QCOMPARE(spy.size(), unchecked.size());
    QCOMPARE(spy.last().at(0).toInt(), mask);
}

void TestCandleGui::selectionBlendingAndActivation()
{
    CandlesExpertPanel panel;
    QTreeWidget *list = panel.findChild<QTreeWidget *>();
    QSignalSpy required(&panel, &CandlesExpertPanel::required);
    QSignalSpy blend(&panel, &CandlesExpertPanel::blendingChanged);
    QSignalSpy shown(&panel, &CandlesExpertPanel::showCandlePatterns);

    list->clearSelection();
    QCOMPARE(required.size(), 1);
    QVERIFY(required.last().at(0).value<QList<Pattern>>().isEmpty());
    // Picked against the list order, sent in value order; "Riksha" is chosen like any other.
    for (const char *text : {"TriStar", "Hammer", "Riksha"})
        item(list, text)->setSelected(true);
    QCOMPARE(required.size(), 4);
    const QList<Pattern> expected{CandlePattern::Riksha, CandlePattern::Hammer,
                                  CandlePattern::TriStar};
    QCOMPARE(required.last().at(0).value<QList<Pattern>>(), expected);

    box(panel, "Guru")->setChecked(true);
    QCOMPARE(shown.size(), 1);
    QCOMPARE(shown.last().at(0).toBool(), true);
    QVERIFY(list->isEnabled() && box(panel, "Blending")->isEnabled());
    QVERIFY(box(panel, "Low")->isEnabled());

    box(panel, "Blending")->setChecked(true);
    box(panel, "Blending")->setChecked(false);
    QCOMPARE(blend.size(), 2);
    QCOMPARE(blend.at(0).at(0).toBool(), true);
    QCOMPARE(blend.at(1).at(0).toBool(), false);

    box(panel, "Guru")->setChecked(false);
    QCOMPARE(shown.last().at(0).toBool(), false);
    QVERIFY(!list->isEnabled() && !box(panel, "Blending")->isEnabled());
    QVERIFY(box(panel, "Guru")->isEnabled());
}

void TestCandleGui::choicesAreRestored()
{
    {
        CandlesExpertPanel panel;
        box(panel, "Guru")->setChecked(true);
        box(panel, "Blending")->setChecked(true);
        box(panel, "Normal")->setChecked(false);
        QTreeWidget *list = panel.findChild<QTreeWidget *>();
        list->clearSelection();
        item(list, "Doji")->setSelected(true);
        item(list, "ThreeBlackCrows")->setSelected(true);
    }
    CandlesExpertPanel panel;
    QVERIFY(panel.isActive() && panel.isBlending());
    QCOMPARE(panel.strength(), 5);
    QCOMPARE(panel.requiredPatterns(),
             (QList<Pattern>{CandlePattern::Doji, CandlePattern::ThreeBlackCrows}));
    QVERIFY(panel.findChild<QTreeWidget *>()->isEnabled());

    // An empty choice is a choice too: it does not fall back to every pattern.
    panel.findChild<QTreeWidget *>()->clearSelection();
    QVERIFY(CandlesExpertPanel().requiredPatterns().isEmpty());
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
    const QVector<QVector<CandlePattern::Match>> bySpan{
        CandlePattern::classify(bars, CandlePattern::Span::Single, all, blending),
        CandlePattern::classify(bars, CandlePattern::Span::Pair, all, blending),
        CandlePattern::classify(bars, CandlePattern::Span::Triple, all, blending)};
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
    if (mask == 7) // the series holds marks of every span, or the test proves little
        QVERIFY(marked[1] > 0 && marked[2] > 0 && marked[3] > 0);
}

void TestCandleGui::plantedPatterns()
{
    const QVector<QuoteBar> bars = babySeries();
    // The bars are what their comments say.
    const auto all = CandlePattern::PatternSet::all();
    QCOMPARE(CandlePattern::classify(bars, CandlePattern::Span::Triple, all)[kBabyEnd],
             (CandlePattern::Match{CandlePattern::AbandonedBaby, CandlePattern::Normal}));
    QCOMPARE(CandlePattern::classify(bars, CandlePattern::Span::Single, all)[kBabyEnd],
             (CandlePattern::Match{CandlePattern::Hammer, CandlePattern::Low}));

    Chart chart(bars);
    CandlesPatternLayer *layer = chart.patterns;
    QCOMPARE(layer->markAt(kBabyEnd).span, 3);
    QCOMPARE(layer->patternAt(kBabyEnd), QStringLiteral("AbandonedBaby (Normal)"));
    QCOMPARE(layer->patternAt(kBabyEnd - 1), QStringLiteral("Doji (Strong)"));
    for (int i : {-1, 0, kBabyEnd - 3, kBabyEnd - 2, kBabyEnd + 1, 100000})
        QCOMPARE(layer->patternAt(i), QString());

    // Without the triple's grade the single shows; without either grade, nothing.
    layer->setStrength(CandlePattern::Low);
    QCOMPARE(layer->markAt(kBabyEnd).span, 1);
    QCOMPARE(layer->patternAt(kBabyEnd), QStringLiteral("Hammer (Low)"));
    layer->setStrength(CandlePattern::Strong);
    QVERIFY(layer->markAt(kBabyEnd).isNull());

    // Patterns outside the required set are never found.
    layer->setStrength(CandlePattern::kAllGrades);
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

void TestCandleGui::blendingTurnsAPairIntoAMark()
{
    // A rise and a fall that match no pair pattern but together open and close at the same
    // price: blended, a doji over both.
    QVector<QuoteBar> bars = babySeries().mid(0, 8);
    bars << bar(10, 11, 9.5f, 10.8f) << bar(10.8f, 10.9f, 9, 10.02f);
    const int last = bars.size() - 1;
    Chart chart(bars);
    CandlesPatternLayer *layer = chart.patterns;
    QVERIFY(layer->markAt(last).isNull() && layer->markAt(last - 1).isNull());
    layer->setBlending(true);
    QCOMPARE(layer->markAt(last).match.pattern, CandlePattern::Doji);
    QCOMPARE(layer->markAt(last).span, 2);
    QVERIFY(layer->markAt(last - 1).isNull());
    layer->setBlending(false);
    QVERIFY(layer->markAt(last).isNull());
}

void TestCandleGui::marksSitOnTheirSideAndSpareTheCandles()
{
    for (bool upsideDown : {false, true}) {
        // Upside down (p becomes 200 - p) the morning pattern turns into an evening one.
        QVector<QuoteBar> bars = babySeries();
        if (upsideDown)
            for (QuoteBar &b : bars)
                b = bar(200 - b.open(), 200 - b.low(), 200 - b.high(), 200 - b.close());
        Chart chart(bars);
        QCOMPARE(chart.patterns->markAt(kBabyEnd).match.pattern, CandlePattern::AbandonedBaby);
        QCOMPARE(chart.patterns->markAt(kBabyEnd).bearish, upsideDown);
        const int zoom = chart.geometry.zoom();
        const QImage image = chart.paint(bars.size() * zoom);
        const QuoteBar &b = bars[kBabyEnd];
        const auto counts = markPixels(image, kBabyEnd * zoom, chart.price->row(b.high()),
                                       chart.price->row(b.low()), chart.canvas.colors());
        QVERIFY(upsideDown ? counts.first > 0 : counts.second > 0);
        QCOMPARE(upsideDown ? counts.second : counts.first, 0);

        // The body's middle keeps its colour.
        const QColor body = b.close() > b.open() ? chart.canvas.colors().upCandle
                                                 : chart.canvas.colors().downCandle;
        const int middle = chart.price->row((b.open() + b.close()) / 2);
        QCOMPARE(QColor(image.pixel(kBabyEnd * zoom + 2, middle)), body);

        // Hidden, the layer leaves the picture as the price layer drew it.
        chart.patterns->setShown(false);
        const QImage hidden = chart.paint(bars.size() * zoom);
        chart.canvas.removeLayer(chart.patterns);
        QCOMPARE(hidden, chart.paint(bars.size() * zoom));
    }
}

void TestCandleGui::paintsAtEveryZoom_data()
{
    QTest::addColumn<int>("zoom");
    QTest::newRow("zoom-1") << 1;
    QTest::newRow("zoom-12") << 12;
    QTest::newRow("zoom-128") << 128;
}

void TestCandleGui::paintsAtEveryZoom()
{
    QFETCH(int, zoom);
    Chart chart(randomSeries(2000, 11), zoom);
    int marked = 1000;
    while (chart.patterns->markAt(marked).isNull())
        ++marked;
    QVERIFY(marked < 2000);
    const int first = marked - 2; // the pattern stays in sight at every zoom
    chart.geometry.setFirstVisible(first);
    const QImage plain = chart.paint(800);

    // Over a marked bar the pointer information names its pattern at the top left, behind a
    // dot in the grade's colour.
    const QRgb dot =
        CandlesPatternLayer::gradeColour(chart.patterns->markAt(marked).match.grade).rgb();
    const auto dotPixels = [dot](const QImage &image) {
        const QImage corner = image.copy(0, 0, 24, 24);
        const QRgb *p = reinterpret_cast<const QRgb *>(corner.constBits());
        return std::count(p, p + 24 * 24, dot);
    };
    chart.canvas.setPointerInfoMode(true);
    chart.geometry.setPointerX((marked - first) * zoom);
    QVERIFY(dotPixels(chart.paint(800)) > dotPixels(plain) + 10);
}

QTEST_MAIN(TestCandleGui)
#include "test_candlegui.moc"
