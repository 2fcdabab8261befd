#pragma once

#include "chartlayer.h"
#include "data/readerh.h"
#include "viewcanvas.h"
#include "viewcolors.h"

#include <QImage>
#include <QList>
#include <QLocale>
#include <QSize>

#include <functional>

namespace OrdaneView {

// Everything that decides how a chart picture looks.
struct ChartPicture
{
    QSize size{1200, 800};
    ChartType type = ChartType::Candle;
    int zoom = 8;
    int first = -1; // first visible bar; -1 shows the last bars that fit
    bool grid = false;
    SeparatorMode separators = SeparatorMode::None;
    ViewColors colors = ViewColors::fallback();
    QLocale locale;
    QString label;       // caption of the price layer, such as the symbol
    int panes = 0;       // indicator panes stacked under the price chart
    bool colored = true; // rising and falling prices in their own colours
    // Optional heights of the price chart and then each pane, as a splitter keeps them:
    // when it holds panes + 1 values with a positive sum, the height above the date axis
    // is shared in their proportions; otherwise the panes get their default share.
    QList<int> heights;
};

// Adds layers to the chart canvas (after its price layer) and to each pane's canvas; the
// canvases already hold the series, so added layers can be computed at once.
using PopulateChart = std::function<void(ViewCanvas &chart, const QList<ViewCanvas *> &panes)>;

// Draws the price chart of `series` with its scale, any indicator panes beneath it and the
// date axis at the bottom into an image of picture.size, exactly as the views show them.
QImage renderChart(const OrdaneData::ReaderH &series, const ChartPicture &picture,
                   const PopulateChart &populate = {});

} // namespace OrdaneView
