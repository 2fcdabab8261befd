#include "scriptdebugger.h"

#include "indicators/script/scriptmessages.h"
#include "indicators/script/userindicator.h"

#include <QAction>
#include <QApplication>
#include <QMainWindow>
#include <QMessageBox>
#include <QPointer>
#include <QScriptEngineDebugger>
#include <QSettings>

#include <algorithm>

namespace OrdaneView {

void attachDebugger(UserIndicator *indicator)
{
    auto *debugger = new QScriptEngineDebugger;
    debugger->attachTo(indicator->engine());
    QMainWindow *window = debugger->standardWindow();
    window->setWindowTitle(indicator->name() + QStringLiteral(" Debugger"));
    bool ok = false;
    double opacity =
        QSettings().value(QStringLiteral("TransparencyParameters/Debugger"), 1.0).toDouble(&ok);
    if (!ok)
        opacity = 1.0;
    if (opacity > 1.0)
        opacity /= 100.0; // given in per cent
    window->setWindowOpacity(std::clamp(opacity, 0.2, 1.0));
    indicator->setDebugger(debugger);
    debugger->action(QScriptEngineDebugger::InterruptAction)->trigger();
}

void showScriptMessagesIn(QWidget *parent)
{
    QPointer<QWidget> owner(parent);
    Scripts::setMessageHandler(
        [owner](Scripts::Severity severity, const QString &title, const QString &text) {
            // The first paragraph is the message; what follows (the script, the line, the
            // backtrace) goes beneath it.
            const int split = text.indexOf(QStringLiteral("\n\n"));
            QMessageBox box(severity == Scripts::Severity::Critical  ? QMessageBox::Critical
                            : severity == Scripts::Severity::Warning ? QMessageBox::Warning
                                                                     : QMessageBox::Information,
                            title, split < 0 ? text : text.left(split), QMessageBox::Ok,
                            owner ? owner->window() : QApplication::activeWindow());
            if (split >= 0)
                box.setInformativeText(text.mid(split + 2));
            box.exec();
        });
}

} // namespace OrdaneView
