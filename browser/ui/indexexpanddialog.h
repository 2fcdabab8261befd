#pragma once

#include "browser/constituents.h"

#include <QDialog>
#include <QStringList>

class QLabel;
class QPushButton;
class QTreeWidget;

namespace OrdaneBrowser {

// Lets the user pick members of an index to add to the browser. The members are listed with
// their symbols and names, every row checked at first; "Check All" and "Uncheck All" set
// them all. "&Add Selected" (enabled while any row is checked) accepts, emitting
// addIndexSymbols() with the checked symbols in list order; "&Cancel" rejects and emits
// nothing. An index without members says so and offers only "&Cancel".
class IndexExpandDialog : public QDialog
{
    Q_OBJECT

public:
    enum Column { SymbolColumn = 0, NameColumn = 1 };

    // The members of `index` as the constituents list of the storage folder names them.
    explicit IndexExpandDialog(const QString &index, QWidget *parent = nullptr);
    IndexExpandDialog(const QString &index, const QVector<Constituent> &members,
                      QWidget *parent = nullptr);

    QString index() const { return mIndex; }
    QTreeWidget *memberList() const { return mMembers; }
    // The symbols of the checked rows, in list order.
    QStringList checkedSymbols() const;

    // Runs the dialog for `index` from the storage folder's list and returns the symbols it
    // added: the checked ones when accepted, none when cancelled.
    static QStringList pickMembers(const QString &index, QWidget *parent = nullptr);

public slots:
    void checkAll();
    void uncheckAll();
    void accept() override;

signals:
    void addIndexSymbols(const QStringList &symbols);

private:
    void setAllChecked(Qt::CheckState state);
    void updateAddButton();

    QString mIndex;
    QTreeWidget *mMembers;
    QLabel *mInfo;
    QLabel *mCount;
    QPushButton *mAdd;
};

} // namespace OrdaneBrowser
