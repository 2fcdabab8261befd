#include "chartgeometry.h"

#include <algorithm>

namespace OrdaneView {

ChartGeometry::ChartGeometry(QObject *parent)
    : QObject(parent)
{}

void ChartGeometry::setFirstVisible(int index)
{
    index = std::max(index, 0);
    if (index == mFirstVisible)
        return;
    mFirstVisible = index;
    emit changed();
}

void ChartGeometry::setZoom(int zoom)
{
    zoom = std::max(zoom, 1);
    if (zoom == mZoom)
        return;
    mZoom = zoom;
    emit changed();
}

bool ChartGeometry::zoomIn()
{
    if (mZoom >= 100)
        return false;
    setZoom(mZoom * 2);
    return true;
}

bool ChartGeometry::zoomOut()
{
    if (mZoom < 2)
        return false;
    setZoom(mZoom / 2);
    return true;
}

void ChartGeometry::setPointerX(int x)
{
    x = std::max(x, -1);
    if (x == mPointerX)
        return;
    mPointerX = x;
    emit pointerMoved(x);
}

int ChartGeometry::visibleCount(int plotWidth, int barCount) const
{
    int n = std::max(plotWidth, 0) / mZoom;
    if (mFirstVisible + n > barCount)
        n = barCount - mFirstVisible;
    return std::max(n, 0);
}

int ChartGeometry::lastPage(int plotWidth, int barCount) const
{
    return std::max(barCount - std::max(plotWidth, 0) / mZoom, 0);
}

} // namespace OrdaneView
