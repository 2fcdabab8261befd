#pragma once

#include "quotebar.h"

#include <QByteArray>
#include <QString>
#include <QVector>

class QIODevice;

// The stored quote file: one CSV text file per symbol, header first, newest bar first.
//
//   Date,Open,High,Low,Close,Volume,Adj Close
//   2012-09-25,30.95,31.00,30.36,30.39,54266400,30.39
//
// Every bar line has exactly seven fields; "Adj Close" is read past and never kept.

namespace OrdaneData {

class Reader;

inline constexpr char kQuoteFileHeader[] = "Date,Open,High,Low,Close,Volume,Adj Close";

// Whether an open device holds a stored quote file: its first line starts with "Date", as the
// header does. This is the test made before a stored file is loaded (a file failing it is
// "not a quote file"); it reads at most the first line.
bool hasQuoteFileHeader(QIODevice *device);

// One line to one bar. The line may still carry its line end. Returns the invalid bar
// when the line has not exactly seven fields, a price or the volume is neither a number
// nor contains "N/A", or the date is not a valid "yyyy-MM-dd". When a field was "N/A"
// and the close is a number, open, high and low are set to the close.
// Numbers may be surrounded by blanks; "nan" and "inf" are not numbers here.
QuoteBar parseLine(const QString &line);
QuoteBar parseLine(const char *begin, const char *end);

// How a buffer of lines ends: a file is read to its end and drops blank lines like any
// bad line; text received from the quote service ends at its first empty line.
enum class LineScan { WholeFile, UpToEmptyLine };

// Scans a buffer of stored lines and returns the valid bars in buffer order (newest
// first). Lines containing "Date" are skipped as headers.
QVector<QuoteBar> scanBars(const char *begin, const char *end, LineScan mode);

// One bar to one line, without line end: prices with 6 significant digits in the
// shortest form, the volume as an integer and "0.00" as the seventh field.
QString formatLine(const QuoteBar &bar);

// The whole file text of a series: the header, then "\n" and one line per bar from the
// newest to the oldest. No line end after the last line. seriesToBytes() is the same text
// as its Latin-1 bytes, ready for writeText() without a conversion.
QString seriesToText(const Reader &reader);
QString seriesToText(const QVector<QuoteBar> &barsOldestFirst);
QByteArray seriesToBytes(const QVector<QuoteBar> &barsOldestFirst);

// Writes text through a save file: either the whole new text lands or the old file stays
// as it was. A QString is written as Latin-1 (characters without a Latin-1 form become
// "?"), bytes as they are. Returns false when the file cannot be written; *error
// (optional) then says why.
bool writeText(const QString &path, const QString &text, QString *error = nullptr);
bool writeText(const QString &path, const QByteArray &text, QString *error = nullptr);

// The storage folder of the current home folder, without trailing slash, and the file of
// a symbol in it: storagePath() + "/" + symbol + ".csv".
QString storagePath();
QString fileOf(const QString &symbol);

// Rewrites a line of a foreign end-of-day CSV (date,open,high,low,close,volume,...) into
// the stored form followed by "\n": dots in the date become dashes, the numbers are
// printed again and the seventh field is "0". Yields an empty string when a price or
// the volume is not a number.
QString normalizeImportedLine(const QString &line);

} // namespace OrdaneData
