#include "simulator.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QMessageBox>
#include <QPainter>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSignalBlocker>
#include <QSpinBox>
#include <QVBoxLayout>

namespace OrdaneBrowser {

namespace {
QSpinBox *percentBox(QWidget *parent, int maximum)
{
    auto *box = new QSpinBox(parent);
    box->setRange(1, maximum);
    box->setValue(10);
    box->setSuffix(QStringLiteral(" %"));
    box->setEnabled(false);
    return box;
}
} // namespace

Simulator::Simulator(QWidget *parent)
    : QWidget(parent)
    , mNext(new QPushButton(tr("Next >>"), this))
    , mShort(new QPushButton(tr("Go &Short"), this))
    , mLong(new QPushButton(tr("&Buy"), this))
    , mReport(new QPushButton(tr("&Report..."), this))
    , mStopLoss(new QCheckBox(tr("Stop Loss:"), this))
    , mStopLossPercent(percentBox(this, 99))
    , mTakeProfit(new QCheckBox(tr("Take Profit:"), this))
    , mTakeProfitPercent(percentBox(this, 1000))
    , mDay(new QLabel(this))
    , mText(new QPlainTextEdit(this))
{
    setObjectName(QStringLiteral("Simulator"));
    // Light text on the black the panel paints, also under the program's style sheet, whose
    // backgrounds would otherwise hide the black behind the labels and check boxes.
    QPalette colours = palette();
    colours.setColor(QPalette::Window, Qt::black);
    colours.setColor(QPalette::WindowText, QColor(0xdf, 0xe5, 0xec));
    setPalette(colours);
    setStyleSheet(QStringLiteral("QLabel, QCheckBox { background: transparent; }"));

    mNext->setObjectName(QStringLiteral("SimulatorNext"));
    mNext->setToolTip(tr("Show the next day"));
    mShort->setObjectName(QStringLiteral("SimulatorShort"));
    mShort->setCheckable(true);
    mShort->setToolTip(tr("Sell short at today's close; press again to close the position"));
    mLong->setObjectName(QStringLiteral("SimulatorBuy"));
    mLong->setCheckable(true);
    mLong->setToolTip(tr("Buy at today's close; press again to sell"));
    mReport->setObjectName(QStringLiteral("SimulatorReport"));
    mStopLoss->setObjectName(QStringLiteral("SimulatorStopLoss"));
    mStopLossPercent->setObjectName(QStringLiteral("SimulatorStopLossPercent"));
    mTakeProfit->setObjectName(QStringLiteral("SimulatorTakeProfit"));
    mTakeProfitPercent->setObjectName(QStringLiteral("SimulatorTakeProfitPercent"));
    mDay->setObjectName(QStringLiteral("SimulatorDay"));
    mDay->setWordWrap(true);
    mText->setObjectName(QStringLiteral("SimulatorText"));
    mText->setReadOnly(true);
    mText->setMinimumHeight(90);

    connect(mNext, &QPushButton::clicked, this, &Simulator::nextDay);
    connect(mShort, &QPushButton::toggled, this, &Simulator::slotShortPressed);
    connect(mLong, &QPushButton::toggled, this, &Simulator::slotLongPressed);
    connect(mReport, &QPushButton::clicked, this, &Simulator::slotReport);
    connect(mStopLoss, &QCheckBox::toggled, this, &Simulator::slotStopLosCliked);
    connect(mTakeProfit, &QCheckBox::toggled, this, &Simulator::slotTakeProfitClicked);
    connect(mStopLossPercent, qOverload<int>(&QSpinBox::valueChanged), this,
            [this] { emit stopLos(stopLoss()); });
    connect(mTakeProfitPercent, qOverload<int>(&QSpinBox::valueChanged), this,
            [this] { emit takeProfitChanged(takeProfit()); });

    auto *buttons = new QHBoxLayout;
    for (QPushButton *b : {mNext, mShort, mLong, mReport})
        buttons->addWidget(b);
    auto *levels = new QGridLayout;
    levels->addWidget(mStopLoss, 0, 0);
    levels->addWidget(mStopLossPercent, 0, 1);
    levels->addWidget(mTakeProfit, 0, 2);
    levels->addWidget(mTakeProfitPercent, 0, 3);
    levels->setColumnStretch(4, 1);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(4, 4, 4, 4);
    layout->addLayout(buttons);
    layout->addLayout(levels);
    layout->addWidget(mDay);
    layout->addWidget(mText, 1);
}

QString Simulator::reportText() const
{
    return mText->toPlainText();
}

int Simulator::stopLoss() const
{
    return mStopLoss->isChecked() ? mStopLossPercent->value() : 0;
}

int Simulator::takeProfit() const
{
    return mTakeProfit->isChecked() ? mTakeProfitPercent->value() : 0;
}

void Simulator::reset(const QString &symbol)
{
    mFigures = SimulationFigures();
    mFigures.symbol = symbol;
    mTrades.clear();
    clearPosition();
    mDay->clear();
    mText->clear();
}

void Simulator::showSimulation(const Simulation &simulation)
{
    mFigures = simulation.figures();
    mTrades = simulation.trades();
    showDay(simulation);
}

void Simulator::showDay(const Simulation &simulation)
{
    if (!simulation.hasDay()) {
        mDay->setText(tr("%1: no day to trade on.").arg(simulation.symbol()));
        return;
    }
    QString text = tr("%1, %2: close %3.")
                       .arg(simulation.symbol(), simulation.day().toString())
                       .arg(QString::number(double(simulation.price()), 'g', 6));
    if (simulation.hasPosition()) {
        const bool isLong = simulation.direction() == SimulatedTrade::Long;
        const double change = isLong ? simulation.change() : -simulation.change();
        text += QLatin1Char(' ') +
                (isLong ? tr("Long since %1 at %2: %3%.") : tr("Short since %1 at %2: %3%."))
                    .arg(mFigures.startDate.toString(),
                         QString::number(double(mFigures.startValue), 'g', 6),
                         QString::number(change, 'f', 2));
    }
    text += QLatin1Char(' ') +
            tr("Total: %1%.").arg(QString::number(double(mFigures.totalProfit), 'f', 2));
    mDay->setText(text);
}

void Simulator::clearPosition()
{
    const QSignalBlocker quietShort(mShort);
    const QSignalBlocker quietLong(mLong);
    mShort->setChecked(false);
    mLong->setChecked(false);
    mShort->setText(tr("Go &Short"));
    mLong->setText(tr("&Buy"));
    mShort->setEnabled(true);
    mLong->setEnabled(true);
}

void Simulator::positionClosedBy(SimulatedTrade::Exit why)
{
    clearPosition();
    if (why == SimulatedTrade::StopLoss)
        QMessageBox::information(this, tr("Information"), tr("The \"StopLos\" is triggered!"));
    else if (why == SimulatedTrade::TakeProfit)
        QMessageBox::information(this, tr("Information"), tr("The \"TakeProfit\" is triggered!"));
}

void Simulator::slotShortPressed()
{
    const bool on = mShort->isChecked();
    mShort->setText(on ? tr("&Close Position") : tr("Go &Short"));
    mLong->setEnabled(!on);
    if (on)
        emit goShort();
    else
        emit closePosition();
}

void Simulator::slotLongPressed()
{
    const bool on = mLong->isChecked();
    mLong->setText(on ? tr("&Sale") : tr("&Buy"));
    mShort->setEnabled(!on);
    if (on)
        emit goLong();
    else
        emit closePosition();
}

void Simulator::slotReport()
{
    mText->setPlainText(simulationReport(mFigures, mTrades));
}

void Simulator::slotStopLosCliked()
{
    mStopLossPercent->setEnabled(mStopLoss->isChecked());
    emit stopLos(stopLoss());
}

void Simulator::slotTakeProfitClicked()
{
    mTakeProfitPercent->setEnabled(mTakeProfit->isChecked());
    emit takeProfitChanged(takeProfit());
}

void Simulator::paintEvent(QPaintEvent *event)
{
    Q_UNUSED(event)
    QPainter(this).fillRect(rect(), Qt::black);
}

} // namespace OrdaneBrowser
