#pragma once

#include "quoteservice.h"

#include <QByteArray>
#include <QCoreApplication>
#include <QDate>
#include <QMetaType>
#include <QMutex>
#include <QObject>
#include <QPointer>
#include <QString>
#include <QStringList>
#include <QThread>

#include <atomic>
#include <optional>

namespace QMRequest {
class Downloader;
}

namespace OrdaneData {

class DataManagerThread;
class MetaData;

// What became of one symbol in an update run.
struct UpdateOutcome
{
    enum Kind { Updated, UpToDate, Skipped, Failed };

    Kind kind = UpToDate;
    int rows = 0;   // rows added or changed in the stored file (Updated)
    QString reason; // why it was skipped or failed

    // "SYMBOL: updated N rows", "SYMBOL: up to date", "SYMBOL: skipped (reason)",
    // "SYMBOL: failed (reason)".
    QString describe(const QString &symbol) const;
};

// What an update run did, for the word at its end.
struct UpdateSummary
{
    Q_DECLARE_TR_FUNCTIONS(OrdaneData::UpdateSummary)

public:
    int updated = 0;
    int upToDate = 0;
    int skipped = 0;
    int failed = 0;
    QStringList failures; // "SYMBOL: reason", in the order they came

    void add(const QString &symbol, const UpdateOutcome &outcome);
    int total() const { return updated + upToDate + skipped + failed; }
    // "Quotes: 3 updated, 1 up to date, 1 failed (MSFT: HTTP 404 Not Found)"; counts that
    // are 0 are left out, and so are failures past the third.
    QString describe() const;
};

// Brings the stored history of symbols up to date from the quote service.
//
// The per-symbol step, under the manager's mutex for the whole step (so two runs that
// overlap still take symbols one at a time):
//  1. note the symbol, clear the changed flag, read its stored file and metadata record;
//  2. a record whose exchange is "N/A" leaves the symbol alone, except currency pairs
//     ("=X"), which have no exchange;
//  3. so does a marker file SYMBOL.IMP in the storage folder (imported data);
//  4. a file whose newest bar is the last completed trading day (or later), and a symbol
//     ending in "noyahoo", need nothing;
//  5. otherwise the table from the newest stored day to today is asked for and checked;
//  6. its rows are merged into the stored file (the reply's rows win for dates in both),
//     which is written through a save file, and the changed flag is set;
//  7. done(symbol) follows, also for a symbol left alone or a transfer that failed; a
//     failed or garbled transfer leaves the stored file exactly as it was.
//
// The step blocks while it downloads: it runs on a DataManagerThread, or in the
// command-line tool. done() and updated() reach receivers in other threads queued.
class DataManager : public QObject
{
    Q_OBJECT

public:
    explicit DataManager(QObject *parent = nullptr);
    ~DataManager() override;

    // The service asked: by default the settings' as they are at each step, unless one is
    // set here.
    void setService(const QuoteService &service);
    QuoteService service() const;
    // The metadata store of the step's first two points, and the one a fetch refreshes;
    // none by default (every symbol then counts as having an exchange).
    void setMetaData(MetaData *meta) { mMetaData = meta; }
    MetaData *metaData() const { return mMetaData; }

    // The per-symbol step above, with `downloader` for the transfer (it must belong to the
    // calling thread).
    UpdateOutcome updateSymbol(const QString &symbol, QMRequest::Downloader &downloader,
                               const QDate &today = QDate::currentDate());
    // A symbol new to the store: its whole history, merged into whatever is stored, and
    // its metadata when the service has fields.
    UpdateOutcome fetchSymbol(const QString &symbol, QMRequest::Downloader &downloader,
                              const QDate &today = QDate::currentDate());

    // Runs updateSymbol() (fetchSymbol() when `whole`) over `symbols` on a new worker
    // thread, which deletes itself when it ends; returns it started.
    DataManagerThread *start(const QStringList &symbols, bool whole = false);

    // The symbol of the step under way or last done, and whether it rewrote the stored file.
    QString symbol() const;
    bool changed() const;

signals:
    // The step for `symbol` begins, and ends; both come from the thread running the step,
    // with the mutex held, so they alternate strictly whatever the number of runs.
    void symbolStarted(const QString &symbol);
    void symbolFinished(const QString &symbol);
    void done(const QString &symbol);
    void updated(const QString &symbol, const OrdaneData::UpdateOutcome &outcome);

private:
    UpdateOutcome step(const QString &symbol, QMRequest::Downloader &downloader, const QDate &today,
                       bool whole);
    UpdateOutcome download(const QString &symbol, const QDate &from, const QDate &today,
                           QMRequest::Downloader &downloader);
    void refreshMetaData(const QString &symbol, QMRequest::Downloader &downloader);

    mutable QMutex mMutex;
    std::optional<QuoteService> mService;
    QString mSymbol;
    bool mChanged = false;
    QByteArray mStored;
    MetaData *mMetaData = nullptr;
};

// One update run: updateSymbol() for each symbol in turn on its own thread. stop() ends the
// run at the next symbol (the transfer under way is cancelled). The thread deletes itself
// once run() has ended.
class DataManagerThread : public QThread
{
    Q_OBJECT

public:
    DataManagerThread(DataManager *manager, const QStringList &symbols, QObject *parent = nullptr);

    // Fetches whole histories (fetchSymbol()) instead of updating; set before start().
    void setWhole(bool whole) { mWhole = whole; }

    const QStringList &symbols() const { return mSymbols; }
    // From any thread.
    void stop();
    bool isStopped() const { return mStopped; }

    void run() override;

signals:
    void done(const QString &symbol);
    void updated(const QString &symbol, const OrdaneData::UpdateOutcome &outcome);
    // After each symbol: how many are finished of how many.
    void progress(int finished, int total);

private:
    DataManager *mManager;
    QStringList mSymbols;
    bool mWhole = false;
    std::atomic_bool mStopped{false};
    QMutex mLock; // guards mDownloader, which lives in the worker thread
    QMRequest::Downloader *mDownloader = nullptr;
};

} // namespace OrdaneData

Q_DECLARE_METATYPE(OrdaneData::UpdateOutcome)
