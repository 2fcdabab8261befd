#pragma once

#include <QByteArray>
#include <QObject>
#include <QPointer>
#include <QString>
#include <QUrl>

class QNetworkAccessManager;
class QNetworkReply;
class QTimer;

namespace QMRequest {

// One HTTP GET at a time, with the rules every download of the program follows:
// - an attempt that has not finished after the time-out (30 s; a total, so a server that
//   trickles bytes cannot hold a batch up) is given up;
// - any HTTP status outside 200..299 is a failed transfer, whatever its body;
// - redirects are followed (never from https to http), up to ten;
// - a reply larger than the limit (64 MiB) is refused as soon as it says so or grows past
//   it, so a hostile or broken server cannot fill the memory;
// - a transient failure (no connection, a time-out, a broken transfer, a 5xx status) is
//   tried once more after a short pause; 4xx statuses and refused sizes are not.
//
// Each transfer ends with exactly one signal: done(url, data) or error(), after which
// errorString() says why. The manager belongs to the thread it was made in.
class DownloadManager : public QObject
{
    Q_OBJECT

public:
    static constexpr int kTimeout = 30000;
    static constexpr int kRetryPause = 1000;
    static constexpr qint64 kMaxReplySize = qint64(64) * 1024 * 1024;

    explicit DownloadManager(QObject *parent = nullptr);
    ~DownloadManager() override;

    // Starts fetching `url`. A transfer still running is dropped without a signal.
    void download(const QUrl &url);
    bool isBusy() const { return mBusy; }
    // Why the last transfer failed: a network error, "HTTP 404 Not Found", "no answer
    // within 30 s", "reply larger than 64 MiB", "cancelled".
    QString errorString() const { return mError; }
    // The HTTP status of the last reply, 0 when there was none.
    int httpStatus() const { return mStatus; }

    // Tuning, for tests and tools: the time-out of one attempt, the pause before the retry
    // (0 tries no second time) and the largest reply accepted.
    void setTimeout(int ms) { mTimeout = ms; }
    void setRetryPause(int ms) { mRetryPause = ms; }
    void setMaxReplySize(qint64 bytes) { mMaxSize = bytes; }

public slots:
    // Ends the running transfer with error() and "cancelled"; nothing when idle.
    void abort();

signals:
    void downloadProgress(qint64 received, qint64 total);
    void done(const QUrl &url, const QByteArray &data);
    void error();

private:
    void attempt();
    void readAvailable();
    void finishAttempt();
    void fail(const QString &reason, bool transient);
    void dropReply();

    QNetworkAccessManager *mNetwork;
    QTimer *mTimer;
    QPointer<QNetworkReply> mReply;
    QUrl mUrl;
    QByteArray mData;
    QString mError;
    int mStatus = 0;
    int mAttempt = 0;
    int mGeneration = 0; // which download() a pending retry belongs to
    bool mBusy = false;
    bool mTooLarge = false;
    bool mTimedOut = false;
    int mTimeout = kTimeout;
    int mRetryPause = kRetryPause;
    qint64 mMaxSize = kMaxReplySize;
};

} // namespace QMRequest
