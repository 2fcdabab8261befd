#pragma once

#include <QString>

namespace OrdaneView {
namespace Scripts {

// The text of a new script indicator called `name` (the file's base name, no extension):
// the starter script with every "XXX" of it replaced by the name.
QString newIndicatorText(const QString &name);

// Whether `name` can be the global a script reaches its indicator by: a letter, "_" or
// "$" first, then letters, digits, "_" or "$".
bool isScriptIdentifier(const QString &name);

// The base name of a script file name typed by the user: "Trend.js" and "Trend" give
// "Trend"; surrounding blanks are dropped.
QString scriptBaseName(const QString &typed);

enum class CreateResult {
    Created, // written; *path is the new file
    NoName,  // the name was empty
    BadName, // not a script identifier
    Exists,  // *path is the file that is there already
    Failed,  // could not be written; *error says why
};

// Writes the starter script for `typed` (see scriptBaseName) as "<name>.js" in `folder`,
// through a save file, never over an existing file.
CreateResult createIndicatorScript(const QString &folder, const QString &typed, QString *path,
                                   QString *error = nullptr);

} // namespace Scripts
} // namespace OrdaneView
