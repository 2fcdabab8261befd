#include "viewscontainer.h"

#include "chartexport.h"
#include "chartview.h"
#include "core/language.h"
#include "data/home.h"
#include "data/net/dataupdater.h"
#include "data/reader.h"
#include "datetimeview.h"
#include "drawingtool.h"
#include "indicatoreditor.h"
#include "indicatorview.h"
#include "miniview.h"
#include "scrollbarview.h"
#include "view/chartgeometry.h"
#include "view/chartsession.h"
#include "view/computedlayer.h"
#include "view/indicatorsource.h"
#include "view/templatebinding.h"
#include "viewoperationspanel.h"
#include "viewparameters.h"

#include <QDialog>
#include <QDialogButtonBox>
#include <QDir>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QEvent>
#include <QFileDialog>
#include <QFileInfo>
#include <QMessageBox>
#include <QSplitter>
#include <QTimer>
#include <QVBoxLayout>

#include <algorithm>

namespace OrdaneView {

ViewsContainer::ViewsContainer(QWidget *parent)
    : QWidget(parent)
    , mSession(new ChartSession(this))
    , mSource(new OrdaneData::DataUpdater(nullptr, this))
    , mPriceTimer(new QTimer(this))
    , mPanel(new ViewOperationsPanel(this))
    , mChartArea(new QWidget(this))
    , mSplitter(new QSplitter(Qt::Vertical, mChartArea))
    , mChart(new ChartView(mSession, mSplitter))
    , mAxis(new DateTimeView(mChart->canvas(), mChartArea))
    , mScroll(new ScrollBarView(this))
    , mMini(new MiniView(mChart->canvas(), this))
{
    setObjectName(QStringLiteral("ViewsContainer"));
    mSplitter->setObjectName(QStringLiteral("ViewsContainerSplitter"));
    mSplitter->setChildrenCollapsible(false);
    mSplitter->setHandleWidth(4);
    mSplitter->addWidget(mChart);

    auto *area = new QVBoxLayout(mChartArea);
    area->setContentsMargins(0, 0, 0, 0);
    area->setSpacing(0);
    area->addWidget(mSplitter, 1);
    area->addWidget(mAxis);

    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(mPanel);
    layout->addWidget(mChartArea, 1);
    layout->addWidget(mScroll);
    layout->addWidget(mMini);

    // One signal, one slot.
    connect(mPanel, &ViewOperationsPanel::zoomOut, this, &ViewsContainer::slotZoomOut);
    connect(mPanel, &ViewOperationsPanel::zoomIn, this, &ViewsContainer::slotZoomIn);
    connect(mPanel, &ViewOperationsPanel::candleChart, this, &ViewsContainer::slotSetCandle);
    connect(mPanel, &ViewOperationsPanel::lineChart, this, &ViewsContainer::slotSetLine);
    connect(mPanel, &ViewOperationsPanel::barChart, this, &ViewsContainer::slotSetBar);
    connect(mPanel, &ViewOperationsPanel::emptyChart, this, &ViewsContainer::slotSetEmpty);
    connect(mPanel, &ViewOperationsPanel::grid, this, &ViewsContainer::slotGrid);
    connect(mPanel, &ViewOperationsPanel::dayFrameMode, this, &ViewsContainer::slotSetDayFrameMode);
    connect(mPanel, &ViewOperationsPanel::weekFrameMode, this,
            &ViewsContainer::slotSetWeekFrameMode);
    connect(mPanel, &ViewOperationsPanel::monthFrameMode, this,
            &ViewsContainer::slotSetMonthFrameMode);
    connect(mPanel, &ViewOperationsPanel::quartalFrameMode, this,
            &ViewsContainer::slotSetQuartalFrameMode);
    connect(mPanel, &ViewOperationsPanel::yearFrameMode, this,
            &ViewsContainer::slotSetYearFrameMode);
    connect(mPanel, &ViewOperationsPanel::pointerMode, this,
            &ViewsContainer::slotTriggerPointerInfoMode);
    connect(mPanel, &ViewOperationsPanel::noneSeparator, this,
            &ViewsContainer::slotNonSeparatorMode);
    connect(mPanel, &ViewOperationsPanel::weekSeparator, this,
            &ViewsContainer::slotWeekSeparatorMode);
    connect(mPanel, &ViewOperationsPanel::monthSeparator, this,
            &ViewsContainer::slotMonthSeparatorMode);
    connect(mPanel, &ViewOperationsPanel::quartalSeparator, this,
            &ViewsContainer::slotQuartalSeparatorMode);
    connect(mPanel, &ViewOperationsPanel::yearSeparator, this,
            &ViewsContainer::slotYearSeparatorMode);
    connect(mPanel, &ViewOperationsPanel::takePicture, this, &ViewsContainer::slotTakePicture);
    connect(mPanel, &ViewOperationsPanel::saveCsv, this, &ViewsContainer::slotSaveCsv);
    connect(mPanel, &ViewOperationsPanel::cpr, this, &ViewsContainer::slotCpr);
    connect(mPanel, &ViewOperationsPanel::drawModeClicked, this, &ViewsContainer::slotDraw);
    connect(mChart->drawingTool(), &DrawingTool::drawModeChanged, mPanel,
            &ViewOperationsPanel::showDrawMode);

    mPriceTimer->setInterval(60000);
    connect(mPriceTimer, &QTimer::timeout, this, &ViewsContainer::slotUpdateCurrentPrice);
    connect(mSource, &OrdaneData::DataUpdater::quote, this,
            [this](const QString &symbol, const QuoteBar &bar) {
                const OrdaneData::ReaderH series = reader();
                // The chart may have moved on to another symbol meanwhile.
                if (mPriceUpdates && !series.isNull() && series->symbol() == symbol)
                    series->mergeQuote(bar);
            });
    connect(mSource, &OrdaneData::DataUpdater::failed, this,
            [this](const QString &symbol, const QString &reason) {
                emit message(tr("No current price for %1: %2").arg(symbol, reason));
            });
    connect(mSource, &OrdaneData::DataUpdater::updateFailed, this,
            [this](const QString &symbol, const QString &reason) {
                emit message(tr("%1 could not be brought up to date: %2").arg(symbol, reason));
            });

    connect(mSession, &ChartSession::paneAdded, this, &ViewsContainer::paneAdded);
    connect(mSession, &ChartSession::paneRemoved, this, &ViewsContainer::paneRemoved);
    connect(mSession, &ChartSession::seriesChanged, this, &ViewsContainer::seriesChanged);
    connect(mSession, &ChartSession::chartTypeChanged, this, [this](ChartType type) {
        mPanel->showChartType(type);
        mChart->update();
    });

    connect(mScroll, &ScrollBarView::valueChanged, this, &ViewsContainer::slotSetPosition);
    connect(mMini, &MiniView::positionChanged, this, &ViewsContainer::slotChangePositon);
    connect(geometry(), &ChartGeometry::changed, this, &ViewsContainer::geometryChanged);
    connect(geometry(), &ChartGeometry::pointerMoved, this, [this] {
        mAxis->update();
        if (mChart->canvas()->pointerInfoMode())
            for (View *v : views())
                v->update();
    });
    connectView(mChart);
    connect(mChart, &View::propertiesRequested, this, &ViewsContainer::showViewSettings);
    connect(mChart, &ChartView::dataChanged, mMini, qOverload<>(&QWidget::update));
    mChart->installEventFilter(this);
    // Indicators dropped on the chart go over the prices; dropped anywhere else outside a
    // pane (the date axis, the scroll bar, the tool strip) they get a pane of their own.
    setAcceptDrops(true);

    slotUpdate();
}

ViewsContainer::~ViewsContainer() = default;

ChartGeometry *ViewsContainer::geometry() const
{
    return mSession->geometry();
}

OrdaneData::ReaderH ViewsContainer::reader() const
{
    return mSession->reader();
}

int ViewsContainer::timeFrame() const
{
    return mSession->timeFrame();
}

QList<View *> ViewsContainer::views() const
{
    // A removed pane's view lingers in the splitter until it is deleted.
    QList<View *> result;
    for (int i = 0; i < mSplitter->count(); ++i)
        if (auto *v = qobject_cast<View *>(mSplitter->widget(i)))
            if (v == mChart || mSession->panes().contains(v->canvas()))
                result.append(v);
    return result;
}

int ViewsContainer::plotWidth() const
{
    return mChart->canvas()->plotWidth();
}

void ViewsContainer::connectView(View *view)
{
    connect(view, &View::zoomRequested, this, [this](int direction) { zoom(direction > 0); });
    connect(view, &View::indicatorsChanged, this, &ViewsContainer::updateAll);
    connect(view, &View::indicatorsDropped, this,
            [this, view](const QStringList &ids) { addIndicators(view->canvas(), ids); });
}

void ViewsContainer::paneAdded(ViewCanvas *pane)
{
    auto *view = new IndicatorView(mSession, pane);
    connectView(view);
    connect(view, &View::closeRequested, this, [this, pane] { mSession->removePane(pane); });
    mSplitter->addWidget(view);
}

void ViewsContainer::paneRemoved(ViewCanvas *pane)
{
    for (int i = 0; i < mSplitter->count(); ++i) {
        auto *v = qobject_cast<View *>(mSplitter->widget(i));
        if (v && v->canvas() == pane) {
            // Hidden at once, deleted with its canvas once the events that led here are done.
            v->hide();
            v->deleteLater();
        }
    }
    updateAll();
}

void ViewsContainer::updateAll()
{
    for (View *v : views())
        v->update();
    mAxis->update();
    mMini->update();
    const int count = mSession->barCount();
    mScroll->sync(geometry()->firstVisible(), geometry()->visibleCount(plotWidth(), count), count);
}

void ViewsContainer::geometryChanged()
{
    mAtEnd = geometry()->firstVisible() >= geometry()->lastPage(plotWidth(), mSession->barCount());
    updateAll();
}

void ViewsContainer::followEnd()
{
    geometry()->setFirstVisible(geometry()->lastPage(plotWidth(), mSession->barCount()));
    mAtEnd = true;
    updateAll();
}

void ViewsContainer::seriesChanged()
{
    mChart->slotReaderDataChanged();
    mPanel->showTimeFrame(mSession->timeFrame());
    if (mAtEnd)
        followEnd();
    else
        updateAll();
}

void ViewsContainer::dragEnterEvent(QDragEnterEvent *event)
{
    if (!View::droppedIndicators(event->mimeData()).isEmpty())
        event->acceptProposedAction();
}

void ViewsContainer::dropEvent(QDropEvent *event)
{
    const QStringList ids = View::droppedIndicators(event->mimeData());
    if (ids.isEmpty())
        return;
    event->acceptProposedAction();
    slotTriggerNewIndicatorView(ids);
}

bool ViewsContainer::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == mChart && event->type() == QEvent::Resize) {
        mChart->canvas()->setSize(mChart->size());
        if (mAtEnd)
            followEnd();
        else
            updateAll();
    }
    return QWidget::eventFilter(watched, event);
}

