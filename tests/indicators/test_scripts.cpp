// Script indicators: the script files (plain, packed, refused), the engine's interface as a
// script sees it, the lifecycle with its error reports and the watchdog, the factory, and
// the starter script of a new indicator.

#include "data/home.h"
#include "indicators/catalogue.h"
#include "indicators/script/indicatorfactory.h"
#include "indicators/script/newindicator.h"
#include "indicators/script/scriptfile.h"
#include "indicators/script/scriptmessages.h"
#include "indicators/script/scriptrun.h"
#include "indicators/script/userindicator.h"
#include "support/series.h"
#include "support/testsettings.h"
#include "view/chartgeometry.h"
#include "view/viewcanvas.h"

#include <QLoggingCategory>
#include <QPainter>
#include <QtEndian>
#include <QtTest>

#include <algorithm>
#include <memory>

using namespace OrdaneView;
using namespace OrdaneView::Scripts;

namespace {
struct Message
{
    Severity severity;
    QString title;
    QString text;
};
} // namespace

class TestScripts : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();

    void smaScriptMatchesTheBuiltIn();
    void templateParametersReplaceDefaults();
    void packedFiles_data();
    void packedFiles();
    void packRoundTripRuns();
    void scriptInterface();
    void drawPaintsAfterTheBuffers();
    void exceptionInStartReportedOnEveryRecompute();
    void brokenScriptsAreReported_data();
    void brokenScriptsAreReported();
    void endlessLoopsAreStopped();
    void engineLog_data();
    void engineLog();
    void getIndicatorReadsAnotherIndicator();
    void factoryFindsScriptsByName();
    void starterScript_data();
    void starterScript();

private:
    // Writes a script into the user indicator folder and returns its path.
    QString write(const QString &fileName, const QByteArray &text);
    std::unique_ptr<UserIndicator> load(const QString &fileName, const QByteArray &text,
                                        ViewCanvas *view = nullptr);
    // The same as the master layer of a pane (which owns it).
    UserIndicator *loadInPane(ViewCanvas &canvas, const QString &fileName, const QByteArray &text);
    QVector<float> run(UserIndicator &indicator, const QString &buffer);

    QTemporaryDir mHome;
    OrdaneData::ReaderH mSeries;
    QList<Message> mMessages;
};

void TestScripts::initTestCase()
{
    QVERIFY(TestSupport::useTestHome(mHome.path()));
    mSeries = TestSupport::randomSeries(600);
    setMessageHandler([this](Severity severity, const QString &title, const QString &text) {
        mMessages.append({severity, title, text});
    });
}

void TestScripts::init()
{
    mMessages.clear();
    ScriptRun::setDefaultTimeout(5000);
}

void TestScripts::cleanup()
{
    QDir folder(OrdaneData::Home::userIndicatorsPath());
    for (const QString &file : folder.entryList(QDir::Files))
        folder.remove(file);
}

QString TestScripts::write(const QString &fileName, const QByteArray &text)
{
    const QString path = QDir(OrdaneData::Home::userIndicatorsPath()).filePath(fileName);
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(text) != text.size())
        return QString();
    return path;
}

std::unique_ptr<UserIndicator> TestScripts::load(const QString &fileName, const QByteArray &text,
                                                 ViewCanvas *view)
{
    auto indicator = std::make_unique<UserIndicator>(write(fileName, text), view);
    indicator->setReader(mSeries);
    return indicator;
}

UserIndicator *TestScripts::loadInPane(ViewCanvas &canvas, const QString &fileName,
                                       const QByteArray &text)
{
    UserIndicator *layer = load(fileName, text, &canvas).release();
    canvas.setReader(mSeries);
    canvas.addLayer(layer);
    canvas.setMasterLayer(layer);
    return layer;
}

namespace {
QImage paint(ViewCanvas &canvas, int plotWidth)
{
    canvas.setSize(QSize(plotWidth + ViewCanvas::kRightMargin, 100));
    QImage image(canvas.size(), QImage::Format_RGB32);
    QPainter painter(&image);
    canvas.paint(painter);
    return image;
}
} // namespace

