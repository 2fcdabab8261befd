#pragma once

#include "data/readerh.h"
#include "view/indicatorsource.h"

#include <QString>

namespace OrdaneView {

class IndicatorLayer;
class ViewCanvas;

// The one factory of indicators: a built-in for a built-in identifier, otherwise the script
// of that name in the home folder's "UserIndicators" ("Trend.js", "Trend.bin", or "Trend"
// for either). The new layer has its defaults and `reader`, not yet initialised or
// computed. None for an identifier that names neither; identifiers holding a path
// separator never leave the folder.
IndicatorLayer *createIndicator(const QString &id, const OrdaneData::ReaderH &reader,
                                ViewCanvas *view);

// The same for expert scripts, from "UserExperts".
IndicatorLayer *createExpert(const QString &id, const OrdaneData::ReaderH &reader,
                             ViewCanvas *view);

// The script file an identifier names in `folder`, or an empty text.
QString scriptFileFor(const QString &id, const QString &folder);

// The factory above as the views' source of indicators.
class IndicatorFactory : public IndicatorSource
{
public:
    ComputedLayer *createIndicator(const QString &id, ViewCanvas *canvas) const override;
    ComputedLayer *createScript(const QString &path, bool expert,
                                ViewCanvas *canvas) const override;

    // Installs one for the whole process (see IndicatorSource::install).
    static void install();
};

} // namespace OrdaneView