void ViewsContainer::slotSetReader(OrdaneData::ReaderH reader)
{
    // A new series starts at its newest bars.
    mAtEnd = true;
    mSession->setReader(std::move(reader));
}

void ViewsContainer::slotFetchChartData(const QString &symbol)
{
    OrdaneData::ReaderH reader(new OrdaneData::Reader(mSource));
    reader->setSymbol(symbol);
    if (reader->isEmpty()) {
        QMessageBox::warning(this, tr("Chart"),
                             tr("There are no stored quotes for %1.").arg(symbol));
        return;
    }
    slotSetReader(reader);
}

void ViewsContainer::slotFetchChartData()
{
    mSession->reload();
}

void ViewsContainer::setPriceInterval(int ms)
{
    mPriceTimer->setInterval(ms);
}

void ViewsContainer::slotUpdateCurrentPrice()
{
    const OrdaneData::ReaderH series = reader();
    if (mPriceUpdates && !series.isNull() && !series->symbol().isEmpty())
        mSource->requestQuote(series->symbol());
}

void ViewsContainer::slotCpr(bool on)
{
    on = on && mPriceUpdates;
    mPanel->showCpr(on);
    if (!on) {
        mPriceTimer->stop();
        return;
    }
    slotUpdateCurrentPrice();
    mPriceTimer->start();
}

