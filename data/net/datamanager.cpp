#include "datamanager.h"

#include "data/metadata.h"
#include "data/quotefile.h"
#include "data/quotetable.h"
#include "downloader.h"

#include <QFile>
#include <QFileInfo>

namespace OrdaneData {

namespace {
const int kOutcomeType = qRegisterMetaType<UpdateOutcome>("OrdaneData::UpdateOutcome");

// A history asked for from the beginning: every service answers from its first day on.
const QDate kEarliest(1900, 1, 1);

// The newest bar's date of stored text (newest first), or a null date.
QDate newestDate(const QByteArray &stored)
{
    int from = 0;
    while (from < stored.size()) {
        int end = stored.indexOf('\n', from);
        if (end < 0)
            end = stored.size();
        const QuoteBar bar = parseLine(stored.constData() + from, stored.constData() + end);
        if (bar.isValid())
            return bar.date();
        from = end + 1;
    }
    return QDate();
}

UpdateOutcome skipped(const QString &reason)
{
    return {UpdateOutcome::Skipped, 0, reason};
}

UpdateOutcome failed(const QString &reason)
{
    return {UpdateOutcome::Failed, 0, reason};
}
} // namespace

QString UpdateOutcome::describe(const QString &symbol) const
{
    switch (kind) {
    case Updated:
        return QStringLiteral("%1: updated %2 rows").arg(symbol).arg(rows);
    case UpToDate:
        return QStringLiteral("%1: up to date").arg(symbol);
    case Skipped:
        return QStringLiteral("%1: skipped (%2)").arg(symbol, reason);
    case Failed:
        return QStringLiteral("%1: failed (%2)").arg(symbol, reason);
    }
    return QString();
}

void UpdateSummary::add(const QString &symbol, const UpdateOutcome &outcome)
{
    switch (outcome.kind) {
    case UpdateOutcome::Updated:
        ++updated;
        break;
    case UpdateOutcome::UpToDate:
        ++upToDate;
        break;
    case UpdateOutcome::Skipped:
        ++skipped;
        break;
    case UpdateOutcome::Failed:
        ++failed;
        failures << QStringLiteral("%1: %2").arg(symbol, outcome.reason);
        break;
    }
}

QString UpdateSummary::describe() const
{
    QStringList parts;
    if (updated)
        parts << tr("%1 updated").arg(updated);
    if (upToDate)
        parts << tr("%1 up to date").arg(upToDate);
    if (skipped)
        parts << tr("%1 skipped").arg(skipped);
    if (failed) {
        QStringList shown = failures.mid(0, 3);
        if (failures.size() > 3)
            shown << QStringLiteral("…");
        parts << tr("%1 failed (%2)").arg(failed).arg(shown.join(QStringLiteral("; ")));
    }
    if (parts.isEmpty())
        return tr("Quotes: nothing to do");
    return tr("Quotes: %1").arg(parts.join(QStringLiteral(", ")));
}

DataManager::DataManager(QObject *parent)
    : QObject(parent)
{
    Q_UNUSED(kOutcomeType)
}

DataManager::~DataManager() = default;

void DataManager::setService(const QuoteService &service)
{
    const QMutexLocker lock(&mMutex);
    mService = service;
}

QuoteService DataManager::service() const
{
    const QMutexLocker lock(&mMutex);
    return mService ? *mService : QuoteService::fromSettings();
}

QString DataManager::symbol() const
{
    const QMutexLocker lock(&mMutex);
    return mSymbol;
}

bool DataManager::changed() const
{
    const QMutexLocker lock(&mMutex);
    return mChanged;
}

UpdateOutcome DataManager::updateSymbol(const QString &symbol, QMRequest::Downloader &downloader,
                                        const QDate &today)
{
    UpdateOutcome outcome;
    {
        const QMutexLocker lock(&mMutex);
        emit symbolStarted(symbol);
        outcome = step(symbol, downloader, today, false);
        emit symbolFinished(symbol);
    }
    emit updated(symbol, outcome);
    emit done(symbol);
    return outcome;
}

UpdateOutcome DataManager::fetchSymbol(const QString &symbol, QMRequest::Downloader &downloader,
                                       const QDate &today)
{
    UpdateOutcome outcome;
    {
        const QMutexLocker lock(&mMutex);
        emit symbolStarted(symbol);
        outcome = step(symbol, downloader, today, true);
        if (outcome.kind != UpdateOutcome::Failed && outcome.kind != UpdateOutcome::Skipped)
            refreshMetaData(symbol, downloader);
        emit symbolFinished(symbol);
    }
    emit updated(symbol, outcome);
    emit done(symbol);
    return outcome;
}

UpdateOutcome DataManager::step(const QString &symbol, QMRequest::Downloader &downloader,
                                const QDate &today, bool whole)
{
    // 1.
    mSymbol = symbol;
    mChanged = false;
    mStored.clear();
    QFile file(fileOf(symbol));
    if (file.open(QIODevice::ReadOnly))
        mStored = file.readAll();
    file.close();
    const QMap<QString, QString> record =
        mMetaData ? mMetaData->record(symbol) : QMap<QString, QString>();

    // 2. to 4.
    if (!whole && record.value(QStringLiteral("exchange")).contains(QLatin1String("N/A")) &&
        !symbol.contains(QLatin1String("=X")))
        return skipped(tr("no exchange known"));
    // Imported symbols carry the ".IMP" suffix; older stores mark them with a file instead.
    if (symbol.endsWith(QLatin1String(".IMP")) ||
        QFileInfo::exists(storagePath() + QLatin1Char('/') + symbol.toUpper() +
                          QStringLiteral(".IMP")))
        return skipped(tr("imported data"));
    if (symbol.endsWith(QLatin1String("noyahoo")))
        return skipped(tr("not downloaded"));
    const QDate newest = newestDate(mStored);
    if (!whole && newest.isValid() && newest >= lastCompletedTradingDay(today))
        return {UpdateOutcome::UpToDate, 0, QString()};

    // 5. and 6.
    return download(symbol, whole || !newest.isValid() ? kEarliest : newest, today, downloader);
}

UpdateOutcome DataManager::download(const QString &symbol, const QDate &from, const QDate &today,
                                    QMRequest::Downloader &downloader)
{
    const QuoteService service = mService ? *mService : QuoteService::fromSettings();
    if (!service.hasTables())
        return failed(QuoteService::notConfigured());
    QByteArray reply, table;
    QString error;
    if (!downloader.get(service.tableUrl(symbol, from, today), &reply, &error) ||
        !service.readTable(reply, &table, &error))
        return failed(error);
    const TableMerge merged = mergeTable(mStored, table);
    if (merged.added + merged.replaced == 0)
        return {UpdateOutcome::UpToDate, 0, QString()};
    if (!writeText(fileOf(symbol), merged.text, &error))
        return failed(error);
    mChanged = true;
    mStored = merged.text;
    return {UpdateOutcome::Updated, merged.added + merged.replaced, QString()};
}

void DataManager::refreshMetaData(const QString &symbol, QMRequest::Downloader &downloader)
{
    const QuoteService service = mService ? *mService : QuoteService::fromSettings();
    if (!mMetaData || !service.hasFields())
        return;
    QByteArray line;
    if (downloader.get(service.fieldsUrl(symbol, MetaData::fieldCodes()), &line))
        mMetaData->refresh(symbol, QString::fromUtf8(line));
}

DataManagerThread *DataManager::start(const QStringList &symbols, bool whole)
{
    auto *thread = new DataManagerThread(this, symbols);
    thread->setWhole(whole);
    thread->start();
    return thread;
}

DataManagerThread::DataManagerThread(DataManager *manager, const QStringList &symbols,
                                     QObject *parent)
    : QThread(parent)
    , mManager(manager)
    , mSymbols(symbols)
{
    connect(this, &QThread::finished, this, &QObject::deleteLater);
}

void DataManagerThread::stop()
{
    mStopped = true;
    const QMutexLocker lock(&mLock);
    if (mDownloader)
        mDownloader->cancel();
}

void DataManagerThread::run()
{
    QMRequest::Downloader downloader;
    {
        const QMutexLocker lock(&mLock);
        mDownloader = &downloader;
    }
    int finished = 0;
    for (const QString &symbol : qAsConst(mSymbols)) {
        if (mStopped)
            break;
        const UpdateOutcome outcome = mWhole ? mManager->fetchSymbol(symbol, downloader)
                                             : mManager->updateSymbol(symbol, downloader);
        emit updated(symbol, outcome);
        emit done(symbol);
        emit progress(++finished, mSymbols.size());
    }
    const QMutexLocker lock(&mLock);
    mDownloader = nullptr;
}

} // namespace OrdaneData
