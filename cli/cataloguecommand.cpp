#include "command.h"
#include "indicators/catalogue.h"
#include "indicators/indicatorlayer.h"

#include <memory>

namespace Cli {

int runCatalogue(const QStringList &args, Context &context)
{
    if (!args.isEmpty()) {
        context.err << "halcyra-cli catalogue: takes no arguments\n";
        return UsageError;
    }
    for (const OrdaneView::IndicatorEntry &entry : OrdaneView::catalogue()) {
        const QString id = QLatin1String(entry.id);
        std::unique_ptr<OrdaneView::IndicatorLayer> fresh(
            OrdaneView::createBuiltinIndicator(id, OrdaneData::ReaderH(), nullptr));
        fresh->init();
        QStringList params, buffers;
        for (const auto &p : entry.params)
            params << QLatin1String(p.name) + QLatin1Char('=') + QString::number(p.value);
        for (const auto &b : entry.buffers)
            buffers << QLatin1String(b.name);
        context.out << id << '\t' << OrdaneView::indicatorTitle(id) << '\t' << fresh->label()
                    << '\t' << params.join(QLatin1Char(';')) << '\t'
                    << buffers.join(QLatin1Char(';')) << '\t' << (entry.listed() ? "yes" : "no")
                    << '\n';
    }
    return Success;
}

} // namespace Cli
