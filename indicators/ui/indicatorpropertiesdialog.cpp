#include "indicatorpropertiesdialog.h"

#include "indicators/indicatorlayer.h"

#include <QDialogButtonBox>
#include <QDoubleSpinBox>
#include <QFormLayout>
#include <QLabel>
#include <QLocale>
#include <QVBoxLayout>

namespace OrdaneView {

namespace {
// Parameters are floats: four decimals hold what a user means to set. A value shows only
// the decimals it needs ("7", "2.5", "0.0125") rather than all four ("7.0000").
class ParameterSpinBox : public QDoubleSpinBox
{
public:
    explicit ParameterSpinBox(QWidget *parent)
        : QDoubleSpinBox(parent)
    {
        setRange(-1e9, 1e9);
        setDecimals(4);
    }

    QString textFromValue(double value) const override
    {
        QLocale shown = locale();
        shown.setNumberOptions(shown.numberOptions() | QLocale::OmitGroupSeparator);
        // value + 0.0 turns -0 into 0.
        QString text = shown.toString(value + 0.0, 'f', decimals());
        const QChar point = shown.decimalPoint();
        if (text.contains(point)) {
            while (text.endsWith(shown.zeroDigit()))
                text.chop(1);
            if (text.endsWith(point))
                text.chop(1);
        }
        return text;
    }
};
} // namespace

IndicatorPropertiesDialog::IndicatorPropertiesDialog(IndicatorLayer *indicator, QWidget *parent)
    : QDialog(parent)
    , mIndicator(indicator)
{
    setObjectName(QStringLiteral("IndicatorPropertiesDialog"));
    setWindowTitle(tr("Properties of %1").arg(indicator->label()));
    auto *form = new QFormLayout;
    const auto &params = indicator->parameters();
    for (auto it = params.cbegin(); it != params.cend(); ++it) {
        auto *field = new ParameterSpinBox(this);
        field->setObjectName(it.key());
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
