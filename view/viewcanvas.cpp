#include "viewcanvas.h"

#include "chartgeometry.h"
#include "computedlayer.h"
#include "data/error.h"
#include "data/reader.h"
#include "gridlayer.h"
#include "layer.h"
#include "separators.h"

#include <QLinearGradient>
#include <QPainter>

namespace OrdaneView {

ViewCanvas::ViewCanvas(ChartGeometry *geometry, QObject *parent)
    : QObject(parent)
    , mGeometry(geometry)
    , mColors(ViewColors::fallback())
    , mFont(QStringLiteral("DejaVu Sans Condensed"))
    , mScaleFont(QStringLiteral("DejaVu Sans Condensed"))
{
    mFont.setPixelSize(10);
    mScaleFont.setPixelSize(10);
}

ViewCanvas::~ViewCanvas() = default;

void ViewCanvas::setReader(const OrdaneData::ReaderH &reader)
{
    mReader = reader;
    for (Layer *layer : qAsConst(mLayers))
        layer->setReader(reader);
}

void ViewCanvas::addLayer(Layer *layer)
{
    insertLayer(mLayers.size(), layer);
}

void ViewCanvas::insertLayer(int index, Layer *layer)
{
    layer->setParent(this);
    layer->setReader(mReader);
    mLayers.insert(index, layer);
}

bool ViewCanvas::removeLayer(Layer *layer)
{
    if (!mLayers.removeOne(layer))
        return false;
    if (mMaster == layer)
        mMaster = nullptr;
    if (mGrid == layer)
        mGrid = nullptr;
    delete layer;
    return true;
}

void ViewCanvas::replaceLayer(Layer *old, Layer *layer)
{
    const int index = mLayers.indexOf(old);
    const bool wasMaster = mMaster == old;
    removeLayer(old);
    insertLayer(index < 0 ? mLayers.size() : index, layer);
    if (wasMaster)
        mMaster = layer;
}

QList<ComputedLayer *> ViewCanvas::indicators() const
{
    QList<ComputedLayer *> list;
    for (Layer *layer : mLayers)
        if (auto *indicator = qobject_cast<ComputedLayer *>(layer))
            list.append(indicator);
    return list;
}

void ViewCanvas::setGrid(bool on)
{
    if (on == hasGrid())
        return;
    if (on) {
        mGrid = new GridLayer(this);
        insertLayer(0, mGrid);
    } else {
        removeLayer(mGrid);
    }
}

void ViewCanvas::paint(QPainter &painter)
{
    const int width = mSize.width(), height = mSize.height();
    const int plot = plotWidth();
    painter.save();
    painter.setClipRect(QRect(QPoint(0, 0), mSize));
    painter.fillRect(QRect(0, 0, plot, height), mColors.background);
    QLinearGradient strip(plot, 0, width, 0);
    strip.setColorAt(0, mColors.marginBackground);
    strip.setColorAt(1, mColors.marginBackground2);
    painter.fillRect(QRect(plot, 0, kRightMargin, height), strip);

    paintSeparators(painter);
    for (Layer *layer : qAsConst(mLayers)) {
        layer->setGeometry(width, height, kRightMargin);
        try {
            layer->draw(painter, plot);
        } catch (const MTools::Error &) {
            // No series: nothing to draw for this layer.
        }
    }
    paintLabels(painter);

    const int x = mGeometry->pointerX();
    if (mPointerInfo && x >= 0 && x < plot) {
        QColor line = mColors.label;
        line.setAlpha(110);
        painter.setPen(QPen(line, 1, Qt::DotLine));
        painter.drawLine(x, 0, x, height);
    }
    painter.restore();
    emit drawFinished();
}

void ViewCanvas::paintSeparators(QPainter &painter)
{
    if (mSeparators == SeparatorMode::None || mReader.isNull())
        return;
    const int zoom = mGeometry->zoom();
    const int n = mGeometry->visibleCount(plotWidth(), mReader->count());
    const auto marks =
        separators(mReader->bars(), mGeometry->firstVisible(), n, mSeparators, mLocale);
    if (marks.isEmpty())
        return;
    painter.save();
    QColor line = mColors.label;
    line.setAlpha(80);
    painter.setPen(QPen(line, 1, Qt::DashLine));
    for (const Separator &s : marks) {
        const int x = s.offset * zoom - zoom / 2;
        painter.drawLine(x, 0, x, mSize.height());
    }
    painter.setFont(mScaleFont);
    painter.setPen(mColors.label);
    for (const Separator &s : marks)
        if (!s.label.isEmpty())
            painter.drawText(QPoint(s.offset * zoom - zoom / 2 + 3, mSize.height() - 4), s.label);
    painter.restore();
}

void ViewCanvas::paintLabels(QPainter &painter)
{
    painter.setFont(mFont);
    painter.setPen(mColors.label);
    int y = 14;
    for (const Layer *layer : qAsConst(mLayers)) {
        const QString text = layer->label();
        if (text.isEmpty())
            continue;
        painter.drawText(QPoint(6, y), text);
        y += 14;
    }
}

} // namespace OrdaneView
