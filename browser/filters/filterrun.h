#pragma once

#include "filtercatalogue.h"

#include <QObject>

#include <atomic>
#include <functional>

namespace OrdaneBrowser {

// One run of a filter over many symbols: each symbol's stored series is loaded (from the
// storage folder), cut at "As of:" so that nothing after that day is seen, shown in the
// filter's time frame, and tested. Symbols are tested in parallel (`threads`; 0 takes the
// machine's), but the rows come back in the order of the symbols given, identical whatever
// the number of threads. A symbol whose series cannot be read, or has too few bars for the
// test, fails silently and counts as examined.
class FilterRun
{
public:
    FilterRun(const FilterSpec &spec, const FilterValues &values, const QString &storageFolder,
              OrdaneData::MetaData *meta = nullptr, int threads = 0);

    // Tests the symbols in order and returns the rows of those that pass. `progress` is called
    // from the calling thread with the number examined and the total after every symbol or
    // small batch of symbols (one symbol with one thread), so a dialog can update and process
    // its events there; a stop() from it (or from any thread) ends the run before the next
    // batch, keeping the rows found so far. With several threads the symbols already being
    // tested when stop() comes are finished, and reported, first: the symbols examined are
    // always the first examined() of the list. A run once stopped stays stopped.
    QVector<FilterRow> run(const QStringList &symbols,
                           const std::function<void(int examined, int total)> &progress = {});
    void stop() { mStopped = true; }
    bool isStopped() const { return mStopped; }
    int examined() const { return mExamined; }

private:
    const FilterSpec &mSpec;
    FilterValues mValues;
    QString mFolder;
    OrdaneData::MetaData *mMeta;
    int mThreads;
    std::atomic_bool mStopped{false};
    int mExamined = 0;
};

} // namespace OrdaneBrowser