void ViewsContainer::slotEnablePriceUpdates(bool on)
{
    mPriceUpdates = on;
    mPanel->setCprAvailable(on);
    if (!on)
        slotCpr(false);
}

void ViewsContainer::slotShowPair(OrdaneData::ReaderH pair)
{
    mSession->setPair(pair);
    mChart->update();
}

void ViewsContainer::slotReaderDataChanged()
{
    mSession->recompute();
    seriesChanged();
}

void ViewsContainer::zoom(bool in)
{
    ChartGeometry *g = geometry();
    const int plot = plotWidth();
    const int end = g->firstVisible() + g->visibleCount(plot, mSession->barCount());
    const bool wasAtEnd = mAtEnd;
    QSignalBlocker blocker(g);
    if (!(in ? g->zoomIn() : g->zoomOut()))
        return;
    // Keep the newest shown bar at the right edge.
    g->setFirstVisible(end - std::max(plot, 0) / g->zoom());
    blocker.unblock();
    if (wasAtEnd)
        followEnd();
    else
        geometryChanged();
}

void ViewsContainer::slotZoomIn()
{
    zoom(true);
}

void ViewsContainer::slotZoomOut()
{
    zoom(false);
}

void ViewsContainer::slotUpdate()
{
    mSession->setColors(ViewColors::load());
    mSession->setLocale(QMWidgets::interfaceLocale());
    updateAll();
}

