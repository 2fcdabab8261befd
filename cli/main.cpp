#include "cli/command.h"
#include "data/heap.h"

#include <QGuiApplication>

#include <cstdio>

int main(int argc, char **argv)
{
    OrdaneData::Heap::reuseLargeBlocks();
    QCoreApplication::setOrganizationName(QStringLiteral("Skarvel"));
    QCoreApplication::setApplicationName(QStringLiteral("Halcyra2"));
    QCoreApplication::setApplicationVersion(QStringLiteral("2.0"));
    // Pictures need fonts, which need the GUI application, but never a display.
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication app(argc, argv);
    // The tool's output is its result: the chatter of the debug channel stays out of it
    // (warnings, and what scripts write with output(), still reach the error stream).
    qInstallMessageHandler([](QtMsgType type, const QMessageLogContext &, const QString &text) {
        if (type != QtDebugMsg)
            std::fprintf(stderr, "%s\n", qUtf8Printable(text));
    });

    QTextStream out(stdout);
    QTextStream err(stderr);
    const int status = Cli::run(QCoreApplication::arguments(), out, err);
    out.flush();
    err.flush();
    return status;
}
