#pragma once

#include <QDateTime>
#include <QObject>
#include <QString>
#include <QTimer>
#include <QVector>

namespace QMWidgets {

// The reminder service: notes the user leaves for a later moment ("check MSFT after the
// earnings report"). They are kept in the settings store under "Reminders", looked at
// every interval, and each one that has come due is announced once with remind() and
// then dropped.
class Reminders : public QObject
{
    Q_OBJECT

public:
    struct Reminder
    {
        QDateTime due;
        QString text;
    };

    explicit Reminders(QObject *parent = nullptr);

    // Starts looking every `ms` milliseconds (0 stops).
    void setInterval(int ms);
    int interval() const;

    QVector<Reminder> list() const; // ordered by due time
    void add(const QDateTime &due, const QString &text);
    void remove(int index);

    // Announces and drops the reminders due at `now`; returns how many came due.
    int check(const QDateTime &now = QDateTime::currentDateTime());

signals:
    void remind(const QString &text, const QDateTime &due);
    void changed();

private:
    void store(const QVector<Reminder> &list);

    QTimer mTimer;
};

} // namespace QMWidgets
