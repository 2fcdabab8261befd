#include "browserupdater.h"

#include "browser/updatelist.h"
#include "data/metadata.h"
#include "data/net/dataupdater.h"
#include "stocklist.h"
#include "storagebrowser.h"

#include <QCloseEvent>
#include <QCoreApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QLoggingCategory>
#include <QProgressBar>
#include <QPushButton>
#include <QVBoxLayout>

namespace OrdaneBrowser {

Q_LOGGING_CATEGORY(lcUpdater, "halcyra.browser.updater", QtInfoMsg)

BrowserUpdater::BrowserUpdater(OrdaneData::DataManager *manager, QWidget *parent)
    : QDialog(parent)
    , mManager(manager ? manager : new OrdaneData::DataManager(this))
    , mFields(new OrdaneData::DataUpdater(mManager, this))
    , mHeading(new QLabel(this))
    , mProgress(new QProgressBar(this))
    , mStatus(new QLabel(this))
    , mUpdate(new QPushButton(tr("&Update"), this))
    , mHide(new QPushButton(tr("&Hide"), this))
    , mClose(new QPushButton(tr("&Close"), this))
{
    setObjectName(QStringLiteral("BrowserUpdater"));
    setWindowTitle(tr("%1 Updater").arg(QStringLiteral("Halcyra")));
    setModal(false);

    mHeading->setObjectName(QStringLiteral("BrowserUpdaterMode"));
    mHeading->setAlignment(Qt::AlignCenter);
    mProgress->setObjectName(QStringLiteral("BrowserUpdaterProgress"));
    mProgress->setRange(0, 1);
    mProgress->setValue(0);
    mStatus->setObjectName(QStringLiteral("BrowserUpdaterStatus"));
    mStatus->setTextFormat(Qt::RichText);
    mStatus->setAlignment(Qt::AlignCenter);
    mStatus->setWordWrap(true);
    mStatus->setTextInteractionFlags(Qt::TextSelectableByMouse);
    mStatus->setMinimumSize(320, mStatus->fontMetrics().lineSpacing() * 3);
    mUpdate->setObjectName(QStringLiteral("BrowserUpdaterUpdate"));
    mUpdate->setCheckable(true);
    mHide->setObjectName(QStringLiteral("BrowserUpdaterHide"));
    mClose->setObjectName(QStringLiteral("BrowserUpdaterClose"));
    for (QPushButton *button : {mUpdate, mHide, mClose})
        button->setAutoDefault(false);
    setMode(AllData);

    auto *buttons = new QHBoxLayout;
    buttons->addWidget(mUpdate);
    buttons->addStretch(1);
    buttons->addWidget(mHide);
    buttons->addWidget(mClose);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(mHeading);
    layout->addWidget(mProgress);
    layout->addWidget(mStatus, 1);
    layout->addLayout(buttons);

    connect(mUpdate, &QPushButton::toggled, this, &BrowserUpdater::slotUpdate);
    connect(mHide, &QPushButton::clicked, this, &QWidget::hide);
    connect(mClose, &QPushButton::clicked, this, &QWidget::close);
    connect(mFields, &OrdaneData::DataUpdater::fields, this,
            [this](const QString &symbol, const QString &, const QString &line) {
                if (OrdaneData::MetaData *meta = mManager->metaData())
                    meta->refresh(symbol, line);
            });
    connect(mFields, &OrdaneData::DataUpdater::failed, this,
            [](const QString &symbol, const QString &reason) {
                qCDebug(lcUpdater).noquote() << "no metadata for" << symbol << reason;
            });
    // The run's thread uses the data manager, which may go before this dialog does.
    if (QCoreApplication::instance())
        connect(QCoreApplication::instance(), &QCoreApplication::aboutToQuit, this,
                &BrowserUpdater::abandonRun);
}

BrowserUpdater::~BrowserUpdater()
{
    abandonRun();
}

void BrowserUpdater::abandonRun()
{
    if (!mThread)
        return;
    mThread->disconnect(this);
    mThread->stop();
    mThread->wait();
}

QString BrowserUpdater::modeText(Mode mode)
{
    return mode == AllData ? tr("Update All Data") : tr("Update Visible Items Only");
}

void BrowserUpdater::setMode(Mode mode)
{
    mMode = mode;
    mHeading->setText(modeText(mode));
}

bool BrowserUpdater::isUpdating() const
{
    return mUpdate->isChecked();
}

QString BrowserUpdater::statusText() const
{
    return mStatus->text();
}

StorageBrowser *BrowserUpdater::browser() const
{
    for (QWidget *w = parentWidget(); w; w = w->parentWidget())
        if (auto *found = qobject_cast<StorageBrowser *>(w))
            return found;
    return nullptr;
}

QStringList BrowserUpdater::workList() const
{
    StorageBrowser *target = browser();
    if (!target)
        return {};
    return mMode == AllData ? storedSymbolsToUpdate(target->storageFolder())
                            : updatableSymbols(target->stockList()->symbols());
}

void BrowserUpdater::slotUpdate()
{
    if (!mUpdate->isChecked()) {
        mUpdate->setText(tr("&Update"));
        if (mThread)
            mThread->stop();
        return;
    }
    if (mThread) {
        refuse(tr("The last run is still ending; try again in a moment."));
        return;
    }
    if (!browser()) {
        qWarning("Can't find the StorageBrowser");
        mUpdate->setChecked(false);
        return;
    }
    if (!mManager->service().hasTables()) {
        refuse(OrdaneData::QuoteService::notConfigured());
        return;
    }
    start();
}

void BrowserUpdater::refuse(const QString &why)
{
    mStatus->setText(why.toHtmlEscaped());
    mUpdate->setChecked(false);
}

void BrowserUpdater::start()
{
    const QStringList symbols = workList();
    mSummary = {};
    mChanged.clear();
    mTotal = symbols.size();
    if (symbols.isEmpty()) {
        refuse(tr("There is nothing to update."));
        return;
    }
    mRefreshFields = mManager->metaData() && mManager->service().hasFields();
    mUpdate->setText(tr("&Stop"));
    mProgress->setRange(0, mTotal);
    mProgress->setValue(0);
    mStatus->setText(tr("<CENTER>Updated %1 of %2<BR>Current: %3</CENTER>")
                         .arg(0)
                         .arg(mTotal)
                         .arg(symbols.constFirst().toHtmlEscaped()));
    // Connected before it runs, so that no symbol's end is missed.
    auto *thread = new OrdaneData::DataManagerThread(mManager, symbols);
    connect(thread, &OrdaneData::DataManagerThread::updated, this, &BrowserUpdater::symbolUpdated);
    connect(thread, &OrdaneData::DataManagerThread::progress, mProgress, &QProgressBar::setValue);
    connect(thread, &QThread::finished, this, &BrowserUpdater::finishRun);
    mThread = thread;
    thread->start();
}

void BrowserUpdater::symbolUpdated(const QString &symbol, const OrdaneData::UpdateOutcome &outcome)
{
    mSummary.add(symbol, outcome);
    mStatus->setText(tr("<CENTER>Updated %1 of %2<BR>Current: %3</CENTER>")
                         .arg(mSummary.total())
                         .arg(mTotal)
                         .arg(symbol.toHtmlEscaped()));
    if (outcome.kind != OrdaneData::UpdateOutcome::Updated)
        return;
    mChanged.insert(symbol);
    if (mRefreshFields)
        mFields->requestFields(symbol, OrdaneData::MetaData::fieldCodes());
}

void BrowserUpdater::finishRun()
{
    const bool stopped = mThread && mThread->isStopped();
    mThread = nullptr;
    mUpdate->setChecked(false);
    QString text = mSummary.describe().toHtmlEscaped();
    if (stopped)
        text = tr("Stopped after %1 of %2 symbols.").arg(mSummary.total()).arg(mTotal) +
               QStringLiteral("<BR>") + text;
    mStatus->setText(text);
    // The chart shows the bars just downloaded.
    if (StorageBrowser *target = browser()) {
        QTreeWidgetItem *current = target->stockList()->currentItem();
        if (current && mChanged.contains(current->text(StockList::SymbolColumn)))
            target->slotChartItemActivated(current, StockList::SymbolColumn);
    }
    emit runEnded();
}

void BrowserUpdater::closeEvent(QCloseEvent *event)
{
    mUpdate->setChecked(false);
    QDialog::closeEvent(event);
}

} // namespace OrdaneBrowser
