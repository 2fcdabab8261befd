#pragma once

#include "data/readerh.h"
#include "view/viewcanvas.h"

#include <QWidget>

class QMenu;
class QMimeData;

namespace OrdaneView {

class ChartGeometry;
class ChartSession;
class ComputedLayer;

// A view on screen: a widget that shows one canvas (its layers over the shared series and
// geometry) and turns the mouse and keys into pointer moves, scrolling and zooming.
//
// Dragging with the left button pans the chart; the wheel scrolls, with Ctrl it zooms;
// the arrow keys scroll by a bar, Page Up/Down by a screen, Home and End jump to the ends.
class View : public QWidget
{
    Q_OBJECT

public:
    // The MIME type of a drag of indicator identifiers, one per line.
    static constexpr char kIndicatorsMimeType[] = "application/x-halcyra-indicators";

    // Shows `canvas`, one of the session's (the session owns it).
    View(ChartSession *session, ViewCanvas *canvas, QWidget *parent = nullptr);
    ~View() override;

    ChartSession *session() const { return mSession; }
    ViewCanvas *canvas() const { return mCanvas; }
    ChartGeometry *geometry() const;
    // The indicators in this view's stack, bottom first.
    QList<ComputedLayer *> indicators() const;
    // The identifiers a drag from the indicator list carries; empty for any other drag.
    static QStringList droppedIndicators(const QMimeData *data);

signals:
    void drawFinished();
    // Asks the container to zoom in (1) or out (-1) for all views.
    void zoomRequested(int direction);
    // Asks the container for the settings of this view.
    void propertiesRequested();
    // An indicator was removed or its parameters changed.
    void indicatorsChanged();
    // Asks the container to take this view away.
    void closeRequested();
    // Indicators dragged from the indicator list were dropped here.
    void indicatorsDropped(const QStringList &ids);

public slots:
    void slotGrid();
    // Edits the parameters of one of the view's indicators.
    void slotIndicatorPropertyClicked();
    // Removes one of the view's indicators; an indicator pane left empty closes.
    void slotRemoveIndicatorLayer();
    void slotClose();
    virtual void slotProperties();
    void slotRefresh();

protected:
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void leaveEvent(QEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dropEvent(QDropEvent *event) override;

    // Entries a subclass adds to the context menu.
    virtual void addMenuEntries(QMenu &menu);
    void scrollBy(int bars);
    // One of the indicators, asked of the user when there are several; nullptr if none.
    ComputedLayer *chooseIndicator(const QString &title);
    // Opens the installed properties dialog of one indicator.
    void editProperties(ComputedLayer *indicator);

private:
    ChartSession *mSession;
    ViewCanvas *mCanvas;
    int mDragX = -1;
    int mDragFirst = 0;
};

} // namespace OrdaneView
