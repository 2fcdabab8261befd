#include "quoteservice.h"

#include "core/setting.h"
#include "data/quotetable.h"

#include <QUrlQuery>

namespace OrdaneData {

namespace {
const QMWidgets::Setting<QString> kProvider{QStringLiteral("QuoteService/Provider"),
                                            QStringLiteral("table")};
const QMWidgets::Setting<QString> kTableHost{QStringLiteral("QuoteService/TableHost"), QString()};
const QMWidgets::Setting<QString> kQuoteHost{QStringLiteral("QuoteService/QuoteHost"), QString()};
const QMWidgets::Setting<QString> kApiKey{QStringLiteral("QuoteService/ApiKey"), QString()};

// A host as the user typed it, without the slash that would double the path's.
QString host(const QString &text)
{
    QString h = text.trimmed();
    while (h.endsWith(QLatin1Char('/')))
        h.chop(1);
    return h;
}

// The symbol in a query: "^" would be read as a literal by some servers.
QString querySymbol(const QString &symbol)
{
    return QString::fromLatin1(QUrl::toPercentEncoding(symbol));
}
} // namespace

QuoteService QuoteService::fromSettings()
{
    QuoteService s;
    s.provider = kProvider.value() == providerKey(DailyCsv) ? DailyCsv : Table;
    s.tableHost = kTableHost.value();
    s.quoteHost = kQuoteHost.value();
    s.apiKey = kApiKey.value();
    return s;
}

void QuoteService::store() const
{
    kProvider.setValue(providerKey(provider));
    kTableHost.setValue(tableHost.trimmed());
    kQuoteHost.setValue(quoteHost.trimmed());
    kApiKey.setValue(apiKey.trimmed());
}

QString QuoteService::providerKey(Provider p)
{
    return p == DailyCsv ? QStringLiteral("stooq") : QStringLiteral("table");
}

QString QuoteService::notConfigured()
{
    return tr("No quote service is configured");
}

bool QuoteService::hasTables() const
{
    return !host(tableHost).isEmpty();
}

bool QuoteService::hasFields() const
{
    return provider == Table && !host(quoteHost).isEmpty();
}

QUrl QuoteService::tableUrl(const QString &symbol, const QDate &start, const QDate &end) const
{
    if (provider == DailyCsv) {
        const QString format = QStringLiteral("yyyyMMdd");
        return QUrl(host(tableHost) + QStringLiteral("/q/d/l/?s=") + querySymbol(symbol.toLower()) +
                    QStringLiteral("&i=d&d1=") + start.toString(format) + QStringLiteral("&d2=") +
                    end.toString(format) + QStringLiteral("&apikey=") +
                    QString::fromLatin1(QUrl::toPercentEncoding(apiKey)));
    }
    return QUrl(host(tableHost) + QStringLiteral("/table.csv?") +
                OrdaneData::tableUrl(symbol, start, end));
}

bool QuoteService::readTable(const QByteArray &reply, QByteArray *table, QString *error) const
{
    QByteArray converted;
    if (provider == DailyCsv) {
        if (!convertDailyCsv(reply, &converted, error))
            return false;
    } else {
        converted = reply;
    }
    if (!isValidTable(converted)) {
        if (error) {
            const QByteArray first = reply.left(reply.indexOf('\n')).trimmed().left(80);
            *error = first.isEmpty() ? tr("empty reply")
                                     : tr("not a quote table: %1").arg(QString::fromLatin1(first));
        }
        return false;
    }
    if (table)
        *table = converted;
    return true;
}

QUrl QuoteService::fieldsUrl(const QString &symbol, const QString &codes) const
{
    return QUrl(host(quoteHost) + QStringLiteral("/d/quotes.csv?s=") + querySymbol(symbol) +
                QStringLiteral("&f=") + codes + QStringLiteral("&e=.csv"));
}

} // namespace OrdaneData
