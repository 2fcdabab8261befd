#pragma once

#include <QListWidget>
#include <QStringList>

class QMimeData;

namespace OrdaneBrowser {

// A short list of symbols the user watches, kept sorted, each symbol once (compared exactly,
// as the stored files are named). Every item carries the list's picture. Several items may be
// selected; Delete (or Backspace) removes the selected ones.
//
// Drops add symbols: rows dragged from the storage browser's list (the Symbol column, 2, of
// the item views' "application/x-qabstractitemmodeldatalist"), items of another observer
// list, and plain text (symbols separated by blanks, commas or semicolons). A drop always
// copies, so the list it came from keeps its rows.
class ObserverList : public QListWidget
{
    Q_OBJECT

public:
    explicit ObserverList(QWidget *parent = nullptr);

    // The resource the items carry as their picture; ":/pix/bearicon.bmp" unless set.
    // Setting it re-dresses the items already listed.
    QString picture() const { return mPicture; }
    void setPicture(const QString &resource);

    // The symbols in list order, all or the selected ones.
    QStringList symbols() const;
    QStringList selectedSymbols() const;
    QListWidgetItem *findSymbol(const QString &symbol) const;

    // Adds an item unless the symbol is listed or blank (after trimming). Returns whether it
    // was added; symbolsChanged() follows when any was.
    bool addSymbol(const QString &symbol);
    // The same for several, with one symbolsChanged() at most. Returns how many were added.
    int addSymbols(const QStringList &symbols);
    // Replaces the items, silently: for restoring a list, not for the user's changes.
    void setSymbols(const QStringList &symbols);
    // Removes the symbol's item; false, and no signal, when it is not listed.
    bool removeSymbol(const QString &symbol);
    // Removes the selected items; symbolsChanged() follows when there were any.
    void removeSelected();

    // The symbols a drop of `data` would add, in the order they come, blanks left out;
    // none when it holds neither form.
    static QStringList symbolsIn(const QMimeData *data);

signals:
    // After items were added or removed by anything but setSymbols().
    void symbolsChanged();

protected:
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dragMoveEvent(QDragMoveEvent *event) override;
    void dropEvent(QDropEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    // Items are only ever copied out, so that dropping one elsewhere never removes it here.
    Qt::DropActions supportedDropActions() const override { return Qt::CopyAction; }

private:
    bool insert(const QString &symbol);
    QIcon itemIcon() const;

    QString mPicture;
};

} // namespace OrdaneBrowser
