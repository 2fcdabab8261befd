#include "rsicalibration.h"

#include <QCoreApplication>
#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

namespace OrdaneView {

namespace {
QByteArray sha256(const QByteArray &bytes)
{
    return QCryptographicHash::hash(bytes, QCryptographicHash::Sha256).toHex();
}

bool save(const QString &path, const QByteArray &bytes, QString *error)
{
    QSaveFile file(path);
    if (file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.commit())
        return true;
    if (error)
        *error = QStringLiteral("%1: %2").arg(QDir::toNativeSeparators(path), file.errorString());
    return false;
}
} // namespace

QString rsiCalibrationName(const QString &symbol, const QDate &newest,
                           const Indicators::RsiPeriods &periods)
{
    QString name = QStringLiteral("/RSI_") + symbol + QLatin1Char('_') +
                   newest.toString(QStringLiteral("yyyyMMdd"));
    if (!periods.isFull())
        name += QStringLiteral("_P%1-%2").arg(periods.from).arg(periods.to);
    return name + QStringLiteral(".csv");
}

QString rsiManifestPath(const QString &tablePath)
{
    return tablePath + QStringLiteral(".manifest.txt");
}

QByteArray rsiManifest(const RsiCalibration &c, const QString &tableName, const QByteArray &table)
{
    QByteArray stored = "unavailable";
    QString storedName = QStringLiteral("none");
    if (!c.storedFile.isEmpty()) {
        storedName = QFileInfo(c.storedFile).fileName();
        QFile file(c.storedFile);
        if (file.open(QIODevice::ReadOnly))
            stored = sha256(file.readAll());
    }
    const QString iso = QStringLiteral("yyyy-MM-dd");
    const QDate first = c.bars.isEmpty() ? QDate() : c.bars.constFirst().date();
    const QDate last = c.bars.isEmpty() ? QDate() : c.bars.constLast().date();
    QString text;
    const auto line = [&text](const char *key, const QString &value) {
        text += QLatin1String(key) + QStringLiteral(": ") + value + QLatin1Char('\n');
    };
    line("Program", QStringLiteral("Halcyra ") + QCoreApplication::applicationVersion());
    line("Table", tableName);
    line("Table SHA-256", QString::fromLatin1(sha256(table)));
    line("Symbol", c.symbol);
    line("Stored file", storedName);
    line("Stored file SHA-256", QString::fromLatin1(stored));
    line("Bars", QString::number(c.bars.size()));
    line("First date", first.toString(iso));
    line("Last date", last.toString(iso));
    line("Indicator", QStringLiteral("RSI of the close, as the indicator RSI computes it"));
    line("Rule",
         QStringLiteral("long only; open at the close of bar i when RSI[i-1] < L <= RSI[i]; close "
                        "at the close of the first later bar j when RSI[j-1] > H >= RSI[j], else "
                        "at the last bar; trades never overlap; only bars i >= P + 1 trade and "
                        "no trade opens at the last bar"));
    line("Profit", QStringLiteral("per trade (exit - entry) / exit * 100, in double, summed in "
                                  "trade order; Days = exit - entry in bars; DayProfit = "
                                  "TotalProfit / Days"));
    line("Grid", QStringLiteral("Period %1..%2; HighLevel 1..98; LowLevel 1..HighLevel-1; "
                                "HighLevel - LowLevel >= 33")
                     .arg(c.periods.from)
                     .arg(c.periods.to));
    line("Lines", QStringLiteral("Days > 0, DayProfit > 0.3 and DayProfit different from the "
                                 "line written last (0 at first)"));
    line("Numbers", QStringLiteral("DayProfit and TotalProfit with 9 significant digits"));
    return text.toUtf8();
}

QString writeRsiCalibration(const RsiCalibration &c, const QString &folder,
                            const std::function<void(int)> &progress, QString *error)
{
    if (c.bars.isEmpty()) {
        if (error)
            *error = QStringLiteral("%1 holds no quotes").arg(c.symbol);
        return QString();
    }
    if (!QDir().mkpath(folder)) {
        if (error)
            *error = QStringLiteral("cannot create %1").arg(QDir::toNativeSeparators(folder));
        return QString();
    }
    const QString name = rsiCalibrationName(c.symbol, c.bars.constLast().date(), c.periods);
    const QString path = QFileInfo(folder + name).absoluteFilePath();
    const QByteArray table = Indicators::rsiCalibrationTable(c.bars, c.periods, progress);
    if (!save(path, table, error) ||
        !save(rsiManifestPath(path), rsiManifest(c, name.mid(1), table), error))
        return QString();
    return path;
}

} // namespace OrdaneView
