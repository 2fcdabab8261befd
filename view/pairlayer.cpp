#include "pairlayer.h"

#include "chartgeometry.h"
#include "data/reader.h"
#include "viewcanvas.h"

#include <QPainter>
#include <QPainterPath>

#include <cmath>
#include <limits>

namespace OrdaneView {

PairLayer::PairLayer(const OrdaneData::ReaderH &pair, ViewCanvas *view, QObject *parent)
    : Layer(view, parent)
    , mPair(pair)
{
    if (!mPair.isNull()) {
        setLabel(tr("Pair: %1").arg(mPair->symbol()));
        connect(mPair.reader(), &OrdaneData::Reader::dataChanged, this, &PairLayer::realign);
    }
}

QColor PairLayer::colour()
{
    return QColor(255, 165, 0);
}

void PairLayer::setReader(OrdaneData::ReaderH reader)
{
    if (!this->reader().isNull())
        disconnect(this->reader().reader(), nullptr, this, nullptr);
    Layer::setReader(reader);
    if (!reader.isNull()) {
        // The pair is shown in the chart's frame.
        if (!mPair.isNull() && mPair->timeFrame() != reader->timeFrame()) {
            const QSignalBlocker blocker(mPair.reader());
            mPair->setTimeFrame(reader->timeFrame());
        }
        connect(reader.reader(), &OrdaneData::Reader::dataChanged, this, [this] {
            if (!mPair.isNull() && mPair->timeFrame() != this->reader()->timeFrame()) {
                const QSignalBlocker blocker(mPair.reader());
                mPair->setTimeFrame(this->reader()->timeFrame());
            }
            realign();
        });
    }
    realign();
}

void PairLayer::realign()
{
    mAligned.clear();
    if (reader().isNull() || mPair.isNull())
        return;
    const QVector<QuoteBar> &bars = reader()->bars();
    const QVector<QuoteBar> &other = mPair->bars();
    mAligned.fill(std::numeric_limits<float>::quiet_NaN(), bars.size());
    // Both series are oldest first: one walk through each.
    int j = -1;
    for (int i = 0; i < bars.size(); ++i) {
        while (j + 1 < other.size() && other.at(j + 1).date() <= bars.at(i).date())
            ++j;
        if (j >= 0)
            mAligned[i] = other.at(j).close();
    }
}

QVector<float> PairLayer::alignedCloses() const
{
    return mAligned;
}

void PairLayer::draw(QPainter &painter, int plotWidth)
{
    ViewCanvas *canvas = view();
    if (!canvas || mAligned.isEmpty())
        return;
    const int first = firstVisible();
    const int n = canvas->geometry()->visibleCount(plotWidth, mAligned.size());
    float lo = std::numeric_limits<float>::infinity(), hi = -lo;
    for (int k = 0; k < n; ++k) {
        const float v = mAligned.value(first + k, std::nanf(""));
        if (std::isfinite(v)) {
            lo = std::min(lo, v);
            hi = std::max(hi, v);
        }
    }
    if (!(lo <= hi))
        return;
    setMin(lo);
    setMax(hi);
    const int zoom = canvas->geometry()->zoom();
    QPainterPath path;
    bool drawing = false;
    for (int k = 0; k < n; ++k) {
        const float v = mAligned.at(first + k);
        if (!std::isfinite(v)) {
            drawing = false;
            continue;
        }
        const QPointF point(k * zoom, rowOf(v));
        if (drawing)
            path.lineTo(point);
        else
            path.moveTo(point);
        drawing = true;
    }
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(colour(), zoom > 8 ? 2 : 1.5));
    painter.drawPath(path);
    // Its own scale: the highest and lowest close shown, at the left edge.
    painter.setFont(canvas->scaleFont());
    painter.setPen(colour());
    const QFontMetrics metrics(canvas->scaleFont());
    painter.drawText(QPoint(4, row(hi) + metrics.ascent() + 1),
                     QString::number(double(hi), 'g', 6));
    painter.drawText(QPoint(4, row(lo) - 3), QString::number(double(lo), 'g', 6));
    painter.restore();
}

} // namespace OrdaneView
