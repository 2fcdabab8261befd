// Chart geometry, view colours and their settings, period separators, the date axis and
// the mini view's arithmetic.

#include "data/reader.h"
#include "support/testsettings.h"
#include "view/chartgeometry.h"
#include "view/dateaxis.h"
#include "view/minimap.h"
#include "view/separators.h"
#include "view/viewcanvas.h"
#include "view/viewcolors.h"

#include <QFontMetrics>
#include <QSettings>
#include <QStandardPaths>
#include <QtTest>

using namespace OrdaneView;

namespace {
// Weekday bars from..to with close = 10 + index.
OrdaneData::Reader *weekdays(const QDate &from, const QDate &to)
{
    auto *r = new OrdaneData::Reader;
    for (QDate d = from; d <= to; d = d.addDays(1))
        if (d.dayOfWeek() <= 5)
            r->appendBar(QuoteBar(d, 10, 11, 9, 10 + r->count(), 1));
    return r;
}
} // namespace

class TestViewModel : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init() { QSettings().clear(); }
    void zoomSequence();
    void positionAndVisibleBars();
    void colourFallbacks();
    void storedColours_data();
    void storedColours();
    void resetPaletteIsItsOwn();
    void schemes();
    void separators_data();
    void separators();
    void dateAxisLabels();
    void dateLabelTexts_data();
    void dateLabelTexts();
    void dateLabelsDoNotOverlap_data();
    void dateLabelsDoNotOverlap();
    void miniMap();
};

void TestViewModel::initTestCase()
{
    TestSupport::useTestSettings();
}

void TestViewModel::zoomSequence()
{
    ChartGeometry g;
    QCOMPARE(g.zoom(), 8);
    QVector<int> in;
    while (g.zoomIn())
        in.append(g.zoom());
    QCOMPARE(in, (QVector<int>{16, 32, 64, 128}));
    QCOMPARE(g.zoom(), 128);
    QVector<int> out;
    while (g.zoomOut())
        out.append(g.zoom());
    QCOMPARE(out, (QVector<int>{64, 32, 16, 8, 4, 2, 1}));
    QVERIFY(!g.zoomOut());
    QCOMPARE(g.zoom(), 1);
    // Other widths (from a template) follow the same rules: 99 doubles, 198 does not.
    g.setZoom(99);
    QVERIFY(g.zoomIn());
    QCOMPARE(g.zoom(), 198);
    QVERIFY(!g.zoomIn());
}

void TestViewModel::positionAndVisibleBars()
{
    ChartGeometry g;
    g.setFirstVisible(-7);
    QCOMPARE(g.firstVisible(), 0);
    g.setFirstVisible(5000); // no upper clamp
    QCOMPARE(g.firstVisible(), 5000);
    QCOMPARE(g.visibleCount(800, 100), 0);
    g.setFirstVisible(90);
    QCOMPARE(g.visibleCount(800, 100), 10); // cut back at the last bar
    g.setFirstVisible(0);
    QCOMPARE(g.visibleCount(805, 1000), 100);
    QCOMPARE(g.lastPage(800, 1000), 900);
    QCOMPARE(g.lastPage(800, 30), 0);
    QCOMPARE(g.barAt(17), 2);
}

void TestViewModel::colourFallbacks()
{
    // An empty store gives the default scheme with 3D candles.
    const ViewColors loaded = ViewColors::load();
    QCOMPARE(loaded, ViewColors::scheme(ViewColors::Default));
    QCOMPARE(loaded.line, QColor(0, 191, 255));
    QCOMPARE(loaded.downCandle, QColor(Qt::red));
    QCOMPARE(loaded.marginBackground2, QColor(80, 80, 80));
    QCOMPARE(loaded.grid, QColor(37, 37, 37));
    QVERIFY(loaded.threeD);
}

