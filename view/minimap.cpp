#include "minimap.h"

#include "data/reader.h"

#include <algorithm>

namespace OrdaneView::MiniMap {

int barAt(int x, int width, int count)
{
    if (width <= 0 || count <= 0)
        return 0;
    return std::clamp(int(qint64(x) * count / width), 0, count - 1);
}

int columnOf(int bar, int width, int count)
{
    return count <= 0 ? 0 : int(qint64(bar) * width / count);
}

QRect window(int first, int visible, int count, const QSize &size)
{
    if (count <= 0)
        return QRect();
    const int left = columnOf(std::clamp(first, 0, count), size.width(), count);
    const int right = columnOf(std::clamp(first + visible, 0, count), size.width(), count);
    return QRect(left, 0, std::max(right - left, 2), size.height());
}

int firstForColumn(int x, int visible, int width, int count)
{
    const int centre = barAt(x, width, count);
    return std::clamp(centre - visible / 2, 0, std::max(count - visible, 0));
}

Measure measure(const OrdaneData::Reader &series, int fromBar, int toBar)
{
    Measure m;
    if (series.isEmpty())
        return m;
    fromBar = std::clamp(fromBar, 0, series.count() - 1);
    toBar = std::clamp(toBar, 0, series.count() - 1);
    const float a = series.bar(fromBar).close(), b = series.bar(toBar).close();
    m.price = b;
    m.date = series.bar(toBar).date();
    m.quotes = std::abs(toBar - fromBar);
    m.difference = double(b) - double(a);
    m.profit = a != 0 ? m.difference / double(a) * 100.0 : 0.0;
    return m;
}

QString readOut(const Measure &m)
{
    return QStringLiteral("Price:\t") + QString::number(double(m.price), 'f', 2) +
           QStringLiteral("\nDate:\t") + m.date.toString(QStringLiteral("yyyy-MM-dd")) +
           QStringLiteral("\nQuotes:\t") + QString::number(m.quotes) +
           QStringLiteral("\nProfit:\t") + QString::number(m.profit, 'f', 2) + QLatin1Char('%') +
           QStringLiteral("\nDifference:\t") + QString::number(m.difference, 'f', 2);
}

} // namespace OrdaneView::MiniMap
