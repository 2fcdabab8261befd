#include "updater.h"

#include "setting.h"

#include <QCoreApplication>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QNetworkRequest>
#include <QRegularExpression>
#include <QTimer>
#include <QVersionNumber>

namespace QMWidgets {

Updater::Updater(QObject *parent)
    : QObject(parent)
    , mNetwork(new QNetworkAccessManager(this))
{
    qRegisterMetaType<QMWidgets::Updater::Result>("QMWidgets::Updater::Result");
}

Updater::~Updater() = default;

void Updater::search()
{
    if (mReply)
        return;
    emit started();
    mUrl = Setting<QString>(settingsKey(), QString()).value().trimmed();
    const QUrl url = QUrl::fromUserInput(mUrl);
    if (mUrl.isEmpty() || !url.isValid()) {
        Result r;
        r.outcome = NoUrl;
        r.url = mUrl;
        r.current = QCoreApplication::applicationVersion();
        // Delivered from the event loop, like an answer, so callers see one order.
        QTimer::singleShot(0, this, [this, r] { emit finished(r); });
        return;
    }
    QNetworkRequest request(url);
    request.setTransferTimeout(mTimeout);
    request.setAttribute(QNetworkRequest::RedirectPolicyAttribute,
                         QNetworkRequest::NoLessSafeRedirectPolicy);
    mReply = mNetwork->get(request);
    connect(mReply, &QNetworkReply::finished, this, &Updater::onReplyFinished);
}

void Updater::onReplyFinished()
{
    QNetworkReply *reply = std::exchange(mReply, nullptr);
    reply->deleteLater();
    Result r;
    if (reply->error() != QNetworkReply::NoError) {
        r.outcome = NoAnswer;
        r.current = QCoreApplication::applicationVersion();
        r.detail = reply->errorString();
    } else {
        r = interpret(reply->read(4096), QCoreApplication::applicationVersion());
    }
    r.url = mUrl;
    emit finished(r);
}

Updater::Result Updater::interpret(const QByteArray &reply, const QString &current)
{
    Result r;
    r.current = current;
    const QString text = QString::fromUtf8(reply).trimmed();
    if (text.isEmpty()) {
        r.outcome = NoAnswer;
        return r;
    }
    // Checked by pattern: the toolkit declares fromString() pure although it writes its
    // suffix index, so an optimiser may not see that index change.
    static const QRegularExpression version(QStringLiteral("^[0-9]+(\\.[0-9]+)*$"));
    const QVersionNumber newest = QVersionNumber::fromString(text);
    if (!version.match(text).hasMatch() || newest.isNull()) {
        r.outcome = NotAVersion;
        r.newest = text.left(40);
        return r;
    }
    r.newest = text;
    r.outcome = QVersionNumber::compare(newest, QVersionNumber::fromString(current)) > 0
                    ? NewerAvailable
                    : UpToDate;
    return r;
}

QString Updater::describe(const Result &r)
{
    switch (r.outcome) {
    case NoUrl:
        return tr("No update address is configured, so no search was made. Set the address "
                  "of a version file under the setting \"UpdateUrl\".");
    case NoAnswer:
        return r.detail.isEmpty()
                   ? tr("The update server at %1 gave an empty answer.").arg(r.url)
                   : tr("The update server at %1 did not answer: %2").arg(r.url, r.detail);
    case NotAVersion:
        return tr("The update server at %1 answered \"%2\", which is not a version number.")
            .arg(r.url, r.newest);
    case UpToDate:
        return tr("You are using the newest version (%1).").arg(r.current);
    case NewerAvailable:
        return tr("Version %1 is available; you are using version %2.").arg(r.newest, r.current);
    }
    return QString();
}

} // namespace QMWidgets