QVector<float> TestScripts::run(UserIndicator &indicator, const QString &buffer)
{
    indicator.init();
    indicator.start();
    return indicator.bufferData(buffer);
}

void TestScripts::smaScriptMatchesTheBuiltIn()
{
    // Once through the series routine, once added up in the script itself (in double, so
    // equal within float rounding).
    auto script = load(QStringLiteral("Avg.js"), R"js(
        function init() {
            Avg.createBuffer("Routine");
            Avg.createBuffer("Loop");
            Avg.createParameter("Period", 32);
        }
        function start() {
            var p = Avg.parameter("Period"), closes = Shared.close(), n = Shared.numberOfQuotes();
            Avg.setBufferData("Routine", Avg.sma(p, closes));
            var out = new Array(n), sum = 0;
            for (var i = 0; i < n; ++i) {
                sum += Shared.close(i);
                if (i >= p) sum -= Shared.close(i - p);
                out[i] = i >= p - 1 ? sum / p : 0;
            }
            Avg.setBufferData("Loop", out);
            Avg.label = "Avg(" + p + ")";
        })js");
    QVERIFY(script->isLoaded());
    std::unique_ptr<IndicatorLayer> builtin(
        createBuiltinIndicator(QStringLiteral("SMA"), mSeries, nullptr));
    builtin->init();
    builtin->start();
    const QVector<float> expected = builtin->bufferData(QStringLiteral("SMA"));

    QCOMPARE(run(*script, QStringLiteral("Routine")), expected);
    const QVector<float> loop = script->bufferData(QStringLiteral("Loop"));
    QCOMPARE(loop.size(), expected.size());
    for (int i = 0; i < loop.size(); ++i)
        QVERIFY2(std::fabs(loop.at(i) - expected.at(i)) <= 1e-4f * std::fabs(expected.at(i)),
                 qPrintable(QString::number(i)));
    QCOMPARE(script->label(), QStringLiteral("Avg(32)"));
    QCOMPARE(script->name(), QStringLiteral("Avg.js"));
    QVERIFY(mMessages.isEmpty());
}

void TestScripts::templateParametersReplaceDefaults()
{
    auto script = load(QStringLiteral("Param.js"), R"js(
        function init() { with (Param) { createBuffer("P"); createParameter("Period", 75);
                                          createParameter("Shift", 2); } }
        function start() { Param.setBufferData("P", [Param.parameter("Period"),
                                                     Param.parameter("Shift")]); })js");
    script->setParameter(QStringLiteral("Period"), 10); // as a template loads it
    QCOMPARE(run(*script, QStringLiteral("P")), (QVector<float>{10, 2}));
    QCOMPARE(script->parameters().keys(),
             (QStringList{QStringLiteral("Period"), QStringLiteral("Shift")}));
    // And again after a change in the properties dialog.
    script->setParameter(QStringLiteral("Shift"), 4);
    QCOMPARE(run(*script, QStringLiteral("P")), (QVector<float>{10, 4}));
}

void TestScripts::packedFiles_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("error");
    const QByteArray good = packScript(QStringLiteral("function start() {}"));
    QByteArray bomb = "MZE" + qCompress(QByteArray(64 * 1024, 'x'));
    qToBigEndian<quint32>(100, bomb.data() + 3); // states less than it holds
    QByteArray huge = "MZE" + qCompress(QByteArray("x"));
    qToBigEndian<quint32>(kMaxScriptBytes + 1, huge.data() + 3);
    QByteArray damaged = good;
    damaged[damaged.size() - 3] = char(damaged.at(damaged.size() - 3) ^ 0x55);

    QTest::newRow("no-magic") << good.mid(3) << "Script error: Unknown binary format";
    QTest::newRow("plain-text-named-bin")
        << QByteArray("function start() {}") << "Script error: Unknown binary format";
    QTest::newRow("magic-only") << QByteArray("MZE") << "cut short";
    QTest::newRow("states-more-than-the-limit") << huge << "more than the limit";
    QTest::newRow("holds-more-than-it-states") << bomb << "does not unpack to the 100 bytes";
    QTest::newRow("damaged-stream") << damaged << "damaged";
}

