#include "metastockimportdialog.h"

#include <QHBoxLayout>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace OrdaneBrowser {

MetaStockImportDialog::MetaStockImportDialog(const QString &masterFile, QWidget *parent)
    : QDialog(parent)
    , mList(new QTreeWidget(this))
{
    setObjectName(QStringLiteral("MetaStockImportDialog"));
    setWindowTitle(tr("MetaStock MASTER-File import"));
    mMaster.load(masterFile);

    mList->setObjectName(QStringLiteral("MetaStockImportList"));
    mList->setColumnCount(2);
    mList->setHeaderLabels({tr("Name"), tr("Symbol")});
    mList->setColumnWidth(0, 105);
    mList->setRootIsDecorated(false);
    mList->setSelectionMode(QAbstractItemView::ExtendedSelection);
    mList->setSelectionBehavior(QAbstractItemView::SelectRows);
    for (const OrdaneData::MetaStockRecord &record : mMaster.records())
        new QTreeWidgetItem(mList, {record.name, record.symbol});
    mList->setSortingEnabled(true);
    mList->sortByColumn(0, Qt::AscendingOrder);

    // A row of its own rather than a button box, whose order follows the desktop's: here it
    // is Import All, then Cancel, at the right on every platform.
    auto *importAll = new QPushButton(tr("Import All"), this);
    auto *cancel = new QPushButton(tr("Cancel"), this);
    importAll->setObjectName(QStringLiteral("MetaStockImportAll"));
    cancel->setObjectName(QStringLiteral("MetaStockImportCancel"));
    importAll->setDefault(true);
    connect(importAll, &QPushButton::clicked, this, &QDialog::accept);
    connect(cancel, &QPushButton::clicked, this, &QDialog::reject);

    auto *buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(importAll);
    buttons->addWidget(cancel);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(mList);
    layout->addLayout(buttons);
}

} // namespace OrdaneBrowser
