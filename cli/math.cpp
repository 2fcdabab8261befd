#include "command.h"
#include "indicatorargs.h"
#include "indicators/compute/seriesmath.h"

#include <QFile>

#include <cstdio>

namespace Cli {

int runMath(const QStringList &args, Context &context)
{
    using Routine = Indicators::Series (*)(int, const Indicators::Series &);
    static const QMap<QString, Routine> routines = {
        {QStringLiteral("sma"), &Indicators::sma},
        {QStringLiteral("ema"), &Indicators::ema},
        {QStringLiteral("smma"), &Indicators::smma},
        {QStringLiteral("wma"), &Indicators::wma},
        {QStringLiteral("median"), &Indicators::median},
        {QStringLiteral("stdDev"), &Indicators::stdDev},
        {QStringLiteral("stdDevNMinus1"), &Indicators::stdDevNMinus1},
        {QStringLiteral("shift"), &Indicators::shift},
    };
    if (args.size() != 2 || !routines.contains(args.at(0))) {
        context.err << "halcyra-cli math: expected ROUTINE PERIOD, ROUTINE one of "
                    << routines.keys().join(QLatin1Char(' ')) << '\n';
        return UsageError;
    }
    bool ok = false;
    const int period = args.at(1).toInt(&ok);
    if (!ok) {
        context.err << "halcyra-cli math: PERIOD must be a whole number\n";
        return UsageError;
    }

    QFile in;
    if (!in.open(stdin, QIODevice::ReadOnly)) {
        context.err << "halcyra-cli math: cannot read the standard input\n";
        return Failure;
    }
    Indicators::Series source;
    const QList<QByteArray> words = in.readAll().simplified().split(' ');
    for (const QByteArray &word : words) {
        if (word.isEmpty())
            continue;
        const float v = word.toFloat(&ok);
        if (!ok) {
            context.err << "halcyra-cli math: not a number: " << QString::fromLatin1(word) << '\n';
            return Failure;
        }
        source.append(v);
    }
    for (float v : routines.value(args.at(0))(period, source))
        context.out << formatValue(v) << '\n';
    return Success;
}

} // namespace Cli
