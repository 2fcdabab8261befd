#pragma once

#include <QScrollBar>

namespace OrdaneView {

// The scroll bar under the charts. Its value is the first visible bar; it reaches from 0
// to the page that shows the last bars, and a page is the number of visible bars.
class ScrollBarView : public QScrollBar
{
    Q_OBJECT

public:
    explicit ScrollBarView(QWidget *parent = nullptr);

    // Sets range, page and value without emitting valueChanged().
    void sync(int first, int visible, int barCount);
};

} // namespace OrdaneView
