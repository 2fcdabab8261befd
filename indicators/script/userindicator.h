#pragma once

#include "indicators/indicatorlayer.h"

#include <QPointer>
#include <QScriptable>
#include <QStringList>

#include <memory>

class QScriptEngine;

namespace OrdaneView {

namespace Scripts {
class ScriptImage;
class ScriptPainter;
} // namespace Scripts

// An indicator written in JavaScript. Each one has an engine of its own in which the script
// file is evaluated once, at construction, with these globals: the indicator itself under
// the file's base name, Shared (a layer over the same series, for reading bars), DrawStyle,
// PenStyle, BrushStyle, Image, Painter (bound while draw() runs), messageBox and output.
// init(), start(), deinit() and painting call the script's functions of those names, each
// only when the script defines it.
//
// A broken script never takes the program down: a file that cannot be read or evaluated
// leaves an indicator without buffers; exceptions are reported (see the functions); a call
// running longer than the watchdog's limit (5 seconds) is aborted and start() puts back the
// buffers it began with.
class UserIndicator : public IndicatorLayer, protected QScriptable
{
    Q_OBJECT
    Q_PROPERTY(QString label READ label WRITE setLabel)
    Q_PROPERTY(QString fullName READ fullName WRITE setFullName)
    Q_PROPERTY(float max READ max WRITE setMax)
    Q_PROPERTY(float min READ min WRITE setMin)

public:
    // The script at `path` (".js" plain, ".bin" packed), reading `view`'s geometry (which may
    // be none, as in the command-line tool).
    UserIndicator(const QString &path, ViewCanvas *view, QObject *parent = nullptr);
    ~UserIndicator() override;

    QString filePath() const { return mPath; }
    bool isPacked() const { return mPacked; }
    // Whether the file was read and evaluated without error.
    bool isLoaded() const { return mLoaded; }
    // The parameters the script has created (createParameter), in the order it first created
    // them; complete once init() has run.
    const QStringList &declaredParameters() const { return mDeclaredParameters; }
    QScriptEngine *engine() const { return mEngine.get(); }

    // A debugger attached to the engine (owned by the indicator from then on); while one is
    // attached the watchdog is off, since the user may halt the script for as long as they
    // like.
    void setDebugger(QObject *debugger);
    QObject *debugger() const { return mDebugger; }

    // The indicator's own script interface, in this order.
    Q_INVOKABLE void setFullName(const QString &name) { IndicatorLayer::setFullName(name); }
    Q_INVOKABLE QString fullName() const { return IndicatorLayer::fullName(); }
    // Adds a parameter with its default, unless it is there already (a value loaded from a
    // template or set in the properties dialog wins).
    Q_INVOKABLE void createParameter(const QString &name, float value);
    Q_INVOKABLE float parameter(const QString &name) const;
    // An empty, visible LINE buffer (an existing one of that name is emptied).
    Q_INVOKABLE void createBuffer(const QString &name);
    Q_INVOKABLE void setBufferColor(const QString &name, const QString &colour);
    Q_INVOKABLE void setBufferData(const QString &name, const QVector<float> &data);
    Q_INVOKABLE void setBufferDrawStyle(const QString &name, int style);
    // The pane's range is fitted at every paint to everything the pane draws, the named
    // buffers among it (see IndicatorLayer::fitRange()). Undoes a range the script set
    // through max or min; the names themselves add nothing, since every drawn buffer counts.
    Q_INVOKABLE void setAutoChangeMaxMin(const QString &buffer);
    Q_INVOKABLE void setAutoChangeMaxMin(const QString &buffer1, const QString &buffer2);
    // A range set by the script itself: a master keeps it rather than fitting the pane,
    // until the script calls setAutoChangeMaxMin().
    void setMax(float max) override;
    void setMin(float min) override;
    Q_INVOKABLE void addLevel(float value, const QString &colour);
    Q_INVOKABLE void drawLevel(float value, const QString &colour);
    Q_INVOKABLE void removeAllLevels();
    Q_INVOKABLE QVector<float> ema(int period, const QVector<float> &source) const;
    Q_INVOKABLE QVector<float> sma(int period, const QVector<float> &source) const;
    Q_INVOKABLE QVector<float> smma(int period, const QVector<float> &source) const;
    Q_INVOKABLE QVector<float> wma(int period, const QVector<float> &source) const;
    Q_INVOKABLE QVector<float> median(int period, const QVector<float> &source) const;
    Q_INVOKABLE QVector<float> stdDev(int period, const QVector<float> &source) const;
    Q_INVOKABLE QVector<float> stdDevNMinus1(int period, const QVector<float> &source) const;
    // The series moved `bars` later: that many zeros first.
    Q_INVOKABLE QVector<float> shift(int bars, const QVector<float> &source) const;
    // Colours bars i .. i + num - 1 of every line and histogram; a label is written above
    // the first of them.
    Q_INVOKABLE void drawBox(int i, int num, const QString &colour, const QString &label);
    Q_INVOKABLE void drawBox(int i, int num, const QString &colour);
    // Another indicator by identifier (built-in or script) over the same series, owned by
    // this one, with its defaults; the script calls its init(), start() and bufferData().
    // None for an unknown identifier. Those made in start() last until the next start().
    Q_INVOKABLE QObject *getIndicator(const QString &id);

    void init() override;
    void start() override;
    // The file did not load, or the last init() or start() threw or was stopped.
    bool hasFailed() const override { return !mLoaded || mInitFailed || mStartFailed; }
    void deinit() override;
    void drawIndicator(QPainter &painter) override;
    QString name() const override;
    void setReader(OrdaneData::ReaderH reader) override;

private:
    void load();
    // Calls the script function `function` when the script defines it, under the watchdog.
    // Returns false when the call threw or was stopped; *error then says what happened.
    bool call(const char *function, QString *error, bool *stopped = nullptr);
    void syncShared();

    QString mPath;
    QString mBaseName;
    bool mPacked = false;
    bool mLoaded = false;
    bool mInitFailed = false;
    bool mStartFailed = false;
    std::unique_ptr<QScriptEngine> mEngine;
    Layer *mShared = nullptr;
    Scripts::ScriptPainter *mPainter = nullptr;
    Scripts::ScriptImage *mImage = nullptr;
    QPointer<QObject> mDebugger;
    bool mOwnRange = false;
    QStringList mDeclaredParameters;
    QMap<int, QString> mBoxLabels;
    QList<QPointer<QObject>> mStartIndicators;
    QList<QPointer<QObject>> mInitIndicators;
    const char *mPhase = nullptr; // the script function running now
    bool mStartAgain = false;
};

} // namespace OrdaneView
