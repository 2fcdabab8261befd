#pragma once

#include <QString>

namespace OrdaneView {

class ComputedLayer;
class ViewCanvas;

// Where the views get their indicators. The indicator library installs one when the program
// or tool starts; until then the installed source knows no indicator at all, so the views
// and their tests can run without it.
class IndicatorSource
{
public:
    virtual ~IndicatorSource();

    // A new indicator `id` (a built-in identifier or a script's name) for `canvas`, with its
    // defaults and the canvas's series, neither initialised nor computed; nullptr when no
    // indicator has that identifier. The caller owns it.
    virtual ComputedLayer *createIndicator(const QString &id, ViewCanvas *canvas) const = 0;
    // The script file at `path` as an indicator, or as an expert (a script that judges the
    // series rather than drawing it); nullptr when the file does not exist.
    virtual ComputedLayer *createScript(const QString &path, bool expert,
                                        ViewCanvas *canvas) const = 0;

    // The installed source: never null.
    static const IndicatorSource &installed();
    // Makes `source` the installed one (not owned; it must outlive its use). nullptr puts
    // back the source that knows nothing.
    static void install(const IndicatorSource *source);
};

} // namespace OrdaneView
