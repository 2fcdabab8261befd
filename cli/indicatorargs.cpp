#include "indicatorargs.h"

#include "indicators/catalogue.h"
#include "indicators/script/userindicator.h"

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

bool declaresParameters(const QString &id, const OrdaneView::IndicatorLayer &indicator,
                        const QMap<QString, float> &params, QString *error)
{
    QStringList declared;
    if (const auto *script = qobject_cast<const OrdaneView::UserIndicator *>(&indicator)) {
        declared = script->declaredParameters();
    } else if (const OrdaneView::IndicatorEntry *entry =
                   OrdaneView::findIndicator(indicator.name())) {
        for (const auto &p : entry->params)
            declared.append(QLatin1String(p.name));
    }
    for (auto it = params.cbegin(); it != params.cend(); ++it) {
        if (declared.contains(it.key()))
            continue;
        *error = QStringLiteral("%1 has no parameter \"%2\" (%3)")
                     .arg(id, it.key(),
                          declared.isEmpty() ? QStringLiteral("it has none")
                                             : QStringLiteral("its parameters: ") +
                                                   declared.join(QStringLiteral(", ")));
        return false;
    }
    return true;
}

QString formatValue(float value)
{
    return QString::asprintf("%.9g", double(value));
}

} // namespace Cli
