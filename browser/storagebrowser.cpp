#include "storagebrowser.h"

#include "core/setting.h"
#include "data/home.h"
#include "data/quotefile.h"
#include "data/quotesource.h"
#include "data/reader.h"
#include "data/ui/editcsvdialog.h"
#include "stocklist.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QMenu>
#include <QVBoxLayout>

namespace OrdaneBrowser {

namespace {
const QMWidgets::Setting<int> kSelectedItem{QStringLiteral("selecteditem"), 0};
} // namespace

// The stored files of one folder. The reader keeps it as its source, so that a change of
// time frame reloads the daily bars from the same folder.
class FolderSource : public OrdaneData::StorageSource
{
public:
    enum Failure { None, CannotOpen, NotQuotes };

    FolderSource(const QString &folder, QObject *parent)
        : StorageSource(parent)
        , mFolder(folder)
    {}

    QString fileOf(const QString &symbol) const
    {
        return mFolder + QLatin1Char('/') + symbol + QLatin1String(".csv");
    }

    bool loadStored(OrdaneData::Reader *reader, const QString &symbol) override
    {
        QFile file(fileOf(symbol));
        mFailure = None;
        if (!file.open(QIODevice::ReadOnly)) {
            mFailure = CannotOpen;
            mReason = file.errorString();
            return false;
        }
        if (!OrdaneData::hasQuoteFileHeader(&file)) {
            mFailure = NotQuotes;
            return false;
        }
        file.close();
        if (!reader->loadFile(file.fileName())) {
            mFailure = CannotOpen;
            mReason = file.errorString();
            return false;
        }
        return true;
    }

