#pragma once

#include "computation.h"

// The series routines every indicator, filter and script reuses. Each takes a period P and
// a source of n floats (index 0 the oldest) and returns a new series of n floats; the
// source is never changed. When n <= P, or P < 1, the result is n zeros. Arithmetic is
// single precision unless a step says otherwise, and every sum is added in a fixed order,
// so the results are the same to the bit from run to run and build to build.
namespace Indicators {

// Simple moving average: P - 1 zeros, then the P values ending at each bar added newest
// first, divided by P.
Series sma(int period, const Series &source);
// Exponential moving average seeded with the first value, no leading zeros:
// r[i] = s[i] * k + r[i - 1] * (1 - k), with k = 2 / (P + 1) a float and 1 - k and the sum
// in double; every r[i] is rounded to float.
Series ema(int period, const Series &source);
// One step of ema, for loops that run several averages side by side: the average after
// `value` given the one before it, rounded exactly as ema rounds it.
class EmaStep
{
public:
    explicit EmaStep(int period)
        : k(2.0f / float(period + 1))
        , rest(1.0 - double(k))
    {}
    float operator()(float previous, float value) const
    {
        return float(double(value * k) + double(previous) * rest);
    }

private:
    float k;
    double rest;
};
// Smoothed moving average: P - 1 zeros, the mean of the first P values at P - 1, then
// S = S - r[i - 1] + s[i] and r[i] = S / P.
Series smma(int period, const Series &source);
// Linearly weighted moving average: P - 1 zeros, then weight P on the newest value down to
// 1 on the oldest, added newest first, divided by P (P + 1) / 2.
Series wma(int period, const Series &source);
// Moving median: P - 1 zeros, then the middle of the P values ending at each bar; for an
// even P the two middle values added and times 0.5. The source must hold no NaN; 0 and -0
// count as equal, so a zero median may come out with either sign.
Series median(int period, const Series &source);
// Moving standard deviation over the P values before each bar, against the mean (sma) of
// the P values ending at that bar: P zeros, then the root of the squared differences added
// oldest first and divided by P, or by P - 1 for stdDevNMinus1 (which gives zeros for P = 1).
Series stdDev(int period, const Series &source);
Series stdDevNMinus1(int period, const Series &source);
// s zeros followed by the source: n + s values (a negative s is taken as 0).
Series shift(int bars, const Series &source);

} // namespace Indicators
