#include "replies.h"

#include "data/quotefile.h"
#include "quotestore.h"

#include <QDate>

namespace QuoteService {

namespace {

Reply plain(int status, const QString &text)
{
    return {status, text.toUtf8(), "text/plain"};
}

// A day given as three numbers with the month counted from 0, or the null date.
QDate dateOf(const Params &params, const char *day, const char *month, const char *year)
{
    bool okDay = false, okMonth = false, okYear = false;
    const int d = params.value(QLatin1String(day)).toInt(&okDay);
    const int m = params.value(QLatin1String(month)).toInt(&okMonth);
    const int y = params.value(QLatin1String(year)).toInt(&okYear);
    if (!okDay || !okMonth || !okYear)
        return QDate();
    return QDate(y, m + 1, d);
}

QString number(float value)
{
    return QString::number(double(value), 'g', 6);
}

bool isTextCode(const QString &code)
{
    static const QStringList text = {
        QStringLiteral("n"),  QStringLiteral("x"),  QStringLiteral("c4"), QStringLiteral("q"),
        QStringLiteral("r1"), QStringLiteral("d1"), QStringLiteral("t1")};
    return text.contains(code);
}

// The value of one code before quoting; empty when the service lacks it.
QString fieldValue(const QuoteStore &store, const QString &symbol, const QString &code)
{
    if (QuoteStore::metadataCodes().contains(code))
        return store.metadata(symbol, code);
    const QVector<StoredBar> *series = store.series(symbol);
    if (!series || series->isEmpty())
        return QString();
    const QuoteBar &newest = series->constFirst().bar;
    if (code == QLatin1String("l1"))
        return number(newest.close());
    if (code == QLatin1String("d1"))
        return newest.date().toString(QStringLiteral("M/d/yyyy"));
    if (code == QLatin1String("t1"))
        return QStringLiteral("4:00pm"); // end-of-day quotes: the close of the session
    if (code == QLatin1String("o"))
        return number(newest.open());
    if (code == QLatin1String("h"))
        return number(newest.high());
    if (code == QLatin1String("g"))
        return number(newest.low());
    if (code == QLatin1String("v"))
        return QString::number(newest.volume());
    return QString();
}

// Stored dates are "yyyy-MM-dd"; the provider's are "yyyyMMdd". A missing date leaves that
// end of the range open; a malformed one gives the invalid date.
QDate compactDate(const Params &params, const char *key, const QDate &missing)
{
    const QString text = params.value(QLatin1String(key));
    if (text.isEmpty())
        return missing;
    const QDate date = QDate::fromString(text, QStringLiteral("yyyyMMdd"));
    return date.isValid() ? date : QDate();
}

} // namespace

QString requestedSymbol(Endpoint endpoint, const Params &params)
{
    QString symbol = params.value(QStringLiteral("s")).trimmed().toUpper();
    if (endpoint == Endpoint::Daily && symbol.endsWith(QLatin1String(".US")))
        symbol.chop(3);
    return symbol;
}

Reply tableReply(const QuoteStore &store, const Params &params)
{
    const QString symbol = requestedSymbol(Endpoint::Table, params);
    if (symbol.isEmpty())
        return plain(400, QStringLiteral("Bad request: no symbol (s)\n"));
    const QDate start = dateOf(params, "b", "a", "c");
    const QDate end = dateOf(params, "e", "d", "f");
    if (!start.isValid() || !end.isValid())
        return plain(400, QStringLiteral("Bad request: the range needs b, a, c and e, d, f as "
                                         "day, month from 0 and year\n"));
    const QString interval = params.value(QStringLiteral("g"), QStringLiteral("d"));
    if (interval != QLatin1String("d"))
        return plain(400, QStringLiteral("Bad request: only daily bars (g=d)\n"));
    const QVector<StoredBar> *series = store.series(symbol);
    if (!series)
        return plain(404, QStringLiteral("No quotes for %1\n").arg(symbol));

    QByteArray body(OrdaneData::kQuoteFileHeader);
    for (const StoredBar &stored : *series) {
        if (stored.bar.date() < start || stored.bar.date() > end)
            continue;
        body += '\n';
        body += stored.line;
    }
    return {200, body};
}

QStringList parseFieldCodes(const QString &codes)
{
    QStringList result;
    for (int i = 0; i < codes.size(); ++i) {
        if (codes.at(i).isLetter() && i + 1 < codes.size() && codes.at(i + 1).isDigit()) {
            result << codes.mid(i, 2);
            ++i;
        } else {
            result << codes.mid(i, 1);
        }
    }
    return result;
}

Reply fieldsReply(const QuoteStore &store, const Params &params)
{
    const QString symbol = requestedSymbol(Endpoint::Fields, params);
    const QString codes = params.value(QStringLiteral("f"));
    if (symbol.isEmpty() || codes.isEmpty())
        return plain(400, QStringLiteral("Bad request: s and f are needed\n"));
    QStringList values;
    for (const QString &code : parseFieldCodes(codes)) {
        QString value = fieldValue(store, symbol, code);
        if (value.isEmpty())
            values << QStringLiteral("N/A");
        else if (isTextCode(code))
            values << QLatin1Char('"') + value.replace(QLatin1Char('"'), QLatin1String("\"\"")) +
                          QLatin1Char('"');
        else
            values << value;
    }
    return {200, (values.join(QLatin1Char(',')) + QLatin1String("\r\n")).toUtf8()};
}

Reply dailyReply(const QuoteStore &store, const Params &params)
{
    const Reply noData{200, "No data"};
    const QVector<StoredBar> *series = store.series(requestedSymbol(Endpoint::Daily, params));
    const QDate first = compactDate(params, "d1", QDate(1, 1, 1));
    const QDate last = compactDate(params, "d2", QDate(9999, 12, 31));
    const QString interval = params.value(QStringLiteral("i"), QStringLiteral("d"));
    if (!series || !first.isValid() || !last.isValid() || interval != QLatin1String("d"))
        return noData;

    QByteArray body("Date,Open,High,Low,Close,Volume\r\n");
    int rows = 0;
    for (auto it = series->crbegin(); it != series->crend(); ++it) {
        if (it->bar.date() < first || it->bar.date() > last)
            continue;
        const QList<QByteArray> fields = it->line.split(',');
        for (int i = 0; i < 5; ++i)
            body += fields.at(i) + ',';
        // The provider writes its volumes as general numbers with six significant digits.
        body += fields.at(5).contains("N/A")
                    ? fields.at(5)
                    : QString::number(double(it->bar.volume()), 'g', 6).toLatin1();
        body += "\r\n";
        ++rows;
    }
    return rows > 0 ? Reply{200, body} : noData;
}

} // namespace QuoteService
