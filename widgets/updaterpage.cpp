#include "updaterpage.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace QMWidgets {

UpdaterPage::UpdaterPage(Updater *updater, QWidget *parent)
    : QDialog(parent)
    , mHeading(new QLabel(this))
    , mMessage(new QLabel(this))
{
    setObjectName(QStringLiteral("UpdaterPage"));
    setWindowTitle(tr("Updates"));
    mHeading->setObjectName(QStringLiteral("UpdaterPageHeading"));
    mMessage->setObjectName(QStringLiteral("UpdaterPageMessage"));
    mMessage->setWordWrap(true);
    mMessage->setTextInteractionFlags(Qt::TextSelectableByMouse);

    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Close, this);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::close);

    auto *layout = new QVBoxLayout(this);
    layout->addWidget(mHeading);
    layout->addWidget(mMessage, 1);
    layout->addWidget(buttons);
    setMinimumWidth(420);

    connect(updater, &Updater::started, this, &UpdaterPage::showSearching);
    connect(updater, &Updater::finished, this, &UpdaterPage::showResult);
    if (updater->isSearching())
        showSearching();
}

QString UpdaterPage::heading() const
{
    return mHeading->text();
}

QString UpdaterPage::message() const
{
    return mMessage->text();
}

void UpdaterPage::showSearching()
{
    mHeading->setText(QStringLiteral("<h3>%1</h3><h4>%2</h4>")
                          .arg(tr("Searching for the updates"), tr("Please, wait ...")));
    mMessage->clear();
}

void UpdaterPage::showResult(const Updater::Result &result)
{
    mHeading->setText(QStringLiteral("<h3>%1</h3>")
                          .arg(result.outcome == Updater::NewerAvailable
                                   ? tr("A new version is available")
                                   : tr("Update check")));
    mMessage->setText(Updater::describe(result));
}

} // namespace QMWidgets
