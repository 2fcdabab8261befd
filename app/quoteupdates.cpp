#include "quoteupdates.h"

#include <QProgressBar>
#include <QStatusBar>
#include <QToolButton>

namespace Halcyra {

QuoteUpdates::QuoteUpdates(OrdaneData::DataManager *manager, QStatusBar *statusBar, QObject *parent)
    : QObject(parent)
    , mManager(manager)
    , mStatusBar(statusBar)
    , mProgress(new QProgressBar(statusBar))
    , mStop(new QToolButton(statusBar))
{
    mProgress->setObjectName(QStringLiteral("QuoteUpdatesProgress"));
    mProgress->setMaximumWidth(220);
    mProgress->setFormat(tr("Quotes %v of %m"));
    mStop->setObjectName(QStringLiteral("QuoteUpdatesStop"));
    mStop->setText(tr("Stop"));
    mStop->setToolTip(tr("Stop updating the quotes after the symbol under way"));
    mStatusBar->addPermanentWidget(mProgress);
    mStatusBar->addPermanentWidget(mStop);
    mProgress->hide();
    mStop->hide();
    connect(mStop, &QToolButton::clicked, this, &QuoteUpdates::stop);
}

QuoteUpdates::~QuoteUpdates()
{
    if (mThread) {
        mThread->disconnect(this);
        mThread->stop();
        mThread->wait();
    }
}

bool QuoteUpdates::start(const QStringList &symbols)
{
    if (mThread) {
        mStatusBar->showMessage(tr("The quotes are being updated already."), 8000);
        return false;
    }
    if (!mManager->service().hasTables()) {
        mStatusBar->showMessage(OrdaneData::QuoteService::notConfigured(), 8000);
        return false;
    }
    mSummary = {};
    mThread = new OrdaneData::DataManagerThread(mManager, symbols);
    connect(mThread, &OrdaneData::DataManagerThread::updated, this, &QuoteUpdates::symbolDone);
    connect(mThread, &OrdaneData::DataManagerThread::progress, mProgress, &QProgressBar::setValue);
    connect(mThread, &QThread::finished, this, &QuoteUpdates::runEnded);
    mProgress->setRange(0, symbols.size());
    mProgress->setValue(0);
    mProgress->show();
    mStop->setEnabled(true);
    mStop->show();
    mThread->start();
    return true;
}

void QuoteUpdates::stop()
{
    if (!mThread)
        return;
    mStop->setEnabled(false);
    mThread->stop();
}

void QuoteUpdates::symbolDone(const QString &symbol, const OrdaneData::UpdateOutcome &outcome)
{
    mSummary.add(symbol, outcome);
    mStatusBar->showMessage(outcome.describe(symbol), 4000);
    if (outcome.kind == OrdaneData::UpdateOutcome::Updated)
        emit symbolChanged(symbol);
}

void QuoteUpdates::runEnded()
{
    const bool stopped = mThread && mThread->isStopped();
    mThread = nullptr;
    mProgress->hide();
    mStop->hide();
    QString text = mSummary.describe();
    if (stopped)
        text = tr("Stopped. %1").arg(text);
    mStatusBar->showMessage(text, 15000);
    emit finished(mSummary);
}

} // namespace Halcyra
