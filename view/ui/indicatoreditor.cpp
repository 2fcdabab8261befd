#include "indicatoreditor.h"

namespace OrdaneView {

namespace {
class NoEditor : public IndicatorEditor
{
public:
    bool editProperties(ComputedLayer *, QWidget *) const override { return false; }
    bool attachDebugger(ComputedLayer *) const override { return false; }
};

const NoEditor kNoEditor;
const IndicatorEditor *gEditor = &kNoEditor;
} // namespace

IndicatorEditor::~IndicatorEditor() = default;

const IndicatorEditor &IndicatorEditor::installed()
{
    return *gEditor;
}

void IndicatorEditor::install(const IndicatorEditor *editor)
{
    gEditor = editor ? editor : &kNoEditor;
}

} // namespace OrdaneView
