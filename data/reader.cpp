#include "reader.h"

#include "quotefile.h"
#include "quotesource.h"

#include <QFile>
#include <QSignalBlocker>

#include <algorithm>
#include <atomic>

namespace OrdaneData {

namespace {
std::atomic<int> gHistoryLimit{-1};
} // namespace

Reader::Reader(QuoteSource *source, QObject *parent)
    : QObject(parent)
    , mSource(source)
{}

Reader::~Reader() = default;

int Reader::count() const
{
    return mBars.size();
}

bool Reader::isEmpty() const
{
    return mBars.isEmpty();
}

namespace {
// Visits bars start+1 .. start+length-1 and keeps the first strictly better value.
template <typename Value, typename Better>
Value extreme(const QVector<QuoteBar> &bars, int start, int length, Value (QuoteBar::*get)() const,
              Better better)
{
    if (start < 0 || start >= bars.size())
        return Value(0);
    Value result = (bars.at(start).*get)();
    if (length < 2)
        return result;
    const int last = std::min(start + length, bars.size());
    for (int i = start + 1; i < last; ++i) {
        const Value v = (bars.at(i).*get)();
        if (better(v, result))
            result = v;
    }
    return result;
}
} // namespace

float Reader::lowestLow(const int &start, const int &length) const
{
    return extreme(mBars, start, length, &QuoteBar::low, std::less<float>());
}

float Reader::highestHigh(const int &start, const int &length) const
{
    return extreme(mBars, start, length, &QuoteBar::high, std::greater<float>());
}

qint64 Reader::highestVolume(const int &start, const int &length) const
{
    return extreme(mBars, start, length, &QuoteBar::volume, std::greater<qint64>());
}

void Reader::setSymbol(const QString &symbol)
{
    mSymbol = symbol;
    prepareLoad(symbol);
    if (mSource)
        mSource->loadSymbol(this, symbol);
}

void Reader::fetchSymbol(const QString &symbol)
{
    mSymbol = symbol;
    prepareLoad(symbol);
    if (mSource)
        mSource->updateSymbol(this, symbol, -1);
}

void Reader::prepareLoad(const QString &symbol)
{
    Q_UNUSED(symbol)
}

void Reader::reserve(int n)
{
    mBars.reserve(n);
}

bool Reader::takeScanned(QVector<QuoteBar> newestFirst)
{
    if (newestFirst.isEmpty())
        return false;
    std::reverse(newestFirst.begin(), newestFirst.end());
    mBars = std::move(newestFirst);
    mTimeFrame = Day;
    const int limit = historyLimit();
    if (limit > 0 && mBars.size() > limit)
        removeBars(limit, mBars.size() - limit);
    return true;
}

bool Reader::loadFile(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return false;
    const QByteArray data = file.readAll();
    takeScanned(scanBars(data.constData(), data.constData() + data.size(), LineScan::WholeFile));
    return true;
}

bool Reader::loadText(const QString &text)
{
    const QByteArray data = text.toLatin1();
    takeScanned(
        scanBars(data.constData(), data.constData() + data.size(), LineScan::UpToEmptyLine));
    return true;
}

QuoteSource *Reader::source() const
{
    return mSource;
}

void Reader::setSource(QuoteSource *source)
{
    mSource = source;
}

int Reader::quarterOf(const QDate &date)
{
    const int m = date.month();
    if (m >= 1 && m <= 3)
        return 1;
    if (m >= 4 && m <= 6)
        return 2;
    if (m >= 7 && m <= 9)
        return 3;
    return 4;
}

int Reader::periodKey(int frame, const QDate &date)
{
    switch (frame) {
    case Week:
        return date.weekNumber();
    case Month:
        return date.month();
    case Quarter:
        return quarterOf(date);
    case Year:
        return date.year();
    default:
        return 0;
    }
}

void Reader::aggregate(int frame)
{
    if (mTimeFrame != Day) {
        // Rebuild from the stored daily bars; the caller announces the final change.
        const QSignalBlocker blocker(this);
        setSymbol(mSymbol);
    }

    QVector<QuoteBar> result;
    if (!mBars.isEmpty()) {
        QuoteBar running;
        int currentKey = 0;
        for (const QuoteBar &b : qAsConst(mBars)) {
            const int key = periodKey(frame, b.date());
            if (key != currentKey) {
                if (currentKey != 0)
                    result.append(running);
                running = b;
                running.setHigh(0.0f);
                running.setVolume(0);
                currentKey = key;
            }
            running.setDate(b.date());
            running.setClose(b.close());
            if (b.high() > running.high())
                running.setHigh(b.high());
            if (b.low() < running.low())
                running.setLow(b.low());
            running.setVolume(running.volume() + b.volume());
        }
        result.append(running);
    }
    mBars = std::move(result);
    mTimeFrame = frame;
}

void Reader::toWeeks()
{
    aggregate(Week);
}

void Reader::toMonths()
{
    aggregate(Month);
}

void Reader::toQuarters()
{
    aggregate(Quarter);
}

void Reader::toYears()
{
    aggregate(Year);
}

void Reader::setTimeFrame(int frame)
{
    if (frame > Day && frame <= Year) {
        aggregate(frame);
    } else if (mTimeFrame != Day) {
        const QSignalBlocker blocker(this);
        setSymbol(mSymbol);
    }
}

void Reader::mergeQuote(const QuoteBar &quote)
{
    if (!quote.isValid())
        return;

    if (mBars.isEmpty()) {
        mBars.append(quote);
    } else if (mTimeFrame == Day) {
        const QDate &last = mBars.constLast().date();
        if (quote.date() > last)
            mBars.append(quote);
        else if (quote.date() == last)
            mBars.last() = quote;
    } else {
        const int quoteKey = periodKey(mTimeFrame, quote.date());
        const int lastKey = periodKey(mTimeFrame, mBars.constLast().date());
        if (quoteKey == lastKey) {
            QuoteBar &last = mBars.last();
            if (!(last.date() > quote.date())) {
                last.setDate(quote.date());
                last.setClose(quote.close());
                last.setVolume(quote.volume());
            }
            if (quote.high() > last.high())
                last.setHigh(quote.high());
            if (quote.low() < last.low())
                last.setLow(quote.low());
        } else if (quoteKey > lastKey) {
            // Keys carry no year: a quote in the first period of a new year waits for
            // the next reload instead of being folded into last year's last period.
            mBars.append(quote);
        }
    }
    emit dataChanged();
}

void Reader::setHistoryLimit(int limit)
{
    gHistoryLimit.store(limit);
}

int Reader::historyLimit()
{
    return gHistoryLimit.load();
}

void Reader::slotDone(const QString &symbol)
{
    emit done(symbol);
}

} // namespace OrdaneData
