#include "quotefile.h"

#include "home.h"
#include "reader.h"

#include <QIODevice>
#include <QSaveFile>

#include <charconv>
#include <cmath>
#include <cstdint>
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

// Exact powers of ten in single precision.
constexpr float kPow10f[] = {1e0f, 1e1f, 1e2f, 1e3f, 1e4f, 1e5f, 1e6f, 1e7f, 1e8f, 1e9f, 1e10f};

// Plain decimals ("-12.345", "7.", ".5") whose digits fit in 24 bits: both the digits and
// the power of ten are exact floats, so one IEEE division is correctly rounded and gives
// the same float as from_chars (Clinger's fast path). Returns false for anything else.
inline bool readPlainDecimal(const char *b, const char *e, float &out)
{
    const bool negative = *b == '-';
    b += negative;
    std::uint32_t digits = 0;
    int count = 0;
    int fraction = -1; // digits after the point, -1 while no point was seen
    for (; b < e; ++b) {
        const unsigned d = unsigned(*b) - '0';
        if (d < 10) {
            digits = digits * 10 + d;
            if (++count > 7)
                return false;
            fraction += fraction >= 0;
        } else if (*b == '.' && fraction < 0) {
            fraction = 0;
        } else {
            return false;
        }
    }
    if (count == 0 || fraction > 10)
        return false;
    const float value = fraction > 0 ? float(digits) / kPow10f[fraction] : float(digits);
    out = negative ? -value : value;
    return true;
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
    if (readPlainDecimal(b, e, out))
        return true;
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
    // Up to 18 digits cannot overflow; longer numbers take the checked conversion.
    if (e - b <= 18) {
        qint64 v = 0;
        const char *p = b + (*b == '-');
        if (p == e)
            return false;
        for (; p < e; ++p) {
            const unsigned d = unsigned(*p) - '0';
            if (d >= 10)
                return false;
            v = v * 10 + d;
        }
        out = *b == '-' ? -v : v;
        return true;
    }
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

// "yyyy-MM-dd", nothing more and nothing less. The day number is computed here rather
// than by the date class's checked constructor, which costs more than the rest of a line.
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
    static constexpr int monthLength[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    const bool leap = (year % 4 == 0 && year % 100 != 0) || year % 400 == 0;
    if (year == 0 || month < 1 || month > 12 || day < 1 ||
        day > monthLength[month - 1] + (month == 2 && leap))
        return QDate();
    // Gregorian calendar to Julian day (Fliegel and Van Flandern, 1968).
    const int a = (14 - month) / 12;
    const int y = year + 4800 - a;
    const int m = month + 12 * a - 3;
    return QDate::fromJulianDay(day + (153 * m + 2) / 5 + 365 * y + y / 4 - y / 100 + y / 400 -
                                32045);
}

inline bool containsDate(const char *b, const char *e)
{
    // Data lines hold no 'D' at all, so one scan for it settles almost every line.
    return std::memchr(b, 'D', size_t(e - b)) &&
           std::string_view(b, size_t(e - b)).find("Date") != std::string_view::npos;
}

QString formatNumber(float v)
{
    return QString::number(double(v), 'g', 6);
}

} // namespace

QuoteBar parseLine(const char *begin, const char *end)
{
    // Split at "," keeping empty fields; a seventh comma makes an eighth field.
    // Fields are short, so a plain loop finds the commas faster than a call per field.
    const char *field[7];
    const char *fieldEnd[6];
    field[0] = begin;
    int n = 0;
    for (const char *p = begin; p < end; ++p) {
        if (*p == ',') {
            if (n == 6)
                return QuoteBar();
            fieldEnd[n++] = p;
            field[n] = p + 1;
        }
    }
    if (n != 6)
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

    // Stored lines are rarely shorter than 30 bytes; this reserve avoids regrowing.
    bars.reserve(int((end - begin) / 30) + 1);

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

bool hasQuoteFileHeader(QIODevice *device)
{
    return device->readLine(16).startsWith("Date");
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
