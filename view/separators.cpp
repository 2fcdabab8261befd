#include "separators.h"

#include "data/reader.h"

namespace OrdaneView {

namespace {
int periodKey(SeparatorMode mode, const QDate &d)
{
    switch (mode) {
    case SeparatorMode::Week: {
        int year = 0;
        const int week = d.weekNumber(&year);
        return year * 100 + week;
    }
    case SeparatorMode::Month:
        return d.year() * 12 + d.month();
    case SeparatorMode::Quarter:
        return d.year() * 4 + OrdaneData::Reader::quarterOf(d);
    case SeparatorMode::Year:
        return d.year();
    case SeparatorMode::None:
        break;
    }
    return 0;
}

QString labelOf(SeparatorMode mode, const QDate &d, const QLocale &locale)
{
    switch (mode) {
    case SeparatorMode::Month:
        return locale.toString(d, QStringLiteral("MMMyy"));
    case SeparatorMode::Quarter:
        return QStringLiteral("Q%1").arg(OrdaneData::Reader::quarterOf(d));
    case SeparatorMode::Year:
        return locale.toString(d, QStringLiteral("yy"));
    case SeparatorMode::Week:
    case SeparatorMode::None:
        break;
    }
    return QString();
}
} // namespace

QVector<Separator> separators(const QVector<QuoteBar> &bars, int first, int n, SeparatorMode mode,
                              const QLocale &locale)
{
    QVector<Separator> result;
    if (mode == SeparatorMode::None)
        return result;
    for (int k = 0; k < n; ++k) {
        const int i = first + k;
        if (i <= 0 || i >= bars.size())
            continue;
        const QDate &d = bars.at(i).date();
        if (periodKey(mode, d) != periodKey(mode, bars.at(i - 1).date()))
            result.append({k, labelOf(mode, d, locale)});
    }
    return result;
}

} // namespace OrdaneView
