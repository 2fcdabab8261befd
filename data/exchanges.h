#pragma once

#include <QString>
#include <QVector>

namespace OrdaneData {

// An exchange as the quote service names it in the metadata's "exchange" column.
struct Exchange
{
    QString code; // as the service sends it, compared case-sensitively ("NasdaqNM")
    QString name; // for display
    QString flag; // the country's flag, ":/pix/fXX.bmp" (16 x 11); empty when there is none
};

// Every exchange code the program knows, in no particular order. Among them "SNP", the S&P
// index family, and "Imported", which stands for symbols imported from other programs and
// has no flag.
const QVector<Exchange> &exchanges();

// The exchange of `code`; nullptr when the code is unknown.
const Exchange *findExchange(const QString &code);

} // namespace OrdaneData
