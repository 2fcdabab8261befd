#include "viewscontainer.h"

#include "chartview.h"
#include "data/home.h"
#include "data/quotefile.h"
#include "data/reader.h"
#include "datetimeview.h"
#include "indicators/catalogue.h"
#include "indicators/indicatorlayer.h"
#include "indicators/script/indicatorfactory.h"
#include "indicators/script/userexpert.h"
#include "indicators/ui/scriptdebugger.h"
#include "indicatorview.h"
#include "miniview.h"
#include "scrollbarview.h"
#include "view/chartgeometry.h"
#include "view/dateaxis.h"
#include "viewoperationspanel.h"
#include "viewparameters.h"
#include "widgets/language.h"
#include "widgets/setting.h"

#include <QDialog>
#include <QDialogButtonBox>
#include <QDir>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QEvent>
#include <QFileDialog>
#include <QFileInfo>
#include <QMessageBox>
#include <QSaveFile>
#include <QSplitter>
#include <QVBoxLayout>

#include <algorithm>

namespace OrdaneView {

namespace {
const QMWidgets::Setting<QString> kLastFolder{QStringLiteral("ViewsContainer/LastFolder"),
                                              QDir::homePath()};

const char *const kFrameNames[] = {
    QT_TRANSLATE_NOOP("OrdaneView::ViewsContainer", "Daily"),
    QT_TRANSLATE_NOOP("OrdaneView::ViewsContainer", "Weekly"),
    QT_TRANSLATE_NOOP("OrdaneView::ViewsContainer", "Monthly"),
    QT_TRANSLATE_NOOP("OrdaneView::ViewsContainer", "Quarterly"),
    QT_TRANSLATE_NOOP("OrdaneView::ViewsContainer", "Yearly"),
};
} // namespace

ViewsContainer::ViewsContainer(QWidget *parent)
    : QWidget(parent)
    , mGeometry(new ChartGeometry(this))
    , mSource(new OrdaneData::StorageSource(this))
    , mPanel(new ViewOperationsPanel(this))
    , mChartArea(new QWidget(this))
    , mSplitter(new QSplitter(Qt::Vertical, mChartArea))
    , mChart(new ChartView(mGeometry, mSplitter))
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

    connect(mScroll, &ScrollBarView::valueChanged, this, &ViewsContainer::slotSetPosition);
    connect(mMini, &MiniView::positionChanged, this, &ViewsContainer::slotChangePositon);
    connect(mGeometry, &ChartGeometry::changed, this, &ViewsContainer::geometryChanged);
    connect(mGeometry, &ChartGeometry::pointerMoved, this, [this] {
        mAxis->update();
        if (mChart->canvas()->pointerInfoMode())
            for (View *v : views())
                v->update();
    });
    connect(mChart, &View::zoomRequested, this, [this](int direction) { zoom(direction > 0); });
    connect(mChart, &View::propertiesRequested, this, &ViewsContainer::showViewSettings);
    connect(mChart, &View::indicatorsChanged, this, &ViewsContainer::updateAll);
    connect(mChart, &ChartView::dataChanged, mMini, qOverload<>(&QWidget::update));
    mChart->installEventFilter(this);
    // Indicators dropped on the chart go over the prices; dropped anywhere else outside a
    // pane (the date axis, the scroll bar, the tool strip) they get a pane of their own.
    connect(mChart, &View::indicatorsDropped, this, &ViewsContainer::slotTriggerChartIndicators);
    setAcceptDrops(true);

    slotUpdate();
}

ViewsContainer::~ViewsContainer() = default;

QList<View *> ViewsContainer::views() const
{
    QList<View *> result;
    for (int i = 0; i < mSplitter->count(); ++i)
        if (auto *v = qobject_cast<View *>(mSplitter->widget(i)))
            result.append(v);
    return result;
}

int ViewsContainer::barCount() const
{
    return mReader.isNull() ? 0 : mReader->count();
}

void ViewsContainer::updateAll()
{
    for (View *v : views())
        v->update();
    mAxis->update();
    mMini->update();
    mScroll->sync(mGeometry->firstVisible(),
                  mGeometry->visibleCount(mChart->canvas()->plotWidth(), barCount()), barCount());
}

void ViewsContainer::geometryChanged()
{
    const int plot = mChart->canvas()->plotWidth();
    mAtEnd = mGeometry->firstVisible() >= mGeometry->lastPage(plot, barCount());
    updateAll();
}

