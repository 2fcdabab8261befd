#include "command.h"

namespace Cli {

int runBars(const QStringList &args, Context &context);
int runRender(const QStringList &args, Context &context);
int runIndicator(const QStringList &args, Context &context);
int runMath(const QStringList &args, Context &context);
int runCatalogue(const QStringList &args, Context &context);
int runPatterns(const QStringList &args, Context &context);
int runTemplate(const QStringList &args, Context &context);
int runPack(const QStringList &args, Context &context);
int runUpdate(const QStringList &args, Context &context);
int runFetch(const QStringList &args, Context &context);
int runMeta(const QStringList &args, Context &context);
int runImport(const QStringList &args, Context &context);
int runVerify(const QStringList &args, Context &context);
int runCandidates(const QStringList &args, Context &context);
int runFilter(const QStringList &args, Context &context);
int runCalibrate(const QStringList &args, Context &context);
int runSimulate(const QStringList &args, Context &context);

const std::vector<Command> &commands()
{
    static const std::vector<Command> table = {
        {"bars", "FILE [--frame day|week|month|quarter|year] [--limit N]",
         "Load FILE as a stored quote file (keeping the oldest N bars when --limit is "
         "given), aggregate it to the time frame and print it as a stored file.",
         &runBars},
        {"render",
         "FILE --out PNG [--width W] [--height H] [--type candle|bar|line|empty] [--zoom Z] "
         "[--first N] [--indicator ID[:NAME=VALUE,...]]... [--overlay ID[:NAME=VALUE,...]]... "
         "[--template TT]",
         "Draw the chart of FILE with its value scale and date axis into a PNG (default "
         "1200 x 800, candles, zoom 8, the last bars that fit), in the colours of the "
         "settings. --indicator adds a pane under the chart, --overlay draws over the prices; "
         "both repeat. --template sets up time frame, zoom, background, chart type, overlays, "
         "panes and their heights from a chart template (a file or \":/Templates/NAME.tt\"); "
         "the other options apply on top of it.",
         &runRender},
        {"indicator", "ID FILE [--frame F] [--param NAME=VALUE]...",
         "Compute indicator ID over FILE and print its buffers as CSV: Date, then one column "
         "per buffer in buffer order, values with 9 significant digits. ID is a built-in "
         "identifier, the path of a script file (.js or .bin) or the name of a script in the "
         "home folder's UserIndicators; a script's messages go to the standard error stream.",
         &runIndicator},
        {"pack", "SCRIPT.js OUT.bin",
         "Pack a script indicator into the locked form that runs but is not shown in the "
         "script editor.",
         &runPack},
        {"math", "ROUTINE PERIOD",
         "Apply a series routine (sma ema smma wma median stdDev stdDevNMinus1 shift) to the "
         "numbers read from the standard input; print one result per line.",
         &runMath},
        {"patterns", "single|pair|triple FILE [--require NAME,...] [--blending] [--trend up|down]",
         "Classify the candles of FILE: every bar (single), every pair of consecutive bars "
         "dated with the later one (pair, blended into one bar when nothing matched and "
         "--blending is given) or every triple (triple), as yyyy-MM-dd,Pattern,grade with None "
         "and 0 where nothing matched. --require limits the patterns tried; --trend forces the "
         "trend flag of every bar.",
         &runPatterns},
        {"catalogue", "",
         "List the built-in indicators: identifier, title, label, parameters with their "
         "defaults, buffers and whether the indicator list offers it, separated by tabs.",
         &runCatalogue},
        {"template", "FILE.tt",
         "Read the chart template FILE.tt (or a built-in one, \":/Templates/TrawlerWeek.tt\") "
         "and print it in the form the program saves.",
         &runTemplate},
        {"update", "[--table-host URL] [--quote-host URL] [SYMBOL...]",
         "Bring stored symbols up to date from the quote service (all of them when none is "
         "named), one line per symbol: updated N rows, up to date, skipped (why) or failed "
         "(why). The options stand in for the settings' hosts for this run.",
         &runUpdate},
        {"fetch", "[--table-host URL] [--quote-host URL] SYMBOL",
         "Download the whole history of SYMBOL into the store, and its metadata when the "
         "service has them.",
         &runFetch},
        {"meta", "SYMBOL",
         "Print the metadata stored for SYMBOL (its name, exchange, figures, currency and the "
         "date of their refresh) as column=value lines in the order of the table; the symbol is "
         "looked up upper-cased.",
         &runMeta},
        {"import", "metatrader|halcyra|rbk|metastock [--merge] PATH...",
         "Import quote files of other programs into the store, each as its own name followed "
         "by .IMP (ABC becomes ABC.IMP): MetaTrader history exports, stored files of this "
         "program, RBK ticker files (always merged) or the securities of MetaStock MASTER "
         "files (always replaced). --merge keeps a target's rows and merges the imported ones "
         "in. Prints each symbol written, one per line; a source that gives nothing is named "
         "on the standard error stream and makes the exit status 1.",
         &runImport},
        {"verify", "[SYMBOL...]",
         "Check stored files (all of them when none is named) without changing them and "
         "print one CSV row per symbol: rows, first and last day, bad lines, repeated dates, "
         "dates out of order, gaps of more than five weekdays and ok or damaged. Exits 1 when "
         "any is damaged.",
         &runVerify},
        {"candidates",
         "[--alphabet A] [--length L] [--start I] [--count N] [--prefix P] [--postfix S] "
         "[--fill C]",
         "Print the symbols the scanner would probe, one per line: N candidates (100 by "
         "default) from index I (0) over the alphabet A (0-9, A-Z, _ and -, whose last "
         "character is never used) up to length L (4, at most 20), each padded on the left to "
         "width L with the first character of C when C is given, between prefix P (none) and "
         "postfix S (.de). Ends early at the number of candidates, A's length to the power L.",
         &runCandidates},
        {"filter",
         "NAME [--frame day|week|month|quarter] [--as-of yyyy-MM-dd] [--set \"Key=Value\"]... "
         "[--threads N] [SYMBOL...]",
         "Run filter NAME (RSIFilter, Trend, ...; see docs/filters.md) over the named stored "
         "symbols, or over every stored symbol in name order, and print the symbols that pass "
         "as CSV under the filter's columns, then \"Found: N of M\". --set sets a control by its "
         "label without \"&\" and \":\" (\"RSI Period=14\", \"Rule=Lower\", \"Price "
         "Range=5..50\"); --frame sets its time frame and --as-of the last day it may see. "
         "--threads 0, the default, tests on every processor.",
         &runFilter},
        {"calibrate", "[--periods FROM-TO] SYMBOL...",
         "Search the parameters of the RSI trading rule over each stored SYMBOL (periods 2 to 99, "
         "or FROM to TO) and write the table and its manifest into the home folder's "
         "Calibrator folder; prints each table's absolute path, one per line, in the order "
         "the symbols are named. A symbol that cannot be calibrated is named on the standard "
         "error stream and makes the exit status 1.",
         &runCalibrate},
        {"simulate", "FILE --rsi P,L,H",
         "Trade FILE by the RSI rule with period P, low level L and high level H and print the "
         "trades as CSV (EntryDate,ExitDate,Entry,Exit,Percent, the percent of the exit price "
         "as the calibration counts it), then a blank line and the totals "
         "(Trades,Days,TotalProfit,DayProfit).",
         &runSimulate},
    };
    return table;
}

} // namespace Cli
