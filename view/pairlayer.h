#pragma once

#include "layer.h"

#include <QVector>

namespace OrdaneView {

// A second symbol over the chart: its closes as a line on a scale of its own (fitted to its
// visible days, with its highest and lowest close written at the left edge), matched to the
// chart's bars by date: each bar shows the pair's last close on or before its day, and
// nothing before the pair's first day. The pair follows the chart's time frame.
class PairLayer : public Layer
{
    Q_OBJECT

public:
    PairLayer(const OrdaneData::ReaderH &pair, ViewCanvas *view, QObject *parent = nullptr);

    const OrdaneData::ReaderH &pair() const { return mPair; }
    // The pair's close for each bar of the chart's series (NaN where it has none yet).
    QVector<float> alignedCloses() const;

    void setReader(OrdaneData::ReaderH reader) override;
    void draw(QPainter &painter, int plotWidth) override;

    // The colour of the pair's line and labels.
    static QColor colour();

private:
    void realign();

    OrdaneData::ReaderH mPair;
    QVector<float> mAligned;
};

} // namespace OrdaneView
