#pragma once

#include "data/readerh.h"
#include "view/charttemplate.h"
#include "view/drawobjects/drawobject.h"
#include "view/patterns/candlepattern.h"
#include "view/viewcanvas.h"

#include <QWidget>

class QSplitter;

class QTimer;

namespace OrdaneData {
class DataUpdater;
}

namespace OrdaneView {

class ChartGeometry;
class ChartSession;
class ChartView;
class DateTimeView;
class MiniView;
class ScrollBarView;
class View;
class ViewOperationsPanel;

// The chart area on screen: the tool strip, the chart view and the indicator panes beneath
// it, the date axis, the scroll bar and the mini view, all showing one chart session (the
// series, its frame, the canvases and their indicators). The container lays them out, routes
// the tool strip's commands and keeps the views in step with the session.
//
// While the chart shows the last bar it keeps showing it when the series grows, the frame
// changes or the window is resized.
//
// Failures with a file the user named (a template, a picture, a symbol without stored
// quotes) are told in a message box; indicators that cannot be made are named in message(),
// for the status bar.
class ViewsContainer : public QWidget
{
    Q_OBJECT

public:
    explicit ViewsContainer(QWidget *parent = nullptr);
    ~ViewsContainer() override;

    ChartSession *session() const { return mSession; }
    ChartGeometry *geometry() const;
    ChartView *chartView() const { return mChart; }
    ViewOperationsPanel *panel() const { return mPanel; }
    DateTimeView *dateTimeView() const { return mAxis; }
    ScrollBarView *scrollBar() const { return mScroll; }
    MiniView *miniView() const { return mMini; }
    OrdaneData::ReaderH reader() const;
    // Where charts get their series and the current price.
    OrdaneData::DataUpdater *source() const { return mSource; }
    // How often the current price is asked for while slotCpr(true) holds, in ms (60 s).
    void setPriceInterval(int ms);
    int timeFrame() const;
    // The chart first, then the panes top down.
    QList<View *> views() const;

    // The chart area (views and date axis) as a picture.
    QImage picture();
    // Write the picture as PNG, or the series in its current frame as a stored file; on
    // failure the old file stays and *error says why.
    bool savePicture(const QString &path, QString *error = nullptr);
    bool saveCsv(const QString &path, QString *error = nullptr);

    // Opens the view settings as a dialog.
    void showViewSettings();

    // The set-up of the chart area as a template, with every pane's height.
    ChartTemplate currentTemplate() const;
    // Replaces the set-up with a template's (see OrdaneView::applyTemplate) and applies the
    // heights it gives (missing ones keep the current sizes). Returns the names that are no
    // indicator; they are left out.
    QStringList applyTemplate(const ChartTemplate &t);
    // Names in message() the indicators a template had that could not be made.
    void reportLeftOut(const QStringList &unknown);
    // Writes the current set-up; on failure the old file stays and *error says why.
    bool saveTemplate(const QString &path, QString *error = nullptr) const;
    // The folder of the user's templates, "Templates" in the home folder.
    static QString templatesFolder();

signals:
    // A template was loaded.
    void templateChanged();
    // A short note for the status bar, such as the indicators that could not be made.
    void message(const QString &text);

public slots:
    void slotFetchChartData();
    void slotFetchChartData(const QString &symbol);
    void slotReaderDataChanged();
    // Asks the quote service for the shown symbol's current price and merges it into the
    // newest bar (the stored file is not touched). A failure is told in message().
    void slotUpdateCurrentPrice();
    // Asks for the current price now and then every minute while on.
    void slotCpr(bool on);
    // Whether current prices may be asked for at all (not while simulating); off also ends
    // slotCpr().
    void slotEnablePriceUpdates(bool on);
    // Shows a second series over the chart on a scale of its own; an empty handle takes it
    // away.
    void slotShowPair(OrdaneData::ReaderH pair);
    void slotTakePicture();
    void slotSaveCsv();
    void slotZoomOut();
    void slotZoomIn();
    void slotUpdate();
    void slotSetCandle();
    void slotSetLine();
    void slotSetBar();
    void slotSetEmpty();
    void slotSetPosition(int position);
    void slotTriggerPointerInfoMode();
    void slotGrid();
    void slotSetReader(OrdaneData::ReaderH reader);
    void slotSetDayFrameMode();
    void slotSetWeekFrameMode();
    void slotSetMonthFrameMode();
    void slotSetQuartalFrameMode();
    void slotSetYearFrameMode();
    // Spelled so in the interface, as is slotSetCandlePatternRequirments(); keep.
    void slotChangePositon();
    void slotNonSeparatorMode();
    void slotWeekSeparatorMode();
    void slotMonthSeparatorMode();
    void slotQuartalSeparatorMode();
    void slotYearSeparatorMode();
    // Each identifier gets a new indicator pane beneath the chart. An indicator that cannot
    // be computed (a broken script, which reports itself) leaves no pane behind.
    void slotTriggerNewIndicatorView(const QStringList &ids);
    // Each identifier is drawn over the prices, under the same rule.
    void slotTriggerChartIndicators(const QStringList &ids);
    // The candle-pattern panel's settings, for the chart's pattern marks.
    void slotSetCandlePatternRequirments(const QList<CandlePattern::Pattern> &patterns);
    void slotSetCandlePatternStrength(int mask);
    void slotSetCandlePatternBlending(bool on);
    void slotShowCandlePatterns(bool on);
    // Runs the script file `file` (an indicator, or an expert) under the debugger, in a new
    // pane or over the prices; `name` is the script's identifier. A file that cannot be read
    // is reported, as by the indicator list.
    void slotDebugIndicator(const QString &name, const QString &file);
    void slotDebugChartIndicator(const QString &name, const QString &file);
    void slotDebugExpert(const QString &name, const QString &file);
    void slotDebugChartExpert(const QString &name, const QString &file);
    // Loads the template file or resource at `path`; a file that cannot be read is
    // reported and changes nothing. Returns whether it was loaded.
    bool slotSetTemplate(const QString &path);
    // The same through the dialogs "Load Template" and "Save Template" in the templates
    // folder.
    void slotLoadTemplate();
    void slotSaveTemplate();
    // Puts the chart into drawing mode for figures of `type` (Escape on the chart leaves it).
    void slotDraw(OrdaneView::DrawObject::Type type);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dropEvent(QDropEvent *event) override;

private:
    // Views for the session's canvases.
    void paneAdded(ViewCanvas *pane);
    void paneRemoved(ViewCanvas *pane);
    void connectView(View *view);
    // Adds the indicators to `canvas` (nullptr: each in a new pane); names those that cannot
    // be made in message() and takes out again those that fail to compute.
    void addIndicators(ViewCanvas *canvas, const QStringList &ids);
    void debugScript(const QString &file, bool expert, bool onChart);
    void sharePaneHeights();
    void updateAll();
    void zoom(bool in);
    void setFrame(int frame);
    void setSeparators(SeparatorMode mode);
    void setChartType(ChartType type);
    void geometryChanged();
    void seriesChanged();
    void followEnd();
    int plotWidth() const;
    void reportUnknown(const QStringList &ids);

    ChartSession *mSession;
    OrdaneData::DataUpdater *mSource;
    QTimer *mPriceTimer;
    bool mPriceUpdates = true;
    bool mAtEnd = true;

    ViewOperationsPanel *mPanel;
    QWidget *mChartArea;
    QSplitter *mSplitter;
    ChartView *mChart;
    DateTimeView *mAxis;
    ScrollBarView *mScroll;
    MiniView *mMini;
};

} // namespace OrdaneView
