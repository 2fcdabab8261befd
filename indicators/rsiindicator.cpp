#include "rsiindicator.h"

#include "data/home.h"
#include "data/quotefile.h"
#include "data/reader.h"
#include "rsicalibration.h"

#include <QFileInfo>
#include <QLoggingCategory>

namespace OrdaneView {

Q_LOGGING_CATEGORY(lcRsiCalibration, "halcyra.calibrator", QtInfoMsg)

RsiIndicator::RsiIndicator(const IndicatorEntry &entry, ViewCanvas *view, QObject *parent)
    : BuiltinIndicator(entry, view, parent)
{}

QVector<Indicators::RsiTrade> RsiIndicator::simulate(const OrdaneData::ReaderH &series, int period,
                                                     float low, float high) const
{
    if (series.isNull())
        return {};
    return Indicators::rsiTrades(Indicators::rsiOf(series->bars(), period), period, low, high);
}

void RsiIndicator::simulate()
{
    mTrades = simulate(reader(), int(parameter(QStringLiteral("Period"), 7)),
                       parameter(QStringLiteral("LevelDown"), 30),
                       parameter(QStringLiteral("LevelUp"), 70));
}

void RsiIndicator::calibrate()
{
    qCDebug(lcRsiCalibration, "RSI::calibrate()");
    mFile.clear();
    mError.clear();
    if (reader().isNull()) {
        mError = QStringLiteral("no series to calibrate");
        return;
    }
    RsiCalibration c;
    c.symbol = reader()->symbol();
    c.bars = reader()->bars();
    c.periods = mPeriods;
    const QString stored = OrdaneData::fileOf(c.symbol);
    if (!c.symbol.isEmpty() && QFileInfo(stored).isFile())
        c.storedFile = stored;
    mFile = writeRsiCalibration(
        c, OrdaneData::Home::calibratorPath(), [this](int period) { emit progress(period); },
        &mError);
}

} // namespace OrdaneView
