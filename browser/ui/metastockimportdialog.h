#pragma once

#include "data/import/metastock.h"

#include <QDialog>

class QTreeWidget;

namespace OrdaneBrowser {

// Lists the securities of a MetaStock MASTER file, name and symbol, sorted by name, before
// they are imported. "Import All" accepts the dialog and "Cancel" rejects it; importing is
// the caller's (every record, see OrdaneData::Importer). A MASTER file that cannot be read
// gives an empty list.
class MetaStockImportDialog : public QDialog
{
    Q_OBJECT

public:
    explicit MetaStockImportDialog(const QString &masterFile, QWidget *parent = nullptr);

    QString masterFile() const { return mMaster.path(); }
    // The records in the order of the file.
    const QVector<OrdaneData::MetaStockRecord> &records() const { return mMaster.records(); }
    QTreeWidget *list() const { return mList; }

private:
    OrdaneData::MetaStockMaster mMaster;
    QTreeWidget *mList;
};

} // namespace OrdaneBrowser
