#pragma once

#include <QString>
#include <QStringList>
#include <QTextStream>

#include <vector>

namespace Cli {

enum ExitCode { Success = 0, Failure = 1, UsageError = 2 };

// What a command gets besides its own arguments.
struct Context
{
    QString home; // the home folder chosen by --home, HALCYRA_HOME or the platform
    QTextStream &out;
    QTextStream &err;

    // FILE as given when it names a file; otherwise the stored file of the symbol FILE
    // (or FILE inside the storage folder) in the home folder, whose samples are
    // installed on first use. Empty, with a message on err, when neither exists, or when
    // the file is not a quote file (the program's test: its first line starts with "Date").
    QString quoteFile(const QString &file);
    // Makes `home` the home folder of this run and prepares it; false with a message on err
    // when that fails.
    bool useHome();
    // Whether `id` names an indicator: a built-in, or a script of the home folder's
    // "UserIndicators" ("Trend.js", or "Trend" for Trend.js or Trend.bin).
    bool knowsIndicator(const QString &id);
};

// One command of the tool. Adding a command means one file with its run function and
// one row in the table of commands.cpp.
struct Command
{
    const char *name;
    const char *synopsis; // the arguments after the name, for the usage text
    const char *summary;
    int (*run)(const QStringList &args, Context &context);
};

const std::vector<Command> &commands();

// Runs the tool on a whole command line (program name first). Returns the exit status:
// 0 success, 1 a runtime failure (reported on err), 2 a usage error.
int run(const QStringList &arguments, QTextStream &out, QTextStream &err);

// The usage text of the tool.
QString usage();

} // namespace Cli