void TestScripts::packedFiles()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QString, error);
    const ScriptText text = decodeScript(bytes, true);
    QVERIFY2(text.error.contains(error), qPrintable(text.error));
    QVERIFY(text.text.isEmpty());

    // As an indicator: refused with the message, nothing runs.
    auto script = load(QStringLiteral("Locked.bin"), bytes);
    QVERIFY(!script->isLoaded());
    QCOMPARE(mMessages.size(), 1);
    QCOMPARE(mMessages.first().title, QStringLiteral("Error"));
    QVERIFY(mMessages.first().text.contains(error));
    script->init();
    script->start();
    QVERIFY(script->buffers().isEmpty());
}

void TestScripts::packRoundTripRuns()
{
    const QString source =
        QStringLiteral("// Ünïcödé survives\nfunction init() { Locked.createBuffer(\"L\"); }\n"
                       "function start() { Locked.setBufferData(\"L\", Shared.close()); }\n");
    const QByteArray packed = packScript(source);
    QVERIFY(packed.startsWith("MZE"));
    QCOMPARE(decodeScript(packed, true).text, source);

    auto script = load(QStringLiteral("Locked.bin"), packed);
    QVERIFY(script->isPacked());
    QCOMPARE(script->name(), QStringLiteral("Locked.bin"));
    QCOMPARE(run(*script, QStringLiteral("L")), script->close());
}

void TestScripts::scriptInterface()
{
    ChartGeometry geometry;
    ViewCanvas canvas(&geometry);
    UserIndicator *script = loadInPane(canvas, QStringLiteral("Face.js"), R"js(
        function init() {
            Face.createBuffer("A"); Face.createBuffer("B");
            Face.setBufferDrawStyle("B", DrawStyle.HISTOGRAM);
            Face.setBufferColor("A", "#123456");
            Face.setAutoChangeMaxMin("A", "B");
            Face.addLevel(5, "#ff0000");
            Face.fullName = "Face Test";
        }
        function start() {
            Face.setBufferData("A", [1, 2, 3, 4]);
            Face.setBufferData("B", [-2, 0, 9, 1]);
            Face.drawBox(1, 2, "#00ff00", "here");
            var checks = [DrawStyle.LINE, DrawStyle.histogram(), DrawStyle.points(),
                          PenStyle.DashLine, PenStyle.noPen(), PenStyle.customDashLine(),
                          BrushStyle.Dense1Pattern, BrushStyle.dense1Pattern(),
                          BrushStyle.texturePattern()];
            Face.setBufferData("Checks", checks);
            Face.createBuffer("Checks");
            Face.setBufferData("Checks", checks);
            Face.createBuffer("Shifted");
            Face.setBufferData("Shifted", Face.shift(2, [7, 8]));
            messageBox("flag", Image.flag("en"), Image.UpTick == Image.upTick());
            output("written to the debug output");
        })js");
    QCOMPARE(run(*script, QStringLiteral("Checks")),
             (QVector<float>{0, 1, 2, Qt::DashLine, Qt::NoPen, Qt::CustomDashLine,
                             Qt::Dense1Pattern, Qt::Dense1Pattern, Qt::TexturePattern}));
    QCOMPARE(script->bufferData(QStringLiteral("Shifted")), (QVector<float>{0, 0, 7, 8}));
    QCOMPARE(script->buffers().value(QStringLiteral("A")).colour, QColor(0x12, 0x34, 0x56));
    QCOMPARE(script->buffers().value(QStringLiteral("B")).drawStyle, int(HISTOGRAM));
    QCOMPARE(script->fullName(), QStringLiteral("Face Test"));
    QCOMPARE(script->levels().size(), 1);
    QCOMPARE(script->barColours().keys(), (QList<int>{1, 2}));
    QCOMPARE(mMessages.size(), 1);
    QCOMPARE(mMessages.first().title, QStringLiteral("Face.js"));
    QCOMPARE(mMessages.first().text, QStringLiteral("flag :/pix/fen.bmp true"));

    // The pane's range takes in every buffer drawn, not only the two named: Checks reaches
    // Qt::TexturePattern (24).
    geometry.setFirstVisible(0);
    paint(canvas, 300);
    QCOMPARE(script->max(), 24.0f);
    QCOMPARE(script->min(), -2.0f);
}

