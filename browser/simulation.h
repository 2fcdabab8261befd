#pragma once

#include "data/readerh.h"

#include <QCoreApplication>
#include <QDate>
#include <QString>
#include <QVector>

namespace OrdaneBrowser {

// What the simulator panel shows, in the order the panel keeps it.
struct SimulationFigures
{
    float startValue = -1.0f; // the price the position opened at; -1 when none
    QDate startDate;
    float endValue = -1.0f; // the price it closed at; -1 while open or when none
    QDate endDate;
    float profit = 0.0f;      // of the last closed trade, in percent
    float totalProfit = 0.0f; // the sum of the trades' percentages
    QString symbol;
};

struct SimulatedTrade
{
    enum Direction { Long, Short };
    enum Exit { ByUser, StopLoss, TakeProfit, EndOfData };

    Direction direction = Long;
    QDate entryDate;
    float entry = 0.0f;
    QDate exitDate;
    float exit = 0.0f;
    double percent = 0.0; // long: (exit - entry) / entry * 100; short: (entry - exit) / entry * 100
    Exit closedBy = ByUser;
};

// The report the panel shows: the figures as
//
//   =========Symbol:%1========
//   Start Value: %2 (Date: %3)
//   End Value  : %4 (Date: %5)
//   Profit: %6%
//   ---------------------------
//   Total Profit: %7%
//
// with values and percentages in 'g' notation with 6 significant digits, dates in the
// toolkit's default text form, and "?" for a value not above 0 and for its date; then
// every trade of the session, one line each.
QString simulationReport(const SimulationFigures &figures, const QVector<SimulatedTrade> &trades);

// The bookkeeping of one simulation: the simulated day, the open position, the stop-loss and
// take-profit levels, and the trades closed so far. Positions open and close at the close of
// the simulated day, which is the newest bar of the series handed to setSeries().
class Simulation
{
    Q_DECLARE_TR_FUNCTIONS(OrdaneBrowser::Simulation)

public:
    // The tolerance, in percentage points, within which a change counts as reaching a
    // stop-loss or take-profit level: prices stored with six significant digits that move by
    // exactly the level land a few units of the float's last place beside it.
    static constexpr double kLevelTolerance = 1e-4;

    // Starts over for `symbol`: no day, no position, no trades. The levels stay.
    void reset(const QString &symbol);
    QString symbol() const { return mSymbol; }

    // The series as the chart shows it on the simulated day (oldest bar first); its newest bar
    // is the day, read at once. An empty handle or an empty series leaves no day.
    void setSeries(const OrdaneData::ReaderH &series);
    OrdaneData::ReaderH series() const { return mSeries; }
    bool hasDay() const { return mDay.isValid(); }
    QDate day() const { return mDay; }
    float price() const { return mPrice; }
    // The daily bars the series had when it was handed over.
    int barCount() const { return mBars; }

    // Opens a position at the day's close. False (and nothing changes) without a day, or
    // while a position is open.
    bool open(SimulatedTrade::Direction direction);
    bool hasPosition() const { return mOpen; }
    SimulatedTrade::Direction direction() const { return mPosition.direction; }
    // (price - entry) * 100 / entry of the open position, in percent; 0 without one.
    double change() const;
    // Closes the open position at the day's close; false without one.
    bool close(SimulatedTrade::Exit why = SimulatedTrade::ByUser);

    // Levels in percent of the entry price; 0 turns a level off.
    void setStopLoss(int percent) { mStopLoss = percent; }
    void setTakeProfit(int percent) { mTakeProfit = percent; }
    int stopLoss() const { return mStopLoss; }
    int takeProfit() const { return mTakeProfit; }
    // After a step: closes the open position when its loss (a fall for a long position, a
    // rise for a short one) reaches the stop-loss level, or its gain the take-profit level.
    // Returns whether it closed; the trade's closedBy says which.
    bool checkLevels();

    const QVector<SimulatedTrade> &trades() const { return mTrades; }
    double totalProfit() const;
    SimulationFigures figures() const;

private:
    QString mSymbol;
    OrdaneData::ReaderH mSeries;
    QDate mDay;
    float mPrice = 0.0f;
    int mBars = 0;
    bool mOpen = false;
    SimulatedTrade mPosition;
    int mStopLoss = 0;
    int mTakeProfit = 0;
    QVector<SimulatedTrade> mTrades;
};

} // namespace OrdaneBrowser
