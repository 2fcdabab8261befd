#pragma once

#include <QDialog>

class QDateTimeEdit;
class QLineEdit;
class QListWidget;
class QPushButton;

namespace QMWidgets {

class Reminders;

// Lists the pending reminders and lets the user add and remove them.
class RemindersDialog : public QDialog
{
    Q_OBJECT

public:
    explicit RemindersDialog(Reminders *reminders, QWidget *parent = nullptr);

private:
    void refill();
    void addReminder();
    void removeSelected();

    Reminders *mReminders;
    QListWidget *mList;
    QDateTimeEdit *mDue;
    QLineEdit *mText;
    QPushButton *mAdd;
    QPushButton *mRemove;
};

} // namespace QMWidgets
