#pragma once

#include "chartlayer.h"
#include "data/readerh.h"
#include "viewcanvas.h"
#include "viewcolors.h"

#include <QList>
#include <QMap>
#include <QObject>

#include <functional>

namespace OrdaneView {

class CandlesPatternLayer;
class DrawObjectsLayer;
class PairLayer;
class ChartGeometry;
class ComputedLayer;

// One chart without any widget: the series in its time frame, the geometry shared by all
// canvases, the price chart's canvas (price layer, candle-pattern marks, indicators over the
// prices), the indicator panes' canvases beneath it with their indicators, the look they
// share, and the recomputation of every indicator when the series changes. The views
// container shows a session on screen; the command-line renderer paints one into a picture.
//
// The session owns its geometry and canvases. Indicators come from the installed
// IndicatorSource.
class ChartSession : public QObject
{
    Q_OBJECT

public:
    explicit ChartSession(QObject *parent = nullptr);
    ~ChartSession() override;

    ChartGeometry *geometry() const { return mGeometry; }

    // The series, or an empty handle.
    const OrdaneData::ReaderH &reader() const { return mReader; }
    int barCount() const;
    // Takes the series, shown in the session's time frame, hands it to every canvas,
    // recomputes every indicator and follows the series' dataChanged(). seriesChanged()
    // follows.
    void setReader(OrdaneData::ReaderH reader);
    // OrdaneData::Day .. Year.
    int timeFrame() const { return mFrame; }
    // Shows the series in `frame` and recomputes; seriesChanged() follows when there is a
    // series.
    void setTimeFrame(int frame);
    // Asks the series' source for the symbol again (a downloading source brings it up to
    // date first); the new bars arrive through the series' dataChanged(), in the current
    // frame.
    void reload();

    ViewCanvas *chart() const { return mChart; }
    // The indicator panes, top down.
    const QList<ViewCanvas *> &panes() const { return mPanes; }
    // The chart, then the panes.
    QList<ViewCanvas *> canvases() const;
    // A new, empty pane at the bottom with the chart's look and the series; paneAdded()
    // announces it.
    ViewCanvas *addPane();
    // Announces the pane's removal with paneRemoved(), then deletes it (later, so that a view
    // still holding it can go first). The chart cannot be removed.
    void removePane(ViewCanvas *pane);
    void removeAllPanes();

    ChartType chartType() const { return mType; }
    // Replaces the price layer by one of the given type, keeping its caption.
    void setChartType(ChartType type);
    Layer *priceLayer() const { return mPrice; }
    // A second series over the prices on a scale of its own (see PairLayer), replacing any
    // shown before; an empty handle takes it away.
    void setPair(const OrdaneData::ReaderH &pair);
    PairLayer *pairLayer() const { return mPair; }
    CandlesPatternLayer *patternLayer() const { return mPatterns; }
    // The figures drawn on the chart, at the top of its stack: indicators installed in the
    // chart go beneath it.
    DrawObjectsLayer *drawObjectsLayer() const { return mDrawings; }

    // The colours of every canvas: a scheme, and optionally a background of its own (from a
    // template). With such a background, colours that would vanish on it are made readable:
    // see ViewColors::onBackground().
    const ViewColors &colors() const { return mChart->colors(); }
    const ViewColors &scheme() const { return mScheme; }
    QColor ownBackground() const { return mBackground; }
    void setColors(const ViewColors &scheme, const QColor &background = QColor());
    void setLocale(const QLocale &locale);
    void setGrid(bool on);
    void setPointerInfoMode(bool on);
    void setSeparatorMode(SeparatorMode mode);
    // Rising and falling prices in their own colours (the chart only).
    void setColoured(bool on);

    // Creates indicator `id` in `canvas` (the chart or a pane) with `parameters` over its
    // defaults and computes it; the master of a pane fits the pane's range. nullptr when no
    // indicator has that identifier.
    ComputedLayer *addIndicator(ViewCanvas *canvas, const QString &id, bool master = false,
                                const QMap<QString, float> &parameters = {});
    // The same for an indicator already made for `canvas` (which takes it over).
    void install(ViewCanvas *canvas, ComputedLayer *indicator, bool master = false,
                 const QMap<QString, float> &parameters = {});
    // Takes an indicator out of its canvas and deletes it; the next indicator of a pane
    // becomes its master. Returns whether the canvas is a pane left without indicators.
    bool removeIndicator(ViewCanvas *canvas, ComputedLayer *indicator);
    // Every indicator over the prices goes.
    void removeChartIndicators();
    // deinit(), init() and start() of every indicator, as after a change of the series.
    void recompute();

signals:
    void paneAdded(OrdaneView::ViewCanvas *pane);
    void paneRemoved(OrdaneView::ViewCanvas *pane);
    // The series, its frame or its bars changed and the indicators were recomputed.
    void seriesChanged();
    void chartTypeChanged(OrdaneView::ChartType type);

private:
    void seriesDataChanged();
    void updateLabel();
    void apply(const std::function<void(ViewCanvas *)> &change);

    ChartGeometry *mGeometry;
    OrdaneData::ReaderH mReader;
    int mFrame = 0;
    ViewCanvas *mChart;
    QList<ViewCanvas *> mPanes;
    ChartType mType = ChartType::Candle;
    Layer *mPrice = nullptr;
    CandlesPatternLayer *mPatterns = nullptr;
    PairLayer *mPair = nullptr;
    DrawObjectsLayer *mDrawings = nullptr;
    ViewColors mScheme = ViewColors::fallback();
    QColor mBackground;
};

} // namespace OrdaneView
