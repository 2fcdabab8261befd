#include "command.h"
#include "data/home.h"
#include "data/quotefile.h"
#include "indicators/catalogue.h"
#include "indicators/script/indicatorfactory.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace Cli {

bool Context::useHome()
{
    QString error;
    if (OrdaneData::Home::setPath(home, &error) && OrdaneData::Home::prepare(&error))
        return true;
    err << "halcyra-cli: " << error << Qt::endl;
    return false;
}

bool Context::knowsIndicator(const QString &id)
{
    if (OrdaneView::findIndicator(id))
        return true;
    return useHome() &&
           !OrdaneView::scriptFileFor(id, OrdaneData::Home::userIndicatorsPath()).isEmpty();
}

QString Context::quoteFile(const QString &file)
{
    QString path;
    QString error;
    if (QFileInfo(file).isFile()) {
        path = file;
    } else if (OrdaneData::Home::setPath(home, &error) && OrdaneData::Home::prepare(&error)) {
        for (const QString &candidate :
             {OrdaneData::fileOf(file), OrdaneData::storagePath() + QLatin1Char('/') + file}) {
            if (QFileInfo(candidate).isFile()) {
                path = candidate;
                break;
            }
        }
        if (path.isEmpty())
            error = QStringLiteral("no such file or stored symbol: %1").arg(file);
    }
    // Checked as the program checks a stored file before loading it, and told in its words.
    // A file that cannot be opened is left to the command, which says it cannot read it.
    QFile opened(path);
    if (!path.isEmpty() && opened.open(QIODevice::ReadOnly) &&
        !OrdaneData::hasQuoteFileHeader(&opened))
        error = QStringLiteral("%1 is not a quote file.").arg(path);
    if (error.isEmpty())
        return path;
    err << "halcyra-cli: " << error << Qt::endl;
    return QString();
}

QString usage()
{
    QString text = QStringLiteral("Usage: halcyra-cli [--home DIR] COMMAND [ARGS...]\n"
                                  "       halcyra-cli --help | --version\n\n"
                                  "Commands:\n");
    for (const Command &c : commands())
        text +=
            QStringLiteral("  %1 %2\n      %3\n")
                .arg(QLatin1String(c.name), QLatin1String(c.synopsis), QLatin1String(c.summary));
    text +=
        QStringLiteral("\nFILE is a quote file, or a symbol stored in the home folder (\"MSFT\").\n"
                       "The home folder is --home DIR, else $HALCYRA_HOME, else the platform's\n"
                       "application data folder.\n");
    return text;
}

int run(const QStringList &arguments, QTextStream &out, QTextStream &err)
{
    QString home;
    int i = 1;
    for (; i < arguments.size(); ++i) {
        const QString &a = arguments.at(i);
        if (a == QLatin1String("--help") || a == QLatin1String("-h")) {
            out << usage();
            return Success;
        }
        if (a == QLatin1String("--version")) {
            out << "halcyra-cli " << QCoreApplication::applicationVersion() << '\n';
            return Success;
        }
        if (a == QLatin1String("--home")) {
            if (++i >= arguments.size()) {
                err << "halcyra-cli: --home needs a folder\n";
                return UsageError;
            }
            home = arguments.at(i);
        } else if (a.startsWith(QLatin1String("--home="))) {
            home = a.mid(7);
        } else if (a.startsWith(QLatin1Char('-'))) {
            err << "halcyra-cli: unknown option " << a << "\n\n" << usage();
            return UsageError;
        } else {
            break;
        }
    }
    if (i >= arguments.size()) {
        err << usage();
        return UsageError;
    }

    const QString name = arguments.at(i);
    for (const Command &c : commands()) {
        if (name == QLatin1String(c.name)) {
            if (home.isEmpty())
                home = OrdaneData::Home::resolve({arguments.first()});
            Context context{QDir::current().absoluteFilePath(home), out, err};
            return c.run(arguments.mid(i + 1), context);
        }
    }
    err << "halcyra-cli: unknown command " << name << "\n\n" << usage();
    return UsageError;
}

} // namespace Cli
