#include "scriptrun.h"

#include <QCoreApplication>
#include <QEvent>
#include <QScriptEngine>
#include <QTimer>

namespace OrdaneView {
namespace Scripts {

namespace {
int gTimeout = 5000;
thread_local int gDepth = 0;
thread_local QList<ScriptRun *> gRuns;
thread_local int gPauses = 0;

// Often enough for the window to repaint and the watchdog to be heard, seldom enough to cost
// nothing measurable.
constexpr int kEventsInterval = 100;
} // namespace

int ScriptRun::defaultTimeout()
{
    return gTimeout;
}

void ScriptRun::setDefaultTimeout(int ms)
{
    gTimeout = ms;
}

bool ScriptRun::isRunning()
{
    return gDepth > 0;
}

ScriptRun::ScriptRun(QScriptEngine *engine, int timeoutMs)
    : mEngine(engine)
{
    ++gDepth;
    if (timeoutMs <= 0 || !QCoreApplication::instance())
        return;
    mEngine->setProcessEventsInterval(std::min(kEventsInterval, timeoutMs));
    mTimer = new QTimer(this);
    mTimer->setSingleShot(true);
    connect(mTimer, &QTimer::timeout, this, [this] {
        mTimedOut = true;
        mEngine->abortEvaluation();
    });
    mRemaining = timeoutMs;
    mFiltering = gDepth == 1;
    gRuns.append(this);
    if (gPauses == 0)
        resume();
}

ScriptRun::~ScriptRun()
{
    --gDepth;
    if (mTimer) {
        gRuns.removeOne(this);
        hold();
        mEngine->setProcessEventsInterval(-1);
    }
}

void ScriptRun::hold()
{
    if (mTimer->isActive()) {
        mRemaining = std::max(mTimer->remainingTime(), 0);
        mTimer->stop();
    }
    if (mFiltering)
        QCoreApplication::instance()->removeEventFilter(this);
}

void ScriptRun::resume()
{
    if (!mTimedOut)
        mTimer->start(mRemaining);
    if (mFiltering)
        QCoreApplication::instance()->installEventFilter(this);
}

ScriptRun::Pause::Pause()
{
    if (gPauses++ == 0)
        for (ScriptRun *run : qAsConst(gRuns))
            run->hold();
}

ScriptRun::Pause::~Pause()
{
    if (--gPauses == 0)
        for (ScriptRun *run : qAsConst(gRuns))
            run->resume();
}

bool ScriptRun::eventFilter(QObject *watched, QEvent *event)
{
    switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::Wheel:
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
    case QEvent::Shortcut:
    case QEvent::ShortcutOverride:
    case QEvent::Drop:
    case QEvent::Close:
    case QEvent::ContextMenu:
        event->ignore();
        return true;
    default:
        return QObject::eventFilter(watched, event);
    }
}

} // namespace Scripts
} // namespace OrdaneView
