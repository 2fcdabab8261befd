#include "indicatorargs.h"

#include <QStringList>

namespace Cli {

bool parseParam(const QString &text, QMap<QString, float> &params, QString *error)
{
    const int eq = text.lastIndexOf(QLatin1Char('='));
    bool ok = false;
    const float value = eq > 0 ? text.mid(eq + 1).trimmed().toFloat(&ok) : 0.0f;
    if (eq <= 0 || !ok) {
        *error = QStringLiteral("expected NAME=VALUE with a number, not \"%1\"").arg(text);
        return false;
    }
    params.insert(text.left(eq).trimmed(), value);
    return true;
}

bool parseIndicatorRequest(const QString &text, IndicatorRequest &request, QString *error)
{
    const int colon = text.indexOf(QLatin1Char(':'));
    request.id = text.left(colon).trimmed();
    request.params.clear();
    if (request.id.isEmpty()) {
        *error = QStringLiteral("expected ID[:NAME=VALUE,...], not \"%1\"").arg(text);
        return false;
    }
    if (colon < 0)
        return true;
    const QStringList pairs = text.mid(colon + 1).split(QLatin1Char(','), Qt::SkipEmptyParts);
    for (const QString &pair : pairs)
        if (!parseParam(pair, request.params, error))
            return false;
    return true;
}

QString formatValue(float value)
{
    return QString::asprintf("%.9g", double(value));
}

} // namespace Cli
