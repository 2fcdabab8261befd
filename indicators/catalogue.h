#pragma once

#include "data/readerh.h"
#include "indicatorentry.h"

#include <QString>
#include <QStringList>

namespace OrdaneView {

class IndicatorLayer;
class ViewCanvas;

// The catalogue of built-in indicators, in catalogue order. Adding an indicator means
// adding its computation and one row here.
const std::vector<IndicatorEntry> &catalogue();

// The row of a built-in identifier, or nullptr.
const IndicatorEntry *findIndicator(const QString &id);

// The display title of an identifier; an identifier without a title is shown as itself.
QString indicatorTitle(const QString &id);

// The identifiers the indicator list offers, in list order.
QStringList listedIndicators();

// A new built-in indicator for `id` over `reader` in `view`, with its default parameters (not
// yet initialised or computed), or nullptr for an identifier that is not built in. Scripts
// come from createIndicator() (script/indicatorfactory.h).
IndicatorLayer *createBuiltinIndicator(const QString &id, const OrdaneData::ReaderH &reader,
                                       ViewCanvas *view);

} // namespace OrdaneView
