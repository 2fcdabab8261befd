#include "reminders.h"

#include <QSettings>

#include <algorithm>

namespace QMWidgets {

namespace {
const QString kGroup = QStringLiteral("Reminders");
} // namespace

Reminders::Reminders(QObject *parent)
    : QObject(parent)
{
    connect(&mTimer, &QTimer::timeout, this, [this] { check(); });
}

void Reminders::setInterval(int ms)
{
    mTimer.stop();
    if (ms > 0) {
        mTimer.setInterval(ms);
        mTimer.start();
    }
}

int Reminders::interval() const
{
    return mTimer.isActive() ? mTimer.interval() : 0;
}

QVector<Reminders::Reminder> Reminders::list() const
{
    QSettings settings;
    QVector<Reminder> result;
    const int n = settings.beginReadArray(kGroup);
    for (int i = 0; i < n; ++i) {
        settings.setArrayIndex(i);
        Reminder r{settings.value(QStringLiteral("due")).toDateTime(),
                   settings.value(QStringLiteral("text")).toString()};
        if (r.due.isValid())
            result.append(r);
    }
    settings.endArray();
    std::stable_sort(result.begin(), result.end(),
                     [](const Reminder &a, const Reminder &b) { return a.due < b.due; });
    return result;
}

void Reminders::store(const QVector<Reminder> &list)
{
    QSettings settings;
    settings.remove(kGroup);
    settings.beginWriteArray(kGroup, list.size());
    for (int i = 0; i < list.size(); ++i) {
        settings.setArrayIndex(i);
        settings.setValue(QStringLiteral("due"), list.at(i).due);
        settings.setValue(QStringLiteral("text"), list.at(i).text);
    }
    settings.endArray();
    emit changed();
}

void Reminders::add(const QDateTime &due, const QString &text)
{
    if (!due.isValid())
        return;
    QVector<Reminder> all = list();
    all.append({due, text});
    std::stable_sort(all.begin(), all.end(),
                     [](const Reminder &a, const Reminder &b) { return a.due < b.due; });
    store(all);
}

void Reminders::remove(int index)
{
    QVector<Reminder> all = list();
    if (index < 0 || index >= all.size())
        return;
    all.remove(index);
    store(all);
}

int Reminders::check(const QDateTime &now)
{
    QVector<Reminder> all = list();
    const auto firstLater =
        std::find_if(all.begin(), all.end(), [&](const Reminder &r) { return r.due > now; });
    const QVector<Reminder> due(all.begin(), firstLater);
    if (due.isEmpty())
        return 0;
    // Dropped before they are announced, so a reminder box that runs its own event loop
    // cannot see the same reminder come due again.
    store(QVector<Reminder>(firstLater, all.end()));
    for (const Reminder &r : due)
        emit remind(r.text, r.due);
    return due.size();
}

} // namespace QMWidgets
