#include "command.h"
#include "core/language.h"
#include "data/reader.h"
#include "data/readerh.h"
#include "indicatorargs.h"
#include "indicators/indicatorlayer.h"
#include "indicators/script/indicatorfactory.h"
#include "view/chartgeometry.h"
#include "view/chartrenderer.h"
#include "view/chartsession.h"
#include "view/charttemplate.h"
#include "view/drawobjects/drawobjectslayer.h"
#include "view/templatebinding.h"

#include <QCommandLineParser>
#include <QFileInfo>
#include <QSaveFile>

#include <algorithm>
#include <numeric>

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

// The set-up of a template as requests: unknown indicators are reported and left out, and
// so is a pane left without any, together with its height.
struct TemplateSetup
{
    QList<IndicatorRequest> overlays;
    QList<QList<IndicatorRequest>> panes;
    QList<int> heights; // the chart's, then each kept pane's; empty when the file has none
};

TemplateSetup setupOf(const OrdaneView::ChartTemplate &t, Context &context)
{
    TemplateSetup setup;
    const auto known = [&context](const OrdaneView::TemplateIndicator &i) {
        if (context.knowsIndicator(i.name))
            return true;
        context.err << "Unknown indicator: " << i.name << '\n';
        return false;
    };
    const bool sized = t.splitter.size() == t.panes.size() + 1;
    if (sized)
        setup.heights.append(t.splitter.first());
    for (const OrdaneView::TemplateIndicator &i : t.chartIndicators)
        if (known(i))
            setup.overlays.append({i.name, i.parameters, true});
    for (int p = 0; p < t.panes.size(); ++p) {
        QList<IndicatorRequest> pane;
        for (const OrdaneView::TemplateIndicator &i : t.panes.at(p))
            if (known(i))
                pane.append({i.name, i.parameters, true});
        if (pane.isEmpty())
            continue;
        setup.panes.append(pane);
        if (sized)
            setup.heights.append(t.splitter.at(p + 1));
    }
    return setup;
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
    const QCommandLineOption templateOption(QStringLiteral("template"), QString(),
                                            QStringLiteral("TT"));
    parser.addOptions({out, width, height, type, zoom, first, indicator, overlay, templateOption});
    if (!parser.parse(QStringList{QStringLiteral("render")} + args)) {
        context.err << "halcyra-cli render: " << parser.errorText() << '\n';
        return UsageError;
    }
    if (parser.positionalArguments().size() != 1 || !parser.isSet(out)) {
        context.err << "halcyra-cli render: expected one FILE and --out PNG\n";
        return UsageError;
    }

    // The template first: the explicit options below apply on top of it.
    OrdaneView::ChartPicture picture;
    int zoomValue = OrdaneView::ChartGeometry::kDefaultZoom;
    OrdaneView::ChartType chartType = OrdaneView::ChartType::Candle;
    bool colored = true;
    OrdaneView::ChartTemplate setup;
    TemplateSetup fromTemplate;
    const bool templated = parser.isSet(templateOption);
    if (templated) {
        QString error;
        if (!OrdaneView::readTemplateFile(parser.value(templateOption), &setup, &error)) {
            context.err << "halcyra-cli render: " << error << '\n';
            return Failure;
        }
        zoomValue = std::max(setup.zoom, 1);
        chartType = setup.type;
        colored = setup.colored;
        fromTemplate = setupOf(setup, context);
    }

    int w = picture.size.width(), h = picture.size.height();
    if (!readInt(parser, width, 100, w, context.err) ||
        !readInt(parser, height, 60, h, context.err) ||
        !readInt(parser, zoom, 1, zoomValue, context.err) ||
        !readInt(parser, first, 0, picture.first, context.err))
        return UsageError;
    picture.size = QSize(w, h);
    if (parser.isSet(type)) {
        const QString name = parser.value(type);
        bool known = false;
        for (auto t : {OrdaneView::ChartType::Candle, OrdaneView::ChartType::Bar,
                       OrdaneView::ChartType::Line, OrdaneView::ChartType::Empty}) {
            if (name == OrdaneView::chartTypeName(t)) {
                chartType = t;
                known = true;
            }
        }
        if (!known) {
            context.err << "halcyra-cli render: unknown type " << name
                        << " (candle, bar, line or empty)\n";
            return UsageError;
        }
    }

    QList<IndicatorRequest> extraPanes, overlays = fromTemplate.overlays;
    for (const auto &[option, list] :
         {std::pair{&indicator, &extraPanes}, std::pair{&overlay, &overlays}}) {
        for (const QString &text : parser.values(*option)) {
            IndicatorRequest request;
            QString error;
            if (!parseIndicatorRequest(text, request, &error)) {
                context.err << "halcyra-cli render: " << error << '\n';
                return UsageError;
            }
            if (!context.knowsIndicator(request.id)) {
                context.err << "Unknown indicator: " << request.id << '\n';
                return UsageError;
            }
            list->append(request);
        }
    }
    QList<QList<IndicatorRequest>> panes = fromTemplate.panes;
    for (const IndicatorRequest &request : qAsConst(extraPanes))
        panes.append({request});
    picture.heights = fromTemplate.heights;
    if (!picture.heights.isEmpty() && !extraPanes.isEmpty()) {
        // Panes asked for besides the template's get the height of an average one of them.
        const int kept = picture.heights.size() - 1;
        const int extra =
            kept ? std::accumulate(picture.heights.cbegin() + 1, picture.heights.cend(), 0) / kept
                 : picture.heights.first() / 4;
        for (int i = 0; i < extraPanes.size(); ++i)
            picture.heights.append(extra);
    }

    const QString path = context.quoteFile(parser.positionalArguments().constFirst());
    if (path.isEmpty())
        return Failure;
    const OrdaneData::ReaderH series = OrdaneData::ReaderH::create();
    if (!series->loadFile(path)) {
        context.err << "halcyra-cli render: cannot read " << path << '\n';
        return Failure;
    }

    // The same session the chart area shows, so the picture is the program's.
    OrdaneView::IndicatorFactory::install();
    OrdaneView::ChartSession session;
    session.setColors(OrdaneView::ViewColors::load());
    session.setLocale(QMWidgets::interfaceLocale());
    session.setReader(series);
    // A stored symbol's chart comes with the figures drawn on it; a file named by its path
    // has none.
    if (!QFileInfo(parser.positionalArguments().constFirst()).isFile())
        session.drawObjectsLayer()->setSymbol(QFileInfo(path).completeBaseName());
    if (templated) {
        // The frame and look; the indicators are those asked for above, the template's
        // known ones among them.
        OrdaneView::ChartTemplate look = setup;
        look.chartIndicators.clear();
        look.panes.clear();
        OrdaneView::applyTemplate(session, look);
    }
    session.setChartType(chartType);
    session.setColoured(colored);
    session.geometry()->setZoom(zoomValue);
    session.priceLayer()->setLabel(QFileInfo(path).completeBaseName());
    // A name the indicator does not declare is found once it is initialised (a script
    // declares its names in init()); nothing is written then.
    QString unknownParameter;
    const auto add = [&](OrdaneView::ViewCanvas *canvas, const IndicatorRequest &request,
                         bool master) {
        auto *layer = qobject_cast<OrdaneView::IndicatorLayer *>(
            session.addIndicator(canvas, request.id, master, request.params));
        return request.fromTemplate ||
               (layer && declaresParameters(request.id, *layer, request.params, &unknownParameter));
    };
    bool declared = true;
    for (const IndicatorRequest &request : qAsConst(overlays))
        declared = declared && add(session.chart(), request, false);
    for (const QList<IndicatorRequest> &pane : qAsConst(panes)) {
        OrdaneView::ViewCanvas *canvas = session.addPane();
        for (int k = 0; k < pane.size(); ++k)
            declared = declared && add(canvas, pane.at(k), k == 0);
    }
    const QImage image = declared ? OrdaneView::renderChart(session, picture) : QImage();

    if (!unknownParameter.isEmpty()) {
        context.err << "halcyra-cli render: " << unknownParameter << '\n';
        return UsageError;
    }

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
