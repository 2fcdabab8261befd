// The command-line tool: exit statuses, usage errors and the output of its commands.

#include "cli/command.h"
#include "data/quotefile.h"
#include "data/reader.h"
#include "support/quoteservice.h"
#include "view/charttemplate.h"
#include "view/dateaxis.h"

#include <QImage>
#include <QProcess>
#include <QRegularExpression>
#include <QSettings>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QtTest>

namespace {
struct Outcome
{
    int status;
    QString out;
    QString err;
};

Outcome runCli(const QStringList &args)
{
    QString out, err;
    QTextStream o(&out), e(&err);
    const int status = Cli::run(QStringList{QStringLiteral("halcyra-cli")} + args, o, e);
    o.flush();
    e.flush();
    return {status, out, err};
}
} // namespace

class TestCli : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void exitStatus_data();
    void exitStatus();
    void barsPrintsTheStoredText();
    void barsAggregatesAndLimits();
    void barsFindsStoredSymbolsInTheHome();
    void renderDrawsWithTheStoredColours();
    void renderDrawsAStoredSymbolsFigures();
    void indicatorPrintsItsBuffers();
    void mathReadsTheStandardInput();
    void catalogueListsEveryIndicator();
    void templatePrintsTheSavedForm();
    void renderFollowsATemplate();
    void patternsClassifyEveryBar();
    void realProcess_data();
    void realProcess();
    void scriptsRunAndPack();
    void updateFetchAndMetaFromTheService();
    void importAndVerify();
    void candidatesPrintsTheProbes_data();
    void candidatesPrintsTheProbes();
    void filterPrintsThePassingSymbols();

private:
    QTemporaryDir mDir;
    QString mFile;
    QString mText;
    QString mScript; // a script declaring Period and Gain
};

void TestCli::initTestCase()
{
    QCoreApplication::setApplicationVersion(QStringLiteral("2.0"));
    QCoreApplication::setOrganizationName(QStringLiteral("Skarvel"));
    QCoreApplication::setApplicationName(QStringLiteral("Halcyra2"));
    QStandardPaths::setTestModeEnabled(true);
    // Nothing here, in this process or the tool's child processes, may fall through to the
    // user's own home folder.
    qputenv("HALCYRA_HOME", mDir.filePath(QStringLiteral("home")).toLocal8Bit());
    // 30 Jan .. 2 Mar 2012, one bar per weekday.
    QVector<QuoteBar> bars;
    for (QDate d(2012, 1, 30); d <= QDate(2012, 3, 2); d = d.addDays(1))
        if (d.dayOfWeek() <= 5)
            bars.append(QuoteBar(d, 10, 12, 9, 11, 100));
    mText = OrdaneData::seriesToText(bars);
    mFile = mDir.filePath(QStringLiteral("X.csv"));
    QVERIFY(OrdaneData::writeText(mFile, mText));
    mScript = mDir.filePath(QStringLiteral("Trend.js"));
    QVERIFY(
        OrdaneData::writeText(mScript, QStringLiteral("function init() {\n"
                                                      "    Trend.createParameter('Period', 5);\n"
                                                      "    Trend.createParameter('Gain', 2);\n"
                                                      "}\n")));
}

