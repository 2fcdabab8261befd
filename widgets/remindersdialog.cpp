#include "remindersdialog.h"

#include "core/reminders.h"

#include <QDateTimeEdit>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QListWidget>
#include <QLocale>
#include <QPushButton>
#include <QVBoxLayout>

namespace QMWidgets {

RemindersDialog::RemindersDialog(Reminders *reminders, QWidget *parent)
    : QDialog(parent)
    , mReminders(reminders)
    , mList(new QListWidget(this))
    , mDue(new QDateTimeEdit(QDateTime::currentDateTime().addSecs(3600), this))
    , mText(new QLineEdit(this))
    , mAdd(new QPushButton(tr("&Add"), this))
    , mRemove(new QPushButton(tr("&Remove"), this))
{
    setObjectName(QStringLiteral("RemindersDialog"));
    setWindowTitle(tr("Reminders"));
    mDue->setCalendarPopup(true);
    mDue->setDisplayFormat(QStringLiteral("yyyy-MM-dd HH:mm"));
    mText->setPlaceholderText(tr("What should Halcyra remind you of?"));

    auto *form = new QFormLayout;
    form->addRow(tr("When:"), mDue);
    form->addRow(tr("Note:"), mText);

    auto *row = new QHBoxLayout;
    row->addStretch(1);
    row->addWidget(mAdd);
    row->addWidget(mRemove);

    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Close, this);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::close);

    auto *layout = new QVBoxLayout(this);
    layout->addWidget(mList, 1);
    layout->addLayout(form);
    layout->addLayout(row);
    layout->addWidget(buttons);
    resize(460, 360);

    connect(mAdd, &QPushButton::clicked, this, &RemindersDialog::addReminder);
    connect(mText, &QLineEdit::returnPressed, this, &RemindersDialog::addReminder);
    connect(mRemove, &QPushButton::clicked, this, &RemindersDialog::removeSelected);
    connect(mText, &QLineEdit::textChanged, this,
            [this](const QString &t) { mAdd->setEnabled(!t.trimmed().isEmpty()); });
    connect(mList, &QListWidget::currentRowChanged, this,
            [this](int current) { mRemove->setEnabled(current >= 0); });
    connect(mReminders, &Reminders::changed, this, &RemindersDialog::refill);
    mAdd->setEnabled(false);
    refill();
}

void RemindersDialog::refill()
{
    mList->clear();
    const auto all = mReminders->list();
    for (const auto &r : all)
        mList->addItem(
            QStringLiteral("%1   %2").arg(QLocale().toString(r.due, QLocale::ShortFormat), r.text));
    mRemove->setEnabled(mList->currentRow() >= 0);
}

void RemindersDialog::addReminder()
{
    const QString text = mText->text().trimmed();
    if (text.isEmpty())
        return;
    mReminders->add(mDue->dateTime(), text);
    mText->clear();
}

void RemindersDialog::removeSelected()
{
    mReminders->remove(mList->currentRow());
}

} // namespace QMWidgets
