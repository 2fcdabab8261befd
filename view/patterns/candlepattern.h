#pragma once

#include "data/quotebar.h"

#include <QList>
#include <QMetaType>
#include <QString>
#include <QVector>

// Candle pattern recognition: plain functions over bars, no painting, no widgets. The tests
// and their constants are described in docs/candle-patterns.md.
namespace CandlePattern {

enum Pattern {
    None = 0,
    Doji = 1,
    Riksha = 2,
    Dragon = 3,
    Gravestone = 4,
    Hammer = 5,
    HangingMan = 6,
    BeltHold = 7,
    Engulfing = 8,
    EngulfingCross = 9,
    Harami = 10,
    HaramiCross = 11,
    PiercingLine = 12,
    DarkCloudCover = 13,
    MorningStar = 14,
    EveningStar = 15,
    MorningDojiStar = 16,
    EveningDojiStar = 17,
    TriStar = 18,
    AbandonedBaby = 19,
    ThreeWhiteSoldiers = 20,
    ThreeBlackCrows = 21,
    ThreeIdenticalCrows = 22,
};
constexpr int kPatternCount = 23; // None included

// "Doji", "Riksha", ...; "None" for 0 and "Unknown" for any value outside the table.
QString text(int pattern);
// The value of a text of the table; None for any other text.
Pattern fromText(const QString &text);
// Every pattern but None, in value order.
QList<Pattern> allPatterns();

// A set of patterns, one bit per value.
class PatternSet
{
public:
    PatternSet() = default;
    PatternSet(std::initializer_list<Pattern> patterns);
    explicit PatternSet(const QList<Pattern> &patterns);
    static PatternSet all();

    bool contains(Pattern p) const { return (mBits >> p) & 1u; }
    void insert(Pattern p) { mBits |= 1u << p; }
    bool isEmpty() const { return mBits == 0; }
    QList<Pattern> toList() const;
    bool operator==(const PatternSet &o) const { return mBits == o.mBits; }

private:
    quint32 mBits = 0;
};

// The strength grades, as bits of a strength mask.
enum Grade { Strong = 1, Normal = 2, Low = 4 };
constexpr int kAllGrades = Strong | Normal | Low;

// The result for one bar, pair or triple: the pattern (None when nothing matched) and its
// grade (0 with None).
struct Match
{
    Pattern pattern = None;
    int grade = 0;

    bool operator==(const Match &o) const { return pattern == o.pattern && grade == o.grade; }
};

// r < 0.3: 1; 0.3 < r < 0.7: 2; otherwise (r = 0.3, r >= 0.7, NaN): 4.
int grade(double r);

// The single-candle tests. Each answers None when the bar does not match; `trend` is the
// bar's trend flag (set: the bar ends a rising run).
bool isDoji(const QuoteBar &bar);
Match gravestone(const QuoteBar &bar, bool trend);
Match dragon(const QuoteBar &bar, bool trend);
Match doji(const QuoteBar &bar);
// Hammer with the flag clear, HangingMan with it set.
Match hammer(const QuoteBar &bar, bool trend);
Match beltHold(const QuoteBar &bar, bool trend);

// The first of Gravestone, Dragon, Doji, Hammer, HangingMan, BeltHold that is required and
// matches.
Match classifySingle(const QuoteBar &bar, bool trend, const PatternSet &required);
// A pair of consecutive bars, earlier first, with the trend flag of the earlier bar: the
// first of EngulfingCross, Engulfing, HaramiCross, Harami, PiercingLine, DarkCloudCover that
// is required and matches; when none does and `blending` is on, the single-candle result of
// the two blended into one bar.
Match classifyPair(const QuoteBar &a, const QuoteBar &b, bool trend, const PatternSet &required,
                   bool blending);
// The pair as one bar: the earlier open, the later close, the higher high, the lower low,
// volume 0, no date.
QuoteBar blend(const QuoteBar &a, const QuoteBar &b);
// Three consecutive bars, earliest first, with the trend flag of the first.
Match classifyTriple(const QuoteBar &a, const QuoteBar &b, const QuoteBar &c, bool trend,
                     const PatternSet &required);

// The trend flag of every bar: set when the average close of the five bars before it is
// above the average close of the five bars three bars earlier (a rising short average);
// bars with fewer than eight bars before them compare the previous close with the first
// close. The first two bars' flags are clear.
QVector<bool> trendFlags(const QVector<QuoteBar> &bars);

enum class Span { Single = 1, Pair = 2, Triple = 3 };

// Classifies a whole series: for Single one result per bar; for Pair one per pair (i - 1, i),
// for Triple one per triple (i - 2 .. i), each kept at the index of its last bar, with None
// at the bars that end no pair or triple. `forcedTrend` (0 clear, 1 set) replaces every
// trend flag; -1 uses trendFlags().
QVector<Match> classify(const QVector<QuoteBar> &bars, Span span, const PatternSet &required,
                        bool blending = false, int forcedTrend = -1);

} // namespace CandlePattern

Q_DECLARE_METATYPE(CandlePattern::Pattern)