void TestCli::exitStatus_data()
{
    QTest::addColumn<QStringList>("args");
    QTest::addColumn<int>("status");
    QTest::addColumn<QString>("says"); // on stdout for 0, on stderr otherwise

    const QString file = mDir.filePath(QStringLiteral("X.csv"));
    const auto row = [](const char *name, QStringList args, int status, const char *says) {
        QTest::newRow(name) << args << status << QString::fromLatin1(says);
    };
    const auto S = [](const char *s) {
        return QString::fromLatin1(s);
    };
    row("no-arguments", {}, 2, "Usage:");
    row("help", {S("--help")}, 0, "bars FILE");
    row("version", {S("--version")}, 0, "halcyra-cli 2.0");
    row("unknown-command", {S("plot")}, 2, "unknown command plot");
    row("home-without-folder", {S("--home")}, 2, "--home needs a folder");
    row("bars-without-file", {S("bars")}, 2, "expected one FILE");
    row("bars-unknown-frame", {S("bars"), file, S("--frame"), S("fortnight")}, 2,
        "unknown frame fortnight");
    row("bars-zero-limit", {S("bars"), file, S("--limit"), S("0")}, 2, "--limit");
    row("bars-unknown-option", {S("bars"), file, S("--from"), S("2012")}, 2, "from");
    row("bars-missing-file", {S("--home"), mDir.path(), S("bars"), S("/nonexistent/X.csv")}, 1,
        "no such file");
    row("bars-ok", {S("bars"), file}, 0, "Date,Open,High,Low,Close,Volume,Adj Close");
    const QString gzipped = QFINDTESTDATA("../data/cli/gzipped_quote_file.csv.gz");
    QTest::newRow("bars-binary-file")
        << QStringList{S("bars"), gzipped} << 1 << gzipped + S(" is not a quote file.");
    const QString png = mDir.filePath(QStringLiteral("x.png"));
    row("render-without-out", {S("render"), file}, 2, "--out PNG");
    row("render-unknown-type", {S("render"), file, S("--out"), png, S("--type"), S("pie")}, 2,
        "unknown type pie");
    row("render-tiny-width", {S("render"), file, S("--out"), png, S("--width"), S("10")}, 2,
        "--width");
    row("render-unwritable", {S("render"), file, S("--out"), S("/nonexistent/x.png")}, 1,
        "cannot write");
    row("render-unknown-indicator",
        {S("render"), file, S("--out"), png, S("--indicator"), S("Nope")}, 2,
        "Unknown indicator: Nope");
    row("render-bad-indicator-param",
        {S("render"), file, S("--out"), png, S("--overlay"), S("SMA:Period")}, 2, "NAME=VALUE");
    // A name the indicator does not declare is a usage error on the command line, while a
    // template's are kept as the program keeps them ("Devitation" in BollingerBands.tt).
    const char *rsiParameters = "RSI has no parameter \"Perod\" "
                                "(its parameters: Period, LevelUp, LevelDown)";
    row("render-unknown-pane-parameter",
        {S("render"), file, S("--out"), png, S("--indicator"), S("RSI:Perod=5")}, 2, rsiParameters);
    row("render-unknown-overlay-parameter",
        {S("render"), file, S("--out"), png, S("--overlay"), S("SMA:Period=3,Perod=5")}, 2,
        "SMA has no parameter \"Perod\" (its parameters: Period)");
    row("render-template-keeps-unknown-parameters",
        {S("render"), file, S("--out"), png, S("--template"), S(":/Templates/BollingerBands.tt")},
        0, "wrote");
    row("indicator-unknown-parameter", {S("indicator"), S("RSI"), file, S("--param"), S("Perod=5")},
        2, rsiParameters);
    row("indicator-parameter-of-none", {S("indicator"), S("Volume"), file, S("--param"), S("X=1")},
        2, "Volume has no parameter \"X\" (it has none)");
    QTest::newRow("indicator-script-unknown-parameter")
        << QStringList{S("indicator"), mScript, file, S("--param"), S("Perod=5")} << 2
        << mScript + S(" has no parameter \"Perod\" (its parameters: Period, Gain)");
    row("indicator-script-declared-parameter",
        {S("indicator"), mScript, file, S("--param"), S("Gain=1")}, 0, "Date");
    row("indicator-unknown", {S("indicator"), S("Nope"), file}, 2, "Unknown indicator: Nope");
    row("indicator-bad-param", {S("indicator"), S("EMA"), file, S("--param"), S("Period=x")}, 2,
        "NAME=VALUE");
    row("indicator-missing-file",
        {S("--home"), mDir.path(), S("indicator"), S("EMA"), S("/nonexistent")}, 1, "no such file");
    row("math-unknown-routine", {S("math"), S("mean"), S("3")}, 2, "ROUTINE");
    row("catalogue-with-argument", {S("catalogue"), S("x")}, 2, "no arguments");
    row("template-without-file", {S("template")}, 2, "expected one FILE.tt");
    row("template-missing-file", {S("template"), S("/nonexistent.tt")}, 1, "cannot open");
    row("template-not-a-template", {S("template"), file}, 1, "line 1, column ");
    row("patterns-unknown-span", {S("patterns"), S("quad"), file}, 2, "single|pair|triple");
    row("patterns-unknown-name", {S("patterns"), S("single"), file, S("--require"), S("Dojo")}, 2,
        "unknown pattern Dojo");
    row("patterns-bad-trend", {S("patterns"), S("single"), file, S("--trend"), S("sideways")}, 2,
        "up or down");
    row("pack-without-output", {S("pack"), file}, 2, "SCRIPT.js OUT.bin");
    row("pack-missing-script", {S("pack"), S("/nonexistent.js"), png + S(".bin")}, 1,
        "cannot open");
    // The home folder's metadata store: the sample one, made on first use.
    row("meta-ok", {S("meta"), S("^gdaxi")}, 0,
        "symbol=^GDAXI\nname=DAX\nexchange=XETRA\nepsecy=N/A\n");
    row("meta-last-columns", {S("meta"), S("^FTSE")}, 0,
        "\nshortratio=N/A\ncurrency=GBP\nlastupdate=26 Sep 2012\n");
    row("meta-unknown-symbol", {S("meta"), S("NOPE")}, 1, "no metadata for NOPE");
    row("meta-without-symbol", {S("meta")}, 2, "expected one SYMBOL");
    row("import-without-format", {S("import")}, 2, "expected a format");
    row("import-unknown-format", {S("import"), S("excel"), file}, 2, "expected a format");
    row("import-without-path", {S("import"), S("metatrader"), S("--merge")}, 2,
        "expected at least one PATH");
    row("import-unknown-option", {S("import"), S("rbk"), S("--replace"), file}, 2,
        "unknown option --replace");
    row("import-metastock-merge", {S("import"), S("metastock"), S("--merge"), file}, 2,
        "--merge does not apply");
    row("verify-unknown-option", {S("verify"), S("--fix")}, 2, "unknown option --fix");
    row("candidates-zero-length", {S("candidates"), S("--length"), S("0")}, 2,
        "--length needs a whole number from 1 to 20");
    row("candidates-negative-count", {S("candidates"), S("--count"), S("-1")}, 2,
        "--start and --count need whole numbers");
    row("candidates-start-not-a-number", {S("candidates"), S("--start"), S("x")}, 2,
        "--start and --count need whole numbers");
    row("candidates-extra-argument", {S("candidates"), S("ABC")}, 2, "unexpected argument ABC");
    row("render-missing-template",
        {S("render"), file, S("--out"), png, S("--template"), S("/nonexistent.tt")}, 1,
        "cannot open");
    row("filter-without-name", {S("filter")}, 2,
        "expected a filter NAME (one of: Fill, Trend, VolumeFilter, RSIFilter,");
    row("filter-unknown", {S("filter"), S("Nope")}, 2, "unknown filter Nope (the filters: Fill,");
    row("filter-unknown-key", {S("filter"), S("RSIFilter"), S("--set"), S("Perod=5")}, 2,
        "RSIFilter has no control \"Perod\" (its controls: RSI Period, Time Frame, Level, Rule, "
        "As of)");
    row("filter-unknown-item", {S("filter"), S("Trend"), S("--set"), S("Trend type=Sideways")}, 2,
        "\"Sideways\" is not an item of Trend type (its items: Up, Down)");
    row("filter-frame-without-time-frame", {S("filter"), S("Trend"), S("--frame"), S("week")}, 2,
        "Trend has no time frame");
    row("filter-frame-not-offered", {S("filter"), S("ConsolidationFilter"), S("--frame"), S("day")},
        2, "(its items: Week, Month, Quartal)");
    row("filter-bad-as-of", {S("filter"), S("Price"), S("--as-of"), S("2012-13-01")}, 2,
        "As of expects a date yyyy-MM-dd");
    row("filter-bad-threads", {S("filter"), S("Price"), S("--threads"), S("-1")}, 2, "--threads");
}

