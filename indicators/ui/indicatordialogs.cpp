#include "indicatordialogs.h"

#include "indicatorpropertiesdialog.h"
#include "indicators/script/indicatorfactory.h"
#include "indicators/script/userindicator.h"
#include "scriptdebugger.h"

namespace OrdaneView {

bool IndicatorDialogs::editProperties(ComputedLayer *indicator, QWidget *parent) const
{
    auto *layer = qobject_cast<IndicatorLayer *>(indicator);
    if (!layer)
        return false;
    IndicatorPropertiesDialog dialog(layer, parent);
    return dialog.exec() == QDialog::Accepted;
}

bool IndicatorDialogs::attachDebugger(ComputedLayer *indicator) const
{
    auto *script = qobject_cast<UserIndicator *>(indicator);
    if (!script)
        return false;
    OrdaneView::attachDebugger(script);
    return true;
}

void installIndicators()
{
    static const IndicatorDialogs dialogs;
    IndicatorFactory::install();
    IndicatorEditor::install(&dialogs);
}

} // namespace OrdaneView
