#pragma once

#include "indicatorbuffer.h"
#include "view/computedlayer.h"

#include <QMap>
#include <QPair>

namespace OrdaneView {

struct IndicatorEntry;

// An indicator: named parameters, named buffers computed from the series, and the painting
// of those buffers as lines, histograms or points. In a pane of its own the indicator is
// the master layer and fits the range to its main buffer; over the price chart it follows
// the price layer's range.
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

    // Fits the range to the buffers over the visible bars when master, otherwise takes the
    // master's range.
    void fitRange(const QString &buffer) { fitRange(QStringList{buffer}); }
    void fitRange(const QStringList &buffers);
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
    bool mAutoTop = true;
    bool mAutoBottom = true;
};

// A built-in indicator, made from its catalogue row.
class BuiltinIndicator : public IndicatorLayer
{
    Q_OBJECT

public:
    BuiltinIndicator(const IndicatorEntry &entry, ViewCanvas *view, QObject *parent = nullptr);

    const IndicatorEntry &entry() const { return mEntry; }
    // The buffer the range is fitted to: the first of the catalogue row.
    QString mainBuffer() const;
    // The main buffer and, when it is a histogram, the other histograms drawn with it
    // (the two sides of the gator oscillator), so that no bar is cut off.
    QStringList rangeBuffers() const;
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
