#pragma once

#include "indicators/compute/rsitrading.h"

#include <QByteArray>
#include <QDate>
#include <QString>

#include <functional>

// The files of an RSI calibration: the table of the search (see rsiCalibrationTable()) and,
// beside it, a manifest that says what was searched, so that a result can be reproduced and
// compared. Neither holds a time stamp or a path of this computer: the same quotes always
// give the same bytes.
namespace OrdaneView {

struct RsiCalibration
{
    QString symbol;
    QVector<QuoteBar> bars; // oldest first
    // The stored quote file the bars come from, for the manifest's digest; empty when none.
    QString storedFile;
    Indicators::RsiPeriods periods;
};

// The table's file name, with the leading "/" for appending to the calibrator folder:
// "/RSI_" + symbol + "_" + the newest bar's date as yyyyMMdd + ".csv". A search over fewer
// periods than 2 .. 99 adds "_P<from>-<to>" before ".csv", so that it never replaces a
// full one.
QString rsiCalibrationName(const QString &symbol, const QDate &newest,
                           const Indicators::RsiPeriods &periods = {});

// The manifest's name beside a table: the table's path with ".manifest.txt" appended.
QString rsiManifestPath(const QString &tablePath);

// The manifest of a table written for `c`: "Key: value" lines naming the program version,
// the table and its SHA-256, the symbol, the stored file and its SHA-256 ("unavailable"
// when it cannot be read), the bars searched with their first and last dates, the rule,
// the profit, the grid and the number format.
QByteArray rsiManifest(const RsiCalibration &c, const QString &tableName, const QByteArray &table);

// Searches and writes the table and its manifest into `folder` (made when missing), each
// through a save file. `progress` hears each period before it is searched. Returns the
// table's absolute path, or an empty string with the reason in *error when the series is
// empty or a file cannot be written (an old file of the same name then stays as it was).
QString writeRsiCalibration(const RsiCalibration &c, const QString &folder,
                            const std::function<void(int)> &progress = {},
                            QString *error = nullptr);

} // namespace OrdaneView