void TestViewModel::storedColours_data()
{
    QTest::addColumn<QString>("stored");
    QTest::addColumn<QColor>("read");
    QTest::newRow("name-text") << QStringLiteral("#102030") << QColor(0x10, 0x20, 0x30);
    QTest::newRow("empty-is-fallback") << QString() << QColor(0, 191, 255);
    QTest::newRow("unparsable-is-invalid") << QStringLiteral("not a colour") << QColor();
}

void TestViewModel::storedColours()
{
    QFETCH(QString, stored);
    QSettings().setValue(QStringLiteral("ViewParameters/UpBar"), stored);
    QTEST(ViewColors::load().upBar, "read");
}

void TestViewModel::resetPaletteIsItsOwn()
{
    ViewColors::resetToDefault();
    QSettings settings;
    QCOMPARE(settings.value(QStringLiteral("ViewParameters/Background")).toString(),
             QStringLiteral("#000080"));
    const ViewColors c = ViewColors::load();
    QCOMPARE(c.line, QColor(Qt::white));
    QCOMPARE(c.upBar, QColor(Qt::blue));
    QCOMPARE(c.downCandleBorder, QColor(Qt::red));
    QCOMPARE(c.label, QColor(Qt::yellow));
    QCOMPARE(c.marginBackground, QColor(Qt::cyan));
    QCOMPARE(c.marginBackground2, QColor(Qt::black));
    QCOMPARE(c.grid, QColor(Qt::lightGray));
    QCOMPARE(c.background, QColor(Qt::darkBlue));
    QVERIFY(c.threeD);
    QVERIFY(c != ViewColors::scheme(ViewColors::Default));
}

void TestViewModel::schemes()
{
    const ViewColors bw = ViewColors::scheme(ViewColors::BlackOnWhite);
    QCOMPARE(bw.upCandle, QColor(Qt::white));
    QCOMPARE(bw.marginBackground2, QColor(Qt::lightGray));
    QVERIFY(!bw.threeD);
    const ViewColors pink = ViewColors::scheme(ViewColors::Pink);
    QCOMPARE(pink.upCandleBorder, QColor(64, 0, 0));
    QCOMPARE(pink.background, QColor(192, 0, 0));
    const ViewColors matrix = ViewColors::scheme(ViewColors::Matrix);
    QCOMPARE(matrix.upCandle, QColor(Qt::black));
    QCOMPARE(matrix.upCandleBorder, QColor(Qt::white));
    QCOMPARE(matrix.grid, QColor(64, 64, 64));
    QVERIFY(!matrix.threeD);

    // Stored as name text and read back whole, 3D flag included.
    matrix.save();
    QCOMPARE(QSettings().value(QStringLiteral("ViewParameters/Line")).toString(),
             QStringLiteral("#00ff00"));
    QCOMPARE(ViewColors::load(), matrix);

    // A template's own background keeps the chart readable: on black, the black-on-white
    // scheme's text, wicks and falling bodies turn light, and rising bodies stay hollow.
    const ViewColors onBlack = bw.onBackground(Qt::black);
    QCOMPARE(onBlack.background, QColor(Qt::black));
    for (auto p : {ViewColors::Label, ViewColors::Line, ViewColors::UpCandleBorder,
                   ViewColors::DownCandleBorder, ViewColors::DownCandle, ViewColors::DownBar})
        QVERIFY2(ViewColors::contrast(onBlack.color(p), Qt::black) > 4,
                 qPrintable(ViewColors::key(p)));
    QCOMPARE(onBlack.upCandle, QColor(Qt::black));
    QCOMPARE(onBlack.marginNumbers, bw.marginNumbers); // the scale strip keeps its colours
    // Colours that stand out already, and the same background, are left alone.
    const ViewColors fallback = ViewColors::fallback();
    QCOMPARE(fallback.onBackground(QColor(0x10, 0x20, 0x30)).upCandle, fallback.upCandle);
    QCOMPARE(fallback.onBackground(fallback.background), fallback);
}

