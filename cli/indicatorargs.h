#pragma once

#include <QMap>
#include <QString>

namespace OrdaneView {
class IndicatorLayer;
}

namespace Cli {

// An indicator asked for on the command line: "RSI" or "RSI:Period=14,LevelUp=80", or read
// from a template.
struct IndicatorRequest
{
    QString id;
    QMap<QString, float> params;
    // A template's names are kept even when the indicator does not declare them, as the
    // program keeps them (a misspelt name then simply has no effect).
    bool fromTemplate = false;
};

// Reads "NAME=VALUE" into params; false with a message in *error when malformed.
bool parseParam(const QString &text, QMap<QString, float> &params, QString *error);
// Reads "ID[:NAME=VALUE,...]"; false with a message in *error when malformed.
bool parseIndicatorRequest(const QString &text, IndicatorRequest &request, QString *error);

// Whether `indicator` declares every name of params: a built-in those of its catalogue row,
// a script those its init() created, so a script must have been initialised. False with a
// message in *error naming the first other name and the declared ones, in their order.
bool declaresParameters(const QString &id, const OrdaneView::IndicatorLayer &indicator,
                        const QMap<QString, float> &params, QString *error);

// A number as the tool prints computed values: up to 9 significant digits.
QString formatValue(float value);

} // namespace Cli
