#pragma once

#include <QDate>
#include <QString>
#include <QStringList>
#include <QVector>

// Checking stored quote files without changing them: whether each is what the program
// writes, a header and then one readable row per day, strictly newest first, with no
// stretch of more than a week's trading days missing.

namespace OrdaneData {

struct StoreCheck
{
    QString symbol;
    int rows = 0;      // lines that read as bars (see parseLine())
    QDate first, last; // the oldest and the newest day among them; null without rows
    // Lines that are neither the header nor a bar, blank lines and lines holding a zero byte
    // (binary data) among them. A first line that is not the header counts as one bad line
    // whether or not it holds a bar, and so does a file that is missing, empty or unreadable.
    int badLines = 0;
    int repeatedDates = 0; // rows whose day an earlier row already had
    int outOfOrder = 0;    // rows of a later day than the row before them
    // Runs of more than five weekdays without a bar between two stored days (holidays are
    // not known; a week of them is not reported).
    int gaps = 0;

    bool ok() const { return badLines == 0 && repeatedDates == 0 && outOfOrder == 0 && gaps == 0; }
};

// Checks the stored file storageFolder/SYMBOL.csv of each symbol, in the order given; when
// none are given, every "*.csv" of the folder, sorted by name, except the store's own files,
// whose names start with "_".
QVector<StoreCheck> checkStore(const QString &storageFolder, const QStringList &symbols = {});

// The checks as CSV text, one line each after the header
// "symbol,rows,first,last,bad_lines,repeated_dates,out_of_order,gaps,status": days as
// yyyy-MM-dd (empty when null), status "ok" or "damaged"; every line ends with "\n". A
// symbol holding a comma or a double quote is quoted, its quotes doubled.
QString storeCheckCsv(const QVector<StoreCheck> &checks);

} // namespace OrdaneData
