#include "scriptdebugger.h"

#include "core/setting.h"
#include "indicators/script/scriptmessages.h"
#include "indicators/script/userindicator.h"

#include <QAction>
#include <QApplication>
#include <QEvent>
#include <QMainWindow>
#include <QMessageBox>
#include <QPointer>
#include <QScriptEngineDebugger>
#include <QTimer>

#include <algorithm>
#include <utility>

namespace OrdaneView {

namespace {
// 0.2 to 1, or a per cent figure; unset or unreadable means opaque.
const QMWidgets::Setting<double> kDebuggerOpacity{QStringLiteral("TransparencyParameters/Debugger"),
                                                  1.0};

struct ScriptMessage
{
    Scripts::Severity severity;
    QString title;
    QString text;
};

void showBox(QWidget *parent, const ScriptMessage &message)
{
    // The first paragraph is the message; what follows (the script, the line, the
    // backtrace) goes beneath it.
    const int split = message.text.indexOf(QStringLiteral("\n\n"));
    QMessageBox box(message.severity == Scripts::Severity::Critical  ? QMessageBox::Critical
                    : message.severity == Scripts::Severity::Warning ? QMessageBox::Warning
                                                                     : QMessageBox::Information,
                    message.title, split < 0 ? message.text : message.text.left(split),
                    QMessageBox::Ok, parent);
    if (split >= 0)
        box.setInformativeText(message.text.mid(split + 2));
    box.exec();
}

// Messages that come while the window is not up yet (a script of the set-up restored at
// start-up that fails) wait until it is shown, so that start-up never blocks on a box.
class WaitingMessages : public QObject
{
public:
    explicit WaitingMessages(QWidget *window)
        : QObject(window)
        , mWindow(window)
    {
        window->installEventFilter(this);
    }

    void add(const ScriptMessage &message) { mWaiting.append(message); }

protected:
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (watched == mWindow && event->type() == QEvent::Show && !mWaiting.isEmpty())
            QTimer::singleShot(0, this, [this] {
                for (const ScriptMessage &message : std::exchange(mWaiting, {}))
                    showBox(mWindow, message);
            });
        return false;
    }

private:
    QWidget *mWindow;
    QList<ScriptMessage> mWaiting;
};
} // namespace

void attachDebugger(UserIndicator *indicator)
{
    auto *debugger = new QScriptEngineDebugger;
    debugger->attachTo(indicator->engine());
    QMainWindow *window = debugger->standardWindow();
    window->setWindowTitle(indicator->name() + QStringLiteral(" Debugger"));
    double opacity = kDebuggerOpacity.value();
    if (opacity > 1.0)
        opacity /= 100.0; // given in per cent
    window->setWindowOpacity(std::clamp(opacity, 0.2, 1.0));
    indicator->setDebugger(debugger);
    debugger->action(QScriptEngineDebugger::InterruptAction)->trigger();
}

void showScriptMessagesIn(QWidget *parent)
{
    QPointer<QWidget> window(parent ? parent->window() : nullptr);
    QPointer<WaitingMessages> waiting(window ? new WaitingMessages(window) : nullptr);
    Scripts::setMessageHandler(
        [window, waiting](Scripts::Severity severity, const QString &title, const QString &text) {
            const ScriptMessage message{severity, title, text};
            if (window && !window->isVisible() && waiting)
                waiting->add(message);
            else
                showBox(window ? window.data() : QApplication::activeWindow(), message);
        });
}

} // namespace OrdaneView
