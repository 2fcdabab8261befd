#include "command.h"
#include "data/metadata.h"
#include "data/net/datamanager.h"
#include "data/net/downloader.h"
#include "serviceoptions.h"

namespace Cli {

int runFetch(const QStringList &args, Context &context)
{
    QCommandLineParser parser;
    parser.setSingleDashWordOptionMode(QCommandLineParser::ParseAsLongOptions);
    const ServiceOptions options;
    options.addTo(parser);
    if (!parser.parse(QStringList{QStringLiteral("fetch")} + args)) {
        context.err << "halcyra-cli fetch: " << parser.errorText() << '\n';
        return UsageError;
    }
    if (parser.positionalArguments().size() != 1) {
        context.err << "halcyra-cli fetch: expected one SYMBOL\n";
        return UsageError;
    }
    if (!context.useHome())
        return Failure;
    const QString symbol = parser.positionalArguments().constFirst();
    OrdaneData::MetaData meta;
    OrdaneData::DataManager manager;
    manager.setService(options.service(parser));
    if (meta.open())
        manager.setMetaData(&meta);
    QMRequest::Downloader downloader;
    const OrdaneData::UpdateOutcome outcome = manager.fetchSymbol(symbol, downloader);
    context.out << outcome.describe(symbol) << Qt::endl;
    return outcome.kind == OrdaneData::UpdateOutcome::Failed ? Failure : Success;
}

} // namespace Cli
