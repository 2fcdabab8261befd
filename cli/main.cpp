#include "cli/command.h"
#include "data/heap.h"

#include <QDir>
#include <QFile>
#include <QGuiApplication>
#include <QTemporaryDir>

#include <cstdio>
#include <memory>

int main(int argc, char **argv)
{
    OrdaneData::Heap::reuseLargeBlocks();
    QCoreApplication::setOrganizationName(QStringLiteral("Skarvel"));
    QCoreApplication::setApplicationName(QStringLiteral("Halcyra2"));
    QCoreApplication::setApplicationVersion(QStringLiteral("2.0"));
    // Pictures need fonts, which need the GUI application, but never a display.
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    // The GUI application looks into the user's runtime folder as it starts (for a sandbox's
    // marker file). Where no XDG_RUNTIME_DIR is set, as for root in a container, a service or
    // a build job, Qt then warns on the error stream of every run and makes one under /tmp.
    // The tool's error stream is for its own messages, so such a run gets a runtime folder of
    // its own: new, private (0700, as the XDG rules ask), and removed when the run ends.
    std::unique_ptr<QTemporaryDir> runtime;
    if (qEnvironmentVariableIsEmpty("XDG_RUNTIME_DIR")) {
        runtime = std::make_unique<QTemporaryDir>(QDir::tempPath() +
                                                  QStringLiteral("/halcyra-cli-runtime-XXXXXX"));
        if (runtime->isValid())
            qputenv("XDG_RUNTIME_DIR", QFile::encodeName(runtime->path()));
    }
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
