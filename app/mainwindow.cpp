#include "mainwindow.h"

#include "data/home.h"
#include "data/reader.h"
#include "data/ui/editcsvdialog.h"
#include "widgets/app.h"
#include "widgets/reminders.h"
#include "widgets/remindersdialog.h"
#include "widgets/updater.h"
#include "widgets/updaterpage.h"

#include <QDesktopServices>
#include <QDir>
#include <QHeaderView>
#include <QLabel>
#include <QMenuBar>
#include <QMessageBox>
#include <QStatusBar>
#include <QTreeWidget>
#include <QUrl>
#include <QVBoxLayout>

namespace Halcyra {

MainWindow::MainWindow(QWidget *parent)
    : QMainWindow(parent)
    , mSymbols(new QTreeWidget(this))
{
    setObjectName(QStringLiteral("MainWindow"));
    setWindowTitle(QStringLiteral("Halcyra %1").arg(QCoreApplication::applicationVersion()));

    auto *centre = new QWidget(this);
    auto *heading = new QLabel(tr("Stored symbols"), centre);
    heading->setObjectName(QStringLiteral("MainWindowHeading"));
    mSymbols->setObjectName(QStringLiteral("MainWindowSymbols"));
    mSymbols->setRootIsDecorated(false);
    mSymbols->setAlternatingRowColors(true);
    mSymbols->setHeaderLabels(
        {tr("Symbol"), tr("Bars"), tr("First day"), tr("Last day"), tr("Last close")});
    mSymbols->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
    mSymbols->header()->setStretchLastSection(false);
    mSymbols->setSortingEnabled(true);
    auto *hint = new QLabel(tr("Double-click a symbol to edit its stored quotes."), centre);
    hint->setObjectName(QStringLiteral("MainWindowHint"));

    auto *layout = new QVBoxLayout(centre);
    layout->addWidget(heading);
    layout->addWidget(mSymbols, 1);
    layout->addWidget(hint);
    setCentralWidget(centre);

    QMenu *tools = menuBar()->addMenu(tr("&Tools"));
    tools->addAction(tr("&Reminders..."), this, &MainWindow::slotReminders);
    tools->addAction(tr("Check for &Updates..."), this, &MainWindow::slotCheckUpdates);
    tools->addAction(tr("Go to data folder"), this, &MainWindow::slotGotoDataFolder);
    tools->addSeparator();
    tools->addAction(tr("&Quit"), this, &QWidget::close, QKeySequence::Quit);
    QMenu *help = menuBar()->addMenu(tr("&Help"));
    help->addAction(tr("&About"), this, &MainWindow::slotAbout);

    statusBar()->showMessage(QDir::toNativeSeparators(OrdaneData::Home::path()));

    connect(mSymbols, &QTreeWidget::itemDoubleClicked, this,
            [this](QTreeWidgetItem *item) { editSymbol(item); });
    if (auto *app = QMWidgets::App::instance())
        connect(app->reminders(), &QMWidgets::Reminders::remind, this, &MainWindow::showReminder);

    slotFillStoredSymbols();
    resize(900, 600);
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
            item->setText(2, reader.bar(0).date().toString(Qt::ISODate));
            item->setText(3, reader.bars().constLast().date().toString(Qt::ISODate));
            item->setText(4, QString::number(double(reader.bars().constLast().close()), 'f', 2));
        }
        for (int c = 1; c < 5; ++c)
            item->setTextAlignment(c, Qt::AlignRight | Qt::AlignVCenter);
    }
    mSymbols->sortByColumn(0, Qt::AscendingOrder);
}

void MainWindow::editSymbol(QTreeWidgetItem *item)
{
    auto *dialog = new OrdaneData::EditCsvDialog(item->text(0), this);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    connect(dialog, &OrdaneData::EditCsvDialog::saved, this, &MainWindow::slotFillStoredSymbols);
    dialog->open();
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
