#pragma once

#include <QString>

namespace Halcyra {

// The interface language for a "Language" setting value (by default the system locale's
// name, such as "de_DE"): the first of "de", "ru", "es", "zh_CN" that the value contains,
// tested in that order and anywhere in the value; otherwise "en".
QString chooseLanguage(const QString &value);

// The application's style sheet: the resource ":/HCStyle/simple.qss" with every
// "../HCStyle/" turned into ":/HCStyle/lowres/". Empty when the resource is missing.
QString loadStyleSheet();

// Runs the program: identity, home folder, style, splash, icon, language, main window,
// update check, reminders, event loop. Returns the event loop's exit code.
int run(int &argc, char **argv);

} // namespace Halcyra
