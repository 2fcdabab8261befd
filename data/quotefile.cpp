#include "quotefile.h"

#include "home.h"
#include "reader.h"

#include <QSaveFile>

#include <charconv>
#include <cmath>
#include <cstring>
#include <string_view>

namespace OrdaneData {

namespace {

inline bool isBlank(char c)
{
    return c == ' ' || c == '\t' || c == '\r' || c == '\n' || c == '\v' || c == '\f';
}

inline void trim(const char *&b, const char *&e)
{
    while (b < e && isBlank(*b))
        ++b;
    while (e > b && isBlank(e[-1]))
        --e;
}

// Numbers as the text-to-number conversion of the toolkit reads them: blanks around the
// number and a leading '+' are allowed, the whole field must be used.
bool readFloat(const char *b, const char *e, float &out)
{
    trim(b, e);
    if (b < e && *b == '+') {
        ++b;
        if (b < e && *b == '-')
            return false;
    }
    if (b == e)
        return false;
    const auto r = std::from_chars(b, e, out, std::chars_format::general);
    return r.ec == std::errc() && r.ptr == e && std::isfinite(out);
}

bool readInt64(const char *b, const char *e, qint64 &out)
{
    trim(b, e);
    if (b < e && *b == '+') {
        ++b;
        if (b < e && *b == '-')
            return false;
    }
    if (b == e)
        return false;
    long long v = 0;
    const auto r = std::from_chars(b, e, v, 10);
    if (r.ec != std::errc() || r.ptr != e)
        return false;
    out = v;
    return true;
}

inline bool containsNA(const char *b, const char *e)
{
    return std::string_view(b, size_t(e - b)).find("N/A") != std::string_view::npos;
}

inline int digit(char c)
{
    return (c >= '0' && c <= '9') ? c - '0' : -1;
}

// "yyyy-MM-dd", nothing more and nothing less.
QDate readDate(const char *b, const char *e)
{
    if (e - b != 10 || b[4] != '-' || b[7] != '-')
        return QDate();
    int v[8];
    static constexpr int pos[8] = {0, 1, 2, 3, 5, 6, 8, 9};
    for (int i = 0; i < 8; ++i) {
        v[i] = digit(b[pos[i]]);
        if (v[i] < 0)
            return QDate();
    }
    const int year = v[0] * 1000 + v[1] * 100 + v[2] * 10 + v[3];
    const int month = v[4] * 10 + v[5];
    const int day = v[6] * 10 + v[7];
    return QDate::isValid(year, month, day) ? QDate(year, month, day) : QDate();
}

inline bool containsDate(const char *b, const char *e)
{
    return std::string_view(b, size_t(e - b)).find("Date") != std::string_view::npos;
}

QString formatNumber(float v)
{
    return QString::number(double(v), 'g', 6);
}

} // namespace

QuoteBar parseLine(const char *begin, const char *end)
{
    // Split at "," keeping empty fields; a seventh comma makes an eighth field.
    const char *field[8];
    const char *fieldEnd[7];
    field[0] = begin;
    const char *p = begin;
    for (int i = 0; i < 6; ++i) {
        const void *comma = std::memchr(p, ',', size_t(end - p));
        if (!comma)
            return QuoteBar();
        fieldEnd[i] = static_cast<const char *>(comma);
        p = fieldEnd[i] + 1;
        field[i + 1] = p;
    }
    if (std::memchr(p, ',', size_t(end - p)))
        return QuoteBar();

    bool missing = false;
    float price[4] = {0, 0, 0, 0};
    bool closeIsNumber = false;
    for (int i = 0; i < 4; ++i) {
        if (readFloat(field[i + 1], fieldEnd[i + 1], price[i])) {
            if (i == 3)
                closeIsNumber = true;
        } else if (containsNA(field[i + 1], fieldEnd[i + 1])) {
            price[i] = 0.0f;
            missing = true;
        } else {
            return QuoteBar();
        }
    }
    qint64 volume = 0;
    if (!readInt64(field[5], fieldEnd[5], volume)) {
        if (!containsNA(field[5], fieldEnd[5]))
            return QuoteBar();
        volume = 0;
        missing = true;
    }
    if (missing && closeIsNumber)
        price[0] = price[1] = price[2] = price[3];

    const QDate date = readDate(field[0], fieldEnd[0]);
    if (!date.isValid())
        return QuoteBar();
    return QuoteBar(date, price[0], price[1], price[2], price[3], volume);
}

QuoteBar parseLine(const QString &line)
{
    const QByteArray bytes = line.toLatin1();
    return parseLine(bytes.constData(), bytes.constData() + bytes.size());
}

QVector<QuoteBar> scanBars(const char *begin, const char *end, LineScan mode)
{
    QVector<QuoteBar> bars;
    if (begin == end)
        return bars;

    // Lines are about 45 bytes; a count of line ends sizes the vector exactly.
    int lines = 1;
    for (const char *p = begin; (p = static_cast<const char *>(std::memchr(p, '\n', size_t(end - p))));
         ++p)
        ++lines;
    bars.reserve(lines);

    const char *line = begin;
    while (line < end) {
        const char *nl = static_cast<const char *>(std::memchr(line, '\n', size_t(end - line)));
        const char *lineEnd = nl ? nl : end;
        if (mode == LineScan::UpToEmptyLine && lineEnd == line)
            break;
        if (!containsDate(line, lineEnd)) {
            const QuoteBar bar = parseLine(line, lineEnd);
            if (bar.isValid())
                bars.append(bar);
        }
        if (!nl)
            break;
        line = nl + 1;
    }
    return bars;
}

QString formatLine(const QuoteBar &bar)
{
    QString line;
    line.reserve(64);
    line += bar.date().toString(QStringLiteral("yyyy-MM-dd"));
    line += QLatin1Char(',');
    line += formatNumber(bar.open());
    line += QLatin1Char(',');
    line += formatNumber(bar.high());
    line += QLatin1Char(',');
    line += formatNumber(bar.low());
    line += QLatin1Char(',');
    line += formatNumber(bar.close());
    line += QLatin1Char(',');
    line += QString::number(bar.volume());
    line += QLatin1String(",0.00");
    return line;
}

QString seriesToText(const QVector<QuoteBar> &barsOldestFirst)
{
    QString text = QLatin1String(kQuoteFileHeader);
    text.reserve(text.size() + barsOldestFirst.size() * 48);
    for (int i = barsOldestFirst.size() - 1; i >= 0; --i) {
        text += QLatin1Char('\n');
        text += formatLine(barsOldestFirst.at(i));
    }
    return text;
}

QString seriesToText(const Reader &reader)
{
    return seriesToText(reader.bars());
}

bool writeText(const QString &path, const QString &text, QString *error)
{
    QSaveFile file(path);
    bool ok = file.open(QIODevice::WriteOnly | QIODevice::Truncate);
    if (ok) {
        const QByteArray bytes = text.toLatin1();
        ok = file.write(bytes) == bytes.size();
        ok = ok ? file.commit() : (file.cancelWriting(), false);
    }
    if (!ok && error)
        *error = file.errorString();
    return ok;
}

QString storagePath()
{
    return Home::storagePath();
}

QString fileOf(const QString &symbol)
{
    return storagePath() + QLatin1Char('/') + symbol + QLatin1String(".csv");
}

QString normalizeImportedLine(const QString &line)
{
    const QStringList fields = line.split(QLatin1Char(','));
    if (fields.size() < 6)
        return QString();
    float price[4];
    for (int i = 0; i < 4; ++i) {
        const QByteArray f = fields.at(i + 1).toLatin1();
        if (!readFloat(f.constData(), f.constData() + f.size(), price[i]))
            return QString();
    }
    qint64 volume = 0;
    const QByteArray v = fields.at(5).toLatin1();
    if (!readInt64(v.constData(), v.constData() + v.size(), volume))
        return QString();

    QString date = fields.at(0);
    date.replace(QLatin1Char('.'), QLatin1Char('-'));
    QStringList out{date};
    for (float p : price)
        out << formatNumber(p);
    out << QString::number(volume) << QStringLiteral("0");
    return out.join(QLatin1Char(',')) + QLatin1Char('\n');
}

} // namespace OrdaneData
