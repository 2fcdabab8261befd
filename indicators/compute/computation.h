#pragma once

#include "data/quotebar.h"

#include <QColor>
#include <QMap>
#include <QString>
#include <QVector>

// What every indicator computation shares: the series in, named buffers out.
//
// A computation is a plain function: no painting, no widgets, no I/O. It reads its
// parameters by name from the parameter map and fills named buffers, one float per bar,
// index 0 the oldest bar. A short series gives zero-filled buffers, never a crash.
namespace Indicators {

using Series = QVector<float>;
using Params = QMap<QString, float>;

// Colour overrides of single bars: the segment or histogram bar ending at that index is
// drawn in this colour (falling bars of the awesome oscillator, the impulse system's
// colours, Williams' bull and bear bars). One slot per bar: filling a dense vector for a
// million bars costs a fraction of a map node per bar.
class BarColours
{
public:
    // Colours bar `bar`; a fully transparent colour clears it.
    void set(int bar, const QColor &colour);
    bool contains(int bar) const { return bar >= 0 && bar < mRgba.size() && mRgba[bar] != 0; }
    QColor value(int bar, const QColor &fallback = QColor()) const;
    bool isEmpty() const { return mCount == 0; }
    int size() const { return mCount; } // bars coloured
    QList<int> keys() const;            // the coloured bars, in order
    QMap<int, QColor> toMap() const;

private:
    QVector<QRgb> mRgba; // 0: no colour
    int mCount = 0;
};

struct Result
{
    QMap<QString, Series> buffers;
    BarColours barColours;
};

using Computation = Result (*)(const QVector<QuoteBar> &bars, const Params &params);

// A parameter's value, or `fallback` when the map lacks it.
float param(const Params &params, const QString &name, float fallback = 0.0f);
// A period: the parameter converted from float to int by truncation (saturating).
int period(const Params &params, const QString &name, float fallback = 0.0f);

// One field of every bar, as floats. The columns of the last long series read on this
// thread are kept and handed out again (shared) while that series stays unchanged.
Series closes(const QVector<QuoteBar> &bars);
Series opens(const QVector<QuoteBar> &bars);
Series highs(const QVector<QuoteBar> &bars);
Series lows(const QVector<QuoteBar> &bars);
Series volumes(const QVector<QuoteBar> &bars);
Series medianPrices(const QVector<QuoteBar> &bars);  // (high + low) * 0.5
Series typicalPrices(const QVector<QuoteBar> &bars); // (high + low + close) / 3

} // namespace Indicators
