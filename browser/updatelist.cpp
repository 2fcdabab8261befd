#include "updatelist.h"

#include <QDir>

namespace OrdaneBrowser {

QStringList storedSymbolsToUpdate(const QString &folder)
{
    const QStringList files =
        QDir(folder).entryList({QStringLiteral("*.csv")}, QDir::Files, QDir::Name);
    QStringList symbols;
    for (const QString &file : files)
        if (!file.startsWith(QLatin1Char('_')))
            symbols << file.left(file.lastIndexOf(QLatin1Char('.')));
    return updatableSymbols(symbols);
}

QStringList updatableSymbols(const QStringList &symbols)
{
    QStringList result;
    for (const QString &symbol : symbols)
        if (!symbol.endsWith(QLatin1String(".IMP")))
            result << symbol;
    return result;
}

} // namespace OrdaneBrowser
