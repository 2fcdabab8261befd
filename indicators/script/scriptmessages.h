#pragma once

#include <QLoggingCategory>
#include <QString>

#include <functional>

namespace OrdaneView {
namespace Scripts {

// The log of the script engine, "halcyra.script": its debug texts are off unless enabled
// (QT_LOGGING_RULES="halcyra.script.debug=true"); what scripts write with output() and the
// errors no message box reports are on.
Q_DECLARE_LOGGING_CATEGORY(lcScript)

// Where scripts and their errors speak to the user. The library itself knows no widgets:
// without a handler every message goes to the standard error stream as "title: text"; the
// program installs one that shows message boxes.
enum class Severity { Information, Warning, Critical };
using MessageHandler =
    std::function<void(Severity severity, const QString &title, const QString &text)>;

// Replaces the handler (an empty one restores the standard error stream) and returns the
// previous one.
MessageHandler setMessageHandler(MessageHandler handler);
void showMessage(Severity severity, const QString &title, const QString &text);

} // namespace Scripts
} // namespace OrdaneView
