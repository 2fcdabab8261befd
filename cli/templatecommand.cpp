#include "command.h"
#include "view/charttemplate.h"

namespace Cli {

int runTemplate(const QStringList &args, Context &context)
{
    if (args.size() != 1 || args.first().startsWith(QLatin1Char('-'))) {
        context.err << "halcyra-cli template: expected one FILE.tt\n";
        return UsageError;
    }
    OrdaneView::ChartTemplate t;
    QString error;
    if (!OrdaneView::readTemplateFile(args.first(), &t, &error)) {
        context.err << "halcyra-cli template: " << error << '\n';
        return Failure;
    }
    context.out << QString::fromUtf8(OrdaneView::writeTemplate(t));
    return Success;
}

} // namespace Cli