void TestViewModel::separators_data()
{
    QTest::addColumn<int>("mode");
    QTest::addColumn<QVector<int>>("offsets");
    QTest::addColumn<QStringList>("labels");
    // Bars 2012-03-26 .. 2012-04-10 shown from index 1 (27 March).
    QTest::newRow("weeks") << int(SeparatorMode::Week) << QVector<int>{4, 9}
                           << QStringList{QString(), QString()};
    QTest::newRow("months") << int(SeparatorMode::Month) << QVector<int>{4}
                            << QStringList{QStringLiteral("Apr12")};
    QTest::newRow("quarters") << int(SeparatorMode::Quarter) << QVector<int>{4}
                              << QStringList{QStringLiteral("Q2")};
    QTest::newRow("years") << int(SeparatorMode::Year) << QVector<int>{} << QStringList{};
    QTest::newRow("none") << int(SeparatorMode::None) << QVector<int>{} << QStringList{};
}

void TestViewModel::separators()
{
    QFETCH(int, mode);
    QScopedPointer<OrdaneData::Reader> r(weekdays(QDate(2012, 3, 26), QDate(2012, 4, 10)));
    const auto marks = OrdaneView::separators(r->bars(), 1, r->count() - 1, SeparatorMode(mode),
                                              QLocale(QLocale::English));
    QVector<int> offsets;
    QStringList labels;
    for (const auto &m : marks) {
        offsets.append(m.offset);
        labels.append(m.label);
    }
    QTEST(offsets, "offsets");
    QTEST(labels, "labels");
    // Year labels are two digits.
    QScopedPointer<OrdaneData::Reader> years(weekdays(QDate(2011, 12, 29), QDate(2012, 1, 3)));
    QCOMPARE(OrdaneView::separators(years->bars(), 0, 4, SeparatorMode::Year, QLocale::c())
                 .constFirst()
                 .label,
             QStringLiteral("12"));
}

void TestViewModel::dateAxisLabels()
{
    QCOMPARE(DateAxis::labelColumns(44), QVector<int>{});
    QCOMPARE(DateAxis::labelColumns(45), QVector<int>{0});
    QCOMPARE(DateAxis::labelColumns(300), (QVector<int>{0, 64, 128, 192}));

    QScopedPointer<OrdaneData::Reader> r(weekdays(QDate(2012, 9, 3), QDate(2012, 9, 25)));
    ChartGeometry g;
    const QLocale en(QLocale::English);
    const auto full = DateAxis::LabelForm::Full;
    // zoom 8: every eighth bar is labelled.
    QCOMPARE(DateAxis::labelAt(r.data(), g, 0, en, full), QStringLiteral("03.Sep.2012"));
    QCOMPARE(DateAxis::labelAt(r.data(), g, 64, en, full), QStringLiteral("13.Sep.2012"));
    QCOMPARE(DateAxis::labelAt(r.data(), g, 192, en, full), QString()); // past the last bar
    // zoom 64: every bar.
    g.setZoom(64);
    QCOMPARE(DateAxis::labelAt(r.data(), g, 64, en, full), QStringLiteral("04.Sep.2012"));
    QCOMPARE(DateAxis::labelAt(r.data(), g, 128, en, full), QStringLiteral("05.Sep.2012"));
    QCOMPARE(DateAxis::labelAt(nullptr, g, 0, en, full), QString());
}

void TestViewModel::dateLabelTexts_data()
{
    QTest::addColumn<QString>("locale");
    QTest::addColumn<QDate>("date");
    QTest::addColumn<int>("form");
    QTest::addColumn<QString>("label");
    const int full = int(DateAxis::LabelForm::Full);
    const int shortYear = int(DateAxis::LabelForm::ShortYear);
    const int numeric = int(DateAxis::LabelForm::Numeric);
    QTest::newRow("de-month-ending-in-a-full-stop")
        << "de" << QDate(2012, 8, 2) << full << QStringLiteral("02.Aug.2012");
    QTest::newRow("de-month-without-a-full-stop")
        << "de" << QDate(2012, 3, 5) << shortYear << QStringLiteral("05.März.12");
    QTest::newRow("ru-month-ending-in-a-full-stop")
        << "ru" << QDate(2011, 11, 18) << full << QStringLiteral("18.нояб.2011");
    QTest::newRow("ru-may-as-in-a-date")
        << "ru" << QDate(2011, 5, 18) << shortYear << QStringLiteral("18.мая.11");
    QTest::newRow("ru-numeric") << "ru" << QDate(2011, 11, 8) << numeric
                                << QStringLiteral("08.11.11");
}

