#include "calibratorthread.h"

#include "data/quotefile.h"
#include "data/reader.h"
#include "indicators/catalogue.h"
#include "indicators/rsiindicator.h"

#include <QFile>

#include <algorithm>
#include <memory>

namespace OrdaneBrowser {

Q_LOGGING_CATEGORY(lcCalibrator, "halcyra.calibrator", QtInfoMsg)

OrdaneData::ReaderH loadStoredSeries(const QString &symbol, QString *error)
{
    const auto fail = [error](const QString &reason) {
        if (error)
            *error = reason;
        return OrdaneData::ReaderH();
    };
    QFile file(OrdaneData::fileOf(symbol));
    if (!file.open(QIODevice::ReadOnly))
        return fail(QStringLiteral("%1: %2").arg(symbol, file.errorString()));
    if (!OrdaneData::hasQuoteFileHeader(&file))
        return fail(QStringLiteral("%1 is not a quote file").arg(file.fileName()));
    file.seek(0);
    const QByteArray data = file.readAll();
    // Scanned here rather than loaded by the reader, whose loads keep only the days the
    // simulator lets the chart see.
    QVector<QuoteBar> bars = OrdaneData::scanBars(data.constData(), data.constData() + data.size(),
                                                  OrdaneData::LineScan::WholeFile);
    if (bars.isEmpty())
        return fail(QStringLiteral("%1 holds no quotes").arg(symbol));
    std::reverse(bars.begin(), bars.end());
    OrdaneData::ReaderH series = OrdaneData::ReaderH::create();
    series->setSymbol(symbol);
    series->reserve(bars.size());
    for (const QuoteBar &bar : qAsConst(bars))
        series->appendBar(bar);
    return series;
}

QString calibrateRsi(const QString &symbol, const Indicators::RsiPeriods &periods,
                     const std::function<void(int)> &progress, QString *error)
{
    const OrdaneData::ReaderH series = loadStoredSeries(symbol, error);
    if (series.isNull())
        return QString();
    std::unique_ptr<OrdaneView::IndicatorLayer> layer(
        OrdaneView::createBuiltinIndicator(QStringLiteral("RSI"), series, nullptr));
    auto *rsi = qobject_cast<OrdaneView::RsiIndicator *>(layer.get());
    if (!rsi) {
        if (error)
            *error = QStringLiteral("the RSI cannot be calibrated");
        return QString();
    }
    rsi->setCalibrationPeriods(periods);
    if (progress)
        QObject::connect(rsi, &OrdaneView::IndicatorLayer::progress, progress);
    rsi->calibrate();
    if (rsi->calibrationFile().isEmpty() && error)
        *error = rsi->calibrationError();
    return rsi->calibrationFile();
}

CalibratorThread::CalibratorThread(const QString &symbol, const Indicators::RsiPeriods &periods,
                                   QObject *parent)
    : QThread(parent)
    , mSymbol(symbol)
    , mPeriods(periods)
{}

void CalibratorThread::run()
{
    mFile = calibrateRsi(
        mSymbol, mPeriods, [this](int period) { emit progress(period); }, &mError);
    emit done(mSymbol);
}

} // namespace OrdaneBrowser
