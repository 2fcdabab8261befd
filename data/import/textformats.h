#pragma once

#include <QByteArray>
#include <QString>
#include <QVector>

// The quote files of other programs that are text, converted to stored tables (see
// data/quotefile.h): the history export of MetaTrader, RBK ticker files, and the stored
// files of Halcyra itself. Nothing here touches a file; docs/imports.md describes the
// formats.

namespace OrdaneData {

// A source converted to a complete stored table: the header
// "Date,Open,High,Low,Close,Volume,Adj Close", then `rows` rows, "\n" between lines and none
// after the last. rows == 0 means the source held nothing usable.
struct ImportedTable
{
    QByteArray text;
    int rows = 0;
};

// A MetaTrader history export, one bar a line, "date,time,open,high,low,close,volume", e.g.
//   2010.03.15,00:00,1.3721,1.3758,1.3650,1.3744,41293
// Only lines of exactly seven fields are used. The date must read yyyy.MM.dd (dots become
// dashes), the four prices decimal numbers (read as floats) and the volume a decimal integer;
// blanks around fields and "\r" line ends are allowed; the time is not read. A line that
// fails any of this is skipped. The rows come in the reverse order of the lines (an export
// lists the oldest first), prices with 6 significant digits in the shortest form, the volume
// as an integer and "0" as the seventh field.
ImportedTable convertMetaTrader(const QByteArray &source);

// A stored quote file of this program (possibly with "N/A" fields, read as the program reads
// them). Every row that parses is written again with the stored writer, in the order of the
// source; lines that do not parse are dropped. A text whose first line does not start with
// "Date" is not a stored file and gives no rows.
ImportedTable convertHalcyra(const QByteArray &source);

// The rows of one ticker of an RBK file.
struct TickerTable
{
    QString ticker;
    ImportedTable table;
};

// An RBK ticker file: lines of "TICKER,PER,DATE,TIME,OPEN,HIGH,LOW,CLOSE,VOL" with DATE as
// yyyyMMdd; a line whose first field is "TICKER" is a header and skipped. PER and TIME are
// not read. Lines of other than nine fields, with a bad date, number or ticker (see
// isUsableSymbol()) are skipped. One table per ticker, in the order the tickers first occur;
// each lists its lines in reverse order, rows formed as convertMetaTrader() forms them, so
// that a merge keeps the file's last line of a day.
QVector<TickerTable> convertRbk(const QByteArray &source);

// Whether a name from a source may name a stored file: not empty, not "." or "..", and
// without "/", "\", ":" or control characters.
bool isUsableSymbol(const QString &symbol);

} // namespace OrdaneData