void TestViewModel::dateLabelTexts()
{
    QFETCH(QString, locale);
    QFETCH(QDate, date);
    QFETCH(int, form);
    QTEST(DateAxis::dateLabel(date, QLocale(locale), DateAxis::LabelForm(form)), "label");
}

void TestViewModel::dateLabelsDoNotOverlap_data()
{
    QTest::addColumn<QString>("locale");
    QTest::newRow("en") << "en";
    QTest::newRow("de") << "de";
    QTest::newRow("ru") << "ru";
}

void TestViewModel::dateLabelsDoNotOverlap()
{
    QFETCH(QString, locale);
    // A year of bars at the zoom of a new chart, labelled in the chart's font.
    QScopedPointer<OrdaneData::Reader> r(weekdays(QDate(2011, 1, 3), QDate(2011, 12, 30)));
    ChartGeometry g;
    const QFont font = ViewCanvas(&g).font();
    const QFontMetrics metrics(font);
    const DateAxis::LabelForm form = DateAxis::labelForm(QLocale(locale), font);
    QSet<int> months;
    for (int x = 0; g.barAt(x + DateAxis::kPitch) < r->count(); x += DateAxis::kPitch) {
        const QString label = DateAxis::labelAt(r.data(), g, x, QLocale(locale), form);
        QVERIFY2(!label.contains(QLatin1String("..")), qPrintable(label));
        const int end = x + DateAxis::kLabelOffset + metrics.horizontalAdvance(label);
        const int next = x + DateAxis::kPitch + DateAxis::kLabelOffset;
        QVERIFY2(end + DateAxis::kGap <= next, qPrintable(label));
        months.insert(r->bar(g.barAt(x)).date().month());
    }
    QCOMPARE(months.size(), 12);
}

void TestViewModel::miniMap()
{
    QCOMPARE(MiniMap::barAt(0, 500, 1000), 0);
    QCOMPARE(MiniMap::barAt(250, 500, 1000), 500);
    QCOMPARE(MiniMap::barAt(900, 500, 1000), 999);
    QCOMPARE(MiniMap::window(900, 100, 1000, QSize(500, 40)), QRect(450, 0, 50, 40));
    // Centred on the click, kept inside the series.
    QCOMPARE(MiniMap::firstForColumn(250, 100, 500, 1000), 450);
    QCOMPARE(MiniMap::firstForColumn(499, 100, 500, 1000), 900);
    QCOMPARE(MiniMap::firstForColumn(0, 100, 500, 1000), 0);

    QScopedPointer<OrdaneData::Reader> r(weekdays(QDate(2012, 9, 3), QDate(2012, 9, 25)));
    // Closes 10 (3 Sep) .. 25 (24 Sep): 15 quotes on, +150 %, a difference of 15.
    const auto m = MiniMap::measure(*r, 0, 15);
    QCOMPARE(m.quotes, 15);
    QCOMPARE(m.date, QDate(2012, 9, 24));
    QCOMPARE(MiniMap::readOut(m), QStringLiteral("Price:\t25.00\nDate:\t2012-09-24\nQuotes:\t15"
                                                 "\nProfit:\t150.00%\nDifference:\t15.00"));
    QCOMPARE(MiniMap::measure(*r, 15, 0).profit, -60.0);
}

QTEST_MAIN(TestViewModel)
#include "test_viewmodel.moc"
