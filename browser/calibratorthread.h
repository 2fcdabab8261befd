#pragma once

#include "data/readerh.h"
#include "indicators/compute/rsitrading.h"

#include <QLoggingCategory>
#include <QString>
#include <QThread>

#include <functional>

namespace OrdaneBrowser {

// "halcyra.calibrator": the calibration's steps, at debug level (off unless enabled).
Q_DECLARE_LOGGING_CATEGORY(lcCalibrator)

// The whole stored series of `symbol` from the home folder's storage, oldest bar first,
// whatever the bar-history limit of the simulator is: a calibration searches every stored
// day. An empty handle with the reason in *error when the file is missing, unreadable, not
// a quote file or holds no bars.
OrdaneData::ReaderH loadStoredSeries(const QString &symbol, QString *error = nullptr);

// Calibrates the RSI over the stored series of `symbol` with an RSI indicator of its own,
// made on the calling thread, and writes the result into the home folder's calibrator
// folder (see OrdaneView::RsiIndicator::calibrate()). `progress` hears each period. Returns
// the table's absolute path, or an empty string with the reason in *error.
QString calibrateRsi(const QString &symbol, const Indicators::RsiPeriods &periods = {},
                     const std::function<void(int)> &progress = {}, QString *error = nullptr);

// Calibrates one symbol on a thread of its own (calibrateRsi()), so that the interface stays
// responsive. progress(period) comes before each period and done(symbol) at the end; both
// are emitted from the worker thread, so receivers in other threads get them queued.
// resultFile() and errorString() hold the outcome once done() was emitted.
class CalibratorThread : public QThread
{
    Q_OBJECT

public:
    explicit CalibratorThread(const QString &symbol, const Indicators::RsiPeriods &periods = {},
                              QObject *parent = nullptr);

    QString symbol() const { return mSymbol; }
    QString resultFile() const { return mFile; }
    QString errorString() const { return mError; }

signals:
    void done(const QString &symbol);
    void progress(int period);

protected:
    void run() override;

private:
    const QString mSymbol;
    const Indicators::RsiPeriods mPeriods;
    QString mFile;
    QString mError;
};

} // namespace OrdaneBrowser
