#pragma once

#include <QObject>
#include <QString>

namespace OrdaneData {

class Reader;

// Where a Reader's series comes from. The storage source reads the stored files; the
// downloading updater plugs in here as well.
//
// loadSymbol() and updateSymbol() connect done(QString) to the reader's slotDone(QString)
// before they start, so the reader re-emits done(symbol) once the symbol is finished.
class QuoteSource : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    // Fills reader from the symbol's stored file when the file's first line starts with
    // "Date". Returns false when the file is missing, unreadable or not a quote file;
    // the reader then keeps its bars.
    virtual bool loadStored(Reader *reader, const QString &symbol) = 0;

    // Loads the stored series of symbol into reader; finishes with done(symbol).
    virtual void loadSymbol(Reader *reader, const QString &symbol) = 0;

    // Brings symbol up to date (count: how many bars to fetch, -1 for whatever is
    // missing) and loads it into reader; finishes with done(symbol).
    virtual void updateSymbol(Reader *reader, const QString &symbol, int count) = 0;

signals:
    void done(const QString &symbol);

protected:
    void connectReader(Reader *reader);
};

// Reads series from the stored files of the storage folder. It downloads nothing:
// updateSymbol() reloads what is stored.
class StorageSource : public QuoteSource
{
    Q_OBJECT

public:
    using QuoteSource::QuoteSource;

    bool loadStored(Reader *reader, const QString &symbol) override;
    void loadSymbol(Reader *reader, const QString &symbol) override;
    void updateSymbol(Reader *reader, const QString &symbol, int count) override;
};

} // namespace OrdaneData
