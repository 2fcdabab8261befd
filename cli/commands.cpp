#include "command.h"

namespace Cli {

int runBars(const QStringList &args, Context &context);

const std::vector<Command> &commands()
{
    static const std::vector<Command> table = {
        {"bars", "FILE [--frame day|week|month|quarter|year] [--limit N]",
         "Load FILE as a stored quote file (keeping the oldest N bars when --limit is "
         "given), aggregate it to the time frame and print it as a stored file.",
         &runBars},
    };
    return table;
}

} // namespace Cli
