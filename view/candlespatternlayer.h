#pragma once

#include "view/layer.h"
#include "view/patterns/candlepattern.h"

#include <QColor>
#include <QList>
#include <QString>
#include <QVector>

namespace OrdaneView {

// The candle patterns of the shown series, marked on the price chart above the price layer.
//
// The whole series is classified once whenever it or a setting changes (never while
// painting): the single-candle result of every bar, the pair ending at it and the triple
// ending at it. Each bar then carries at most one mark: the triple if one matched with a
// grade the strength mask enables, otherwise such a pair, otherwise such a single result.
//
// A mark is a small triangle above the bar's high (bearish patterns, pointing down) or below
// its low (the others, pointing up), coloured by grade; a pair or triple also gets a thin
// bracket over its bars, and from 12 pixels per bar on a short label where it fits. The
// layer follows the master layer's value range and draws nothing while hidden.
//
// A missing series draws nothing; bar indices outside the series have no mark.
class CandlesPatternLayer : public Layer
{
    Q_OBJECT

public:
    // The mark of one bar: the pattern and grade, how many bars the pattern spans (1, 2 or
    // 3; 0 with no mark; a pair or triple ends at the bar) and whether it is bearish.
    struct Mark
    {
        CandlePattern::Match match;
        int span = 0;
        bool bearish = false;

        bool isNull() const { return match.pattern == CandlePattern::None; }
    };

    explicit CandlesPatternLayer(ViewCanvas *view, QObject *parent = nullptr);

    // The patterns that are tested; all by default.
    void setRequired(const QList<CandlePattern::Pattern> &patterns);
    CandlePattern::PatternSet required() const { return mRequired; }
    // The grades that are shown, as bits of CandlePattern::Grade; all three by default.
    void setStrength(int mask);
    int strength() const { return mStrength; }
    // Whether a pair that matches no two-candle pattern is classified as one blended bar;
    // off by default.
    void setBlending(bool on);
    bool isBlending() const { return mBlending; }
    // Hidden by default; a hidden layer still classifies, so its marks are ready when shown.
    void setShown(bool on) { mShown = on; }
    bool isShown() const { return mShown; }

    // Takes the series, follows its dataChanged() and classifies it.
    void setReader(OrdaneData::ReaderH reader) override;
    // Classifies the whole series anew; needed only when the bars change without the
    // series' dataChanged() signal.
    void recompute();

    Mark markAt(int bar) const;
    // The mark of a bar as the pointer information shows it, such as "Hammer (Strong)";
    // "" for a bar without a mark.
    QString patternAt(int bar) const;
    // "Strong", "Normal", "Low" (translated); "" for any other value.
    static QString gradeText(int grade);
    // The marker colour of a grade.
    static QColor gradeColour(int grade);
    // Whether a pattern is bearish, and so marked above the bars rather than below, given
    // the trend flag of its first bar: the patterns that only close a rise always; belt
    // holds, engulfings, haramis, tri-stars and abandoned babies when they close a rise
    // (the flag set); the others never.
    static bool isBearish(CandlePattern::Pattern pattern, bool trend);
    // The label of a pattern when its full text does not fit: the initials of a name of
    // several words ("HangingMan": "HM"), the first four letters of a single word.
    static QString shortText(CandlePattern::Pattern pattern);

    void draw(QPainter &painter, int plotWidth) override;

private:
    void classify();
    void selectMarks();
    void drawMark(QPainter &painter, int bar, int offset, QRect *lastLabel);
    void drawPointerText(QPainter &painter, int plotWidth);

    CandlePattern::PatternSet mRequired = CandlePattern::PatternSet::all();
    int mStrength = CandlePattern::kAllGrades;
    bool mBlending = false;
    bool mShown = false;

    // One entry per bar: what the bar alone, the pair and the triple ending at it matched.
    QVector<CandlePattern::Match> mSingles;
    QVector<CandlePattern::Match> mPairs;
    QVector<CandlePattern::Match> mTriples;
    QVector<bool> mTrend;
    // One entry per bar: the mark chosen among the three under the strength mask.
    QVector<Mark> mMarks;
};

} // namespace OrdaneView
