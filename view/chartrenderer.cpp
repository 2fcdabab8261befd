#include "chartrenderer.h"

#include "chartgeometry.h"
#include "chartsession.h"
#include "data/reader.h"
#include "dateaxis.h"

#include <QPainter>

#include <algorithm>
#include <numeric>

namespace OrdaneView {

namespace {
// The heights of the panes under a chart in `views` pixels.
QList<int> shareHeights(int views, int panes, const QList<int> &heights)
{
    QList<int> result;
    qint64 sum = 0;
    bool usable = heights.size() == panes + 1;
    for (int h : heights) {
        usable = usable && h >= 0;
        sum += h;
    }
    if (panes > 0 && usable && sum > 0) {
        // Rounded from the running total, so the panes' heights add up without drift.
        qint64 before = heights.first();
        for (int i = 1; i <= panes; ++i) {
            const int top = int(before * views / sum);
            before += heights.at(i);
            result.append(int(before * views / sum) - top);
        }
        return result;
    }
    // Panes take a fifth of the height each, but together never more than three fifths.
    const int paneHeight = panes ? std::min(views / 5, views * 3 / 5 / panes) : 0;
    for (int i = 0; i < panes; ++i)
        result.append(paneHeight);
    return result;
}
} // namespace

QImage renderChart(ChartSession &session, const ChartPicture &picture)
{
    const ViewColors &colors = session.colors();
    QImage image(picture.size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::black);
    const int width = picture.size.width();
    const int views = picture.size.height() - DateAxis::kHeight;
    const QList<ViewCanvas *> &panes = session.panes();
    const QList<int> paneHeights = shareHeights(views, panes.size(), picture.heights);
    const int panesTotal = std::accumulate(paneHeights.cbegin(), paneHeights.cend(), 0);

    ViewCanvas *chart = session.chart();
    chart->setSize(QSize(width, views - panesTotal));
    for (int i = 0; i < panes.size(); ++i)
        panes.at(i)->setSize(QSize(width, paneHeights.at(i)));
    ChartGeometry &geometry = *session.geometry();
    geometry.setFirstVisible(picture.first >= 0
                                 ? picture.first
                                 : geometry.lastPage(chart->plotWidth(), session.barCount()));

    QPainter painter(&image);
    chart->paint(painter);
    int top = chart->size().height();
    const QColor edge = colors.grid.isValid() ? colors.grid.lighter(170) : QColor(Qt::gray);
    for (ViewCanvas *pane : panes) {
        painter.save();
        painter.translate(0, top);
        pane->paint(painter);
        painter.setPen(edge);
        painter.drawLine(0, 0, width, 0);
        painter.restore();
        top += pane->size().height();
    }
    const OrdaneData::ReaderH &series = session.reader();
    DateAxis::paint(painter, QRect(0, top, width, DateAxis::kHeight),
                    series.isNull() ? nullptr : series.reader(), geometry, colors.background,
                    chart->font(), chart->locale());
    return image;
}

} // namespace OrdaneView
