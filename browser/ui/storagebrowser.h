#pragma once

#include "browser/simulation.h"
#include "data/import/importer.h"
#include "data/readerh.h"

#include <QPointer>
#include <QWidget>

class QGridLayout;
class QLabel;
class QLineEdit;
class QMenu;
class QProgressBar;
class QPushButton;
class QToolButton;
class QTreeWidgetItem;
class QVBoxLayout;

namespace OrdaneData {
class DataManager;
class DataUpdater;
class MetaData;
} // namespace OrdaneData

namespace OrdaneBrowser {

class StockList;
class FolderSource;
class Scanner;
class BrowserUpdater;
class Benchmarking;
class Calibrator;
class Simulator;

// The docked panel in which the user keeps the symbols to work with: the "Symbol/Name" field
// with "&Add" (fetch the typed symbol) and "&Find", the list (a check box, the symbol, its
// name and stock exchange per row), the buttons "Save the Symbols", "Load the Symbols",
// "List Operations" and "Files Import", the "%1 Items" count, a progress bar with a cancel
// button for runs over many symbols or files, and the notice.
//
// Selecting a row loads that symbol's stored series into a new Reader and emits
// chartItemSeletected() with its handle; a symbol whose file cannot be read leaves its reason
// in statusText() and emits nothing.
//
// Fetching a symbol brings it up to date (or downloads it whole) through the data manager and
// ends in slotDone(): a symbol with quotes gets its row, one without opens the suggestions.
// A list of symbols is fetched one symbol at a time, the disabled "&Add" button telling the
// wait loop that a fetch is under way; the cancel button is looked at after each symbol.
//
// The list is kept in "lastknown.sym" of the home folder at quit and read back, without
// fetching, at the next start; a first start fetches the default symbols.
//
// "Simulator" (checkable) trades the selected symbol day by day in the simulator panel under
// the list, and "Calibrate" opens the calibrator (storagebrowsersimulation.cpp; the trading
// rules are in docs/simulator.md and docs/calibrator.md).
class StorageBrowser : public QWidget
{
    Q_OBJECT

public:
    // Lists the storage folder of the home folder as it is now.
    explicit StorageBrowser(QWidget *parent = nullptr);
    // Lists `storageFolder` instead; empty means the home's storage folder.
    explicit StorageBrowser(const QString &storageFolder, QWidget *parent = nullptr);
    ~StorageBrowser() override;

    // Downloads go through `manager`, names and exchanges come from `meta` (neither owned);
    // by default a manager of the browser's own and no metadata.
    void setDataManager(OrdaneData::DataManager *manager);
    void setMetaData(OrdaneData::MetaData *meta);

    StockList *stockList() const { return mList; }
    QString storageFolder() const { return mFolder; }
    // Why the last selected symbol could not be loaded; empty after a successful load.
    QString statusText() const;
    // Whether a fetch is under way: the "&Add" button is disabled while it is.
    bool isFetching() const;
    // Whether a symbol without quotes opens the suggestions (on by default). Off, it is
    // only remembered for the "not available" list a list load shows at its end.
    void setSuggestions(bool on) { mSuggestions = on; }
    bool suggestions() const { return mSuggestions; }
    // The symbols a list load could not find, until the next load starts.
    QStringList notFound() const { return mNotFound; }

    // Adds a row for `symbol` unless one is listed already, with its name and exchange from
    // the metadata store; updates the count and emits itemChanged() when a row was added.
    // Returns the symbol's row.
    QTreeWidgetItem *addSymbol(const QString &symbol);
    // The symbols of the checked rows, in list order.
    QStringList checkedSymbols() const;

    // The list of the last run from "lastknown.sym" (slotSetSymbols, no fetching), or the
    // default symbols fetched when there is no such file.
    void loadLastKnown();
    // Makes the row stored in "selecteditem" current, or the first row when that index is
    // not in the list; the list's change of row then loads and emits the series. Does
    // nothing on an empty list.
    void restoreSelection();
    // Stores the index of the current row in "selecteditem"; nothing when no row is current.
    void saveSelection() const;

