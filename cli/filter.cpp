#include "browser/filters/filtercatalogue.h"
#include "browser/filters/filterrun.h"
#include "command.h"
#include "data/home.h"
#include "data/metadata.h"

#include <QCommandLineParser>
#include <QFileInfo>

#include <memory>

namespace Cli {

int frameOf(const QString &name); // bars.cpp

namespace {
QString filterNames()
{
    QStringList names;
    for (const OrdaneBrowser::FilterSpec &spec : OrdaneBrowser::filterCatalogue())
        names << spec.name;
    return names.join(QLatin1String(", "));
}

bool hasControl(const OrdaneBrowser::FilterSpec &spec, const QString &key)
{
    for (const OrdaneBrowser::FilterControl &c : spec.controls)
        if (c.key == key)
            return true;
    return false;
}
} // namespace

int runFilter(const QStringList &args, Context &context)
{
    QCommandLineParser parser;
    parser.setSingleDashWordOptionMode(QCommandLineParser::ParseAsLongOptions);
    const QCommandLineOption frameOption(QStringLiteral("frame"), QString(),
                                         QStringLiteral("frame"));
    const QCommandLineOption asOfOption(QStringLiteral("as-of"), QString(),
                                        QStringLiteral("yyyy-MM-dd"));
    const QCommandLineOption setOption(QStringLiteral("set"), QString(),
                                       QStringLiteral("Key=Value"));
    const QCommandLineOption threadsOption(QStringLiteral("threads"), QString(),
                                           QStringLiteral("N"));
    parser.addOptions({frameOption, asOfOption, setOption, threadsOption});
    const auto usageError = [&context](const QString &message) {
        context.err << "halcyra-cli filter: " << message << '\n';
        return UsageError;
    };
    if (!parser.parse(QStringList{QStringLiteral("filter")} + args))
        return usageError(parser.errorText());
    QStringList symbols = parser.positionalArguments();
    if (symbols.isEmpty())
        return usageError(QStringLiteral("expected a filter NAME (one of: %1)").arg(filterNames()));
    const QString name = symbols.takeFirst();
    const OrdaneBrowser::FilterSpec *spec = OrdaneBrowser::findFilter(name);
    if (!spec)
        return usageError(
            QStringLiteral("unknown filter %1 (the filters: %2)").arg(name, filterNames()));

    OrdaneBrowser::FilterValues values = OrdaneBrowser::defaultValues(*spec);
    QStringList assignments = parser.values(setOption);
    // The dedicated options come after --set, and win.
    if (parser.isSet(frameOption)) {
        static const char *const items[] = {"Day", "Week", "Month", "Quartal"};
        const int frame = frameOf(parser.value(frameOption));
        if (!hasControl(*spec, QStringLiteral("Time Frame")))
            return usageError(QStringLiteral("%1 has no time frame").arg(name));
        if (frame < 0 || frame > 3)
            return usageError(QStringLiteral("unknown frame %1 (day, week, month or quarter)")
                                  .arg(parser.value(frameOption)));
        assignments << QStringLiteral("Time Frame=") + QLatin1String(items[frame]);
    }
    if (parser.isSet(asOfOption))
        assignments << QStringLiteral("As of=") + parser.value(asOfOption);
    QString error;
    for (const QString &assignment : qAsConst(assignments))
        if (!OrdaneBrowser::setFilterValue(*spec, values, assignment, &error))
            return usageError(error);
    int threads = 0;
    if (parser.isSet(threadsOption)) {
        bool ok = false;
        threads = parser.value(threadsOption).toInt(&ok);
        if (!ok || threads < 0)
            return usageError(QStringLiteral("--threads needs a whole number of at least 0"));
    }

    if (!context.useHome())
        return Failure;
    if (symbols.isEmpty())
        symbols = OrdaneData::Home::storedSymbols();
    // The store is only read: a home without one gets none made by a filter run.
    const QString storage = OrdaneData::Home::storagePath();
    const QString metaPath = storage + QStringLiteral("/_meta.tdb");
    std::unique_ptr<OrdaneData::MetaData> meta;
    if (QFileInfo(metaPath).isFile())
        meta = std::make_unique<OrdaneData::MetaData>(metaPath);

    OrdaneBrowser::FilterRun run(*spec, values, storage, meta.get(), threads);
    const QVector<OrdaneBrowser::FilterRow> rows = run.run(symbols);
    context.out << spec->columns.join(QLatin1Char(',')) << '\n';
    for (const OrdaneBrowser::FilterRow &row : rows) {
        context.out << row.symbol;
        for (const QString &value : row.values)
            context.out << ',' << value.trimmed();
        context.out << '\n';
    }
    context.out << "Found: " << rows.size() << " of " << symbols.size() << '\n';
    return Success;
}

} // namespace Cli
