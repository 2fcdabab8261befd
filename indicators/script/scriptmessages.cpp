#include "scriptmessages.h"

#include "scriptrun.h"

#include <cstdio>
#include <utility>

namespace OrdaneView {
namespace Scripts {

Q_LOGGING_CATEGORY(lcScript, "halcyra.script", QtInfoMsg)

namespace {
MessageHandler &handler()
{
    static MessageHandler h;
    return h;
}
} // namespace

MessageHandler setMessageHandler(MessageHandler h)
{
    return std::exchange(handler(), std::move(h));
}

void showMessage(Severity severity, const QString &title, const QString &text)
{
    if (handler()) {
        // The user may take their time over a message; that is no script running too long.
        const ScriptRun::Pause pause;
        handler()(severity, title, text);
        return;
    }
    std::fprintf(stderr, "%s: %s\n", qUtf8Printable(title), qUtf8Printable(text));
}

} // namespace Scripts
} // namespace OrdaneView
