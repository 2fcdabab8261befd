#include "downloader.h"

#include "downloadmanager.h"

#include <QEventLoop>

#include <limits>

namespace QMRequest {

Downloader::Downloader(QObject *parent)
    : QObject(parent)
    , mManager(new DownloadManager(this))
{
    connect(mManager, &DownloadManager::downloadProgress, this,
            [this](qint64 received, qint64 total) {
                emit progress(int(qMin<qint64>(received, std::numeric_limits<int>::max())));
                if (total > 0)
                    emit progressPercent(int(received * 100 / total));
            });
}

Downloader::~Downloader() = default;

bool Downloader::get(const QUrl &url, QByteArray *data, QString *error)
{
    QEventLoop loop;
    bool ok = false;
    const QMetaObject::Connection done = connect(mManager, &DownloadManager::done, &loop,
                                                 [&](const QUrl &, const QByteArray &reply) {
                                                     if (data)
                                                         *data = reply;
                                                     ok = true;
                                                     loop.quit();
                                                 });
    const QMetaObject::Connection failed =
        connect(mManager, &DownloadManager::error, &loop, &QEventLoop::quit);
    mManager->download(url);
    // Only this transfer's signals end the loop; nothing else of the thread's is held back.
    if (mManager->isBusy())
        loop.exec();
    disconnect(done);
    disconnect(failed);
    if (!ok && error)
        *error = mManager->errorString();
    return ok;
}

void Downloader::cancel()
{
    QMetaObject::invokeMethod(mManager, &DownloadManager::abort, Qt::QueuedConnection);
}

} // namespace QMRequest
