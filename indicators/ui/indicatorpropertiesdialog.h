#pragma once

#include <QDialog>
#include <QMap>

class QDoubleSpinBox;

namespace OrdaneView {

class IndicatorLayer;

// Edits an indicator's parameters by name. On OK the changed values are set, the label
// rebuilt and the buffers recomputed.
class IndicatorPropertiesDialog : public QDialog
{
    Q_OBJECT

public:
    explicit IndicatorPropertiesDialog(IndicatorLayer *indicator, QWidget *parent = nullptr);

    // The value shown for a parameter; its spin box, for tests.
    QDoubleSpinBox *field(const QString &parameter) const { return mFields.value(parameter); }

public slots:
    void slotApply();

private:
    IndicatorLayer *mIndicator;
    QMap<QString, QDoubleSpinBox *> mFields;
};

} // namespace OrdaneView
