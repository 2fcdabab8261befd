#include "mainwindow.h"

#include "data/home.h"
#include "data/reader.h"
#include "data/ui/editcsvdialog.h"
#include "indicators/catalogue.h"
#include "view/ui/viewscontainer.h"
#include "widgets/app.h"
#include "widgets/reminders.h"
#include "widgets/remindersdialog.h"
#include "widgets/updater.h"
#include "widgets/updaterpage.h"

#include <QDesktopServices>
#include <QDir>
#include <QHeaderView>
#include <QInputDialog>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QScrollBar>
#include <QSplitter>
#include <QStatusBar>
#include <QTreeWidget>
#include <QUrl>
#include <QVBoxLayout>

namespace Halcyra {

MainWindow::MainWindow(QWidget *parent)
    : QMainWindow(parent)
    , mSymbols(new QTreeWidget(this))
    , mViews(new OrdaneView::ViewsContainer(this))
{
    setObjectName(QStringLiteral("MainWindow"));
    setWindowTitle(QStringLiteral("Halcyra %1").arg(QCoreApplication::applicationVersion()));

    auto *side = new QWidget(this);
    auto *heading = new QLabel(tr("Stored symbols"), side);
    heading->setObjectName(QStringLiteral("MainWindowHeading"));
    mSymbols->setObjectName(QStringLiteral("MainWindowSymbols"));
    mSymbols->setRootIsDecorated(false);
    mSymbols->setAlternatingRowColors(true);
    mSymbols->setHeaderLabels({tr("Symbol"), tr("Bars"), tr("Last day"), tr("Last close")});
    mSymbols->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
    mSymbols->header()->setStretchLastSection(false);
    mSymbols->setSortingEnabled(true);
    mSymbols->setContextMenuPolicy(Qt::CustomContextMenu);
    auto *hint = new QLabel(tr("Double-click a symbol to chart it."), side);
    hint->setObjectName(QStringLiteral("MainWindowHint"));
    hint->setWordWrap(true);
    auto *sideLayout = new QVBoxLayout(side);
    sideLayout->setContentsMargins(6, 4, 0, 6);
    sideLayout->addWidget(heading);
    sideLayout->addWidget(mSymbols, 1);
    sideLayout->addWidget(hint);

    auto *centre = new QSplitter(Qt::Horizontal, this);
    centre->setObjectName(QStringLiteral("MainWindowSplitter"));
    centre->addWidget(side);
    centre->addWidget(mViews);
    centre->setStretchFactor(1, 1);
    centre->setSizes({310, 970});
    setCentralWidget(centre);

    QMenu *indicators = menuBar()->addMenu(tr("&Indicators"));
    indicators->addAction(tr("Add in a &Pane..."), this, [this] { addIndicator(false); });
    indicators->addAction(tr("Add over the &Chart..."), this, [this] { addIndicator(true); });

    QMenu *tools = menuBar()->addMenu(tr("&Tools"));
    tools->addAction(tr("Chart &Colours..."), mViews,
                     &OrdaneView::ViewsContainer::showViewSettings);
    tools->addAction(tr("&Reminders..."), this, &MainWindow::slotReminders);
    tools->addAction(tr("Check for &Updates..."), this, &MainWindow::slotCheckUpdates);
    tools->addAction(tr("Go to data folder"), this, &MainWindow::slotGotoDataFolder);
    tools->addSeparator();
    tools->addAction(tr("&Quit"), this, &QWidget::close, QKeySequence::Quit);
    QMenu *help = menuBar()->addMenu(tr("&Help"));
    help->addAction(tr("&About"), this, &MainWindow::slotAbout);

    statusBar()->showMessage(QDir::toNativeSeparators(OrdaneData::Home::path()));

    connect(mSymbols, &QTreeWidget::itemActivated, this,
            [this](QTreeWidgetItem *item) { mViews->slotFetchChartData(item->text(0)); });
    connect(mSymbols, &QWidget::customContextMenuRequested, this, [this](const QPoint &pos) {
        QTreeWidgetItem *item = mSymbols->itemAt(pos);
        if (!item)
            return;
        QMenu menu;
        const QString symbol = item->text(0);
        menu.addAction(tr("&Chart"), this, [this, symbol] { mViews->slotFetchChartData(symbol); });
        menu.addAction(tr("&Edit Quotes..."), this, [this, symbol] { editSymbol(symbol); });
        menu.exec(mSymbols->viewport()->mapToGlobal(pos));
    });
    if (auto *app = QMWidgets::App::instance())
        connect(app->reminders(), &QMWidgets::Reminders::remind, this, &MainWindow::showReminder);

    slotFillStoredSymbols();
    if (mSymbols->topLevelItemCount() > 0) {
        // The first symbol of the default list when it is stored, else the first stored.
        const auto found = mSymbols->findItems(QStringLiteral("ADS.DE"), Qt::MatchExactly);
        QTreeWidgetItem *first = found.isEmpty() ? mSymbols->topLevelItem(0) : found.first();
        mSymbols->setCurrentItem(first);
        mViews->slotFetchChartData(first->text(0));
    }
    resize(1280, 760);
}

void MainWindow::slotFillStoredSymbols()
{
    mSymbols->clear();
    const QDir storage(OrdaneData::Home::storagePath());
    const QStringList files = storage.entryList({QStringLiteral("*.csv")}, QDir::Files, QDir::Name);
    for (const QString &file : files) {
        OrdaneData::Reader reader;
        reader.loadFile(storage.filePath(file));
        auto *item = new QTreeWidgetItem(mSymbols);
        item->setText(0, file.chopped(4));
        item->setData(1, Qt::DisplayRole, reader.count());
        if (!reader.isEmpty()) {
            item->setToolTip(0, tr("%1 bars from %2 to %3")
                                    .arg(reader.count())
                                    .arg(reader.bar(0).date().toString(Qt::ISODate),
                                         reader.bars().constLast().date().toString(Qt::ISODate)));
            item->setText(2, reader.bars().constLast().date().toString(Qt::ISODate));
            item->setText(3, QString::number(double(reader.bars().constLast().close()), 'f', 2));
        }
        for (int c = 1; c < 4; ++c)
            item->setTextAlignment(c, Qt::AlignRight | Qt::AlignVCenter);
    }
    mSymbols->sortByColumn(0, Qt::AscendingOrder);
    // Wide enough for every column in any language, so the list never scrolls sideways.
    for (int c = 0; c < mSymbols->columnCount(); ++c)
        mSymbols->resizeColumnToContents(c);
    mSymbols->setMinimumWidth(mSymbols->header()->length() + 2 * mSymbols->frameWidth() +
                              mSymbols->verticalScrollBar()->sizeHint().width());
}

void MainWindow::editSymbol(const QString &symbol)
{
    auto *dialog = new OrdaneData::EditCsvDialog(symbol, this);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    connect(dialog, &OrdaneData::EditCsvDialog::saved, this, &MainWindow::slotFillStoredSymbols);
    connect(dialog, &OrdaneData::EditCsvDialog::saved, this, [this](const QString &saved) {
        if (!mViews->reader().isNull() && mViews->reader()->symbol() == saved)
            mViews->slotFetchChartData();
    });
    dialog->open();
}

void MainWindow::addIndicator(bool overChart)
{
    // The listed indicators first, in list order, then the ones made for templates.
    QStringList ids = OrdaneView::listedIndicators();
    for (const OrdaneView::IndicatorEntry &entry : OrdaneView::catalogue())
        if (!ids.contains(QLatin1String(entry.id)))
            ids << QLatin1String(entry.id);
    QStringList items;
    for (const QString &id : qAsConst(ids)) {
        const QString title = OrdaneView::indicatorTitle(id);
        items << (title == id ? id : QStringLiteral("%1 (%2)").arg(title, id));
    }
    bool ok = false;
    const QString chosen =
        QInputDialog::getItem(this, overChart ? tr("Add over the Chart") : tr("Add in a Pane"),
                              tr("Indicator:"), items, 0, false, &ok);
    const int index = items.indexOf(chosen);
    if (!ok || index < 0)
        return;
    if (overChart)
        mViews->slotTriggerChartIndicators({ids.at(index)});
    else
        mViews->slotTriggerNewIndicatorView({ids.at(index)});
}

void MainWindow::slotGotoDataFolder()
{
    QDesktopServices::openUrl(QUrl::fromLocalFile(OrdaneData::Home::path()));
}

void MainWindow::slotAbout()
{
    QMessageBox::about(
        this, tr("About Halcyra"),
        tr("<h3>Halcyra %1</h3><p>Technical analysis of end-of-day stock quotes.</p>"
           "<p>Home folder: %2</p><p>Released under the MIT License.</p>")
            .arg(QCoreApplication::applicationVersion(),
                 QDir::toNativeSeparators(OrdaneData::Home::path()).toHtmlEscaped()));
}

void MainWindow::slotReminders()
{
    auto *app = QMWidgets::App::instance();
    if (!app)
        return;
    auto *dialog = new QMWidgets::RemindersDialog(app->reminders(), this);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->show();
}

void MainWindow::slotCheckUpdates()
{
    auto *app = QMWidgets::App::instance();
    if (!app)
        return;
    auto *page = new QMWidgets::UpdaterPage(app->updater(), this);
    page->setAttribute(Qt::WA_DeleteOnClose);
    page->show();
    app->updater()->search();
}

void MainWindow::showReminder(const QString &text)
{
    QMessageBox::information(this, tr("Reminder"), text);
}

} // namespace Halcyra