    // Imports the files (MASTER files for MetaStock) into the storage folder, with the
    // progress bar and its cancel, a row for every symbol written, and the report in
    // message() (and a box when files were skipped).
    OrdaneData::ImportReport importFiles(OrdaneData::ImportFormat format, const QStringList &paths,
                                         bool merge);

    // The notice shown beneath the list, word for word.
    static QString notice();

    // The simulator and the calibrator.
    Simulator *simulator() const { return mSimulator; }
    const Simulation &simulation() const { return mSimulation; }
    bool isSimulating() const;
    // The calibrator dialog once made (slotCreateCalibrator()), else nullptr.
    Calibrator *calibrator() const { return mCalibrator; }

public slots:
    // Fetches the symbol in the line edit.
    void slotFetchChartData();
    // Makes one row per symbol, in order, without fetching; then "%1 Items".
    void slotSetSymbols(const QStringList &symbols);
    // A row for a symbol whose quotes are stored, without fetching.
    void slotAddSymbol(const QString &symbol);
    // Fetches the symbols one after another (see above), with the progress in whole per cent.
    void slotLoadSymbols(const QStringList &symbols);
    // The same for the members of an index chosen in the "Expand Index" dialog.
    void slotLoadIndexSymbols(const QStringList &symbols);
    // Asks for a ".sym" file and loads it (dialog "Load Browser Symbols").
    void slotLoadSymbols();
    // Asks for a file name and writes the list there (dialog "Save Browser Symbols").
    void slotSaveSymbols();
    // Lists the storage folder anew: one row per file matching "*.*" (subfolders, names
    // without a dot and the store's own files, whose names start with "_", are left out),
    // named by the file name up to its last ".".
    void slotFillChartItems();
    // The end of a fetch (see above); the symbol is upper-cased.
    void slotDone(const QString &symbol);
    // A symbol the scanner found: its row, as a fetch would add it.
    void slotFound(const QString &symbol);
    // Loads the row's symbol and emits chartItemSeletected(); a null item is ignored.
    void slotChartItemActivated(QTreeWidgetItem *item, int column);
    // A check box changed: itemChecked() with its new state.
    void slotChartItemChanged();
    // The progress bar's value, 0 to 100; the runs of other tools report here as well.
    void slotSetQuality(int percent);
    // Selects the first row whose symbol or name holds the typed text.
    void slotFind();
    // The selected symbol was brought up to date: the chart shows it anew.
    void slotUpdateOnDemandDone(const QString &symbol);
    // Copies the stored files of the checked rows into a folder the user chooses.
    void slotExportChecked();
    // Deletes the stored files of the checked rows, once the user confirms the named list.
    void slotEraseChecked();
    // Writes the list to "lastknown.sym" and the selected row to "selecteditem"; an empty
    // list writes nothing, so the previous file survives.
    void slotSaveLastKnownSymbols();
    // Shows the stored series of `symbol` over the selected chart, on a scale of its own.
    void slotPair(const QString &symbol);
    // The same for the first checked row.
    void slotPaarCheckedWithSelected();
    // List operations.
    void slotCheckAll();
    void slotUncheckAll();
    void slotInvertChecked();
    void slotClear();
    void slotHideChecked();
    // Reads every stored file of the list and tells what is wrong with any of them.
    void slotCheckStore();
    // Shows the filter dialog, made on first use and kept.
    void slotCreateFilter();
    // Imports of quote files of other programs (see OrdaneData::Importer).
    void slotImportMetaTraderFilesOverwrite();
    void slotImportMetaTraderFilesMerge();
    void slotImportHalcyraFilesOverwrite();
    void slotImportHalcyraFilesMerge();
    void slotImportRBKFilesMerge();
    void slotImportMetaStockOverwrite();
    // The scanner, the bulk updater in either mode and the benchmarking panel, each made at
    // first use and kept (storagebrowserpanels.cpp).
    void slotCreateScanner();
    void slotUpdaterAll();
    void slotUpdaterBrowserItems();
    void slotBenchmarking();

