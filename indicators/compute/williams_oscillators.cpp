#include "seriesmath.h"
#include "williams.h"

namespace Indicators {

namespace {
Series difference(const Series &a, const Series &b)
{
    Series r(a.size());
    for (int i = 0; i < a.size(); ++i)
        r[i] = a[i] - b[i];
    return r;
}

// The fixed periods 5 and 34 are part of the oscillator's definition, not parameters; over 34
// bars or fewer the slow average is all zeros and the result is the fast one.
Series awesome(const QVector<QuoteBar> &bars)
{
    const Series mp = medianPrices(bars);
    return difference(sma(5, mp), sma(34, mp));
}

// A bar strictly below its predecessor is falling; an unchanged bar keeps the buffer's colour.
BarColours fallingInRed(const Series &s)
{
    BarColours colours;
    const QColor red(Qt::red);
    for (int i = 1; i < s.size(); ++i)
        if (s[i] < s[i - 1])
            colours.set(i, red);
    return colours;
}

Result histogram(const QString &name, const Series &values)
{
    Result r;
    r.buffers.insert(name, values);
    r.barColours = fallingInRed(values);
    return r;
}
} // namespace

Result computeAO(const QVector<QuoteBar> &bars, const Params &)
{
    return histogram(QStringLiteral("AO"), awesome(bars));
}

Result computeAC(const QVector<QuoteBar> &bars, const Params &)
{
    const Series ao = awesome(bars);
    return histogram(QStringLiteral("AC"), difference(ao, sma(5, ao)));
}

Result computeMFaI(const QVector<QuoteBar> &bars, const Params &)
{
    Series r;
    r.reserve(bars.size());
    for (const QuoteBar &b : bars)
        r.append(float((double(b.high()) - double(b.low())) / double(b.volume())));
    Result result;
    result.buffers.insert(QStringLiteral("MFaI"), r);
    return result;
}

} // namespace Indicators
