#include "command.h"
#include "data/reader.h"
#include "indicators/compute/rsitrading.h"

namespace Cli {

namespace {
// "P,L,H": a period of at least 1 and two levels with L < H.
bool parseRule(const QString &text, int *period, float *low, float *high)
{
    const QStringList parts = text.split(QLatin1Char(','));
    if (parts.size() != 3)
        return false;
    bool ok[3] = {};
    *period = parts.at(0).trimmed().toInt(&ok[0]);
    *low = parts.at(1).trimmed().toFloat(&ok[1]);
    *high = parts.at(2).trimmed().toFloat(&ok[2]);
    return ok[0] && ok[1] && ok[2] && *period >= 1 && *low < *high;
}
} // namespace

int runSimulate(const QStringList &args, Context &context)
{
    QString file;
    QString rule;
    for (int i = 0; i < args.size(); ++i) {
        const QString &a = args.at(i);
        if (a == QLatin1String("--rsi")) {
            if (++i >= args.size()) {
                context.err << "halcyra-cli simulate: --rsi needs P,L,H\n";
                return UsageError;
            }
            rule = args.at(i);
        } else if (a.startsWith(QLatin1Char('-')) || !file.isEmpty()) {
            context.err << "halcyra-cli simulate: unexpected argument " << a << '\n';
            return UsageError;
        } else {
            file = a;
        }
    }
    int period = 0;
    float low = 0;
    float high = 0;
    if (file.isEmpty() || !parseRule(rule, &period, &low, &high)) {
        context.err << "halcyra-cli simulate: expected SYMBOL --rsi P,L,H (P at least 1, "
                       "L below H)\n";
        return UsageError;
    }
    const QString path = context.quoteFile(file);
    if (path.isEmpty())
        return Failure;
    OrdaneData::Reader series;
    if (!series.loadFile(path)) {
        context.err << "halcyra-cli simulate: cannot read " << path << '\n';
        return Failure;
    }

    const QVector<QuoteBar> &bars = series.bars();
    const QString iso = QStringLiteral("yyyy-MM-dd");
    Indicators::RsiScore score;
    context.out << "EntryDate,ExitDate,Entry,Exit,Percent\n";
    for (const Indicators::RsiTrade &t :
         Indicators::rsiTrades(Indicators::rsiOf(bars, period), period, low, high)) {
        const QuoteBar &in = bars.at(t.entry);
        const QuoteBar &out = bars.at(t.exit);
        // The trade's percent as the calibration counts it, so that the totals below are
        // those of the calibration's line for the same P, L and H.
        Indicators::RsiScore one;
        one.add(in.close(), out.close(), t.exit - t.entry);
        score.add(in.close(), out.close(), t.exit - t.entry);
        context.out << in.date().toString(iso) << ',' << out.date().toString(iso) << ','
                    << QString::number(double(in.close()), 'g', 6) << ','
                    << QString::number(double(out.close()), 'g', 6) << ','
                    << QString::number(one.total, 'g', 9) << '\n';
    }
    context.out << "\nTrades,Days,TotalProfit,DayProfit\n"
                << score.trades << ',' << score.days << ',' << QString::number(score.total, 'g', 9)
                << ',' << QString::number(score.days > 0 ? score.perDay() : 0.0, 'g', 9) << '\n';
    return Success;
}

} // namespace Cli
