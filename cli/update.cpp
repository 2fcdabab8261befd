#include "command.h"
#include "data/home.h"
#include "data/metadata.h"
#include "data/net/datamanager.h"
#include "data/net/downloader.h"
#include "serviceoptions.h"

namespace Cli {

int runUpdate(const QStringList &args, Context &context)
{
    QCommandLineParser parser;
    parser.setSingleDashWordOptionMode(QCommandLineParser::ParseAsLongOptions);
    const ServiceOptions options;
    options.addTo(parser);
    if (!parser.parse(QStringList{QStringLiteral("update")} + args)) {
        context.err << "halcyra-cli update: " << parser.errorText() << '\n';
        return UsageError;
    }
    if (!context.useHome())
        return Failure;
    QStringList symbols = parser.positionalArguments();
    if (symbols.isEmpty())
        symbols = OrdaneData::Home::storedSymbols();

    OrdaneData::MetaData meta;
    OrdaneData::DataManager manager;
    manager.setService(options.service(parser));
    if (meta.open())
        manager.setMetaData(&meta);
    QMRequest::Downloader downloader;
    int failures = 0;
    for (const QString &symbol : qAsConst(symbols)) {
        const OrdaneData::UpdateOutcome outcome = manager.updateSymbol(symbol, downloader);
        failures += outcome.kind == OrdaneData::UpdateOutcome::Failed;
        context.out << outcome.describe(symbol) << Qt::endl;
    }
    return failures ? Failure : Success;
}

} // namespace Cli
