#include "filterworkspace.h"

#include "data/reader.h"
#include "filtertests.h"
#include "indicators/catalogue.h"
#include "indicators/indicatorlayer.h"

#include <cmath>

namespace OrdaneBrowser {

FilterWorkspace::FilterWorkspace() = default;

FilterWorkspace::~FilterWorkspace() = default;

OrdaneData::Reader &FilterWorkspace::series()
{
    if (mSeries.isNull())
        mSeries = OrdaneData::ReaderH::create();
    return *mSeries;
}

OrdaneView::IndicatorLayer *FilterWorkspace::compute(const QString &id,
                                                     const Indicators::Params &params,
                                                     const OrdaneData::Reader &bars, int slot)
{
    OrdaneData::ReaderH source = mSeries;
    if (mSeries.isNull() || &bars != mSeries.reader()) {
        if (mCopy.isNull())
            mCopy = OrdaneData::ReaderH::create();
        mCopy->clear();
        mCopy->reserve(bars.count());
        for (const QuoteBar &bar : bars.bars())
            mCopy->appendBar(bar);
        source = mCopy;
    }
    std::unique_ptr<OrdaneView::IndicatorLayer> &indicator = mIndicators[{id, slot}];
    if (!indicator)
        indicator.reset(OrdaneView::createBuiltinIndicator(id, source, nullptr));
    if (!indicator)
        return nullptr;
    indicator->setReader(source);
    for (auto it = params.cbegin(); it != params.cend(); ++it)
        indicator->setParameter(it.key(), it.value());
    indicator->start();
    return indicator.get();
}

} // namespace OrdaneBrowser

namespace OrdaneBrowser::FilterTests {

OrdaneView::IndicatorLayer *indicator(const FilterInput &input, std::optional<FilterWorkspace> &own,
                                      const QString &id, const Indicators::Params &params, int slot)
{
    if (!input.series)
        return nullptr;
    FilterWorkspace *workspace = input.workspace;
    if (!workspace)
        workspace = own ? &*own : &own.emplace();
    return workspace->compute(id, params, *input.series, slot);
}

std::optional<double> valueAt(const OrdaneView::IndicatorLayer *indicator, const QString &buffer,
                              int bar)
{
    if (!indicator)
        return std::nullopt;
    const auto it = indicator->buffers().constFind(buffer);
    if (it == indicator->buffers().constEnd() || bar < 0 || bar >= it->data.size())
        return std::nullopt;
    const double v = it->data.at(bar);
    if (!std::isfinite(v))
        return std::nullopt;
    return v;
}

} // namespace OrdaneBrowser::FilterTests
