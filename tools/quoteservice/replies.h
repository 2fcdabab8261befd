#pragma once

#include <QByteArray>
#include <QHash>
#include <QString>
#include <QStringList>

namespace QuoteService {

class QuoteStore;

// The query of a request, decoded; the first value of each key.
using Params = QHash<QString, QString>;

// The forms of request the service answers.
enum class Endpoint {
    Table,  // GET /table.csv: the historical table of the first provider
    Fields, // GET /d/quotes.csv: chosen figures of the newest bar and the company
    Daily,  // GET /q/d/l/: the daily table of the second provider
};

struct Reply
{
    int status = 200;
    QByteArray body;
    const char *contentType = "text/csv";
};

// The symbol a request names, in the store's spelling: upper case, and for the second
// provider without its ".us" suffix ("aapl.us" is AAPL, "^dji" is ^DJI). Empty when the
// request names none.
QString requestedSymbol(Endpoint endpoint, const Params &params);

// The table rows dated from b/a+1/c to e/d+1/f (day/month/year, months counted from 0),
// newest first, each line as stored, after the stored header; "\n" between lines and none
// after the last. 400 for a missing or impossible date or a symbol missing, 404 for an
// unknown symbol.
Reply tableReply(const QuoteStore &store, const Params &params);

// One line of values for the codes of f (see parseFieldCodes()), joined by commas and ended by
// "\r\n": text in double quotes, numbers bare, N/A for what the service lacks, for an unknown
// code and for every code of an unknown symbol. 400 when s or f is missing.
Reply fieldsReply(const QuoteStore &store, const Params &params);

// The rows dated d1 to d2 (yyyyMMdd; either may be left out) oldest first after the header
// "Date,Open,High,Low,Close,Volume", each line ended by "\r\n". Volumes are written with six
// significant digits (9.77425e+07 from 1e6 on), the rest as stored. "No data" when the symbol
// is unknown, a date malformed or no bar in the range, with status 200 as the provider does.
Reply dailyReply(const QuoteStore &store, const Params &params);

// The codes of a field string, read greedily: a letter followed by a digit is one code
// ("l1d1t1" is l1, d1, t1), any other character is a code of its own ("rr5" is r, r5).
QStringList parseFieldCodes(const QString &codes);

} // namespace QuoteService
