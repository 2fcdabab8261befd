#include "quotetable.h"

#include "quotefile.h"

#include <QFileInfo>
#include <QTime>
#include <QVector>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstring>
#include <utility>

namespace OrdaneData {

namespace {

// A row of a table that parses as a bar: its day and its text without line end, pointing
// into the table's buffer.
struct Row
{
    qint64 day;
    const char *begin;
    const char *end;
};

QVector<Row> rowsOf(const QByteArray &text)
{
    QVector<Row> rows;
    rows.reserve(text.size() / 40 + 1);
    const char *line = text.constData();
    const char *const end = line + text.size();
    while (line < end) {
        const char *nl = static_cast<const char *>(std::memchr(line, '\n', size_t(end - line)));
        const char *lineEnd = nl ? nl : end;
        if (lineEnd > line && lineEnd[-1] == '\r')
            --lineEnd;
        const QuoteBar bar = parseLine(line, lineEnd);
        if (bar.isValid())
            rows.append(Row{bar.date().toJulianDay(), line, lineEnd});
        line = nl ? nl + 1 : end;
    }
    return rows;
}

// Newest first and one row per day, keeping the first listed of a day. Stored files and
// replies are nearly always in order already, which is checked before anything is sorted.
void normalize(QVector<Row> &rows)
{
    const auto newer = [](const Row &a, const Row &b) {
        return a.day > b.day;
    };
    const auto notNewer = [](const Row &a, const Row &b) {
        return a.day <= b.day;
    };
    if (std::adjacent_find(rows.begin(), rows.end(), notNewer) == rows.end())
        return;
    std::stable_sort(rows.begin(), rows.end(), newer);
    const auto sameDay = [](const Row &a, const Row &b) {
        return a.day == b.day;
    };
    rows.erase(std::unique(rows.begin(), rows.end(), sameDay), rows.end());
}

void appendRow(QByteArray &text, const Row &row)
{
    text += '\n';
    text.append(row.begin, int(row.end - row.begin));
}

QByteArray tableOf(const QVector<Row> &rows, int reserve)
{
    QByteArray text;
    text.reserve(reserve);
    text += kQuoteFileHeader;
    for (const Row &row : rows)
        appendRow(text, row);
    return text;
}

inline bool isDigit(char c)
{
    return c >= '0' && c <= '9';
}

// A whole field as a finite float; no blanks, no sign but '-'.
bool readPrice(const QByteArray &field, float &value)
{
    const char *end = field.constData() + field.size();
    const auto r = std::from_chars(field.constData(), end, value);
    return r.ec == std::errc() && r.ptr == end && field.size() > 0 && std::isfinite(value);
}

bool readVolume(const QByteArray &field, qint64 &volume)
{
    const char *end = field.constData() + field.size();
    long long v = 0;
    const auto r = std::from_chars(field.constData(), end, v);
    if (r.ec != std::errc() || r.ptr != end || field.isEmpty())
        return false;
    volume = v;
    return true;
}

// Volumes in any number form ("97742500", "9.77425e+07") to the nearest integer.
bool readRoundedVolume(const QByteArray &field, qint64 &volume)
{
    if (readVolume(field, volume))
        return true;
    double v = 0;
    const char *end = field.constData() + field.size();
    const auto r = std::from_chars(field.constData(), end, v);
    if (r.ec != std::errc() || r.ptr != end || field.isEmpty() || !(std::fabs(v) < 9.2e18))
        return false;
    volume = std::llround(v);
    return true;
}

// The fields of a CSV line; quotes are dropped (commas inside them do not split) and the
// fields trimmed.
QList<QByteArray> csvFields(const QByteArray &line)
{
    QList<QByteArray> fields;
    QByteArray field;
    bool quoted = false;
    for (const char c : line) {
        if (c == '"')
            quoted = !quoted;
        else if (c == ',' && !quoted)
            fields.append(std::exchange(field, QByteArray()).trimmed());
        else
            field += c;
    }
    fields.append(field.trimmed());
    return fields;
}

} // namespace

QString tableUrl(const QString &symbol, const QDate &start, const QDate &end)
{
    // Concatenated rather than QString::arg()ed: the escaped symbol holds "%5".
    QString query = QStringLiteral("s=");
    query += QString(symbol).replace(QLatin1Char('^'), QLatin1String("%5E"));
    query += QLatin1String("&e=") + QString::number(end.day());
    query += QLatin1String("&d=") + QString::number(end.month() - 1);
    query += QLatin1String("&f=") + QString::number(end.year());
    query += QLatin1String("&g=d");
    query += QLatin1String("&b=") + QString::number(start.day());
    query += QLatin1String("&a=") + QString::number(start.month() - 1);
    query += QLatin1String("&c=") + QString::number(start.year());
    query += QLatin1String("&ignore=.csv");
    return query;
}

bool isValidTable(const QByteArray &text)
{
    if (!text.startsWith("Date,Open"))
        return false;
    const char *p = text.constData();
    for (int i = 0; i + 10 <= text.size(); ++i) {
        const char *d = p + i;
        if (isDigit(d[0]) && isDigit(d[1]) && isDigit(d[2]) && isDigit(d[3]) && d[4] == '-' &&
            isDigit(d[5]) && isDigit(d[6]) && d[7] == '-' && isDigit(d[8]) && isDigit(d[9]))
            return true;
    }
    return false;
}

bool needsUpdate(const QString &symbol, const QDate &today)
{
    if (symbol.endsWith(QLatin1String(".IMP")) ||
        QFileInfo::exists(storagePath() + QLatin1Char('/') + symbol + QLatin1String(".IMP")))
        return false;
    const QFileInfo file(fileOf(symbol));
    return !file.exists() || file.lastModified().date() != today;
}

QDate lastCompletedTradingDay(const QDate &today)
{
    switch (today.dayOfWeek()) {
    case Qt::Sunday:
        return today.addDays(-2);
    case Qt::Monday:
        return today.addDays(-3);
    default:
        return today.addDays(-1);
    }
}

TableMerge mergeTable(const QByteArray &stored, const QByteArray &reply)
{
    QVector<Row> old = rowsOf(stored);
    QVector<Row> fresh = rowsOf(reply);
    normalize(old);
    normalize(fresh);

    TableMerge merge;
    merge.text.reserve(stored.size() + reply.size() + int(sizeof(kQuoteFileHeader)));
    merge.text += kQuoteFileHeader;
    int i = 0;
    int j = 0;
    while (i < old.size() || j < fresh.size()) {
        if (j < fresh.size() && (i == old.size() || fresh.at(j).day >= old.at(i).day)) {
            const Row &row = fresh.at(j++);
            if (i < old.size() && old.at(i).day == row.day) {
                const Row &was = old.at(i++);
                const size_t length = size_t(row.end - row.begin);
                if (size_t(was.end - was.begin) != length ||
                    std::memcmp(was.begin, row.begin, length) != 0)
                    ++merge.replaced;
            } else {
                ++merge.added;
            }
            appendRow(merge.text, row);
        } else {
            appendRow(merge.text, old.at(i++));
        }
    }
    return merge;
}

bool convertDailyCsv(const QByteArray &reply, QByteArray *table, QString *error)
{
    const QByteArray text = reply.trimmed();
    const int firstEnd = text.indexOf('\n');
    const QByteArray header = (firstEnd < 0 ? text : text.left(firstEnd)).trimmed();

    // The rows in the stored form, still oldest first; rowsOf() then drops what does not
    // parse.
    QByteArray converted;
    if (header.startsWith("Date,Open,High,Low,Close,Volume") && firstEnd >= 0) {
        converted.reserve(text.size() * 3 / 2);
        const QList<QByteArray> lines = text.mid(firstEnd + 1).split('\n');
        for (const QByteArray &line : lines) {
            const QList<QByteArray> f = line.trimmed().split(',');
            qint64 volume = 0;
            if (f.size() < 6 || !readRoundedVolume(f.at(5).trimmed(), volume))
                continue;
            for (int k = 0; k < 5; ++k)
                converted += f.at(k).trimmed() + ',';
            converted += QByteArray::number(volume) + ',' + f.at(4).trimmed() + '\n';
        }
    }
    QVector<Row> rows = rowsOf(converted);
    if (rows.isEmpty()) {
        if (error) {
            *error = text.isEmpty() ? QStringLiteral("empty reply")
                                    : QString::fromUtf8(header).left(120);
        }
        return false;
    }
    // Newest first, so that of two rows for one day the later in the reply is kept.
    std::reverse(rows.begin(), rows.end());
    normalize(rows);
    if (table)
        *table = tableOf(rows, converted.size() + int(sizeof(kQuoteFileHeader)));
    return true;
}

QuoteBar parseCurrentQuote(const QByteArray &line)
{
    const QList<QByteArray> f = csvFields(line.trimmed());
    if (f.size() != 7)
        return QuoteBar();
    float price = 0;
    qint64 volume = 0;
    if (!readPrice(f.at(0), price) || !readVolume(f.at(6), volume))
        return QuoteBar();
    float open = price;
    float high = price;
    float low = price;
    const auto readOrMissing = [](const QByteArray &field, float &value) {
        return field == "N/A" || readPrice(field, value);
    };
    if (!readOrMissing(f.at(3), open) || !readOrMissing(f.at(4), high) ||
        !readOrMissing(f.at(5), low))
        return QuoteBar();
    const QDate date = QDate::fromString(QString::fromLatin1(f.at(1)), QStringLiteral("M/d/yyyy"));
    const QTime time = QTime::fromString(QString::fromLatin1(f.at(2)), QStringLiteral("h:mmap"));
    if (!date.isValid() || !time.isValid())
        return QuoteBar();
    return QuoteBar(date, open, high, low, price, volume);
}

} // namespace OrdaneData
