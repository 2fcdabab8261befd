#pragma once

#include "computation.h"

// The series routines every indicator, filter and script reuses. Each takes a period P and
// a source of n floats (index 0 the oldest) and returns a new series of n floats; the
// source is never changed. When n <= P, or P < 1, the result is n zeros.
namespace Indicators {

Series sma(int period, const Series &source);
Series ema(int period, const Series &source);
Series smma(int period, const Series &source);
Series wma(int period, const Series &source);
Series median(int period, const Series &source);
// Moving standard deviation over the P values before each bar, against the mean of the P
// values ending at that bar; divisor P, or P - 1 for stdDevNMinus1.
Series stdDev(int period, const Series &source);
Series stdDevNMinus1(int period, const Series &source);
// s zeros followed by the source: n + s values (a negative s is taken as 0).
Series shift(int bars, const Series &source);

} // namespace Indicators
