#include "virtualresolutiondialog.h"

#include "core/virtualresolution.h"

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QGuiApplication>
#include <QLabel>
#include <QScreen>
#include <QSpinBox>
#include <QVBoxLayout>

namespace QMWidgets {

namespace {
QSize unscaledPrimaryScreen()
{
    const QScreen *screen = QGuiApplication::primaryScreen();
    if (!screen)
        return QSize();
    // The running program may already be scaled; the preview starts from the screen as it
    // is without any factor.
    const double running = runningScaleFactor();
    const QSize logical = screen->size();
    return QSize(qRound(logical.width() * running), qRound(logical.height() * running));
}
} // namespace

VirtualResolutionDialog::VirtualResolutionDialog(QWidget *parent)
    : QDialog(parent)
    , mPercent(new QSpinBox(this))
    , mPreview(new QLabel(this))
    , mScreen(unscaledPrimaryScreen())
{
    setObjectName(QStringLiteral("VirtualResolutionDialog"));
    setWindowTitle(tr("Virtual Resolution"));
    mPercent->setObjectName(QStringLiteral("VirtualResolutionDialogPercent"));
    mPreview->setObjectName(QStringLiteral("VirtualResolutionDialogPreview"));
    mPercent->setRange(qRound(kMinVirtualResolution * 100), qRound(kMaxVirtualResolution * 100));
    mPercent->setSingleStep(10);
    mPercent->setSuffix(QStringLiteral(" %"));
    mPercent->setValue(qRound(virtualResolutionFactor() * 100));

    auto *form = new QFormLayout;
    form->addRow(tr("&Scale:"), mPercent);
    form->addRow(mPreview);
    auto *note = new QLabel(tr("Takes effect at the next start."), this);
    note->setWordWrap(true);

    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    connect(buttons, &QDialogButtonBox::accepted, this, &VirtualResolutionDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &VirtualResolutionDialog::reject);

    auto *layout = new QVBoxLayout(this);
    layout->addLayout(form);
    layout->addWidget(note);
    if (scaleFactorSetByUser()) {
        auto *overridden = new QLabel(
            tr("The environment variable QT_SCALE_FACTOR is set and overrides this setting."),
            this);
        overridden->setWordWrap(true);
        layout->addWidget(overridden);
    }
    layout->addStretch(1);
    layout->addWidget(buttons);

    connect(mPercent, QOverload<int>::of(&QSpinBox::valueChanged), this,
            &VirtualResolutionDialog::updatePreview);
    updatePreview();
}

int VirtualResolutionDialog::percent() const
{
    return mPercent->value();
}

void VirtualResolutionDialog::setPercent(int percent)
{
    mPercent->setValue(percent);
}

void VirtualResolutionDialog::setScreenSize(const QSize &size)
{
    mScreen = size;
    updatePreview();
}

QString VirtualResolutionDialog::preview() const
{
    return mPreview->text();
}

void VirtualResolutionDialog::accept()
{
    setVirtualResolutionFactor(percent() / 100.0);
    QDialog::accept();
}

void VirtualResolutionDialog::updatePreview()
{
    if (!mScreen.isValid()) {
        mPreview->clear();
        return;
    }
    const QSize apparent = apparentScreenSize(mScreen, percent() / 100.0);
    mPreview->setText(tr("%1 × %2 appears as %3 × %4")
                          .arg(mScreen.width())
                          .arg(mScreen.height())
                          .arg(apparent.width())
                          .arg(apparent.height()));
}

} // namespace QMWidgets
