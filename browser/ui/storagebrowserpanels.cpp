// The storage browser's windows of their own: the scanner, the bulk updater and the
// benchmarking panel. Each is made at first use and kept as a child of the browser, so that
// hiding it keeps its settings, its results and a run under way.

#include "benchmarking.h"
#include "browserupdater.h"
#include "data/net/dataupdater.h"
#include "scanner.h"
#include "storagebrowser.h"

namespace OrdaneBrowser {

namespace {

void bringUp(QWidget *window)
{
    window->show();
    window->raise();
    window->activateWindow();
}

} // namespace

void StorageBrowser::slotCreateScanner()
{
    if (!mScanner) {
        mScanner = new Scanner(mUpdater->manager(), this);
        connect(mScanner, &Scanner::found, this, &StorageBrowser::slotFound);
    }
    bringUp(mScanner);
}

void StorageBrowser::slotUpdaterAll()
{
    if (!mBrowserUpdater)
        mBrowserUpdater = new BrowserUpdater(mUpdater->manager(), this);
    // A run under way keeps its mode; the dialog shows how it goes.
    if (!mBrowserUpdater->isRunning())
        mBrowserUpdater->setMode(BrowserUpdater::AllData);
    bringUp(mBrowserUpdater);
}

void StorageBrowser::slotUpdaterBrowserItems()
{
    if (!mBrowserUpdater)
        mBrowserUpdater = new BrowserUpdater(mUpdater->manager(), this);
    if (!mBrowserUpdater->isRunning())
        mBrowserUpdater->setMode(BrowserUpdater::VisibleItems);
    bringUp(mBrowserUpdater);
}

void StorageBrowser::slotBenchmarking()
{
    if (!mBenchmarking) {
        mBenchmarking = new Benchmarking(this, Qt::Tool);
        connect(mBenchmarking, &Benchmarking::pair, this, &StorageBrowser::slotPair);
        // Beside the browser rather than over the list it picks from.
        mBenchmarking->move(mapToGlobal(QPoint(width(), 0)));
    }
    mBenchmarking->setMetaData(mMeta);
    bringUp(mBenchmarking);
}

} // namespace OrdaneBrowser
