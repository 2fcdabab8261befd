// The storage browser's trading simulator and its way to the calibrator.

#include "calibrator.h"
#include "data/reader.h"
#include "simulator.h"
#include "stocklist.h"
#include "storagebrowser.h"

#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QSignalBlocker>
#include <QVBoxLayout>

namespace OrdaneBrowser {

namespace {
// The bars a simulation starts with: enough for the usual indicators to have values.
constexpr int kFirstSimulatedBars = 70;
// The controls that fetch symbols or change the list, off while simulating.
const char *const kBrowsingButtons[] = {"StorageBrowserSS", "StorageBrowserLS",
                                        "StorageBrowserListOperations", "StorageBrowserID"};
} // namespace

void StorageBrowser::buildSimulationControls(QGridLayout *tools, QVBoxLayout *layout)
{
    mSimulate = new QPushButton(tr("Simulator"), this);
    mSimulate->setObjectName(QStringLiteral("StorageBrowserSI"));
    mSimulate->setCheckable(true);
    mSimulate->setToolTip(tr("Trade the selected symbol day by day from its oldest quotes"));
    auto *calibrate = new QPushButton(tr("Calibrate"), this);
    calibrate->setObjectName(QStringLiteral("StorageBrowserC"));
    calibrate->setToolTip(tr("Search the parameters of an indicator's trading rule"));
    tools->addWidget(mSimulate, 1, 1);
    tools->addWidget(calibrate, 1, 2);

    mSimulator = new Simulator(this);
    mSimulator->hide();
    layout->insertWidget(layout->indexOf(mList) + 1, mSimulator, 1);

    connect(mSimulate, &QPushButton::clicked, this, &StorageBrowser::slotSimulation);
    connect(calibrate, &QPushButton::clicked, this, &StorageBrowser::slotCreateCalibrator);
    connect(mSimulator, &Simulator::nextDay, this, &StorageBrowser::slotNextDay);
    connect(mSimulator, &Simulator::goShort, this, &StorageBrowser::slotGoShort);
    connect(mSimulator, &Simulator::goLong, this, &StorageBrowser::slotGoLong);
    connect(mSimulator, &Simulator::closePosition, this, &StorageBrowser::slotClosePosition);
    connect(mSimulator, &Simulator::stopLos, this, &StorageBrowser::slotStopLos);
    connect(mSimulator, &Simulator::takeProfitChanged, this, &StorageBrowser::slotTakeProfit);
}

bool StorageBrowser::isSimulating() const
{
    return mSimulating;
}

void StorageBrowser::slotSimulation()
{
    const bool on = mSimulate->isChecked();
    if (on == mSimulating)
        return;
    if (on) {
        startSimulation();
    } else if (!stopSimulation()) {
        const QSignalBlocker quiet(mSimulate);
        mSimulate->setChecked(true);
    }
}

void StorageBrowser::startSimulation()
{
    QTreeWidgetItem *row = mList->currentItem();
    const QString refusal = !row           ? tr("Select the symbol to simulate first.")
                            : isFetching() ? tr("Wait for the fetch under way to end.")
                                           : QString();
    if (!refusal.isEmpty()) {
        const QSignalBlocker quiet(mSimulate);
        mSimulate->setChecked(false);
        emit message(refusal);
        return;
    }
    const QString symbol = row->text(StockList::SymbolColumn);
    mSimulating = true;
    OrdaneData::Reader::setHistoryLimit(kFirstSimulatedBars);
    mSimulation.reset(symbol);
    mSimulation.setStopLoss(mSimulator->stopLoss());
    mSimulation.setTakeProfit(mSimulator->takeProfit());
    mSimulator->reset(symbol);
    mSimulator->show();
    reloadChart();
    mSimulator->showSimulation(mSimulation);
    setBrowsingEnabled(false);
    emit simulatorOff(false);
}

bool StorageBrowser::stopSimulation()
{
    // Worded and spelled so on purpose; keep.
    const auto answer = QMessageBox::information(
        this, QString(),
        tr("You are about to leave the simulation mode.\nIt will erase you report data.\nClose "
           "anyway?"),
        QMessageBox::Ok | QMessageBox::Cancel);
    if (answer != QMessageBox::Ok)
        return false;
    mSimulating = false;
    OrdaneData::Reader::setHistoryLimit(-1);
    mSimulator->hide();
    mSimulation.reset(QString());
    mSimulator->reset();
    reloadChart();
    emit simulatorOff(true);
    setBrowsingEnabled(true);
    return true;
}

bool StorageBrowser::reloadChart()
{
    QTreeWidgetItem *row = mList->currentItem();
    if (!row)
        return false;
    const OrdaneData::ReaderH reader = load(row->text(StockList::SymbolColumn));
    if (reader.isNull())
        return false;
    // Handed over before the chart gets it: the chart turns the same series into its frame.
    if (mSimulating)
        mSimulation.setSeries(reader);
    emit chartItemSeletected(reader);
    return true;
}

void StorageBrowser::setBrowsingEnabled(bool on)
{
    for (QWidget *w : std::initializer_list<QWidget *>{mSymbol, mAdd, mFind, mList})
        w->setEnabled(on);
    for (const char *name : kBrowsingButtons)
        if (auto *b = findChild<QPushButton *>(QLatin1String(name)))
            b->setEnabled(on);
    // The panel takes the list's room: the dock is seldom tall enough for both, and the
    // panel names the symbol.
    mList->setVisible(on);
    mCount->setVisible(on);
}

void StorageBrowser::slotNextDay()
{
    if (!mSimulating)
        return;
    // The series is cut to the limit at each load, so one shorter than the limit has shown
    // its last stored day already.
    const int limit = OrdaneData::Reader::historyLimit();
    if (mSimulation.barCount() >= limit) {
        OrdaneData::Reader::setHistoryLimit(limit + 1);
        reloadChart();
    }
    if (mSimulation.barCount() <= limit) {
        if (mSimulation.close(SimulatedTrade::EndOfData)) {
            mSimulator->showSimulation(mSimulation);
            mSimulator->positionClosedBy(SimulatedTrade::EndOfData);
        }
        QMessageBox::information(
            this, tr("Information"),
            tr("%1 has no more stored days to simulate.").arg(mSimulation.symbol()));
        return;
    }
    const bool closed = mSimulation.checkLevels();
    mSimulator->showSimulation(mSimulation);
    if (closed)
        mSimulator->positionClosedBy(mSimulation.trades().constLast().closedBy);
}

void StorageBrowser::slotGoShort()
{
    if (!mSimulating || !mSimulation.open(SimulatedTrade::Short))
        mSimulator->clearPosition();
    mSimulator->showSimulation(mSimulation);
}

void StorageBrowser::slotGoLong()
{
    if (!mSimulating || !mSimulation.open(SimulatedTrade::Long))
        mSimulator->clearPosition();
    mSimulator->showSimulation(mSimulation);
}

void StorageBrowser::slotClosePosition()
{
    mSimulation.close(SimulatedTrade::ByUser);
    mSimulator->showSimulation(mSimulation);
}

void StorageBrowser::slotStopLos(int percent)
{
    mSimulation.setStopLoss(percent);
}

void StorageBrowser::slotTakeProfit(int percent)
{
    mSimulation.setTakeProfit(percent);
}

Calibrator *StorageBrowser::ensureCalibrator()
{
    if (!mCalibrator) {
        mCalibrator = new Calibrator(this);
        connect(this, &StorageBrowser::addSymbolToCalibrator, mCalibrator,
                &Calibrator::slotAddSymbol);
    }
    return mCalibrator;
}

void StorageBrowser::sendToCalibrator(const QString &symbol)
{
    ensureCalibrator()->show();
    emit addSymbolToCalibrator(symbol);
}

void StorageBrowser::slotCreateCalibrator()
{
    Calibrator *calibrator = ensureCalibrator();
    for (const QString &symbol : checkedSymbols())
        emit addSymbolToCalibrator(symbol);
    calibrator->show();
    calibrator->raise();
    calibrator->activateWindow();
}

} // namespace OrdaneBrowser