void TestScripts::drawPaintsAfterTheBuffers()
{
    ChartGeometry geometry;
    ViewCanvas canvas(&geometry);
    UserIndicator *layer = loadInPane(canvas, QStringLiteral("Box.js"), R"js(
        function init() { Box.createBuffer("X"); Box.max = 10; Box.min = 0; }
        function start() { Box.setBufferData("X", [5, 5, 5, 5, 5, 5, 5, 5, 5, 5]); }
        function draw() {
            Painter.setPen("#ff0000", 1, PenStyle.SolidLine);
            Painter.setBrush("#ff0000", BrushStyle.SolidPattern);
            Painter.drawRect(0, 30, 40, 60);
            Box.label = "drawn " + Shared.width() + "x" + Shared.height();
        })js");
    layer->init();
    layer->start();
    const QImage image = paint(canvas, 200);
    QCOMPARE(QColor(image.pixel(20, 45)), QColor(Qt::red));
    QCOMPARE(layer->label(), QStringLiteral("drawn 258x100"));
    QCOMPARE(layer->max(), 10.0f); // set by the script, not fitted
}

void TestScripts::exceptionInStartReportedOnEveryRecompute()
{
    auto script = load(QStringLiteral("Throws.js"), R"js(
        function init() { Throws.createBuffer("T"); }
        function start() { Throws.setBufferData("T", [1]); undefinedFunction(); })js");
    for (int i = 1; i <= 3; ++i) {
        script->init();
        script->start();
        QCOMPARE(mMessages.size(), i);
        QCOMPARE(mMessages.last().title, QStringLiteral("Exeption"));
        QVERIFY(mMessages.last().text.startsWith(QLatin1String("EXEPTION!!!")));
        QVERIFY(mMessages.last().text.contains(QLatin1String("Line: 3")));
    }
    // What ran before the exception stays.
    QCOMPARE(script->bufferData(QStringLiteral("T")), QVector<float>{1});
}

void TestScripts::brokenScriptsAreReported_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QString>("report"); // empty: no message
    QTest::addColumn<int>("buffers");
    QTest::newRow("syntax-error") << QByteArray("function init( {") << "Script evaluating error"
                                  << 0;
    QTest::newRow("throws-at-top-level")
        << QByteArray("function init() {}\nthrow new Error('bad');") << "Line: 2" << 0;
    QTest::newRow("leaves-an-error-value") << QByteArray("function init() {}\nnew Error('left')")
                                           << "Evaluation Error: Error: left" << 0;
    QTest::newRow("throws-in-init")
        << QByteArray("function init() { Bad.createBuffer('I'); x.y; }") << "" << 1;
    QTest::newRow("no-start") << QByteArray("function init() { Bad.createBuffer('I'); }") << ""
                              << 1;
    QTest::newRow("no-functions-at-all") << QByteArray("var x = 1;") << "" << 0;
}

void TestScripts::brokenScriptsAreReported()
{
    QFETCH(QByteArray, text);
    QFETCH(QString, report);
    QFETCH(int, buffers);
    auto script = load(QStringLiteral("Bad.js"), text);
    script->init();
    script->start();
    script->deinit();
    if (report.isEmpty()) {
        QVERIFY(mMessages.isEmpty());
    } else {
        QCOMPARE(mMessages.size(), 1);
        QVERIFY2(mMessages.first().text.contains(report), qPrintable(mMessages.first().text));
    }
    QCOMPARE(script->buffers().size(), buffers);
}

