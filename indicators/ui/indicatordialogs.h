#pragma once

#include "view/ui/indicatoreditor.h"

namespace OrdaneView {

// The indicator library's dialogs for the chart views: the properties dialog and the script
// debugger.
class IndicatorDialogs : public IndicatorEditor
{
public:
    bool editProperties(ComputedLayer *indicator, QWidget *parent) const override;
    bool attachDebugger(ComputedLayer *indicator) const override;
};

// Gives the chart views the indicator library: its indicators (IndicatorFactory) and its
// dialogs. Call once before the first chart is built; further calls change nothing.
void installIndicators();

} // namespace OrdaneView
