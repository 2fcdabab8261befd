#pragma once

#include "browser/simulation.h"

#include <QWidget>

class QCheckBox;
class QLabel;
class QPlainTextEdit;
class QPushButton;
class QSpinBox;

namespace OrdaneBrowser {

// The trading simulator's panel, on a black background: "Next >>" steps one day, "&Buy"
// (checked: "&Sale") and "Go &Short" (checked: "&Close Position") hold a long or a short
// position, "&Report..." writes the report into the read-only text area, and the
// "Stop Loss:" and "Take Profit:" check boxes each enable their spin box (percent, 10 at
// first). A line above the report tells the simulated day and the open position.
//
// The panel keeps the figures it shows (SimulationFigures) and the trades for the report;
// whoever holds the position (the browser's Simulation) feeds them through showSimulation().
// While one position button is checked the other is disabled.
class Simulator : public QWidget
{
    Q_OBJECT

public:
    explicit Simulator(QWidget *parent = nullptr);

    const SimulationFigures &figures() const { return mFigures; }
    float startValue() const { return mFigures.startValue; }
    QDate startDate() const { return mFigures.startDate; }
    float endValue() const { return mFigures.endValue; }
    QDate endDate() const { return mFigures.endDate; }
    float profit() const { return mFigures.profit; }
    float totalProfit() const { return mFigures.totalProfit; }
    QString symbol() const { return mFigures.symbol; }
    QString reportText() const;

    // The levels as set: the spin box's percent while its check box is ticked, else 0.
    int stopLoss() const;
    int takeProfit() const;

    // Figures back to their start (-1, no dates, 0 %, `symbol`), no trades, both position
    // buttons unchecked, the report and the day line empty. The levels stay as set.
    void reset(const QString &symbol = QString());
    // Takes the figures, trades and day of `simulation`.
    void showSimulation(const Simulation &simulation);
    // Unchecks the position buttons without closePosition(), as after a position that could
    // not be opened or that the simulation closed by itself.
    void clearPosition();
    // The simulation closed the position by itself: the position button is unchecked
    // (without closePosition()), and for a stop loss or a take profit an information box
    // titled "Information" says "The "StopLos" is triggered!" or
    // "The "TakeProfit" is triggered!".
    void positionClosedBy(SimulatedTrade::Exit why);

signals:
    void nextDay();
    void goShort();
    void goLong();
    void closePosition();
    // The stop-loss level whenever it changes: the percent while ticked, 0 when unticked.
    void stopLos(int percent);
    // The same for the take-profit level.
    void takeProfitChanged(int percent);

public slots:
    // The names of these slots and of stopLos() are spelled so in the interface other parts
    // connect to; keep.
    void slotShortPressed();
    void slotLongPressed();
    void slotReport();
    void slotStopLosCliked();
    void slotTakeProfitClicked();

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    void showDay(const Simulation &simulation);

    SimulationFigures mFigures;
    QVector<SimulatedTrade> mTrades;
    QPushButton *mNext;
    QPushButton *mShort;
    QPushButton *mLong;
    QPushButton *mReport;
    QCheckBox *mStopLoss;
    QSpinBox *mStopLossPercent;
    QCheckBox *mTakeProfit;
    QSpinBox *mTakeProfitPercent;
    QLabel *mDay;
    QPlainTextEdit *mText;
};

} // namespace OrdaneBrowser
