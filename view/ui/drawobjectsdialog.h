#pragma once

#include <QDialog>
#include <QList>
#include <QPointer>

class QListWidget;
class QListWidgetItem;
class QPushButton;

namespace OrdaneView {

class DrawObject;
class DrawObjectsLayer;

// The figures of a chart, listed by display name bottom first with a swatch of their
// colour. Pressing an entry selects its figure on the chart; a double-click or Properties...
// opens DrawObjectProperties for it; Remove takes it off the chart. Every change is stored
// for the chart's symbol at once.
class DrawObjectsDialog : public QDialog
{
    Q_OBJECT

public:
    explicit DrawObjectsDialog(DrawObjectsLayer *layer, QWidget *parent = nullptr);

    QListWidget *list() const { return mList; }
    // The figure of a row, or nullptr.
    DrawObject *objectAt(int row) const;

public slots:
    // Selects the entry's figure on the chart.
    void slotItemPressed(QListWidgetItem *item);
    // Removes the figure of the selected entry, if any.
    void slotRemove();
    // Opens the properties of the selected entry's figure; OK applies and stores them.
    void slotProperties();

private:
    void fill();
    void updateButtons();
    int selectedRow() const;

    DrawObjectsLayer *mLayer;
    QListWidget *mList;
    QPushButton *mProperties;
    QPushButton *mRemove;
    QList<QPointer<DrawObject>> mRows;
};

} // namespace OrdaneView
