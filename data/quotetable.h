#pragma once

#include "quotebar.h"

#include <QByteArray>
#include <QDate>
#include <QString>

// The pure parts of downloading quotes: the address of a historical table, the checks and
// conversions of what the quote services reply, and the merge of a reply into a stored file.
// Nothing here touches the network; only needsUpdate() looks at files.
//
// Tables are the stored format (see quotefile.h): the header
// "Date,Open,High,Low,Close,Volume,Adj Close", then one row per trading day, newest first,
// "yyyy-MM-dd" dates, "\n" line ends and none after the last row.

namespace OrdaneData {

// The query of a historical daily table, i.e. what follows "/table.csv?" on the table host:
//   s=SYMBOL&e=END_DAY&d=END_MONTH&f=END_YEAR&g=d&b=START_DAY&a=START_MONTH&c=START_YEAR
//   &ignore=.csv
// in exactly this order, with every "^" of the symbol written "%5E", months counted from 0
// (January is 0) and all numbers decimal without leading zeros. Nothing else is escaped.
// "^DJI", 2 January 2012 to 25 September 2012 gives
//   "s=%5EDJI&e=25&d=8&f=2012&g=d&b=2&a=0&c=2012&ignore=.csv".
QString tableUrl(const QString &symbol, const QDate &start, const QDate &end);

// Whether a reply to tableUrl() is a table worth storing: it starts with "Date,Open" and
// holds somewhere a date written like "2012-09-25" (four, two and two digits between
// dashes). A reply failing this is never stored.
bool isValidTable(const QByteArray &text);

// Whether the stored file of a symbol should be downloaded again. False for an imported symbol
// (its name ends in ".IMP"), and when the marker
// file symbol + ".IMP" exists in storagePath() (the series was imported and has no quote
// source); otherwise true unless fileOf(symbol) exists and was last modified on `today`
// (local time).
bool needsUpdate(const QString &symbol, const QDate &today = QDate::currentDate());

// The newest day whose quotes are complete, seen on `today`: the day before, skipping back
// over the weekend (Saturday, Sunday and Monday all give the Friday before). Holidays are
// not known.
QDate lastCompletedTradingDay(const QDate &today);

// A stored file's text with a reply merged in; `added` counts the reply's dates the stored
// text did not have, `replaced` the dates both had whose row text differs.
struct TableMerge
{
    QByteArray text;
    int added = 0;
    int replaced = 0;
};

// Merges the rows of a valid reply table (see isValidTable()) into a stored file's text.
// The result is a complete stored table whatever the input's order or gaps: the header,
// then one row per date from either side, newest first. Rows stay the text they were on
// their side (only a "\r" before the line end is dropped), so a reply's own "Adj Close"
// is kept as sent. A date on both sides takes the reply's row. Rows that do not parse as
// bars (parseLine()), the headers among them, are dropped from both sides. When a date
// occurs more than once on one side, the occurrence nearest the top wins: in a newest-first
// table that is the row listed as the newest. The stored text may be empty or lack its
// header.
TableMerge mergeTable(const QByteArray &stored, const QByteArray &reply);

// Converts the daily table of the second quote service, "Date,Open,High,Low,Close,Volume"
// (further columns are ignored) with the oldest day first and any line ends, into the
// stored format: newest first, the prices as sent, the volume as a decimal integer (a volume
// sent as "9.77425e+07" is rounded to 97742500) and the close repeated as "Adj Close". Rows
// that do not then parse as bars are dropped; of two rows for one date the later in the
// reply wins.
// Returns true with the table in *table. Returns false, leaving *table alone, when the
// reply does not start with that header or holds no usable row; *error then says why:
// the reply's first line, trimmed and cut to 120 characters (e.g. "No data"), or "empty
// reply" when there is no text at all. Either pointer may be null.
bool convertDailyCsv(const QByteArray &reply, QByteArray *table, QString *error = nullptr);

// Reads one line of a current-quote reply for the fields "l1d1t1ohgv": last price, trade
// date ("M/d/yyyy"), trade time ("h:mmap", e.g. "4:00pm"), open, high, low, volume, e.g.
//   688.26,"9/25/2012","4:00pm",686.86,692.86,686.17,14523500
// Fields may be quoted; blanks around fields and the line end are ignored. Returns a bar
// of the trade date (no time of day, like stored bars) with the last price as its close.
// An open, high or low of "N/A" takes the last price. Returns the invalid bar unless the
// line has exactly seven fields, the prices and volume are numbers (a 64-bit integer for
// the volume) and the date and time parse.
QuoteBar parseCurrentQuote(const QByteArray &line);

} // namespace OrdaneData
