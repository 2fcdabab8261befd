#include "candlepattern.h"

#include <algorithm>
#include <cmath>

namespace CandlePattern {

namespace {
const char *const kTexts[kPatternCount] = {
    "None",
    "Doji",
    "Riksha",
    "Dragon",
    "Gravestone",
    "Hammer",
    "HangingMan",
    "BeltHold",
    "Engulfing",
    "EngulfingCross",
    "Harami",
    "HaramiCross",
    "PiercingLine",
    "DarkCloudCover",
    "MorningStar",
    "EveningStar",
    "MorningDojiStar",
    "EveningDojiStar",
    "TriStar",
    "AbandonedBaby",
    "ThreeWhiteSoldiers",
    "ThreeBlackCrows",
    "ThreeIdenticalCrows",
};

// The shape of a bar in the terms the multi-candle tests use.
struct Shape
{
    float open, high, low, close;

    explicit Shape(const QuoteBar &b)
        : open(b.open())
        , high(b.high())
        , low(b.low())
        , close(b.close())
    {}
    float body() const { return std::abs(open - close); }
    float range() const { return high - low; }
    float top() const { return std::max(open, close); }
    float bottom() const { return std::min(open, close); }
    bool rising() const { return close > open; }
    bool falling() const { return close < open; }
    // A long body: at least 0.7 of the bar's range.
    bool isLong() const { return range() > 0 && body() >= 0.7f * range(); }
    // A real body, not a doji-like sliver: at least 0.2 of the range.
    bool hasBody() const { return range() > 0 && body() >= 0.2f * range(); }
};

// At most 0.3 of the reference body: the star of the star patterns.
bool small(const Shape &s, const Shape &reference)
{
    return s.body() <= 0.3f * reference.body();
}

// Within 0.1 of the reference body: "opens at the previous close".
bool near(float a, float b, const Shape &reference)
{
    return std::abs(a - b) <= 0.1f * reference.body();
}

Match match(Pattern p, int g)
{
    return {p, g};
}
} // namespace

QString text(int pattern)
{
    if (pattern < 0 || pattern >= kPatternCount)
        return QStringLiteral("Unknown");
    return QLatin1String(kTexts[pattern]);
}

Pattern fromText(const QString &t)
{
    for (int p = 0; p < kPatternCount; ++p)
        if (t == QLatin1String(kTexts[p]))
            return Pattern(p);
    return None;
}

QList<Pattern> allPatterns()
{
    QList<Pattern> list;
    for (int p = 1; p < kPatternCount; ++p)
        list << Pattern(p);
    return list;
}

PatternSet::PatternSet(std::initializer_list<Pattern> patterns)
{
    for (Pattern p : patterns)
        insert(p);
}

PatternSet::PatternSet(const QList<Pattern> &patterns)
{
    for (Pattern p : patterns)
        if (p > None && p < kPatternCount)
            insert(p);
}

PatternSet PatternSet::all()
{
    return PatternSet(allPatterns());
}

QList<Pattern> PatternSet::toList() const
{
    QList<Pattern> list;
    for (int p = 1; p < kPatternCount; ++p)
        if (contains(Pattern(p)))
            list << Pattern(p);
    return list;
}

int grade(double r)
{
    if (r < 0.3)
        return Strong;
    if (r > 0.3 && r < 0.7)
        return Normal;
    return Low;
}

bool isDoji(const QuoteBar &bar)
{
    return std::abs(bar.open() - bar.close()) / std::abs(bar.high() - bar.low()) < 0.05;
}

Match doji(const QuoteBar &bar)
{
    // No grade of its own: a doji is a doji.
    return isDoji(bar) ? match(Doji, Strong) : Match();
}

Match gravestone(const QuoteBar &bar, bool trend)
{
    if (!trend || !isDoji(bar))
        return {};
    const double third = (bar.high() - bar.low()) / 3.0;
    const float d = bar.close() - bar.low();
    return d < third ? match(Gravestone, grade(d / third)) : Match();
}

Match dragon(const QuoteBar &bar, bool trend)
{
    if (trend || !isDoji(bar))
        return {};
    const double third = (bar.high() - bar.low()) / 3.0;
    const float d = bar.high() - bar.close();
    return d < third ? match(Dragon, grade(d / third)) : Match();
}

Match hammer(const QuoteBar &bar, bool trend)
{
    const double third = (bar.high() - bar.low()) / 3.0;
    const float top = std::max(bar.open(), bar.close());
    const double upper = (bar.high() - top) / third;
    if (!(upper < 0.3f))
        return {};
    const float body = std::abs(bar.open() - bar.close());
    if (!(body < third))
        return {};
    return match(trend ? HangingMan : Hammer, grade(body / third));
}

Match beltHold(const QuoteBar &bar, bool trend)
{
    float d;
    if (!trend) {
        if (!(std::abs(bar.open() - bar.low()) < 0.0001f))
            return {};
        d = std::abs(bar.high() - bar.close());
    } else {
        if (!(std::abs(bar.open() - bar.high()) < 0.0001f))
            return {};
        d = std::abs(bar.low() - bar.close());
    }
    // The grade of the raw price difference, not of a ratio: on instruments priced in the
    // hundreds nearly every belt hold grades low. Kept as it is on purpose.
    const double x = std::abs(bar.low() - bar.high()) / 3.0 - d;
    return x > 0 ? match(BeltHold, grade(x)) : Match();
}

Match classifySingle(const QuoteBar &bar, bool trend, const PatternSet &required)
{
    Match m;
    if (required.contains(Gravestone) && (m = gravestone(bar, trend)).pattern != None)
        return m;
    if (required.contains(Dragon) && (m = dragon(bar, trend)).pattern != None)
        return m;
    if (required.contains(Doji) && (m = doji(bar)).pattern != None)
        return m;
    if (required.contains(trend ? HangingMan : Hammer) && (m = hammer(bar, trend)).pattern != None)
        return m;
    if (required.contains(BeltHold) && (m = beltHold(bar, trend)).pattern != None)
        return m;
    return {};
}

QuoteBar blend(const QuoteBar &a, const QuoteBar &b)
{
    return QuoteBar(QDate(), a.open(), std::max(a.high(), b.high()), std::min(a.low(), b.low()),
                    b.close(), 0);
}

namespace {
// The second body reverses the trend and covers the first; the first is a real body no more
// than 0.7 of the second.
Match engulfing(const Shape &a, const Shape &b, bool trend)
{
    const bool reversal = trend ? (a.rising() && b.falling()) : (a.falling() && b.rising());
    if (!reversal || !a.hasBody() || b.top() < a.top() || b.bottom() > a.bottom() ||
        a.body() > 0.7f * b.body())
        return {};
    // The smaller the first body against the second, the stronger.
    return match(Engulfing, grade(double(a.body()) / b.body()));
}

// A doji followed by a long body against the trend that covers the doji's whole range.
Match engulfingCross(const QuoteBar &first, const Shape &a, const Shape &b, bool trend)
{
    const bool against = trend ? b.falling() : b.rising();
    if (!isDoji(first) || !against || !b.isLong() || b.top() < a.high || b.bottom() > a.low)
        return {};
    return match(EngulfingCross, grade(b.range() > 0 ? 1.0 - double(b.body()) / b.range() : 1));
}

// A long body in the trend's direction, then a body of the other colour inside it that is no
// more than 0.7 of it (HaramiCross: a doji inside it).
Match harami(const QuoteBar &second, const Shape &a, const Shape &b, bool trend, bool cross)
{
    const bool withTrend = trend ? a.rising() : a.falling();
    if (!withTrend || !a.isLong() || b.top() > a.top() || b.bottom() < a.bottom())
        return {};
    // The smaller the inner bar against the first, the stronger.
    if (cross)
        return isDoji(second) ? match(HaramiCross, grade(double(b.range()) / a.range())) : Match();
    const bool otherColour = trend ? b.falling() : b.rising();
    if (!otherColour || !b.hasBody() || b.body() > 0.7f * a.body())
        return {};
    return match(Harami, grade(double(b.body()) / a.body()));
}

// After a fall, a long falling body, then a rise that opens below its close and closes above
// the middle of its body but below its open (DarkCloudCover: the mirror after a rise).
Match piercing(const Shape &a, const Shape &b, bool trend, bool dark)
{
    if (dark != trend || !a.isLong())
        return {};
    const float middle = (a.open + a.close) * 0.5f;
    if (!dark) {
        if (!a.falling() || !b.rising() || !(b.open < a.close) || !(b.close > middle) ||
            !(b.close < a.open))
            return {};
        return match(PiercingLine, grade(double(a.open - b.close) / (a.open - middle)));
    }
    if (!a.rising() || !b.falling() || !(b.open > a.close) || !(b.close < middle) ||
        !(b.close > a.open))
        return {};
    return match(DarkCloudCover, grade(double(b.close - a.open) / (middle - a.open)));
}
} // namespace

Match classifyPair(const QuoteBar &first, const QuoteBar &second, bool trend,
                   const PatternSet &required, bool blending)
{
    const Shape a(first);
    const Shape b(second);
    Match m;
    if (required.contains(EngulfingCross) &&
        (m = engulfingCross(first, a, b, trend)).pattern != None)
        return m;
    if (required.contains(Engulfing) && (m = engulfing(a, b, trend)).pattern != None)
        return m;
    if (required.contains(HaramiCross) && (m = harami(second, a, b, trend, true)).pattern != None)
        return m;
    if (required.contains(Harami) && (m = harami(second, a, b, trend, false)).pattern != None)
        return m;
    if (required.contains(PiercingLine) && (m = piercing(a, b, trend, false)).pattern != None)
        return m;
    if (required.contains(DarkCloudCover) && (m = piercing(a, b, trend, true)).pattern != None)
        return m;
    return blending ? classifySingle(blend(first, second), trend, required) : Match();
}

namespace {
// A long body with the trend, a small star (a doji for the doji stars) whose body gaps away
// from it, and a body of the other colour closing beyond the middle of the first body.
Match star(const QuoteBar &middleBar, const Shape &a, const Shape &b, const Shape &c, bool trend,
           const PatternSet &required)
{
    const bool dojiStar = isDoji(middleBar);
    if (!a.isLong())
        return {};
    const float middle = (a.open + a.close) * 0.5f;
    Pattern p = None;
    if (!trend && a.falling() && b.top() < a.close && c.rising() && c.close > middle &&
        (dojiStar || small(b, a)))
        p = dojiStar && required.contains(MorningDojiStar) ? MorningDojiStar : MorningStar;
    else if (trend && a.rising() && b.bottom() > a.close && c.falling() && c.close < middle &&
             (dojiStar || small(b, a)))
        p = dojiStar && required.contains(EveningDojiStar) ? EveningDojiStar : EveningStar;
    if (p == None || !required.contains(p))
        return {};
    // The more of the first body the third bar wins back, the stronger.
    const double regained = double(std::abs(c.close - a.close)) / a.body();
    return match(p, grade(std::max(0.0, 1.0 - regained)));
}

// Three dojis, the middle one gapping beyond both neighbours.
Match triStar(const QuoteBar &x, const QuoteBar &y, const QuoteBar &z, const Shape &a,
              const Shape &b, const Shape &c, bool trend)
{
    if (!isDoji(x) || !isDoji(y) || !isDoji(z))
        return {};
    const bool gap = trend ? (b.bottom() > a.top() && b.bottom() > c.top())
                           : (b.top() < a.bottom() && b.top() < c.bottom());
    return gap ? match(TriStar, Strong) : Match();
}

// A long body with the trend, a doji whose whole range gaps away from both neighbours, and
// a long body the other way.
Match abandonedBaby(const QuoteBar &y, const Shape &a, const Shape &b, const Shape &c, bool trend)
{
    if (!isDoji(y) || !a.isLong() || !c.hasBody())
        return {};
    const bool ok = trend ? (a.rising() && c.falling() && b.low > a.high && b.low > c.high)
                          : (a.falling() && c.rising() && b.high < a.low && b.high < c.low);
    return ok ? match(AbandonedBaby, c.isLong() ? Strong : Normal) : Match();
}

// Three long bodies of one colour, each opening inside the body before and closing beyond
// its close; crows opening at the previous close are identical crows.
Match threeInARow(const Shape &a, const Shape &b, const Shape &c, const PatternSet &required)
{
    if (!a.isLong() || !b.isLong() || !c.isLong())
        return {};
    const auto opensInside = [](const Shape &s, const Shape &before) {
        return s.open >= before.bottom() && s.open <= before.top();
    };
    if (a.rising() && b.rising() && c.rising() && b.close > a.close && c.close > b.close &&
        opensInside(b, a) && opensInside(c, b)) {
        if (!required.contains(ThreeWhiteSoldiers))
            return {};
        // Short upper shadows (at most 0.1 of the range) make the strong ones.
        const bool clean = a.high - a.close <= 0.1f * a.range() &&
                           b.high - b.close <= 0.1f * b.range() &&
                           c.high - c.close <= 0.1f * c.range();
        return match(ThreeWhiteSoldiers, clean ? Strong : Normal);
    }
    if (a.falling() && b.falling() && c.falling() && b.close < a.close && c.close < b.close &&
        opensInside(b, a) && opensInside(c, b)) {
        if (required.contains(ThreeIdenticalCrows) && near(b.open, a.close, a) &&
            near(c.open, b.close, b))
            return match(ThreeIdenticalCrows, Strong);
        if (!required.contains(ThreeBlackCrows))
            return {};
        const bool clean = a.close - a.low <= 0.1f * a.range() &&
                           b.close - b.low <= 0.1f * b.range() &&
                           c.close - c.low <= 0.1f * c.range();
        return match(ThreeBlackCrows, clean ? Strong : Normal);
    }
    return {};
}
} // namespace

Match classifyTriple(const QuoteBar &x, const QuoteBar &y, const QuoteBar &z, bool trend,
                     const PatternSet &required)
{
    const Shape a(x);
    const Shape b(y);
    const Shape c(z);
    Match m;
    // The most particular shapes first: an abandoned baby is also a doji star.
    if (required.contains(TriStar) && (m = triStar(x, y, z, a, b, c, trend)).pattern != None)
        return m;
    if (required.contains(AbandonedBaby) && (m = abandonedBaby(y, a, b, c, trend)).pattern != None)
        return m;
    if ((required.contains(MorningDojiStar) || required.contains(EveningDojiStar) ||
         required.contains(MorningStar) || required.contains(EveningStar)) &&
        (m = star(y, a, b, c, trend, required)).pattern != None)
        return m;
    if ((required.contains(ThreeWhiteSoldiers) || required.contains(ThreeBlackCrows) ||
         required.contains(ThreeIdenticalCrows)) &&
        (m = threeInARow(a, b, c, required)).pattern != None)
        return m;
    return {};
}

QVector<bool> trendFlags(const QVector<QuoteBar> &bars)
{
    const int n = bars.size();
    QVector<bool> flags(n, false);
    if (n == 0)
        return flags;
    const QuoteBar *b = bars.constData();
    bool *out = flags.data();
    for (int i = 1; i < std::min(n, 8); ++i)
        out[i] = b[i - 1].close() > b[0].close();
    // Both averages hold five closes, so their sums (in double, exact for prices of like
    // size) compare as the averages do.
    for (int i = 8; i < n; ++i) {
        double recent = 0, earlier = 0;
        for (int k = 1; k <= 5; ++k) {
            recent += b[i - k].close();      // closes i-5 .. i-1
            earlier += b[i - 3 - k].close(); // closes i-8 .. i-4
        }
        out[i] = recent > earlier;
    }
    return flags;
}

QVector<Match> classify(const QVector<QuoteBar> &bars, Span span, const PatternSet &required,
                        bool blending, int forcedTrend)
{
    const int n = bars.size();
    QVector<Match> matches(n);
    Match *result = matches.data();
    const QVector<bool> flags = forcedTrend < 0 ? trendFlags(bars) : QVector<bool>();
    const bool *flag = flags.constData();
    const auto trendOf = [&](int i) {
        return forcedTrend < 0 ? flag[i] : forcedTrend == 1;
    };
    const QuoteBar *b = bars.constData();
    switch (span) {
    case Span::Single:
        for (int i = 0; i < n; ++i)
            result[i] = classifySingle(b[i], trendOf(i), required);
        break;
    case Span::Pair:
        for (int i = 1; i < n; ++i)
            result[i] = classifyPair(b[i - 1], b[i], trendOf(i - 1), required, blending);
        break;
    case Span::Triple:
        for (int i = 2; i < n; ++i)
            result[i] = classifyTriple(b[i - 2], b[i - 1], b[i], trendOf(i - 2), required);
        break;
    }
    return matches;
}

} // namespace CandlePattern
