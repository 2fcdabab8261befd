#pragma once

#include "quotebar.h"

#include <QObject>
#include <QPointer>
#include <QString>
#include <QVector>

namespace OrdaneData {

class QuoteSource;

// Time frames of a series.
enum TimeFrame { Day = 0, Week = 1, Month = 2, Quarter = 3, Year = 4 };

// The quote series of one symbol at one time frame, oldest bar at index 0.
//
// Bars change only through the loads, the aggregations, mergeQuote() and the edit
// operations; whoever makes a change emits dataChanged() (mergeQuote() does so itself).
class Reader : public QObject
{
    Q_OBJECT

public:
    explicit Reader(QuoteSource *source = nullptr, QObject *parent = nullptr);
    ~Reader() override;

    virtual int count() const;
    virtual bool isEmpty() const;
    // Extremes over bars start .. start+length-1. A length below 2 gives the start bar's
    // own value; ties keep the earliest bar's value. A range reaching past the end is cut
    // at the last bar; a start outside the series gives 0.
    virtual float lowestLow(const int &start, const int &length) const;
    virtual float highestHigh(const int &start, const int &length) const;
    virtual qint64 highestVolume(const int &start, const int &length) const;
    // Stores the symbol and has the source load its stored series (daily bars).
    virtual void setSymbol(const QString &symbol);
    // Stores the symbol and has the source bring it up to date; done(symbol) follows.
    virtual void fetchSymbol(const QString &symbol);
    // Called with the symbol before the source is asked to (re)load it. Does nothing
    // here; a subclass may prepare or cancel work of its own.
    virtual void prepareLoad(const QString &symbol);
    // Room for n bars, so that a load appends without reallocating.
    virtual void reserve(int n);
    // Fills the series from a stored file (newest first) and turns it oldest first.
    // Returns false only when the file cannot be opened; a file without bars leaves the
    // old bars and returns true. The history limit applies.
    virtual bool loadFile(const QString &path);
    // The same from text whose lines are separated by "\n"; the first empty line ends it.
    virtual bool loadText(const QString &text);

    const QuoteBar &bar(int i) const { return mBars.at(i); }
    QuoteBar &bar(int i) { return mBars[i]; } // detaches a shared vector before writing
    const QVector<QuoteBar> &bars() const { return mBars; }
    void replaceBar(int i, const QuoteBar &bar) { mBars[i] = bar; }
    void appendBar(const QuoteBar &bar) { mBars.append(bar); }
    void removeBars(int start, int n) { mBars.remove(start, n); }
    void clear() { mBars.clear(); }

    QString symbol() const { return mSymbol; }
    int timeFrame() const { return mTimeFrame; }
    QuoteSource *source() const;
    void setSource(QuoteSource *source);

    // Aggregation always starts from daily bars: in another frame the series is first
    // reloaded from the source. Each sets the time frame it produces.
    void toWeeks();
    void toMonths();
    void toQuarters();
    void toYears();
    // Shows the series in the given frame: Day reloads the daily bars, others aggregate.
    void setTimeFrame(int frame);

    // Merges a live quote into the series in its current time frame and emits
    // dataChanged() (except for an invalid quote, which is ignored).
    void mergeQuote(const QuoteBar &quote);

    static int quarterOf(const QDate &date);

    // Process-wide: when above 0, every load keeps only the oldest `limit` bars.
    static void setHistoryLimit(int limit);
    static int historyLimit();

signals:
    void dataChanged();
    void done(const QString &symbol);

public slots:
    void slotDone(const QString &symbol);

private:
    bool takeScanned(QVector<QuoteBar> newestFirst);
    void aggregate(int frame);
    static int periodKey(int frame, const QDate &date);

    QVector<QuoteBar> mBars;
    QPointer<QuoteSource> mSource;
    QString mSymbol;
    int mTimeFrame = Day;
};

} // namespace OrdaneData
