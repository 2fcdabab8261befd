#include "command.h"
#include "indicators/script/scriptfile.h"

#include <QSaveFile>

namespace Cli {

int runPack(const QStringList &args, Context &context)
{
    if (args.size() != 2 || !args.at(1).endsWith(QLatin1String(".bin"))) {
        context.err << "halcyra-cli pack: expected SCRIPT.js OUT.bin\n";
        return UsageError;
    }
    const OrdaneView::Scripts::ScriptText script = OrdaneView::Scripts::readScript(args.at(0));
    if (!script.error.isEmpty()) {
        context.err << "halcyra-cli pack: " << script.error << '\n';
        return Failure;
    }
    QSaveFile out(args.at(1));
    if (!out.open(QIODevice::WriteOnly) ||
        out.write(OrdaneView::Scripts::packScript(script.text)) < 0 || !out.commit()) {
        context.err << "halcyra-cli pack: cannot write " << args.at(1) << ": " << out.errorString()
                    << '\n';
        return Failure;
    }
    return Success;
}

} // namespace Cli