void TestCli::exitStatus()
{
    QFETCH(QStringList, args);
    QFETCH(int, status);
    QFETCH(QString, says);
    const Outcome r = runCli(args);
    QCOMPARE(r.status, status);
    const QString &text = status == 0 ? r.out : r.err;
    QVERIFY2(text.contains(says), qPrintable(text));
}

void TestCli::barsPrintsTheStoredText()
{
    const Outcome r = runCli({QStringLiteral("bars"), mFile});
    QCOMPARE(r.status, 0);
    QCOMPARE(r.out, mText + QLatin1Char('\n'));
    QVERIFY(r.err.isEmpty());
}

void TestCli::barsAggregatesAndLimits()
{
    Outcome r =
        runCli({QStringLiteral("bars"), mFile, QStringLiteral("--frame"), QStringLiteral("month")});
    QCOMPARE(r.status, 0);
    QCOMPARE(r.out, QStringLiteral("Date,Open,High,Low,Close,Volume,Adj Close\n"
                                   "2012-03-02,10,12,9,11,200,0.00\n"
                                   "2012-02-29,10,12,9,11,2100,0.00\n"
                                   "2012-01-31,10,12,9,11,200,0.00\n"));

    r = runCli({QStringLiteral("bars"), mFile, QStringLiteral("--limit"), QStringLiteral("3"),
                QStringLiteral("--frame"), QStringLiteral("week")});
    QCOMPARE(r.status, 0);
    QCOMPARE(r.out, QStringLiteral("Date,Open,High,Low,Close,Volume,Adj Close\n"
                                   "2012-02-01,10,12,9,11,300,0.00\n"));
    // The limit is the process's only while the command runs.
    QCOMPARE(OrdaneData::Reader::historyLimit(), -1);
}

void TestCli::barsFindsStoredSymbolsInTheHome()
{
    QTemporaryDir home;
    const Outcome r =
        runCli({QStringLiteral("--home"), home.path(), QStringLiteral("bars"),
                QStringLiteral("ADS.DE"), QStringLiteral("--frame"), QStringLiteral("year")});
    QCOMPARE(r.status, 0);
    // 2003 .. 2012: ten year bars and the header.
    QCOMPARE(r.out.count(QLatin1Char('\n')), 11);
    QVERIFY(r.out.contains(QStringLiteral("\n2012-09-25,")));
    QVERIFY(QFileInfo::exists(home.filePath(QStringLiteral("Storage/ADS.DE.csv"))));
}

void TestCli::renderDrawsWithTheStoredColours()
{
    QSettings settings;
    settings.setValue(QStringLiteral("ViewParameters/MarginBackground"), QStringLiteral("#123456"));
    settings.setValue(QStringLiteral("ViewParameters/MarginBackground2"),
                      QStringLiteral("#123456"));
    const QString png = mDir.filePath(QStringLiteral("chart.png"));
    for (const char *type : {"candle", "bar", "line", "empty"}) {
        const Outcome r =
            runCli({QStringLiteral("render"), mFile, QStringLiteral("--out"), png,
                    QStringLiteral("--width"), QStringLiteral("400"), QStringLiteral("--height"),
                    QStringLiteral("300"), QStringLiteral("--type"), QLatin1String(type)});
        QCOMPARE(r.status, 0);
        const QImage image(png);
        QCOMPARE(image.size(), QSize(400, 300));
        // The scale strip's right edge, clear of labels.
        QCOMPARE(QColor(image.pixel(397, 150)), QColor(0x12, 0x34, 0x56));
    }
    // Indicator panes take their share of the height under the chart.
    const Outcome r = runCli({QStringLiteral("render"), mFile, QStringLiteral("--out"), png,
                              QStringLiteral("--indicator"), QStringLiteral("RSI:Period=3"),
                              QStringLiteral("--indicator"), QStringLiteral("Volume"),
                              QStringLiteral("--overlay"), QStringLiteral("SMA:Period=5")});
    QCOMPARE(r.status, 0);
    QCOMPARE(QImage(png).size(), QSize(1200, 800));
    settings.clear();
}

