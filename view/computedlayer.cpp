#include "computedlayer.h"

namespace OrdaneView {

void ComputedLayer::setParameter(const QString &name, float value)
{
    mParameters[name] = value;
}

float ComputedLayer::parameter(const QString &name, float fallback) const
{
    return mParameters.value(name, fallback);
}

} // namespace OrdaneView
