#include "dataupdater.h"

#include "data/quotefile.h"
#include "data/quotetable.h"
#include "data/reader.h"
#include "datamanager.h"
#include "downloadmanager.h"

#include <QFile>

namespace OrdaneData {

DataUpdater::DataUpdater(DataManager *manager, QObject *parent)
    : StorageSource(parent)
    , mManager(manager ? manager : new DataManager(this))
{}

DataUpdater::~DataUpdater() = default;

void DataUpdater::updateSymbol(Reader *reader, const QString &symbol, int count)
{
    Q_UNUSED(count) // a download always brings whatever is missing
    connectReader(reader);
    // A file written today (or imported data) is not asked for again.
    if (!needsUpdate(symbol)) {
        loadSymbol(reader, symbol);
        return;
    }
    if (!mManager->service().hasTables()) {
        emit updateFailed(symbol, QuoteService::notConfigured());
        loadSymbol(reader, symbol);
        return;
    }
    // A symbol new to the store comes whole, with its metadata.
    DataManagerThread *thread = mManager->start({symbol}, !QFile::exists(fileOf(symbol)));
    QPointer<Reader> target(reader);
    connect(thread, &DataManagerThread::updated, this,
            [this, target](const QString &done, const UpdateOutcome &outcome) {
                if (outcome.kind == UpdateOutcome::Failed)
                    emit updateFailed(done, outcome.reason);
                if (target)
                    loadSymbol(target, done);
                else
                    emit this->done(done);
            });
}

void DataUpdater::requestQuote(const QString &symbol)
{
    request(Request::Quote, symbol, QStringLiteral("l1d1t1ohgv"));
}

void DataUpdater::requestName(const QString &symbol)
{
    request(Request::Name, symbol, QStringLiteral("n"));
}

void DataUpdater::requestFields(const QString &symbol, const QString &codes)
{
    request(Request::Fields, symbol, codes);
}

void DataUpdater::request(Request kind, const QString &symbol, const QString &codes)
{
    const QuoteService service = mManager->service();
    if (!service.hasFields()) {
        emit failed(symbol, service.hasTables() ? tr("the quote service has no current quotes")
                                                : QuoteService::notConfigured());
        return;
    }
    // One manager per request, so that requests never cancel each other.
    auto *transfer = new QMRequest::DownloadManager(this);
    connect(transfer, &QMRequest::DownloadManager::error, this, [this, transfer, symbol] {
        emit failed(symbol, transfer->errorString());
        transfer->deleteLater();
    });
    connect(transfer, &QMRequest::DownloadManager::done, this,
            [this, transfer, kind, symbol, codes](const QUrl &, const QByteArray &data) {
                transfer->deleteLater();
                const QString line = QString::fromUtf8(data).trimmed();
                switch (kind) {
                case Request::Quote: {
                    const QuoteBar bar = parseCurrentQuote(data);
                    if (bar.isValid())
                        emit quote(symbol, bar);
                    else
                        emit failed(symbol, tr("not a current quote: %1").arg(line.left(80)));
                    break;
                }
                case Request::Name: {
                    QString text = line;
                    if (text.size() >= 2 && text.startsWith(QLatin1Char('"')) &&
                        text.endsWith(QLatin1Char('"')))
                        text = text.mid(1, text.size() - 2);
                    emit name(symbol, text);
                    break;
                }
                case Request::Fields:
                    emit fields(symbol, codes, line);
                    break;
                }
            });
    transfer->download(service.fieldsUrl(symbol, codes));
}

} // namespace OrdaneData
