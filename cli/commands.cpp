#include "command.h"

namespace Cli {

int runBars(const QStringList &args, Context &context);
int runRender(const QStringList &args, Context &context);

const std::vector<Command> &commands()
{
    static const std::vector<Command> table = {
        {"bars", "FILE [--frame day|week|month|quarter|year] [--limit N]",
         "Load FILE as a stored quote file (keeping the oldest N bars when --limit is "
         "given), aggregate it to the time frame and print it as a stored file.",
         &runBars},
        {"render",
         "FILE --out PNG [--width W] [--height H] [--type candle|bar|line|empty] [--zoom Z] "
         "[--first N]",
         "Draw the chart of FILE with its value scale and date axis into a PNG (default "
         "1200 x 800, candles, zoom 8, the last bars that fit), in the colours of the "
         "settings.",
         &runRender},
    };
    return table;
}

} // namespace Cli
