#pragma once

#include "indicatorbuffer.h"
#include "view/computedlayer.h"

#include <QMap>
#include <QPair>

namespace OrdaneView {

struct IndicatorEntry;

// An indicator: named parameters, named buffers computed from the series, and the painting
// of those buffers as lines, histograms or points. The first indicator of a pane is its
// master layer and fits the pane's range to everything the pane draws (see fitRange());
// over the price chart an indicator follows the price layer's range.
//
// Painting enters through draw(), which hands over to drawIndicator() (an indicator shows
// no price box of its own).
class IndicatorLayer : public ComputedLayer
{
    Q_OBJECT

public:
    explicit IndicatorLayer(ViewCanvas *view, QObject *parent = nullptr);
    ~IndicatorLayer() override;

    // Sets the label from the parameters and prepares the buffers.
    void init() override;
    // Computes every buffer from the series.
    void start() override;
    void deinit() override;
    // Paints the buffers, the scale (when master) and any extras.
    virtual void drawIndicator(QPainter &painter);
    // The identifier, such as "RSI".
    QString name() const override;
    // Search of parameter values against past data; most indicators have none.
    virtual void calibrate();
    // A trading simulation with the current parameters; most indicators have none.
    virtual void simulate();

    void draw(QPainter &painter, int plotWidth) override;
    // Labels chosen for the range: plain decimals, or Tsd., Mio. and Bio. for large values.
    void drawScale(QPainter &painter) override;

    Q_INVOKABLE int firstVisiblePosition() const;
    // A copy of a buffer's data; empty for an unknown name.
    Q_INVOKABLE QVector<float> bufferData(const QString &name) const;
    QMap<QString, IndicatorBuffer> &buffers() { return mBuffers; }
    const QMap<QString, IndicatorBuffer> &buffers() const { return mBuffers; }
    QMap<int, QColor> &barColours() { return mBarColours; }
    QString fullName() const { return mFullName; }
    void setFullName(const QString &name) { mFullName = name; }

    // Horizontal level lines at values, in colours given as colour text.
    void addLevel(float value, const QString &colour);
    void removeAllLevels() { mLevels.clear(); }
    const QList<QPair<float, QString>> &levels() const { return mLevels; }

    // Fits the range before painting. The master of a pane spans every finite value of every
    // visible, non-empty buffer of every indicator in its view over the visible bars, so
    // that no line of the pane is cut off; undefined and infinite values do not count, and
    // with none left the range is 0 .. 0. Any other layer takes the master's range.
    void fitRange();
    // Paints every visible, non-empty buffer in name order.
    void paintBuffers(QPainter &painter);
    // A scale label for a value in a range whose tick step is `step`.
    static QString scaleLabel(double value, double step);

signals:
    void progress(int percent);

protected:
    int plotWidthOf() const { return width() - rightMarginWidth(); }

private:
    QMap<QString, IndicatorBuffer> mBuffers;
    QMap<int, QColor> mBarColours;
    QString mFullName;
    QList<QPair<float, QString>> mLevels;
};

// A built-in indicator, made from its catalogue row.
class BuiltinIndicator : public IndicatorLayer
{
    Q_OBJECT

public:
    BuiltinIndicator(const IndicatorEntry &entry, ViewCanvas *view, QObject *parent = nullptr);

    const IndicatorEntry &entry() const { return mEntry; }
    // The label for the current parameters, such as "RSI(7,70,30)".
    QString makeLabel() const;

    void init() override;
    void start() override;
    void drawIndicator(QPainter &painter) override;
    QString name() const override;

private:
    // An indicator without buffers that colours bars (bull and bear bars) redraws those
    // bars over the prices in their colours.
    void paintColouredBars(QPainter &painter);

    const IndicatorEntry &mEntry;
};

} // namespace OrdaneView
