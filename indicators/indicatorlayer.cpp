#include "indicatorlayer.h"

#include "data/reader.h"
#include "indicatorentry.h"
#include "view/chartgeometry.h"
#include "view/viewcanvas.h"

#include <QDebug>
#include <QPainter>

#include <algorithm>
#include <cmath>
#include <new>

namespace OrdaneView {

IndicatorLayer::IndicatorLayer(ViewCanvas *view, QObject *parent)
    : ComputedLayer(view, parent)
{}

IndicatorLayer::~IndicatorLayer() = default;

void IndicatorLayer::init()
{
    qDebug("Warning! Indicator init() is not implemented");
}

void IndicatorLayer::start()
{
    qDebug("Warning! Indicator start() is not implemented");
}

void IndicatorLayer::deinit() {}

void IndicatorLayer::drawIndicator(QPainter &painter)
{
    paintBuffers(painter);
    if (isMaster())
        drawScale(painter);
    for (const auto &level : qAsConst(mLevels))
        drawValueLine(painter, level.first, QColor(level.second));
}

QString IndicatorLayer::name() const
{
    return QString::fromLatin1(metaObject()->className()).section(QStringLiteral("::"), -1);
}

void IndicatorLayer::calibrate()
{
    qDebug("Warning! Indicator calibrate() is not implemented");
}

void IndicatorLayer::simulate()
{
    qDebug("Warning! Indicator simulate() is not implemented");
}

void IndicatorLayer::draw(QPainter &painter, int plotWidth)
{
    Q_UNUSED(plotWidth)
    drawIndicator(painter);
}

int IndicatorLayer::firstVisiblePosition() const
{
    return firstVisible();
}

QVector<float> IndicatorLayer::bufferData(const QString &name) const
{
    return mBuffers.value(name).data;
}

void IndicatorLayer::addLevel(float value, const QString &colour)
{
    mLevels.append({value, colour});
}

void IndicatorLayer::fitRange()
{
    // Layer::setMax and setMin by name: a script indicator counts its own calls to them as
    // a range the script chose itself.
    if (!isMaster()) {
        Layer::setMax(masterMax());
        Layer::setMin(masterMin());
        return;
    }
    // Every layer of the view shares the master's bars, but only the master has its
    // geometry for this paint yet, so the visible span is the master's.
    const int first = firstVisible();
    const int fit = std::max(plotWidthOf(), 0) / zoom();
    QList<const IndicatorLayer *> indicators{this};
    for (const Layer *layer : view()->layers())
        if (const auto *indicator = qobject_cast<const IndicatorLayer *>(layer))
            if (indicator != this)
                indicators.append(indicator);

    float lo = 0, hi = 0;
    bool any = false;
    for (const IndicatorLayer *indicator : qAsConst(indicators)) {
        for (const IndicatorBuffer &b : indicator->buffers()) {
            const int n = std::min(fit, b.data.size() - first);
            if (!b.visible || n <= 0 || first < 0)
                continue;
            for (auto it = b.data.begin() + first; it != b.data.begin() + first + n; ++it) {
                if (!std::isfinite(*it))
                    continue;
                lo = any ? std::min(lo, *it) : *it;
                hi = any ? std::max(hi, *it) : *it;
                any = true;
            }
        }
    }
    Layer::setMax(hi);
    Layer::setMin(lo);
}

void IndicatorLayer::paintBuffers(QPainter &painter)
{
    const int z = zoom();
    const int first = firstVisible();
    const int fit = std::max(plotWidthOf(), 0) / z;
    painter.save();
    for (auto it = mBuffers.cbegin(); it != mBuffers.cend(); ++it) {
        const IndicatorBuffer &b = it.value();
        if (b.data.isEmpty() || !b.visible)
            continue;
        const int n = std::min(fit, b.data.size() - first);
        if (n <= 0)
            continue;
        QPen pen(QBrush(b.colour), b.penWidth, Qt::PenStyle(b.penStyle), Qt::FlatCap,
                 Qt::BevelJoin);
        pen.setWidth(z > 8 ? 2 : 1);
        const auto colourOf = [&](int k) {
            return mBarColours.value(first + k, b.colour);
        };

        // Values a formula leaves undefined (0 / 0) or infinite are not drawn: a line
        // breaks there rather than jumping off the pane.
        const auto valueAt = [&](int k) {
            return b.data.at(first + k);
        };
        if (b.drawStyle == HISTOGRAM) {
            const int zero = row(0.0f);
            for (int k = 0; k < n; ++k) {
                if (!std::isfinite(valueAt(k)))
                    continue;
                pen.setColor(colourOf(k));
                painter.setPen(pen);
                painter.drawLine(k * z, zero, k * z, row(valueAt(k)));
            }
        } else if (b.drawStyle == POINTS) {
            pen.setWidth(5);
            painter.setPen(pen);
            for (int k = 0; k < n; ++k)
                if (std::isfinite(valueAt(k)))
                    painter.drawPoint(k * z, row(valueAt(k)));
        } else {
            // Runs of one colour become one polyline; a segment takes the colour of the bar
            // it ends at.
            QVector<QPoint> run;
            QColor runColour;
            const auto flush = [&] {
                if (run.size() > 1) {
                    pen.setColor(runColour);
                    painter.setPen(pen);
                    painter.drawPolyline(run.constData(), run.size());
                }
            };
            for (int k = 0; k < n; ++k) {
                if (!std::isfinite(valueAt(k))) {
                    flush();
                    run.clear();
                    continue;
                }
                const QPoint p(k * z, row(valueAt(k)));
                const QColor c = colourOf(k);
                if (run.size() > 1 && c != runColour) {
                    flush();
                    run = {run.constLast()};
                }
                if (!run.isEmpty())
                    runColour = c;
                run.append(p);
            }
            flush();
        }
    }
    painter.restore();
}

QString IndicatorLayer::scaleLabel(double value, double step)
{
    const double magnitude = std::fabs(value);
    if (magnitude >= 1e9)
        return QString::number(value / 1e9, 'f', 1) + QStringLiteral(" Bio.");
    if (magnitude >= 1e6)
        return QString::number(value / 1e6, 'f', 1) + QStringLiteral(" Mio.");
    if (magnitude >= 1e4)
        return QString::number(value / 1e3, 'f', 1) + QStringLiteral(" Tsd.");
    // Enough decimals to tell neighbouring ticks apart, and no more; ranges too fine for six
    // decimals (money flow per share of volume) in powers of ten.
    const int decimals =
        step > 0 && std::isfinite(step) ? std::max(int(std::ceil(-std::log10(step))) + 1, 0) : 2;
    if (decimals > 6)
        return value == 0.0 ? QStringLiteral("0") : QString::number(value, 'e', 1);
    return QString::number(value, 'f', decimals);
}

void IndicatorLayer::drawScale(QPainter &painter)
{
    const double step = height() > 0 ? (max() - min()) / (height() / 34.0) : 0.0;
    drawScaleWith(painter, [step](double v) { return scaleLabel(v, step); });
}

BuiltinIndicator::BuiltinIndicator(const IndicatorEntry &entry, ViewCanvas *view, QObject *parent)
    : IndicatorLayer(view, parent)
    , mEntry(entry)
{
    for (const auto &p : entry.params)
        setParameter(QLatin1String(p.name), p.value);
    for (const auto &b : entry.buffers) {
        IndicatorBuffer buffer;
        buffer.colour = b.colour;
        buffer.drawStyle = b.style;
        buffer.penStyle = Qt::SolidLine;
        buffers().insert(QLatin1String(b.name), buffer);
    }
    setFullName(QLatin1String(entry.title ? entry.title : entry.id));
}

QString BuiltinIndicator::makeLabel() const
{
    QStringList values;
    for (const auto &p : mEntry.params)
        values << QString::number(parameter(QLatin1String(p.name), p.value));
    if (mEntry.labelFormat) {
        // %1 is the first parameter in catalogue order, %2 the second, ...; a format may
        // show fewer parameters than the indicator has.
        QString label = QLatin1String(mEntry.labelFormat);
        for (int i = values.size(); i >= 1; --i)
            label.replace(QLatin1Char('%') + QString::number(i), values.at(i - 1));
        return label;
    }
    const QString id = QLatin1String(mEntry.id);
    return values.isEmpty()
               ? id
               : id + QLatin1Char('(') + values.join(QLatin1Char(',')) + QLatin1Char(')');
}

void BuiltinIndicator::init()
{
    setLabel(makeLabel());
}

void BuiltinIndicator::start()
{
    if (reader().isNull())
        return;
    Indicators::Result result;
    try {
        result = mEntry.compute(reader()->bars(), parameters());
    } catch (const std::bad_alloc &) {
        // Parameters past all reason (a shift of a billion bars) leave the buffers empty
        // rather than taking the program down.
        qWarning("%s: the parameters ask for more memory than there is", mEntry.id);
    }
    for (auto it = buffers().begin(); it != buffers().end(); ++it)
        it.value().data = result.buffers.value(it.key());
    barColours() = result.barColours.toMap();
}

void BuiltinIndicator::drawIndicator(QPainter &painter)
{
    fitRange();
    paintBuffers(painter);
    if (buffers().isEmpty())
        paintColouredBars(painter);
    if (isMaster())
        drawScale(painter);
    const QColor levelColour(128, 128, 128);
    for (const char *level : {"LevelUp", "LevelDown"}) {
        const auto it = parameters().find(QLatin1String(level));
        if (it != parameters().end())
            drawValueLine(painter, it.value(), levelColour);
    }
    for (const auto &level : levels())
        drawValueLine(painter, level.first, QColor(level.second));
}

void BuiltinIndicator::paintColouredBars(QPainter &painter)
{
    if (barColours().isEmpty() || reader().isNull())
        return;
    const OrdaneData::Reader &s = *reader();
    const int z = zoom();
    const int first = firstVisible();
    const int n = std::min(std::max(plotWidthOf(), 0) / z, s.count() - first);
    const int tick = int(z / 2.8);
    painter.save();
    QPen pen(Qt::SolidPattern, z > 8 ? 3 : 2);
    for (auto it = barColours().lowerBound(first); it != barColours().end() && it.key() < first + n;
         ++it) {
        const QuoteBar &b = s.bar(it.key());
        const int x = (it.key() - first) * z;
        pen.setColor(it.value());
        painter.setPen(pen);
        painter.drawLine(x, row(b.low()), x, row(b.high()));
        painter.drawLine(x - tick, row(b.open()), x, row(b.open()));
        painter.drawLine(x, row(b.close()), x + tick, row(b.close()));
    }
    painter.restore();
}

QString BuiltinIndicator::name() const
{
    return QLatin1String(mEntry.id);
}

} // namespace OrdaneView
