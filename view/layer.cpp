#include "layer.h"

#include "chartgeometry.h"
#include "data/reader.h"
#include "viewcanvas.h"

#include <QPainter>

#include <algorithm>
#include <cmath>

namespace OrdaneView {

Layer::Layer(ViewCanvas *view, QObject *parent)
    : QObject(parent)
    , mView(view)
{}

Layer::~Layer() = default;

void Layer::setLabel(const QString &label)
{
    mLabel = label;
}

QString Layer::label() const
{
    return mLabel;
}

void Layer::setMax(float max)
{
    mMax = max;
}

void Layer::setMin(float min)
{
    mMin = min;
}

float Layer::max() const
{
    return mMax;
}

float Layer::min() const
{
    return mMin;
}

bool Layer::isMaster() const
{
    return mView && mView->masterLayer() == this;
}

float Layer::masterMax() const
{
    const Layer *master = mView ? mView->masterLayer() : nullptr;
    return master ? master->max() : mMax;
}

float Layer::masterMin() const
{
    const Layer *master = mView ? mView->masterLayer() : nullptr;
    return master ? master->min() : mMin;
}

const QuoteBar *Layer::barOrNull(int i) const
{
    if (mReader.isNull() || i < 0 || i >= mReader->count())
        return nullptr;
    return &mReader->bar(i);
}

QDate Layer::date(int i) const
{
    const QuoteBar *b = barOrNull(i);
    return b ? b->date() : QDate();
}

QDateTime Layer::datetime(int i) const
{
    const QuoteBar *b = barOrNull(i);
    return b ? QDateTime(b->date(), QTime(0, 0)) : QDateTime();
}

float Layer::close(int i) const
{
    const QuoteBar *b = barOrNull(i);
    return b ? b->close() : 0.0f;
}

float Layer::open(int i) const
{
    const QuoteBar *b = barOrNull(i);
    return b ? b->open() : 0.0f;
}

float Layer::low(int i) const
{
    const QuoteBar *b = barOrNull(i);
    return b ? b->low() : 0.0f;
}

float Layer::high(int i) const
{
    const QuoteBar *b = barOrNull(i);
    return b ? b->high() : 0.0f;
}

qlonglong Layer::volume(int i) const
{
    const QuoteBar *b = barOrNull(i);
    return b ? b->volume() : 0;
}

float Layer::median(int i) const
{
    const QuoteBar *b = barOrNull(i);
    return b ? (b->high() + b->low()) / 2.0f : 0.0f;
}

float Layer::typical(int i) const
{
    const QuoteBar *b = barOrNull(i);
    return b ? (b->high() + b->low() + b->close()) / 3.0f : 0.0f;
}

QVector<float> Layer::column(float (*get)(const QuoteBar &)) const
{
    QVector<float> v;
    if (mReader.isNull())
        return v;
    const QVector<QuoteBar> &bars = mReader->bars();
    v.reserve(bars.size());
    for (const QuoteBar &b : bars)
        v.append(get(b));
    return v;
}

QVector<float> Layer::close() const
{
    return column([](const QuoteBar &b) { return b.close(); });
}

QVector<float> Layer::open() const
{
    return column([](const QuoteBar &b) { return b.open(); });
}

QVector<float> Layer::low() const
{
    return column([](const QuoteBar &b) { return b.low(); });
}

QVector<float> Layer::high() const
{
    return column([](const QuoteBar &b) { return b.high(); });
}

QVector<float> Layer::volume() const
{
    return column([](const QuoteBar &b) { return float(b.volume()); });
}

QVector<float> Layer::median() const
{
    return column([](const QuoteBar &b) { return (b.high() + b.low()) / 2.0f; });
}

QVector<float> Layer::typical() const
{
    return column([](const QuoteBar &b) { return (b.high() + b.low() + b.close()) / 3.0f; });
}

int Layer::numberOfVisibleQuotes() const
{
    if (mReader.isNull() || !mView)
        return 0;
    return mView->geometry()->visibleCount(mWidth - mRightMargin, mReader->count());
}

int Layer::numberOfQuotes() const
{
    return mReader.isNull() ? 0 : mReader->count();
}

int Layer::zoom() const
{
    return mView ? mView->geometry()->zoom() : ChartGeometry::kDefaultZoom;
}

int Layer::width() const
{
    return mWidth;
}

int Layer::height() const
{
    return mHeight;
}

int Layer::rightMarginWidth() const
{
    return mRightMargin;
}

void Layer::setReader(OrdaneData::ReaderH reader)
{
    mReader = std::move(reader);
}

void Layer::setGeometry(int width, int height, int rightMargin)
{
    mWidth = width;
    mHeight = height;
    mRightMargin = rightMargin;
}

double Layer::rowOf(float value) const
{
    if (mMax == mMin || !std::isfinite(mMax - mMin))
        return mHeight / 2.0;
    // In single precision, as the range and the values are held.
    return double(float(mHeight) - (value - mMin) / ((mMax - mMin) / float(mHeight)));
}

int Layer::toPixel(double row)
{
    if (!(row == row))
        return 0;
    return int(std::clamp(row, -1e6, 1e6));
}

const OrdaneData::Reader &Layer::series() const
{
    return *mReader; // throws "Null handle" on an empty handle
}

int Layer::firstVisible() const
{
    return mView ? mView->geometry()->firstVisible() : 0;
}

QString Layer::formatValue(float value) const
{
    return QString::number(double(value), 'f', scaleDecimals());
}

void Layer::drawScale(QPainter &painter)
{
    drawScaleWith(painter, 6);
}

void Layer::drawScaleWith(QPainter &painter, int decimals)
{
    drawScaleWith(painter, [decimals](double v) { return QString::number(v, 'f', decimals); });
}

void Layer::drawScaleWith(QPainter &painter, const std::function<QString(double)> &label)
{
    painter.save();
    if (mView) {
        painter.setFont(mView->scaleFont());
        painter.setPen(mView->colors().marginNumbers);
    }
    const int left = mWidth - mRightMargin;
    const QVector<Tick> ticks = scaleTicks(mMin, mMax, mHeight);
    for (const Tick &t : ticks) {
        // Labels sit 4 pixels above their tick line, the top one (max) on row 12.
        const int baseline = t.row == 1 ? 12 : (ticks.size() == 1 ? t.row + 4 : t.row - 3);
        painter.drawText(QPoint(left + 3, baseline), label(t.value));
        painter.drawLine(left, t.row, left + 4, t.row);
    }
    painter.restore();
}

QVector<Layer::Tick> Layer::scaleTicks(float min, float max, int height)
{
    QVector<Tick> ticks;
    if (min == max) {
        ticks.append({height / 2, double(min)});
        return ticks;
    }
    const double step = (max - min) / (height / 34.0);
    const int count = int(height / 34.0);
    double value = min;
    for (int k = 0; k < count; ++k, value += step)
        ticks.append({height - 34 * k - 1, value});
    ticks.append({1, double(max)});
    return ticks;
}

void Layer::drawValueLine(QPainter &painter, float value, const QColor &colour)
{
    painter.save();
    painter.setPen(colour);
    const int r = row(value);
    painter.drawLine(0, r, mWidth - mRightMargin, r);
    painter.restore();
}

void Layer::drawValueMarker(QPainter &painter, float value, const QColor &colour)
{
    drawValueLine(painter, value, colour);
    drawValueTag(painter, value, colour);
}

void Layer::highlightColour(int kind)
{
    mHighlighted = kind == 1;
}

void Layer::drawBarsLine(QPainter &painter, int bar1, int bar2, const QColor &colour)
{
    if (bar1 == bar2 || mReader.isNull())
        return;
    const int i1 = firstVisible() + bar1, i2 = firstVisible() + bar2;
    const QuoteBar *a = barOrNull(i1), *b = barOrNull(i2);
    if (!a || !b)
        return;
    const bool highs = (i2 > i1 ? b->high() < a->high() : a->high() < b->high());
    const double y1 = rowOf(highs ? a->high() : a->low());
    const double y2 = rowOf(highs ? b->high() : b->low());
    const double x1 = double(bar1) * zoom(), x2 = double(bar2) * zoom();
    const double slope = (y2 - y1) / (x2 - x1);
    const double right = mWidth - mRightMargin;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(colour, 1));
    painter.drawLine(QPointF(0, y1 - slope * x1), QPointF(right, y1 + slope * (right - x1)));
    painter.restore();
}

void Layer::drawValueTag(QPainter &painter, float value, const QColor &colour)
{
    painter.save();
    const int r = row(value);
    const int left = mWidth - mRightMargin;
    painter.fillRect(QRect(left, r - 5, mRightMargin, 12), colour);
    if (mView)
        painter.setFont(mView->scaleFont());
    painter.setPen(colour.lightnessF() > 0.55 ? Qt::black : Qt::white);
    painter.drawText(QPoint(left + 3, r + 6), formatValue(value));
    painter.restore();
}

} // namespace OrdaneView
