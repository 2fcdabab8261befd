#pragma once

#include <QString>

namespace Halcyra {

// The application's style sheet: the resource ":/HCStyle/simple.qss" with every
// "../HCStyle/" turned into ":/HCStyle/lowres/". Empty when the resource is missing.
QString loadStyleSheet();

// Runs the program: identity, home folder, style, splash, icon, language, main window,
// update check, reminders, event loop. Returns the event loop's exit code.
int run(int &argc, char **argv);

} // namespace Halcyra
