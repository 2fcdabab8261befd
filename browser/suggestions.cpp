#include "suggestions.h"

#include "data/metadata.h"

#include <QCoreApplication>

namespace OrdaneBrowser {

namespace {
struct Suffix
{
    const char *suffix;
    const char *exchange;
};

// The markets a typed symbol is most often meant on, with the exchange code the metadata
// store uses for them.
const Suffix kTableSuffixes[] = {
    {"", ""},
    {".DE", "XETRA"},
    {".F", "Frankfurt"},
    {".L", "London"},
    {".PA", "Paris"},
    {".AS", "Amsterdam"},
    {".MI", "Milan"},
    {".MC", "Madrid"},
    {".SW", "Swiss"},
    {".VI", "Vienna"},
    {".ST", "Stockholm"},
    {".OL", "Oslo"},
    {".CO", "Copenhagen"},
    {".TO", "Toronto"},
    {".AX", "ASX"},
    {".HK", "HKSE"},
};
const Suffix kDailySuffixes[] = {
    {".us", "NYSE"}, {".de", "XETRA"}, {".uk", "London"}, {".jp", ""},
    {".hk", "HKSE"}, {".pl", ""},      {".hu", ""},       {"", ""},
};
} // namespace

QString candidateType(const QString &symbol)
{
    if (symbol.startsWith(QLatin1Char('^')))
        return QCoreApplication::translate("OrdaneBrowser::SuggestDialog", "Index");
    if (symbol.contains(QLatin1String("=X")))
        return QCoreApplication::translate("OrdaneBrowser::SuggestDialog", "Currency");
    return QCoreApplication::translate("OrdaneBrowser::SuggestDialog", "Equity");
}

QVector<Candidate> suggestSymbols(const QString &typed, OrdaneData::MetaData *meta,
                                  OrdaneData::QuoteService::Provider provider, int limit)
{
    QVector<Candidate> result;
    const QString text = typed.trimmed();
    if (text.isEmpty())
        return result;
    const auto add = [&](const Candidate &c) {
        if (result.size() < limit && !c.symbol.isEmpty() && !result.contains(c))
            result.append(c);
    };
    if (meta) {
        for (const QString &symbol : meta->symbols()) {
            const QMap<QString, QString> record = meta->record(symbol);
            const QString name = record.value(QStringLiteral("name"));
            if (symbol.contains(text, Qt::CaseInsensitive) ||
                name.contains(text, Qt::CaseInsensitive))
                add({candidateType(symbol), record.value(QStringLiteral("exchange")), name,
                     symbol});
        }
    }
    // The text without a suffix of its own, so "ADS.DE" also suggests "ADS.F".
    const bool daily = provider == OrdaneData::QuoteService::DailyCsv;
    QString base = daily ? text.toLower() : text.toUpper();
    if (!base.startsWith(QLatin1Char('^')) && base.contains(QLatin1Char('.')))
        base = base.left(base.indexOf(QLatin1Char('.')));
    add({candidateType(text), QString(), QString(), daily ? text.toLower() : text.toUpper()});
    for (const Suffix &s :
         daily ? QVector<Suffix>(std::begin(kDailySuffixes), std::end(kDailySuffixes))
               : QVector<Suffix>(std::begin(kTableSuffixes), std::end(kTableSuffixes)))
        add({candidateType(base), QLatin1String(s.exchange), QString(),
             base + QLatin1String(s.suffix)});
    return result;
}

} // namespace OrdaneBrowser
