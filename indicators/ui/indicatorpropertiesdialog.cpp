#include "indicatorpropertiesdialog.h"

#include "indicators/indicatorlayer.h"

#include <QDialogButtonBox>
#include <QDoubleSpinBox>
#include <QFormLayout>
#include <QLabel>
#include <QVBoxLayout>

namespace OrdaneView {

IndicatorPropertiesDialog::IndicatorPropertiesDialog(IndicatorLayer *indicator, QWidget *parent)
    : QDialog(parent)
    , mIndicator(indicator)
{
    setObjectName(QStringLiteral("IndicatorPropertiesDialog"));
    setWindowTitle(tr("Properties of %1").arg(indicator->label()));
    auto *form = new QFormLayout;
    const auto &params = indicator->parameters();
    for (auto it = params.cbegin(); it != params.cend(); ++it) {
        auto *field = new QDoubleSpinBox(this);
        field->setObjectName(it.key());
        field->setRange(-1e9, 1e9);
        field->setDecimals(4);
        field->setValue(double(it.value()));
        form->addRow(it.key() + QLatin1Char(':'), field);
        mFields.insert(it.key(), field);
    }
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    connect(buttons, &QDialogButtonBox::accepted, this, &IndicatorPropertiesDialog::slotApply);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);

    auto *layout = new QVBoxLayout(this);
    auto *title =
        new QLabel(QStringLiteral("<b>%1</b>").arg(indicator->fullName().toHtmlEscaped()), this);
    layout->addWidget(title);
    if (params.isEmpty())
        layout->addWidget(new QLabel(tr("This indicator has no parameters."), this));
    layout->addLayout(form);
    layout->addWidget(buttons);
}

void IndicatorPropertiesDialog::slotApply()
{
    for (auto it = mFields.cbegin(); it != mFields.cend(); ++it)
        mIndicator->setParameter(it.key(), float(it.value()->value()));
    mIndicator->deinit();
    mIndicator->init();
    mIndicator->start();
}

} // namespace OrdaneView
