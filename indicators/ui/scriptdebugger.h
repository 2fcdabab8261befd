#pragma once

class QWidget;

namespace OrdaneView {

class UserIndicator;

// Attaches a debugger to a script indicator's engine: its window is titled with the
// indicator's name followed by " Debugger", takes its opacity from the setting
// "TransparencyParameters/Debugger" (0.2 to 1, fully opaque when unset) and opens at the
// first statement the script runs next, so the user can step through init() and start().
// The indicator owns the debugger from then on; the watchdog leaves it alone.
void attachDebugger(UserIndicator *indicator);

// Makes script messages (messageBox, errors, exceptions) message boxes over `parent`'s
// window, for as long as the program runs.
void showScriptMessagesIn(QWidget *parent);

} // namespace OrdaneView
