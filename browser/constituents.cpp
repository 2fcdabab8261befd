#include "constituents.h"

#include "data/quotefile.h"

#include <QFile>
#include <QSet>
#include <QStringList>
#include <QTextStream>

namespace OrdaneBrowser {

namespace {

// Splits one line into its fields. Blanks around a field are dropped; inside quotes they are
// kept, as are commas.
QStringList splitFields(const QString &line)
{
    QStringList fields;
    QString field;
    bool quoted = false;
    for (int i = 0; i < line.size(); ++i) {
        const QChar c = line.at(i);
        if (quoted) {
            if (c != QLatin1Char('"'))
                field += c;
            else if (i + 1 < line.size() && line.at(i + 1) == QLatin1Char('"'))
                field += line.at(++i);
            else
                quoted = false;
        } else if (c == QLatin1Char('"')) {
            quoted = true;
        } else if (c == QLatin1Char(',')) {
            fields << field.trimmed();
            field.clear();
        } else {
            field += c;
        }
    }
    fields << field.trimmed();
    return fields;
}

} // namespace

QString constituentsFile()
{
    return OrdaneData::storagePath() + QStringLiteral("/_constituents.csv");
}

QVector<Constituent> readConstituents(QIODevice *device, const QString &index)
{
    QVector<Constituent> members;
    QSet<QString> seen;
    QTextStream in(device);
    in.setCodec("UTF-8");
    QString line;
    while (in.readLineInto(&line)) {
        const QStringList fields = splitFields(line);
        if (fields.size() < 2 || fields.at(1).isEmpty())
            continue;
        if (fields.at(0) == QLatin1String("index") && fields.at(1) == QLatin1String("symbol"))
            continue;
        if (fields.at(0).compare(index, Qt::CaseInsensitive) != 0)
            continue;
        const QString &symbol = fields.at(1);
        if (seen.contains(symbol))
            continue;
        seen.insert(symbol);
        members.append({symbol, fields.value(2)});
    }
    return members;
}

QVector<Constituent> readConstituents(const QString &path, const QString &index, QString *error)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text)) {
        if (error)
            *error = file.errorString();
        return {};
    }
    if (error)
        error->clear();
    return readConstituents(&file, index);
}

} // namespace OrdaneBrowser
