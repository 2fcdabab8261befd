#pragma once

#include "computation.h"

#include <QByteArray>

#include <functional>

// A long-only trading rule on the RSI and the search of its parameters over past data.
//
// The rule, for a period P, a low level L and a high level H (RSI values, L < H):
//   - a position opens at the close of bar i when the RSI crosses up through L:
//     RSI[i - 1] < L <= RSI[i];
//   - it closes at the close of the first later bar j where the RSI crosses down through H:
//     RSI[j - 1] > H >= RSI[j], or at the last bar when no such bar comes;
//   - trades never overlap: the next position opens only after the last one closed;
//   - only bars i >= P + 1 trade, so that both RSI[i - 1] and RSI[i] are values of the
//     indicator (bars 0 .. P - 1 hold no RSI), and no position opens at the last bar, where
//     it could only close at once.
namespace Indicators {

struct RsiTrade
{
    int entry; // bar index of the opening close
    int exit;  // bar index of the closing close, > entry

    bool operator==(const RsiTrade &o) const { return entry == o.entry && exit == o.exit; }
};

// The trades of the rule over an RSI buffer computed with `period` (one value per bar).
QVector<RsiTrade> rsiTrades(const Series &rsi, int period, float low, float high);

// The RSI of the closes (the indicator "RSI" with this period), one value per bar.
Series rsiOf(const QVector<QuoteBar> &bars, int period);

// What a list of trades earned, as the calibration counts it: each trade's profit in
// percent is (exit close - entry close) / exit close * 100, worked in double from the
// stored floats and summed in trade order; the days held are the bars between entry and
// exit.
struct RsiScore
{
    int trades = 0;
    int days = 0;
    double total = 0.0;

    void add(float entryClose, float exitClose, int held)
    {
        ++trades;
        days += held;
        total += (double(exitClose) - double(entryClose)) / double(exitClose) * 100.0;
    }
    // Profit per day held; only meaningful when days > 0.
    double perDay() const { return total / days; }
};

// The periods a calibration searches; the levels always span the whole grid.
struct RsiPeriods
{
    int from = 2;
    int to = 99;

    bool isFull() const { return from == 2 && to == 99; }
    bool operator==(const RsiPeriods &o) const { return from == o.from && to == o.to; }
};

// The calibration table as CSV text:
//
//   Period,LowLevel,HighLevel,Trades,DayProfit, Days, TotalProfit
//
// (the blanks before "Days" and "TotalProfit" belong to the header), then one line
// "P,L,H,trades,dayprofit,days,total" per combination worth keeping. Combinations are
// visited P ascending, then H from 1 to 98, then L from 1 to H - 1; those with H - L < 33
// are skipped. A combination with days held is kept when its profit per day is above 0.3
// and differs from the profit per day of the line written last (0 before the first line,
// and not reset between periods). DayProfit and TotalProfit are written with 9
// significant digits ('g' notation), the rest as integers.
//
// `progress` (optional) hears each period before it is searched. Periods outside 2 .. 99
// are left out; a series too short for a period gives it no lines.
QByteArray rsiCalibrationTable(const QVector<QuoteBar> &bars, const RsiPeriods &periods = {},
                               const std::function<void(int)> &progress = {});

// The same table from rsiTrades() run over every bar for every combination: the reference
// that the search above must match byte for byte, tens of times slower. For tests and
// benchmarks.
QByteArray rsiCalibrationTablePlain(const QVector<QuoteBar> &bars, const RsiPeriods &periods = {});

} // namespace Indicators
