#pragma once

#include "data/net/datamanager.h"

#include <QDialog>
#include <QPointer>
#include <QSet>

class QLabel;
class QProgressBar;
class QPushButton;

namespace OrdaneData {
class DataUpdater;
} // namespace OrdaneData

namespace OrdaneBrowser {

class StorageBrowser;

// The modeless dialog that brings many stored symbols up to date in one run: a checkable
// "&Update" button (reading "&Stop" while a run goes on), "&Hide", "&Close", a progress bar
// and the status. It works for the storage browser up its parent chain; without one a run
// logs "Can't find the StorageBrowser" and does not start.
//
// The symbols of a run depend on the mode, set before the run (see updatelist.h): every
// stored file of the browser's storage folder, or the browser's rows in their order;
// imported series (".IMP") are never among them. The run goes through the data manager on
// one worker thread, one symbol after another, and "Updated N of M, Current: SYMBOL" follows
// it. For each symbol that was updated the metadata record is refreshed too, when the
// service has fields and the manager has a metadata store. Switching "&Update" off (or
// "&Close") ends the run after the symbol under way; "&Hide" lets it go on unseen. At the
// end the status says what was done and what failed and why, the row the browser shows is
// reloaded when it was updated, and runEnded() follows. Nothing asks the user anything
// during a run.
class BrowserUpdater : public QDialog
{
    Q_OBJECT

public:
    enum Mode {
        AllData,      // "Update All Data"
        VisibleItems, // "Update Visible Items Only"
    };

    // Downloads through `manager` (not owned; it must outlive the dialog), or one of its own
    // when it is null.
    explicit BrowserUpdater(OrdaneData::DataManager *manager = nullptr, QWidget *parent = nullptr);
    ~BrowserUpdater() override;

    // Takes effect at the next run.
    void setMode(Mode mode);
    Mode mode() const { return mMode; }
    // The mode's name, as the browser's menu words it.
    static QString modeText(Mode mode);

    // The symbols a run in the current mode would bring up to date, in order; none without a
    // storage browser up the parent chain.
    QStringList workList() const;
    // Whether "&Update" is on.
    bool isUpdating() const;
    // Whether a run's thread is still at work; it may be for a moment after "&Stop".
    bool isRunning() const { return !mThread.isNull(); }
    // What the current (or last) run did so far.
    const OrdaneData::UpdateSummary &summary() const { return mSummary; }
    QString statusText() const;

public slots:
    // "&Update" was switched on (a run starts) or off (the run stops after its symbol).
    void slotUpdate();

signals:
    // A run has ended, finished or stopped; the status and summary() tell the outcome.
    void runEnded();

protected:
    void closeEvent(QCloseEvent *event) override;

private:
    StorageBrowser *browser() const;
    void start();
    void symbolUpdated(const QString &symbol, const OrdaneData::UpdateOutcome &outcome);
    void finishRun();
    void refuse(const QString &why);
    // Stops the run and waits for its thread, without the end of a run.
    void abandonRun();

    OrdaneData::DataManager *mManager;
    OrdaneData::DataUpdater *mFields; // the metadata requests of updated symbols
    Mode mMode = AllData;
    QPointer<OrdaneData::DataManagerThread> mThread;
    OrdaneData::UpdateSummary mSummary;
    QSet<QString> mChanged; // symbols whose stored file the run rewrote
    int mTotal = 0;
    bool mRefreshFields = false;

    QLabel *mHeading;
    QProgressBar *mProgress;
    QLabel *mStatus;
    QPushButton *mUpdate;
    QPushButton *mHide;
    QPushButton *mClose;
};

} // namespace OrdaneBrowser
