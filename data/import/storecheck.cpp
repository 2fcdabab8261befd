#include "storecheck.h"

#include "data/quotefile.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSet>

#include <algorithm>
#include <cstring>

namespace OrdaneData {

namespace {

// Weekdays strictly between two days, `from` before `to`.
qint64 weekdaysBetween(const QDate &from, const QDate &to)
{
    const QDate a = from.addDays(1);
    const qint64 days = a.daysTo(to); // days in [a, to)
    if (days <= 0)
        return 0;
    qint64 weekdays = days / 7 * 5;
    int weekday = a.dayOfWeek(); // Monday 1 .. Sunday 7
    for (qint64 i = 0; i < days % 7; ++i, weekday = weekday % 7 + 1)
        weekdays += weekday <= 5;
    return weekdays;
}

StoreCheck checkFile(const QString &symbol, const QString &path)
{
    StoreCheck check;
    check.symbol = symbol;
    QFile file(path);
    QByteArray text;
    if (!QFileInfo(path).isFile() || !file.open(QIODevice::ReadOnly) ||
        (text = file.readAll()).isEmpty()) {
        check.badLines = 1;
        return check;
    }

    QVector<qint64> days;
    QSet<qint64> seen;
    const char *line = text.constData();
    const char *const end = line + text.size();
    bool firstLine = true;
    while (line < end) {
        const char *nl = static_cast<const char *>(std::memchr(line, '\n', size_t(end - line)));
        const char *lineEnd = nl ? nl : end;
        const bool binary = std::memchr(line, '\0', size_t(lineEnd - line)) != nullptr;
        const bool header =
            firstLine && !binary && lineEnd - line >= 4 && std::memcmp(line, "Date", 4) == 0;
        const QuoteBar bar = header || binary ? QuoteBar() : parseLine(line, lineEnd);
        if (bar.isValid()) {
            const qint64 day = bar.date().toJulianDay();
            if (!days.isEmpty() && day > days.last())
                ++check.outOfOrder;
            if (seen.contains(day))
                ++check.repeatedDates;
            seen.insert(day);
            days.append(day);
        }
        // A bar on the first line still leaves the header missing.
        if (!header && (!bar.isValid() || firstLine))
            ++check.badLines;
        firstLine = false;
        line = nl ? nl + 1 : end;
    }

    check.rows = days.size();
    if (days.isEmpty())
        return check;
    QVector<qint64> sorted = days;
    std::sort(sorted.begin(), sorted.end());
    sorted.erase(std::unique(sorted.begin(), sorted.end()), sorted.end());
    check.first = QDate::fromJulianDay(sorted.first());
    check.last = QDate::fromJulianDay(sorted.last());
    for (int i = 1; i < sorted.size(); ++i) {
        if (weekdaysBetween(QDate::fromJulianDay(sorted.at(i - 1)),
                            QDate::fromJulianDay(sorted.at(i))) > 5)
            ++check.gaps;
    }
    return check;
}

QString csvField(const QString &text)
{
    if (!text.contains(QLatin1Char(',')) && !text.contains(QLatin1Char('"')))
        return text;
    return QLatin1Char('"') + QString(text).replace(QLatin1String("\""), QLatin1String("\"\"")) +
           QLatin1Char('"');
}

} // namespace

QVector<StoreCheck> checkStore(const QString &storageFolder, const QStringList &symbols)
{
    QStringList names = symbols;
    if (names.isEmpty()) {
        const QStringList files =
            QDir(storageFolder).entryList({QStringLiteral("*.csv")}, QDir::Files, QDir::Name);
        // The store's own files ("_constituents.csv") hold no quotes.
        for (const QString &file : files)
            if (!file.startsWith(QLatin1Char('_')))
                names << file.left(file.size() - 4);
    }
    QVector<StoreCheck> checks;
    checks.reserve(names.size());
    for (const QString &symbol : qAsConst(names))
        checks.append(
            checkFile(symbol, storageFolder + QLatin1Char('/') + symbol + QLatin1String(".csv")));
    return checks;
}

QString storeCheckCsv(const QVector<StoreCheck> &checks)
{
    QString text = QStringLiteral(
        "symbol,rows,first,last,bad_lines,repeated_dates,out_of_order,gaps,status\n");
    const QString dateFormat = QStringLiteral("yyyy-MM-dd");
    for (const StoreCheck &c : checks) {
        const QStringList fields = {csvField(c.symbol),
                                    QString::number(c.rows),
                                    c.first.toString(dateFormat),
                                    c.last.toString(dateFormat),
                                    QString::number(c.badLines),
                                    QString::number(c.repeatedDates),
                                    QString::number(c.outOfOrder),
                                    QString::number(c.gaps),
                                    QLatin1String(c.ok() ? "ok" : "damaged")};
        text += fields.join(QLatin1Char(',')) + QLatin1Char('\n');
    }
    return text;
}

} // namespace OrdaneData