void TestCli::renderDrawsAStoredSymbolsFigures()
{
    QDir drawings(mDir.filePath(QStringLiteral("home/Drawings")));
    QVERIFY(QDir().mkpath(drawings.path()));
    QVERIFY(OrdaneData::writeText(
        drawings.filePath(QStringLiteral("MSFT.json")),
        QStringLiteral("{\"version\": 1, \"figures\": [{\"type\": \"rect\", \"color\": "
                       "\"#ff00ff\", \"width\": 3, \"style\": \"solid\", \"anchors\": "
                       "[{\"date\": \"2012-07-02\", \"price\": 27}, "
                       "{\"date\": \"2012-09-04\", \"price\": 30}]}]}")));
    const auto figurePixels = [this](const QString &file) {
        const QString png = mDir.filePath(QStringLiteral("figures.png"));
        const Outcome r = runCli({QStringLiteral("render"), file, QStringLiteral("--out"), png});
        const QImage image(png);
        int n = 0;
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x)
                n += QColor(image.pixel(x, y)) == QColor(255, 0, 255);
        return r.status == 0 ? n : -1;
    };
    QVERIFY(figurePixels(QStringLiteral("MSFT")) > 100);
    // The same quotes named by their path come without figures.
    QCOMPARE(figurePixels(mDir.filePath(QStringLiteral("home/Storage/MSFT.csv"))), 0);
    QVERIFY(drawings.removeRecursively());
}

void TestCli::indicatorPrintsItsBuffers()
{
    // EMA with period 1 follows the closes exactly (k = 1).
    Outcome r = runCli({QStringLiteral("indicator"), QStringLiteral("EMA"), mFile,
                        QStringLiteral("--param"), QStringLiteral("Period=1")});
    QCOMPARE(r.status, 0);
    QStringList lines = r.out.split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    QCOMPARE(lines.first(), QStringLiteral("Date,EMA"));
    QCOMPARE(lines.size(), 1 + 25);
    QCOMPARE(lines.at(1), QStringLiteral("2012-01-30,11"));

    // Buffers in name order; shifted lines run past the last bar, whose rows have no date.
    r = runCli({QStringLiteral("indicator"), QStringLiteral("Alligator"), mFile});
    QCOMPARE(r.status, 0);
    lines = r.out.split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    QCOMPARE(lines.first(), QStringLiteral("Date,Jaws,Lips,Teeth"));
    QCOMPARE(lines.size(), 1 + 25 + 8);
    QVERIFY(lines.last().startsWith(QLatin1Char(',')));
    QVERIFY(lines.last().endsWith(QStringLiteral(",,"))); // Lips and Teeth end sooner

    // Monthly bars: one row per month.
    r = runCli({QStringLiteral("indicator"), QStringLiteral("Volume"), mFile,
                QStringLiteral("--frame"), QStringLiteral("month")});
    QCOMPARE(r.out,
             QStringLiteral("Date,Volume\n2012-01-31,200\n2012-02-29,2100\n2012-03-02,200\n"));
}

void TestCli::mathReadsTheStandardInput()
{
    QProcess cli;
    cli.start(QStringLiteral(HALCYRA_CLI),
              {QStringLiteral("math"), QStringLiteral("sma"), QStringLiteral("2")});
    cli.write("1 2\n3\t4.5\n");
    cli.closeWriteChannel();
    QVERIFY(cli.waitForFinished(30000));
    QCOMPARE(cli.exitCode(), 0);
    QCOMPARE(cli.readAllStandardOutput(), QByteArray("0\n1.5\n2.5\n3.75\n"));

    cli.start(QStringLiteral(HALCYRA_CLI),
              {QStringLiteral("math"), QStringLiteral("ema"), QStringLiteral("3")});
    cli.write("1 two 3");
    cli.closeWriteChannel();
    QVERIFY(cli.waitForFinished(30000));
    QCOMPARE(cli.exitCode(), 1);
    QVERIFY(cli.readAllStandardError().contains("not a number: two"));
}

void TestCli::catalogueListsEveryIndicator()
{
    const Outcome r = runCli({QStringLiteral("catalogue")});
    QCOMPARE(r.status, 0);
    const QStringList lines = r.out.split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    QCOMPARE(lines.size(), 48);
    QCOMPARE(lines.first(), QStringLiteral("Volume\tVolume\tVolume\t\tVolume\tyes"));
    QVERIFY(lines.contains(QStringLiteral("RSI\tRelative Strength Index\tRSI(7,70,30)\t"
                                          "Period=7;LevelUp=70;LevelDown=30\tRSI\tyes")));
    QVERIFY(lines.contains(QStringLiteral("WilliamsBars\tWilliams Bull & Bear Bars\t"
                                          "WilliamsBars(3)\tBars Number=3\t\tno")));
}

