#include "indicatorview.h"

namespace OrdaneView {

IndicatorView::IndicatorView(ChartGeometry *geometry, QWidget *parent)
    : View(geometry, parent)
{
    setObjectName(QStringLiteral("IndicatorView"));
}

void IndicatorView::slotProperties()
{
    slotIndicatorPropertyClicked();
}

void IndicatorView::slotReaderDataChanged()
{
    update();
    emit dataChanged();
}

} // namespace OrdaneView
