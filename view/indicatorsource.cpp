#include "indicatorsource.h"

namespace OrdaneView {

namespace {
class NoIndicators : public IndicatorSource
{
public:
    ComputedLayer *createIndicator(const QString &, ViewCanvas *) const override { return nullptr; }
    ComputedLayer *createScript(const QString &, bool, ViewCanvas *) const override
    {
        return nullptr;
    }
};

const NoIndicators kNoIndicators;
const IndicatorSource *gSource = &kNoIndicators;
} // namespace

IndicatorSource::~IndicatorSource() = default;

const IndicatorSource &IndicatorSource::installed()
{
    return *gSource;
}

void IndicatorSource::install(const IndicatorSource *source)
{
    gSource = source ? source : &kNoIndicators;
}

} // namespace OrdaneView