void TestCli::templatePrintsTheSavedForm()
{
    // A hand-written file comes out indented, with its parameters sorted.
    const QString path = mDir.filePath(QStringLiteral("hand.tt"));
    QFile hand(path);
    QVERIFY(hand.open(QIODevice::WriteOnly));
    hand.write("<?xml version=\"1.0\"?><Template><TimeFrame>YEAR</TimeFrame><IndicatorView>"
               "<Indicator name=\"RSI\"><Parameter name=\"Period\">9.0</Parameter>"
               "<Parameter name=\"LevelDown\">25</Parameter></Indicator></IndicatorView>"
               "</Template>");
    hand.close();
    const Outcome r = runCli({QStringLiteral("template"), path});
    QCOMPARE(r.status, 0);
    QCOMPARE(r.out, QStringLiteral("<Template>\n <TimeFrame>YEAR</TimeFrame>\n <Zoom>8</Zoom>\n"
                                   " <BackgrounColor>#000000</BackgrounColor>\n <ChartView>\n"
                                   "  <Type>Candle</Type>\n  <ThreeD>true</ThreeD>\n"
                                   "  <Colored>true</Colored>\n </ChartView>\n"
                                   " <IndicatorView>\n  <Indicator name=\"RSI\">\n"
                                   "   <Parameter name=\"LevelDown\">25</Parameter>\n"
                                   "   <Parameter name=\"Period\">9</Parameter>\n"
                                   "  </Indicator>\n </IndicatorView>\n <Splitter/>\n"
                                   "</Template>\n"));

    // The tool itself carries the built-in templates.
    QProcess cli;
    cli.start(QStringLiteral(HALCYRA_CLI),
              {QStringLiteral("template"), OrdaneView::fallbackTemplate()});
    QVERIFY(cli.waitForFinished(30000));
    QCOMPARE(cli.exitCode(), 0);
    QFile week(OrdaneView::fallbackTemplate());
    QVERIFY(week.open(QIODevice::ReadOnly));
    QCOMPARE(cli.readAllStandardOutput(), week.readAll());
}

void TestCli::renderFollowsATemplate()
{
    const QString png = mDir.filePath(QStringLiteral("templated.png"));
    Outcome r = runCli({QStringLiteral("render"), mFile, QStringLiteral("--template"),
                        QStringLiteral(":/Templates/Williams.tt"), QStringLiteral("--out"), png,
                        QStringLiteral("--width"), QStringLiteral("640"),
                        QStringLiteral("--height"), QStringLiteral("480")});
    QCOMPARE(r.status, 0);
    QVERIFY2(r.err.isEmpty(), qPrintable(r.err));
    QCOMPARE(QImage(png).size(), QSize(640, 480));

    // An empty price chart on the template's background, 300 of 400 pixels high, over one
    // pane; an unknown indicator is reported, its pane dropped with its height, and the
    // chart still drawn.
    const QString path = mDir.filePath(QStringLiteral("plain.tt"));
    OrdaneView::ChartTemplate t;
    t.background = QColor(0x10, 0x20, 0x30);
    t.type = OrdaneView::ChartType::Empty;
    t.panes = {{{QStringLiteral("Ghost"), {}}}, {{QStringLiteral("Volume"), {}}}};
    t.splitter = {300, 50, 100};
    QVERIFY(OrdaneView::writeTemplateFile(path, t));
    const QStringList args = {
        QStringLiteral("render"),     mFile,
        QStringLiteral("--template"), path,
        QStringLiteral("--out"),      png,
        QStringLiteral("--width"),    QStringLiteral("400"),
        QStringLiteral("--height"),   QString::number(400 + OrdaneView::DateAxis::kHeight)};
    r = runCli(args);
    QCOMPARE(r.status, 0);
    QCOMPARE(r.err, QStringLiteral("Unknown indicator: Ghost\n"));
    QImage image(png);
    const QColor background(0x10, 0x20, 0x30);
    QCOMPARE(QColor(image.pixel(200, 150)), background);
    QCOMPARE(QColor(image.pixel(200, 299)), background);
    QVERIFY(QColor(image.pixel(200, 300)) != background); // the pane's top edge

    // A pane asked for besides the template's gets the height of an average one of them:
    // 300 : 100 : 100 of 400 pixels.
    r = runCli(args + QStringList{QStringLiteral("--indicator"), QStringLiteral("RSI")});
    QCOMPARE(r.status, 0);
    image.load(png);
    QCOMPARE(QColor(image.pixel(200, 239)), background);
    QVERIFY(QColor(image.pixel(200, 240)) != background);
}

