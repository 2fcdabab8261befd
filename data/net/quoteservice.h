#pragma once

#include <QByteArray>
#include <QCoreApplication>
#include <QDate>
#include <QString>
#include <QUrl>

namespace OrdaneData {

// Where quotes come from, as the settings keep it:
//   "QuoteService/Provider"   "table" (the default) or "stooq"
//   "QuoteService/TableHost"  the historical tables' host, a full URL (http://127.0.0.1:8700)
//   "QuoteService/QuoteHost"  the current quotes' and fields' host, the same form
//   "QuoteService/ApiKey"     the key the "stooq" provider passes along
//
// The "table" provider serves "/table.csv" in the stored format and "/d/quotes.csv" with
// field codes. The "stooq" provider is the widely used free daily-CSV service: its
// historical request is "<host>/q/d/l/?s=<symbol in lower case>&i=d&d1=yyyyMMdd&d2=yyyyMMdd
// &apikey=<key>", its reply Date,Open,High,Low,Close,Volume oldest first, which is turned
// into the stored format; it has no current quotes and no fields, so metadata stay as they
// are. Its symbols carry its own suffixes ("aapl.us", "ads.de").
struct QuoteService
{
    Q_DECLARE_TR_FUNCTIONS(OrdaneData::QuoteService)

public:
    enum Provider { Table, DailyCsv };

    Provider provider = Table;
    QString tableHost;
    QString quoteHost;
    QString apiKey;

    static QuoteService fromSettings();
    void store() const;

    static QString providerKey(Provider provider); // "table", "stooq"
    // What every download says when there is nothing to ask.
    static QString notConfigured();

    // Whether historical tables can be asked for: the table host is set.
    bool hasTables() const;
    // Whether current quotes and fields can be asked for: the provider has them and the
    // quote host is set.
    bool hasFields() const;

    // The historical table of `symbol` from `start` to `end`, both included.
    QUrl tableUrl(const QString &symbol, const QDate &start, const QDate &end) const;
    // The provider's reply as a stored table (header, newest first), checked as a table
    // must be before it is stored; false with *error saying what the reply was instead.
    bool readTable(const QByteArray &reply, QByteArray *table, QString *error) const;
    // One line of values for the field codes (the current quote "l1d1t1ohgv", the name "n",
    // the metadata codes).
    QUrl fieldsUrl(const QString &symbol, const QString &codes) const;
};

} // namespace OrdaneData
