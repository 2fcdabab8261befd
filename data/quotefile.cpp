#include "quotefile.h"

#include "home.h"
#include "reader.h"

#include <QIODevice>
#include <QSaveFile>

#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <iterator>
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

// The writer below prints numbers itself, straight into the output buffer, because the
// toolkit's conversion costs a string allocation per field and dominated the writer. Its text
// must stay exactly the toolkit's: QString::number(double(v), 'g', 6), the form stored files
// have always had.

constexpr std::uint64_t kPow10u[] = {
    1ull,           10ull,           100ull,          1000ull,      10000ull,
    100000ull,      1000000ull,      10000000ull,     100000000ull, 1000000000ull,
    10000000000ull, 100000000000ull, 1000000000000ull};

// 1e-6 .. 1e18 as doubles. No float lies between a power of ten and its nearest double, so
// comparing a float with these is comparing it with the exact power.
constexpr int kLowestExponent = -6;
constexpr double kPow10d[] = {1e-6, 1e-5, 1e-4, 1e-3, 1e-2, 1e-1, 1e0, 1e1,  1e2,
                              1e3,  1e4,  1e5,  1e6,  1e7,  1e8,  1e9, 1e10, 1e11,
                              1e12, 1e13, 1e14, 1e15, 1e16, 1e17, 1e18};

constexpr char kDigitPairs[] =
    "00010203040506070809101112131415161718192021222324252627282930313233"
    "34353637383940414243444546474849505152535455565758596061626364656667"
    "6869707172737475767778798081828384858687888990919293949596979899";

// The longest price the toolkit writes for a float, e.g. "-1.23456e-38" or "-0.000123456".
constexpr int kMaxPrice = 12;
// Date (a year of up to ten digits with its sign), four prices, a 64-bit volume, the constant
// seventh field, the commas and the line end that precedes a line.
constexpr int kMaxLine = 17 + 4 * kMaxPrice + 20 + 4 + 6 + 1;

char *writeLatin1(char *out, const QString &text)
{
    const QByteArray bytes = text.toLatin1();
    std::memcpy(out, bytes.constData(), size_t(bytes.size()));
    return out + bytes.size();
}

// Writes QString::number(double(v), 'g', 6). Finite floats from 1e-6 to 1e18 take an exact
// integer path: six significant digits rounded half away from zero (as the toolkit rounds,
// unlike printf and to_chars, which round half to even: 12345.25 gives "12345.3"), trailing
// zeros dropped, the exponent form for exponents below -4 or above 5 with at least two
// exponent digits. Everything else is rare in quotes and asks the toolkit itself.
char *writePrice(char *out, float v)
{
    std::uint32_t bits;
    std::memcpy(&bits, &v, sizeof bits);
    if ((bits & 0x7fffffffu) == 0) { // the toolkit writes -0 as "0" too
        *out = '0';
        return out + 1;
    }
    const double magnitude = std::fabs(double(v));
    if (!(magnitude >= kPow10d[0] && magnitude < kPow10d[std::size(kPow10d) - 1]))
        return writeLatin1(out, QString::number(double(v), 'g', 6));

    // magnitude = mantissa * 2^shift exactly; 10^exponent <= magnitude < 10^(exponent + 1).
    const std::uint64_t mantissa = (bits & 0x7fffffu) | 0x800000u;
    const int shift = int((bits >> 23) & 0xffu) - 150;
    int exponent = 0;
    while (magnitude >= kPow10d[exponent - kLowestExponent + 1])
        ++exponent;
    while (magnitude < kPow10d[exponent - kLowestExponent])
        --exponent;

    // digits = magnitude * 10^(5 - exponent) as numerator / denominator, both below 2^61
    // over this range, so the quotient and remainder are exact. Below a million the
    // denominator is a power of two and a shift does the division.
    const int scale = 5 - exponent;
    std::uint64_t digits;
    if (scale >= 0 && shift < 0) {
        const std::uint64_t numerator = mantissa * kPow10u[scale];
        digits = numerator >> -shift;
        if (((numerator >> (-shift - 1)) & 1u) != 0) // the remainder is half or more
            ++digits;
    } else {
        std::uint64_t numerator = mantissa;
        std::uint64_t denominator = 1;
        if (scale >= 0)
            numerator *= kPow10u[scale];
        else
            denominator = kPow10u[-scale];
        if (shift >= 0)
            numerator <<= shift;
        else
            denominator <<= -shift;
        digits = numerator / denominator;
        if (2 * (numerator % denominator) >= denominator)
            ++digits;
    }
    if (digits == 1000000) { // 999999.5 and the like round up to the next power of ten
        digits = 100000;
        ++exponent;
    }

    // Six digits by pairs; the first is never '0'.
    char d[6];
    std::memcpy(d, kDigitPairs + 2 * (digits / 10000), 2);
    std::memcpy(d + 2, kDigitPairs + 2 * (digits / 100 % 100), 2);
    std::memcpy(d + 4, kDigitPairs + 2 * (digits % 100), 2);
    int count = 6;
    while (d[count - 1] == '0')
        --count;

    if (v < 0)
        *out++ = '-';
    if (exponent < -4 || exponent > 5) {
        *out++ = d[0];
        if (count > 1) {
            *out++ = '.';
            std::memcpy(out, d + 1, size_t(count - 1));
            out += count - 1;
        }
        *out++ = 'e';
        *out++ = exponent < 0 ? '-' : '+';
        const int e = std::abs(exponent);
        *out++ = char('0' + e / 10);
        *out++ = char('0' + e % 10);
    } else if (exponent < 0) {
        *out++ = '0';
        *out++ = '.';
        for (int i = -1; i > exponent; --i)
            *out++ = '0';
        std::memcpy(out, d, size_t(count));
        out += count;
    } else {
        const int whole = exponent + 1;
        if (count <= whole) {
            std::memcpy(out, d, size_t(count));
            out += count;
            for (int i = count; i < whole; ++i)
                *out++ = '0';
        } else {
            std::memcpy(out, d, size_t(whole));
            out += whole;
            *out++ = '.';
            std::memcpy(out, d + whole, size_t(count - whole));
            out += count - whole;
        }
    }
    return out;
}

