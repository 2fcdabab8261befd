#pragma once

#include <QObject>

class QScriptEngine;
class QTimer;

namespace OrdaneView {
namespace Scripts {

// One call into a script engine under a watchdog: when the call is still running after the
// time limit, the evaluation is aborted. While it runs the engine processes events now and
// then, so the window repaints and the watchdog's timer can fire; input to the windows
// (mouse, keys, closing) is held off until the call is over, so nothing the user does can
// pull the indicator away under the running script.
//
// Construct it right before QScriptEngine::evaluate() or a call, keep it for the call.
class ScriptRun : public QObject
{
    Q_OBJECT

public:
    ScriptRun(QScriptEngine *engine, int timeoutMs);
    ~ScriptRun() override;

    bool timedOut() const { return mTimedOut; }

    // The limit of every call; 5 seconds unless changed (tests shorten it). 0 or less
    // disables the watchdog.
    static int defaultTimeout();
    static void setDefaultTimeout(int ms);
    // Whether a script call is running in this thread (outermost ScriptRun alive).
    static bool isRunning();

    // Holds every watchdog of this thread, and lets input through, for as long as it lives:
    // while a script's message box waits for the user, say.
    class Pause
    {
    public:
        Pause();
        ~Pause();
        Pause(const Pause &) = delete;
        Pause &operator=(const Pause &) = delete;
    };

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    QScriptEngine *mEngine;
    void hold();
    void resume();

    QTimer *mTimer = nullptr;
    int mRemaining = 0;
    bool mFiltering = false;
    bool mTimedOut = false;
};

} // namespace Scripts
} // namespace OrdaneView
