#pragma once

#include "indicatorbuffer.h"
#include "indicators/compute/computation.h"

#include <QColor>

#include <vector>

namespace OrdaneView {

// One row of the catalogue of built-in indicators: everything the factory, the title and
// list functions, the command-line tool and the layer need to know about an identifier.
struct IndicatorEntry
{
    struct Param
    {
        const char *name;
        float value;
    };
    struct Buffer
    {
        const char *name;
        Qt::GlobalColor colour;
        DrawStyle style = LINE;
    };

    const char *id;
    const char *title;         // nullptr: shown as the identifier
    std::vector<Param> params; // in catalogue order
    std::vector<Buffer> buffers;
    const char *labelFormat; // "RSI(%1,%2,%3)", filled with the parameters in catalogue
                             // order; nullptr: the identifier and its parameters
    int listOrder;           // place in the indicator list, -1 when not listed
    Indicators::Computation compute;

    bool listed() const { return listOrder >= 0; }
};

} // namespace OrdaneView