inline char *writeTwoDigits(char *out, int v)
{
    std::memcpy(out, kDigitPairs + 2 * v, 2);
    return out + 2;
}

// "yyyy-MM-dd" as QDate::toString writes it. The date class's own conversion from its day
// number costs as much as the rest of the line, hence the integer one here (Fliegel and Van
// Flandern, 1968; right for every positive Julian day). Years of other than four digits,
// and the invalid date, which gives nothing, are left to the date class.
char *writeDate(char *out, const QDate &date)
{
    // The invalid date's day number is the lowest qint64; it must not enter the arithmetic.
    const qint64 jd = date.toJulianDay();
    if (jd > 0) {
        qint64 l = jd + 68569;
        const qint64 n = 4 * l / 146097;
        l -= (146097 * n + 3) / 4;
        const qint64 i = 4000 * (l + 1) / 1461001;
        l += 31 - 1461 * i / 4;
        const qint64 j = 80 * l / 2447;
        const int day = int(l - 2447 * j / 80);
        l = j / 11;
        const int month = int(j + 2 - 12 * l);
        const qint64 year = 100 * (n - 49) + i + l;
        if (year >= 1000 && year <= 9999) {
            out = writeTwoDigits(out, int(year / 100));
            out = writeTwoDigits(out, int(year % 100));
            *out++ = '-';
            out = writeTwoDigits(out, month);
            *out++ = '-';
            return writeTwoDigits(out, day);
        }
    }
    return writeLatin1(out, date.toString(QStringLiteral("yyyy-MM-dd")));
}

// One stored line without line end; the buffer must hold kMaxLine bytes.
char *writeLine(char *out, const QuoteBar &bar)
{
    out = writeDate(out, bar.date());
    for (float price : {bar.open(), bar.high(), bar.low(), bar.close()}) {
        *out++ = ',';
        out = writePrice(out, price);
    }
    *out++ = ',';
    out = std::to_chars(out, out + 20, bar.volume()).ptr;
    std::memcpy(out, ",0.00", 5);
    return out + 5;
}

QString formatNumber(float v)
{
    char buffer[kMaxPrice];
    return QString::fromLatin1(buffer, int(writePrice(buffer, v) - buffer));
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
    char buffer[kMaxLine];
    return QString::fromLatin1(buffer, int(writeLine(buffer, bar) - buffer));
}

bool hasQuoteFileHeader(QIODevice *device)
{
    return device->readLine(16).startsWith("Date");
}

QByteArray seriesToBytes(const QVector<QuoteBar> &barsOldestFirst)
{
    constexpr int headerSize = int(sizeof(kQuoteFileHeader)) - 1;
    // Room for the longest possible lines; the unused tail is never touched.
    QByteArray text(headerSize + barsOldestFirst.size() * kMaxLine, Qt::Uninitialized);
    char *out = text.data();
    std::memcpy(out, kQuoteFileHeader, headerSize);
    out += headerSize;
    for (int i = barsOldestFirst.size() - 1; i >= 0; --i) {
        *out++ = '\n';
        out = writeLine(out, barsOldestFirst.at(i));
    }
    text.resize(int(out - text.constData()));
    return text;
}

QString seriesToText(const QVector<QuoteBar> &barsOldestFirst)
{
    return QString::fromLatin1(seriesToBytes(barsOldestFirst));
}

QString seriesToText(const Reader &reader)
{
    return seriesToText(reader.bars());
}

bool writeText(const QString &path, const QByteArray &text, QString *error)
{
    QSaveFile file(path);
    bool ok = file.open(QIODevice::WriteOnly | QIODevice::Truncate);
    if (ok) {
        ok = file.write(text) == text.size();
        ok = ok ? file.commit() : (file.cancelWriting(), false);
    }
    if (!ok && error)
        *error = file.errorString();
    return ok;
}

bool writeText(const QString &path, const QString &text, QString *error)
{
    return writeText(path, text.toLatin1(), error);
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
