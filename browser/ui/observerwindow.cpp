#include "observerwindow.h"

#include "core/setting.h"
#include "data/quotefile.h"
#include "data/quotesource.h"
#include "data/reader.h"
#include "observerlist.h"

#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QLabel>
#include <QMenu>
#include <QMessageBox>
#include <QPushButton>
#include <QVBoxLayout>

namespace OrdaneBrowser {

namespace {

const QMWidgets::Setting<QStringList> kBears{QStringLiteral("Observer/Bears"), {}};
const QMWidgets::Setting<QStringList> kBulls{QStringLiteral("Observer/Bulls"), {}};

QString listed(const QStringList &lines)
{
    return QStringLiteral("\n\n") + lines.join(QLatin1Char('\n'));
}

} // namespace

ObserverWindow::ObserverWindow(QWidget *parent)
    : ObserverWindow(Kind::Bears, parent)
{}

ObserverWindow::ObserverWindow(Kind kind, QWidget *parent)
    : QWidget(parent)
    , mKind(kind)
    , mSource(new OrdaneData::StorageSource(this))
    , mList(new ObserverList(this))
    , mStatus(new QLabel(this))
    , mExport(new QPushButton(tr("Export Charts"), this))
    , mImport(new QPushButton(tr("Import Charts"), this))
{
    const QString name =
        kind == Kind::Bulls ? QStringLiteral("BullWindow") : QStringLiteral("ObserverWindow");
    setObjectName(name);
    mList->setObjectName(name + QStringLiteral("List"));
    mStatus->setObjectName(name + QStringLiteral("Status"));
    mExport->setObjectName(name + QStringLiteral("Export"));
    mImport->setObjectName(name + QStringLiteral("Import"));
    if (kind == Kind::Bulls)
        mList->setPicture(QStringLiteral(":/pix/bullicon.bmp"));
    mExport->setToolTip(tr("Copy the stored quotes of the selected symbols into a folder"));
    mImport->setToolTip(tr("Add the symbols of quote files to this list"));
    mStatus->setWordWrap(true);
    mStatus->setTextInteractionFlags(Qt::TextSelectableByMouse);
    mStatus->hide();

    auto *buttons = new QHBoxLayout;
    buttons->setContentsMargins(0, 0, 0, 0);
    buttons->addWidget(mExport);
    buttons->addWidget(mImport);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(2, 2, 2, 2);
    layout->addWidget(mList, 1);
    layout->addWidget(mStatus);
    layout->addLayout(buttons);

    mList->setSymbols((kind == Kind::Bulls ? kBulls : kBears).value());
    updateButtons();

    connect(mList, &ObserverList::symbolsChanged, this, &ObserverWindow::save);
    connect(mList, &QListWidget::itemActivated, this, &ObserverWindow::slotItemActivated);
    connect(mList, &QListWidget::itemSelectionChanged, this, &ObserverWindow::updateButtons);
    connect(mExport, &QPushButton::clicked, this, &ObserverWindow::slotExportCharts);
    connect(mImport, &QPushButton::clicked, this, &ObserverWindow::slotImportCharts);
    mList->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(mList, &QWidget::customContextMenuRequested, this, &ObserverWindow::showContextMenu);
}

QString ObserverWindow::statusText() const
{
    return mStatus->text();
}

void ObserverWindow::showContextMenu(const QPoint &pos)
{
    QListWidgetItem *item = mList->itemAt(pos);
    const bool selected = !mList->selectedItems().isEmpty();
    QMenu menu;
    if (item) {
        QAction *show =
            menu.addAction(tr("&Show Chart"), this, [this, item] { slotItemActivated(item); });
        menu.setDefaultAction(show);
    }
    QAction *remove = menu.addAction(tr("&Remove"), mList, &ObserverList::removeSelected);
    remove->setShortcut(QKeySequence::Delete); // shown only; the list handles the key
    remove->setEnabled(selected);
    menu.addSeparator();
    menu.addAction(tr("&Export Charts"), this, &ObserverWindow::slotExportCharts)
        ->setEnabled(selected);
    menu.addAction(tr("&Import Charts"), this, &ObserverWindow::slotImportCharts);
    menu.exec(mList->viewport()->mapToGlobal(pos));
}

void ObserverWindow::slotExportCharts()
{
    const QString folder = QFileDialog::getExistingDirectory(this, tr("Export Charts"));
    if (!folder.isEmpty())
        exportCharts(folder);
}

void ObserverWindow::slotImportCharts()
{
    const QStringList files = QFileDialog::getOpenFileNames(this, tr("Import Charts"), QString(),
                                                            tr("Quote files (*.csv)"));
    if (!files.isEmpty())
        importCharts(files);
}

int ObserverWindow::exportCharts(const QString &folder)
{
    const QStringList symbols = mList->selectedSymbols();
    if (symbols.isEmpty()) {
        showStatus(tr("Select the symbols whose charts to export."));
        return 0;
    }
    const QString nativeFolder = QDir::toNativeSeparators(folder);
    if (!QDir().mkpath(folder)) {
        QMessageBox::warning(this, tr("Export Charts"),
                             tr("The folder %1 cannot be made.").arg(nativeFolder));
        return 0;
    }

    enum class Replace { Ask, All, None } replace = Replace::Ask;
    QStringList failures;
    int written = 0;
    for (int i = 0; i < symbols.size(); ++i) {
        const QString &symbol = symbols.at(i);
        QFile stored(OrdaneData::fileOf(symbol));
        const QString target = QDir(folder).filePath(symbol + QLatin1String(".csv"));
        if (!stored.open(QIODevice::ReadOnly)) {
            failures << tr("%1: no stored quotes (%2)").arg(symbol, stored.errorString());
            continue;
        }
        const QFileInfo targetInfo(target);
        if (targetInfo.exists()) {
            // Exporting into the storage folder finds each file in its place already.
            if (targetInfo.canonicalFilePath() == QFileInfo(stored).canonicalFilePath()) {
                ++written;
                continue;
            }
            if (replace == Replace::None)
                continue;
            if (replace == Replace::Ask) {
                QMessageBox::StandardButtons choices = QMessageBox::Yes | QMessageBox::No;
                if (i + 1 < symbols.size())
                    choices |= QMessageBox::YesToAll | QMessageBox::NoToAll;
                const auto answer = QMessageBox::question(
                    this, tr("Export Charts"),
                    tr("%1 exists already. Replace it?").arg(QDir::toNativeSeparators(target)),
                    choices, QMessageBox::No);
                if (answer == QMessageBox::YesToAll) {
                    replace = Replace::All;
                } else if (answer == QMessageBox::NoToAll) {
                    replace = Replace::None;
                    continue;
                } else if (answer != QMessageBox::Yes) {
                    continue;
                }
            }
        }
        QString error;
        if (OrdaneData::writeText(target, stored.readAll(), &error))
            ++written;
        else
            failures << tr("%1: %2").arg(QDir::toNativeSeparators(target), error);
    }

    showStatus(
        tr("%1 of %2 charts exported to %3.").arg(written).arg(symbols.size()).arg(nativeFolder));
    if (!failures.isEmpty())
        QMessageBox::warning(this, tr("Export Charts"),
                             tr("These charts could not be exported:") + listed(failures));
    return written;
}

int ObserverWindow::importCharts(const QStringList &files)
{
    QStringList symbols;
    QStringList failures;
    for (const QString &file : files) {
        const QString native = QDir::toNativeSeparators(file);
        const QString symbol = QFileInfo(file).completeBaseName();
        QFile in(file);
        if (!in.open(QIODevice::ReadOnly)) {
            failures << tr("%1: %2").arg(native, in.errorString());
            continue;
        }
        if (symbol.isEmpty() || !OrdaneData::hasQuoteFileHeader(&in)) {
            failures << tr("%1: not a quote file").arg(native);
            continue;
        }
        const QString stored = OrdaneData::fileOf(symbol);
        if (!QFileInfo::exists(stored)) {
            QString error;
            QDir().mkpath(OrdaneData::storagePath());
            if (!in.seek(0) || !OrdaneData::writeText(stored, in.readAll(), &error)) {
                failures << tr("%1: %2").arg(QDir::toNativeSeparators(stored), error);
                continue;
            }
        }
        symbols << symbol;
    }

    const int added = mList->addSymbols(symbols);
    showStatus(tr("%1 of %2 files imported.").arg(symbols.size()).arg(files.size()));
    if (!failures.isEmpty())
        QMessageBox::warning(this, tr("Import Charts"),
                             tr("These files were not imported:") + listed(failures));
    return added;
}

void ObserverWindow::slotItemActivated(QListWidgetItem *item)
{
    if (!item)
        return;
    const QString symbol = item->text();
    OrdaneData::ReaderH reader(new OrdaneData::Reader(mSource));
    reader->setSymbol(symbol);
    if (reader->isEmpty()) {
        showStatus(tr("%1 has no stored quotes.").arg(symbol));
        return;
    }
    showStatus(QString());
    emit observerItemSeletected(reader);
}

void ObserverWindow::save() const
{
    (mKind == Kind::Bulls ? kBulls : kBears).setValue(mList->symbols());
}

void ObserverWindow::showStatus(const QString &text)
{
    mStatus->setText(text);
    mStatus->setVisible(!text.isEmpty());
}

void ObserverWindow::updateButtons()
{
    mExport->setEnabled(!mList->selectedItems().isEmpty());
}

} // namespace OrdaneBrowser
