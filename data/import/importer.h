#pragma once

#include <QObject>
#include <QStringList>

#include <atomic>

// Imports the quote files of other programs into a storage folder. Every target is the
// source's own name followed by ".IMP" (ABC becomes the symbol ABC.IMP, stored as
// ABC.IMP.csv), so imported series never mix with downloaded ones.

namespace OrdaneData {

// The formats read (see textformats.h and metastock.h):
//   MetaTrader  a history export; the symbol is the file name up to its last "."
//   Halcyra     a stored file of this program; named the same way
//   Rbk         a ticker file; the symbols are its tickers; always merged
//   MetaStock   a MASTER file; every record it lists; always replaces its targets
enum class ImportFormat { MetaTrader, Halcyra, Rbk, MetaStock };

struct ImportReport
{
    QStringList symbols; // in the order written
    int rows = 0;        // rows read from the sources into the targets written
    // "path: reason", one per source (file, or data file of a MASTER record) that gave no
    // target; the reason never holds ": ".
    QStringList skipped;
    bool cancelled = false; // cancel() stopped the run before its end

    // "Imported 12 symbols (34,567 rows); skipped 2 files: a.csv (cannot be read), b.csv (no
    // quotes)", then "; cancelled" when it was.
    QString describe() const;
};

// Converts sources one after another and writes each target through a save file, so that a
// failure or a cancel never leaves a half-written file: every target is either as it was
// or complete.
//
// With `merge`, a target's stored rows are kept and the imported rows merged in (one row
// per date, newest first, the imported row winning a date both have; see mergeTable());
// otherwise the target is replaced. A source that cannot be read, holds nothing usable or
// whose target cannot be written is skipped and named in the report; the run goes on.
class Importer : public QObject
{
    Q_OBJECT

public:
    explicit Importer(const QString &storageFolder, QObject *parent = nullptr);

    QString storageFolder() const { return mStorage; }

    // Imports every path (for MetaStock, every record of every MASTER file) and returns what
    // happened. Blocks until done; emits progress() and imported() from the calling thread.
    // The storage folder is made when missing.
    ImportReport run(ImportFormat format, const QStringList &paths, bool merge);

    // Stops the run underway before its next target; callable from any thread, or from a slot
    // connected to progress() or imported(). A run clears the request as it starts.
    void cancel();

signals:
    // The share of the run's sources (MetaStock: records) done, 0 to 100, whenever the whole
    // percentage changes.
    void progress(int percent);
    // After a target was written; `symbol` carries its ".IMP".
    void imported(const QString &symbol);

private:
    struct Source;
    QVector<Source> sourcesOf(ImportFormat format, const QStringList &paths) const;
    void importSource(const Source &source, ImportFormat format, bool merge, ImportReport &report);
    void write(const QString &symbol, const QByteArray &table, int rows, bool merge,
               const QString &source, ImportReport &report);

    QString mStorage;
    std::atomic<bool> mCancel{false};
};

} // namespace OrdaneData
