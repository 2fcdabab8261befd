#pragma once

#include "data/readerh.h"

#include <QStringList>
#include <QWidget>

class QLabel;
class QListWidgetItem;
class QPushButton;

namespace OrdaneData {
class StorageSource;
}

namespace OrdaneBrowser {

class ObserverList;

// An observer list with its commands: "Export Charts" and "Import Charts" as buttons and in
// the list's context menu, with "Remove" there as well. Symbols are added by dropping
// browser rows on the list (see ObserverList).
//
// The symbols persist between runs in the setting "Observer/Bears" (a string list), written
// whenever the list changes. Items carry the bear's head; BullWindow is the same for the
// bullish picks.
//
// Activating an item (double-click or Enter) loads the symbol's stored daily series into a
// new Reader and emits observerItemSeletected() with its handle. A symbol without stored
// quotes emits nothing and says so in statusText(), where the results of exports and imports
// are shown as well.
class ObserverWindow : public QWidget
{
    Q_OBJECT

public:
    explicit ObserverWindow(QWidget *parent = nullptr);

    ObserverList *list() const { return mList; }
    // The last result or failure shown under the list; empty when none is shown.
    QString statusText() const;

    // Copies the stored files of the selected items into `folder` (made when missing) as
    // SYMBOL.csv, asking before replacing a file that is there (Yes, No, and with several
    // files Yes to All and No to All); a file is written whole or not at all, and one that is
    // the stored file itself counts as written. Symbols without a stored file and files that
    // could not be written are listed in one warning box at the end. Returns the number of
    // files written; with nothing selected, 0, and statusText() says so.
    int exportCharts(const QString &folder);
    // Adds the symbols of `files` (the names without their last suffix: "ADS.DE" for
    // "ADS.DE.csv") to the list. A quote file (its
    // first line starts with "Date") whose symbol has no stored file is first copied into the
    // storage folder; one whose symbol is stored already leaves the stored file as it is.
    // Files that are no quote files, or cannot be read or copied, add nothing and are listed
    // in one warning box at the end. Returns the number of symbols the list gained.
    int importCharts(const QStringList &files);

public slots:
    // Asks for a folder, then exportCharts(); nothing when none is chosen.
    void slotExportCharts();
    // Asks for "*.csv" files, then importCharts(); nothing when none are chosen.
    void slotImportCharts();
    // Loads the item's symbol and emits observerItemSeletected(); a null item is ignored.
    void slotItemActivated(QListWidgetItem *item);

signals:
    // Spelled so, like the storage browser's chartItemSeletected, in the interface other
    // parts connect to; the slip is kept on purpose.
    void observerItemSeletected(OrdaneData::ReaderH reader);

protected:
    enum class Kind { Bears, Bulls };
    ObserverWindow(Kind kind, QWidget *parent);

private:
    void showContextMenu(const QPoint &pos);
    void save() const;
    void showStatus(const QString &text);
    void updateButtons();

    Kind mKind;
    OrdaneData::StorageSource *mSource;
    ObserverList *mList;
    QLabel *mStatus;
    QPushButton *mExport;
    QPushButton *mImport;
};

} // namespace OrdaneBrowser
