#pragma once

#include "view/chartlayer.h"
#include "view/drawobjects/drawobject.h"
#include "view/viewcanvas.h"

#include <QWidget>

class QAction;
class QToolButton;

namespace OrdaneView {

// The tool strip above the charts: one signal per button. Chart type, time frame and
// separator buttons are exclusive choices; grid and pointer information are toggles.
class ViewOperationsPanel : public QWidget
{
    Q_OBJECT

public:
    explicit ViewOperationsPanel(QWidget *parent = nullptr);

    // Shows the state of the views without emitting anything.
    void showChartType(ChartType type);
    void showTimeFrame(int frame);
    void showGrid(bool on);
    void showPointerMode(bool on);
    void showSeparatorMode(SeparatorMode mode);
    void showCpr(bool on);
    // The current-price button can be used only while price updates are enabled.
    void setCprAvailable(bool available);
    // The drawing button shows whether the chart is in drawing mode.
    void showDrawMode(bool on);

signals:
    void zoomOut();
    void zoomIn();
    void candleChart();
    void lineChart();
    void barChart();
    void emptyChart();
    void grid();
    void dayFrameMode();
    void weekFrameMode();
    void monthFrameMode();
    void quartalFrameMode();
    void yearFrameMode();
    void pointerMode();
    void noneSeparator();
    void weekSeparator();
    void monthSeparator();
    void quartalSeparator();
    void yearSeparator();
    void takePicture();
    void saveCsv();
    // The current-price button was switched on or off.
    void cpr(bool on);
    // A kind of figure was chosen from the drawing button's menu.
    void drawModeClicked(OrdaneView::DrawObject::Type type);

private:
    QToolButton *addButton(const QString &name, const QString &text, const QString &tip,
                           const char *icon = nullptr, bool checkable = false);

    QToolButton *mChartType[4];
    QToolButton *mFrame[5];
    QToolButton *mGrid;
    QToolButton *mPointer;
    QAction *mSeparator[5];
    QToolButton *mCpr;
    QToolButton *mDraw;
};

} // namespace OrdaneView
