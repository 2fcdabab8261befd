#pragma once

#include "data/readerh.h"
#include "viewcolors.h"

#include <QFont>
#include <QList>
#include <QLocale>
#include <QObject>
#include <QSize>

class QPainter;

namespace OrdaneView {

class ChartGeometry;
class ComputedLayer;
class GridLayer;
class Layer;

enum class SeparatorMode { None, Week, Month, Quarter, Year };

// The drawing state of one view, without any widget: the layer stack over one series,
// the shared chart geometry, colours, fonts, the pointer-info and separator modes. It
// paints onto any painter, so the same picture appears on screen, in an image file and
// in tests.
class ViewCanvas : public QObject
{
    Q_OBJECT

public:
    // Width of the value scale strip at the right edge.
    static constexpr int kRightMargin = 58;

    explicit ViewCanvas(ChartGeometry *geometry, QObject *parent = nullptr);
    ~ViewCanvas() override;

    ChartGeometry *geometry() const { return mGeometry; }

    OrdaneData::ReaderH reader() const { return mReader; }
    // Hands the series to every layer.
    void setReader(const OrdaneData::ReaderH &reader);

    // The stack, bottom first. The canvas owns its layers.
    const QList<Layer *> &layers() const { return mLayers; }
    void addLayer(Layer *layer);
    void insertLayer(int index, Layer *layer);
    // Deletes the layer; returns false when it is not in the stack.
    bool removeLayer(Layer *layer);
    // Puts `layer` in the place of `old` (deleted), keeping its stack position.
    void replaceLayer(Layer *old, Layer *layer);

    // The indicators in the stack, bottom first.
    QList<ComputedLayer *> indicators() const;

    Layer *masterLayer() const { return mMaster; }
    void setMasterLayer(Layer *layer) { mMaster = layer; }

    // A grid layer at the bottom of the stack, or none.
    bool hasGrid() const { return mGrid != nullptr; }
    void setGrid(bool on);

    const ViewColors &colors() const { return mColors; }
    void setColors(const ViewColors &colors) { mColors = colors; }
    QFont font() const { return mFont; }
    QFont scaleFont() const { return mScaleFont; }
    QLocale locale() const { return mLocale; }
    void setLocale(const QLocale &locale) { mLocale = locale; }

    // Coloured price bars: rising and falling bars in their colours. Otherwise the prices are
    // drawn in the line colour alone, rising candles hollow and falling ones filled.
    bool isColoured() const { return mColoured; }
    void setColoured(bool on) { mColoured = on; }

    bool pointerInfoMode() const { return mPointerInfo; }
    void setPointerInfoMode(bool on) { mPointerInfo = on; }
    SeparatorMode separatorMode() const { return mSeparators; }
    void setSeparatorMode(SeparatorMode mode) { mSeparators = mode; }

    QSize size() const { return mSize; }
    void setSize(const QSize &size) { mSize = size; }
    int plotWidth() const { return mSize.width() - kRightMargin; }

    // Paints the whole view into the rectangle (0, 0, size()): background, scale strip,
    // separators, the layers in stack order, their labels and, in pointer-info mode, the
    // pointer line. A layer that meets no series is left out. Emits drawFinished().
    void paint(QPainter &painter);

signals:
    void drawFinished();

private:
    void paintSeparators(QPainter &painter);
    void paintLabels(QPainter &painter);

    ChartGeometry *mGeometry;
    OrdaneData::ReaderH mReader;
    QList<Layer *> mLayers;
    bool mColoured = true;
    Layer *mMaster = nullptr;
    GridLayer *mGrid = nullptr;
    ViewColors mColors;
    QFont mFont;
    QFont mScaleFont;
    QLocale mLocale;
    bool mPointerInfo = false;
    SeparatorMode mSeparators = SeparatorMode::None;
    QSize mSize;
};

} // namespace OrdaneView
