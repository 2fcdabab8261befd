#pragma once

#include "data/quotesource.h"
#include "data/readerh.h"
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

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

public:
    QList<View *> views() const;

private:
    // Gives a new view the container's series and current look.
    void adopt(View *view);
    void removeView(View *view);
    // init() and start() of every indicator: after the series or its frame changed.
    void recomputeIndicators();
    IndicatorLayer *addIndicator(View *view, const QString &id, bool master);
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
