#include "reminders.h"

#include "setting.h"

#include <QSettings>
#include <QVariantMap>

#include <algorithm>

namespace QMWidgets {

namespace {
// The reminders, each a map with "due" (date and time) and "text".
const Setting<QVariantList> kReminders{QStringLiteral("Reminders"), {}};

// Builds before 2.0's release kept the reminders as a settings array under the same key.
QVariantList legacyReminders()
{
    QSettings settings;
    QVariantList list;
    const int n = settings.beginReadArray(kReminders.key());
    for (int i = 0; i < n; ++i) {
        settings.setArrayIndex(i);
        list.append(QVariantMap{{QStringLiteral("due"), settings.value(QStringLiteral("due"))},
                                {QStringLiteral("text"), settings.value(QStringLiteral("text"))}});
    }
    settings.endArray();
    return list;
}
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
    const QVariantList stored = kReminders.isStored() ? kReminders.value() : legacyReminders();
    QVector<Reminder> result;
    for (const QVariant &entry : stored) {
        const QVariantMap map = entry.toMap();
        Reminder r{map.value(QStringLiteral("due")).toDateTime(),
                   map.value(QStringLiteral("text")).toString()};
        if (r.due.isValid())
            result.append(r);
    }
    std::stable_sort(result.begin(), result.end(),
                     [](const Reminder &a, const Reminder &b) { return a.due < b.due; });
    return result;
}

void Reminders::store(const QVector<Reminder> &list)
{
    QVariantList stored;
    for (const Reminder &r : list)
        stored.append(
            QVariantMap{{QStringLiteral("due"), r.due}, {QStringLiteral("text"), r.text}});
    kReminders.reset(); // also drops a legacy array under the key
    kReminders.setValue(stored);
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
