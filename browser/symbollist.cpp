#include "symbollist.h"

#include <QFile>
#include <QIODevice>
#include <QSaveFile>
#include <QTextStream>

namespace OrdaneBrowser {

QStringList readSymbolList(QIODevice *device)
{
    QTextStream in(device);
    return in.readAll().split(QLatin1Char(';'));
}

bool readSymbolListFile(const QString &path, QStringList *symbols)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text))
        return false;
    *symbols = readSymbolList(&file);
    return true;
}

bool writeSymbolListFile(const QString &path, const QStringList &symbols, QString *error)
{
    QSaveFile file(path);
    if (file.open(QIODevice::WriteOnly)) {
        QTextStream out(&file);
        out << symbols.join(QLatin1Char(';'));
        out.flush();
        if (out.status() == QTextStream::Ok && file.commit())
            return true;
    }
    if (error)
        *error = file.errorString();
    return false;
}

QString withSymbolListExtension(const QString &path)
{
    return path.endsWith(QLatin1String(".sym")) ? path : path + QStringLiteral(".sym");
}

QStringList defaultSymbols()
{
    return {QStringLiteral("UTX"), QStringLiteral("MSFT"), QStringLiteral("AAPL"),
            QStringLiteral("MAN.DE"), QStringLiteral("ADS.DE")};
}

} // namespace OrdaneBrowser
