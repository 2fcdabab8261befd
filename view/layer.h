#pragma once

#include "data/quotebar.h"
#include "data/readerh.h"

#include <QColor>
#include <QDate>
#include <QDateTime>
#include <QObject>
#include <QString>
#include <QVector>

#include <functional>

class QPainter;

namespace OrdaneView {

class ViewCanvas;

// One stratum of a view's picture: the price series, a grid, an indicator. A layer owns
// its value range (min at the bottom edge, max at the top) and draws with the geometry
// and colours of its view onto any painter.
//
// Reading bars without a series raises MTools::Error("Null handle"), except through the
// script-visible accessors, which answer 0 (or nothing) for a missing series or an index
// outside it.
class Layer : public QObject
{
    Q_OBJECT

public:
    explicit Layer(ViewCanvas *view, QObject *parent = nullptr);
    ~Layer() override;

    Q_INVOKABLE void setLabel(const QString &label);
    Q_INVOKABLE QString label() const;
    Q_INVOKABLE virtual void setMax(float max);
    Q_INVOKABLE virtual void setMin(float min);
    Q_INVOKABLE float max() const;
    Q_INVOKABLE float min() const;
    // The master layer of a view gives the range that other layers may follow: the price
    // layer in the chart view, the first indicator in an indicator view.
    Q_INVOKABLE bool isMaster() const;
    Q_INVOKABLE float masterMax() const;
    Q_INVOKABLE float masterMin() const;
    Q_INVOKABLE QDate date(int i) const;
    Q_INVOKABLE QDateTime datetime(int i) const;
    Q_INVOKABLE float close(int i) const;
    Q_INVOKABLE float open(int i) const;
    Q_INVOKABLE float low(int i) const;
    Q_INVOKABLE float high(int i) const;
    Q_INVOKABLE qlonglong volume(int i) const;
    Q_INVOKABLE float median(int i) const;  // (high + low) / 2
    Q_INVOKABLE float typical(int i) const; // (high + low + close) / 3
    Q_INVOKABLE QVector<float> close() const;
    Q_INVOKABLE QVector<float> open() const;
    Q_INVOKABLE QVector<float> low() const;
    Q_INVOKABLE QVector<float> high() const;
    Q_INVOKABLE QVector<float> volume() const;
    Q_INVOKABLE QVector<float> median() const;
    Q_INVOKABLE QVector<float> typical() const;
    Q_INVOKABLE int numberOfVisibleQuotes() const;
    Q_INVOKABLE int numberOfQuotes() const;
    Q_INVOKABLE int zoom() const;
    Q_INVOKABLE int width() const;
    Q_INVOKABLE int height() const;
    Q_INVOKABLE int rightMarginWidth() const;

    // Draws the layer into a plot `plotWidth` pixels wide (the scale strip lies beyond).
    virtual void draw(QPainter &painter, int plotWidth) = 0;
    virtual void setReader(OrdaneData::ReaderH reader);
    // The value scale in the right margin: ticks 34 pixels apart with 6 decimals.
    virtual void drawScale(QPainter &painter);
    virtual void drawValueLine(QPainter &painter, float value, const QColor &colour);
    virtual void drawValueMarker(QPainter &painter, float value, const QColor &colour);
    // kind 1 selects the highlighted colours for the layer's pen, any other kind the
    // normal ones.
    virtual void highlightColour(int kind);
    // A line through the highs of two bars when the later high is lower (a falling
    // resistance), otherwise through their lows (a rising support), carried across the
    // whole plot by its slope. Bars are offsets from the first visible bar.
    virtual void drawBarsLine(QPainter &painter, int bar1, int bar2, const QColor &colour);
    // A filled box on the scale at `value` holding the value's number.
    virtual void drawValueTag(QPainter &painter, float value, const QColor &colour);

    ViewCanvas *view() const { return mView; }
    const OrdaneData::ReaderH &reader() const { return mReader; }
    bool isHighlighted() const { return mHighlighted; }

    // Set by the view before every draw: the drawing area (scale included) and the
    // width of the scale strip at its right edge.
    void setGeometry(int width, int height, int rightMargin);

    // The row of a value, as a real number and truncated toward zero: max is row 0, min
    // is row height. When max equals min (or the range is not finite) every value sits
    // on the middle row.
    double rowOf(float value) const;
    int row(float value) const { return toPixel(rowOf(value)); }
    // Truncates toward zero, keeping far-off values within what a painter can take.
    static int toPixel(double row);

    // The labelled ticks of a value scale `height` pixels high: every 34 pixels from the
    // bottom (row height - 34k) the value min + k * step, then max at row 1. With no
    // range (max equal to min) a single tick on the middle row carries the one value.
    struct Tick
    {
        int row;
        double value;
    };
    static QVector<Tick> scaleTicks(float min, float max, int height);

protected:
    void drawScaleWith(QPainter &painter, int decimals);
    // The scale's ticks with labels made by `label` from each tick's value.
    void drawScaleWith(QPainter &painter, const std::function<QString(double)> &label);
    virtual int scaleDecimals() const { return 6; }
    QString formatValue(float value) const;

    // The series, or MTools::Error("Null handle").
    const OrdaneData::Reader &series() const;
    int firstVisible() const;

private:
    const QuoteBar *barOrNull(int i) const;
    QVector<float> column(float (*get)(const QuoteBar &)) const;

    ViewCanvas *mView;
    OrdaneData::ReaderH mReader;
    int mRightMargin = 0;
    QString mLabel;
    float mMin = 0;
    float mMax = 0;
    int mWidth = 0;
    int mHeight = 0;
    bool mHighlighted = false;
};

} // namespace OrdaneView
