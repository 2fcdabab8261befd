#include "seriesmath.h"

#include <algorithm>
#include <cmath>

namespace Indicators {

namespace {
bool guarded(int period, const Series &source)
{
    return period < 1 || source.size() <= period;
}

Series deviation(int period, const Series &source, int f)
{
    const int n = source.size();
    if (guarded(period, source) || period - f <= 0)
        return Series(n, 0.0f);
    const Series m = sma(period, source);
    Series r(n, 0.0f);
    for (int i = period; i < n; ++i) {
        float sum = 0.0f;
        for (int j = i - period; j < i; ++j) {
            const float d = source[j] - m[i];
            sum += d * d;
        }
        r[i] = std::sqrt(sum / float(period - f));
    }
    return r;
}
} // namespace

Series sma(int period, const Series &source)
{
    const int n = source.size();
    if (guarded(period, source))
        return Series(n, 0.0f);
    Series r(n, 0.0f);
    for (int i = period - 1; i < n; ++i) {
        float sum = 0.0f;
        for (int j = i; j > i - period; --j)
            sum += source[j];
        r[i] = sum / float(period);
    }
    return r;
}

Series ema(int period, const Series &source)
{
    const int n = source.size();
    if (guarded(period, source))
        return Series(n, 0.0f);
    const float k = 2.0f / float(period + 1);
    const double rest = 1.0 - double(k);
    Series r(n, 0.0f);
    r[0] = source[0];
    for (int i = 1; i < n; ++i)
        r[i] = float(double(source[i] * k) + double(r[i - 1]) * rest);
    return r;
}

Series smma(int period, const Series &source)
{
    const int n = source.size();
    if (guarded(period, source))
        return Series(n, 0.0f);
    Series r(n, 0.0f);
    float s = 0.0f;
    for (int i = 0; i < period; ++i)
        s += source[i];
    r[period - 1] = s / float(period);
    for (int i = period; i < n; ++i) {
        s = s - r[i - 1] + source[i];
        r[i] = s / float(period);
    }
    return r;
}

Series wma(int period, const Series &source)
{
    const int n = source.size();
    if (guarded(period, source))
        return Series(n, 0.0f);
    const int divisor = period * (period + 1) / 2;
    Series r(n, 0.0f);
    for (int i = period - 1; i < n; ++i) {
        float sum = 0.0f;
        for (int j = 0; j < period; ++j)
            sum += float(period - j) * source[i - j];
        r[i] = sum / float(divisor);
    }
    return r;
}

Series median(int period, const Series &source)
{
    const int n = source.size();
    if (guarded(period, source))
        return Series(n, 0.0f);
    Series r(n, 0.0f);
    Series window(period);
    for (int i = period - 1; i < n; ++i) {
        std::copy(source.begin() + (i - period + 1), source.begin() + i + 1, window.begin());
        std::sort(window.begin(), window.end());
        r[i] = period % 2 ? window[period / 2]
                          : (window[period / 2 - 1] + window[period / 2]) * 0.5f;
    }
    return r;
}

Series stdDev(int period, const Series &source)
{
    return deviation(period, source, 0);
}

Series stdDevNMinus1(int period, const Series &source)
{
    return deviation(period, source, 1);
}

Series shift(int bars, const Series &source)
{
    bars = std::max(bars, 0);
    Series r(source.size() + bars, 0.0f);
    std::copy(source.begin(), source.end(), r.begin() + bars);
    return r;
}

} // namespace Indicators
