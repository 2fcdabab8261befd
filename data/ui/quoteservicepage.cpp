#include "quoteservicepage.h"

#include "data/net/downloadmanager.h"
#include "data/quotefile.h"

#include <QComboBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace OrdaneData {

QuoteServicePage::QuoteServicePage(QWidget *parent)
    : QWidget(parent)
    , mProvider(new QComboBox(this))
    , mTableHost(new QLineEdit(this))
    , mQuoteHost(new QLineEdit(this))
    , mApiKey(new QLineEdit(this))
    , mTrySymbol(new QLineEdit(QStringLiteral("MSFT"), this))
    , mTry(new QPushButton(tr("&Try"), this))
    , mHint(new QLabel(this))
    , mResult(new QLabel(this))
{
    setObjectName(QStringLiteral("QuoteServicePage"));
    mProvider->setObjectName(QStringLiteral("QuoteServicePageProvider"));
    mTableHost->setObjectName(QStringLiteral("QuoteServicePageTableHost"));
    mQuoteHost->setObjectName(QStringLiteral("QuoteServicePageQuoteHost"));
    mApiKey->setObjectName(QStringLiteral("QuoteServicePageApiKey"));
    mTry->setObjectName(QStringLiteral("QuoteServicePageTry"));
    mTrySymbol->setObjectName(QStringLiteral("QuoteServicePageSymbol"));
    mResult->setObjectName(QStringLiteral("QuoteServicePageResult"));

    mProvider->addItem(tr("Quote tables and fields (\"table\")"), int(QuoteService::Table));
    mProvider->addItem(tr("Daily CSV (\"stooq\")"), int(QuoteService::DailyCsv));
    for (QLineEdit *host : {mTableHost, mQuoteHost}) {
        host->setPlaceholderText(tr("Not set, for example http://127.0.0.1:8700"));
        host->setClearButtonEnabled(true);
    }
    mApiKey->setEchoMode(QLineEdit::PasswordEchoOnEdit);
    mTrySymbol->setMaximumWidth(120);
    mHint->setWordWrap(true);
    mResult->setWordWrap(true);
    mResult->setTextInteractionFlags(Qt::TextSelectableByMouse);

    auto *form = new QFormLayout;
    form->addRow(tr("&Provider:"), mProvider);
    form->addRow(tr("&Table host:"), mTableHost);
    form->addRow(tr("&Quote host:"), mQuoteHost);
    form->addRow(tr("API &key:"), mApiKey);
    auto *tryRow = new QHBoxLayout;
    tryRow->addWidget(mTrySymbol);
    tryRow->addWidget(mTry);
    tryRow->addStretch(1);
    auto *symbolLabel = new QLabel(tr("S&ymbol:"), this);
    symbolLabel->setBuddy(mTrySymbol);
    form->addRow(symbolLabel, tryRow);
    mTrySymbol->setToolTip(tr("A symbol to try the service with"));

    auto *layout = new QVBoxLayout(this);
    layout->addLayout(form);
    layout->addWidget(mHint);
    layout->addWidget(mResult);
    layout->addStretch(1);

    connect(mProvider, qOverload<int>(&QComboBox::currentIndexChanged), this,
            &QuoteServicePage::providerChanged);
    connect(mTry, &QPushButton::clicked, this, &QuoteServicePage::slotTry);
    setService(QuoteService::fromSettings());
}

QuoteServicePage::~QuoteServicePage() = default;

QuoteService QuoteServicePage::service() const
{
    QuoteService s;
    s.provider = QuoteService::Provider(mProvider->currentData().toInt());
    s.tableHost = mTableHost->text().trimmed();
    s.quoteHost = mQuoteHost->text().trimmed();
    s.apiKey = mApiKey->text().trimmed();
    return s;
}

void QuoteServicePage::setService(const QuoteService &service)
{
    mProvider->setCurrentIndex(mProvider->findData(int(service.provider)));
    mTableHost->setText(service.tableHost);
    mQuoteHost->setText(service.quoteHost);
    mApiKey->setText(service.apiKey);
    providerChanged();
}

QString QuoteServicePage::tryResult() const
{
    return mResult->text();
}

void QuoteServicePage::providerChanged()
{
    const bool table = mProvider->currentData().toInt() == QuoteService::Table;
    mQuoteHost->setEnabled(table);
    mApiKey->setEnabled(!table);
    mHint->setText(table ? tr("Historical tables come from the table host, current quotes and "
                              "the symbols' metadata from the quote host.")
                         : tr("Daily tables only: no current quotes and no metadata. Symbols "
                              "carry the service's suffixes, such as aapl.us or ads.de."));
}

void QuoteServicePage::apply()
{
    service().store();
}

void QuoteServicePage::slotTry()
{
    const QuoteService s = service();
    const QString symbol = mTrySymbol->text().trimmed();
    if (symbol.isEmpty())
        return;
    if (!s.hasTables()) {
        mResult->setText(QuoteService::notConfigured());
        emit tried(false);
        return;
    }
    if (!mTransfer) {
        mTransfer = new QMRequest::DownloadManager(this);
        connect(mTransfer, &QMRequest::DownloadManager::error, this,
                [this] { finishTry(false, mTransfer->errorString()); });
        connect(mTransfer, &QMRequest::DownloadManager::done, this,
                [this](const QUrl &, const QByteArray &reply) {
                    QByteArray table;
                    QString error;
                    if (mTried.readTable(reply, &table, &error))
                        finishTry(true, tr("The service answered with the last days of %1: %2 "
                                           "rows.")
                                            .arg(mTriedSymbol)
                                            .arg(table.count('\n')));
                    else
                        finishTry(false, error);
                });
    }
    mTried = s;
    mTriedSymbol = symbol;
    mTry->setEnabled(false);
    mResult->setText(tr("Asking %1 ...").arg(s.tableHost));
    const QDate today = QDate::currentDate();
    mTransfer->download(s.tableUrl(symbol, today.addDays(-10), today));
}

void QuoteServicePage::finishTry(bool ok, const QString &text)
{
    mTry->setEnabled(true);
    mResult->setText(ok ? text : tr("No quotes for %1: %2").arg(mTriedSymbol, text));
    emit tried(ok);
}

} // namespace OrdaneData