void ViewsContainer::setChartType(ChartType type)
{
    mSession->setChartType(type);
    mPanel->showChartType(type);
}

void ViewsContainer::slotSetCandle()
{
    setChartType(ChartType::Candle);
}

void ViewsContainer::slotSetLine()
{
    setChartType(ChartType::Line);
}

void ViewsContainer::slotSetBar()
{
    setChartType(ChartType::Bar);
}

void ViewsContainer::slotSetEmpty()
{
    setChartType(ChartType::Empty);
}

void ViewsContainer::slotSetPosition(int position)
{
    geometry()->setFirstVisible(position);
}

void ViewsContainer::slotChangePositon()
{
    slotSetPosition(mMini->requestedPosition());
}

void ViewsContainer::slotTriggerPointerInfoMode()
{
    const bool on = !mChart->canvas()->pointerInfoMode();
    mSession->setPointerInfoMode(on);
    mPanel->showPointerMode(on);
    updateAll();
}

void ViewsContainer::slotGrid()
{
    const bool on = !mChart->canvas()->hasGrid();
    mSession->setGrid(on);
    mPanel->showGrid(on);
    updateAll();
}

void ViewsContainer::setFrame(int frame)
{
    mAtEnd = true;
    mPanel->showTimeFrame(frame);
    mSession->setTimeFrame(frame);
}

void ViewsContainer::slotSetDayFrameMode()
{
    setFrame(OrdaneData::Day);
}

void ViewsContainer::slotSetWeekFrameMode()
{
    setFrame(OrdaneData::Week);
}

void ViewsContainer::slotSetMonthFrameMode()
{
    setFrame(OrdaneData::Month);
}

void ViewsContainer::slotSetQuartalFrameMode()
{
    setFrame(OrdaneData::Quarter);
}

void ViewsContainer::slotSetYearFrameMode()
{
    setFrame(OrdaneData::Year);
}

void ViewsContainer::setSeparators(SeparatorMode mode)
{
    mSession->setSeparatorMode(mode);
    mPanel->showSeparatorMode(mode);
    updateAll();
}

void ViewsContainer::slotNonSeparatorMode()
{
    setSeparators(SeparatorMode::None);
}

void ViewsContainer::slotWeekSeparatorMode()
{
    setSeparators(SeparatorMode::Week);
}

void ViewsContainer::slotMonthSeparatorMode()
{
    setSeparators(SeparatorMode::Month);
}

void ViewsContainer::slotQuartalSeparatorMode()
{
    setSeparators(SeparatorMode::Quarter);
}

void ViewsContainer::slotYearSeparatorMode()
{
    setSeparators(SeparatorMode::Year);
}