// Bars opening at 10.5 and closing at their high of 11, low 8: a hammer (body half a third
// of the range: grade 2) after a fall and a hanging man after a rise; blended pairs are the
// same shape.
void TestCli::patternsClassifyEveryBar()
{
    QVector<QuoteBar> bars;
    for (int day = 1; day <= 5; ++day)
        bars.append(QuoteBar(QDate(2012, 10, day), 10.5f, 11, 8, 11, 100));
    const QString file = mDir.filePath(QStringLiteral("H.csv"));
    QVERIFY(OrdaneData::writeText(file, OrdaneData::seriesToText(bars)));
    const auto lines = [&](const QStringList &args) {
        const Outcome r = runCli(QStringList{QStringLiteral("patterns")} + args);
        return r.out.split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    };
    const QString single = QStringLiteral("single"), pair = QStringLiteral("pair"),
                  trend = QStringLiteral("--trend"), up = QStringLiteral("up"),
                  down = QStringLiteral("down");

    QStringList out = lines({single, file, trend, down});
    QCOMPARE(out.size(), 5);
    QCOMPARE(out.first(), QStringLiteral("2012-10-01,Hammer,2"));
    QCOMPARE(lines({single, file, trend, up}).last(), QStringLiteral("2012-10-05,HangingMan,2"));
    QCOMPARE(lines({single, file, trend, down, QStringLiteral("--require"),
                    QStringLiteral("Doji,HangingMan")})
                 .first(),
             QStringLiteral("2012-10-01,None,0"));

    // Pairs and triples are dated with their last bar; pairs blend only when asked.
    out = lines({pair, file, trend, up, QStringLiteral("--blending")});
    QCOMPARE(out.size(), 4);
    QCOMPARE(out.first(), QStringLiteral("2012-10-02,HangingMan,2"));
    QCOMPARE(lines({pair, file, trend, up}).first(), QStringLiteral("2012-10-02,None,0"));
    out = lines({QStringLiteral("triple"), file});
    QCOMPARE(out.size(), 3);
    QCOMPARE(out.first(), QStringLiteral("2012-10-03,None,0"));
}

// The tool as run on a server, in a container or by a build job: as whoever it runs as, with
// no XDG_RUNTIME_DIR. A successful command writes nothing on the error stream.
void TestCli::realProcess_data()
{
    QTest::addColumn<QStringList>("args");
    QTest::addColumn<int>("status");
    QTest::addColumn<QString>("says"); // on stdout for 0, on stderr otherwise

    const auto S = [](const char *s) {
        return QString::fromLatin1(s);
    };
    const QString png = mDir.filePath(S("process.png"));
    QTest::newRow("version") << QStringList{S("--version")} << 0 << S("halcyra-cli 2.0\n");
    QTest::newRow("bars") << QStringList{S("bars"), mFile} << 0 << mText;
    QTest::newRow("indicator") << QStringList{S("indicator"), S("RSI"), mFile} << 0
                               << S("Date,RSI\n");
    QTest::newRow("render") << QStringList{S("render"),      mFile,    S("--out"),     png,
                                           S("--indicator"), S("RSI"), S("--overlay"), S("SMA")}
                            << 0 << S("wrote ");
    QTest::newRow("meta") << QStringList{S("meta"), S("^GSPC")} << 0
                          << S("symbol=^GSPC\nname=S&P 500\nexchange=SNP\n");
    QTest::newRow("missing-file") << QStringList{S("bars"), S("/nonexistent")} << 1
                                  << S("no such file");
    // Parallel, reading the metadata store from the workers: nothing on the error stream.
    QTest::newRow("filter") << QStringList{S("filter"), S("RSIFilter"), S("--threads"), S("3")} << 0
                            << S("Symbol,RSI Value\nAAPL,79.191\n");
    QTest::newRow("filter-metadata") << QStringList{S("filter"), S("PE"), S("--threads"), S("2")}
                                     << 0 << S("Symbol,Current PE\nFound: 0 of 5\n");
}

void TestCli::realProcess()
{
    QFETCH(QStringList, args);
    QFETCH(int, status);
    QFETCH(QString, says);
    QProcess cli;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.remove(QStringLiteral("XDG_RUNTIME_DIR"));
    cli.setProcessEnvironment(environment);
    cli.start(QStringLiteral(HALCYRA_CLI), args);
    QVERIFY(cli.waitForFinished(30000));
    QCOMPARE(cli.exitStatus(), QProcess::NormalExit);
    QCOMPARE(cli.exitCode(), status);
    const QString out = QString::fromUtf8(cli.readAllStandardOutput());
    const QString err = QString::fromUtf8(cli.readAllStandardError());
    QVERIFY2((status == 0 ? out : err).contains(says), qPrintable(out + err));
    if (status == 0)
        QVERIFY2(err.isEmpty(), qPrintable(err));
}

// A script file runs by its path, plain or packed by the tool; its message box becomes a line
// on the error stream.
void TestCli::scriptsRunAndPack()
{
    const QString script = mDir.filePath(QStringLiteral("Closes.js"));
    QFile file(script);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("function init() { Closes.createBuffer('C'); }\n"
               "function start() { Closes.setBufferData('C', Shared.close());\n"
               "                   messageBox('bars:', Shared.numberOfQuotes()); }\n");
    file.close();
    const QString packed = mDir.filePath(QStringLiteral("Closes.bin"));
    QProcess cli;
    cli.start(QStringLiteral(HALCYRA_CLI), {QStringLiteral("pack"), script, packed});
    QVERIFY(cli.waitForFinished(30000));
    QCOMPARE(cli.exitCode(), 0);
    for (const QString &path : {script, packed}) {
        cli.start(QStringLiteral(HALCYRA_CLI), {QStringLiteral("indicator"), path, mFile});
        QVERIFY(cli.waitForFinished(30000));
        QCOMPARE(cli.exitCode(), 0);
        const QStringList lines =
            QString::fromUtf8(cli.readAllStandardOutput()).split(QLatin1Char('\n'));
        QCOMPARE(lines.first(), QStringLiteral("Date,C"));
        QCOMPARE(lines.at(1), QStringLiteral("2012-01-30,11"));
        QCOMPARE(lines.size(), 1 + 25 + 1);
        const QString name = QFileInfo(path).fileName();
        QVERIFY(cli.readAllStandardError().contains(name.toUtf8() + ": bars: 25"));
    }
}