void TestScripts::endlessLoopsAreStopped()
{
    ScriptRun::setDefaultTimeout(300);
    auto script = load(QStringLiteral("Loop.js"), R"js(
        function init() { Loop.createBuffer("L"); Loop.createParameter("Forever", 0); }
        function start() {
            Loop.setBufferData("L", [Loop.parameter("Forever")]);
            Loop.drawBox(0, 1, "#ff0000");
            while (Loop.parameter("Forever") > 0) {}
        })js");
    QCOMPARE(run(*script, QStringLiteral("L")), QVector<float>{0});
    QVERIFY(mMessages.isEmpty());

    script->setParameter(QStringLiteral("Forever"), 1);
    QElapsedTimer clock;
    clock.start();
    script->start();
    QCOMPARE(script->bufferData(QStringLiteral("L")), QVector<float>{0}); // the buffers it had
    QVERIFY(clock.elapsed() < 3000);
    QCOMPARE(mMessages.size(), 1);
    QVERIFY(mMessages.first().text.contains(QLatin1String("was stopped")));
    QCOMPARE(script->barColours().size(), 1);

    // The engine is still usable afterwards.
    script->setParameter(QStringLiteral("Forever"), 0);
    QCOMPARE(run(*script, QStringLiteral("L")), QVector<float>{0});
    QCOMPARE(mMessages.size(), 1);

    // At the top level of the file too.
    auto hang = load(QStringLiteral("Hang.js"), "for (;;) {}");
    QVERIFY(!hang->isLoaded());
    QCOMPARE(mMessages.size(), 2);

    // The time a user takes over a script's message box is not the script's.
    const MessageHandler recorder =
        setMessageHandler([](Severity, const QString &, const QString &) { QTest::qWait(600); });
    auto slow = load(QStringLiteral("Slow.js"), R"js(
        function init() { Slow.createBuffer("S"); }
        function start() { messageBox("read me"); Slow.setBufferData("S", [1]); })js");
    QCOMPARE(run(*slow, QStringLiteral("S")), QVector<float>{1});
    setMessageHandler(recorder);
    QCOMPARE(mMessages.size(), 2);
}

namespace {
struct LogLine
{
    QtMsgType type;
    QString category;
    QString text;
};
QList<LogLine> gLog;
} // namespace

void TestScripts::engineLog_data()
{
    QTest::addColumn<QString>("rules");
    QTest::addColumn<bool>("debugShown");
    QTest::newRow("debug-off-by-default") << QString() << false;
    QTest::newRow("debug-enabled") << QStringLiteral("halcyra.script.debug=true") << true;
}

void TestScripts::engineLog()
{
    QFETCH(QString, rules);
    QFETCH(bool, debugShown);
    auto script = load(QStringLiteral("Log.js"), R"js(
        function init() { Log.createBuffer("L"); undefinedInInit(); }
        function start() { output("from", "the script"); })js");
    QLoggingCategory::setFilterRules(rules);
    gLog.clear();
    const QtMessageHandler previous = qInstallMessageHandler(
        [](QtMsgType type, const QMessageLogContext &context, const QString &text) {
            gLog.append({type, QString::fromLatin1(context.category), text});
        });
    script->init();
    script->start();
    qInstallMessageHandler(previous);
    QLoggingCategory::setFilterRules(QString());

    const auto logged = [](QtMsgType type, const QString &text) {
        return std::any_of(gLog.cbegin(), gLog.cend(), [&](const LogLine &line) {
            return line.type == type && line.category == QLatin1String("halcyra.script") &&
                   line.text.contains(text);
        });
    };
    QCOMPARE(logged(QtDebugMsg, QStringLiteral("!!!0")), debugShown);
    // What the script writes, and an error no message box reports, are shown either way.
    QVERIFY(logged(QtInfoMsg, QStringLiteral("from the script")));
    QVERIFY(logged(QtWarningMsg, QStringLiteral("Log.js Exception: ReferenceError")));
    QVERIFY(mMessages.isEmpty());
}

void TestScripts::getIndicatorReadsAnotherIndicator()
{
    auto script = load(QStringLiteral("Uses.js"), R"js(
        function init() { Uses.createBuffer("R"); }
        function start() {
            var rsi = Uses.getIndicator("RSI");
            rsi.setParameter("Period", 9);
            rsi.init();
            rsi.start();
            Uses.setBufferData("R", rsi.bufferData("RSI"));
            Uses.label = String(Uses.getIndicator("NoSuchThing"));
        })js");
    std::unique_ptr<IndicatorLayer> rsi(
        createBuiltinIndicator(QStringLiteral("RSI"), mSeries, nullptr));
    rsi->setParameter(QStringLiteral("Period"), 9);
    rsi->init();
    rsi->start();
    QCOMPARE(run(*script, QStringLiteral("R")), rsi->bufferData(QStringLiteral("RSI")));
    QCOMPARE(script->label(), QStringLiteral("null"));
    // Made anew at every start(), the old ones go.
    script->start();
    QCOMPARE(script->findChildren<IndicatorLayer *>(QString(), Qt::FindDirectChildrenOnly).size(),
             1);

    // A script asking for itself ends with an error, not a stack overflow.
    auto self = load(QStringLiteral("Self.js"),
                     "var again = Self.getIndicator('Self.js');\nfunction start() {}");
    QVERIFY(!mMessages.isEmpty());
    QVERIFY(mMessages.last().text.contains(QLatin1String("nest too deep")));
}

