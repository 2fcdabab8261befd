#include "indicatorview.h"

namespace OrdaneView {

IndicatorView::IndicatorView(ChartSession *session, ViewCanvas *pane, QWidget *parent)
    : View(session, pane, parent)
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