void ViewsContainer::reportUnknown(const QStringList &ids)
{
    if (!ids.isEmpty())
        emit message(tr("Unknown indicator: %1").arg(ids.join(QStringLiteral(", "))));
}

void ViewsContainer::addIndicators(ViewCanvas *canvas, const QStringList &ids)
{
    QStringList unknown;
    bool panes = false;
    for (const QString &id : ids) {
        ViewCanvas *target = canvas ? canvas : mSession->addPane();
        ComputedLayer *indicator = mSession->addIndicator(target, id, !canvas);
        if (!indicator)
            unknown << id;
        const bool failed = indicator && indicator->hasFailed();
        if (failed)
            mSession->removeIndicator(target, indicator);
        if (!canvas && (!indicator || failed))
            mSession->removePane(target);
        panes = panes || !canvas;
    }
    if (panes)
        sharePaneHeights();
    reportUnknown(unknown);
    updateAll();
}

void ViewsContainer::slotTriggerNewIndicatorView(const QStringList &ids)
{
    addIndicators(nullptr, ids);
}

void ViewsContainer::slotTriggerChartIndicators(const QStringList &ids)
{
    addIndicators(mChart->canvas(), ids);
}

void ViewsContainer::debugScript(const QString &file, bool expert, bool onChart)
{
    if (!QFileInfo(file).isFile()) {
        QMessageBox::warning(this, tr("Debugger"), tr("Can not find the script %1").arg(file));
        return;
    }
    ViewCanvas *canvas = onChart ? mChart->canvas() : mSession->addPane();
    ComputedLayer *script = IndicatorSource::installed().createScript(file, expert, canvas);
    if (!script) {
        if (!onChart)
            mSession->removePane(canvas);
        return;
    }
    IndicatorEditor::installed().attachDebugger(script);
    mSession->install(canvas, script, !onChart);
    if (!onChart)
        sharePaneHeights();
    updateAll();
}

void ViewsContainer::slotDebugIndicator(const QString &name, const QString &file)
{
    Q_UNUSED(name) // the script names itself after its file
    debugScript(file, false, false);
}

void ViewsContainer::slotDebugChartIndicator(const QString &name, const QString &file)
{
    Q_UNUSED(name)
    debugScript(file, false, true);
}

void ViewsContainer::slotDebugExpert(const QString &name, const QString &file)
{
    Q_UNUSED(name)
    debugScript(file, true, false);
}

void ViewsContainer::slotDebugChartExpert(const QString &name, const QString &file)
{
    Q_UNUSED(name)
    debugScript(file, true, true);
}

void ViewsContainer::sharePaneHeights()
{
    // The chart keeps at least half the height; the panes share the rest.
    const int panes = views().size() - 1;
    if (panes < 1)
        return;
    const int total = std::max(mSplitter->height(), 300);
    const int pane = std::min(total / 2 / panes, 160);
    const QList<View *> shown = views();
    QList<int> sizes;
    for (int i = 0; i < mSplitter->count(); ++i)
        sizes << (shown.contains(qobject_cast<View *>(mSplitter->widget(i))) ? pane : 0);
    sizes[0] = total - pane * panes;
    mSplitter->setSizes(sizes);
}

ChartTemplate ViewsContainer::currentTemplate() const
{
    ChartTemplate t = OrdaneView::currentTemplate(*mSession);
    for (View *v : views())
        t.splitter << mSplitter->sizes().at(mSplitter->indexOf(v));
    return t;
}

QStringList ViewsContainer::applyTemplate(const ChartTemplate &t)
{
    const QStringList unknown = OrdaneView::applyTemplate(*mSession, t);
    mPanel->showChartType(mSession->chartType());
    mPanel->showTimeFrame(mSession->timeFrame());

    // Heights where the template gives them; the rest keep what the splitter gives them.
    const QList<View *> shown = views();
    if (t.splitter.size() < shown.size())
        sharePaneHeights();
    QList<int> sizes = mSplitter->sizes();
    for (int i = 0; i < shown.size() && i < t.splitter.size(); ++i)
        sizes[mSplitter->indexOf(shown.at(i))] = std::max(t.splitter.at(i), 20);
    mSplitter->setSizes(sizes);

    followEnd();
    return unknown;
}

