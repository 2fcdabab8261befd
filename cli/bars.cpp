#include "command.h"
#include "data/quotefile.h"
#include "data/reader.h"

#include <QCommandLineParser>

namespace Cli {

// The time frame named day, week, month, quarter or year; -1 for any other name.
int frameOf(const QString &name)
{
    static const QStringList frames = {QStringLiteral("day"), QStringLiteral("week"),
                                       QStringLiteral("month"), QStringLiteral("quarter"),
                                       QStringLiteral("year")};
    return frames.indexOf(name);
}

int runBars(const QStringList &args, Context &context)
{
    QCommandLineParser parser;
    parser.setSingleDashWordOptionMode(QCommandLineParser::ParseAsLongOptions);
    const QCommandLineOption frameOption(QStringLiteral("frame"), QString(),
                                         QStringLiteral("frame"), QStringLiteral("day"));
    const QCommandLineOption limitOption(QStringLiteral("limit"), QString(), QStringLiteral("N"));
    parser.addOption(frameOption);
    parser.addOption(limitOption);
    if (!parser.parse(QStringList{QStringLiteral("bars")} + args)) {
        context.err << "halcyra-cli bars: " << parser.errorText() << '\n';
        return UsageError;
    }
    if (parser.positionalArguments().size() != 1) {
        context.err << "halcyra-cli bars: expected one FILE\n";
        return UsageError;
    }
    const int frame = frameOf(parser.value(frameOption));
    if (frame < 0) {
        context.err << "halcyra-cli bars: unknown frame " << parser.value(frameOption)
                    << " (day, week, month, quarter or year)\n";
        return UsageError;
    }
    int limit = -1;
    if (parser.isSet(limitOption)) {
        bool ok = false;
        limit = parser.value(limitOption).toInt(&ok);
        if (!ok || limit < 1) {
            context.err << "halcyra-cli bars: --limit needs a whole number of at least 1\n";
            return UsageError;
        }
    }

    const QString path = context.quoteFile(parser.positionalArguments().constFirst());
    if (path.isEmpty())
        return Failure;

    OrdaneData::Reader reader;
    OrdaneData::Reader::setHistoryLimit(limit);
    const bool loaded = reader.loadFile(path);
    OrdaneData::Reader::setHistoryLimit(-1);
    if (!loaded) {
        context.err << "halcyra-cli bars: cannot read " << path << '\n';
        return Failure;
    }
    reader.setTimeFrame(frame);
    context.out << OrdaneData::seriesToText(reader) << '\n';
    return Success;
}

} // namespace Cli
