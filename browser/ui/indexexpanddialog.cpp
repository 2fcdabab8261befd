#include "indexexpanddialog.h"

#include <QDialogButtonBox>
#include <QDir>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace OrdaneBrowser {

IndexExpandDialog::IndexExpandDialog(const QString &index, QWidget *parent)
    : IndexExpandDialog(index, readConstituents(constituentsFile(), index), parent)
{}

IndexExpandDialog::IndexExpandDialog(const QString &index, const QVector<Constituent> &members,
                                     QWidget *parent)
    : QDialog(parent)
    , mIndex(index)
    , mMembers(new QTreeWidget(this))
    , mInfo(new QLabel(this))
    , mCount(new QLabel(this))
    , mAdd(nullptr)
{
    setObjectName(QStringLiteral("IndexExpandDialog"));
    setWindowTitle(tr("Expand Index %1").arg(index));
    mMembers->setObjectName(QStringLiteral("IndexExpandDialogMembers"));
    mInfo->setObjectName(QStringLiteral("IndexExpandDialogInfo"));
    mInfo->setWordWrap(true);
    mCount->setObjectName(QStringLiteral("IndexExpandDialogCount"));

    mMembers->setColumnCount(2);
    mMembers->setHeaderLabels({tr("Symbol"), tr("Name")});
    mMembers->setRootIsDecorated(false);
    mMembers->setAlternatingRowColors(true);
    mMembers->setSelectionMode(QAbstractItemView::SingleSelection);
    for (const Constituent &member : members) {
        auto *row = new QTreeWidgetItem(mMembers, {member.symbol, member.name});
        row->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsUserCheckable);
        row->setCheckState(SymbolColumn, Qt::Checked);
    }
    mMembers->resizeColumnToContents(SymbolColumn);
    mMembers->setColumnWidth(SymbolColumn, mMembers->columnWidth(SymbolColumn) + 16);

    auto *checkAllButton = new QPushButton(tr("Check All"), this);
    auto *uncheckAllButton = new QPushButton(tr("Uncheck All"), this);
    checkAllButton->setObjectName(QStringLiteral("IndexExpandDialogCheckAll"));
    uncheckAllButton->setObjectName(QStringLiteral("IndexExpandDialogUncheckAll"));
    connect(checkAllButton, &QPushButton::clicked, this, &IndexExpandDialog::checkAll);
    connect(uncheckAllButton, &QPushButton::clicked, this, &IndexExpandDialog::uncheckAll);

    auto *buttons = new QDialogButtonBox(this);
    QPushButton *cancel = buttons->addButton(tr("&Cancel"), QDialogButtonBox::RejectRole);
    cancel->setObjectName(QStringLiteral("IndexExpandDialogCancel"));
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);

    auto *layout = new QVBoxLayout(this);
    layout->addWidget(mInfo);
    if (members.isEmpty()) {
        mInfo->setText(tr("No members of %1 are listed in %2.")
                           .arg(index, QDir::toNativeSeparators(constituentsFile())));
        mMembers->hide();
        mCount->hide();
        checkAllButton->hide();
        uncheckAllButton->hide();
        layout->addStretch(1);
        layout->addWidget(buttons);
        cancel->setDefault(true);
        resize(440, 150);
        return;
    }

    mInfo->setText(tr("Check the members of %1 to add to the browser.").arg(index));
    mAdd = buttons->addButton(tr("&Add Selected"), QDialogButtonBox::AcceptRole);
    mAdd->setObjectName(QStringLiteral("IndexExpandDialogAdd"));
    mAdd->setDefault(true);
    connect(buttons, &QDialogButtonBox::accepted, this, &IndexExpandDialog::accept);
    connect(mMembers, &QTreeWidget::itemChanged, this, &IndexExpandDialog::updateAddButton);

    auto *checks = new QHBoxLayout;
    checks->addWidget(checkAllButton);
    checks->addWidget(uncheckAllButton);
    checks->addStretch(1);
    checks->addWidget(mCount);
    layout->addWidget(mMembers, 1);
    layout->addLayout(checks);
    layout->addWidget(buttons);
    updateAddButton();
    resize(460, 520);
}

QStringList IndexExpandDialog::checkedSymbols() const
{
    QStringList symbols;
    for (int i = 0; i < mMembers->topLevelItemCount(); ++i) {
        const QTreeWidgetItem *row = mMembers->topLevelItem(i);
        if (row->checkState(SymbolColumn) == Qt::Checked)
            symbols << row->text(SymbolColumn);
    }
    return symbols;
}

QStringList IndexExpandDialog::pickMembers(const QString &index, QWidget *parent)
{
    IndexExpandDialog dialog(index, parent);
    return dialog.exec() == QDialog::Accepted ? dialog.checkedSymbols() : QStringList();
}

void IndexExpandDialog::checkAll()
{
    setAllChecked(Qt::Checked);
}

void IndexExpandDialog::uncheckAll()
{
    setAllChecked(Qt::Unchecked);
}

void IndexExpandDialog::accept()
{
    const QStringList symbols = checkedSymbols();
    if (symbols.isEmpty())
        return;
    QDialog::accept();
    emit addIndexSymbols(symbols);
}

void IndexExpandDialog::setAllChecked(Qt::CheckState state)
{
    for (int i = 0; i < mMembers->topLevelItemCount(); ++i)
        mMembers->topLevelItem(i)->setCheckState(SymbolColumn, state);
}

void IndexExpandDialog::updateAddButton()
{
    const int checked = checkedSymbols().size();
    mCount->setText(tr("%1 of %2 checked").arg(checked).arg(mMembers->topLevelItemCount()));
    if (mAdd)
        mAdd->setEnabled(checked > 0);
}

} // namespace OrdaneBrowser
