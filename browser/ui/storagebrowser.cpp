#include "storagebrowser.h"

#include "browser/suggestions.h"
#include "browser/symbollist.h"
#include "core/setting.h"
#include "data/home.h"
#include "data/metadata.h"
#include "data/net/datamanager.h"
#include "data/net/dataupdater.h"
#include "data/quotefile.h"
#include "data/quotesource.h"
#include "data/reader.h"
#include "data/ui/editcsvdialog.h"
#include "stocklist.h"
#include "suggestdialog.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QLoggingCategory>
#include <QMenu>
#include <QMessageBox>
#include <QPointer>
#include <QProgressBar>
#include <QPushButton>
#include <QTimer>
#include <QToolButton>
#include <QVBoxLayout>

namespace OrdaneBrowser {

Q_LOGGING_CATEGORY(lcBrowser, "halcyra.browser", QtInfoMsg)

namespace {
const QMWidgets::Setting<int> kSelectedItem{QStringLiteral("selecteditem"), 0};
const QMWidgets::Setting<QString> kLastFolder{QStringLiteral("StorageBrowser/LastFolder"),
                                              QDir::homePath()};
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

QString StorageBrowser::notice()
{
    // Worded and spelled so on purpose; keep.
    return QStringLiteral(
        "\n<FONT COLOR=#00BFFF>Important!</FONT> All information provided \"as is\" for "
        "information purposes only, not intended for trading purposes or advice.We are not "
        "liable for any information errors, incompeteness, or delays, or any actions taken in "
        "reliance on information contained herein.");
}

StorageBrowser::StorageBrowser(QWidget *parent)
    : StorageBrowser(QString(), parent)
{}

StorageBrowser::StorageBrowser(const QString &storageFolder, QWidget *parent)
    : QWidget(parent)
    , mFolder(storageFolder.isEmpty() ? OrdaneData::Home::storagePath() : storageFolder)
    , mSource(new FolderSource(mFolder, this))
    , mSymbol(new QLineEdit(this))
    , mAdd(new QPushButton(tr("&Add"), this))
    , mFind(new QPushButton(tr("&Find"), this))
    , mList(new StockList(this))
    , mCount(new QLabel(this))
    , mStatus(new QLabel(this))
    , mProgress(new QProgressBar(this))
    , mCancel(new QToolButton(this))
{
    setObjectName(QStringLiteral("StorageBrowser"));
    setDataManager(nullptr);
    buildControls();
    updateCount();

    connect(mList, &QTreeWidget::currentItemChanged, this, [this](QTreeWidgetItem *current) {
        if (!current)
            return;
        saveSelection();
        slotChartItemActivated(current, StockList::SymbolColumn);
    });
    connect(mList, &QTreeWidget::itemChanged, this, [this](QTreeWidgetItem *, int column) {
        if (column == StockList::CheckColumn)
            slotChartItemChanged();
    });
    if (QCoreApplication::instance())
        connect(QCoreApplication::instance(), &QCoreApplication::aboutToQuit, this,
                &StorageBrowser::slotSaveLastKnownSymbols);
    mList->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(mList, &QWidget::customContextMenuRequested, this, &StorageBrowser::showContextMenu);
}

StorageBrowser::~StorageBrowser()
{
    // The limit is process-wide: a browser going away mid-simulation must not leave it set.
    if (isSimulating())
        OrdaneData::Reader::setHistoryLimit(-1);
}

void StorageBrowser::buildControls()
{
    auto *label = new QLabel(tr("Symbol/Name"), this);
    label->setObjectName(QStringLiteral("SymbolNameLabel"));
    label->setBuddy(mSymbol);
    mSymbol->setObjectName(QStringLiteral("StorageBrowserSymbol"));
    mSymbol->setPlaceholderText(tr("MSFT, ADS.DE, ^GDAXI ..."));
    mAdd->setObjectName(QStringLiteral("StorageBrowserFetch"));
    mAdd->setToolTip(tr("Fetch the quotes of the symbol and add it to the list"));
    mFind->setObjectName(QStringLiteral("StorageBrowserFind"));
    mFind->setToolTip(tr("Select the first row whose symbol or name holds the text"));
    connect(mSymbol, &QLineEdit::returnPressed, this, [this] { slotFetchChartData(); });
    connect(mAdd, &QPushButton::clicked, this, [this] { slotFetchChartData(); });
    connect(mFind, &QPushButton::clicked, this, &StorageBrowser::slotFind);

    mList->setObjectName(QStringLiteral("StorageBrowserList"));
    mCount->setObjectName(QStringLiteral("StorageBrowserItems"));
    mStatus->setObjectName(QStringLiteral("StorageBrowserStatus"));
    mStatus->setWordWrap(true);
    mStatus->setTextInteractionFlags(Qt::TextSelectableByMouse);
    mStatus->hide();
    mProgress->setObjectName(QStringLiteral("StorageBrowserProgress"));
    mProgress->setRange(0, 100);
    mProgress->hide();
    mCancel->setObjectName(QStringLiteral("StorageBrowserCancel"));
    mCancel->setText(tr("Cancel"));
    mCancel->setToolTip(tr("Stop after the symbol or file under way"));
    mCancel->hide();
    connect(mCancel, &QToolButton::clicked, this, [this] {
        mCancelRequested = true;
        mCancel->setEnabled(false);
    });

    const auto button = [this](const char *name, const QString &text) {
        auto *b = new QPushButton(text, this);
        b->setObjectName(QLatin1String(name));
        return b;
    };
    QPushButton *save = button("StorageBrowserSS", tr("Save the Symbols"));
    connect(save, &QPushButton::clicked, this, &StorageBrowser::slotSaveSymbols);
    QPushButton *load = button("StorageBrowserLS", tr("Load the Symbols"));
    connect(load, &QPushButton::clicked, this, qOverload<>(&StorageBrowser::slotLoadSymbols));

    QPushButton *operations = button("StorageBrowserListOperations", tr("List Operations"));
    auto *listMenu = new QMenu(operations);
    listMenu->addAction(tr("Check All"), this, &StorageBrowser::slotCheckAll);
    listMenu->addAction(tr("Uncheck All"), this, &StorageBrowser::slotUncheckAll);
    // Spelled so on purpose; keep.
    listMenu->addAction(tr("Inverte"), this, &StorageBrowser::slotInvertChecked);
    listMenu->addAction(tr("Hide All"), this, &StorageBrowser::slotClear);
    listMenu->addAction(tr("Hide Checked"), this, &StorageBrowser::slotHideChecked);
    listMenu->addSeparator();
    listMenu->addAction(tr("Export Checked..."), this, &StorageBrowser::slotExportChecked);
    listMenu->addAction(tr("Erase Checked..."), this, &StorageBrowser::slotEraseChecked);
    listMenu->addAction(tr("Pair Checked with Selected"), this,
                        &StorageBrowser::slotPaarCheckedWithSelected);
    listMenu->addAction(tr("Check Store"), this, &StorageBrowser::slotCheckStore);
    operations->setMenu(listMenu);

    QPushButton *filter = button("StorageBrowserF", tr("Filter"));
    connect(filter, &QPushButton::clicked, this, &StorageBrowser::slotCreateFilter);

    QPushButton *imports = button("StorageBrowserID", tr("Files Import"));
    auto *importMenu = new QMenu(imports);
    importMenu->addAction(tr("Import &MetaTrader Files"), this,
                          &StorageBrowser::slotImportMetaTraderFilesOverwrite);
    importMenu->addAction(tr("Import %1 Files").arg(QStringLiteral("Halcyra")), this,
                          &StorageBrowser::slotImportHalcyraFilesOverwrite);
    // The trailing blank is part of the entry's text; keep.
    importMenu->addAction(tr("Import &MetaStock MASTER file "), this,
                          &StorageBrowser::slotImportMetaStockOverwrite);
    // The merging imports, which keep the days a file has and add the imported ones.
    importMenu->addSeparator();
    importMenu->addAction(tr("Merge MetaTrader Files"), this,
                          &StorageBrowser::slotImportMetaTraderFilesMerge);
    importMenu->addAction(tr("Merge %1 Files").arg(QStringLiteral("Halcyra")), this,
                          &StorageBrowser::slotImportHalcyraFilesMerge);
    importMenu->addAction(tr("Merge RBK Files"), this, &StorageBrowser::slotImportRBKFilesMerge);
    imports->setMenu(importMenu);

    QPushButton *scanner = button("StorageBrowserS", tr("Scanner"));
    connect(scanner, &QPushButton::clicked, this, &StorageBrowser::slotCreateScanner);
    QPushButton *update = button("StorageBrowserU", tr("Update"));
    auto *updateMenu = new QMenu(update);
    updateMenu->addAction(tr("Update All Data"), this, &StorageBrowser::slotUpdaterAll);
    updateMenu->addAction(tr("Update Visible Items Only"), this,
                          &StorageBrowser::slotUpdaterBrowserItems);
    update->setMenu(updateMenu);
    QPushButton *benchmark = button("StorageBrowserBenchmark", tr("Benchmarking"));
    connect(benchmark, &QPushButton::clicked, this, &StorageBrowser::slotBenchmarking);

    auto *noticeLabel = new QLabel(notice(), this);
    noticeLabel->setObjectName(QStringLiteral("StorageBrowserNotice"));
    noticeLabel->setWordWrap(true);
    noticeLabel->setTextFormat(Qt::RichText);
    // Small print: it must be there, but the list needs the room.
    QFont small = noticeLabel->font();
    small.setPointSizeF(small.pointSizeF() * 0.8);
    noticeLabel->setFont(small);

    auto *fetchRow = new QHBoxLayout;
    fetchRow->addWidget(label);
    fetchRow->addWidget(mSymbol, 1);
    fetchRow->addWidget(mAdd);
    fetchRow->addWidget(mFind);
    auto *buttons = new QGridLayout;
    buttons->addWidget(save, 0, 0);
    buttons->addWidget(load, 0, 1);
    buttons->addWidget(operations, 1, 0);
    buttons->addWidget(imports, 1, 1);
    // The tools over many symbols, three to a row; the simulator's two close the second.
    auto *tools = new QGridLayout;
    tools->addWidget(filter, 0, 0);
    tools->addWidget(scanner, 0, 1);
    tools->addWidget(update, 0, 2);
    tools->addWidget(benchmark, 1, 0);
    buttons->addLayout(tools, 2, 0, 1, 2);
    auto *progressRow = new QHBoxLayout;
    progressRow->addWidget(mProgress, 1);
    progressRow->addWidget(mCancel);

    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(2, 2, 2, 2);
    layout->addLayout(fetchRow);
    layout->addWidget(mList, 1);
    layout->addWidget(mStatus);
    layout->addLayout(progressRow);
    layout->addWidget(mCount);
    layout->addLayout(buttons);
    layout->addWidget(noticeLabel);
    buildSimulationControls(tools, layout);
}

void StorageBrowser::setDataManager(OrdaneData::DataManager *manager)
{
    delete mUpdater;
    mUpdater = new OrdaneData::DataUpdater(manager, this);
    connect(mUpdater, &OrdaneData::DataUpdater::updateFailed, this,
            [this](const QString &symbol, const QString &reason) {
                emit message(tr("%1 could not be fetched: %2").arg(symbol, reason));
            });
}

void StorageBrowser::setMetaData(OrdaneData::MetaData *meta)
{
    mMeta = meta;
}

QString StorageBrowser::statusText() const
{
    return mStatus->text();
}

bool StorageBrowser::isFetching() const
{
    return !mAdd->isEnabled();
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

QTreeWidgetItem *StorageBrowser::addRow(const QString &symbol)
{
    const QMap<QString, QString> record = mMeta ? mMeta->record(symbol) : QMap<QString, QString>();
    return mList->addSymbol(symbol, record.value(QStringLiteral("name")),
                            record.value(QStringLiteral("exchange")));
}

QTreeWidgetItem *StorageBrowser::addSymbol(const QString &symbol)
{
    if (QTreeWidgetItem *row = mList->findSymbol(symbol))
        return row;
    QTreeWidgetItem *row = addRow(symbol);
    fitSymbolColumn();
    updateCount();
    emit itemChanged();
    return row;
}

QStringList StorageBrowser::checkedSymbols() const
{
    QStringList symbols;
    for (int i = 0; i < mList->topLevelItemCount(); ++i)
        if (mList->topLevelItem(i)->checkState(StockList::CheckColumn) == Qt::Checked)
            symbols << mList->topLevelItem(i)->text(StockList::SymbolColumn);
    return symbols;
}

void StorageBrowser::loadLastKnown()
{
    QStringList symbols;
    if (readSymbolListFile(OrdaneData::Home::lastKnownSymbolsFile(), &symbols)) {
        slotSetSymbols(symbols);
        restoreSelection();
        return;
    }
    // A first start fetches the default symbols once the window is up.
    QTimer::singleShot(0, this, [this] {
        slotLoadSymbols(defaultSymbols());
        restoreSelection();
    });
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

void StorageBrowser::slotSetSymbols(const QStringList &symbols)
{
    mList->setSortingEnabled(false);
    mList->clear();
    for (const QString &symbol : symbols)
        if (!mList->findSymbol(symbol))
            addRow(symbol);
    mList->setSortingEnabled(true);
    fitSymbolColumn();
    updateCount();
    emit itemChanged();
}

void StorageBrowser::slotAddSymbol(const QString &symbol)
{
    if (!symbol.isEmpty())
        addSymbol(symbol);
}

void StorageBrowser::slotFillChartItems()
{
    const QStringList files =
        QDir(mFolder).entryList({QStringLiteral("*.*")}, QDir::Files, QDir::Name);
    QStringList symbols;
    for (const QString &file : files) {
        // The store's own files ("_meta.tdb", "_constituents.csv") are no symbols.
        if (!file.startsWith(QLatin1Char('_')))
            symbols << file.left(file.lastIndexOf(QLatin1Char('.')));
    }
    slotSetSymbols(symbols);
}

bool StorageBrowser::hasQuotes(const QString &symbol) const
{
    QFile file(mSource->fileOf(symbol));
    return file.open(QIODevice::ReadOnly) && OrdaneData::hasQuoteFileHeader(&file) &&
           file.size() > qint64(sizeof(OrdaneData::kQuoteFileHeader));
}

void StorageBrowser::fetch(const QString &symbol)
{
    mSymbol->setText(symbol);
    mSymbol->setEnabled(false);
    mAdd->setEnabled(false);
    // A reader of its own, which the updater fills and which ends the fetch with done().
    auto *reader = new OrdaneData::Reader(mUpdater, this);
    connect(reader, &OrdaneData::Reader::done, this, [this, reader, symbol](const QString &s) {
        if (s != symbol)
            return;
        reader->disconnect(this);
        reader->deleteLater();
        slotDone(s);
    });
    reader->fetchSymbol(symbol);
}

void StorageBrowser::slotFetchChartData()
{
    const QString text = mSymbol->text().trimmed();
    if (text.isEmpty() || isFetching())
        return;
    // Symbols are stored as the service writes them: upper case, or lower case for the
    // daily-CSV service ("aapl.us").
    const bool lower =
        mUpdater->manager()->service().provider == OrdaneData::QuoteService::DailyCsv;
    fetch(lower ? text.toLower() : text.toUpper());
}

void StorageBrowser::slotDone(const QString &fetched)
{
    QString symbol = fetched.toUpper();
    qCDebug(lcBrowser).noquote() << "!!!StorageBrowser::slotDone:" << symbol;
    mSymbol->setEnabled(true);
    mAdd->setEnabled(true);
    // A service whose symbols are lower case ("aapl.us") stores them so.
    if (!hasQuotes(symbol) && hasQuotes(fetched))
        symbol = fetched;
    if (hasQuotes(symbol)) {
        QTreeWidgetItem *row = addSymbol(symbol);
        if (!mLoading)
            mList->setCurrentItem(row);
        mSymbol->clear();
    } else if (mSuggestions) {
        suggest(fetched);
    } else {
        mNotFound << fetched;
    }
    emit done(symbol);
}

void StorageBrowser::slotFound(const QString &symbol)
{
    if (hasQuotes(symbol))
        addSymbol(symbol);
}

void StorageBrowser::suggest(const QString &typed)
{
    const OrdaneData::QuoteService service = mUpdater->manager()->service();
    SuggestDialog dialog(typed, suggestSymbols(typed, mMeta, service.provider), service, this);
    if (dialog.exec() != QDialog::Accepted)
        return;
    const QStringList chosen = dialog.chosenSymbols();
    if (!chosen.isEmpty())
        slotLoadSymbols(chosen);
}

void StorageBrowser::showNotAvailable(const QStringList &symbols)
{
    QVector<Candidate> rows;
    for (const QString &symbol : symbols) {
        const QMap<QString, QString> record =
            mMeta ? mMeta->record(symbol) : QMap<QString, QString>();
        rows.append({candidateType(symbol), record.value(QStringLiteral("exchange")),
                     record.value(QStringLiteral("name")), symbol});
    }
    NotAvailableDialog(rows, this).exec();
}

void StorageBrowser::startRun(const QString &text)
{
    mCancelRequested = false;
    mCancel->setEnabled(true);
    mCancel->show();
    mProgress->setValue(0);
    mProgress->show();
    emit message(text);
}

void StorageBrowser::endRun()
{
    mCancel->hide();
    mProgress->hide();
}

void StorageBrowser::slotLoadSymbols(const QStringList &symbols)
{
    if (mLoading || isFetching())
        return;
    QPointer<StorageBrowser> self(this);
    mLoading = true;
    mNotFound.clear();
    const bool suggestions = mSuggestions;
    mSuggestions = false;
    startRun(tr("Fetching %1 symbols ...").arg(symbols.size()));
    const int n = symbols.size();
    int shown = 0;
    slotSetQuality(0);
    for (int i = 0; i < n; ++i) {
        fetch(symbols.at(i));
        while (self && isFetching())
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        if (!self)
            return;
        if (mCancelRequested)
            break;
        const int percent = int(i * 100.0 / n);
        if (percent != shown) {
            shown = percent;
            slotSetQuality(percent);
        }
    }
    slotSetQuality(100);
    updateCount();
    mSuggestions = suggestions;
    mLoading = false;
    endRun();
    emit message(mCancelRequested ? tr("Fetching stopped: %1 of %2 symbols listed.")
                                        .arg(mList->topLevelItemCount())
                                        .arg(n)
                                  : tr("%1 Items").arg(mList->topLevelItemCount()));
    if (!mNotFound.isEmpty())
        showNotAvailable(mNotFound);
}

void StorageBrowser::slotLoadIndexSymbols(const QStringList &symbols)
{
    slotLoadSymbols(symbols);
}

QString StorageBrowser::lastFolder() const
{
    return kLastFolder.value();
}

void StorageBrowser::rememberFolder(const QString &path)
{
    kLastFolder.setValue(QFileInfo(path).absolutePath());
}

void StorageBrowser::slotSaveSymbols()
{
    QString path = QFileDialog::getSaveFileName(this, tr("Save Browser Symbols"),
                                                lastFolder() + QStringLiteral("/SymbolsList.sym"),
                                                QStringLiteral("*.sym"));
    if (path.isEmpty())
        return;
    path = withSymbolListExtension(path);
    QString error;
    if (!writeSymbolListFile(path, mList->symbols(), &error)) {
        QMessageBox::warning(this, tr("Save Browser Symbols"),
                             tr("The list could not be saved: %1").arg(error));
        return;
    }
    rememberFolder(path);
}

void StorageBrowser::slotLoadSymbols()
{
    const QString path =
        QFileDialog::getOpenFileName(this, tr("Load Browser Symbols"),
                                     lastFolder() + QStringLiteral("/ "), QStringLiteral("*.sym"));
    QStringList symbols;
    if (path.isEmpty() || !readSymbolListFile(path, &symbols))
        return;
    rememberFolder(path);
    mList->clear();
    updateCount();
    slotLoadSymbols(symbols);
}

void StorageBrowser::slotSaveLastKnownSymbols()
{
    if (mList->topLevelItemCount() == 0)
        return;
    const QList<QTreeWidgetItem *> selected = mList->selectedItems();
    if (!selected.isEmpty())
        kSelectedItem.setValue(mList->indexOfTopLevelItem(selected.constFirst()));
    QString error;
    if (!writeSymbolListFile(OrdaneData::Home::lastKnownSymbolsFile(), mList->symbols(), &error))
        qWarning("The symbol list could not be kept: %s", qPrintable(error));
}

OrdaneData::ReaderH StorageBrowser::load(const QString &symbol)
{
    OrdaneData::ReaderH reader(new OrdaneData::Reader(mSource));
    reader->setSymbol(symbol);
    const QString file = QDir::toNativeSeparators(mSource->fileOf(symbol));
    switch (mSource->failure()) {
    case FolderSource::CannotOpen:
        showStatus(tr("Cannot open %1: %2").arg(file, mSource->reason()));
        return {};
    case FolderSource::NotQuotes:
        showStatus(tr("%1 is not a quote file.").arg(file));
        return {};
    case FolderSource::None:
        break;
    }
    if (reader->isEmpty()) {
        showStatus(tr("%1 holds no quotes.").arg(file));
        return {};
    }
    showStatus(QString());
    return reader;
}

void StorageBrowser::slotChartItemActivated(QTreeWidgetItem *item, int column)
{
    Q_UNUSED(column)
    if (!item)
        return;
    const OrdaneData::ReaderH reader = load(item->text(StockList::SymbolColumn));
    if (!reader.isNull())
        emit chartItemSeletected(reader);
}

void StorageBrowser::slotChartItemChanged()
{
    if (QTreeWidgetItem *row = mList->currentItem())
        emit itemChecked(row->checkState(StockList::CheckColumn) == Qt::Checked);
}

void StorageBrowser::slotSetQuality(int percent)
{
    mProgress->setValue(qBound(0, percent, 100));
}

void StorageBrowser::slotFind()
{
    const QString text = mSymbol->text().trimmed();
    if (text.isEmpty())
        return;
    for (int i = 0; i < mList->topLevelItemCount(); ++i) {
        QTreeWidgetItem *row = mList->topLevelItem(i);
        if (row->text(StockList::SymbolColumn).contains(text, Qt::CaseInsensitive) ||
            row->text(StockList::NameColumn).contains(text, Qt::CaseInsensitive)) {
            mList->setCurrentItem(row);
            mList->scrollToItem(row);
            return;
        }
    }
    emit message(tr("No symbol or name holds \"%1\".").arg(text));
}

void StorageBrowser::updateSelected(QTreeWidgetItem *item)
{
    if (isFetching())
        return;
    mUpdating = item->text(StockList::SymbolColumn);
    auto *reader = new OrdaneData::Reader(mUpdater, this);
    const QString symbol = mUpdating;
    connect(reader, &OrdaneData::Reader::done, this, [this, reader, symbol](const QString &s) {
        if (s != symbol)
            return;
        reader->disconnect(this);
        reader->deleteLater();
        slotUpdateOnDemandDone(s);
    });
    emit message(tr("Updating %1 ...").arg(symbol));
    reader->fetchSymbol(symbol);
}

void StorageBrowser::slotUpdateOnDemandDone(const QString &symbol)
{
    mUpdating.clear();
    QTreeWidgetItem *current = mList->currentItem();
    if (current && current->text(StockList::SymbolColumn) == symbol)
        slotChartItemActivated(current, StockList::SymbolColumn);
}

void StorageBrowser::setChecked(Qt::CheckState (*state)(Qt::CheckState))
{
    for (int i = 0; i < mList->topLevelItemCount(); ++i) {
        QTreeWidgetItem *row = mList->topLevelItem(i);
        row->setCheckState(StockList::CheckColumn, state(row->checkState(StockList::CheckColumn)));
    }
}

void StorageBrowser::slotCheckAll()
{
    setChecked([](Qt::CheckState) { return Qt::Checked; });
}

void StorageBrowser::slotUncheckAll()
{
    setChecked([](Qt::CheckState) { return Qt::Unchecked; });
}

void StorageBrowser::slotInvertChecked()
{
    setChecked([](Qt::CheckState s) { return s == Qt::Checked ? Qt::Unchecked : Qt::Checked; });
}

void StorageBrowser::slotClear()
{
    mList->clear();
    updateCount();
    emit itemChanged();
}

void StorageBrowser::slotHideChecked()
{
    for (int i = mList->topLevelItemCount() - 1; i >= 0; --i)
        if (mList->topLevelItem(i)->checkState(StockList::CheckColumn) == Qt::Checked)
            delete mList->takeTopLevelItem(i);
    updateCount();
    emit itemChanged();
}

void StorageBrowser::slotExportChecked()
{
    const QStringList symbols = checkedSymbols();
    if (symbols.isEmpty()) {
        emit message(tr("Check the rows to export first."));
        return;
    }
    const QString folder =
        QFileDialog::getExistingDirectory(this, tr("Export Checked"), lastFolder());
    if (folder.isEmpty())
        return;
    kLastFolder.setValue(folder);
    QStringList failed;
    int written = 0;
    for (const QString &symbol : symbols) {
        QFile source(mSource->fileOf(symbol));
        const QString target = QDir(folder).filePath(symbol + QStringLiteral(".csv"));
        if (source.open(QIODevice::ReadOnly) && OrdaneData::writeText(target, source.readAll()))
            ++written;
        else
            failed << symbol;
    }
    QString text =
        tr("%1 files exported to %2.").arg(written).arg(QDir::toNativeSeparators(folder));
    if (!failed.isEmpty())
        text += QLatin1Char(' ') + tr("Not exported: %1.").arg(failed.join(QStringLiteral(", ")));
    emit message(text);
    if (!failed.isEmpty())
        QMessageBox::warning(this, tr("Export Checked"), text);
}

void StorageBrowser::slotEraseChecked()
{
    const QStringList symbols = checkedSymbols();
    if (symbols.isEmpty()) {
        emit message(tr("Check the rows to erase first."));
        return;
    }
    const auto answer = QMessageBox::question(
        this, tr("Erase Checked"),
        tr("Delete the stored quotes of these %1 symbols from the disk?\n\n%2")
            .arg(symbols.size())
            .arg(symbols.join(QStringLiteral(", "))),
        QMessageBox::Yes | QMessageBox::No, QMessageBox::No);
    if (answer != QMessageBox::Yes)
        return;
    QStringList failed;
    for (const QString &symbol : symbols) {
        if (QFile::remove(mSource->fileOf(symbol)) || !QFile::exists(mSource->fileOf(symbol)))
            delete mList->findSymbol(symbol);
        else
            failed << symbol;
    }
    updateCount();
    emit itemChanged();
    if (!failed.isEmpty())
        QMessageBox::warning(
            this, tr("Erase Checked"),
            tr("These could not be deleted: %1").arg(failed.join(QStringLiteral(", "))));
}

void StorageBrowser::slotPair(const QString &symbol)
{
    const OrdaneData::ReaderH reader = load(symbol);
    if (!reader.isNull())
        emit pairSelected(reader);
}

void StorageBrowser::slotPaarCheckedWithSelected()
{
    const QStringList symbols = checkedSymbols();
    if (symbols.isEmpty()) {
        emit message(tr("Check the row to pair with the chart first."));
        return;
    }
    slotPair(symbols.constFirst());
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

void StorageBrowser::showContextMenu(const QPoint &pos)
{
    QTreeWidgetItem *item = mList->itemAt(pos);
    if (!item)
        return;
    QMenu menu;
    menu.addAction(tr("&Edit"), this, [this, item] { editQuotes(item); });
    menu.addAction(tr("&Expand Index"), this, [this, item] { expandIndex(item); });
    menu.addAction(tr("&Info"), this, [this, item] { showInfo(item); });
    menu.addAction(tr("&Hide"), this, [this, item] {
        delete item;
        updateCount();
        emit itemChanged();
    });
    QAction *update = menu.addAction(tr("&Update"), this, [this, item] { updateSelected(item); });
    update->setEnabled(!isFetching());
    menu.addAction(tr("Send to &Calibrator"), this,
                   [this, item] { sendToCalibrator(item->text(StockList::SymbolColumn)); });
    menu.exec(mList->viewport()->mapToGlobal(pos));
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