    Failure failure() const { return mFailure; }
    QString reason() const { return mReason; }

private:
    QString mFolder;
    Failure mFailure = None;
    QString mReason;
};

StorageBrowser::StorageBrowser(QWidget *parent)
    : StorageBrowser(QString(), parent)
{}

StorageBrowser::StorageBrowser(const QString &storageFolder, QWidget *parent)
    : QWidget(parent)
    , mFolder(storageFolder.isEmpty() ? OrdaneData::Home::storagePath() : storageFolder)
    , mSource(new FolderSource(mFolder, this))
    , mList(new StockList(this))
    , mCount(new QLabel(this))
    , mStatus(new QLabel(this))
{
    setObjectName(QStringLiteral("StorageBrowser"));
    mList->setObjectName(QStringLiteral("StorageBrowserList"));
    mCount->setObjectName(QStringLiteral("StorageBrowserItems"));
    mStatus->setObjectName(QStringLiteral("StorageBrowserStatus"));
    mStatus->setWordWrap(true);
    mStatus->setTextInteractionFlags(Qt::TextSelectableByMouse);
    mStatus->hide();

    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(2, 2, 2, 2);
    layout->addWidget(mList, 1);
    layout->addWidget(mStatus);
    layout->addWidget(mCount);
    updateCount();

    connect(mList, &QTreeWidget::currentItemChanged, this, [this](QTreeWidgetItem *current) {
        if (!current)
            return;
        saveSelection();
        slotChartItemActivated(current, StockList::SymbolColumn);
    });
    if (QCoreApplication::instance())
        connect(QCoreApplication::instance(), &QCoreApplication::aboutToQuit, this,
                &StorageBrowser::saveSelection);

    mList->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(mList, &QWidget::customContextMenuRequested, this, [this](const QPoint &pos) {
        QTreeWidgetItem *item = mList->itemAt(pos);
        if (!item)
            return;
        QMenu menu;
        menu.addAction(tr("&Edit"), this, [this, item] { editQuotes(item); });
        menu.addAction(tr("&Hide"), this, [this, item] {
            delete item;
            updateCount();
            emit itemChanged();
        });
        menu.exec(mList->viewport()->mapToGlobal(pos));
    });
}

void StorageBrowser::editQuotes(QTreeWidgetItem *item)
{
    const QString symbol = item->text(StockList::SymbolColumn);
    auto *dialog = new OrdaneData::EditCsvDialog(symbol, this);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    // The chart of the edited symbol shows the saved quotes at once.
    connect(dialog, &OrdaneData::EditCsvDialog::saved, this, [this](const QString &saved) {
        QTreeWidgetItem *current = mList->currentItem();
        if (current && current->text(StockList::SymbolColumn) == saved)
            slotChartItemActivated(current, StockList::SymbolColumn);
    });
    dialog->open();
}

void StorageBrowser::fitSymbolColumn()
{
    // The symbol column starts 60 pixels wide, room for four or five letters; longer
    // symbols ("ADS.DE") widen it instead of being cut short.
    const int width = mList->columnWidth(StockList::SymbolColumn);
    mList->resizeColumnToContents(StockList::SymbolColumn);
    if (mList->columnWidth(StockList::SymbolColumn) < width)
        mList->setColumnWidth(StockList::SymbolColumn, width);
}

QString StorageBrowser::statusText() const
{
    return mStatus->text();
}

QTreeWidgetItem *StorageBrowser::addSymbol(const QString &symbol, const QString &name,
                                           const QString &exchange)
{
    if (QTreeWidgetItem *row = mList->findSymbol(symbol))
        return row;
    QTreeWidgetItem *row = mList->addSymbol(symbol, name, exchange);
    fitSymbolColumn();
    updateCount();
    emit itemChanged();
    return row;
}

void StorageBrowser::restoreSelection()
{
    const int count = mList->topLevelItemCount();
    if (count == 0)
        return;
    const int index = kSelectedItem.value();
    mList->setCurrentItem(mList->topLevelItem(index >= 0 && index < count ? index : 0));
}

void StorageBrowser::saveSelection() const
{
    if (QTreeWidgetItem *current = mList->currentItem())
        kSelectedItem.setValue(mList->indexOfTopLevelItem(current));
}

void StorageBrowser::slotFillChartItems()
{
    const QStringList files =
        QDir(mFolder).entryList({QStringLiteral("*.*")}, QDir::Files, QDir::Name);

    // Sorting each row into place as it arrives costs a search and a move per file; the
    // list is sorted once at the end instead, by whatever column the user last chose.
    mList->setSortingEnabled(false);
    mList->clear();
    for (const QString &file : files)
        mList->addSymbol(file.left(file.lastIndexOf(QLatin1Char('.'))));
    mList->setSortingEnabled(true);
    fitSymbolColumn();

    updateCount();
    emit itemChanged();
}

void StorageBrowser::slotChartItemActivated(QTreeWidgetItem *item, int column)
{
    Q_UNUSED(column)
    if (!item)
        return;
    const QString symbol = item->text(StockList::SymbolColumn);
    const QString file = QDir::toNativeSeparators(mSource->fileOf(symbol));

    OrdaneData::ReaderH reader(new OrdaneData::Reader(mSource));
    reader->setSymbol(symbol);
    switch (mSource->failure()) {
    case FolderSource::CannotOpen:
        showStatus(tr("Cannot open %1: %2").arg(file, mSource->reason()));
        return;
    case FolderSource::NotQuotes:
        showStatus(tr("%1 is not a quote file.").arg(file));
        return;
    case FolderSource::None:
        break;
    }
    if (reader->isEmpty()) {
        showStatus(tr("%1 holds no quotes.").arg(file));
        return;
    }
    showStatus(QString());
    emit chartItemSeletected(reader);
}

void StorageBrowser::updateCount()
{
    mCount->setText(tr("%1 Items").arg(mList->topLevelItemCount()));
}

void StorageBrowser::showStatus(const QString &text)
{
    mStatus->setText(text);
    mStatus->setVisible(!text.isEmpty());
}

} // namespace OrdaneBrowser
