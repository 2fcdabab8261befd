#include "rsitrading.h"

#include "oscillators.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace Indicators {

namespace {
constexpr int kMinPeriod = 2;
constexpr int kMaxPeriod = 99;
constexpr int kMaxHigh = 98;
constexpr int kMinSpread = 33;
// With H <= 98 and H - L >= 33, only these levels ever open or close a position.
constexpr int kMaxLow = kMaxHigh - kMinSpread;
constexpr int kMinHigh = 1 + kMinSpread;
constexpr double kMinDayProfit = 0.3;

// Collects the lines of the table; both searches hand it the same scores in the same order.
class Table
{
public:
    Table()
        : mText("Period,LowLevel,HighLevel,Trades,DayProfit, Days, TotalProfit\n")
    {}

    void offer(int period, int low, int high, const RsiScore &score)
    {
        if (score.days == 0)
            return;
        const double perDay = score.perDay();
        if (!(perDay > kMinDayProfit) || perDay == mLastPerDay)
            return;
        mLastPerDay = perDay;
        mText += QByteArray::number(period) + ',' + QByteArray::number(low) + ',' +
                 QByteArray::number(high) + ',' + QByteArray::number(score.trades) + ',' +
                 QByteArray::number(perDay, 'g', 9) + ',' + QByteArray::number(score.days) + ',' +
                 QByteArray::number(score.total, 'g', 9) + '\n';
    }

    QByteArray text() const { return mText; }

private:
    QByteArray mText;
    double mLastPerDay = 0.0;
};

RsiPeriods clamped(const RsiPeriods &periods)
{
    return {std::max(periods.from, kMinPeriod), std::min(periods.to, kMaxPeriod)};
}

// For one period: the bars at which the RSI crosses up through each low level and down
// through each high level of the grid, ascending. The rule's comparisons with integer
// levels select exactly the integers between two neighbouring values, so each bar costs
// only the levels it crosses.
struct Crossings
{
    std::vector<std::vector<int>> up;   // [L], L in 1 .. kMaxLow
    std::vector<std::vector<int>> down; // [H], H in kMinHigh .. kMaxHigh

    Crossings(const Series &rsi, int period)
        : up(kMaxLow + 1)
        , down(kMaxHigh + 1)
    {
        const int n = rsi.size();
        const float *r = rsi.constData();
        for (int i = period + 1; i < n; ++i) {
            const float a = r[i - 1];
            const float b = r[i];
            // NaN crosses nothing: every comparison with it is false.
            if (!(a == a) || !(b == b))
                continue;
            if (a < b && i < n - 1) {
                // a < L <= b
                const int first = std::max(int(std::floor(a)) + 1, 1);
                const int last = std::min(int(std::floor(b)), kMaxLow);
                for (int level = first; level <= last; ++level)
                    up[level].push_back(i);
            } else if (a > b) {
                // b <= H < a
                const int first = std::max(int(std::ceil(b)), kMinHigh);
                const int last = std::min(int(std::ceil(a)) - 1, kMaxHigh);
                for (int level = first; level <= last; ++level)
                    down[level].push_back(i);
            }
        }
    }
};

// The rule over the crossing lists of one (L, H): the next entry is the first up-cross
// after the last exit, its exit the first down-cross after the entry. Each trade costs the
// crossings it steps over, and nothing is allocated.
RsiScore scoreOf(const std::vector<int> &ups, const std::vector<int> &downs, const float *close,
                 int last)
{
    RsiScore score;
    auto up = ups.begin();
    auto down = downs.begin();
    int after = -1;
    for (;;) {
        while (up != ups.end() && *up <= after)
            ++up;
        if (up == ups.end())
            break;
        const int entry = *up;
        while (down != downs.end() && *down <= entry)
            ++down;
        const int exit = down == downs.end() ? last : *down;
        score.add(close[entry], close[exit], exit - entry);
        if (down == downs.end())
            break;
        after = exit;
    }
    return score;
}
} // namespace

Series rsiOf(const QVector<QuoteBar> &bars, int period)
{
    return computeRSI(bars, {{QStringLiteral("Period"), float(period)}})
        .buffers.value(QStringLiteral("RSI"));
}

QVector<RsiTrade> rsiTrades(const Series &rsi, int period, float low, float high)
{
    QVector<RsiTrade> trades;
    const int n = rsi.size();
    bool open = false;
    int entry = 0;
    for (int i = std::max(period + 1, 1); i < n; ++i) {
        const float a = rsi.at(i - 1);
        const float b = rsi.at(i);
        if (!open) {
            if (i < n - 1 && a < low && low <= b) {
                open = true;
                entry = i;
            }
        } else if (a > high && high >= b) {
            trades.append({entry, i});
            open = false;
        }
    }
    if (open)
        trades.append({entry, n - 1});
    return trades;
}

QByteArray rsiCalibrationTable(const QVector<QuoteBar> &bars, const RsiPeriods &periods,
                               const std::function<void(int)> &progress)
{
    const RsiPeriods range = clamped(periods);
    const Series close = closes(bars);
    const int last = bars.size() - 1;
    Table table;
    for (int p = range.from; p <= range.to; ++p) {
        if (progress)
            progress(p);
        const Crossings crossings(rsiOf(bars, p), p);
        for (int high = kMinHigh; high <= kMaxHigh; ++high)
            for (int low = 1; low <= high - kMinSpread; ++low)
                table.offer(
                    p, low, high,
                    scoreOf(crossings.up[low], crossings.down[high], close.constData(), last));
    }
    return table.text();
}

QByteArray rsiCalibrationTablePlain(const QVector<QuoteBar> &bars, const RsiPeriods &periods)
{
    const RsiPeriods range = clamped(periods);
    Table table;
    for (int p = range.from; p <= range.to; ++p) {
        const Series rsi = rsiOf(bars, p);
        for (int high = 1; high <= kMaxHigh; ++high) {
            for (int low = 1; low < high; ++low) {
                if (high - low < kMinSpread)
                    continue;
                RsiScore score;
                for (const RsiTrade &t : rsiTrades(rsi, p, float(low), float(high)))
                    score.add(bars.at(t.entry).close(), bars.at(t.exit).close(), t.exit - t.entry);
                table.offer(p, low, high, score);
            }
        }
    }
    return table.text();
}

} // namespace Indicators
