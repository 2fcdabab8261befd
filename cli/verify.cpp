#include "command.h"
#include "data/home.h"
#include "data/import/storecheck.h"

#include <algorithm>

namespace Cli {

int runVerify(const QStringList &args, Context &context)
{
    for (const QString &arg : args) {
        if (arg.startsWith(QLatin1Char('-'))) {
            context.err << "halcyra-cli verify: unknown option " << arg << '\n';
            return UsageError;
        }
    }
    if (!context.useHome())
        return Failure;
    const QVector<OrdaneData::StoreCheck> checks =
        OrdaneData::checkStore(OrdaneData::Home::storagePath(), args);
    context.out << OrdaneData::storeCheckCsv(checks);
    const bool ok = std::all_of(checks.begin(), checks.end(),
                                [](const OrdaneData::StoreCheck &c) { return c.ok(); });
    return ok ? Success : Failure;
}

} // namespace Cli
