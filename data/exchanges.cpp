#include "exchanges.h"

namespace OrdaneData {

namespace {

struct Row
{
    const char *code;
    const char *name;
    const char *country; // the flag's ":/pix/f<country>.bmp"; "" for none
};

// Germany's flag is "de", the United Kingdom's "en" (the picture of the English interface
// language), and Euronext, spread over several countries, flies the European one.
const Row kRows[] = {
    // United States
    {"AMEX", "American Stock Exchange", "us"},
    {"NYSE", "New York Stock Exchange", "us"},
    {"NasdaqNM", "NASDAQ National Market", "us"},
    {"NasdaqSC", "NASDAQ SmallCap Market", "us"},
    {"NCM", "NASDAQ Capital Market", "us"},
    {"NGM", "NASDAQ Global Market", "us"},
    {"PCX", "NYSE Arca", "us"},
    {"WCB", "Chicago Board Options Exchange", "us"},
    {"OTC BBM", "OTC Bulletin Board", "us"},
    {"Other OTC", "Other OTC", "us"},
    {"Pink Sheets", "Pink Sheets", "us"},
    {"DJI", "Dow Jones Indices", "us"},
    {"SNP", "S&P Indices", "us"},
    // Europe
    {"London", "London Stock Exchange", "en"},
    {"FSI", "FTSE Indices", "en"},
    {"Irish", "Irish Stock Exchange", "ie"},
    {"XETRA", "XETRA", "de"},
    {"Frankfurt", "Frankfurt Stock Exchange", "de"},
    {"Berlin", "Berlin Stock Exchange", "de"},
    {"Dusseldorf", "Dusseldorf Stock Exchange", "de"},
    {"Hamburg", "Hamburg Stock Exchange", "de"},
    {"Hanover", "Hanover Stock Exchange", "de"},
    {"Munich", "Munich Stock Exchange", "de"},
    {"Stuttgart", "Stuttgart Stock Exchange", "de"},
    {"ENX", "Euronext", "eu"},
    {"Paris", "Paris Stock Exchange", "fr"},
    {"Amsterdam", "Amsterdam Stock Exchange", "nl"},
    {"Lisbon", "Lisbon Stock Exchange", "pt"},
    {"Milan", "Milan Stock Exchange", "it"},
    {"MCE", "Madrid SE C.A.T.S.", "es"},
    {"MDD", "Madrid Stock Exchange", "es"},
    {"Madrid", "Bolsa de Madrid", "es"},
    {"Madrid Fixed", "Madrid Fixed Income Market", "es"},
    {"Barcelona", "Barcelona Stock Exchange", "es"},
    {"Bilbao", "Bilbao Stock Exchange", "es"},
    {"VTX", "SIX Swiss Exchange", "ch"},
    {"Swiss", "Swiss Exchange", "ch"},
    {"Vienna", "Vienna Stock Exchange", "at"},
    {"Stockholm", "Stockholm Stock Exchange", "se"},
    {"Oslo", "Oslo Stock Exchange", "no"},
    {"Copenhagen", "Copenhagen Stock Exchange", "dk"},
    // The Americas
    {"Toronto", "Toronto Stock Exchange", "ca"},
    {"CDNX", "TSX Venture Exchange", "ca"},
    {"Mexico", "Mexican Stock Exchange", "mx"},
    // The service spells the city so; the code is kept as sent.
    {"Sao Paolo", "Sao Paulo Stock Exchange", "br"},
    {"Buenos Aires", "Buenos Aires Stock Exchange", "ar"},
    // Asia and the Pacific
    {"ASX", "Australian Securities Exchange", "au"},
    {"NZSE", "New Zealand Exchange", "nz"},
    {"SES", "Singapore Exchange", "sg"},
    {"HKSE", "Hong Kong Stock Exchange", "hk"},
    {"Shanghai", "Shanghai Stock Exchange", "cn"},
    {"Shenzhen", "Shenzhen Stock Exchange", "cn"},
    {"Taiwan", "Taiwan Stock Exchange", "tw"},
    {"Taiwan OTC", "Taiwan OTC Exchange", "tw"},
    {"KSE", "Korea Stock Exchange", "kr"},
    {"KOSDAQ", "KOSDAQ", "kr"},
    {"NSE", "National Stock Exchange of India", "in"},
    {"Bombay", "Bombay Stock Exchange", "in"},
    {"Thailand", "Stock Exchange of Thailand", "th"},
    {"Kuala Lumpur", "Bursa Malaysia", "my"},
    {"Jakarta", "Jakarta Stock Exchange", "id"},
    {"Tel Aviv", "Tel Aviv Stock Exchange", "il"},
    // No country
    {"Imported", "Imported", ""},
};

QVector<Exchange> build()
{
    QVector<Exchange> result;
    for (const Row &row : kRows) {
        const QString country = QLatin1String(row.country);
        result.append(
            {QLatin1String(row.code), QLatin1String(row.name),
             country.isEmpty() ? QString() : QStringLiteral(":/pix/f%1.bmp").arg(country)});
    }
    return result;
}

} // namespace

const QVector<Exchange> &exchanges()
{
    static const QVector<Exchange> table = build();
    return table;
}

const Exchange *findExchange(const QString &code)
{
    for (const Exchange &exchange : exchanges())
        if (exchange.code == code)
            return &exchange;
    return nullptr;
}

} // namespace OrdaneData
