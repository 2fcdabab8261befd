#include "filterrun.h"

#include "data/reader.h"
#include "filterworkspace.h"

#include <QThread>

#include <algorithm>
#include <condition_variable>
#include <exception>
#include <functional>
#include <mutex>
#include <thread>
#include <vector>

namespace OrdaneBrowser {

namespace {

// Symbols per thread between two reports of progress in a parallel run: few enough that
// progress and stop() come promptly, enough that reporting costs the calling thread little.
constexpr int kBatchPerThread = 4;

// What every symbol of a run shares.
struct Setup
{
    const FilterSpec *spec;
    const FilterValues *values;
    QString folder;
    OrdaneData::MetaData *meta;
    QDate cut; // invalid: no cut
    QDate asOf;
    int frame;
};

// Drops every bar after `cut`, wherever it stands.
void cutAfter(OrdaneData::Reader &series, const QDate &cut)
{
    if (!cut.isValid())
        return;
    const QVector<QuoteBar> &bars = series.bars();
    int kept = 0;
    for (int i = 0; i < bars.size(); ++i) {
        if (bars[i].date() <= cut) {
            if (kept != i)
                series.replaceBar(kept, bars[i]);
            ++kept;
        }
    }
    if (kept < series.count())
        series.removeBars(kept, series.count() - kept);
}

std::optional<FilterRow> testSymbol(const Setup &setup, const QString &symbol,
                                    FilterWorkspace &workspace)
{
    FilterInput input;
    input.symbol = symbol;
    input.file = setup.folder + QLatin1Char('/') + symbol + QLatin1String(".csv");
    input.meta = setup.meta;
    input.asOf = setup.asOf;
    input.workspace = &workspace;
    try {
        if (setup.spec->readsSeries) {
            OrdaneData::Reader &series = workspace.series();
            series.clear(); // a file without bars would leave the last symbol's
            if (!series.loadFile(input.file))
                return std::nullopt;
            // Aggregated only after the cut, so that a period in progress on the "As of:" day
            // is as partial as it was that day.
            cutAfter(series, setup.cut);
            if (series.isEmpty())
                return std::nullopt;
            series.setTimeFrame(setup.frame);
            input.series = &series;
        }
        return setup.spec->test(*setup.spec, *setup.values, input);
    } catch (const std::exception &) {
        // Out of memory for one absurd file, say: that symbol fails, the run goes on.
        return std::nullopt;
    }
}

} // namespace

FilterRun::FilterRun(const FilterSpec &spec, const FilterValues &values,
                     const QString &storageFolder, OrdaneData::MetaData *meta, int threads)
    : mSpec(spec)
    , mValues(defaultValues(spec))
    , mFolder(storageFolder)
    , mMeta(meta)
    , mThreads(threads)
{
    for (auto it = values.cbegin(); it != values.cend(); ++it)
        mValues.insert(it.key(), it.value());
}

QVector<FilterRow> FilterRun::run(const QStringList &symbols,
                                  const std::function<void(int examined, int total)> &progress)
{
    const QDate cut = mValues.value(QStringLiteral("As of")).toDate();
    const Setup setup{&mSpec,
                      &mValues,
                      mFolder,
                      mMeta,
                      cut,
                      cut.isValid() ? cut : QDate::currentDate(),
                      filterTimeFrame(mValues)};
    const int total = symbols.size();
    const int threads =
        std::clamp(mThreads > 0 ? mThreads : QThread::idealThreadCount(), 1, std::max(total, 1));
    const int step = threads == 1 ? 1 : threads * kBatchPerThread;

    // With one thread the calling thread tests the symbols itself. With more, that many helper
    // threads claim the next symbol in order and leave its outcome in the symbol's slot, while
    // the calling thread gathers the slots in symbol order as they fill and reports: the rows
    // never depend on which thread was quicker, and the symbols examined are always the first
    // ones. No thread waits for a whole batch, so on a busy machine one slow thread holds up
    // only its own symbol; but none claims more than two reports ahead of the last report, so
    // that a stop() from the progress callback takes effect promptly.
    const int window = 2 * step;
    std::vector<std::optional<FilterRow>> results(static_cast<size_t>(total));
    std::vector<char> done(static_cast<size_t>(total), 0);
    std::mutex mutex;                 // guards the slots, `next`, `limit` and `halt`
    std::condition_variable finished; // a slot filled
    std::condition_variable room;     // claiming may go on, or has ended
    int next = 0;
    int limit = window;
    bool halt = false;
    // -1 when the run is over for the claiming thread; a helper waits while at the limit.
    const auto claim = [&](bool wait) {
        std::unique_lock<std::mutex> lock(mutex);
        if (wait)
            room.wait(lock, [&] { return halt || next >= total || next < limit; });
        if (halt || next >= total || next >= limit)
            return -1;
        return next++;
    };
    const auto stopClaims = [&] {
        {
            const std::lock_guard<std::mutex> lock(mutex);
            halt = true;
        }
        room.notify_all();
    };
    const auto test = [&](int i, FilterWorkspace &workspace) {
        std::optional<FilterRow> row = testSymbol(setup, symbols.at(i), workspace);
        {
            const std::lock_guard<std::mutex> lock(mutex);
            results[size_t(i)] = std::move(row);
            done[size_t(i)] = 1;
        }
        finished.notify_one();
    };

    std::vector<std::thread> helpers;
    // Joined however the run ends, a throwing progress callback included.
    struct Joiner
    {
        std::vector<std::thread> &threads;
        std::function<void()> stop;
        ~Joiner()
        {
            stop();
            for (std::thread &t : threads)
                t.join();
        }
    } joiner{helpers, stopClaims};
    for (int t = 0; threads > 1 && t < threads; ++t) {
        helpers.emplace_back([&] {
            // A workspace of the helper's own, made and destroyed in its thread.
            FilterWorkspace workspace;
            for (int i = claim(true); i >= 0; i = claim(true))
                test(i, workspace);
        });
    }

    QVector<FilterRow> rows;
    int gathered = 0;
    const auto gather = [&] {
        const std::lock_guard<std::mutex> lock(mutex);
        for (; gathered < total && done[size_t(gathered)]; ++gathered)
            if (results[size_t(gathered)])
                rows << std::move(*results[size_t(gathered)]);
    };
    mExamined = 0;
    const auto report = [&] {
        mExamined = gathered;
        {
            const std::lock_guard<std::mutex> lock(mutex);
            limit = gathered + window;
        }
        room.notify_all();
        if (progress)
            progress(mExamined, total);
    };
    FilterWorkspace workspace; // the calling thread's, when it tests
    for (;;) {
        if (mStopped)
            stopClaims();
        if (const int i = helpers.empty() ? claim(false) : -1; i >= 0) {
            test(i, workspace);
        } else {
            // The next slot in order, the end of the claiming, or the claiming at its limit,
            // which the report below moves on.
            std::unique_lock<std::mutex> lock(mutex);
            const auto settled = [&] {
                return gathered >= next && (halt || next >= total || next >= limit);
            };
            finished.wait(lock,
                          [&] { return (gathered < next && done[size_t(gathered)]) || settled(); });
            if (gathered >= next && (halt || next >= total))
                break;
        }
        gather();
        if (gathered - mExamined >= step)
            report();
    }
    stopClaims();
    for (std::thread &t : helpers)
        t.join();
    helpers.clear();
    gather();
    if (gathered != mExamined)
        report();
    return rows;
}

} // namespace OrdaneBrowser
