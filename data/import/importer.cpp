#include "importer.h"

#include "data/quotefile.h"
#include "data/quotetable.h"
#include "metastock.h"
#include "textformats.h"

#include <QBuffer>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLocale>

namespace OrdaneData {

namespace {

const QString kCannotBeRead = QStringLiteral("cannot be read");
const QString kNoQuotes = QStringLiteral("no quotes");
const QString kSuffix = QStringLiteral(".IMP");

QString counted(int n, const char *one, const char *many)
{
    return QLocale(QLocale::English, QLocale::UnitedStates).toString(n) + QLatin1Char(' ') +
           QLatin1String(n == 1 ? one : many);
}

// Reasons are shown after the path and a ": ", which describe() looks for from the end.
QString reasonText(QString reason)
{
    return reason.replace(QLatin1String(": "), QLatin1String(" - "));
}

bool readWhole(const QString &path, QByteArray &bytes)
{
    QFile file(path);
    if (!QFileInfo(path).isFile() || !file.open(QIODevice::ReadOnly))
        return false;
    bytes = file.readAll();
    return file.error() == QFileDevice::NoError;
}

} // namespace

QString ImportReport::describe() const
{
    QString text =
        QStringLiteral("Imported %1 (%2)")
            .arg(counted(symbols.size(), "symbol", "symbols"), counted(rows, "row", "rows"));
    if (!skipped.isEmpty()) {
        QStringList entries;
        for (const QString &entry : skipped) {
            const int colon = entry.lastIndexOf(QLatin1String(": "));
            entries << QStringLiteral("%1 (%2)").arg(QFileInfo(entry.left(colon)).fileName(),
                                                     entry.mid(colon + 2));
        }
        text +=
            QStringLiteral("; skipped %1: %2")
                .arg(counted(skipped.size(), "file", "files"), entries.join(QLatin1String(", ")));
    }
    if (cancelled)
        text += QLatin1String("; cancelled");
    return text;
}

// One step of a run: a file to read, or the data file of a MASTER record (whose symbol the
// record gives). A step that is already known to fail carries its reason.
struct Importer::Source
{
    QString path;
    QString symbol;
    QString failure;
};

Importer::Importer(const QString &storageFolder, QObject *parent)
    : QObject(parent)
    , mStorage(storageFolder)
{}

void Importer::cancel()
{
    mCancel = true;
}

ImportReport Importer::run(ImportFormat format, const QStringList &paths, bool merge)
{
    mCancel = false;
    ImportReport report;
    QDir().mkpath(mStorage);
    const QVector<Source> sources = sourcesOf(format, paths);
    int shown = -1;
    for (int i = 0; i < sources.size(); ++i) {
        if (mCancel) {
            report.cancelled = true;
            break;
        }
        importSource(sources.at(i), format, merge, report);
        if (report.cancelled)
            break;
        const int percent = int(qint64(i + 1) * 100 / sources.size());
        if (percent != shown) {
            shown = percent;
            emit progress(percent);
        }
    }
    return report;
}

QVector<Importer::Source> Importer::sourcesOf(ImportFormat format, const QStringList &paths) const
{
    QVector<Source> sources;
    for (const QString &path : paths) {
        if (format != ImportFormat::MetaStock) {
            sources.append({path, QString(), QString()});
            continue;
        }
        // MASTER files are small; reading them all first lets the progress count records.
        MetaStockMaster master;
        if (!QFileInfo(path).isFile() || !master.load(path)) {
            sources.append({path, QString(), kCannotBeRead});
            continue;
        }
        if (master.records().isEmpty())
            sources.append({path, QString(), QStringLiteral("no records")});
        for (const MetaStockRecord &record : master.records()) {
            const QString file = master.dataFile(record);
            if (isUsableSymbol(record.symbol))
                sources.append({file, record.symbol + kSuffix, QString()});
            else
                sources.append({file, QString(), QStringLiteral("no usable symbol")});
        }
    }
    return sources;
}

void Importer::importSource(const Source &source, ImportFormat format, bool merge,
                            ImportReport &report)
{
    const auto skip = [&](const QString &reason) {
        report.skipped << source.path + QLatin1String(": ") + reasonText(reason);
    };
    if (!source.failure.isEmpty())
        return skip(source.failure);
    QByteArray bytes;
    if (!readWhole(source.path, bytes))
        return skip(kCannotBeRead);
    const QString base = QFileInfo(source.path).completeBaseName();
    if (format != ImportFormat::Rbk && format != ImportFormat::MetaStock && !isUsableSymbol(base))
        return skip(QStringLiteral("no usable name"));

    ImportedTable table;
    switch (format) {
    case ImportFormat::MetaTrader:
        table = convertMetaTrader(bytes);
        break;
    case ImportFormat::Halcyra: {
        QBuffer buffer(&bytes);
        buffer.open(QIODevice::ReadOnly);
        if (!hasQuoteFileHeader(&buffer))
            return skip(QStringLiteral("not a quote file"));
        table = convertHalcyra(bytes);
        break;
    }
    case ImportFormat::MetaStock:
        table = convertMetaStockData(bytes);
        break;
    case ImportFormat::Rbk: {
        const QVector<TickerTable> tickers = convertRbk(bytes);
        if (tickers.isEmpty())
            return skip(kNoQuotes);
        // A file may name many tickers: each is a target of its own, and a cancel may come
        // between them.
        for (const TickerTable &ticker : tickers) {
            if (mCancel) {
                report.cancelled = true;
                return;
            }
            write(ticker.ticker + kSuffix, ticker.table.text, ticker.table.rows, true, source.path,
                  report);
        }
        return;
    }
    }
    if (table.rows == 0)
        return skip(kNoQuotes);
    const QString symbol = format == ImportFormat::MetaStock ? source.symbol : base + kSuffix;
    write(symbol, table.text, table.rows, merge && format != ImportFormat::MetaStock, source.path,
          report);
}

void Importer::write(const QString &symbol, const QByteArray &table, int rows, bool merge,
                     const QString &source, ImportReport &report)
{
    const QString target = mStorage + QLatin1Char('/') + symbol + QLatin1String(".csv");
    QByteArray text = table;
    if (merge) {
        // Also without a stored file: a merged target holds one row per date, newest first,
        // whatever the order of the source.
        QByteArray stored;
        if (QFileInfo::exists(target) && !readWhole(target, stored)) {
            report.skipped << source + QLatin1String(": ") +
                                  reasonText(QStringLiteral("%1 cannot be read").arg(symbol));
            return;
        }
        text = mergeTable(stored, table).text;
    }
    QString error;
    if (!writeText(target, text, &error)) {
        report.skipped << source + QLatin1String(": ") +
                              reasonText(
                                  QStringLiteral("%1 cannot be written (%2)").arg(symbol, error));
        return;
    }
    report.symbols << symbol;
    report.rows += rows;
    emit imported(symbol);
}

} // namespace OrdaneData
