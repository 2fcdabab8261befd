#pragma once

#include "data/readerh.h"
#include "indicators/compute/computation.h"

#include <QString>

#include <map>
#include <memory>
#include <utility>

namespace OrdaneData {
class Reader;
} // namespace OrdaneData

namespace OrdaneView {
class IndicatorLayer;
} // namespace OrdaneView

namespace OrdaneBrowser {

// What one worker of a filter run keeps from symbol to symbol: the series each symbol is
// loaded into and the built-in indicators computed over it, each made at its first use. The
// series and the indicators are QObjects of the thread that first asks for them; use a
// workspace in one thread only, and destroy it there.
class FilterWorkspace
{
public:
    FilterWorkspace();
    ~FilterWorkspace();
    FilterWorkspace(const FilterWorkspace &) = delete;
    FilterWorkspace &operator=(const FilterWorkspace &) = delete;

    // The series a run loads each symbol into.
    OrdaneData::Reader &series();

    // Built-in indicator `id` computed over `bars` with `params` set by name; parameters not
    // named keep their catalogue defaults. `slot` tells apart two indicators of one id (the two
    // averages of a crossing). A series other than series() is copied in first. Returns
    // nullptr for an id that is not built in; the indicator stays the workspace's and its
    // buffers hold until the next call for the same id and slot.
    OrdaneView::IndicatorLayer *compute(const QString &id, const Indicators::Params &params,
                                        const OrdaneData::Reader &bars, int slot = 0);

private:
    OrdaneData::ReaderH mSeries;
    OrdaneData::ReaderH mCopy;
    std::map<std::pair<QString, int>, std::unique_ptr<OrdaneView::IndicatorLayer>> mIndicators;
};

} // namespace OrdaneBrowser
