#include "suggestdialog.h"

#include "data/net/downloadmanager.h"
#include "data/quotetable.h"

#include <QDialogButtonBox>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace OrdaneBrowser {

namespace {
enum Column { TypeColumn, ExchangeColumn, NameColumn, SymbolColumn };

QTreeWidget *candidateList(const QStringList &headers, QWidget *parent)
{
    auto *list = new QTreeWidget(parent);
    list->setRootIsDecorated(false);
    list->setHeaderLabels(headers);
    list->header()->setStretchLastSection(true);
    return list;
}
} // namespace

SuggestDialog::SuggestDialog(const QString &typed, const QVector<Candidate> &candidates,
                             const OrdaneData::QuoteService &service, QWidget *parent)
    : QDialog(parent)
    , mService(service)
    , mList(candidateList({tr("Type"), tr("Stock exchange"), tr("Name"), tr("Symbol")}, this))
    , mNote(new QLabel(this))
    , mTransfer(new QMRequest::DownloadManager(this))
{
    setObjectName(QStringLiteral("SuggestDialog"));
    setWindowTitle(tr("Symbol not found"));
    resize(600, 450);
    mList->setObjectName(QStringLiteral("SuggestDialogList"));
    mList->setSelectionMode(QAbstractItemView::ExtendedSelection);
    mList->setColumnWidth(TypeColumn, 80);
    mList->setColumnWidth(ExchangeColumn, 110);
    mList->setColumnWidth(NameColumn, 230);
    for (const Candidate &c : candidates) {
        auto *item = new QTreeWidgetItem(mList, {c.type, c.exchange, c.name, c.symbol});
        mItems.append(item);
    }
    mNote->setWordWrap(true);
    mNote->setText(
        candidates.isEmpty()
            ? tr("There are no quotes for \"%1\", and nothing like it is known.").arg(typed)
            : tr("There are no quotes for \"%1\". Perhaps one of these is meant:").arg(typed));

    auto *buttons = new QDialogButtonBox(this);
    QPushButton *add = buttons->addButton(tr("&Add Selected"), QDialogButtonBox::AcceptRole);
    add->setObjectName(QStringLiteral("SuggestDialogAdd"));
    buttons->addButton(tr("&Cancel"), QDialogButtonBox::RejectRole);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    add->setEnabled(false);
    connect(mList, &QTreeWidget::itemSelectionChanged, add,
            [this, add] { add->setEnabled(!mList->selectedItems().isEmpty()); });
    connect(mList, &QTreeWidget::itemDoubleClicked, this, &QDialog::accept);

    auto *layout = new QVBoxLayout(this);
    layout->addWidget(mNote);
    layout->addWidget(mList, 1);
    layout->addWidget(buttons);

    mTransfer->setTimeout(10000);
    connect(mTransfer, &QMRequest::DownloadManager::error, this, [this] { answered(false); });
    connect(mTransfer, &QMRequest::DownloadManager::done, this,
            [this](const QUrl &, const QByteArray &reply) {
                answered(mService.readTable(reply, nullptr, nullptr));
            });
    if (!mService.hasTables()) {
        for (QTreeWidgetItem *item : qAsConst(mItems))
            item->setDisabled(true);
        mNext = mItems.size();
        mNote->setText(mNote->text() + QLatin1Char(' ') +
                       OrdaneData::QuoteService::notConfigured());
    } else {
        checkNext();
    }
}

SuggestDialog::~SuggestDialog() = default;

void SuggestDialog::checkNext()
{
    if (mNext >= mItems.size()) {
        emit checked();
        return;
    }
    QTreeWidgetItem *item = mItems.at(mNext);
    item->setToolTip(SymbolColumn, tr("Asking the quote service ..."));
    const QDate today = QDate::currentDate();
    mTransfer->download(mService.tableUrl(item->text(SymbolColumn), today.addDays(-14), today));
}

void SuggestDialog::answered(bool available)
{
    QTreeWidgetItem *item = mItems.value(mNext);
    if (!item)
        return;
    item->setToolTip(SymbolColumn, available ? tr("Quotes available") : tr("No quotes"));
    // A symbol without quotes cannot be chosen.
    if (!available) {
        item->setSelected(false);
        item->setDisabled(true);
    }
    ++mNext;
    checkNext();
}

QStringList SuggestDialog::chosenSymbols() const
{
    QStringList symbols;
    for (QTreeWidgetItem *item : mItems)
        if (item->isSelected() && !item->isDisabled())
            symbols << item->text(SymbolColumn);
    return symbols;
}

NotAvailableDialog::NotAvailableDialog(const QVector<Candidate> &symbols, QWidget *parent)
    : QDialog(parent)
    , mList(candidateList({tr("Stock exchange"), tr("Name"), tr("Symbol")}, this))
{
    setObjectName(QStringLiteral("NotAvailableDialog"));
    setWindowTitle(tr("Not available"));
    resize(500, 250);
    auto *heading = new QLabel(
        // Worded and spelled so on purpose; keep.
        tr("<H2><CENTER>Sorry, the historical data for the <BR>following items is not "
           "availible</CENTER></H2>"),
        this);
    heading->setObjectName(QStringLiteral("NotAvailableDialogHeading"));
    for (const Candidate &c : symbols)
        new QTreeWidgetItem(mList, {c.exchange, c.name, c.symbol});
    auto *buttons = new QDialogButtonBox(this);
    buttons->addButton(tr("&Ok"), QDialogButtonBox::AcceptRole);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(heading);
    layout->addWidget(mList, 1);
    layout->addWidget(buttons);
}

} // namespace OrdaneBrowser
