#pragma once

#include <QWidget>

namespace OrdaneView {

class ViewCanvas;

// The date axis under the views; it labels the bars of the chart view's canvas.
class DateTimeView : public QWidget
{
    Q_OBJECT

public:
    explicit DateTimeView(ViewCanvas *chart, QWidget *parent = nullptr);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    ViewCanvas *mChart;
};

} // namespace OrdaneView
