// The storage browser's tools over files: the imports of other programs' quote files and the
// check of the store.

#include "data/import/importer.h"
#include "data/import/storecheck.h"
#include "data/metadata.h"
#include "filterdialog.h"
#include "indexexpanddialog.h"
#include "infodialog.h"
#include "metastockimportdialog.h"
#include "stocklist.h"
#include "storagebrowser.h"

#include <QCoreApplication>
#include <QDialog>
#include <QDialogButtonBox>
#include <QDir>
#include <QFileDialog>
#include <QHeaderView>
#include <QLabel>
#include <QMessageBox>
#include <QPointer>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace OrdaneBrowser {

void StorageBrowser::import(OrdaneData::ImportFormat format, bool merge, const QString &title,
                            const QString &filter)
{
    const QStringList paths =
        QFileDialog::getOpenFileNames(this, title, lastFolder() + QStringLiteral("/ "), filter);
    if (paths.isEmpty())
        return;
    rememberFolder(paths.constFirst());
    if (format == OrdaneData::ImportFormat::MetaStock) {
        // The records of each MASTER file are shown first; "Import All" takes them all.
        for (const QString &path : paths) {
            MetaStockImportDialog dialog(path, this);
            if (dialog.exec() != QDialog::Accepted)
                return;
        }
    }
    importFiles(format, paths, merge);
}

OrdaneData::ImportReport StorageBrowser::importFiles(OrdaneData::ImportFormat format,
                                                     const QStringList &paths, bool merge)
{
    QPointer<StorageBrowser> self(this);
    OrdaneData::Importer importer(mFolder);
    startRun(tr("Importing %1 files ...").arg(paths.size()));
    connect(&importer, &OrdaneData::Importer::progress, this, [this, &importer](int percent) {
        slotSetQuality(percent);
        // The progress bar repaints, and the cancel button is heard, between files.
        QCoreApplication::processEvents();
        if (mCancelRequested)
            importer.cancel();
    });
    connect(&importer, &OrdaneData::Importer::imported, this,
            [this](const QString &symbol) { slotDone(symbol); });
    const bool suggestions = mSuggestions;
    mSuggestions = false;
    const OrdaneData::ImportReport report = importer.run(format, paths, merge);
    if (!self)
        return report;
    mSuggestions = suggestions;
    endRun();
    emit message(report.describe());
    if (!report.skipped.isEmpty())
        QMessageBox::warning(this, tr("Files Import"), report.describe());
    return report;
}

void StorageBrowser::slotImportMetaTraderFilesOverwrite()
{
    import(OrdaneData::ImportFormat::MetaTrader, false, tr("Import Files (Overwrite)"),
           QStringLiteral("*.csv"));
}

void StorageBrowser::slotImportMetaTraderFilesMerge()
{
    import(OrdaneData::ImportFormat::MetaTrader, true, tr("Import Files (Merge)"),
           QStringLiteral("*.csv"));
}

void StorageBrowser::slotImportHalcyraFilesOverwrite()
{
    import(OrdaneData::ImportFormat::Halcyra, false, tr("Import Files (Overwrite)"),
           QStringLiteral("*.csv"));
}

void StorageBrowser::slotImportHalcyraFilesMerge()
{
    import(OrdaneData::ImportFormat::Halcyra, true, tr("Import Files (Merge)"),
           QStringLiteral("*.csv"));
}

void StorageBrowser::slotImportRBKFilesMerge()
{
    import(OrdaneData::ImportFormat::Rbk, true, tr("Import File (Merge)"), QStringLiteral("*.csv"));
}

void StorageBrowser::slotImportMetaStockOverwrite()
{
    import(OrdaneData::ImportFormat::MetaStock, false, tr("Import Files (Overwrite)"),
           QStringLiteral("master"));
}

void StorageBrowser::showInfo(QTreeWidgetItem *item)
{
    const QString symbol = item->text(StockList::SymbolColumn);
    InfoDialog dialog(symbol, mMeta ? mMeta->record(symbol) : QMap<QString, QString>(), this);
    dialog.exec();
}

void StorageBrowser::expandIndex(QTreeWidgetItem *item)
{
    const QStringList members =
        IndexExpandDialog::pickMembers(item->text(StockList::SymbolColumn), this);
    if (members.isEmpty())
        return;
    emit addIndexSymbols(members);
    slotLoadIndexSymbols(members);
}

void StorageBrowser::slotCreateFilter()
{
    if (!mFilterDialog)
        mFilterDialog = new FilterDialog(this);
    mFilterDialog->show();
    mFilterDialog->raise();
    mFilterDialog->activateWindow();
}

void StorageBrowser::slotCheckStore()
{
    QStringList symbols = mList->symbols();
    symbols.removeAll(QString());
    const QVector<OrdaneData::StoreCheck> checks = OrdaneData::checkStore(mFolder, symbols);
    int damaged = 0;
    QDialog dialog(this);
    dialog.setWindowTitle(tr("Check Store"));
    dialog.resize(760, 420);
    auto *table = new QTreeWidget(&dialog);
    table->setObjectName(QStringLiteral("StoreCheckList"));
    table->setRootIsDecorated(false);
    table->setHeaderLabels({tr("Symbol"), tr("Rows"), tr("First"), tr("Last"), tr("Bad lines"),
                            tr("Repeated dates"), tr("Out of order"), tr("Gaps"), tr("Status")});
    for (const OrdaneData::StoreCheck &c : checks) {
        const QString date = QStringLiteral("yyyy-MM-dd");
        auto *row = new QTreeWidgetItem(
            table, {c.symbol, QString::number(c.rows), c.first.toString(date),
                    c.last.toString(date), QString::number(c.badLines),
                    QString::number(c.repeatedDates), QString::number(c.outOfOrder),
                    QString::number(c.gaps), c.ok() ? tr("ok") : tr("damaged")});
        if (!c.ok()) {
            ++damaged;
            for (int column = 0; column < table->columnCount(); ++column)
                row->setForeground(column, QColor(229, 100, 107));
        }
    }
    table->header()->resizeSections(QHeaderView::ResizeToContents);
    auto *summary = new QLabel(damaged ? tr("%1 of %2 files have problems; nothing was changed.")
                                             .arg(damaged)
                                             .arg(checks.size())
                                       : tr("All %1 files are sound.").arg(checks.size()),
                               &dialog);
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Close, &dialog);
    connect(buttons, &QDialogButtonBox::rejected, &dialog, &QDialog::reject);
    auto *layout = new QVBoxLayout(&dialog);
    layout->addWidget(summary);
    layout->addWidget(table, 1);
    layout->addWidget(buttons);
    emit message(summary->text());
    dialog.exec();
}

} // namespace OrdaneBrowser
