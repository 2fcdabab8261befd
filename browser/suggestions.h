#pragma once

#include "data/net/quoteservice.h"

#include <QString>
#include <QVector>

namespace OrdaneData {
class MetaData;
}

namespace OrdaneBrowser {

// A symbol the user may have meant when a typed one has no quotes.
struct Candidate
{
    QString type;     // "Index", "Currency" or "Equity"
    QString exchange; // an exchange code, empty when unknown
    QString name;     // empty when unknown
    QString symbol;

    bool operator==(const Candidate &o) const { return symbol == o.symbol; }
};

// The candidates for typed text, best first, without repeats: the symbols of the metadata
// store whose symbol or name holds the text (ignoring case), then the text itself with the
// exchange suffixes of the service's provider ("ADS" → "ADS.DE", "ADS.F", ... for tables;
// "ads.us", "ads.de", ... for the daily-CSV provider). At most `limit`.
QVector<Candidate> suggestSymbols(const QString &typed, OrdaneData::MetaData *meta,
                                  OrdaneData::QuoteService::Provider provider, int limit = 40);

// The kind of instrument a symbol's form tells.
QString candidateType(const QString &symbol);

} // namespace OrdaneBrowser
