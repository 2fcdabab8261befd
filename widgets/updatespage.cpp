#include "updatespage.h"

#include "core/setting.h"
#include "core/updater.h"

#include <QCheckBox>
#include <QFormLayout>
#include <QLineEdit>
#include <QVBoxLayout>

namespace QMWidgets {

namespace {
const Setting<bool> checkUpdates{QStringLiteral("checkupdates"),
                                 UpdatesPage::checkAtStartDefault()};
const Setting<QString> updateUrlSetting{Updater::settingsKey(), QString()};
} // namespace

UpdatesPage::UpdatesPage(QWidget *parent)
    : QWidget(parent)
    , mCheck(new QCheckBox(tr("Check for updates at start"), this))
    , mUrl(new QLineEdit(this))
{
    setObjectName(QStringLiteral("UpdatesPage"));
    mCheck->setObjectName(QStringLiteral("UpdatesPageCheck"));
    mUrl->setObjectName(QStringLiteral("UpdatesPageUrl"));
    // No address comes with the program; an example address here would read as one.
    mUrl->setPlaceholderText(tr("No address set"));
    mUrl->setClearButtonEnabled(true);

    mCheck->setChecked(checkUpdates.value());
    mUrl->setText(updateUrlSetting.value());

    auto *form = new QFormLayout;
    form->addRow(mCheck);
    form->addRow(tr("Update &address:"), mUrl);
    auto *layout = new QVBoxLayout(this);
    layout->addLayout(form);
    layout->addStretch(1);
}

bool UpdatesPage::checkAtStart() const
{
    return mCheck->isChecked();
}

void UpdatesPage::setCheckAtStart(bool on)
{
    mCheck->setChecked(on);
}

QString UpdatesPage::updateUrl() const
{
    return mUrl->text().trimmed();
}

void UpdatesPage::setUpdateUrl(const QString &url)
{
    mUrl->setText(url);
}

void UpdatesPage::apply()
{
    checkUpdates.setValue(checkAtStart());
    const QString url = updateUrl();
    if (url.isEmpty())
        updateUrlSetting.reset();
    else
        updateUrlSetting.setValue(url);
}

} // namespace QMWidgets
