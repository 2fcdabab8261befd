#include "serviceoptions.h"

namespace Cli {

OrdaneData::QuoteService ServiceOptions::service(const QCommandLineParser &parser) const
{
    OrdaneData::QuoteService s = OrdaneData::QuoteService::fromSettings();
    if (parser.isSet(tableHost))
        s.tableHost = parser.value(tableHost);
    if (parser.isSet(quoteHost))
        s.quoteHost = parser.value(quoteHost);
    return s;
}

} // namespace Cli
