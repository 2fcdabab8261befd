#pragma once

#include <QDate>
#include <QMetaType>
#include <QtGlobal>

// One end-of-day bar. Only the trading day is kept: bars carry no time of day, so a
// date never shifts with the time zone or daylight saving.
//
// The invalid bar (the default) has all four prices -1, volume -1 and a null date;
// parsing a bad line yields it.
class QuoteBar
{
public:
    QuoteBar() = default;
    QuoteBar(const QDate &date, float open, float high, float low, float close, qint64 volume)
        : mDate(date)
        , mOpen(open)
        , mHigh(high)
        , mLow(low)
        , mClose(close)
        , mVolume(volume)
    {}

    const QDate &date() const { return mDate; }
    float open() const { return mOpen; }
    float high() const { return mHigh; }
    float low() const { return mLow; }
    float close() const { return mClose; }
    qint64 volume() const { return mVolume; }

    void setDate(const QDate &date) { mDate = date; }
    void setOpen(float open) { mOpen = open; }
    void setHigh(float high) { mHigh = high; }
    void setLow(float low) { mLow = low; }
    void setClose(float close) { mClose = close; }
    void setVolume(qint64 volume) { mVolume = volume; }

    // A bar is valid unless it is exactly the invalid bar.
    bool isValid() const { return !(*this == QuoteBar()); }

    bool operator==(const QuoteBar &o) const
    {
        return mDate == o.mDate && mOpen == o.mOpen && mHigh == o.mHigh && mLow == o.mLow &&
               mClose == o.mClose && mVolume == o.mVolume;
    }
    bool operator!=(const QuoteBar &o) const { return !(*this == o); }

private:
    QDate mDate;
    float mOpen = -1.0f;
    float mHigh = -1.0f;
    float mLow = -1.0f;
    float mClose = -1.0f;
    qint64 mVolume = -1;
};
Q_DECLARE_TYPEINFO(QuoteBar, Q_MOVABLE_TYPE);

Q_DECLARE_METATYPE(QuoteBar)
