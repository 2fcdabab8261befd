#include "chartsession.h"

#include "candlespatternlayer.h"
#include "chartgeometry.h"
#include "computedlayer.h"
#include "data/reader.h"
#include "drawobjects/drawobjectslayer.h"
#include "indicatorsource.h"
#include "pairlayer.h"

#include <QCoreApplication>

namespace OrdaneView {

namespace {
const char *const kFrameNames[] = {
    QT_TRANSLATE_NOOP("OrdaneView::ChartSession", "Daily"),
    QT_TRANSLATE_NOOP("OrdaneView::ChartSession", "Weekly"),
    QT_TRANSLATE_NOOP("OrdaneView::ChartSession", "Monthly"),
    QT_TRANSLATE_NOOP("OrdaneView::ChartSession", "Quarterly"),
    QT_TRANSLATE_NOOP("OrdaneView::ChartSession", "Yearly"),
};
} // namespace

ChartSession::ChartSession(QObject *parent)
    : QObject(parent)
    , mGeometry(new ChartGeometry(this))
    , mChart(new ViewCanvas(mGeometry, this))
{
    mPrice = createPriceLayer(mType, mChart);
    mChart->addLayer(mPrice);
    mChart->setMasterLayer(mPrice);
    mPatterns = new CandlesPatternLayer(mChart);
    mChart->addLayer(mPatterns);
    mDrawings = new DrawObjectsLayer(mChart);
    mChart->addLayer(mDrawings);
}

ChartSession::~ChartSession() = default;

int ChartSession::barCount() const
{
    return mReader.isNull() ? 0 : mReader->count();
}

QList<ViewCanvas *> ChartSession::canvases() const
{
    return QList<ViewCanvas *>{mChart} + mPanes;
}

void ChartSession::apply(const std::function<void(ViewCanvas *)> &change)
{
    change(mChart);
    for (ViewCanvas *pane : qAsConst(mPanes))
        change(pane);
}

void ChartSession::setReader(OrdaneData::ReaderH reader)
{
    if (!mReader.isNull())
        disconnect(mReader.reader(), nullptr, this, nullptr);
    mReader = std::move(reader);
    // A new series is shown in the frame the chart is in.
    if (!mReader.isNull() && mReader->timeFrame() != mFrame) {
        const QSignalBlocker blocker(mReader.reader());
        mReader->setTimeFrame(mFrame);
    }
    apply([this](ViewCanvas *canvas) { canvas->setReader(mReader); });
    if (!mReader.isNull())
        connect(mReader.reader(), &OrdaneData::Reader::dataChanged, this,
                &ChartSession::seriesDataChanged);
    updateLabel();
    seriesDataChanged();
}

void ChartSession::setTimeFrame(int frame)
{
    mFrame = frame;
    if (mReader.isNull())
        return;
    {
        const QSignalBlocker blocker(mReader.reader());
        mReader->setTimeFrame(frame);
    }
    updateLabel();
    emit mReader->dataChanged();
}

void ChartSession::reload()
{
    // The source loads the daily bars (after bringing them up to date, when it downloads)
    // and announces them with dataChanged(), which puts them back into the chart's frame.
    if (!mReader.isNull())
        mReader->fetchSymbol(mReader->symbol());
}

void ChartSession::seriesDataChanged()
{
    // A load gives daily bars, whatever frame the chart is in.
    if (!mReader.isNull() && mReader->timeFrame() != mFrame) {
        const QSignalBlocker blocker(mReader.reader());
        mReader->setTimeFrame(mFrame);
        updateLabel();
    }
    recompute();
    emit seriesChanged();
}

void ChartSession::updateLabel()
{
    if (mReader.isNull())
        return;
    const int frame = qBound(0, mFrame, int(std::size(kFrameNames)) - 1);
    mPrice->setLabel(QStringLiteral("%1  %2").arg(
        mReader->symbol(),
        QCoreApplication::translate("OrdaneView::ChartSession", kFrameNames[frame])));
}

ViewCanvas *ChartSession::addPane()
{
    auto *pane = new ViewCanvas(mGeometry, this);
    pane->setColors(mChart->colors());
    pane->setLocale(mChart->locale());
    pane->setGrid(mChart->hasGrid());
    pane->setPointerInfoMode(mChart->pointerInfoMode());
    pane->setSeparatorMode(mChart->separatorMode());
    pane->setReader(mReader);
    mPanes.append(pane);
    emit paneAdded(pane);
    return pane;
}

void ChartSession::removePane(ViewCanvas *pane)
{
    if (!mPanes.removeOne(pane))
        return;
    emit paneRemoved(pane);
    pane->deleteLater();
}

void ChartSession::removeAllPanes()
{
    while (!mPanes.isEmpty())
        removePane(mPanes.constLast());
}

void ChartSession::setChartType(ChartType type)
{
    if (type == mType)
        return;
    Layer *layer = createPriceLayer(type, mChart);
    layer->setLabel(mPrice->label());
    mChart->replaceLayer(mPrice, layer);
    mPrice = layer;
    mType = type;
    emit chartTypeChanged(type);
}

void ChartSession::setPair(const OrdaneData::ReaderH &pair)
{
    if (mPair)
        mChart->removeLayer(mPair);
    mPair = nullptr;
    if (pair.isNull())
        return;
    mPair = new PairLayer(pair, mChart);
    // Just above the prices, beneath the pattern marks and the indicators.
    mChart->insertLayer(mChart->layers().indexOf(mPrice) + 1, mPair);
}

void ChartSession::setColors(const ViewColors &scheme, const QColor &background)
{
    mScheme = scheme;
    mBackground = background;
    const ViewColors colors = background.isValid() ? scheme.onBackground(background) : scheme;
    apply([&colors](ViewCanvas *canvas) { canvas->setColors(colors); });
}

void ChartSession::setLocale(const QLocale &locale)
{
    apply([&locale](ViewCanvas *canvas) { canvas->setLocale(locale); });
}

void ChartSession::setGrid(bool on)
{
    apply([on](ViewCanvas *canvas) { canvas->setGrid(on); });
}

void ChartSession::setPointerInfoMode(bool on)
{
    apply([on](ViewCanvas *canvas) { canvas->setPointerInfoMode(on); });
}

void ChartSession::setSeparatorMode(SeparatorMode mode)
{
    apply([mode](ViewCanvas *canvas) { canvas->setSeparatorMode(mode); });
}

void ChartSession::setColoured(bool on)
{
    mChart->setColoured(on);
}

ComputedLayer *ChartSession::addIndicator(ViewCanvas *canvas, const QString &id, bool master,
                                          const QMap<QString, float> &parameters)
{
    ComputedLayer *indicator = IndicatorSource::installed().createIndicator(id, canvas);
    if (indicator)
        install(canvas, indicator, master, parameters);
    return indicator;
}

void ChartSession::install(ViewCanvas *canvas, ComputedLayer *indicator, bool master,
                           const QMap<QString, float> &parameters)
{
    for (auto it = parameters.cbegin(); it != parameters.cend(); ++it)
        indicator->setParameter(it.key(), it.value());
    if (canvas == mChart)
        canvas->insertLayer(canvas->layers().indexOf(mDrawings), indicator);
    else
        canvas->addLayer(indicator);
    if (master)
        canvas->setMasterLayer(indicator);
    indicator->init();
    if (!mReader.isNull())
        indicator->start();
}

bool ChartSession::removeIndicator(ViewCanvas *canvas, ComputedLayer *indicator)
{
    const bool wasMaster = canvas->masterLayer() == indicator;
    indicator->deinit();
    canvas->removeLayer(indicator);
    const QList<ComputedLayer *> left = canvas->indicators();
    if (wasMaster && !left.isEmpty())
        canvas->setMasterLayer(left.constFirst());
    return canvas != mChart && left.isEmpty();
}

void ChartSession::removeChartIndicators()
{
    for (ComputedLayer *indicator : mChart->indicators()) {
        indicator->deinit();
        mChart->removeLayer(indicator);
    }
}

void ChartSession::recompute()
{
    for (ViewCanvas *canvas : canvases()) {
        for (ComputedLayer *indicator : canvas->indicators()) {
            indicator->deinit();
            indicator->init();
            if (!mReader.isNull())
                indicator->start();
        }
    }
}

} // namespace OrdaneView