void ViewsContainer::followEnd()
{
    mGeometry->setFirstVisible(mGeometry->lastPage(mChart->canvas()->plotWidth(), barCount()));
    mAtEnd = true;
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

void ViewsContainer::updateLabel()
{
    if (mReader.isNull())
        return;
    mChart->priceLayer()->setLabel(
        QStringLiteral("%1  %2").arg(mReader->symbol(), tr(kFrameNames[mFrame])));
}

void ViewsContainer::slotSetReader(OrdaneData::ReaderH reader)
{
    if (!mReader.isNull())
        disconnect(mReader.reader(), nullptr, this, nullptr);
    mReader = std::move(reader);
    // A new series is shown in the frame the chart is in.
    if (!mReader.isNull() && mReader->timeFrame() != mFrame) {
        const QSignalBlocker blocker(mReader.reader());
        mReader->setTimeFrame(mFrame);
    }
    for (View *v : views())
        v->setReader(mReader);
    if (!mReader.isNull())
        connect(mReader.reader(), &OrdaneData::Reader::dataChanged, this,
                &ViewsContainer::slotReaderDataChanged);
    mPanel->showTimeFrame(mFrame);
    updateLabel();
    recomputeIndicators();
    followEnd();
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
    if (mReader.isNull())
        return;
    QSignalBlocker blocker(mReader.reader());
    mReader->fetchSymbol(mReader->symbol());
    if (mFrame != OrdaneData::Day)
        mReader->setTimeFrame(mFrame);
    blocker.unblock();
    emit mReader->dataChanged();
}

void ViewsContainer::slotReaderDataChanged()
{
    recomputeIndicators();
    for (View *v : views())
        if (auto *chart = qobject_cast<ChartView *>(v))
            chart->slotReaderDataChanged();
        else
            v->update();
    if (mAtEnd)
        followEnd();
    else
        updateAll();
}

void ViewsContainer::zoom(bool in)
{
    const int plot = mChart->canvas()->plotWidth();
    const int end = mGeometry->firstVisible() + mGeometry->visibleCount(plot, barCount());
    const bool wasAtEnd = mAtEnd;
    QSignalBlocker blocker(mGeometry);
    if (!(in ? mGeometry->zoomIn() : mGeometry->zoomOut()))
        return;
    // Keep the newest shown bar at the right edge.
    mGeometry->setFirstVisible(end - std::max(plot, 0) / mGeometry->zoom());
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
    const ViewColors colors = ViewColors::load();
    const QLocale locale = QMWidgets::interfaceLocale();
    for (View *v : views()) {
        v->canvas()->setColors(colors);
        v->canvas()->setLocale(locale);
    }
    updateAll();
}

void ViewsContainer::slotSetCandle()
{
    mChart->slotSetCandle();
    mPanel->showChartType(ChartType::Candle);
}

void ViewsContainer::slotSetLine()
{
    mChart->slotSetLine();
    mPanel->showChartType(ChartType::Line);
}

void ViewsContainer::slotSetBar()
{
    mChart->slotSetBar();
    mPanel->showChartType(ChartType::Bar);
}

void ViewsContainer::slotSetEmpty()
{
    mChart->slotSetEmpty();
    mPanel->showChartType(ChartType::Empty);
}

void ViewsContainer::slotSetPosition(int position)
{
    mGeometry->setFirstVisible(position);
}

void ViewsContainer::slotChangePositon()
{
    slotSetPosition(mMini->requestedPosition());
}

void ViewsContainer::slotTriggerPointerInfoMode()
{
    const bool on = !mChart->canvas()->pointerInfoMode();
    for (View *v : views())
        v->canvas()->setPointerInfoMode(on);
    mPanel->showPointerMode(on);
    updateAll();
}

void ViewsContainer::slotGrid()
{
    const bool on = !mChart->canvas()->hasGrid();
    for (View *v : views())
        v->canvas()->setGrid(on);
    mPanel->showGrid(on);
    updateAll();
}

void ViewsContainer::setFrame(int frame)
{
    mFrame = frame;
    mPanel->showTimeFrame(frame);
    if (mReader.isNull())
        return;
    {
        const QSignalBlocker blocker(mReader.reader());
        mReader->setTimeFrame(frame);
    }
    updateLabel();
    mAtEnd = true;
    emit mReader->dataChanged();
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
    for (View *v : views())
        v->canvas()->setSeparatorMode(mode);
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

void ViewsContainer::adopt(View *view)
{
    ViewCanvas *from = mChart->canvas(), *to = view->canvas();
    to->setColors(from->colors());
    to->setLocale(from->locale());
    to->setGrid(from->hasGrid());
    to->setPointerInfoMode(from->pointerInfoMode());
    to->setSeparatorMode(from->separatorMode());
    view->setReader(mReader);
    connect(view, &View::zoomRequested, this, [this](int direction) { zoom(direction > 0); });
    connect(view, &View::indicatorsChanged, this, &ViewsContainer::updateAll);
    connect(view, &View::closeRequested, this, [this, view] { removeView(view); });
    connect(view, &View::indicatorsDropped, this, [this, view](const QStringList &ids) {
        QStringList unknown;
        for (const QString &id : ids)
            if (!addIndicator(view, id, false))
                unknown << id;
        if (!unknown.isEmpty())
            emit message(tr("Unknown indicator: %1").arg(unknown.join(QStringLiteral(", "))));
        updateAll();
    });
}

void ViewsContainer::removeView(View *view)
{
    if (view == mChart)
        return;
    view->hide();
    view->deleteLater();
    updateAll();
}

IndicatorLayer *ViewsContainer::addIndicator(View *view, const QString &id, bool master,
                                             const QMap<QString, float> &parameters)
{
    IndicatorLayer *indicator = createIndicator(id, mReader, view->canvas());
    if (indicator)
        install(view, indicator, master, parameters);
    return indicator;
}

void ViewsContainer::install(View *view, IndicatorLayer *indicator, bool master,
                             const QMap<QString, float> &parameters)
{
    for (auto it = parameters.cbegin(); it != parameters.cend(); ++it)
        indicator->setParameter(it.key(), it.value());
    indicator->setReader(mReader);
    view->canvas()->addLayer(indicator);
    if (master)
        view->canvas()->setMasterLayer(indicator);
    indicator->init();
    if (!mReader.isNull())
        indicator->start();
}

void ViewsContainer::debugScript(const QString &file, bool expert, bool onChart)
{
    if (!QFileInfo(file).isFile()) {
        QMessageBox::warning(this, tr("Debugger"), tr("Can not find the script %1").arg(file));
        return;
    }
    View *view = mChart;
    if (!onChart) {
        view = new IndicatorView(mGeometry);
        adopt(view);
        mSplitter->addWidget(view);
    }
    UserIndicator *script =
        expert ? new UserExpert(file, view->canvas()) : new UserIndicator(file, view->canvas());
    attachDebugger(script);
    install(view, script, !onChart);
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

View *ViewsContainer::addPane(const QList<TemplateIndicator> &indicators, QStringList *unknown)
{
    auto *view = new IndicatorView(mGeometry);
    adopt(view);
    bool any = false;
    for (const TemplateIndicator &i : indicators) {
        if (addIndicator(view, i.name, !any, i.parameters))
            any = true;
        else if (unknown)
            unknown->append(i.name);
    }
    if (!any) {
        delete view;
        return nullptr;
    }
    mSplitter->addWidget(view);
    return view;
}

void ViewsContainer::sharePaneHeights()
{
    // The chart keeps at least half the height; the panes share the rest.
    const int panes = mSplitter->count() - 1;
    if (panes < 1)
        return;
    const int total = std::max(mSplitter->height(), 300);
    const int pane = std::min(total / 2 / panes, 160);
    QList<int> sizes{total - pane * panes};
    for (int i = 0; i < panes; ++i)
        sizes << pane;
    mSplitter->setSizes(sizes);
}

void ViewsContainer::slotTriggerNewIndicatorView(const QStringList &ids)
{
    QStringList unknown;
    for (const QString &id : ids)
        addPane({TemplateIndicator{id, {}}}, &unknown);
    sharePaneHeights();
    if (!unknown.isEmpty())
        QMessageBox::warning(this, tr("Indicator"),
                             tr("Unknown indicator: %1").arg(unknown.join(QStringLiteral(", "))));
    updateAll();
}

void ViewsContainer::slotTriggerChartIndicators(const QStringList &ids)
{
    QStringList unknown;
    for (const QString &id : ids)
        if (!addIndicator(mChart, id, false))
            unknown << id;
    if (!unknown.isEmpty())
        QMessageBox::warning(this, tr("Indicator"),
                             tr("Unknown indicator: %1").arg(unknown.join(QStringLiteral(", "))));
    updateAll();
}

namespace {
QList<TemplateIndicator> describe(const QList<IndicatorLayer *> &indicators)
{
    QList<TemplateIndicator> list;
    for (const IndicatorLayer *i : indicators)
        list.append({i->name(), i->parameters()});
    return list;
}
} // namespace

ChartTemplate ViewsContainer::currentTemplate() const
{
    ChartTemplate t;
    t.timeFrame = mFrame;
    t.zoom = mGeometry->zoom();
    const ViewColors &colors = mChart->canvas()->colors();
    t.background = colors.background;
    t.type = mChart->chartType();
    t.threeD = colors.threeD;
    t.colored = mChart->canvas()->isColoured();
    t.chartIndicators = describe(mChart->indicators());
    for (View *v : views())
        if (v != mChart)
            t.panes.append(describe(v->indicators()));
    t.splitter = mSplitter->sizes();
    return t;
}

QStringList ViewsContainer::applyTemplate(const ChartTemplate &t)
{
    QStringList unknown;
    // The previous set-up goes first: its panes, and the indicators over the prices.
    for (View *v : views()) {
        if (v == mChart)
            continue;
        v->hide();
        v->setParent(nullptr);
        v->deleteLater();
    }
    for (IndicatorLayer *i : mChart->indicators()) {
        i->deinit();
        mChart->canvas()->removeLayer(i);
    }

    ViewColors colors = mChart->canvas()->colors();
    colors.background = t.background.isValid() ? t.background : colors.background;
    colors.threeD = t.threeD;
    for (View *v : views())
        v->canvas()->setColors(colors);
    mChart->canvas()->setColoured(t.colored);
    switch (t.type) {
    case ChartType::Bar:
        slotSetBar();
        break;
    case ChartType::Line:
        slotSetLine();
        break;
    case ChartType::Empty:
        slotSetEmpty();
        break;
    case ChartType::Candle:
        slotSetCandle();
        break;
    }
    {
        const QSignalBlocker blocker(mGeometry);
        mGeometry->setZoom(t.zoom);
    }
    if (t.timeFrame != mFrame || (!mReader.isNull() && mReader->timeFrame() != t.timeFrame))
        setFrame(t.timeFrame);

    for (const TemplateIndicator &i : t.chartIndicators)
        if (!addIndicator(mChart, i.name, false, i.parameters))
            unknown << i.name;
    for (const QList<TemplateIndicator> &pane : t.panes)
        addPane(pane, &unknown);

    // Heights where the template gives them; the rest keep what the splitter gives them.
    QList<int> sizes = mSplitter->sizes();
    if (t.splitter.size() < sizes.size())
        sharePaneHeights();
    sizes = mSplitter->sizes();
    for (int i = 0; i < sizes.size() && i < t.splitter.size(); ++i)
        sizes[i] = std::max(t.splitter.at(i), 20);
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
        QMessageBox::warning(
            this, tr("Load Template"),
            tr("The template %1 could not be read: %2").arg(QDir::toNativeSeparators(path), error));
        return false;
    }
    const QStringList unknown = applyTemplate(t);
    if (!unknown.isEmpty())
        emit message(tr("Unknown indicators left out: %1").arg(unknown.join(QStringLiteral(", "))));
    emit templateChanged();
    return true;
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

void ViewsContainer::recomputeIndicators()
{
    for (View *view : views()) {
        for (IndicatorLayer *indicator : view->indicators()) {
            indicator->deinit();
            indicator->init();
            if (!mReader.isNull())
                indicator->start();
        }
    }
}

QImage ViewsContainer::picture()
{
    return mChartArea->grab().toImage();
}

bool ViewsContainer::savePicture(const QString &path, QString *error)
{
    QSaveFile file(path);
    if (file.open(QIODevice::WriteOnly) && picture().save(&file, "PNG") && file.commit())
        return true;
    if (error)
        *error = file.errorString();
    return false;
}

bool ViewsContainer::saveCsv(const QString &path, QString *error)
{
    if (mReader.isNull()) {
        if (error)
            *error = tr("No chart is shown.");
        return false;
    }
    return OrdaneData::writeText(path, OrdaneData::seriesToText(*mReader), error);
}

QString ViewsContainer::lastFolder() const
{
    return kLastFolder.value();
}

void ViewsContainer::rememberFolder(const QString &path)
{
    kLastFolder.setValue(QFileInfo(path).absolutePath());
}

void ViewsContainer::slotTakePicture()
{
    const QString name = mReader.isNull() ? QStringLiteral("chart") : mReader->symbol();
    const QString path = QFileDialog::getSaveFileName(
        this, tr("Save Picture"), lastFolder() + QLatin1Char('/') + name + QStringLiteral(".png"),
        tr("PNG pictures (*.png)"));
    if (path.isEmpty())
        return;
    rememberFolder(path);
    QString error;
    if (!savePicture(path, &error))
        QMessageBox::warning(this, tr("Save Picture"),
                             tr("The picture could not be saved: %1").arg(error));
}

void ViewsContainer::slotSaveCsv()
{
    if (mReader.isNull())
        return;
    const QString path = QFileDialog::getSaveFileName(
        this, tr("Save CSV"),
        lastFolder() + QLatin1Char('/') + mReader->symbol() + QStringLiteral(".csv"),
        tr("CSV files (*.csv)"));
    if (path.isEmpty())
        return;
    rememberFolder(path);
    QString error;
    if (!saveCsv(path, &error))
        QMessageBox::warning(this, tr("Save CSV"),
                             tr("The quotes could not be saved: %1").arg(error));
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
