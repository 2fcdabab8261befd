#pragma once

#include "data/net/quoteservice.h"

#include <QCommandLineOption>
#include <QCommandLineParser>

namespace Cli {

// --table-host URL and --quote-host URL: the quote service of the settings, with the hosts
// given on the command line instead for this run.
struct ServiceOptions
{
    QCommandLineOption tableHost{QStringLiteral("table-host"), QString(), QStringLiteral("URL")};
    QCommandLineOption quoteHost{QStringLiteral("quote-host"), QString(), QStringLiteral("URL")};

    void addTo(QCommandLineParser &parser) const { parser.addOptions({tableHost, quoteHost}); }
    OrdaneData::QuoteService service(const QCommandLineParser &parser) const;
};

} // namespace Cli
