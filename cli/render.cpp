#include "command.h"
#include "data/reader.h"
#include "data/readerh.h"
#include "indicatorargs.h"
#include "indicators/catalogue.h"
#include "indicators/indicatorlayer.h"
#include "view/chartrenderer.h"
#include "widgets/language.h"

#include <QCommandLineParser>
#include <QFileInfo>
#include <QSaveFile>

namespace Cli {

namespace {
bool readInt(const QCommandLineParser &parser, const QCommandLineOption &option, int minimum,
             int &value, QTextStream &err)
{
    if (!parser.isSet(option))
        return true;
    bool ok = false;
    value = parser.value(option).toInt(&ok);
    if (!ok || value < minimum) {
        err << "halcyra-cli render: --" << option.names().constFirst()
            << " needs a whole number of at least " << minimum << '\n';
        return false;
    }
    return true;
}
} // namespace

int runRender(const QStringList &args, Context &context)
{
    QCommandLineParser parser;
    parser.setSingleDashWordOptionMode(QCommandLineParser::ParseAsLongOptions);
    const QCommandLineOption out(QStringLiteral("out"), QString(), QStringLiteral("PNG"));
    const QCommandLineOption width(QStringLiteral("width"), QString(), QStringLiteral("W"));
    const QCommandLineOption height(QStringLiteral("height"), QString(), QStringLiteral("H"));
    const QCommandLineOption type(QStringLiteral("type"), QString(), QStringLiteral("type"));
    const QCommandLineOption zoom(QStringLiteral("zoom"), QString(), QStringLiteral("Z"));
    const QCommandLineOption first(QStringLiteral("first"), QString(), QStringLiteral("N"));
    const QCommandLineOption indicator(QStringLiteral("indicator"), QString(),
                                       QStringLiteral("ID[:NAME=VALUE,...]"));
    const QCommandLineOption overlay(QStringLiteral("overlay"), QString(),
                                     QStringLiteral("ID[:NAME=VALUE,...]"));
    parser.addOptions({out, width, height, type, zoom, first, indicator, overlay});
    if (!parser.parse(QStringList{QStringLiteral("render")} + args)) {
        context.err << "halcyra-cli render: " << parser.errorText() << '\n';
        return UsageError;
    }
    if (parser.positionalArguments().size() != 1 || !parser.isSet(out)) {
        context.err << "halcyra-cli render: expected one FILE and --out PNG\n";
        return UsageError;
    }

    OrdaneView::ChartPicture picture;
    int w = picture.size.width(), h = picture.size.height();
    if (!readInt(parser, width, 100, w, context.err) ||
        !readInt(parser, height, 60, h, context.err) ||
        !readInt(parser, zoom, 1, picture.zoom, context.err) ||
        !readInt(parser, first, 0, picture.first, context.err))
        return UsageError;
    picture.size = QSize(w, h);
    if (parser.isSet(type)) {
        const QString name = parser.value(type);
        bool known = false;
        for (auto t : {OrdaneView::ChartType::Candle, OrdaneView::ChartType::Bar,
                       OrdaneView::ChartType::Line, OrdaneView::ChartType::Empty}) {
            if (name == OrdaneView::chartTypeName(t)) {
                picture.type = t;
                known = true;
            }
        }
        if (!known) {
            context.err << "halcyra-cli render: unknown type " << name
                        << " (candle, bar, line or empty)\n";
            return UsageError;
        }
    }

    QList<IndicatorRequest> panes, overlays;
    for (const auto &[option, list] :
         {std::pair{&indicator, &panes}, std::pair{&overlay, &overlays}}) {
        for (const QString &text : parser.values(*option)) {
            IndicatorRequest request;
            QString error;
            if (!parseIndicatorRequest(text, request, &error)) {
                context.err << "halcyra-cli render: " << error << '\n';
                return UsageError;
            }
            if (!OrdaneView::findIndicator(request.id)) {
                context.err << "Unknown indicator: " << request.id << '\n';
                return UsageError;
            }
            list->append(request);
        }
    }
    picture.panes = panes.size();

    const QString path = context.quoteFile(parser.positionalArguments().constFirst());
    if (path.isEmpty())
        return Failure;
    const OrdaneData::ReaderH series = OrdaneData::ReaderH::create();
    if (!series->loadFile(path)) {
        context.err << "halcyra-cli render: cannot read " << path << '\n';
        return Failure;
    }

    picture.label = QFileInfo(path).completeBaseName();
    picture.colors = OrdaneView::ViewColors::load();
    picture.locale = QMWidgets::interfaceLocale();
    const auto add = [](OrdaneView::ViewCanvas &canvas, const IndicatorRequest &request,
                        bool master) {
        OrdaneView::IndicatorLayer *layer =
            OrdaneView::createIndicator(request.id, canvas.reader(), &canvas);
        for (auto it = request.params.cbegin(); it != request.params.cend(); ++it)
            layer->setParameter(it.key(), it.value());
        canvas.addLayer(layer);
        if (master)
            canvas.setMasterLayer(layer);
        layer->init();
        layer->start();
    };
    const QImage image = OrdaneView::renderChart(
        series, picture,
        [&](OrdaneView::ViewCanvas &chart, const QList<OrdaneView::ViewCanvas *> &paneCanvases) {
            for (const IndicatorRequest &request : qAsConst(overlays))
                add(chart, request, false);
            for (int i = 0; i < panes.size(); ++i)
                add(*paneCanvases.at(i), panes.at(i), true);
        });

    QSaveFile file(parser.value(out));
    if (!file.open(QIODevice::WriteOnly) || !image.save(&file, "PNG") || !file.commit()) {
        context.err << "halcyra-cli render: cannot write " << parser.value(out) << ": "
                    << file.errorString() << '\n';
        return Failure;
    }
    context.out << "wrote " << parser.value(out) << " (" << w << " x " << h << ", "
                << series->count() << " bars)\n";
    return Success;
}

} // namespace Cli