void TestScripts::factoryFindsScriptsByName()
{
    write(QStringLiteral("Trend.js"), "function start() {}");
    write(QStringLiteral("Hidden.bin"), packScript(QStringLiteral("function start() {}")));
    const QString folder = OrdaneData::Home::userIndicatorsPath();
    QCOMPARE(QFileInfo(scriptFileFor(QStringLiteral("Trend"), folder)).fileName(),
             QStringLiteral("Trend.js"));
    QCOMPARE(QFileInfo(scriptFileFor(QStringLiteral("Hidden"), folder)).fileName(),
             QStringLiteral("Hidden.bin"));
    for (const char *refused : {"Missing.js", "../UserIndicators/Trend.js", "/etc/Trend.js", ""})
        QVERIFY2(scriptFileFor(QLatin1String(refused), folder).isEmpty(), refused);

    std::unique_ptr<IndicatorLayer> trend(
        createIndicator(QStringLiteral("Trend.js"), mSeries, nullptr));
    QVERIFY(qobject_cast<UserIndicator *>(trend.get()));
    QCOMPARE(trend->name(), QStringLiteral("Trend.js"));
    std::unique_ptr<IndicatorLayer> builtin(
        createIndicator(QStringLiteral("EMA"), mSeries, nullptr));
    QCOMPARE(builtin->name(), QStringLiteral("EMA"));
    QVERIFY(!createIndicator(QStringLiteral("Missing.js"), mSeries, nullptr));
}

void TestScripts::starterScript_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("plain") << "Trend";
    QTest::newRow("holds-XXX") << "MyXXXLine";
}

void TestScripts::starterScript()
{
    QFETCH(QString, name);
    const QString text = newIndicatorText(name);
    const QString starter = newIndicatorText(QStringLiteral("XXX"));
    // Every XXX of the starter, in code, comments and strings alike, and nothing else.
    QCOMPARE(text.count(name), starter.count(QStringLiteral("XXX")));
    QCOMPARE(QString(text).remove(name).count(QStringLiteral("XXX")), 0);
    QVERIFY(text.contains(QStringLiteral("createBuffer(\"%1\");").arg(name)));
    QVERIFY(text.contains(
        QStringLiteral("%1.label = \"%1 (\" + %1.parameter(\"Period\") + \")\";").arg(name)));

    // It runs as written: a green line of the closes.
    QString path;
    QCOMPARE(createIndicatorScript(OrdaneData::Home::userIndicatorsPath(),
                                   name + QStringLiteral(".js"), &path),
             CreateResult::Created);
    QCOMPARE(createIndicatorScript(OrdaneData::Home::userIndicatorsPath(), name, &path),
             CreateResult::Exists);
    UserIndicator script(path, nullptr);
    script.setReader(mSeries);
    QCOMPARE(run(script, name), script.close());
    QCOMPARE(script.label(), name + QStringLiteral(" (75)"));
    QCOMPARE(script.buffers().value(name).colour, QColor(Qt::green));
    QVERIFY(mMessages.isEmpty());

    QCOMPARE(
        createIndicatorScript(OrdaneData::Home::userIndicatorsPath(), QStringLiteral("  "), &path),
        CreateResult::NoName);
    QCOMPARE(createIndicatorScript(OrdaneData::Home::userIndicatorsPath(), QStringLiteral("2fast"),
                                   &path),
             CreateResult::BadName);
}

QTEST_MAIN(TestScripts)
#include "test_scripts.moc"
