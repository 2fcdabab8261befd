#include "cli/command.h"

#include <QCoreApplication>

#include <cstdio>

int main(int argc, char **argv)
{
    QCoreApplication::setOrganizationName(QStringLiteral("Skarvel"));
    QCoreApplication::setApplicationName(QStringLiteral("Halcyra2"));
    QCoreApplication::setApplicationVersion(QStringLiteral("2.0"));
    QCoreApplication app(argc, argv);

    QTextStream out(stdout);
    QTextStream err(stderr);
    const int status = Cli::run(QCoreApplication::arguments(), out, err);
    out.flush();
    err.flush();
    return status;
}
