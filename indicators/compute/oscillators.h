#pragma once

#include "computation.h"

#include <algorithm>
#include <initializer_list>

// The oscillators and volatility measures: one computation per identifier.
//
// Each reads its parameters by name (the catalogue default when a name is missing, periods
// truncated to int) and returns every buffer of its identifier with one float per bar,
// oldest first. A period below 1, or one the series is not longer than, gives zeros where it
// is used: an average taken with the series routines is all zeros under their guard (MACD
// over a series not longer than SlowEMA is the fast average; Stochastic over one not longer
// than DPeriod keeps K and has D all zeros), and every buffer built on such a window of the
// indicator's own holds zeros. Bars before an indicator's first full window are 0.
namespace Indicators {

// "MACD": "MACD" = ema(FastEMA) - ema(SlowEMA) of the close, "SMA" = ema(Signal) of "MACD".
Result computeMACD(const QVector<QuoteBar> &bars, const Params &params);
// "OsMA": "OsMA" = the MACD line less its signal line (FastEMA, SlowEMA, Signal).
Result computeOsMA(const QVector<QuoteBar> &bars, const Params &params);
// "Impuls": MACD histogram, ema(EMA_Period) slope "ImpulsD", a colour per bar while both the
// trend average and the MACD line have values.
Result computeImpuls(const QVector<QuoteBar> &bars, const Params &params);
// "RSI": "RSI" from bar Period on, in [0, 100]; 0 while the average loss is 0.
Result computeRSI(const QVector<QuoteBar> &bars, const Params &params);
// "Momentum": close / close Period bars back * 100, from bar Period on (inf on a zero close).
Result computeMomentum(const QVector<QuoteBar> &bars, const Params &params);
// "ROC": close change over Period bars in percent; the raw change where the base is 0.
Result computeROC(const QVector<QuoteBar> &bars, const Params &params);
// "VROC": volume change over Period bars in percent; the raw change where the base is 0.
Result computeVROC(const QVector<QuoteBar> &bars, const Params &params);
// "Bears": low - ema(Period) of the close.
Result computeBears(const QVector<QuoteBar> &bars, const Params &params);
// "Bulls": high - ema(Period) of the close.
Result computeBulls(const QVector<QuoteBar> &bars, const Params &params);
// "Volume": the volume of each bar.
Result computeVolume(const QVector<QuoteBar> &bars, const Params &params);
// "OBV": running volume, added on a rising close and taken off on a falling one.
Result computeOBV(const QVector<QuoteBar> &bars, const Params &params);
// "AD": running money-flow multiplier times volume; a bar with high = low adds nothing.
Result computeAD(const QVector<QuoteBar> &bars, const Params &params);
// "CHO": ema(Period1) - ema(Period2) of the "AD" line.
Result computeCHO(const QVector<QuoteBar> &bars, const Params &params);
// "CHV": percent change of ema(Period) of high - low over Period bars; inf/NaN on a zero base.
Result computeCHV(const QVector<QuoteBar> &bars, const Params &params);
// "MFI": money flow index from bar Period on; 100 while the negative flow is 0.
Result computeMFI(const QVector<QuoteBar> &bars, const Params &params);
// "FRC": ema(Period) of close change times volume, from bar 1 on.
Result computeFRC(const QVector<QuoteBar> &bars, const Params &params);
// "DeMarker": from bar Period - 1 on, in [0, 1]; NaN where both averages are 0.
Result computeDeMarker(const QVector<QuoteBar> &bars, const Params &params);
// "ATR": sma(Period) of the true range.
Result computeATR(const QVector<QuoteBar> &bars, const Params &params);
// "Stochastic": "K" in [0, 100] from bar KPeriod + Slowing - 2 on, "D" = sma(DPeriod) of K.
Result computeStochastic(const QVector<QuoteBar> &bars, const Params &params);
// "WilliamsPR": in [-100, 0] from bar Period - 1 on; -100 where the range is 0.
Result computeWilliamsPR(const QVector<QuoteBar> &bars, const Params &params);
// "CCI": commodity channel index from bar Period - 1 on; 0 where the mean deviation is 0.
Result computeCCI(const QVector<QuoteBar> &bars, const Params &params);
// "RVI": "RVI" from bar Period + 2 on, "RVISignal" from bar Period + 5 on.
Result computeRVI(const QVector<QuoteBar> &bars, const Params &params);
// "DI": "+DI" and "-DI" in [0, 100] from bar Period on (Wilder smoothing).
Result computeDI(const QVector<QuoteBar> &bars, const Params &params);
// "ADX": the "DI" buffers and "ADX" in [0, 100] from bar 2 * Period - 1 on.
Result computeADX(const QVector<QuoteBar> &bars, const Params &params);
// "DPO": close - sma(Period) of the close as it stood Period / 2 + 1 bars back.
Result computeDPO(const QVector<QuoteBar> &bars, const Params &params);

// Building blocks the family shares (filters may use them too).
namespace OscillatorParts {

// Every named buffer with n zeros.
Result zeroResult(int n, std::initializer_list<QString> names);
// A result holding one buffer.
Result singleBuffer(const QString &name, const Series &values);
// True when a period is below 1 or the series of n bars is not longer than it.
bool tooShort(int n, std::initializer_list<int> periods);
// In place, per bar: lows[i] becomes the lowest of the `period` lows ending at i and
// highs[i] the highest of the highs, fewer at the start of the series; both all zeros when
// period < 1 or the lengths differ.
void slideExtremes(int period, Series &lows, Series &highs);
// From index period - 1 on, the sum of the `period` values ending there, added in single
// precision from the newest value backwards (0.0f + s[i] + s[i - 1] + ...); 0 before, and
// n zeros when period < 1 or n < period. Pass the values with std::move to work in place.
Series windowSums(int period, Series values);
// From index period - 1 on, the mean absolute deviation of the `period` values ending there
// from means[i]: the sum of |values[j] - means[i]|, added from the newest backwards, over
// period; 0 before, and n zeros when period < 1 or n < period.
Series meanDeviations(int period, const Series &values, const Series &means);
// The typical price (high + low + close) / 3.
inline float typicalPrice(const QuoteBar &bar)
{
    return (bar.high() + bar.low() + bar.close()) / 3.0f;
}
// The true range of `count` bars given by their columns: high - low at the first, then
// max(high, previous close) - min(low, previous close).
Series trueRanges(const float *high, const float *low, const float *close, int count);
// Walks a series of n bars in consecutive chunks, calling part(from, begin, end) for the
// bars [begin, end), where from = max(0, begin - history): every window that reaches
// `history` bars back from a bar at or after `begin` lies within [from, end). Working series
// built per chunk then stay in the cache instead of travelling through memory.
template <typename Part> void inChunks(int n, int history, Part part)
{
    const int chunk = std::max(4096, 4 * history);
    for (int begin = 0; begin < n; begin += chunk)
        part(std::max(0, begin - history), begin, std::min(n, begin + chunk));
}

} // namespace OscillatorParts

} // namespace Indicators
