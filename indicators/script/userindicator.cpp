#include "userindicator.h"

#include "indicatorfactory.h"
#include "indicators/compute/seriesmath.h"
#include "scriptfile.h"
#include "scriptglobals.h"
#include "scriptmessages.h"
#include "scriptrun.h"

#include <QDebug>
#include <QFileInfo>
#include <QPainter>
#include <QScriptContext>
#include <QScriptEngine>

#include <algorithm>
#include <cmath>

Q_DECLARE_METATYPE(QVector<float>)

namespace OrdaneView {

namespace {
// The layer a script reads the series through (the global Shared): the series and the
// geometry of its indicator, nothing to draw.
class SharedLayer : public Layer
{
    Q_OBJECT

public:
    using Layer::Layer;
    void draw(QPainter &, int) override {}
};

// Deep nesting of getIndicator (a script that asks for itself) ends here rather than in a
// stack overflow.
thread_local int gNesting = 0;
constexpr int kMaxNesting = 8;

// Reading bars is what scripts do most, a bar at a time in their loops. Calls through the
// layer's meta-object cost about a microsecond each; these native forms of the same
// operations a tenth of that. Without an argument each gives the whole column.
template <float (Layer::*Bar)(int) const, QVector<float> (Layer::*Column)() const>
QScriptValue barValue(QScriptContext *context, QScriptEngine *engine, void *layer)
{
    const auto *l = static_cast<const Layer *>(layer);
    if (context->argumentCount() == 0)
        return qScriptValueFromSequence(engine, (l->*Column)());
    return QScriptValue(double((l->*Bar)(context->argument(0).toInt32())));
}

QScriptValue volumeValue(QScriptContext *context, QScriptEngine *engine, void *layer)
{
    const auto *l = static_cast<const Layer *>(layer);
    if (context->argumentCount() == 0)
        return qScriptValueFromSequence(engine, l->volume());
    return QScriptValue(double(l->volume(context->argument(0).toInt32())));
}

QScriptValue quoteCount(QScriptContext *, QScriptEngine *, void *layer)
{
    return QScriptValue(static_cast<const Layer *>(layer)->numberOfQuotes());
}

// Shared: the layer's own script object behind an object that answers the bar readers
// natively.
QScriptValue sharedObject(QScriptEngine *engine, Layer *layer,
                          QScriptEngine::QObjectWrapOptions options)
{
    QScriptValue shared = engine->newObject();
    shared.setPrototype(engine->newQObject(layer, QScriptEngine::QtOwnership, options));
    const auto add = [&](const char *name, QScriptEngine::FunctionWithArgSignature f) {
        shared.setProperty(QLatin1String(name), engine->newFunction(f, layer));
    };
    add("close", &barValue<&Layer::close, &Layer::close>);
    add("open", &barValue<&Layer::open, &Layer::open>);
    add("high", &barValue<&Layer::high, &Layer::high>);
    add("low", &barValue<&Layer::low, &Layer::low>);
    add("median", &barValue<&Layer::median, &Layer::median>);
    add("typical", &barValue<&Layer::typical, &Layer::typical>);
    add("volume", &volumeValue);
    add("numberOfQuotes", &quoteCount);
    return shared;
}

QString describeException(QScriptEngine *engine)
{
    return QStringLiteral("Exception: ") + engine->uncaughtException().toString() +
           QStringLiteral("\nLine: ") + QString::number(engine->uncaughtExceptionLineNumber()) +
           QStringLiteral("\nBacktrace: ") +
           engine->uncaughtExceptionBacktrace().join(QLatin1Char('\n'));
}

void dropIndicators(QList<QPointer<QObject>> &list)
{
    for (const QPointer<QObject> &object : qAsConst(list))
        delete object.data();
    list.clear();
}
} // namespace

UserIndicator::UserIndicator(const QString &path, ViewCanvas *view, QObject *parent)
    : IndicatorLayer(view, parent)
    , mPath(path)
    , mBaseName(QFileInfo(path).completeBaseName())
    , mPacked(Scripts::isPackedName(path))
    , mEngine(std::make_unique<QScriptEngine>())
    , mShared(new SharedLayer(view, this))
    , mPainter(new Scripts::ScriptPainter(this))
    , mImage(new Scripts::ScriptImage(this))
{
    setFullName(mBaseName);
    setLabel(mBaseName);

    QScriptEngine *e = mEngine.get();
    qScriptRegisterSequenceMetaType<QVector<float>>(e);
    const auto options = QScriptEngine::ExcludeDeleteLater | QScriptEngine::ExcludeChildObjects;
    QScriptValue global = e->globalObject();
    global.setProperty(mBaseName, e->newQObject(this, QScriptEngine::QtOwnership, options));
    global.setProperty(QStringLiteral("Shared"), sharedObject(e, mShared, options));
    global.setProperty(QStringLiteral("Image"),
                       e->newQObject(mImage, QScriptEngine::QtOwnership, options));
    global.setProperty(QStringLiteral("Painter"),
                       e->newQObject(mPainter, QScriptEngine::QtOwnership, options));
    Scripts::installConstants(e, name());
    load();
}

UserIndicator::~UserIndicator()
{
    // The debugger watches the engine; it goes first.
    delete mDebugger.data();
    dropIndicators(mStartIndicators);
    dropIndicators(mInitIndicators);
    mEngine.reset();
}

void UserIndicator::load()
{
    const Scripts::ScriptText script = Scripts::readScript(mPath);
    if (!script.error.isEmpty()) {
        Scripts::showMessage(Scripts::Severity::Critical, tr("Error"), script.error);
        return;
    }
    QScriptValue result;
    bool stopped = false;
    {
        Scripts::ScriptRun run(mEngine.get(), Scripts::ScriptRun::defaultTimeout());
        result = mEngine->evaluate(script.text, name());
        stopped = run.timedOut();
    }
    QString details;
    if (stopped) {
        details = tr("The script ran longer than %1 seconds and was stopped.")
                      .arg(Scripts::ScriptRun::defaultTimeout() / 1000.0);
    } else if (mEngine->hasUncaughtException()) {
        details = describeException(mEngine.get());
    } else if (result.isError()) {
        details = QStringLiteral("Evaluation Error: ") + result.toString();
    }
    mEngine->clearExceptions();
    if (!details.isEmpty()) {
        qCDebug(Scripts::lcScript).noquote() << name() << details;
        Scripts::showMessage(Scripts::Severity::Critical, tr("Error"),
                             tr("Script evaluating error") + QStringLiteral("\n\n") + name() +
                                 QStringLiteral("\n") + details);
        return;
    }
    mLoaded = true;
}

void UserIndicator::setDebugger(QObject *debugger)
{
    delete mDebugger.data();
    mDebugger = debugger;
    if (debugger)
        debugger->setParent(this);
}

void UserIndicator::syncShared()
{
    mShared->setGeometry(width(), height(), rightMarginWidth());
}

bool UserIndicator::call(const char *function, QString *error, bool *stopped)
{
    if (!mLoaded || !mEngine->globalObject().property(QLatin1String(function)).isFunction())
        return true;
    syncShared();
    const char *outer = mPhase;
    mPhase = function;
    bool timedOut = false;
    {
        // Under a debugger the user may halt the script for as long as they like.
        Scripts::ScriptRun run(mEngine.get(), mDebugger ? 0 : Scripts::ScriptRun::defaultTimeout());
        mEngine->evaluate(QLatin1String(function) + QStringLiteral("();"));
        timedOut = run.timedOut();
    }
    mPhase = outer;
    if (stopped)
        *stopped = timedOut;
    if (timedOut) {
        mEngine->clearExceptions();
        *error = tr("The script %1 ran longer than %2 seconds in %3() and was stopped.")
                     .arg(name())
                     .arg(Scripts::ScriptRun::defaultTimeout() / 1000.0)
                     .arg(QLatin1String(function));
        return false;
    }
    if (mEngine->hasUncaughtException()) {
        *error = describeException(mEngine.get());
        mEngine->clearExceptions();
        return false;
    }
    return true;
}

void UserIndicator::init()
{
    if (mPhase)
        return;
    dropIndicators(mInitIndicators);
    QString error;
    mInitFailed = !call("init", &error);
    if (mInitFailed) {
        qCDebug(Scripts::lcScript, "Exception");
        qCDebug(Scripts::lcScript, "EXCEPTION!!!");
        qCWarning(Scripts::lcScript).noquote() << name() << error;
    }
}

void UserIndicator::start()
{
    qCDebug(Scripts::lcScript, "!!!0");
    if (mPhase) {
        // Asked again while the script runs (events are processed meanwhile): once it is
        // done.
        mStartAgain = true;
        return;
    }
    QMap<QString, QVector<float>> before;
    for (auto it = buffers().cbegin(); it != buffers().cend(); ++it)
        before.insert(it.key(), it.value().data);
    const QMap<int, QColor> coloursBefore = barColours();
    const QMap<int, QString> labelsBefore = mBoxLabels;
    barColours().clear();
    mBoxLabels.clear();
    dropIndicators(mStartIndicators);

    QString error;
    bool stopped = false;
    mStartFailed = !call("start", &error, &stopped);
    if (mStartFailed) {
        if (stopped) {
            for (auto it = buffers().begin(); it != buffers().end(); ++it)
                it.value().data = before.value(it.key());
            barColours() = coloursBefore;
            mBoxLabels = labelsBefore;
            Scripts::showMessage(Scripts::Severity::Critical, tr("Error"), error);
        } else {
            qCDebug(Scripts::lcScript).noquote() << name() << error;
            // The box's texts are spelled so on purpose; keep.
            Scripts::showMessage(Scripts::Severity::Critical, QStringLiteral("Exeption"),
                                 QStringLiteral("EXEPTION!!!") + QStringLiteral("\n\n") + name() +
                                     QStringLiteral("\n") + error);
        }
    }
    if (mStartAgain) {
        mStartAgain = false;
        start();
    }
}

void UserIndicator::deinit()
{
    if (mPhase)
        return;
    QString error;
    if (!call("deinit", &error))
        qCWarning(Scripts::lcScript).noquote() << name() << error;
}

void UserIndicator::drawIndicator(QPainter &painter)
{
    if (!mOwnRange || !isMaster())
        fitRange();

    paintBuffers(painter);
    const int z = zoom();
    const int first = firstVisible();
    const int shown = std::max(plotWidthOf(), 0) / std::max(z, 1);
    for (auto it = mBoxLabels.lowerBound(first);
         it != mBoxLabels.cend() && it.key() < first + shown; ++it) {
        // Above the highest value drawn at the bar.
        float top = -INFINITY;
        for (const IndicatorBuffer &b : buffers())
            if (b.visible && it.key() < b.data.size() && std::isfinite(b.data.at(it.key())))
                top = std::max(top, b.data.at(it.key()));
        if (!isMaster() && !reader().isNull() && it.key() < numberOfQuotes())
            top = std::max(top, high(it.key()));
        // Never in the top line, where the pane label and scripts' own notes go.
        const int y = std::isfinite(top) ? std::max(row(top) - 4, 26) : 26;
        painter.save();
        painter.setPen(barColours().value(it.key(), Qt::white));
        painter.drawText((it.key() - first) * z + 3, y, it.value());
        painter.restore();
    }
    if (isMaster())
        drawScale(painter);
    for (const auto &level : levels())
        drawValueLine(painter, level.first, QColor(level.second));

    if (mPhase)
        return; // painted while the script itself runs: its draw() waits for the next paint
    mPainter->bind(&painter);
    QString error;
    const bool ok = call("draw", &error);
    mPainter->unbind();
    if (!ok)
        qCWarning(Scripts::lcScript).noquote() << name() << error;
}

QString UserIndicator::name() const
{
    return mBaseName + (mPacked ? QStringLiteral(".bin") : QStringLiteral(".js"));
}

void UserIndicator::setReader(OrdaneData::ReaderH reader)
{
    IndicatorLayer::setReader(reader);
    mShared->setReader(reader);
}

void UserIndicator::createParameter(const QString &name, float value)
{
    if (!mDeclaredParameters.contains(name))
        mDeclaredParameters.append(name);
    if (!parameters().contains(name))
        setParameter(name, value);
}

float UserIndicator::parameter(const QString &name) const
{
    return IndicatorLayer::parameter(name);
}

void UserIndicator::createBuffer(const QString &name)
{
    IndicatorBuffer buffer;
    buffer.colour = Qt::green;
    buffers().insert(name, buffer);
}

void UserIndicator::setBufferColor(const QString &name, const QString &colour)
{
    auto it = buffers().find(name);
    if (it != buffers().end())
        it.value().colour = QColor(colour);
}

void UserIndicator::setBufferData(const QString &name, const QVector<float> &data)
{
    auto it = buffers().find(name);
    if (it != buffers().end())
        it.value().data = data;
}

void UserIndicator::setBufferDrawStyle(const QString &name, int style)
{
    auto it = buffers().find(name);
    if (it != buffers().end())
        it.value().drawStyle = std::clamp(style, int(LINE), int(POINTS));
}

void UserIndicator::setAutoChangeMaxMin(const QString &)
{
    mOwnRange = false;
}

void UserIndicator::setAutoChangeMaxMin(const QString &, const QString &)
{
    mOwnRange = false;
}

void UserIndicator::setMax(float max)
{
    mOwnRange = true;
    IndicatorLayer::setMax(max);
}

void UserIndicator::setMin(float min)
{
    mOwnRange = true;
    IndicatorLayer::setMin(min);
}

void UserIndicator::addLevel(float value, const QString &colour)
{
    IndicatorLayer::addLevel(value, colour);
}

void UserIndicator::drawLevel(float value, const QString &colour)
{
    IndicatorLayer::addLevel(value, colour);
}

void UserIndicator::removeAllLevels()
{
    IndicatorLayer::removeAllLevels();
}

QVector<float> UserIndicator::ema(int period, const QVector<float> &source) const
{
    return Indicators::ema(period, source);
}

QVector<float> UserIndicator::sma(int period, const QVector<float> &source) const
{
    return Indicators::sma(period, source);
}

QVector<float> UserIndicator::smma(int period, const QVector<float> &source) const
{
    return Indicators::smma(period, source);
}

QVector<float> UserIndicator::wma(int period, const QVector<float> &source) const
{
    return Indicators::wma(period, source);
}

QVector<float> UserIndicator::median(int period, const QVector<float> &source) const
{
    // The routine wants numbers; a gap the script left in its array counts as 0.
    QVector<float> clean = source;
    std::replace_if(
        clean.begin(), clean.end(), [](float v) { return std::isnan(v); }, 0.0f);
    return Indicators::median(period, clean);
}

QVector<float> UserIndicator::stdDev(int period, const QVector<float> &source) const
{
    return Indicators::stdDev(period, source);
}

QVector<float> UserIndicator::stdDevNMinus1(int period, const QVector<float> &source) const
{
    return Indicators::stdDevNMinus1(period, source);
}

QVector<float> UserIndicator::shift(int bars, const QVector<float> &source) const
{
    // A shift beyond the series would only ask for memory to hold zeros.
    return Indicators::shift(std::min(bars, std::max(source.size(), numberOfQuotes())), source);
}

void UserIndicator::drawBox(int i, int num, const QString &colour, const QString &label)
{
    drawBox(i, num, colour);
    if (i >= 0 && num > 0)
        mBoxLabels.insert(i, label);
}

void UserIndicator::drawBox(int i, int num, const QString &colour)
{
    const QColor c(colour);
    const int end = std::min<qint64>(qint64(i) + num, std::max(numberOfQuotes(), 0));
    for (int k = std::max(i, 0); k < end; ++k)
        barColours().insert(k, c);
}

QObject *UserIndicator::getIndicator(const QString &id)
{
    if (gNesting >= kMaxNesting) {
        if (context())
            context()->throwError(tr("getIndicator: indicators nest too deep (%1)").arg(id));
        return nullptr;
    }
    ++gNesting;
    IndicatorLayer *indicator = createIndicator(id, reader(), view());
    --gNesting;
    if (!indicator)
        return nullptr;
    indicator->setParent(this);
    indicator->setGeometry(width(), height(), rightMarginWidth());
    (qstrcmp(mPhase, "start") == 0 ? mStartIndicators : mInitIndicators).append(indicator);
    return indicator;
}

} // namespace OrdaneView

#include "userindicator.moc"
