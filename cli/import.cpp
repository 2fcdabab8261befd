#include "command.h"
#include "data/home.h"
#include "data/import/importer.h"

namespace Cli {

int runImport(const QStringList &args, Context &context)
{
    static const QStringList formats = {QStringLiteral("metatrader"), QStringLiteral("halcyra"),
                                        QStringLiteral("rbk"), QStringLiteral("metastock")};
    static const OrdaneData::ImportFormat kinds[] = {
        OrdaneData::ImportFormat::MetaTrader, OrdaneData::ImportFormat::Halcyra,
        OrdaneData::ImportFormat::Rbk, OrdaneData::ImportFormat::MetaStock};
    const int format = args.isEmpty() ? -1 : formats.indexOf(args.first());
    if (format < 0) {
        context.err << "halcyra-cli import: expected a format: metatrader, halcyra, rbk or "
                       "metastock\n";
        return UsageError;
    }
    bool merge = false;
    QStringList paths;
    for (const QString &arg : args.mid(1)) {
        if (arg == QLatin1String("--merge")) {
            merge = true;
        } else if (arg.startsWith(QLatin1Char('-'))) {
            context.err << "halcyra-cli import: unknown option " << arg << '\n';
            return UsageError;
        } else {
            paths << arg;
        }
    }
    if (paths.isEmpty()) {
        context.err << "halcyra-cli import: expected at least one PATH\n";
        return UsageError;
    }
    const OrdaneData::ImportFormat kind = kinds[format];
    if (merge && kind == OrdaneData::ImportFormat::MetaStock) {
        context.err << "halcyra-cli import: metastock imports replace their targets; "
                       "--merge does not apply\n";
        return UsageError;
    }
    if (!context.useHome())
        return Failure;

    OrdaneData::Importer importer(OrdaneData::Home::storagePath());
    const OrdaneData::ImportReport report = importer.run(kind, paths, merge);
    for (const QString &symbol : report.symbols)
        context.out << symbol << '\n';
    for (const QString &skipped : report.skipped)
        context.err << "halcyra-cli import: " << skipped << '\n';
    return report.skipped.isEmpty() ? Success : Failure;
}

} // namespace Cli
