#pragma once

#include "chartlayer.h"
#include "data/readerh.h"
#include "viewcanvas.h"
#include "viewcolors.h"

#include <QImage>
#include <QLocale>
#include <QSize>

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
    QString label; // caption of the price layer, such as the symbol
};

// Draws the price chart of `series` with its scale and the date axis beneath into an
// image of picture.size, exactly as a chart view and its axis show it.
QImage renderChart(const OrdaneData::ReaderH &series, const ChartPicture &picture);

} // namespace OrdaneView