void ViewsContainer::slotSetCandlePatternRequirments(const QList<CandlePattern::Pattern> &patterns)
{
    mChart->slotSetCandlePatternRequirments(patterns);
}

void ViewsContainer::slotSetCandlePatternStrength(int mask)
{
    mChart->slotSetCandlePatternStrength(mask);
}

void ViewsContainer::slotSetCandlePatternBlending(bool on)
{
    mChart->slotSetCandlePatternBlending(on);
}

void ViewsContainer::slotShowCandlePatterns(bool on)
{
    mChart->slotShowCandlePatterns(on);
}

QString ViewsContainer::templatesFolder()
{
    return OrdaneData::Home::path() + QStringLiteral("/Templates");
}

bool ViewsContainer::saveTemplate(const QString &path, QString *error) const
{
    return writeTemplateFile(path, currentTemplate(), error);
}

bool ViewsContainer::slotSetTemplate(const QString &path)
{
    ChartTemplate t;
    QString error;
    if (!readTemplateFile(path, &t, &error)) {
        // The reader's error already leads with the path.
        QMessageBox::warning(this, tr("Load Template"),
                             tr("The template could not be read: %1").arg(error));
        return false;
    }
    const QStringList unknown = applyTemplate(t);
    emit templateChanged();
    // After templateChanged(), so that the note is what the status bar keeps.
    reportLeftOut(unknown);
    return true;
}

void ViewsContainer::reportLeftOut(const QStringList &unknown)
{
    if (!unknown.isEmpty())
        emit message(tr("Unknown indicators left out: %1").arg(unknown.join(QStringLiteral(", "))));
}

void ViewsContainer::slotLoadTemplate()
{
    QDir().mkpath(templatesFolder());
    const QString path = QFileDialog::getOpenFileName(this, tr("Load Template"), templatesFolder(),
                                                      tr("Chart templates (*.tt)"));
    if (!path.isEmpty())
        slotSetTemplate(path);
}

void ViewsContainer::slotSaveTemplate()
{
    QDir().mkpath(templatesFolder());
    QString path = QFileDialog::getSaveFileName(this, tr("Save Template"), templatesFolder(),
                                                tr("Chart templates (*.tt)"));
    if (path.isEmpty())
        return;
    if (!path.endsWith(QLatin1String(".tt")))
        path += QStringLiteral(".tt");
    QString error;
    if (!saveTemplate(path, &error))
        QMessageBox::warning(this, tr("Save Template"),
                             tr("The template could not be saved: %1").arg(error));
    else
        emit message(tr("Template saved: %1").arg(QDir::toNativeSeparators(path)));
}

QImage ViewsContainer::picture()
{
    return mChartArea->grab().toImage();
}

bool ViewsContainer::savePicture(const QString &path, QString *error)
{
    return ChartExport::savePicture(picture(), path, error);
}

bool ViewsContainer::saveCsv(const QString &path, QString *error)
{
    return ChartExport::saveCsv(reader(), path, error);
}

void ViewsContainer::slotTakePicture()
{
    const OrdaneData::ReaderH series = reader();
    ChartExport(this).askAndSavePicture(picture(), series.isNull() ? QStringLiteral("chart")
                                                                   : series->symbol());
}

void ViewsContainer::slotSaveCsv()
{
    ChartExport(this).askAndSaveCsv(reader());
}

void ViewsContainer::slotDraw(DrawObject::Type type)
{
    mChart->drawingTool()->setDrawMode(type);
    mChart->setFocus();
}

void ViewsContainer::showViewSettings()
{
    QDialog dialog(this);
    dialog.setWindowTitle(tr("Chart Colours"));
    auto *settings = new ViewSettings(&dialog);
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, &dialog);
    connect(buttons, &QDialogButtonBox::accepted, settings, &ViewSettings::slotApply);
    connect(buttons, &QDialogButtonBox::accepted, &dialog, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, &dialog, &QDialog::reject);
    connect(settings, &ViewSettings::applied, this, &ViewsContainer::slotUpdate);
    auto *layout = new QVBoxLayout(&dialog);
    layout->addWidget(settings);
    layout->addWidget(buttons);
    dialog.exec();
}

} // namespace OrdaneView
