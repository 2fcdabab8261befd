#include "command.h"
#include "data/reader.h"
#include "view/patterns/candlepattern.h"

#include <QCommandLineParser>

namespace Cli {

int runPatterns(const QStringList &args, Context &context)
{
    QCommandLineParser parser;
    parser.setSingleDashWordOptionMode(QCommandLineParser::ParseAsLongOptions);
    const QCommandLineOption requireOption(QStringLiteral("require"), QString(),
                                           QStringLiteral("NAME,..."));
    const QCommandLineOption blendingOption(QStringLiteral("blending"));
    const QCommandLineOption trendOption(QStringLiteral("trend"), QString(),
                                         QStringLiteral("up|down"));
    parser.addOptions({requireOption, blendingOption, trendOption});
    if (!parser.parse(QStringList{QStringLiteral("patterns")} + args)) {
        context.err << "halcyra-cli patterns: " << parser.errorText() << '\n';
        return UsageError;
    }
    const QStringList positional = parser.positionalArguments();
    const QStringList spans{QStringLiteral("single"), QStringLiteral("pair"),
                            QStringLiteral("triple")};
    if (positional.size() != 2 || !spans.contains(positional.at(0))) {
        context.err << "halcyra-cli patterns: expected single|pair|triple and FILE\n";
        return UsageError;
    }
    const auto span = CandlePattern::Span(spans.indexOf(positional.at(0)) + 1);

    CandlePattern::PatternSet required = CandlePattern::PatternSet::all();
    if (parser.isSet(requireOption)) {
        required = {};
        for (const QString &name :
             parser.values(requireOption).join(QLatin1Char(',')).split(QLatin1Char(','))) {
            const CandlePattern::Pattern p = CandlePattern::fromText(name.trimmed());
            if (p == CandlePattern::None) {
                context.err << "halcyra-cli patterns: unknown pattern " << name << '\n';
                return UsageError;
            }
            required.insert(p);
        }
    }
    int trend = -1;
    if (parser.isSet(trendOption)) {
        const QString t = parser.value(trendOption);
        if (t != QLatin1String("up") && t != QLatin1String("down")) {
            context.err << "halcyra-cli patterns: --trend takes up or down\n";
            return UsageError;
        }
        trend = t == QLatin1String("up") ? 1 : 0;
    }

    const QString path = context.quoteFile(positional.at(1));
    if (path.isEmpty())
        return Failure;
    OrdaneData::Reader series;
    if (!series.loadFile(path)) {
        context.err << "halcyra-cli patterns: cannot read " << path << '\n';
        return Failure;
    }
    const QVector<QuoteBar> &bars = series.bars();
    const QVector<CandlePattern::Match> matches =
        CandlePattern::classify(bars, span, required, parser.isSet(blendingOption), trend);
    // A pair is dated with its later bar and a triple with its last; bars that end none are
    // left out.
    for (int i = int(span) - 1; i < bars.size(); ++i)
        context.out << bars[i].date().toString(QStringLiteral("yyyy-MM-dd")) << ','
                    << CandlePattern::text(matches[i].pattern) << ',' << matches[i].grade << '\n';
    return Success;
}

} // namespace Cli
