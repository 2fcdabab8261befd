#pragma once

#include "computation.h"

// Bill Williams' indicators: the Alligator and its Gator histogram, the awesome and the
// acceleration oscillators, the market facilitation index, fractals and bull and bear bars.
//
// Every function reads its parameters by name (defaults in brackets), returns the buffers
// named below with one value per bar, oldest first, and never fails: an empty or short
// series or a period below 1 gives zero-filled buffers.
namespace Indicators {

// "Jaws", "Teeth", "Lips": smma of the median price over "Jaws Period" (13), "Teeth Period" (8),
// "Lips Period" (5), each moved right by "Jaws Shift" (8), "Teeth Shift" (5), "Lips Shift" (3)
// bars; a line is n + shift values long, its last value at index n - 1 + shift.
Result computeAlligator(const QVector<QuoteBar> &bars, const Params &params);

// "JawsTeeth" = |Jaws - Teeth| (>= 0), "LipsTeeth" = -|Lips - Teeth| (<= 0) of the shifted
// Alligator lines (same parameters); each as long as the shorter of its two lines, 0 where either
// line has no value yet.
Result computeGator(const QVector<QuoteBar> &bars, const Params &params);

// "AO" = sma(5) - sma(34) of the median price; bars below their predecessor are red in
// barColours.
Result computeAO(const QVector<QuoteBar> &bars, const Params &params);

// "AC" = AO - sma(5, AO); bars below their predecessor are red in barColours.
Result computeAC(const QVector<QuoteBar> &bars, const Params &params);

// "MFaI" = (high - low) / volume in double precision; a zero volume gives an infinite value
// (NaN when high equals low).
Result computeMFaI(const QVector<QuoteBar> &bars, const Params &params);

// "Fractals": at the middle bar of a five-bar fractal, its high for an up fractal, else its
// low for a down fractal; 0 elsewhere, always 0 on the first and last two bars.
Result computeFractals(const QVector<QuoteBar> &bars, const Params &params);

// No buffers; barColours marks bull bars green and bear bars red. A bull bar makes a low below
// the lows of the "Bars Number" (3) bars before it and closes above its median price; a bear
// bar makes a high above their highs and closes below its median price.
Result computeWilliamsBars(const QVector<QuoteBar> &bars, const Params &params);

} // namespace Indicators
