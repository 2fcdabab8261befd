#pragma once

#include <QDate>
#include <QRect>
#include <QString>

namespace OrdaneData {
class Reader;
}

namespace OrdaneView {

// The arithmetic of the mini view, which shows the whole series in a small strip: which
// bar lies under a column, where the visible window sits, and the measuring read-out
// between two points.
namespace MiniMap {

// The bar under column x of a strip `width` pixels wide showing `count` bars.
int barAt(int x, int width, int count);
// The column where bar i starts.
int columnOf(int bar, int width, int count);
// The marked window of `visible` bars from `first`, as columns in the strip.
QRect window(int first, int visible, int count, const QSize &size);
// The first visible bar that centres the window on column x, clamped to the series.
int firstForColumn(int x, int visible, int width, int count);

// A measurement from one bar to another, at their closes.
struct Measure
{
    float price = 0;   // close at the second point
    QDate date;        // date at the second point
    int quotes = 0;    // bars from the first point to the second
    double profit = 0; // percent from the first close to the second
    double difference = 0;
};
Measure measure(const OrdaneData::Reader &series, int fromBar, int toBar);
// "Price:\t..\nDate:\t..\nQuotes:\t..\nProfit:\t..%\nDifference:\t.."
QString readOut(const Measure &m);

} // namespace MiniMap
} // namespace OrdaneView
