#pragma once

#include "data/quotebar.h"

#include <QByteArray>
#include <QDate>
#include <QHash>
#include <QString>
#include <QStringList>
#include <QVector>

class QIODevice;

namespace QuoteService {

// One bar of a stored series with its line exactly as the file holds it (without line end),
// so that a reply can repeat the file rather than a reformatted copy.
struct StoredBar
{
    QuoteBar bar;
    QByteArray line;
};

// The quotes and company figures the service answers from. Filled once before the server
// starts and only read afterwards, so any number of request threads may share it.
//
// Symbols compare without regard to case ("aapl" finds AAPL.csv).
class QuoteStore
{
public:
    // Every SYMBOL.csv in `folder` (stored quote files), and `folder`/metadata.csv when there is
    // one. Returns false, with *error saying why, when the folder or one of its files cannot be
    // read or metadata.csv is malformed. Lines that are not bars are skipped, as the program
    // skips them.
    bool loadFolder(const QString &folder, QString *error);
    // The embedded sample files, each continued by the sample walk from its last bar up to and
    // including `until` (weekdays), and the embedded metadata of the samples and three indices.
    bool loadSamples(const QDate &until, QString *error);

    // The bars of `symbol`, newest first (sorted by date when the file was not), or nullptr when
    // there is no series of that name.
    const QVector<StoredBar> *series(const QString &symbol) const;
    // The figure of a metadata code (one of metadataCodes()) for `symbol`; an empty string when
    // the service lacks it.
    QString metadata(const QString &symbol, const QString &code) const;
    int symbolCount() const { return mSeries.size(); }

    // The codes a metadata file may have columns for, in the order of its usual header.
    static const QStringList &metadataCodes();

private:
    bool loadFile(const QString &symbol, const QString &path, QString *error);
    bool loadMetadata(QIODevice *device, QString *error);

    QHash<QString, QVector<StoredBar>> mSeries;        // by upper-case symbol
    QHash<QString, QHash<QString, QString>> mMetadata; // by upper-case symbol, then code
};

} // namespace QuoteService
