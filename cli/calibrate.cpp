#include "browser/calibratorthread.h"
#include "command.h"

#include <QRegularExpression>

namespace Cli {

namespace {
// "FROM-TO" with 2 <= FROM <= TO <= 99.
bool parsePeriods(const QString &text, Indicators::RsiPeriods *periods)
{
    const QRegularExpressionMatch m =
        QRegularExpression(QStringLiteral("^(\\d+)-(\\d+)$")).match(text);
    if (!m.hasMatch())
        return false;
    periods->from = m.captured(1).toInt();
    periods->to = m.captured(2).toInt();
    return 2 <= periods->from && periods->from <= periods->to && periods->to <= 99;
}
} // namespace

int runCalibrate(const QStringList &args, Context &context)
{
    Indicators::RsiPeriods periods;
    QStringList symbols;
    for (int i = 0; i < args.size(); ++i) {
        const QString &a = args.at(i);
        if (a == QLatin1String("--periods")) {
            if (++i >= args.size() || !parsePeriods(args.at(i), &periods)) {
                context.err << "halcyra-cli calibrate: --periods needs FROM-TO within 2-99\n";
                return UsageError;
            }
        } else if (a.startsWith(QLatin1Char('-'))) {
            context.err << "halcyra-cli calibrate: unknown option " << a << '\n';
            return UsageError;
        } else {
            symbols << a;
        }
    }
    if (symbols.isEmpty()) {
        context.err << "halcyra-cli calibrate: expected one or more SYMBOLs\n";
        return UsageError;
    }
    if (!context.useHome())
        return Failure;
    int status = Success;
    for (const QString &symbol : qAsConst(symbols)) {
        QString error;
        const QString file = OrdaneBrowser::calibrateRsi(symbol, periods, {}, &error);
        if (file.isEmpty()) {
            context.err << "halcyra-cli calibrate: " << error << '\n';
            status = Failure;
            continue;
        }
        context.out << file << '\n';
        context.out.flush();
    }
    return status;
}

} // namespace Cli
