#include "candlespatternlayer.h"

#include "data/reader.h"
#include "view/chartgeometry.h"
#include "view/viewcanvas.h"

#include <QFontMetrics>
#include <QPainter>
#include <QPolygon>

#include <algorithm>

namespace OrdaneView {

using CandlePattern::Match;

namespace {
// A mark never touches its bar: this many pixels stay free between the bar's extreme and
// the bracket or marker.
constexpr int kGap = 2;
// Labels appear from this zoom on; below it they would only cover the neighbours.
constexpr int kLabelZoom = 12;

// Marker width for a zoom, odd so that the tip sits on the bar's column: five pixels on the
// narrowest bars, still seen without covering a crowd of neighbours; seven from four pixels
// per bar on; never more than fifteen, so that a mark never grows into a second candle.
int markerWidth(int zoom)
{
    return zoom < 4 ? 5 : std::clamp(zoom * 3 / 4 | 1, 7, 15);
}

bool isDark(const QColor &c)
{
    return c.isValid() && c.lightness() < 128;
}
} // namespace

CandlesPatternLayer::CandlesPatternLayer(ViewCanvas *view, QObject *parent)
    : Layer(view, parent)
{}

void CandlesPatternLayer::setRequired(const QList<CandlePattern::Pattern> &patterns)
{
    mRequired = CandlePattern::PatternSet(patterns);
    classify();
}

void CandlesPatternLayer::setStrength(int mask)
{
    mStrength = mask;
    selectMarks();
}

void CandlesPatternLayer::setBlending(bool on)
{
    mBlending = on;
    classify();
}

void CandlesPatternLayer::setReader(OrdaneData::ReaderH reader)
{
    if (!this->reader().isNull())
        disconnect(this->reader().reader(), nullptr, this, nullptr);
    Layer::setReader(std::move(reader));
    if (!this->reader().isNull())
        connect(this->reader().reader(), &OrdaneData::Reader::dataChanged, this,
                &CandlesPatternLayer::recompute);
    classify();
}

void CandlesPatternLayer::recompute()
{
    classify();
}

void CandlesPatternLayer::classify()
{
    mSingles.clear();
    mPairs.clear();
    mTriples.clear();
    mTrend.clear();
    if (!reader().isNull()) {
        const QVector<QuoteBar> &bars = reader()->bars();
        const int n = bars.size();
        mTrend = CandlePattern::trendFlags(bars);
        const QVector<bool> &trend = mTrend;
        mSingles.resize(n);
        mPairs.resize(n);
        mTriples.resize(n);
        for (int i = 0; i < n; ++i) {
            mSingles[i] = CandlePattern::classifySingle(bars[i], trend[i], mRequired);
            if (i >= 1)
                mPairs[i] = CandlePattern::classifyPair(bars[i - 1], bars[i], trend[i - 1],
                                                        mRequired, mBlending);
            if (i >= 2)
                mTriples[i] = CandlePattern::classifyTriple(bars[i - 2], bars[i - 1], bars[i],
                                                            trend[i - 2], mRequired);
        }
    }
    selectMarks();
}

void CandlesPatternLayer::selectMarks()
{
    const int n = mSingles.size();
    mMarks.fill(Mark(), n);
    const auto shown = [this](const Match &m) {
        return m.pattern != CandlePattern::None && (m.grade & mStrength) != 0;
    };
    const auto mark = [this](const Match &m, int bar, int span) {
        return Mark{m, span, isBearish(m.pattern, mTrend[bar - span + 1])};
    };
    for (int i = 0; i < n; ++i) {
        if (shown(mTriples[i]))
            mMarks[i] = mark(mTriples[i], i, 3);
        else if (shown(mPairs[i]))
            mMarks[i] = mark(mPairs[i], i, 2);
        else if (shown(mSingles[i]))
            mMarks[i] = mark(mSingles[i], i, 1);
    }
}

CandlesPatternLayer::Mark CandlesPatternLayer::markAt(int bar) const
{
    return bar >= 0 && bar < mMarks.size() ? mMarks[bar] : Mark();
}

QString CandlesPatternLayer::patternAt(int bar) const
{
    const Mark mark = markAt(bar);
    if (mark.isNull())
        return QString();
    return QStringLiteral("%1 (%2)").arg(CandlePattern::text(mark.match.pattern),
                                         gradeText(mark.match.grade));
}

QString CandlesPatternLayer::gradeText(int grade)
{
    switch (grade) {
    case CandlePattern::Strong:
        return tr("Strong");
    case CandlePattern::Normal:
        return tr("Normal");
    case CandlePattern::Low:
        return tr("Low");
    }
    return QString();
}

QColor CandlesPatternLayer::gradeColour(int grade)
{
    // Mid-light, saturated hues that stand out on black, white and coloured backgrounds
    // and differ from the usual rising and falling candle colours.
    switch (grade) {
    case CandlePattern::Strong:
        return QColor(255, 160, 0); // amber
    case CandlePattern::Normal:
        return QColor(0, 190, 170); // teal
    case CandlePattern::Low:
        return QColor(170, 120, 255); // violet
    }
    return QColor(128, 128, 128);
}

bool CandlesPatternLayer::isBearish(CandlePattern::Pattern pattern, bool trend)
{
    switch (pattern) {
    case CandlePattern::Gravestone:
    case CandlePattern::HangingMan:
    case CandlePattern::DarkCloudCover:
    case CandlePattern::EveningStar:
    case CandlePattern::EveningDojiStar:
    case CandlePattern::ThreeBlackCrows:
    case CandlePattern::ThreeIdenticalCrows:
        return true;
    // Reversal patterns of both kinds: the classifier only finds them against the trend of
    // their first bar, so after a rise they turn it down.
    case CandlePattern::BeltHold:
    case CandlePattern::Engulfing:
    case CandlePattern::EngulfingCross:
    case CandlePattern::Harami:
    case CandlePattern::HaramiCross:
    case CandlePattern::TriStar:
    case CandlePattern::AbandonedBaby:
        return trend;
    default:
        return false;
    }
}

QString CandlesPatternLayer::shortText(CandlePattern::Pattern pattern)
{
    const QString full = CandlePattern::text(pattern);
    QString initials;
    for (const QChar c : full)
        if (c.isUpper())
            initials += c;
    return initials.size() > 1 ? initials : full.left(4);
}

void CandlesPatternLayer::draw(QPainter &painter, int plotWidth)
{
    if (!mShown || reader().isNull())
        return;
    const OrdaneData::Reader &s = series();
    const int first = firstVisible();
    const int n = view()->geometry()->visibleCount(plotWidth, s.count());
    const Layer *master = view()->masterLayer();
    if (master && master != this) {
        setMax(master->max());
        setMin(master->min());
    } else if (n > 0) {
        setMax(s.highestHigh(first, n));
        setMin(s.lowestLow(first, n));
    }

    painter.save();
    painter.setClipRect(QRect(0, 0, plotWidth, height()), Qt::IntersectClip);
    painter.setFont(view()->scaleFont());
    // The last label drawn above the bars and below them, to keep labels apart.
    QRect lastLabel[2];
    for (int k = 0; k < n; ++k) {
        const int bar = first + k;
        if (bar < mMarks.size() && !mMarks[bar].isNull())
            drawMark(painter, bar, k, lastLabel);
    }
    painter.restore();
    drawPointerText(painter, plotWidth);
}

void CandlesPatternLayer::drawMark(QPainter &painter, int bar, int offset, QRect *lastLabel)
{
    const Mark &mark = mMarks[bar];
    const OrdaneData::Reader &s = series();
    if (bar >= s.count())
        return;
    const int from = std::max(bar - mark.span + 1, 0);
    const bool above = mark.bearish;

    const int zoom = view()->geometry()->zoom();
    const int x = offset * zoom;
    const int w = markerWidth(zoom), h = std::max(4, w * 4 / 5);
    const QColor colour = gradeColour(mark.match.grade);

    // The pattern's extreme over its bars: the mark keeps clear of all of them.
    float extreme = above ? s.bar(from).high() : s.bar(from).low();
    for (int i = from + 1; i <= bar; ++i)
        extreme = above ? std::max(extreme, s.bar(i).high()) : std::min(extreme, s.bar(i).low());
    const int dir = above ? -1 : 1; // away from the bars
    const int tick = mark.span > 1 ? std::clamp(zoom / 4, 1, 3) : 0;
    // A mark beyond the chart's top or bottom edge is pulled back into sight, over the tip
    // of the wick.
    const int extent = (tick ? tick + 1 : 0) + h;
    int tip = row(extreme) + dir * kGap;
    if (above)
        tip = std::max(tip, extent);
    else
        tip = std::min(tip, height() - 1 - extent);

    if (tick) {
        const int left = x - (bar - from) * zoom;
        QColor line = colour;
        line.setAlpha(200);
        painter.setPen(QPen(line, 1));
        painter.setRenderHint(QPainter::Antialiasing, false);
        painter.drawLine(left, tip + dir * tick, x, tip + dir * tick);
        painter.drawLine(left, tip, left, tip + dir * tick);
        painter.drawLine(x, tip, x, tip + dir * tick);
        tip += dir * (tick + 1);
    }

    const int base = tip + dir * h;
    QPolygon triangle;
    triangle << QPoint(x, tip) << QPoint(x - w / 2, base) << QPoint(x + w / 2, base);
    QColor fill = colour;
    fill.setAlpha(220);
    painter.setRenderHint(QPainter::Antialiasing, zoom >= 4);
    if (w >= 9) {
        const bool darkBackground = isDark(view()->colors().background);
        painter.setPen(QPen(darkBackground ? colour.lighter(140) : colour.darker(170), 1));
    } else {
        painter.setPen(Qt::NoPen);
    }
    painter.setBrush(fill);
    painter.drawPolygon(triangle);

    if (zoom < kLabelZoom)
        return;
    const QFontMetrics metrics = painter.fontMetrics();
    const int room = zoom * (mark.span + 1);
    QRect &last = lastLabel[above ? 0 : 1];
    const auto place = [&](const QString &text) {
        const int textWidth = metrics.horizontalAdvance(text);
        QRect box(0, 0, textWidth, metrics.height());
        box.moveCenter(QPoint(x, 0));
        if (above)
            box.moveBottom(base - 1);
        else
            box.moveTop(base + 1);
        const bool clear = last.isNull() || !box.intersects(last.adjusted(-3, 0, 3, 0));
        return (textWidth <= room && clear && box.top() >= 0 && box.bottom() < height()) ? box
                                                                                         : QRect();
    };
    QString text = CandlePattern::text(mark.match.pattern);
    QRect box = place(text);
    if (box.isNull()) {
        text = shortText(mark.match.pattern);
        box = place(text);
    }
    if (box.isNull())
        return;
    painter.setPen(colour);
    painter.drawText(box, Qt::AlignCenter, text);
    last = box;
}

void CandlesPatternLayer::drawPointerText(QPainter &painter, int plotWidth)
{
    const ViewCanvas *canvas = view();
    const int x = canvas->geometry()->pointerX();
    if (!canvas->pointerInfoMode() || x < 0 || x >= plotWidth)
        return;
    const int bar = canvas->geometry()->barAt(x);
    const QString text = patternAt(bar);
    if (text.isEmpty())
        return;

    // One line under the labels that the canvas writes at the top left, 14 pixels apart.
    int labels = 0;
    for (const Layer *layer : canvas->layers())
        if (!layer->label().isEmpty())
            ++labels;
    painter.save();
    painter.setFont(canvas->font());
    const QFontMetrics metrics = painter.fontMetrics();
    const int baseline = 14 * (labels + 1);
    const int dot = 8;
    QRect box(4, baseline - metrics.ascent() - 2, dot + 6 + metrics.horizontalAdvance(text) + 6,
              metrics.height() + 4);
    painter.setOpacity(0.6);
    painter.setPen(Qt::NoPen);
    painter.setBrush(canvas->colors().marginBackground2);
    painter.drawRect(box);
    painter.setOpacity(1.0);
    painter.setRenderHint(QPainter::Antialiasing, true);
    painter.setBrush(gradeColour(markAt(bar).match.grade));
    painter.drawEllipse(QRect(box.left() + 3, box.center().y() - dot / 2, dot, dot));
    painter.setPen(canvas->colors().label);
    painter.drawText(QPoint(box.left() + dot + 6, baseline), text);
    painter.restore();
}

} // namespace OrdaneView
