#pragma once

#include <QDialog>
#include <QMap>
#include <QString>

namespace OrdaneBrowser {

// What the metadata store holds about a symbol, laid out for reading: the symbol and its
// name as the title, the exchange's name with its country's flag, then the figures in
// labelled rows grouped as valuation, earnings, dividends and trading, and the date of the
// last refresh. A figure the service did not have ("N/A") or that is missing shows as "–";
// a dividend yield that is a number gets its "%".
// An empty record says that nothing is stored about the symbol. "Close" closes.
//
// Each figure is a QLabel named after its column of the record ("pe", "dy", ...), with its
// row label beside it in a QFormLayout.
class InfoDialog : public QDialog
{
    Q_OBJECT

public:
    // `record` is a row of MetaData::record(): column name to text.
    InfoDialog(const QString &symbol, const QMap<QString, QString> &record,
               QWidget *parent = nullptr);

    QString symbol() const { return mSymbol; }

    // The text shown for a value of the record: "–" for "N/A" and for nothing.
    static QString displayValue(const QString &value);

private:
    QString mSymbol;
};

} // namespace OrdaneBrowser
