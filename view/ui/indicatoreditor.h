#pragma once

class QWidget;

namespace OrdaneView {

class ComputedLayer;

// The dialogs the chart views open for an indicator. The indicator library installs them
// when the program starts; until then there are none, and the views offer nothing to edit.
class IndicatorEditor
{
public:
    virtual ~IndicatorEditor();

    // Lets the user change the indicator's parameters over `parent`; true when they were
    // changed and the indicator recomputed.
    virtual bool editProperties(ComputedLayer *indicator, QWidget *parent) const = 0;
    // Runs a script indicator under a debugger that halts at its first statement; false
    // for an indicator that is no script.
    virtual bool attachDebugger(ComputedLayer *indicator) const = 0;

    // The installed editor: never null.
    static const IndicatorEditor &installed();
    // Makes `editor` the installed one (not owned); nullptr puts back the one that edits
    // nothing.
    static void install(const IndicatorEditor *editor);
};

} // namespace OrdaneView
