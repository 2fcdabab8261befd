#pragma once

#include "data/net/quoteservice.h"

#include <QWidget>

class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;

namespace QMRequest {
class DownloadManager;
}

namespace OrdaneData {

// Settings page of the quote service: the provider, the two hosts as full URLs, the key the
// daily-CSV provider passes along, and a "Try" that asks the service for a symbol's last
// days as a real download would and says what came back. apply() stores everything.
class QuoteServicePage : public QWidget
{
    Q_OBJECT

public:
    explicit QuoteServicePage(QWidget *parent = nullptr);
    ~QuoteServicePage() override;

    QuoteService service() const;
    void setService(const QuoteService &service);
    // The answer of the last try, as shown.
    QString tryResult() const;

public slots:
    void apply();
    // Downloads the last ten days of the symbol in the try field with the page's values.
    void slotTry();

signals:
    void tried(bool ok);

private:
    void providerChanged();
    void finishTry(bool ok, const QString &text);

    QComboBox *mProvider;
    QLineEdit *mTableHost;
    QLineEdit *mQuoteHost;
    QLineEdit *mApiKey;
    QLineEdit *mTrySymbol;
    QPushButton *mTry;
    QLabel *mHint;
    QLabel *mResult;
    QMRequest::DownloadManager *mTransfer = nullptr;
    QuoteService mTried;
    QString mTriedSymbol;
};

} // namespace OrdaneData
