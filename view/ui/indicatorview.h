#pragma once

#include "view.h"

namespace OrdaneView {

// An indicator pane beneath the price chart; its first layer is the master layer.
class IndicatorView : public View
{
    Q_OBJECT

public:
    IndicatorView(ChartGeometry *geometry, QWidget *parent = nullptr);

signals:
    void dataChanged();

public slots:
    void slotReaderDataChanged();
    // The parameters of the pane's indicator.
    void slotProperties() override;
};

} // namespace OrdaneView
