#pragma once

#include <QMap>
#include <QString>

namespace Cli {

// An indicator asked for on the command line: "RSI" or "RSI:Period=14,LevelUp=80".
struct IndicatorRequest
{
    QString id;
    QMap<QString, float> params;
};

// Reads "NAME=VALUE" into params; false with a message in *error when malformed.
bool parseParam(const QString &text, QMap<QString, float> &params, QString *error);
// Reads "ID[:NAME=VALUE,...]"; false with a message in *error when malformed.
bool parseIndicatorRequest(const QString &text, IndicatorRequest &request, QString *error);

// A number as the tool prints computed values: up to 9 significant digits.
QString formatValue(float value);

} // namespace Cli
