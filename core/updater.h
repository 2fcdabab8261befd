#pragma once

#include <QObject>
#include <QString>

class QNetworkAccessManager;
class QNetworkReply;

namespace QMWidgets {

// Asks the address kept in the setting "UpdateUrl" for the newest version text (a plain
// reply such as "2.1") and compares it with the application's version. It never guesses:
// without an address, without an answer or with an answer that is no version number, the
// result says so.
class Updater : public QObject
{
    Q_OBJECT

public:
    enum Outcome { NoUrl, NoAnswer, NotAVersion, UpToDate, NewerAvailable };
    Q_ENUM(Outcome)

    struct Result
    {
        Outcome outcome = NoUrl;
        QString url;
        QString newest;  // the version text the server gave, when it gave one
        QString current; // the running version
        QString detail;  // the transfer's error text for NoAnswer
    };

    explicit Updater(QObject *parent = nullptr);
    ~Updater() override;

    static QString settingsKey() { return QStringLiteral("UpdateUrl"); }

    // Starts a search; finished() follows, also when there is nothing to ask.
    void search();
    bool isSearching() const { return mReply != nullptr; }

    // How long a search waits for an answer, in milliseconds.
    void setTimeout(int ms) { mTimeout = ms; }

    // Reads a reply body against the running version.
    static Result interpret(const QByteArray &reply, const QString &current);
    // The result in words, for the updater's page.
    static QString describe(const Result &result);

signals:
    void started();
    void finished(const QMWidgets::Updater::Result &result);

private:
    void onReplyFinished();

    QNetworkAccessManager *mNetwork;
    QNetworkReply *mReply = nullptr;
    QString mUrl;
    int mTimeout = 15000;
};

} // namespace QMWidgets

Q_DECLARE_METATYPE(QMWidgets::Updater::Result)
