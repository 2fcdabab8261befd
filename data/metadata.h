#pragma once

#include <QDate>
#include <QHash>
#include <QMap>
#include <QMutex>
#include <QObject>
#include <QString>
#include <QStringList>

class QSqlDatabase;
class QThread;

namespace OrdaneData {

// The store of descriptive data about each symbol (name, exchange, earnings, ratios, dates,
// currency): an SQLite database beside the quote files, read and written through Qt's SQL
// module. One table, "metadata", holds a row per symbol keyed by the symbol as its quote
// file is named; every other column is text as the quote service sends it ("N/A" where it
// has none). A table "version" holds the schema version, 0.
//
// Threads: a database connection belongs to the thread that opened it. The store therefore
// keeps one connection per thread that uses it, opened at that thread's first call and named
// after the file, the thread and the store, so the interface thread and the data manager's
// worker may both call any operation. A QThread's connection is closed as that thread
// finishes, in that thread; the rest close with the store. Destroy the store after the other
// threads that used it have finished.
//
// Failures are developer diagnostics on the debug log (qDebug), never shown to the user: a
// failed query gives an empty result or false.
class MetaData : public QObject
{
    Q_OBJECT

public:
    // The store in `path`; by default "_meta.tdb" in the storage folder of the home folder
    // as it is when the store is made.
    explicit MetaData(QObject *parent = nullptr);
    explicit MetaData(const QString &path, QObject *parent = nullptr);
    ~MetaData() override;

    // Opens the calling thread's connection, making the file's folder and the file when they
    // are missing. A new (missing or empty) file gets the "metadata" table, then the
    // "version" table with its one row 0. Returns false when the database cannot be opened
    // or a table cannot be made. Every other operation opens the same way when needed.
    bool open();

    // Every stored symbol, in the database's order.
    QStringList symbols();

    // The row of `symbol` upper-cased ("msft" finds "MSFT"): column name to text, for every
    // column. Empty when there is no such row.
    QMap<QString, QString> record(const QString &symbol);

    // The symbols whose exchange is one of `codes`; none for an empty list.
    QStringList symbolsOfExchanges(const QStringList &codes);

    // A new row: 22 texts in the order of columns(), symbol first. Returns false, changing
    // nothing, when there are not 22 or the row cannot be written (a symbol already stored).
    bool insert(const QStringList &values);

    // Rewrites a row: 22 texts, the columns after "symbol" in order of columns(), then the
    // symbol. Returns false when there are not 22 or the statement fails; a symbol that is
    // not stored changes nothing and is no failure.
    bool update(const QStringList &values);

    // Stores the quote service's reply about `symbol`: one CSV line of 20 values (text in
    // double quotes, numbers and N/A bare, possibly ending in "\r\n") for the fields of
    // fieldCodes(), name to currency. The exchange follows the symbol's suffix for markets
    // the service names poorly (".bc" Barcelona, ".ma" Madrid, ".ob" OTC BBM, ".pk" Pink
    // Sheets) and is "Imported" for an imported symbol; lastupdate becomes `today` as
    // "dd MMM yyyy" in English. Updates the row of `symbol` as given, or inserts it.
    // Returns false, changing nothing, for a line that does not hold 20 values, or when the
    // row cannot be written.
    bool refresh(const QString &symbol, const QString &replyLine, bool imported = false,
                 const QDate &today = QDate::currentDate());

    // The field codes requested from the quote service, for the columns name to currency.
    static QString fieldCodes();
    // The 22 column names of "metadata" in table order, symbol first, lastupdate last.
    static QStringList columns();

private:
    // The calling thread's open connection; an invalid one when it cannot be opened.
    QSqlDatabase connection();
    bool createTables(QSqlDatabase &db);
    bool contains(QSqlDatabase &db, const QString &symbol);
    bool write(const QString &statement, const QStringList &values);
    void closeConnectionOf(QThread *thread);

    QString mPath;
    QMutex mMutex; // guards mConnections and the making of a new file
    QHash<QThread *, QString> mConnections;
};

} // namespace OrdaneData
