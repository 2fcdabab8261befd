#pragma once

#include "computation.h"

// Halcyra's own indicators: a volatility channel, draw-ups and draw-downs, the price change
// reached beyond the previous close, and consolidations.
//
// Every compute function reads its parameters by name (defaults in brackets), returns the
// buffers named below with one value per bar, oldest first, and never fails: an empty or short
// series or a period below 1 gives zero-filled buffers. Percentages are 0 where their base
// price is 0 or below.
namespace Indicators {

// `change` in percent of `base`, (change / base) * 100 in single precision; 0 when base <= 0.
float percentOf(float change, float base);

// "HCVolatilityHigh" / "HCVolatilityLow" = ema("EMAPeriod" 26) of the highs / lows,
// "HCVolatilityMid" = ema("MidEMAPeriod" 10) of the median price, "HCVolatilityDifference" =
// High - Low, the channel's width in price units.
Result computeHCVolatility(const QVector<QuoteBar> &bars, const Params &params);

// "HCDrevikPlus" = close - lowest close so far (>= 0), "HCDrevikMinus" = close - highest close
// so far (<= 0), in price units.
Result computeHCDrevik(const QVector<QuoteBar> &bars, const Params &params);

// "HCDrevikPRPlus", "HCDrevikPRMinus": the same in percent of that lowest or highest close.
Result computeHCDrevikPR(const QVector<QuoteBar> &bars, const Params &params);

// "HCPriceChangeHigh" = ema("EMAPeriod" 1) of how far, in percent of the previous close, the
// high reached above it (>= 0); "HCPriceChangeLow" the same for the low below it (<= 0). The
// first bar is measured from its own open.
Result computeHCPriceChange(const QVector<QuoteBar> &bars, const Params &params);

// "HCPriceChange" = HCPriceChangeHigh + HCPriceChangeLow: which side reached further.
Result computeHCPriceChangeO(const QVector<QuoteBar> &bars, const Params &params);

// "HCPriceChangeBullsHigh", "HCPriceChangeBullsLow": as HCPriceChange, with every bar that does
// not close above its open counted as 0.
Result computeHCPriceChangeBulls(const QVector<QuoteBar> &bars, const Params &params);

// Which prices must stay within a consolidation's range.
enum class ConsolidationPrices {
    Close,     // the close of each bar
    OpenClose, // its open and its close
};

// A consolidation at one bar. A run starts at a reference bar whose high and low are the
// range; each later bar whose prices lie within the range (bounds included) extends it, and
// the first bar that leaves it starts the next run. The run is a consolidation in force once
// at least `interval` bars after the reference bar have stayed within the range.
struct ConsolidationState
{
    bool inForce = false;
    int since = -1;   // index of the reference bar; -1 when not in force
    int duration = 0; // bars from `since` to the bar asked about, both included; 0 if not
    float high = 0.0f;
    float low = 0.0f;
};

// The consolidation at bar `index`, found in one pass over bars 0 .. index. An index outside
// the series or an interval below 1 gives a state that is not in force.
ConsolidationState consolidationAt(const QVector<QuoteBar> &bars, int index, int interval,
                                   ConsolidationPrices prices);

// "Consolidation" (judged on closes) and "ConsolidationA" (judged on opens and closes), with
// "Interval" (4) as above. "Typ" (0) selects the value while in force: 0 the duration in bars,
// 1 the range height in percent of its low; 0 wherever no consolidation is in force.
Result computeConsolidation(const QVector<QuoteBar> &bars, const Params &params);

} // namespace Indicators
