#pragma once

// The tests of the filter catalogue by family, and what they share. Internal to the filter
// engine: the catalogue's rows point at these functions.

#include "filtercatalogue.h"
#include "filterworkspace.h"
#include "indicators/compute/computation.h"

#include <initializer_list>
#include <optional>
#include <utility>

namespace OrdaneView {
class IndicatorLayer;
} // namespace OrdaneView

namespace OrdaneBrowser::FilterTests {

using Outcome = std::optional<FilterRow>;

// A control's value by key; a key the values lack gives the control's default.
double number(const FilterSpec &spec, const FilterValues &values, const QString &key);
QString text(const FilterSpec &spec, const FilterValues &values, const QString &key);
// The index of a Choice's item, -1 when the value is none of its items.
int choice(const FilterSpec &spec, const FilterValues &values, const QString &key);
QDate date(const FilterSpec &spec, const FilterValues &values, const QString &key);
std::pair<double, double> range(const FilterSpec &spec, const FilterValues &values,
                                const QString &key);
QStringList list(const FilterSpec &spec, const FilterValues &values, const QString &key);

// The comparison of an unlabelled "Higher"/"Lower" combo: strictly above or below the level.
bool beyond(double value, double level, const QString &rule);

// The row of a passing symbol: its numbers written by filterNumber().
FilterRow row(const FilterInput &input, std::initializer_list<double> numbers);

// Built-in indicator `id` over the input's series, in the run's workspace, or in `own` when
// the test was called by itself.
OrdaneView::IndicatorLayer *indicator(const FilterInput &input, std::optional<FilterWorkspace> &own,
                                      const QString &id, const Indicators::Params &params,
                                      int slot = 0);
// A buffer's value at `bar`; none for a missing buffer or bar, or a value that is not finite.
std::optional<double> valueAt(const OrdaneView::IndicatorLayer *indicator, const QString &buffer,
                              int bar);

// One indicator buffer's last value against "Level:" by "Rule" (RSI, DPO, HCVolatility);
// `needed` is the fewest bars for which the indicator has a value at the last bar.
Outcome levelTest(const FilterSpec &spec, const FilterValues &values, const FilterInput &input,
                  const QString &id, const Indicators::Params &params, const QString &buffer,
                  int needed);

// Price and date filters (filters_price.cpp).
Outcome fill(const FilterSpec &spec, const FilterValues &values, const FilterInput &input);
Outcome trend(const FilterSpec &spec, const FilterValues &values, const FilterInput &input);
Outcome timeMachine(const FilterSpec &spec, const FilterValues &values, const FilterInput &input);
Outcome price(const FilterSpec &spec, const FilterValues &values, const FilterInput &input);
Outcome upToDate(const FilterSpec &spec, const FilterValues &values, const FilterInput &input);
Outcome pe(const FilterSpec &spec, const FilterValues &values, const FilterInput &input);

// Volume filters (filters_volume.cpp).
Outcome volume(const FilterSpec &spec, const FilterValues &values, const FilterInput &input);
Outcome volumeBreakOut(const FilterSpec &spec, const FilterValues &values,
                       const FilterInput &input);
Outcome moneyFlow(const FilterSpec &spec, const FilterValues &values, const FilterInput &input);

// Level filters (filters_level.cpp).
Outcome rsi(const FilterSpec &spec, const FilterValues &values, const FilterInput &input);
Outcome dpo(const FilterSpec &spec, const FilterValues &values, const FilterInput &input);

// Crossing filters (filters_crossing.cpp).
Outcome stochastic(const FilterSpec &spec, const FilterValues &values, const FilterInput &input);
Outcome movingAverage(const FilterSpec &spec, const FilterValues &values, const FilterInput &input);
Outcome median(const FilterSpec &spec, const FilterValues &values, const FilterInput &input);
Outcome impuls(const FilterSpec &spec, const FilterValues &values, const FilterInput &input);

// Halcyra's own indicators (filters_house.cpp).
Outcome hcVolatility(const FilterSpec &spec, const FilterValues &values, const FilterInput &input);
Outcome consolidation(const FilterSpec &spec, const FilterValues &values, const FilterInput &input);

} // namespace OrdaneBrowser::FilterTests
