#include "command.h"
#include "data/home.h"
#include "data/quotefile.h"
#include "data/reader.h"
#include "indicatorargs.h"
#include "indicators/catalogue.h"
#include "indicators/indicatorlayer.h"
#include "indicators/script/indicatorfactory.h"
#include "indicators/script/userindicator.h"

#include <QCommandLineParser>
#include <QFileInfo>

#include <memory>

namespace Cli {

int frameOf(const QString &name); // bars.cpp

int runIndicator(const QStringList &args, Context &context)
{
    QCommandLineParser parser;
    parser.setSingleDashWordOptionMode(QCommandLineParser::ParseAsLongOptions);
    const QCommandLineOption frameOption(QStringLiteral("frame"), QString(),
                                         QStringLiteral("frame"), QStringLiteral("day"));
    const QCommandLineOption paramOption(QStringLiteral("param"), QString(),
                                         QStringLiteral("NAME=VALUE"));
    parser.addOptions({frameOption, paramOption});
    if (!parser.parse(QStringList{QStringLiteral("indicator")} + args)) {
        context.err << "halcyra-cli indicator: " << parser.errorText() << '\n';
        return UsageError;
    }
    const QStringList positional = parser.positionalArguments();
    if (positional.size() != 2) {
        context.err << "halcyra-cli indicator: expected ID and FILE\n";
        return UsageError;
    }
    // A built-in identifier, a script file given by its path, or a script of the home
    // folder's "UserIndicators" by its name.
    const QString id = positional.at(0);
    const QFileInfo scriptFile(id);
    const bool isPath = !OrdaneView::findIndicator(id) && scriptFile.isFile() &&
                        (id.endsWith(QLatin1String(".js")) || id.endsWith(QLatin1String(".bin")));
    if (!isPath && !context.knowsIndicator(id)) {
        context.err << "Unknown indicator: " << id << '\n';
        return UsageError;
    }
    const int frame = frameOf(parser.value(frameOption));
    if (frame < 0) {
        context.err << "halcyra-cli indicator: unknown frame " << parser.value(frameOption) << '\n';
        return UsageError;
    }
    QMap<QString, float> params;
    QString error;
    for (const QString &p : parser.values(paramOption)) {
        if (!parseParam(p, params, &error)) {
            context.err << "halcyra-cli indicator: " << error << '\n';
            return UsageError;
        }
    }

    const QString path = context.quoteFile(positional.at(1));
    if (path.isEmpty())
        return Failure;
    const OrdaneData::ReaderH series = OrdaneData::ReaderH::create();
    if (!series->loadFile(path)) {
        context.err << "halcyra-cli indicator: cannot read " << path << '\n';
        return Failure;
    }
    series->setTimeFrame(frame);

    std::unique_ptr<OrdaneView::IndicatorLayer> indicator;
    if (isPath) {
        indicator =
            std::make_unique<OrdaneView::UserIndicator>(scriptFile.absoluteFilePath(), nullptr);
        indicator->setReader(series);
    } else {
        indicator.reset(OrdaneView::createIndicator(id, series, nullptr));
    }
    for (auto it = params.cbegin(); it != params.cend(); ++it)
        indicator->setParameter(it.key(), it.value());
    indicator->init();
    if (!declaresParameters(id, *indicator, params, &error)) {
        context.err << "halcyra-cli indicator: " << error << '\n';
        return UsageError;
    }
    indicator->start();

    const auto &buffers = indicator->buffers();
    int rows = 0;
    context.out << "Date";
    for (auto it = buffers.cbegin(); it != buffers.cend(); ++it) {
        context.out << ',' << it.key();
        rows = std::max(rows, it.value().data.size());
    }
    context.out << '\n';
    for (int i = 0; i < rows; ++i) {
        if (i < series->count())
            context.out << series->bar(i).date().toString(QStringLiteral("yyyy-MM-dd"));
        for (const auto &buffer : buffers) {
            context.out << ',';
            if (i < buffer.data.size())
                context.out << formatValue(buffer.data.at(i));
        }
        context.out << '\n';
    }
    return Success;
}

} // namespace Cli
