#include "quotestore.h"

#include "data/quotefile.h"
#include "tools/samplegen/randomwalk.h"

#include <QDir>
#include <QFile>

#include <algorithm>

namespace QuoteService {

namespace {

// Records of standard CSV: commas between fields; a field in double quotes may hold commas,
// line ends and doubled quotes. Blank lines are dropped. Returns false for an open quote.
bool parseCsv(const QString &text, QVector<QStringList> *records)
{
    QStringList record;
    QString field;
    bool inQuotes = false;
    auto endRecord = [&] {
        record << field;
        field.clear();
        if (record.size() > 1 || !record.constFirst().isEmpty())
            records->append(record);
        record.clear();
    };
    for (int i = 0; i < text.size(); ++i) {
        const QChar c = text.at(i);
        if (inQuotes) {
            if (c != QLatin1Char('"'))
                field += c;
            else if (i + 1 < text.size() && text.at(i + 1) == QLatin1Char('"'))
                field += text.at(++i);
            else
                inQuotes = false;
        } else if (c == QLatin1Char('"')) {
            inQuotes = true;
        } else if (c == QLatin1Char(',')) {
            record << field;
            field.clear();
        } else if (c == QLatin1Char('\n')) {
            endRecord();
        } else if (c != QLatin1Char('\r')) {
            field += c;
        }
    }
    if (!field.isEmpty() || !record.isEmpty())
        endRecord();
    return !inQuotes;
}

bool byNewestFirst(const StoredBar &a, const StoredBar &b)
{
    return a.bar.date() > b.bar.date();
}

} // namespace

const QStringList &QuoteStore::metadataCodes()
{
    static const QStringList codes = {
        QStringLiteral("n"),  QStringLiteral("x"),  QStringLiteral("e7"), QStringLiteral("e8"),
        QStringLiteral("e9"), QStringLiteral("j1"), QStringLiteral("j4"), QStringLiteral("r"),
        QStringLiteral("r5"), QStringLiteral("y"),  QStringLiteral("b4"), QStringLiteral("d"),
        QStringLiteral("e"),  QStringLiteral("p5"), QStringLiteral("p6"), QStringLiteral("q"),
        QStringLiteral("r1"), QStringLiteral("r6"), QStringLiteral("s7"), QStringLiteral("c4")};
    return codes;
}

bool QuoteStore::loadFolder(const QString &folder, QString *error)
{
    const QDir dir(folder);
    if (!dir.exists()) {
        *error = folder + QStringLiteral(": no such folder");
        return false;
    }
    const QString metadataName = QStringLiteral("metadata.csv");
    const QStringList names = dir.entryList({QStringLiteral("*.csv")}, QDir::Files);
    for (const QString &name : names) {
        if (name.compare(metadataName, Qt::CaseInsensitive) == 0)
            continue;
        if (!loadFile(name.chopped(4), dir.filePath(name), error))
            return false;
    }
    QFile metadata(dir.filePath(metadataName));
    if (!metadata.exists())
        return true;
    if (!metadata.open(QIODevice::ReadOnly)) {
        *error = metadata.fileName() + QStringLiteral(": ") + metadata.errorString();
        return false;
    }
    if (!loadMetadata(&metadata, error)) {
        *error = metadata.fileName() + QStringLiteral(": ") + *error;
        return false;
    }
    return true;
}

bool QuoteStore::loadSamples(const QDate &until, QString *error)
{
    for (const SampleGen::Sample &sample : SampleGen::samples()) {
        const QString symbol = QLatin1String(sample.name);
        if (!loadFile(symbol, QStringLiteral(":/Storage/%1.csv").arg(symbol), error))
            return false;
        QVector<StoredBar> &stored = mSeries[symbol.toUpper()];
        QVector<QuoteBar> oldestFirst;
        oldestFirst.reserve(stored.size());
        for (auto it = stored.crbegin(); it != stored.crend(); ++it)
            oldestFirst.append(it->bar);
        const QVector<QuoteBar> added =
            SampleGen::continueSeries(oldestFirst, sample.walk(), until);
        QVector<StoredBar> newestFirst;
        newestFirst.reserve(added.size() + stored.size());
        for (auto it = added.crbegin(); it != added.crend(); ++it)
            newestFirst.append({*it, OrdaneData::formatLine(*it).toLatin1()});
        newestFirst += stored;
        stored = newestFirst;
    }
    QFile metadata(QStringLiteral(":/QuoteService/metadata.csv"));
    if (!metadata.open(QIODevice::ReadOnly)) {
        *error = metadata.fileName() + QStringLiteral(": ") + metadata.errorString();
        return false;
    }
    return loadMetadata(&metadata, error);
}

bool QuoteStore::loadFile(const QString &symbol, const QString &path, QString *error)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        *error = path + QStringLiteral(": ") + file.errorString();
        return false;
    }
    QVector<StoredBar> bars;
    const QByteArray text = file.readAll();
    for (QByteArray line : text.split('\n')) {
        if (line.endsWith('\r'))
            line.chop(1);
        const QuoteBar bar =
            OrdaneData::parseLine(line.constData(), line.constData() + line.size());
        if (bar.isValid())
            bars.append({bar, line});
    }
    std::stable_sort(bars.begin(), bars.end(), byNewestFirst);
    mSeries.insert(symbol.toUpper(), bars);
    return true;
}

bool QuoteStore::loadMetadata(QIODevice *device, QString *error)
{
    QVector<QStringList> records;
    if (!parseCsv(QString::fromUtf8(device->readAll()), &records)) {
        *error = QStringLiteral("a quoted value is not closed");
        return false;
    }
    if (records.isEmpty())
        return true;
    const QStringList header = records.takeFirst();
    if (header.constFirst() != QLatin1String("symbol")) {
        *error = QStringLiteral("the header does not start with \"symbol\"");
        return false;
    }
    for (const QString &code : header.mid(1)) {
        if (!metadataCodes().contains(code)) {
            *error = QStringLiteral("unknown column \"%1\"").arg(code);
            return false;
        }
    }
    for (int row = 0; row < records.size(); ++row) {
        const QStringList &values = records.at(row);
        if (values.size() != header.size()) {
            *error = QStringLiteral("record %1 has %2 values, the header %3")
                         .arg(row + 2)
                         .arg(values.size())
                         .arg(header.size());
            return false;
        }
        QHash<QString, QString> &figures = mMetadata[values.constFirst().toUpper()];
        for (int i = 1; i < values.size(); ++i)
            if (!values.at(i).isEmpty() && values.at(i) != QLatin1String("N/A"))
                figures.insert(header.at(i), values.at(i));
    }
    return true;
}

const QVector<StoredBar> *QuoteStore::series(const QString &symbol) const
{
    const auto it = mSeries.constFind(symbol.toUpper());
    return it == mSeries.constEnd() ? nullptr : &it.value();
}

QString QuoteStore::metadata(const QString &symbol, const QString &code) const
{
    return mMetadata.value(symbol.toUpper()).value(code);
}

} // namespace QuoteService
