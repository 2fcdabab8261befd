#include "settingsdialog.h"

#include "core/setting.h"

#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QListWidget>
#include <QPushButton>
#include <QStackedWidget>
#include <QVBoxLayout>

namespace QMWidgets {

namespace {
const Setting<int> lastPage{QStringLiteral("SettingsDialog/Page"), 0};
const Setting<QSize> lastSize{QStringLiteral("SettingsDialog/Size"), QSize(680, 460)};

// Pages written for this dialog name their slot apply(); the view settings and other
// pages of the program follow the slot naming of the rest of it.
const char *const kApplySlots[] = {"apply()", "slotApply()"};
} // namespace

SettingsDialog::SettingsDialog(QWidget *parent)
    : QDialog(parent)
    , mList(new QListWidget(this))
    , mStack(new QStackedWidget(this))
    , mButtons(new QDialogButtonBox(
          QDialogButtonBox::Ok | QDialogButtonBox::Cancel | QDialogButtonBox::Apply, this))
    , mRememberedPage(lastPage.value())
{
    setObjectName(QStringLiteral("SettingsDialog"));
    setWindowTitle(tr("Settings"));
    mList->setObjectName(QStringLiteral("SettingsDialogPages"));
    mStack->setObjectName(QStringLiteral("SettingsDialogStack"));
    mList->setIconSize(QSize(24, 24));
    mList->setMaximumWidth(200);
    mList->setUniformItemSizes(true);

    connect(mList, &QListWidget::currentRowChanged, mStack, &QStackedWidget::setCurrentIndex);
    connect(mButtons, &QDialogButtonBox::accepted, this, &SettingsDialog::accept);
    connect(mButtons, &QDialogButtonBox::rejected, this, &SettingsDialog::reject);
    connect(mButtons->button(QDialogButtonBox::Apply), &QPushButton::clicked, this,
            &SettingsDialog::apply);

    auto *pages = new QHBoxLayout;
    pages->addWidget(mList);
    pages->addWidget(mStack, 1);
    auto *layout = new QVBoxLayout(this);
    layout->addLayout(pages, 1);
    layout->addWidget(mButtons);

    const QSize size = lastSize.value();
    resize(size.isValid() ? size : lastSize.defaultValue());
}

SettingsDialog::~SettingsDialog() = default;

void SettingsDialog::addPage(QWidget *page, const QString &title, const QIcon &icon)
{
    if (!page)
        return;
    const int index = mStack->addWidget(page);
    mList->addItem(new QListWidgetItem(icon, title));
    if (index == 0 || index == mRememberedPage)
        mList->setCurrentRow(index);
}

int SettingsDialog::pageCount() const
{
    return mStack->count();
}

QWidget *SettingsDialog::page(int index) const
{
    return mStack->widget(index);
}

int SettingsDialog::currentIndex() const
{
    return mStack->currentIndex();
}

void SettingsDialog::setCurrentIndex(int index)
{
    if (index >= 0 && index < mList->count())
        mList->setCurrentRow(index);
}

void SettingsDialog::apply()
{
    for (int i = 0; i < mStack->count(); ++i) {
        QWidget *p = mStack->widget(i);
        for (const char *slot : kApplySlots) {
            if (p->metaObject()->indexOfMethod(slot) < 0)
                continue;
            // The signature without its "()" is the method's name.
            const QByteArray name(slot, int(qstrlen(slot)) - 2);
            QMetaObject::invokeMethod(p, name.constData(), Qt::DirectConnection);
            break;
        }
    }
}

void SettingsDialog::accept()
{
    apply();
    QDialog::accept();
}

void SettingsDialog::done(int result)
{
    if (mStack->count() > 0)
        lastPage.setValue(mStack->currentIndex());
    lastSize.setValue(size());
    QDialog::done(result);
}

} // namespace QMWidgets
