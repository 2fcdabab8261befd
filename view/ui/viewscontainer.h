#pragma once

#include "data/quotesource.h"
#include "data/readerh.h"
#include "indicators/patterns/candlepattern.h"
#include "view/charttemplate.h"
#include "view/viewcanvas.h"

#include <QWidget>

class QSplitter;

namespace OrdaneView {

class ChartGeometry;
class ChartView;
class IndicatorLayer;
class DateTimeView;
class MiniView;
class ScrollBarView;
class View;
class ViewOperationsPanel;

// The chart area: the tool strip, the chart view (and, beneath it, indicator views), the
// date axis, the scroll bar and the mini view, all over one series and one geometry.
//
// While the chart shows the last bar it keeps showing it when the series grows, the frame
// changes or the window is resized.
class ViewsContainer : public QWidget
{
    Q_OBJECT

public:
    explicit ViewsContainer(QWidget *parent = nullptr);
    ~ViewsContainer() override;

    ChartGeometry *geometry() const { return mGeometry; }
    ChartView *chartView() const { return mChart; }
    ViewOperationsPanel *panel() const { return mPanel; }
    DateTimeView *dateTimeView() const { return mAxis; }
    ScrollBarView *scrollBar() const { return mScroll; }
    MiniView *miniView() const { return mMini; }
    OrdaneData::ReaderH reader() const { return mReader; }
    int timeFrame() const { return mFrame; }

    // The chart area (views and date axis) as a picture.
    QImage picture();
    // Write the picture as PNG, or the series in its current frame as a stored file; on
    // failure the old file stays and *error says why.
    bool savePicture(const QString &path, QString *error = nullptr);
    bool saveCsv(const QString &path, QString *error = nullptr);

    // Opens the view settings as a dialog.
    void showViewSettings();

    // The set-up of the chart area as a template: frame, zoom, background, the price chart
    // with its overlays, the panes with their indicators and every pane's height.
    ChartTemplate currentTemplate() const;
    // Replaces the set-up with a template's: the panes shown before are removed, the
    // indicators are created with the template's parameters, the heights applied where
    // given (missing ones keep the current sizes). Returns the names that are no
    // indicator; they are left out.
    QStringList applyTemplate(const ChartTemplate &t);
    // Writes the current set-up; on failure the old file stays and *error says why.
    bool saveTemplate(const QString &path, QString *error = nullptr) const;
    // The folder of the user's templates, "Templates" in the home folder.
    static QString templatesFolder();

signals:
    // A template was loaded.
    void templateChanged();
    // A short note for the status bar, such as the indicators a template named in vain.
    void message(const QString &text);

public slots:
    void slotFetchChartData();
    void slotFetchChartData(const QString &symbol);
    void slotReaderDataChanged();
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
    void slotChangePositon();
    void slotNonSeparatorMode();
    void slotWeekSeparatorMode();
    void slotMonthSeparatorMode();
    void slotQuartalSeparatorMode();
    void slotYearSeparatorMode();
    // Each identifier gets a new indicator pane beneath the chart.
    void slotTriggerNewIndicatorView(const QStringList &ids);
    // Each identifier is drawn over the prices.
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

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dropEvent(QDropEvent *event) override;

public:
    QList<View *> views() const;

private:
    // Gives a new view the container's series and current look.
    void adopt(View *view);
    void removeView(View *view);
    // init() and start() of every indicator: after the series or its frame changed.
    void recomputeIndicators();
    // Creates indicator `id` with these parameters over the defaults; none for an unknown
    // identifier.
    IndicatorLayer *addIndicator(View *view, const QString &id, bool master,
                                 const QMap<QString, float> &parameters = {});
    // Puts a new indicator made for `view` into it, sets the parameters and computes it.
    void install(View *view, IndicatorLayer *indicator, bool master,
                 const QMap<QString, float> &parameters = {});
    // A script from `file` under the debugger, in a new pane or on the chart.
    void debugScript(const QString &file, bool expert, bool onChart);
    // A new pane beneath the others holding these indicators, the first as its master;
    // none when not one of them could be made (their names are added to *unknown).
    View *addPane(const QList<TemplateIndicator> &indicators, QStringList *unknown);
    void sharePaneHeights();
    void updateAll();
    void zoom(bool in);
    void setFrame(int frame);
    void setSeparators(SeparatorMode mode);
    void geometryChanged();
    void followEnd();
    void updateLabel();
    int barCount() const;
    QString lastFolder() const;
    void rememberFolder(const QString &path);

    ChartGeometry *mGeometry;
    OrdaneData::StorageSource *mSource;
    OrdaneData::ReaderH mReader;
    int mFrame = 0;
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
