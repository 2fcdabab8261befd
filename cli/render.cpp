#include "command.h"
#include "data/reader.h"
#include "data/readerh.h"
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
    parser.addOptions({out, width, height, type, zoom, first});
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
    const QImage image = OrdaneView::renderChart(series, picture);

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
