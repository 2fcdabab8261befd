#pragma once

#include <QByteArray>
#include <QObject>
#include <QString>
#include <QUrl>

namespace QMRequest {

class DownloadManager;

// Fetches one address and waits for it in a local event loop: for the data manager's worker
// thread and the command-line tool, where a transfer may block. The rules of the transfer
// are DownloadManager's. The downloader belongs to the thread it was made in; cancel() may
// be called from any thread.
class Downloader : public QObject
{
    Q_OBJECT

public:
    explicit Downloader(QObject *parent = nullptr);
    ~Downloader() override;

    DownloadManager *manager() const { return mManager; }

    // The body of the reply at `url`; false with *error saying why (see DownloadManager).
    bool get(const QUrl &url, QByteArray *data, QString *error = nullptr);

    // Ends the transfer under way (from any thread) with the error "cancelled".
    void cancel();

signals:
    // Bytes received so far, and the share of the announced size when there is one.
    void progress(int bytes);
    void progressPercent(int percent);

private:
    DownloadManager *mManager;
};

} // namespace QMRequest
