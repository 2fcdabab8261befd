#include "scrollbarview.h"

#include <QSignalBlocker>

#include <algorithm>

namespace OrdaneView {

ScrollBarView::ScrollBarView(QWidget *parent)
    : QScrollBar(Qt::Horizontal, parent)
{
    setObjectName(QStringLiteral("ScrollBarView"));
}

void ScrollBarView::sync(int first, int visible, int barCount)
{
    const QSignalBlocker blocker(this);
    setRange(0, std::max(barCount - visible, 0));
    setPageStep(std::max(visible, 1));
    setSingleStep(1);
    setValue(first);
}

} // namespace OrdaneView
