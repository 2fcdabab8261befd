#include "simulation.h"

#include "data/reader.h"

namespace OrdaneBrowser {

namespace {
QString number(double value)
{
    return QString::number(value, 'g', 6);
}

QString closedBy(SimulatedTrade::Exit why)
{
    switch (why) {
    case SimulatedTrade::ByUser:
        break;
    case SimulatedTrade::StopLoss:
        return Simulation::tr("by the stop loss");
    case SimulatedTrade::TakeProfit:
        return Simulation::tr("by the take profit");
    case SimulatedTrade::EndOfData:
        return Simulation::tr("at the end of the data");
    }
    return Simulation::tr("by the user");
}
} // namespace

QString simulationReport(const SimulationFigures &f, const QVector<SimulatedTrade> &trades)
{
    const QString unknown = QStringLiteral("?");
    const bool start = f.startValue > 0;
    const bool end = f.endValue > 0;
    QString text =
        QStringLiteral("=========Symbol:%1========\nStart Value: %2 (Date: %3)\nEnd Value  : "
                       "%4 (Date: %5)\nProfit: %6%\n---------------------------\nTotal Profit: "
                       "%7%\n")
            .arg(f.symbol, start ? number(f.startValue) : unknown,
                 start ? f.startDate.toString() : unknown, end ? number(f.endValue) : unknown,
                 end ? f.endDate.toString() : unknown, number(f.profit), number(f.totalProfit));
    text += QLatin1Char('\n') + Simulation::tr("Trades of this session: %1").arg(trades.size()) +
            QLatin1Char('\n');
    for (int i = 0; i < trades.size(); ++i) {
        const SimulatedTrade &t = trades.at(i);
        text += Simulation::tr("%1. %2, %3 at %4 to %5 at %6: %7%, closed %8")
                    .arg(i + 1)
                    .arg(t.direction == SimulatedTrade::Long ? Simulation::tr("Long")
                                                             : Simulation::tr("Short"),
                         t.entryDate.toString(), number(t.entry), t.exitDate.toString(),
                         number(t.exit), number(t.percent), closedBy(t.closedBy)) +
                QLatin1Char('\n');
    }
    return text;
}

void Simulation::reset(const QString &symbol)
{
    mSymbol = symbol;
    mSeries = {};
    mDay = {};
    mPrice = 0.0f;
    mBars = 0;
    mOpen = false;
    mTrades.clear();
}

void Simulation::setSeries(const OrdaneData::ReaderH &series)
{
    mSeries = series;
    mBars = series.isNull() ? 0 : series->count();
    if (mBars == 0) {
        mDay = {};
        mPrice = 0.0f;
        return;
    }
    const QuoteBar &newest = series->bar(mBars - 1);
    mDay = newest.date();
    mPrice = newest.close();
}

bool Simulation::open(SimulatedTrade::Direction direction)
{
    if (mOpen || !hasDay())
        return false;
    mPosition = SimulatedTrade();
    mPosition.direction = direction;
    mPosition.entryDate = mDay;
    mPosition.entry = mPrice;
    mOpen = true;
    return true;
}

double Simulation::change() const
{
    if (!mOpen)
        return 0.0;
    return (double(mPrice) - double(mPosition.entry)) * 100.0 / double(mPosition.entry);
}

bool Simulation::close(SimulatedTrade::Exit why)
{
    if (!mOpen)
        return false;
    SimulatedTrade t = mPosition;
    t.exitDate = mDay;
    t.exit = mPrice;
    const double entry = t.entry;
    t.percent = t.direction == SimulatedTrade::Long ? (double(t.exit) - entry) / entry * 100.0
                                                    : (entry - double(t.exit)) / entry * 100.0;
    t.closedBy = why;
    mTrades.append(t);
    mOpen = false;
    return true;
}

bool Simulation::checkLevels()
{
    if (!mOpen)
        return false;
    const double gain = mPosition.direction == SimulatedTrade::Long ? change() : -change();
    if (mStopLoss > 0 && -gain >= mStopLoss - kLevelTolerance)
        return close(SimulatedTrade::StopLoss);
    if (mTakeProfit > 0 && gain >= mTakeProfit - kLevelTolerance)
        return close(SimulatedTrade::TakeProfit);
    return false;
}

double Simulation::totalProfit() const
{
    double total = 0.0;
    for (const SimulatedTrade &t : mTrades)
        total += t.percent;
    return total;
}

SimulationFigures Simulation::figures() const
{
    SimulationFigures f;
    f.symbol = mSymbol;
    f.totalProfit = float(totalProfit());
    if (!mTrades.isEmpty()) {
        const SimulatedTrade &last = mTrades.constLast();
        f.startValue = last.entry;
        f.startDate = last.entryDate;
        f.endValue = last.exit;
        f.endDate = last.exitDate;
        f.profit = float(last.percent);
    }
    if (mOpen) {
        f.startValue = mPosition.entry;
        f.startDate = mPosition.entryDate;
        f.endValue = -1.0f;
        f.endDate = {};
    }
    return f;
}

} // namespace OrdaneBrowser
