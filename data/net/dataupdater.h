#pragma once

#include "data/quotebar.h"
#include "data/quotesource.h"
#include "quoteservice.h"

#include <QMetaType>
#include <QPointer>

namespace QMRequest {
class DownloadManager;
}

namespace OrdaneData {

class DataManager;

// The quote source that downloads: a reader's symbol is brought up to date from the quote
// service before it is loaded, and the service's current quote, name and other fields of a
// symbol can be asked for.
//
// The three operations of a source, in order: loadStored() fills a reader from the stored
// file (only when its first line starts with "Date"), loadSymbol() does so and ends with
// done(symbol), updateSymbol() first runs the data manager's step for the symbol on a worker
// thread (unless needsUpdate() says the file is from today or imported), then loads it and ends
// with done(symbol) — also when the transfer failed, whose reason comes first with updateFailed().
// Without a quote service every download fails at once with QuoteService::notConfigured().
class DataUpdater : public StorageSource
{
    Q_OBJECT

public:
    // Downloads through `manager` (not owned), or through one of its own.
    explicit DataUpdater(DataManager *manager = nullptr, QObject *parent = nullptr);
    ~DataUpdater() override;

    DataManager *manager() const { return mManager; }

    void updateSymbol(Reader *reader, const QString &symbol, int count) override;

    // The requests of the quote host; each ends with its signal, or with failed().
    // The current quote ("l1d1t1ohgv": price, date, time, open, high, low, volume).
    void requestQuote(const QString &symbol);
    // The name ("n").
    void requestName(const QString &symbol);
    // Any field codes, answered as one line of values.
    void requestFields(const QString &symbol, const QString &codes);

signals:
    void quote(const QString &symbol, const QuoteBar &bar);
    void name(const QString &symbol, const QString &name);
    void fields(const QString &symbol, const QString &codes, const QString &line);
    // A request of the quote host failed.
    void failed(const QString &symbol, const QString &reason);
    // Bringing a symbol up to date failed; the stored series was loaded all the same.
    void updateFailed(const QString &symbol, const QString &reason);

private:
    enum class Request { Quote, Name, Fields };
    void request(Request kind, const QString &symbol, const QString &codes);

    DataManager *mManager;
};

} // namespace OrdaneData