// update, fetch and meta against the local quote service, whose samples reach yesterday.
void TestCli::updateFetchAndMetaFromTheService()
{
    TestSupport::QuoteService service({QStringLiteral("--fault"), QStringLiteral("MSFT=html")});
    QVERIFY(service.isRunning());
    QTemporaryDir home;
    const QString host = service.url().toString();
    const auto cli = [&](QStringList args) {
        return runCli(QStringList{QStringLiteral("--home"), home.path()} + args);
    };
    Outcome o = cli({QStringLiteral("update"), QStringLiteral("--table-host"), host,
                     QStringLiteral("AAPL"), QStringLiteral("MSFT"), QStringLiteral("UTX")});
    QCOMPARE(o.status, 1); // one failed
    const QStringList lines = o.out.split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    QCOMPARE(lines.size(), 3);
    QVERIFY2(QRegularExpression(QStringLiteral("^AAPL: updated [0-9]{4} rows$"))
                 .match(lines.at(0))
                 .hasMatch(),
             qPrintable(lines.at(0)));
    QVERIFY2(lines.at(1).startsWith(QStringLiteral("MSFT: failed (not a quote table")),
             qPrintable(lines.at(1)));
    QVERIFY(lines.at(2).startsWith(QStringLiteral("UTX: updated ")));
    o = cli(
        {QStringLiteral("update"), QStringLiteral("--table-host"), host, QStringLiteral("AAPL")});
    QCOMPARE(o.out, QStringLiteral("AAPL: up to date\n"));
    QCOMPARE(o.status, 0);

    // A symbol new to the store: its history, and its metadata from the quote host.
    QVERIFY(QFile::remove(QDir(home.path()).filePath(QStringLiteral("Storage/ADS.DE.csv"))));
    o = cli({QStringLiteral("fetch"), QStringLiteral("--table-host"), host,
             QStringLiteral("--quote-host"), host, QStringLiteral("ADS.DE")});
    QCOMPARE(o.status, 0);
    QVERIFY2(o.out.startsWith(QStringLiteral("ADS.DE: updated ")), qPrintable(o.out));
    o = cli({QStringLiteral("meta"), QStringLiteral("ADS.DE")});
    QCOMPARE(o.status, 0);
    QVERIFY2(o.out.contains(QStringLiteral("\nexchange=XETRA\n")), qPrintable(o.out));

    // Without a host nothing is tried.
    o = cli({QStringLiteral("update"), QStringLiteral("MAN.DE")});
    QCOMPARE(o.out, QStringLiteral("MAN.DE: failed (No quote service is configured)\n"));
}

// import writes each symbol with its .IMP and goes on past a source it cannot read; verify
// checks what is stored.
void TestCli::importAndVerify()
{
    QTemporaryDir home;
    const auto cli = [&](QStringList args) {
        return runCli(QStringList{QStringLiteral("--home"), home.path()} + args);
    };
    const QString export_ = mDir.filePath(QStringLiteral("EURUSD.csv"));
    QVERIFY(OrdaneData::writeText(
        export_, QByteArray("2010.03.15,00:00,1.3721,1.3758,1.3650,1.3744,41293\r\n"
                            "2010.03.16,00:00,1.3744,1.38,1.37,1.379,38000\r\n")));
    const QString missing = mDir.filePath(QStringLiteral("missing.csv"));
    Outcome o = cli({QStringLiteral("import"), QStringLiteral("metatrader"), missing, export_});
    QCOMPARE(o.status, 1);
    QCOMPARE(o.out, QStringLiteral("EURUSD.IMP\n"));
    QCOMPARE(o.err, QStringLiteral("halcyra-cli import: %1: cannot be read\n").arg(missing));

    // RBK merges without being asked; every ticker of the file is a symbol.
    o = cli({QStringLiteral("import"), QStringLiteral("rbk"),
             QFINDTESTDATA("../data/import/rbk/two_tickers.txt")});
    QCOMPARE(o.status, 0);
    QCOMPARE(o.out, QStringLiteral("ABC.IMP\nXYZ.IMP\n"));
    QVERIFY(o.err.isEmpty());
    o = cli(
        {QStringLiteral("import"), QStringLiteral("halcyra"), QStringLiteral("--merge"), mFile});
    QCOMPARE(o.out, QStringLiteral("X.IMP\n"));
    QCOMPARE(o.status, 0);

    const QString masterPath = mDir.filePath(QStringLiteral("MASTER"));
    QVERIFY(OrdaneData::writeText(masterPath, QByteArray(53, '\x01')));
    o = cli({QStringLiteral("import"), QStringLiteral("metastock"), masterPath});
    QCOMPARE(o.status, 1);
    QVERIFY2(o.err.contains(QStringLiteral("MASTER: no records")), qPrintable(o.err));

    o = cli({QStringLiteral("verify")});
    QVERIFY2(o.status == 0, qPrintable(o.out));
    QStringList lines = o.out.split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    QCOMPARE(lines.first(), QStringLiteral("symbol,rows,first,last,bad_lines,repeated_dates,"
                                           "out_of_order,gaps,status"));
    QCOMPARE(lines.size(), 1 + 5 + 4); // the samples and the imported symbols
    QVERIFY(lines.contains(QStringLiteral("EURUSD.IMP,2,2010-03-15,2010-03-16,0,0,0,0,ok")));
    QVERIFY(lines.contains(QStringLiteral("X.IMP,25,2012-01-30,2012-03-02,0,0,0,0,ok")));

    QVERIFY(OrdaneData::writeText(QDir(home.path()).filePath(QStringLiteral("Storage/BAD.csv")),
                                  QStringLiteral("junk")));
    o = cli({QStringLiteral("verify"), QStringLiteral("XYZ.IMP"), QStringLiteral("BAD")});
    QCOMPARE(o.status, 1);
    QCOMPARE(o.out, QStringLiteral("symbol,rows,first,last,bad_lines,repeated_dates,out_of_order,"
                                   "gaps,status\nXYZ.IMP,1,2012-09-20,2012-09-20,0,0,0,0,ok\n"
                                   "BAD,0,,,1,0,0,0,damaged\n"));
}

