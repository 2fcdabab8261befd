// Chart templates: the XML form, its round trip, lenient reading, safe writing and the six
// templates that come with the program.

#include "indicators/catalogue.h"
#include "view/charttemplate.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QtTest>

using namespace OrdaneView;

namespace {
QByteArray resource(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

ChartTemplate parsed(const QByteArray &xml)
{
    ChartTemplate t;
    QString error;
    if (!parseTemplate(xml, &t, &error))
        qWarning("not a template: %s", qPrintable(error));
    return t;
}
} // namespace

class TestTemplates : public QObject
{
    Q_OBJECT

private slots:
    void builtinFilesAreTheirOwnSavedForm_data();
    void builtinFilesAreTheirOwnSavedForm();
    void weekTemplateIsTheDefaultSetUp();
    void timeFrameWords_data();
    void timeFrameWords();
    void parametersAreWrittenSortedAndShort();
    void parameterValuesSurviveTheRoundTrip_data();
    void parameterValuesSurviveTheRoundTrip();
    void missingOrOddElementsKeepDefaults();
    void rejectsWhatIsNotATemplate_data();
    void rejectsWhatIsNotATemplate();
    void writingKeepsTheOldFileOnFailure();
};

void TestTemplates::builtinFilesAreTheirOwnSavedForm_data()
{
    QTest::addColumn<QString>("path");
    QCOMPARE(builtinTemplates().size(), 6);
    QCOMPARE(QString::fromLatin1(builtinTemplates().first().resource), fallbackTemplate());
    for (const BuiltinTemplate &b : builtinTemplates())
        QTest::newRow(b.resource) << QString::fromLatin1(b.resource);
}

void TestTemplates::builtinFilesAreTheirOwnSavedForm()
{
    QFETCH(QString, path);
    const QByteArray bytes = resource(path);
    QVERIFY2(!bytes.isEmpty(), qPrintable(path));

    ChartTemplate t;
    QString error;
    QVERIFY2(parseTemplate(bytes, &t, &error), qPrintable(error));
    QCOMPARE(writeTemplate(t), bytes);

    // Every pane shows something, each height belongs to a pane, and the prices get the most.
    QVERIFY(!t.panes.isEmpty());
    QCOMPARE(t.splitter.size(), t.panes.size() + 1);
    QVERIFY(*std::max_element(t.splitter.cbegin(), t.splitter.cend()) == t.splitter.first());
    const int total = std::accumulate(t.splitter.cbegin(), t.splitter.cend(), 0);
    QVERIFY2(total >= 700 && total <= 800, qPrintable(QString::number(total)));

    // Only built-in identifiers with the parameter names they declare; the Bollinger
    // template keeps its historic "Devitation".
    QList<TemplateIndicator> all = t.chartIndicators;
    for (const QList<TemplateIndicator> &pane : qAsConst(t.panes)) {
        QVERIFY(!pane.isEmpty());
        all += pane;
    }
    for (const TemplateIndicator &i : qAsConst(all)) {
        const IndicatorEntry *entry = findIndicator(i.name);
        QVERIFY2(entry, qPrintable(i.name));
        for (const QString &name : i.parameters.keys()) {
            if (i.name == QLatin1String("BollingerBands") && name == QLatin1String("Devitation"))
                continue;
            const bool declared = std::any_of(
                entry->params.cbegin(), entry->params.cend(),
                [&](const IndicatorEntry::Param &p) { return name == QLatin1String(p.name); });
            QVERIFY2(declared, qPrintable(i.name + QLatin1Char('/') + name));
        }
    }
}

void TestTemplates::weekTemplateIsTheDefaultSetUp()
{
    const QMap<QString, float> macd{{QStringLiteral("FastEMA"), 12},
                                    {QStringLiteral("Signal"), 9},
                                    {QStringLiteral("SlowEMA"), 26}};
    const QMap<QString, float> period14{{QStringLiteral("Period"), 14}};
    ChartTemplate expected;
    expected.timeFrame = 1;
    expected.zoom = 8;
    expected.background = QColor(QStringLiteral("#000000"));
    expected.type = ChartType::Candle;
    expected.threeD = true;
    expected.colored = true;
    expected.panes = {{{QStringLiteral("Volume"), {}}},
                      {{QStringLiteral("MACD"), macd}, {QStringLiteral("OsMA"), macd}},
                      {{QStringLiteral("ADX"), period14}, {QStringLiteral("DI"), period14}}};
    expected.splitter = {510, 66, 94, 83};

    QVERIFY(parsed(resource(fallbackTemplate())) == expected);

    // The day sibling differs in the frame alone.
    ChartTemplate day = expected;
    day.timeFrame = 0;
    QVERIFY(parsed(resource(QStringLiteral(":/Templates/TrawlerDay.tt"))) == day);
}

void TestTemplates::timeFrameWords_data()
{
    QTest::addColumn<QString>("element");
    QTest::addColumn<int>("frame");
    QTest::newRow("day") << "<TimeFrame>DAY</TimeFrame>" << 0;
    QTest::newRow("week") << "<TimeFrame>WEEK</TimeFrame>" << 1;
    QTest::newRow("month") << "<TimeFrame>MONTH</TimeFrame>" << 2;
    QTest::newRow("quartal") << "<TimeFrame>QUARTAL</TimeFrame>" << 3;
    QTest::newRow("year") << "<TimeFrame>YEAR</TimeFrame>" << 4;
    QTest::newRow("unknown-word") << "<TimeFrame>FORTNIGHT</TimeFrame>" << 0;
    QTest::newRow("english-quarter") << "<TimeFrame>QUARTER</TimeFrame>" << 0;
    QTest::newRow("lower-case") << "<TimeFrame>week</TimeFrame>" << 0;
    QTest::newRow("empty") << "<TimeFrame/>" << 0;
    QTest::newRow("missing") << "" << 0;
}

void TestTemplates::timeFrameWords()
{
    QFETCH(QString, element);
    QFETCH(int, frame);
    ChartTemplate t;
    t.timeFrame = 3; // a template without the element still reads as the day frame
    QVERIFY(parseTemplate("<Template>" + element.toUtf8() + "</Template>", &t));
    QCOMPARE(t.timeFrame, frame);
    QCOMPARE(timeFrameOfWord(timeFrameWord(frame)), frame);
}

void TestTemplates::parametersAreWrittenSortedAndShort()
{
    ChartTemplate t;
    TemplateIndicator stochastic{QStringLiteral("Stochastic"), {}};
    for (const char *name : {"Slowing", "LevelUp", "KPeriod", "DPeriod", "LevelDown"})
        stochastic.parameters.insert(QLatin1String(name), 3);
    stochastic.parameters[QStringLiteral("LevelUp")] = 0.7f;
    t.chartIndicators = {{QStringLiteral("Fractals"), {}}};
    t.panes = {{stochastic}, {}};
    t.splitter = {400, 100, 0};

    const QByteArray xml = writeTemplate(t);
    QVERIFY(xml.contains("  <Indicator name=\"Fractals\"/>\n </ChartView>\n"));
    QVERIFY(xml.contains("  <Indicator name=\"Stochastic\">\n"
                         "   <Parameter name=\"DPeriod\">3</Parameter>\n"
                         "   <Parameter name=\"KPeriod\">3</Parameter>\n"
                         "   <Parameter name=\"LevelDown\">3</Parameter>\n"
                         "   <Parameter name=\"LevelUp\">0.7</Parameter>\n"
                         "   <Parameter name=\"Slowing\">3</Parameter>\n"
                         "  </Indicator>\n"));
    // A pane without indicators keeps its place, so the heights stay with their panes.
    QVERIFY(xml.contains(" </IndicatorView>\n <IndicatorView/>\n <Splitter>\n"));
    QVERIFY(!xml.startsWith("<?xml"));
    QVERIFY(parsed(xml) == t);
    QCOMPARE(writeTemplate(parsed(xml)), xml);
}

void TestTemplates::parameterValuesSurviveTheRoundTrip_data()
{
    QTest::addColumn<float>("value");
    QTest::addColumn<QString>("text");
    QTest::newRow("whole") << 14.0f << "14";
    QTest::newRow("half") << 8.5f << "8.5";
    QTest::newRow("tenth-not-exact-in-binary") << 0.1f << "0.1";
    QTest::newRow("third-needs-eight-digits") << 1.0f / 3 << "0.33333334";
    QTest::newRow("seven-digits") << 1.234567f << "1.234567";
    QTest::newRow("tiny") << 1e-7f << "1e-07";
}

void TestTemplates::parameterValuesSurviveTheRoundTrip()
{
    QFETCH(float, value);
    QFETCH(QString, text);
    QCOMPARE(parameterText(value), text);
    ChartTemplate t;
    t.panes = {{{QStringLiteral("X"), {{QStringLiteral("P"), value}}}}};
    const ChartTemplate back = parsed(writeTemplate(t));
    QCOMPARE(back.panes.value(0).value(0).parameters.value(QStringLiteral("P")), value);
}

void TestTemplates::missingOrOddElementsKeepDefaults()
{
    ChartTemplate t;
    QVERIFY(parseTemplate("<Template/>", &t));
    QVERIFY(t == ChartTemplate());
    QVERIFY(t.splitter.isEmpty());

    const QByteArray odd = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                           "<Template><Zoom>wide</Zoom><BackgrounColor>nocolour</BackgrounColor>"
                           "<ChartView><Type>Pie</Type><ThreeD>maybe</ThreeD>"
                           "<Colored>false</Colored><Indicator name=\"Nope\"/><Indicator/>"
                           "</ChartView><IndicatorView><Indicator name=\"RSI\">"
                           "<Parameter name=\"Period\">x</Parameter>"
                           "<Parameter name=\"LevelUp\"> 80 </Parameter></Indicator>"
                           "</IndicatorView><Splitter><value>500</value><value>12.5</value>"
                           "<value>a</value><value>90</value></Splitter></Template>";
    t = ChartTemplate();
    QVERIFY(parseTemplate(odd, &t));
    QCOMPARE(t.zoom, 8);
    QCOMPARE(t.background, QColor(Qt::black));
    QCOMPARE(t.type, ChartType::Candle);
    QCOMPARE(t.threeD, true);
    QCOMPARE(t.colored, false);
    // Unknown names are the views' business; a nameless element names nothing.
    QCOMPARE(t.chartIndicators.size(), 1);
    QCOMPARE(t.chartIndicators.first().name, QStringLiteral("Nope"));
    QCOMPARE(t.panes.size(), 1);
    const QMap<QString, float> rsi{{QStringLiteral("LevelUp"), 80}};
    QCOMPARE(t.panes.first().first().parameters, rsi);
    QCOMPARE(t.splitter, (QList<int>{500, 90}));

    // Lower-case colour names read back as the same colour.
    QVERIFY(parseTemplate("<Template><BackgrounColor>#1a2B3c</BackgrounColor></Template>", &t));
    QCOMPARE(t.background, QColor(0x1a, 0x2b, 0x3c));
    QVERIFY(writeTemplate(t).contains("<BackgrounColor>#1a2b3c</BackgrounColor>"));
}

void TestTemplates::rejectsWhatIsNotATemplate_data()
{
    QTest::addColumn<QByteArray>("xml");
    QTest::addColumn<QString>("says");
    QTest::newRow("empty") << QByteArray() << "line ";
    QTest::newRow("not-xml") << QByteArray("TimeFrame=WEEK\n") << "line 1, column ";
    QTest::newRow("unclosed") << QByteArray("<Template>\n <Zoom>8</Zoom>\n") << "line ";
    QTest::newRow("mismatched") << QByteArray("<Template>\n <Zoom>8</Zom>\n</Template>")
                                << "line 2, column ";
    QTest::newRow("wrong-root") << QByteArray("<Templates><Zoom>4</Zoom></Templates>")
                                << "Templates";
}

void TestTemplates::rejectsWhatIsNotATemplate()
{
    QFETCH(QByteArray, xml);
    QFETCH(QString, says);
    ChartTemplate t;
    t.zoom = 3;
    QString error;
    QVERIFY(!parseTemplate(xml, &t, &error));
    QVERIFY2(error.contains(says), qPrintable(error));
    QCOMPARE(t.zoom, 3); // untouched
}

void TestTemplates::writingKeepsTheOldFileOnFailure()
{
    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("mine.tt"));
    ChartTemplate t = parsed(resource(QStringLiteral(":/Templates/Williams.tt")));
    QString error;
    QVERIFY2(writeTemplateFile(path, t, &error), qPrintable(error));
    ChartTemplate back;
    QVERIFY(readTemplateFile(path, &back, &error));
    QVERIFY(back == t);
    QCOMPARE(resource(path), writeTemplate(t));

    // A folder where the file should go: nothing is replaced and nothing is left behind.
    const QString folder = dir.filePath(QStringLiteral("folder.tt"));
    QVERIFY(QDir().mkpath(folder + QStringLiteral("/inside")));
    QVERIFY(!writeTemplateFile(folder, t, &error));
    QVERIFY2(error.contains(folder), qPrintable(error));
    QVERIFY(QFileInfo(folder + QStringLiteral("/inside")).isDir());
    QCOMPARE(QDir(dir.path()).entryList(QDir::Files), QStringList{QStringLiteral("mine.tt")});
}

QTEST_GUILESS_MAIN(TestTemplates)
#include "test_templates.moc"
