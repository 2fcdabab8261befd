#include "textformats.h"

#include "data/quotefile.h"

#include <QHash>

#include <charconv>
#include <cmath>
#include <cstring>

namespace OrdaneData {

namespace {

// A field of a line: the bytes between two commas, blanks around it already dropped.
struct Field
{
    const char *begin = nullptr;
    const char *end = nullptr;

    int size() const { return int(end - begin); }
    bool operator==(const char *text) const
    {
        return size_t(size()) == std::strlen(text) && std::memcmp(begin, text, size_t(size())) == 0;
    }
};

inline bool isBlank(char c)
{
    return c == ' ' || c == '\t' || c == '\r' || c == '\n' || c == '\v' || c == '\f';
}

Field trimmed(const char *b, const char *e)
{
    while (b < e && isBlank(*b))
        ++b;
    while (e > b && isBlank(e[-1]))
        --e;
    return {b, e};
}

// Splits a line at every comma. Returns the number of fields, which may exceed `capacity`;
// only the first `capacity` are stored.
template <int capacity> int splitLine(const char *b, const char *e, Field (&fields)[capacity])
{
    int n = 0;
    const char *start = b;
    for (const char *p = b;; ++p) {
        if (p == e || *p == ',') {
            if (n < capacity)
                fields[n] = trimmed(start, p);
            ++n;
            if (p == e)
                return n;
            start = p + 1;
        }
    }
}

template <typename Visit> void forEachLine(const QByteArray &text, Visit visit)
{
    const char *line = text.constData();
    const char *const end = line + text.size();
    while (line < end) {
        const char *nl = static_cast<const char *>(std::memchr(line, '\n', size_t(end - line)));
        const char *lineEnd = nl ? nl : end;
        visit(line, lineEnd);
        line = nl ? nl + 1 : end;
    }
}

bool readPrice(const Field &f, float &value)
{
    const char *b = f.begin + (f.size() > 1 && *f.begin == '+' && f.begin[1] != '-');
    const auto r = std::from_chars(b, f.end, value, std::chars_format::general);
    return b < f.end && r.ec == std::errc() && r.ptr == f.end && std::isfinite(value);
}

bool readVolume(const Field &f, qint64 &volume)
{
    const char *b = f.begin + (f.size() > 1 && *f.begin == '+' && f.begin[1] != '-');
    long long v = 0;
    const auto r = std::from_chars(b, f.end, v, 10);
    if (b == f.end || r.ec != std::errc() || r.ptr != f.end)
        return false;
    volume = v;
    return true;
}

inline int digit(char c)
{
    return c >= '0' && c <= '9' ? c - '0' : -1;
}

// Digits at the given offsets of a field as one number; -1 when any is not a digit.
int number(const char *p, int first, int count)
{
    int v = 0;
    for (int i = first; i < first + count; ++i) {
        const int d = digit(p[i]);
        if (d < 0)
            return -1;
        v = v * 10 + d;
    }
    return v;
}

// "yyyy.MM.dd", the only date form MetaTrader exports write.
QDate readDottedDate(const Field &f)
{
    if (f.size() != 10 || f.begin[4] != '.' || f.begin[7] != '.')
        return QDate();
    const int year = number(f.begin, 0, 4);
    const int month = number(f.begin, 5, 2);
    const int day = number(f.begin, 8, 2);
    // Year 0 does not exist in the calendar, and "0000" would not read back.
    return year > 0 && month >= 0 && day >= 0 ? QDate(year, month, day) : QDate();
}

QDate readCompactDate(const Field &f)
{
    if (f.size() != 8)
        return QDate();
    const int year = number(f.begin, 0, 4);
    const int month = number(f.begin, 4, 2);
    const int day = number(f.begin, 6, 2);
    return year > 0 && month >= 0 && day >= 0 ? QDate(year, month, day) : QDate();
}

// Open, high, low, close and volume from five consecutive fields; the invalid bar when one
// does not convert.
QuoteBar readBar(const QDate &date, const Field *f)
{
    float price[4];
    qint64 volume = 0;
    if (!date.isValid())
        return QuoteBar();
    for (int i = 0; i < 4; ++i) {
        if (!readPrice(f[i], price[i]))
            return QuoteBar();
    }
    if (!readVolume(f[4], volume))
        return QuoteBar();
    return QuoteBar(date, price[0], price[1], price[2], price[3], volume);
}

// The rows of imported text, listed from the last bar to the first: the stored writer's
// lines with the seventh field "0" instead of its "0.00". The writer prints prices in their
// shortest form and the volume as an integer, so ",0.00" occurs nowhere but there.
ImportedTable importedRows(const QVector<QuoteBar> &bars)
{
    ImportedTable table;
    table.rows = bars.size();
    table.text = seriesToBytes(bars);
    table.text.replace(",0.00\n", ",0\n");
    if (table.text.endsWith(",0.00"))
        table.text.chop(3);
    return table;
}

} // namespace

ImportedTable convertMetaTrader(const QByteArray &source)
{
    QVector<QuoteBar> bars;
    bars.reserve(source.size() / 40 + 1);
    forEachLine(source, [&](const char *b, const char *e) {
        Field f[7];
        if (splitLine(b, e, f) != 7)
            return;
        const QuoteBar bar = readBar(readDottedDate(f[0]), f + 2);
        if (bar.isValid())
            bars.append(bar);
    });
    return importedRows(bars);
}

ImportedTable convertHalcyra(const QByteArray &source)
{
    if (!source.startsWith("Date"))
        return ImportedTable();
    const QVector<QuoteBar> newestFirst =
        scanBars(source.constData(), source.constData() + source.size(), LineScan::WholeFile);
    // The writer lists its bars from the last to the first.
    const QVector<QuoteBar> reversed(newestFirst.crbegin(), newestFirst.crend());
    return {seriesToBytes(reversed), reversed.size()};
}

QVector<TickerTable> convertRbk(const QByteArray &source)
{
    QHash<QString, int> index;
    QVector<QString> tickers;
    QVector<QVector<QuoteBar>> bars;
    forEachLine(source, [&](const char *b, const char *e) {
        Field f[9];
        const int n = splitLine(b, e, f);
        if (n != 9 || f[0] == "TICKER")
            return;
        const QString ticker = QString::fromLatin1(f[0].begin, f[0].size());
        const QuoteBar bar = readBar(readCompactDate(f[2]), f + 4);
        if (!bar.isValid() || !isUsableSymbol(ticker))
            return;
        auto it = index.find(ticker);
        if (it == index.end()) {
            it = index.insert(ticker, tickers.size());
            tickers.append(ticker);
            bars.append(QVector<QuoteBar>());
        }
        bars[*it].append(bar);
    });
    QVector<TickerTable> tables;
    tables.reserve(tickers.size());
    for (int i = 0; i < tickers.size(); ++i)
        tables.append({tickers.at(i), importedRows(bars.at(i))});
    return tables;
}

bool isUsableSymbol(const QString &symbol)
{
    if (symbol.isEmpty() || symbol == QLatin1String(".") || symbol == QLatin1String(".."))
        return false;
    for (const QChar c : symbol) {
        if (c < QLatin1Char(' ') || c == QChar(0x7f) || c == QLatin1Char('/') ||
            c == QLatin1Char('\\') || c == QLatin1Char(':'))
            return false;
    }
    return true;
}

} // namespace OrdaneData