// The scanner's probe symbols; their order is the generator's own test's.
void TestCli::candidatesPrintsTheProbes_data()
{
    QTest::addColumn<QStringList>("args");
    QTest::addColumn<QString>("out"); // null: only the number of lines is checked
    const auto row = [](const char *name, std::initializer_list<const char *> args,
                        const char *out) {
        QStringList list{QStringLiteral("candidates")};
        for (const char *arg : args)
            list << QString::fromLatin1(arg);
        QTest::newRow(name) << list << QString::fromLatin1(out);
    };
    row("defaults", {"--count", "3"}, "0.de\n1.de\n2.de\n");
    row("hundred-by-default", {}, nullptr);
    row("from-an-index", {"--start", "36", "--count", "3", "--postfix", ".F"}, "_.F\n0.F\n01.F\n");
    row("prefix-fill-and-length",
        {"--start", "7", "--count", "2", "--length", "5", "--fill", "0*", "--prefix", "X",
         "--postfix", ""},
        "X00007\nX00008\n");
    row("ends-at-the-count",
        {"--alphabet", "AX-", "--length", "1", "--count", "10", "--postfix", ""}, "A\nX\nA\n");
    row("no-candidates", {"--alphabet", "A"}, "");
}

void TestCli::candidatesPrintsTheProbes()
{
    QFETCH(QStringList, args);
    QFETCH(QString, out);
    const Outcome r = runCli(args);
    QCOMPARE(r.status, 0);
    QVERIFY(r.err.isEmpty());
    if (out.isNull())
        QCOMPARE(r.out.count(QLatin1Char('\n')), 100);
    else
        QCOMPARE(r.out, out);
}

// filter runs over the stored symbols in name order (the store's own files are none), or the
// named ones, and sees nothing after --as-of.
void TestCli::filterPrintsThePassingSymbols()
{
    QTemporaryDir home;
    const QString storage = home.filePath(QStringLiteral("Storage"));
    QVERIFY(QDir().mkpath(storage));
    const auto store = [&storage](const char *symbol, std::initializer_list<float> closes) {
        QVector<QuoteBar> bars;
        for (float c : closes)
            bars << QuoteBar(QDate(2012, 3, 5).addDays(bars.size()), c, c, c, c, 100);
        QVERIFY(OrdaneData::writeText(storage + QLatin1Char('/') + QLatin1String(symbol) +
                                          QLatin1String(".csv"),
                                      OrdaneData::seriesToText(bars)));
    };
    store("C", {8, 9, 30}); // 30 on Wednesday 7 March
    store("B", {5});
    store("A", {15.25f});
    QVERIFY(OrdaneData::writeText(storage + QStringLiteral("/_own.csv"), QStringLiteral("x")));
    const auto filter = [&](QStringList args) {
        return runCli(QStringList{QStringLiteral("--home"), home.path(), QStringLiteral("filter"),
                                  QStringLiteral("Price"), QStringLiteral("--set"),
                                  QStringLiteral("Price Range=10..40")} +
                      args);
    };
    const QString header = QStringLiteral("Symbol,Current Price\n");
    for (const char *threads : {"1", "2"}) {
        const Outcome o = filter({QStringLiteral("--threads"), QLatin1String(threads)});
        QCOMPARE(o.status, 0);
        QCOMPARE(o.out, header + QStringLiteral("A,15.250\nC,30.000\nFound: 2 of 3\n"));
        QVERIFY(o.err.isEmpty());
    }
    Outcome o = filter({QStringLiteral("--as-of"), QStringLiteral("2012-03-06")});
    QCOMPARE(o.out, header + QStringLiteral("A,15.250\nFound: 1 of 3\n"));
    o = filter({QStringLiteral("C"), QStringLiteral("NOPE"), QStringLiteral("B")});
    QCOMPARE(o.out, header + QStringLiteral("C,30.000\nFound: 1 of 3\n"));
}

QTEST_MAIN(TestCli)
#include "test_cli.moc"
