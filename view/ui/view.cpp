#include "view.h"

#include "data/reader.h"
#include "indicatoreditor.h"
#include "view/chartgeometry.h"
#include "view/chartsession.h"
#include "view/computedlayer.h"

#include <QContextMenuEvent>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QInputDialog>
#include <QMenu>
#include <QMimeData>
#include <QPainter>

namespace OrdaneView {

View::View(ChartSession *session, ViewCanvas *canvas, QWidget *parent)
    : QWidget(parent)
    , mSession(session)
    , mCanvas(canvas)
{
    setMouseTracking(true);
    setFocusPolicy(Qt::WheelFocus);
    setAttribute(Qt::WA_OpaquePaintEvent);
    setMinimumSize(120, 60);
    setAcceptDrops(true);
    connect(mCanvas, &ViewCanvas::drawFinished, this, &View::drawFinished);
}

View::~View() = default;

ChartGeometry *View::geometry() const
{
    return mCanvas->geometry();
}

QStringList View::droppedIndicators(const QMimeData *data)
{
    const QString format = QLatin1String(kIndicatorsMimeType);
    if (!data || !data->hasFormat(format))
        return {};
    return QString::fromUtf8(data->data(format)).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
}

void View::dragEnterEvent(QDragEnterEvent *event)
{
    if (!droppedIndicators(event->mimeData()).isEmpty())
        event->acceptProposedAction();
}

void View::dropEvent(QDropEvent *event)
{
    const QStringList ids = droppedIndicators(event->mimeData());
    if (ids.isEmpty())
        return;
    event->acceptProposedAction();
    emit indicatorsDropped(ids);
}

QList<ComputedLayer *> View::indicators() const
{
    return mCanvas->indicators();
}

ComputedLayer *View::chooseIndicator(const QString &title)
{
    const QList<ComputedLayer *> list = indicators();
    if (list.size() <= 1)
        return list.value(0);
    QStringList labels;
    for (const ComputedLayer *indicator : list)
        labels << indicator->label();
    bool ok = false;
    const QString chosen =
        QInputDialog::getItem(this, title, tr("Indicator:"), labels, 0, false, &ok);
    return ok ? list.value(labels.indexOf(chosen)) : nullptr;
}

void View::slotIndicatorPropertyClicked()
{
    if (ComputedLayer *indicator = chooseIndicator(tr("Indicator Properties")))
        editProperties(indicator);
}

void View::editProperties(ComputedLayer *indicator)
{
    if (IndicatorEditor::installed().editProperties(indicator, this)) {
        update();
        emit indicatorsChanged();
    }
}

void View::slotRemoveIndicatorLayer()
{
    ComputedLayer *indicator = chooseIndicator(tr("Remove Indicator"));
    if (!indicator)
        return;
    const bool empty = mSession->removeIndicator(mCanvas, indicator);
    update();
    emit indicatorsChanged();
    if (empty)
        slotClose();
}

void View::slotClose()
{
    emit closeRequested();
}

void View::slotGrid()
{
    mCanvas->setGrid(!mCanvas->hasGrid());
    update();
}

void View::slotProperties()
{
    emit propertiesRequested();
}

void View::slotRefresh()
{
    update();
}

void View::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    mCanvas->setSize(size());
    mCanvas->paint(painter);
}

void View::resizeEvent(QResizeEvent *event)
{
    mCanvas->setSize(size());
    QWidget::resizeEvent(event);
}

void View::mouseMoveEvent(QMouseEvent *event)
{
    const int x = event->pos().x();
    if (mDragX >= 0)
        scrollBy(mDragFirst + (mDragX - x) / geometry()->zoom() - geometry()->firstVisible());
    // Also while dragging, so that the pointer information follows the bar under the pointer.
    geometry()->setPointerX(x < mCanvas->plotWidth() ? x : -1);
}

void View::mousePressEvent(QMouseEvent *event)
{
    if (event->button() == Qt::LeftButton) {
        mDragX = event->pos().x();
        mDragFirst = geometry()->firstVisible();
        setCursor(Qt::ClosedHandCursor);
    }
    QWidget::mousePressEvent(event);
}

void View::mouseReleaseEvent(QMouseEvent *event)
{
    if (event->button() == Qt::LeftButton && mDragX >= 0) {
        mDragX = -1;
        unsetCursor();
    }
    QWidget::mouseReleaseEvent(event);
}

void View::leaveEvent(QEvent *event)
{
    geometry()->setPointerX(-1);
    QWidget::leaveEvent(event);
}

void View::wheelEvent(QWheelEvent *event)
{
    const int steps = event->angleDelta().y() / 120;
    if (steps == 0)
        return;
    if (event->modifiers() & Qt::ControlModifier)
        emit zoomRequested(steps > 0 ? 1 : -1);
    else
        scrollBy(-steps * std::max(1, 40 / geometry()->zoom()));
    event->accept();
}

void View::keyPressEvent(QKeyEvent *event)
{
    const int page = std::max(1, mCanvas->plotWidth() / geometry()->zoom());
    const int count = mCanvas->reader().isNull() ? 0 : mCanvas->reader()->count();
    switch (event->key()) {
    case Qt::Key_Left:
        scrollBy(-1);
        break;
    case Qt::Key_Right:
        scrollBy(1);
        break;
    case Qt::Key_PageUp:
        scrollBy(-page);
        break;
    case Qt::Key_PageDown:
        scrollBy(page);
        break;
    case Qt::Key_Home:
        geometry()->setFirstVisible(0);
        break;
    case Qt::Key_End:
        geometry()->setFirstVisible(geometry()->lastPage(mCanvas->plotWidth(), count));
        break;
    case Qt::Key_Plus:
        emit zoomRequested(1);
        break;
    case Qt::Key_Minus:
        emit zoomRequested(-1);
        break;
    default:
        QWidget::keyPressEvent(event);
    }
}

void View::scrollBy(int bars)
{
    const int count = mCanvas->reader().isNull() ? 0 : mCanvas->reader()->count();
    const int last = geometry()->lastPage(mCanvas->plotWidth(), count);
    geometry()->setFirstVisible(std::min(geometry()->firstVisible() + bars, last));
}

void View::contextMenuEvent(QContextMenuEvent *event)
{
    QMenu menu(this);
    addMenuEntries(menu);
    QAction *grid = menu.addAction(tr("&Grid"), this, &View::slotGrid);
    grid->setCheckable(true);
    grid->setChecked(mCanvas->hasGrid());
    menu.exec(event->globalPos());
}

void View::addMenuEntries(QMenu &menu)
{
    if (!indicators().isEmpty())
        menu.addAction(tr("Remove Indicator..."), this, &View::slotRemoveIndicatorLayer);
    menu.addAction(tr("&Properties"), this, &View::slotProperties);
}

} // namespace OrdaneView
