#pragma once

#include <QString>

#include <functional>

namespace OrdaneView {
namespace Scripts {

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
