#include "calibrator.h"

#include "browser/calibratorthread.h"

#include <QDesktopServices>
#include <QDir>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QListWidget>
#include <QProgressBar>
#include <QPushButton>
#include <QSignalBlocker>
#include <QSpinBox>
#include <QUrl>
#include <QVBoxLayout>

namespace OrdaneBrowser {

namespace {
QLabel *labelFor(QWidget *buddy, const QString &text, QWidget *parent)
{
    auto *label = new QLabel(text, parent);
    label->setBuddy(buddy);
    return label;
}
} // namespace

Calibrator::Calibrator(QWidget *parent)
    : QDialog(parent)
    , mIndicators(new QListWidget(this))
    , mQuotes(new QListWidget(this))
    , mFrom(new QSpinBox(this))
    , mTo(new QSpinBox(this))
    , mProgress(new QProgressBar(this))
    , mFiles(new QListWidget(this))
    , mStatus(new QLabel(this))
    , mCalibrate(new QPushButton(tr("&Calibrate"), this))
    , mHide(new QPushButton(tr("&Hide"), this))
    , mClose(new QPushButton(tr("&Close"), this))
{
    setObjectName(QStringLiteral("Calibrator"));
    setWindowTitle(tr("Halcyra Calibrator"));
    resize(560, 460);

    mIndicators->setObjectName(QStringLiteral("CalibratorIndicators"));
    mIndicators->addItem(QStringLiteral("RSI"));
    mIndicators->setCurrentRow(0);
    mIndicators->setToolTip(tr("Only the RSI can be calibrated so far"));
    mQuotes->setObjectName(QStringLiteral("CalibratorQuotes"));
    mQuotes->setSelectionMode(QAbstractItemView::ExtendedSelection);
    mQuotes->setToolTip(tr("The symbols to calibrate, in this order. Add them with \"Send to "
                           "Calibrator\" in the browser's list; Delete removes the selected."));
    for (QSpinBox *box : {mFrom, mTo})
        box->setRange(2, 99);
    mFrom->setObjectName(QStringLiteral("CalibratorPeriodFrom"));
    mFrom->setValue(2);
    mTo->setObjectName(QStringLiteral("CalibratorPeriodTo"));
    mTo->setValue(99);
    // The range never turns over: each end pushes the other along.
    connect(mFrom, qOverload<int>(&QSpinBox::valueChanged), this, [this](int v) {
        if (mTo->value() < v)
            mTo->setValue(v);
    });
    connect(mTo, qOverload<int>(&QSpinBox::valueChanged), this, [this](int v) {
        if (mFrom->value() > v)
            mFrom->setValue(v);
    });
    mProgress->setObjectName(QStringLiteral("CalibratorProgress"));
    mProgress->setRange(2, 99);
    mProgress->setValue(2);
    mFiles->setObjectName(QStringLiteral("CalibratorResults"));
    mStatus->setObjectName(QStringLiteral("CalibratorStatus"));
    mStatus->setWordWrap(true);
    mCalibrate->setObjectName(QStringLiteral("CalibratorCalibrate"));
    mCalibrate->setCheckable(true);
    mCalibrate->setAutoDefault(false);
    mHide->setObjectName(QStringLiteral("CalibratorHide"));
    mHide->setAutoDefault(false);
    mClose->setObjectName(QStringLiteral("CalibratorClose"));
    mClose->setAutoDefault(false);

    mFiles->setToolTip(tr("Double-click a table to open it"));
    connect(mFiles, &QListWidget::itemDoubleClicked, this, [](QListWidgetItem *item) {
        const QString path = item->data(Qt::UserRole).toString();
        if (!path.isEmpty())
            QDesktopServices::openUrl(QUrl::fromLocalFile(path));
    });
    connect(mCalibrate, &QPushButton::clicked, this, &Calibrator::slotCalibrate);
    connect(mHide, &QPushButton::clicked, this, &QWidget::hide);
    connect(mClose, &QPushButton::clicked, this, [this] {
        if (mCalibrate->isChecked()) {
            mCalibrate->setChecked(false);
            slotCalibrate();
        }
        reject();
    });

    auto *lists = new QGridLayout;
    lists->addWidget(labelFor(mIndicators, tr("&Indicators"), this), 0, 0);
    // The leading blank is part of the label; keep.
    lists->addWidget(labelFor(mQuotes, tr(" Quotes"), this), 0, 1);
    lists->addWidget(mIndicators, 1, 0);
    lists->addWidget(mQuotes, 1, 1);
    lists->setColumnStretch(1, 2);
    auto *period = new QHBoxLayout;
    period->addWidget(labelFor(mFrom, tr("Period:"), this));
    period->addWidget(mFrom);
    period->addWidget(new QLabel(tr("to"), this));
    period->addWidget(mTo);
    period->addStretch(1);
    auto *buttons = new QHBoxLayout;
    buttons->addStretch(1);
    for (QPushButton *b : {mCalibrate, mHide, mClose})
        buttons->addWidget(b);
    auto *layout = new QVBoxLayout(this);
    layout->addLayout(lists, 2);
    layout->addLayout(period);
    layout->addWidget(mProgress);
    layout->addWidget(labelFor(mFiles, tr("Result files:"), this));
    layout->addWidget(mFiles, 1);
    layout->addWidget(mStatus);
    layout->addLayout(buttons);
}

Calibrator::~Calibrator()
{
    if (mThread)
        mThread->wait();
}

QStringList Calibrator::symbols() const
{
    QStringList list;
    for (int i = 0; i < mQuotes->count(); ++i)
        list << mQuotes->item(i)->text();
    return list;
}

Indicators::RsiPeriods Calibrator::periods() const
{
    return {mFrom->value(), mTo->value()};
}

void Calibrator::slotAddSymbol(const QString &symbol)
{
    if (!symbol.isEmpty() && !symbols().contains(symbol))
        mQuotes->addItem(symbol);
}

void Calibrator::slotCalibrate()
{
    if (!mCalibrate->isChecked()) {
        mCalibrate->setText(tr("&Calibrate"));
        if (isRunning()) {
            // The symbol under way finishes; slotDone() then ends the run.
            mCalibrate->setEnabled(false);
            mStatus->setText(tr("Stopping after %1 ...").arg(mThread->symbol()));
        }
        return;
    }
    if (isRunning())
        return;
    if (mQuotes->count() == 0) {
        mCalibrate->setChecked(false);
        mStatus->setText(tr("List the symbols to calibrate first: \"Send to Calibrator\" in "
                            "the browser's list adds them."));
        return;
    }
    mResults.clear();
    mFailures.clear();
    mFiles->clear();
    mNext = 0;
    mCalibrate->setText(tr("&Stop"));
    setEditable(false);
    startNext();
}

void Calibrator::startNext()
{
    const QString symbol = mQuotes->item(mNext)->text();
    qCDebug(lcCalibrator, "%s", qPrintable(QStringLiteral("Symbol:") + symbol));
    mQuotes->setCurrentRow(mNext);
    const Indicators::RsiPeriods range = periods();
    mProgress->setRange(range.from, range.to);
    mProgress->setValue(range.from);
    mStatus->setText(
        tr("Calibrating %1 (%2 of %3) ...").arg(symbol).arg(mNext + 1).arg(mQuotes->count()));
    auto *thread = new CalibratorThread(symbol, range, this);
    connect(thread, &CalibratorThread::progress, mProgress, &QProgressBar::setValue,
            Qt::QueuedConnection);
    connect(thread, &CalibratorThread::done, this, &Calibrator::slotDone, Qt::QueuedConnection);
    mThread = thread;
    thread->start();
}

void Calibrator::slotDone(const QString &symbol)
{
    qCDebug(lcCalibrator, "%s", qPrintable(QStringLiteral("Done:") + symbol));
    if (mThread) {
        // done() is the thread's last act; waiting keeps to one thread at a time.
        mThread->wait();
        if (mThread->resultFile().isEmpty()) {
            mFailures << symbol;
            mFiles->addItem(tr("%1: not calibrated (%2)").arg(symbol, mThread->errorString()));
        } else {
            const QString path = mThread->resultFile();
            mResults << path;
            auto *item = new QListWidgetItem(QDir::toNativeSeparators(path), mFiles);
            item->setData(Qt::UserRole, path);
        }
        mThread->deleteLater();
        mThread = nullptr;
    }
    ++mNext;
    if (mCalibrate->isChecked() && mNext < mQuotes->count())
        startNext();
    else
        finishRun();
}

void Calibrator::finishRun()
{
    {
        const QSignalBlocker quiet(mCalibrate);
        mCalibrate->setChecked(false);
    }
    mCalibrate->setText(tr("&Calibrate"));
    mCalibrate->setEnabled(true);
    setEditable(true);
    QString text = mResults.size() == 1 ? tr("1 result file written.")
                                        : tr("%1 result files written.").arg(mResults.size());
    if (!mFailures.isEmpty())
        text +=
            QLatin1Char(' ') + tr("Not calibrated: %1.").arg(mFailures.join(QStringLiteral(", ")));
    mStatus->setText(text);
    emit runFinished();
}

void Calibrator::setEditable(bool on)
{
    mFrom->setEnabled(on);
    mTo->setEnabled(on);
    mIndicators->setEnabled(on);
}

void Calibrator::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Delete && !isRunning() && mQuotes->hasFocus()) {
        qDeleteAll(mQuotes->selectedItems());
        return;
    }
    QDialog::keyPressEvent(event);
}

} // namespace OrdaneBrowser
