#pragma once

#include "browser/symbolgenerator.h"

#include <QDialog>
#include <QPointer>

class QLabel;
class QLineEdit;
class QProgressBar;
class QPushButton;
class QSpinBox;

namespace OrdaneData {
class DataManager;
class DataManagerThread;
struct UpdateOutcome;
} // namespace OrdaneData

namespace OrdaneBrowser {

// The modeless dialog that looks for symbols the quote service knows by trying candidate
// symbols one after another (see SymbolGenerator): "&Start value:", "Prefix:", "Postfix:",
// "Symbols:" (the alphabet), "Padding:" (the length), "Fill out:", a progress bar, the status
// and the buttons "&Scan" (reading "&Stop" while a scan runs), "&Hide" and "&Close".
//
// A scan starts at the start value and takes one step at a time: the next candidate, padded
// with the fill character to the padding when "Fill out:" is not empty, between prefix and
// postfix, is the probe symbol, whose whole history is asked for through the data manager.
// Its end comes to slotDone() (the symbol when quotes were stored for it, empty otherwise),
// which reports and takes the next step. One probe is outstanding at a time. Switching
// "&Scan" off ends the scan at its next step; so does reaching the number of candidates.
//
// A probe that finds nothing leaves the store as it was: the data manager writes only a
// transfer that brought a quote table. A found one stays stored, with its metadata when the
// service has fields and the manager keeps a metadata store.
//
// "&Hide" hides the dialog and lets a scan go on; "&Close" (or the window's close button)
// ends the scan and hides it. Settings and results stay while the dialog lives.
class Scanner : public QDialog
{
    Q_OBJECT

public:
    // Probes through `manager` (not owned; it must outlive the dialog), or one of its own
    // when it is null.
    explicit Scanner(OrdaneData::DataManager *manager = nullptr, QWidget *parent = nullptr);
    ~Scanner() override;

    const SymbolGenerator &generator() const { return mGenerator; }
    // The symbols found since the current (or last) scan started, repeats included.
    int foundCount() const { return mFound; }
    // Whether "&Scan" is on.
    bool isScanning() const;
    // Whether a probe is outstanding; it may be while "&Scan" is already off.
    bool isProbing() const { return mProbing; }
    QString statusText() const;

public slots:
    // "&Scan" was switched on or off (see above). Without a quote service the status says so
    // and the button goes off again.
    void slotScan();
    // A probe ended: `symbol` is the probe symbol when it was found, empty otherwise. Updates
    // the progress and the status, emits found() for a found symbol, then takes the next step.
    void slotDone(const QString &symbol);
    // The generator's alphabet and length.
    void slotSymbolsChanged(const QString &symbols);
    void slotPaddingChanged(int padding);

signals:
    // A probe symbol for which the store now holds quotes.
    void found(const QString &symbol);

protected:
    void closeEvent(QCloseEvent *event) override;

private:
    void step();
    void probe(const QString &symbol);
    void probeEnded(const QString &symbol, const OrdaneData::UpdateOutcome &outcome);
    void setInputsEnabled(bool enabled);
    // Stops the outstanding probe and waits for its thread, without a step after it.
    void abandonProbe();

    OrdaneData::DataManager *mManager;
    SymbolGenerator mGenerator;
    int mFound = 0;
    bool mProbing = false;
    QString mCurrent; // the probe symbol of the last step
    QPointer<OrdaneData::DataManagerThread> mThread;

    QSpinBox *mStart;
    QLineEdit *mPrefix;
    QLineEdit *mPostfix;
    QLineEdit *mSymbols;
    QSpinBox *mPadding;
    QLineEdit *mFill;
    QProgressBar *mProgress;
    QLabel *mStatus;
    QPushButton *mScan;
    QPushButton *mHide;
    QPushButton *mClose;
};

} // namespace OrdaneBrowser
