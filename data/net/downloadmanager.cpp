#include "downloadmanager.h"

#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QNetworkRequest>
#include <QTimer>

namespace QMRequest {

DownloadManager::DownloadManager(QObject *parent)
    : QObject(parent)
    , mNetwork(new QNetworkAccessManager(this))
    , mTimer(new QTimer(this))
{
    mTimer->setSingleShot(true);
    connect(mTimer, &QTimer::timeout, this, [this] {
        if (!mReply)
            return;
        mTimedOut = true;
        mReply->abort();
    });
}

DownloadManager::~DownloadManager()
{
    dropReply();
}

void DownloadManager::dropReply()
{
    mTimer->stop();
    if (mReply) {
        QNetworkReply *reply = mReply;
        mReply = nullptr;
        reply->disconnect(this);
        reply->abort();
        reply->deleteLater();
    }
}

void DownloadManager::download(const QUrl &url)
{
    dropReply();
    mUrl = url;
    mError.clear();
    mStatus = 0;
    mAttempt = 0;
    mBusy = true;
    ++mGeneration;
    attempt();
}

void DownloadManager::abort()
{
    if (!mBusy)
        return;
    dropReply();
    fail(tr("cancelled"), false);
}

void DownloadManager::attempt()
{
    ++mAttempt;
    mData.clear();
    mTooLarge = false;
    mTimedOut = false;
    mStatus = 0;
    QNetworkRequest request(mUrl);
    request.setAttribute(QNetworkRequest::RedirectPolicyAttribute,
                         QNetworkRequest::NoLessSafeRedirectPolicy);
    request.setMaximumRedirectsAllowed(10);
    request.setHeader(QNetworkRequest::UserAgentHeader, QStringLiteral("Halcyra/2.0"));
    mReply = mNetwork->get(request);
    connect(mReply, &QNetworkReply::metaDataChanged, this, [this] {
        const QVariant length = mReply->header(QNetworkRequest::ContentLengthHeader);
        if (length.isValid() && length.toLongLong() > mMaxSize) {
            mTooLarge = true;
            mReply->abort();
        }
    });
    connect(mReply, &QNetworkReply::readyRead, this, &DownloadManager::readAvailable);
    connect(mReply, &QNetworkReply::downloadProgress, this, &DownloadManager::downloadProgress);
    connect(mReply, &QNetworkReply::finished, this, &DownloadManager::finishAttempt);
    mTimer->start(mTimeout);
}

void DownloadManager::readAvailable()
{
    if (!mReply || mTooLarge || !mReply->isOpen())
        return;
    // Read as it arrives, so the reply's own buffer stays small and the limit holds.
    if (mData.size() + mReply->bytesAvailable() > mMaxSize) {
        mTooLarge = true;
        mReply->abort();
        return;
    }
    mData += mReply->readAll();
}

void DownloadManager::finishAttempt()
{
    QNetworkReply *reply = mReply;
    if (!reply)
        return;
    mTimer->stop();
    readAvailable();
    mStatus = reply->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
    const QString reasonPhrase =
        reply->attribute(QNetworkRequest::HttpReasonPhraseAttribute).toString();
    const QNetworkReply::NetworkError code = reply->error();
    const QString networkError = reply->errorString();
    mReply = nullptr;
    reply->deleteLater();

    if (mTooLarge) {
        fail(tr("reply larger than %1 MiB").arg(mMaxSize / (1024 * 1024)), false);
    } else if (mTimedOut) {
        fail(tr("no answer within %1 s").arg(mTimeout / 1000.0), true);
    } else if (mStatus != 0 && (mStatus < 200 || mStatus > 299)) {
        const QString text = QStringLiteral("HTTP %1 %2").arg(mStatus).arg(reasonPhrase).trimmed();
        fail(text, mStatus >= 500);
    } else if (code != QNetworkReply::NoError) {
        fail(networkError, true);
    } else {
        mBusy = false;
        const QByteArray data = std::move(mData);
        mData.clear();
        emit done(mUrl, data);
    }
}

void DownloadManager::fail(const QString &reason, bool transient)
{
    mData.clear();
    if (transient && mAttempt < 2 && mRetryPause > 0) {
        QTimer::singleShot(mRetryPause, this, [this, generation = mGeneration] {
            if (mBusy && generation == mGeneration)
                attempt();
        });
        return;
    }
    mBusy = false;
    mError = reason;
    emit error();
}

} // namespace QMRequest
