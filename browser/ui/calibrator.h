#pragma once

#include "indicators/compute/rsitrading.h"

#include <QDialog>
#include <QPointer>

class QLabel;
class QListWidget;
class QProgressBar;
class QPushButton;
class QSpinBox;

namespace OrdaneBrowser {

class CalibratorThread;

// The dialog "Halcyra Calibrator": the indicators that can be calibrated ("&Indicators",
// only the RSI), the symbols to calibrate (" Quotes"), the periods to search ("Period:"
// from .. to, 2 .. 99 at first), a progress bar, the checkable "&Calibrate" (reading
// "&Stop" while a run is under way), "&Hide" and "&Close", and at the end the result files
// written.
//
// A run calibrates the listed symbols in list order, one CalibratorThread at a time; only
// the thread's progress and its end reach this dialog, queued. Unchecking "&Stop" ends the
// run once the symbol under way is done: the button stays disabled until then. "&Hide"
// hides the dialog and lets a run go on; "&Close" ends the run the same way and hides it.
// Delete removes the selected symbols from the list while no run is under way.
class Calibrator : public QDialog
{
    Q_OBJECT

public:
    explicit Calibrator(QWidget *parent = nullptr);
    // Waits for the symbol under way.
    ~Calibrator() override;

    QStringList symbols() const;
    Indicators::RsiPeriods periods() const;
    bool isRunning() const { return !mThread.isNull(); }
    // The tables written by the last run, in the order written.
    QStringList resultFiles() const { return mResults; }

public slots:
    // Starts a run when "&Calibrate" is checked; unchecked, asks the run to stop.
    void slotCalibrate();
    // Lists `symbol` to calibrate, once.
    void slotAddSymbol(const QString &symbol);
    // The thread of `symbol` is done: its result is listed, and the next symbol starts while
    // the button is still checked; otherwise the run ends.
    void slotDone(const QString &symbol);

signals:
    // A run ended, after its last slotDone().
    void runFinished();

protected:
    void keyPressEvent(QKeyEvent *event) override;

private:
    void startNext();
    void finishRun();
    void setEditable(bool on);

    QListWidget *mIndicators;
    QListWidget *mQuotes;
    QSpinBox *mFrom;
    QSpinBox *mTo;
    QProgressBar *mProgress;
    QListWidget *mFiles;
    QLabel *mStatus;
    QPushButton *mCalibrate;
    QPushButton *mHide;
    QPushButton *mClose;
    QPointer<CalibratorThread> mThread;
    int mNext = 0;
    QStringList mResults;
    QStringList mFailures;
};

} // namespace OrdaneBrowser
