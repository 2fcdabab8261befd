#include "datetimeview.h"

#include "data/reader.h"
#include "view/dateaxis.h"
#include "view/viewcanvas.h"

#include <QPainter>

namespace OrdaneView {

DateTimeView::DateTimeView(ViewCanvas *chart, QWidget *parent)
    : QWidget(parent)
    , mChart(chart)
{
    setObjectName(QStringLiteral("DateTimeView"));
    setFixedHeight(DateAxis::kHeight);
    setAttribute(Qt::WA_OpaquePaintEvent);
}

void DateTimeView::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    const OrdaneData::ReaderH reader = mChart->reader();
    DateAxis::paint(painter, rect(), reader.isNull() ? nullptr : reader.reader(),
                    *mChart->geometry(), mChart->colors().background, mChart->font(),
                    mChart->locale());
}

} // namespace OrdaneView
