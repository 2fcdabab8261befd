#pragma once

#include "computation.h"

// The averages and bands: the series routines applied to the close of every bar (the median
// price for "MedianPrice"). Every function reads its parameters by name (defaults in
// brackets), converts periods to int by truncation and returns the buffers named below, one
// value per bar, oldest first. It never fails: an empty or short series, or a period below 1,
// gives zero-filled buffers.
namespace Indicators {

// "SMA" = sma("Period" (32)) of the closes.
Result computeSMA(const QVector<QuoteBar> &bars, const Params &params);
// "EMA" = ema("Period" (32)) of the closes.
Result computeEMA(const QVector<QuoteBar> &bars, const Params &params);
// "SMMA" = smma("Period" (32)) of the closes.
Result computeSMMA(const QVector<QuoteBar> &bars, const Params &params);
// "WMA" = wma("Period" (32)) of the closes.
Result computeWMA(const QVector<QuoteBar> &bars, const Params &params);
// "Median" = median("Period" (32)) of the closes.
Result computeMedian(const QVector<QuoteBar> &bars, const Params &params);
// "StdDev" = stdDev("Period" (20)) of the closes.
Result computeStdDev(const QVector<QuoteBar> &bars, const Params &params);
// "MedianPrice" = (high + low) * 0.5 of every bar; no parameters.
Result computeMedianPrice(const QVector<QuoteBar> &bars, const Params &params);
// "EnvelopesUpper" / "EnvelopesLower" = m * (1 + d) / m * (1 - d) at every bar, leading zeros
// of m included, with m = sma("Period" (14)) of the closes and d = "Deviation" (8.5) / 100 in
// double. "Shift" (0) is kept with the other parameters but moves nothing.
Result computeEnvelopes(const QVector<QuoteBar> &bars, const Params &params);
// "BollingerBandsMiddle", "BollingerBandsUpper", "BollingerBandsLower" over the "Period" (20)
// closes before each bar: 0 for the first P bars, then the mean, and the mean plus and minus
// "Deviation" (2) times the standard deviation (divisor P) of those closes.
Result computeBollingerBands(const QVector<QuoteBar> &bars, const Params &params);

} // namespace Indicators
