#include "seriesmath.h"
#include "williams.h"

#include <algorithm>
#include <cmath>

namespace Indicators {

namespace {
// One shifted Alligator line and the index of its first real value (its size when it has
// none), so the Gator never measures a gap against the leading zeros of a line.
struct Line
{
    Series values;
    int first;
};

Line line(const Series &mp, const Params &params, const QString &name, int periodFallback,
          int shiftFallback)
{
    const int p = period(params, name + QStringLiteral(" Period"), float(periodFallback));
    const int s =
        std::max(period(params, name + QStringLiteral(" Shift"), float(shiftFallback)), 0);
    Line l{shift(s, smma(p, mp)), 0};
    // smma gives its first value at index p - 1 when the series is longer than p.
    l.first = p >= 1 && mp.size() > p ? s + p - 1 : l.values.size();
    return l;
}

struct Lines
{
    Line jaws, teeth, lips;
};

Lines alligator(const QVector<QuoteBar> &bars, const Params &params)
{
    const Series mp = medianPrices(bars);
    return {line(mp, params, QStringLiteral("Jaws"), 13, 8),
            line(mp, params, QStringLiteral("Teeth"), 8, 5),
            line(mp, params, QStringLiteral("Lips"), 5, 3)};
}

// sign * |a - b| wherever both lines hold a value.
Series gap(const Line &a, const Line &b, float sign)
{
    const int size = std::min(a.values.size(), b.values.size());
    Series r(size, 0.0f);
    for (int i = std::max(a.first, b.first); i < size; ++i)
        r[i] = sign * std::fabs(a.values[i] - b.values[i]);
    return r;
}
} // namespace

Result computeAlligator(const QVector<QuoteBar> &bars, const Params &params)
{
    const Lines l = alligator(bars, params);
    Result r;
    r.buffers.insert(QStringLiteral("Jaws"), l.jaws.values);
    r.buffers.insert(QStringLiteral("Teeth"), l.teeth.values);
    r.buffers.insert(QStringLiteral("Lips"), l.lips.values);
    return r;
}

Result computeGator(const QVector<QuoteBar> &bars, const Params &params)
{
    const Lines l = alligator(bars, params);
    Result r;
    r.buffers.insert(QStringLiteral("JawsTeeth"), gap(l.jaws, l.teeth, 1.0f));
    r.buffers.insert(QStringLiteral("LipsTeeth"), gap(l.lips, l.teeth, -1.0f));
    return r;
}

} // namespace Indicators