    // The simulator. On: the bar-history limit becomes 70, the panel is reset and shown, the
    // selected symbol's chart is reloaded (showing its oldest 70 bars), the controls that fetch
    // or change the list are disabled and simulatorOff(false) follows. Off: once the user
    // confirms, the limit is lifted (-1), the panel hides, the chart is reloaded in full, the
    // controls come back and simulatorOff(true) follows; cancelled, the simulation goes on.
    void slotSimulation();
    // One more day: the limit grows by one and the chart is reloaded, its newest bar being the
    // simulated day; then the stop-loss and take-profit levels are checked. At the end of the
    // stored days an open position is closed and the user told.
    void slotNextDay();
    void slotGoShort();
    void slotGoLong();
    void slotClosePosition();
    // Spelled so in the interface; keep. 0 turns the level off.
    void slotStopLos(int percent);
    void slotTakeProfit(int percent);
    // Opens the calibrator, made on first use and kept, with the checked rows added to it.
    void slotCreateCalibrator();

signals:
    // A fetch ended; after slotDone().
    void done(const QString &symbol);
    // Spelled so in the interface other parts connect to; keep.
    void chartItemSeletected(OrdaneData::ReaderH reader);
    // After the list was filled or a row added or removed.
    void itemChanged();
    // The members of an index chosen in the "Expand Index" dialog.
    void addIndexSymbols(const QStringList &symbols);
    void itemChecked(bool checked);
    // A second series to show over the chart (slotPair).
    void pairSelected(OrdaneData::ReaderH reader);
    // A run over many symbols or files, or its end; also a short word for the status bar.
    void message(const QString &text);
    // The simulator went on (false) or off (true): current prices must not reach the chart
    // while simulating.
    void simulatorOff(bool off);
    // "Send to &Calibrator" in the list's context menu; reaches the calibrator's slotAddSymbol.
    void addSymbolToCalibrator(const QString &symbol);

private:
    void buildControls();
    // A row with the symbol's name and exchange, without a look for one listed already.
    QTreeWidgetItem *addRow(const QString &symbol);
    void fetch(const QString &symbol);
    QString lastFolder() const;
    void rememberFolder(const QString &path);
    void editQuotes(QTreeWidgetItem *item);
    void showInfo(QTreeWidgetItem *item);
    void expandIndex(QTreeWidgetItem *item);
    void updateSelected(QTreeWidgetItem *item);
    void showContextMenu(const QPoint &pos);
    void setChecked(Qt::CheckState (*state)(Qt::CheckState));
    void fitSymbolColumn();
    void updateCount();
    void showStatus(const QString &text);
    bool hasQuotes(const QString &symbol) const;
    OrdaneData::ReaderH load(const QString &symbol);
    void suggest(const QString &typed);
    void showNotAvailable(const QStringList &symbols);
    void import(OrdaneData::ImportFormat format, bool merge, const QString &title,
                const QString &filter);
    void startRun(const QString &text);
    void endRun();
    // The simulator and the calibrator (storagebrowsersimulation.cpp).
    void buildSimulationControls(QGridLayout *tools, QVBoxLayout *layout);
    void startSimulation();
    bool stopSimulation();
    bool reloadChart();
    void setBrowsingEnabled(bool on);
    Calibrator *ensureCalibrator();
    void sendToCalibrator(const QString &symbol);

    QString mFolder;
    FolderSource *mSource;
    OrdaneData::DataUpdater *mUpdater = nullptr;
    OrdaneData::MetaData *mMeta = nullptr;
    QLineEdit *mSymbol;
    QPushButton *mAdd;
    QPushButton *mFind;
    StockList *mList;
    QLabel *mCount;
    QLabel *mStatus;
    QProgressBar *mProgress;
    QToolButton *mCancel;
    bool mCancelRequested = false;
    bool mSuggestions = true;
    bool mLoading = false;
    QStringList mNotFound;
    QString mUpdating; // the symbol "&Update" is bringing up to date
    QPointer<QWidget> mFilterDialog;
    Scanner *mScanner = nullptr;
    BrowserUpdater *mBrowserUpdater = nullptr;
    Benchmarking *mBenchmarking = nullptr;
    // The simulator and the calibrator.
    QPushButton *mSimulate = nullptr;
    bool mSimulating = false;
    Simulator *mSimulator = nullptr;
    Simulation mSimulation;
    Calibrator *mCalibrator = nullptr; // a child, made on first use
};

} // namespace OrdaneBrowser
