#include "templatebinding.h"

#include "chartgeometry.h"
#include "chartsession.h"
#include "computedlayer.h"
#include "data/reader.h"

namespace OrdaneView {

namespace {
QList<TemplateIndicator> describe(const QList<ComputedLayer *> &indicators)
{
    QList<TemplateIndicator> list;
    for (const ComputedLayer *i : indicators)
        list.append({i->name(), i->parameters()});
    return list;
}
} // namespace

ChartTemplate currentTemplate(const ChartSession &session)
{
    ChartTemplate t;
    t.timeFrame = session.timeFrame();
    t.zoom = session.geometry()->zoom();
    t.background = session.colors().background;
    t.type = session.chartType();
    t.threeD = session.colors().threeD;
    t.colored = session.chart()->isColoured();
    t.chartIndicators = describe(session.chart()->indicators());
    for (const ViewCanvas *pane : session.panes())
        t.panes.append(describe(pane->indicators()));
    return t;
}

QStringList applyTemplate(ChartSession &session, const ChartTemplate &t)
{
    session.removeAllPanes();
    session.removeChartIndicators();

    ViewColors scheme = session.scheme();
    scheme.threeD = t.threeD;
    session.setColors(scheme, t.background.isValid() && t.background != scheme.background
                                  ? t.background
                                  : QColor());
    session.setColoured(t.colored);
    session.setChartType(t.type);
    {
        const QSignalBlocker blocker(session.geometry());
        session.geometry()->setZoom(t.zoom);
    }
    const OrdaneData::ReaderH &reader = session.reader();
    if (t.timeFrame != session.timeFrame() ||
        (!reader.isNull() && reader->timeFrame() != t.timeFrame))
        session.setTimeFrame(t.timeFrame);

    QStringList unknown;
    for (const TemplateIndicator &i : t.chartIndicators)
        if (!session.addIndicator(session.chart(), i.name, false, i.parameters))
            unknown << i.name;
    for (const QList<TemplateIndicator> &indicators : t.panes) {
        ViewCanvas *pane = session.addPane();
        bool any = false;
        for (const TemplateIndicator &i : indicators) {
            if (session.addIndicator(pane, i.name, !any, i.parameters))
                any = true;
            else
                unknown << i.name;
        }
        if (!any)
            session.removePane(pane);
    }
    return unknown;
}

} // namespace OrdaneView
