#pragma once

#include <QImage>
#include <QList>
#include <QSize>

namespace OrdaneView {

class ChartSession;

// How a chart picture is framed; everything else (series, frame, type, zoom, look,
// indicators) is the session's.
struct ChartPicture
{
    QSize size{1200, 800};
    int first = -1; // first visible bar; -1 shows the last bars that fit
    // Optional heights of the price chart and then each pane, as a splitter keeps them:
    // when it holds one value per canvas with a positive sum, the height above the date axis
    // is shared in their proportions; otherwise the panes get their default share.
    QList<int> heights;
};

// Draws the session's price chart with its scale, its panes beneath it and the date axis at
// the bottom into an image of picture.size, exactly as the views show them. The session's
// canvases are sized for the picture and its geometry scrolled to picture.first.
QImage renderChart(ChartSession &session, const ChartPicture &picture);

} // namespace OrdaneView
