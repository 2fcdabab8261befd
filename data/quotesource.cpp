#include "quotesource.h"

#include "quotefile.h"
#include "reader.h"

#include <QFile>

namespace OrdaneData {

void QuoteSource::connectReader(Reader *reader)
{
    connect(this, &QuoteSource::done, reader, &Reader::slotDone, Qt::UniqueConnection);
}

bool StorageSource::loadStored(Reader *reader, const QString &symbol)
{
    const QString path = fileOf(symbol);
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly) || !hasQuoteFileHeader(&file))
        return false;
    file.close();
    return reader->loadFile(path);
}

void StorageSource::loadSymbol(Reader *reader, const QString &symbol)
{
    connectReader(reader);
    if (loadStored(reader, symbol))
        emit reader->dataChanged();
    emit done(symbol);
}

void StorageSource::updateSymbol(Reader *reader, const QString &symbol, int count)
{
    Q_UNUSED(count)
    loadSymbol(reader, symbol);
}

} // namespace OrdaneData
