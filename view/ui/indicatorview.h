#pragma once

#include "view.h"

namespace OrdaneView {

// An indicator pane beneath the price chart, showing one of the session's pane canvases;
// its first indicator is the master layer.
class IndicatorView : public View
{
    Q_OBJECT

public:
    IndicatorView(ChartSession *session, ViewCanvas *pane, QWidget *parent = nullptr);

signals:
    void dataChanged();

public slots:
    void slotReaderDataChanged();
    // The parameters of the pane's indicator.
    void slotProperties() override;
};

} // namespace OrdaneView
