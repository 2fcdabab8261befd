#pragma once

#include "indicatorlayer.h"
#include "indicators/compute/rsitrading.h"

namespace OrdaneView {

// The built-in "RSI" with its trading rule (see rsitrading.h) and the search of the rule's
// parameters. The catalogue makes every "RSI" as one of these.
class RsiIndicator : public BuiltinIndicator
{
    Q_OBJECT

public:
    RsiIndicator(const IndicatorEntry &entry, ViewCanvas *view, QObject *parent = nullptr);

    // The trades of the rule over `series` with the given period and levels, oldest first;
    // none for an empty handle.
    QVector<Indicators::RsiTrade> simulate(const OrdaneData::ReaderH &series, int period, float low,
                                           float high) const;
    // The rule over the indicator's own series with its parameters: Period, "LevelDown" as
    // the low level and "LevelUp" as the high one. The trades are kept in lastTrades().
    void simulate() override;
    const QVector<Indicators::RsiTrade> &lastTrades() const { return mTrades; }

    // Searches the rule's parameters over the indicator's series and writes the table and
    // its manifest (rsicalibration.h) into the home folder's calibrator folder, which it
    // makes when missing. Emits progress(period) before each period searched. Afterwards
    // calibrationFile() is the table's absolute path, or empty with calibrationError() set.
    void calibrate() override;
    void setCalibrationPeriods(const Indicators::RsiPeriods &periods) { mPeriods = periods; }
    Indicators::RsiPeriods calibrationPeriods() const { return mPeriods; }
    QString calibrationFile() const { return mFile; }
    QString calibrationError() const { return mError; }

private:
    QVector<Indicators::RsiTrade> mTrades;
    Indicators::RsiPeriods mPeriods;
    QString mFile;
    QString mError;
};

} // namespace OrdaneView
