#pragma once

#include <QWidget>

class QLabel;
class QTreeWidget;

namespace OrdaneData {
class MetaData;
} // namespace OrdaneData

namespace OrdaneBrowser {

class StorageBrowser;

// The panel that picks a symbol to compare the chart with: on a black background, the
// heading "Compare with selected:" and the storage browser's symbols in three columns,
// "Symbol", "Name" and "Stock exchange". It works for the storage browser up its parent
// chain, and does nothing without one.
//
// Each time the panel is shown it lists the browser's symbols anew, in the browser's row
// order, with name and exchange from the metadata store (from the browser's own columns for a
// symbol the store has no record of, or when there is no store). Selecting a row emits pair() with
// its symbol. A change of the browser's list or of its current row clears the selection, so that
// the next pick pairs with the chart then shown.
class Benchmarking : public QWidget
{
    Q_OBJECT

public:
    enum Column { SymbolColumn = 0, NameColumn = 1, ExchangeColumn = 2 };

    explicit Benchmarking(QWidget *parent = nullptr, Qt::WindowFlags flags = {});

    // Names and exchanges come from `meta` (not owned; it must outlive the panel) from the
    // next showing on.
    void setMetaData(OrdaneData::MetaData *meta) { mMeta = meta; }
    QTreeWidget *tree() const { return mTree; }

public slots:
    void slotUnselectAll();
    // The tree's selection changed: pair() with the selected row's symbol, if any.
    void slotItemChanged();

signals:
    void pair(const QString &symbol);

protected:
    void showEvent(QShowEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    StorageBrowser *browser() const;
    void fill(StorageBrowser *browser);

    OrdaneData::MetaData *mMeta = nullptr;
    QLabel *mHeading;
    QTreeWidget *mTree;
};

} // namespace OrdaneBrowser
