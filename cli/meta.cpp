#include "command.h"
#include "data/metadata.h"
#include "data/quotefile.h"

namespace Cli {

int runMeta(const QStringList &args, Context &context)
{
    if (args.size() != 1 || args.first().startsWith(QLatin1Char('-'))) {
        context.err << "halcyra-cli meta: expected one SYMBOL\n";
        return UsageError;
    }
    if (!context.useHome())
        return Failure;
    OrdaneData::MetaData store;
    if (!store.open()) {
        context.err << "halcyra-cli meta: cannot open the metadata store in "
                    << OrdaneData::storagePath() << '\n';
        return Failure;
    }
    const QString &symbol = args.first();
    const QMap<QString, QString> record = store.record(symbol);
    if (record.isEmpty()) {
        context.err << "halcyra-cli meta: no metadata for " << symbol << '\n';
        return Failure;
    }
    for (const QString &column : OrdaneData::MetaData::columns())
        context.out << column << '=' << record.value(column) << '\n';
    return Success;
}

} // namespace Cli
