#pragma once

#include "data/net/datamanager.h"

#include <QObject>
#include <QPointer>

class QProgressBar;
class QStatusBar;
class QToolButton;

namespace Halcyra {

// Update runs of the stored quotes as the main window shows them: a progress bar and a
// "Stop" button in the status bar while a run lasts, and what it did at its end. One run
// at a time; a run still going when the window closes is stopped and waited for.
class QuoteUpdates : public QObject
{
    Q_OBJECT

public:
    QuoteUpdates(OrdaneData::DataManager *manager, QStatusBar *statusBar,
                 QObject *parent = nullptr);
    ~QuoteUpdates() override;

    // Starts a run over `symbols`. False, with a word in the status bar, when one is going
    // or no quote service is configured.
    bool start(const QStringList &symbols);
    bool isRunning() const { return mThread != nullptr; }
    OrdaneData::DataManagerThread *thread() const { return mThread; }

public slots:
    void stop();

signals:
    // A symbol's stored file was rewritten.
    void symbolChanged(const QString &symbol);
    void finished(const OrdaneData::UpdateSummary &summary);

private:
    void symbolDone(const QString &symbol, const OrdaneData::UpdateOutcome &outcome);
    void runEnded();

    OrdaneData::DataManager *mManager;
    QStatusBar *mStatusBar;
    QProgressBar *mProgress;
    QToolButton *mStop;
    QPointer<OrdaneData::DataManagerThread> mThread;
    OrdaneData::UpdateSummary mSummary;
};

} // namespace Halcyra
