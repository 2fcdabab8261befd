#include "chartview.h"

#include "data/reader.h"
#include "drawingtool.h"
#include "drawobjectsdialog.h"
#include "view/candlespatternlayer.h"
#include "view/chartsession.h"
#include "view/computedlayer.h"
#include "view/drawobjects/drawobjectslayer.h"
#include "view/pairlayer.h"

#include <QInputDialog>
#include <QMenu>

namespace OrdaneView {

ChartView::ChartView(ChartSession *session, QWidget *parent)
    : View(session, session->chart(), parent)
    , mDrawing(new DrawingTool(this, session->drawObjectsLayer()))
{
    setObjectName(QStringLiteral("ChartView"));
}

ChartType ChartView::chartType() const
{
    return session()->chartType();
}

Layer *ChartView::priceLayer() const
{
    return session()->priceLayer();
}

CandlesPatternLayer *ChartView::patternLayer() const
{
    return session()->patternLayer();
}

void ChartView::slotSetCandlePatternRequirments(const QList<CandlePattern::Pattern> &patterns)
{
    patternLayer()->setRequired(patterns);
    update();
}

void ChartView::slotSetCandlePatternStrength(int mask)
{
    patternLayer()->setStrength(mask);
    update();
}

void ChartView::slotSetCandlePatternBlending(bool on)
{
    patternLayer()->setBlending(on);
    update();
}

void ChartView::slotShowCandlePatterns(bool on)
{
    patternLayer()->setShown(on);
    update();
}

void ChartView::setChartType(ChartType type)
{
    session()->setChartType(type);
    update();
}

void ChartView::slotSetCandle()
{
    setChartType(ChartType::Candle);
}

void ChartView::slotSetEmpty()
{
    setChartType(ChartType::Empty);
}

void ChartView::slotSetLine()
{
    setChartType(ChartType::Line);
}

void ChartView::slotSetBar()
{
    setChartType(ChartType::Bar);
}

void ChartView::slotProperties()
{
    const QList<ComputedLayer *> overlays = indicators();
    if (overlays.isEmpty()) {
        emit propertiesRequested();
        return;
    }
    QStringList choices{tr("Chart Colours")};
    for (const ComputedLayer *indicator : overlays)
        choices << indicator->label();
    bool ok = false;
    const QString chosen =
        QInputDialog::getItem(this, tr("Properties"), tr("Properties of:"), choices, 0, false, &ok);
    const int index = choices.indexOf(chosen);
    if (!ok || index < 0)
        return;
    if (index == 0)
        emit propertiesRequested();
    else
        editProperties(overlays.at(index - 1));
}

void ChartView::addMenuEntries(QMenu &menu)
{
    if (PairLayer *pair = session()->pairLayer())
        menu.addAction(tr("Remove &Pair %1").arg(pair->pair()->symbol()), this, [this] {
            session()->setPair({});
            update();
        });
    menu.addAction(tr("Draw Objects..."), this, &ChartView::slotDrawObjects)
        ->setEnabled(!session()->drawObjectsLayer()->objects().isEmpty());
    View::addMenuEntries(menu);
}

void ChartView::slotDrawObjects()
{
    DrawObjectsDialog dialog(session()->drawObjectsLayer(), this);
    dialog.exec();
}

void ChartView::slotReaderDataChanged()
{
    update();
    emit dataChanged();
}

} // namespace OrdaneView
