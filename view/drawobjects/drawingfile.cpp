#include "drawingfile.h"

#include "data/home.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSaveFile>

#include <charconv>
#include <iterator>

namespace OrdaneView {
namespace DrawingFile {

namespace {
// Indexed by DrawObject::Type; the saved form's names, never translated.
const char *const kTypeKeys[] = {"line", "ray", "arc", "ellipse", "rect", "triangle"};
static_assert(std::size(kTypeKeys) == DrawObject::kTypeCount);

const struct
{
    Qt::PenStyle style;
    const char *key;
} kStyles[] = {
    {Qt::SolidLine, "solid"},
    {Qt::DashLine, "dash"},
    {Qt::DotLine, "dot"},
    {Qt::DashDotLine, "dashdot"},
    {Qt::DashDotDotLine, "dashdotdot"},
};

const QString kDateFormat = QStringLiteral("yyyy-MM-dd");
constexpr int kVersion = 1;
constexpr double kMaxWidth = 20;

QString styleKey(Qt::PenStyle style)
{
    for (const auto &s : kStyles)
        if (s.style == style)
            return QLatin1String(s.key);
    return QStringLiteral("solid");
}

Qt::PenStyle styleOf(const QString &key)
{
    for (const auto &s : kStyles)
        if (key == QLatin1String(s.key))
            return s.style;
    return Qt::SolidLine;
}

// The price as the shortest decimal that reads back as the same float, so that the file says
// 30.1 rather than the double nearest to the float, 30.100000381469727.
double shortest(float price)
{
    char text[32];
    const std::to_chars_result end = std::to_chars(text, text + sizeof text, price);
    return QByteArray(text, int(end.ptr - text)).toDouble();
}

void setError(QString *error, const QString &text)
{
    if (error)
        *error = text;
}

std::unique_ptr<DrawObject> readFigure(const QJsonObject &json)
{
    const QString key = json.value(QStringLiteral("type")).toString();
    int type = -1;
    for (int i = 0; i < DrawObject::kTypeCount; ++i)
        if (key == QLatin1String(kTypeKeys[i]))
            type = i;
    const QJsonArray anchors = json.value(QStringLiteral("anchors")).toArray();
    if (type < 0 || anchors.size() != 2)
        return nullptr;
    auto figure = DrawObject::create(DrawObject::Type(type));
    for (int i = 0; i < 2; ++i) {
        const QJsonObject a = anchors.at(i).toObject();
        const QDate date =
            QDate::fromString(a.value(QStringLiteral("date")).toString(), kDateFormat);
        const QJsonValue price = a.value(QStringLiteral("price"));
        if (!date.isValid() || !price.isDouble())
            return nullptr;
        figure->setAnchor(i, {QDateTime(date, QTime(0, 0)), float(price.toDouble())});
    }
    const QColor color(json.value(QStringLiteral("color")).toString());
    if (color.isValid())
        figure->setColor(color);
    const double width = json.value(QStringLiteral("width")).toDouble();
    if (width > 0 && width <= kMaxWidth)
        figure->setWidth(width);
    figure->setPenStyle(styleOf(json.value(QStringLiteral("style")).toString()));
    return figure;
}
} // namespace

QString folder()
{
    const QString home = OrdaneData::Home::path();
    return home.isEmpty() ? QString() : home + QStringLiteral("/Drawings");
}

QString pathFor(const QString &symbol)
{
    if (symbol.isEmpty() || folder().isEmpty())
        return QString();
    QString name = symbol;
    for (const QChar c : {QLatin1Char('/'), QLatin1Char('\\'), QLatin1Char(':')})
        name.replace(c, QLatin1Char('_'));
    return folder() + QLatin1Char('/') + name + QStringLiteral(".json");
}

bool write(QIODevice *device, const QList<DrawObject *> &objects, QString *error)
{
    QJsonArray figures;
    for (const DrawObject *object : objects) {
        QJsonArray anchors;
        for (int i = 0; i < 2; ++i) {
            const Anchor a = object->anchor(i);
            anchors.append(
                QJsonObject{{QStringLiteral("date"), a.date.date().toString(kDateFormat)},
                            {QStringLiteral("price"), shortest(a.price)}});
        }
        figures.append(QJsonObject{
            {QStringLiteral("type"), QLatin1String(kTypeKeys[object->type()])},
            {QStringLiteral("color"), object->color().name()},
            {QStringLiteral("width"), double(object->width())},
            {QStringLiteral("style"), styleKey(object->penStyle())},
            {QStringLiteral("anchors"), anchors},
        });
    }
    const QJsonObject root{{QStringLiteral("version"), kVersion},
                           {QStringLiteral("figures"), figures}};
    const QByteArray text = QJsonDocument(root).toJson(QJsonDocument::Indented);
    if (device->write(text) != text.size()) {
        setError(error, device->errorString());
        return false;
    }
    return true;
}

bool read(QIODevice *device, std::vector<std::unique_ptr<DrawObject>> *objects, QString *error,
          int *skipped)
{
    QJsonParseError parse;
    const QJsonDocument document = QJsonDocument::fromJson(device->readAll(), &parse);
    if (parse.error != QJsonParseError::NoError) {
        setError(error,
                 QCoreApplication::translate("OrdaneView::DrawingFile", "not a drawing file: %1")
                     .arg(parse.errorString()));
        return false;
    }
    const QJsonValue list = document.object().value(QStringLiteral("figures"));
    if (!list.isArray()) {
        setError(error, QCoreApplication::translate("OrdaneView::DrawingFile",
                                                    "not a drawing file: no list of figures"));
        return false;
    }
    int left = 0;
    for (const QJsonValue &value : list.toArray()) {
        if (auto figure = readFigure(value.toObject()))
            objects->push_back(std::move(figure));
        else
            ++left;
    }
    if (skipped)
        *skipped = left;
    return true;
}

bool save(const QString &symbol, const QList<DrawObject *> &objects, QString *error)
{
    const QString path = pathFor(symbol);
    if (path.isEmpty()) {
        setError(error, QCoreApplication::translate("OrdaneView::DrawingFile",
                                                    "no symbol to keep the figures for"));
        return false;
    }
    if (objects.isEmpty()) {
        QFile file(path);
        if (file.exists() && !file.remove()) {
            setError(error, QStringLiteral("%1: %2").arg(path, file.errorString()));
            return false;
        }
        return true;
    }
    QDir().mkpath(folder());
    QSaveFile file(path);
    QString why;
    if (!file.open(QIODevice::WriteOnly) || !write(&file, objects, &why) || !file.commit()) {
        setError(error,
                 QStringLiteral("%1: %2").arg(path, why.isEmpty() ? file.errorString() : why));
        return false;
    }
    return true;
}

bool load(const QString &symbol, std::vector<std::unique_ptr<DrawObject>> *objects, QString *error,
          int *skipped)
{
    if (skipped)
        *skipped = 0;
    const QString path = pathFor(symbol);
    if (path.isEmpty() || !QFile::exists(path))
        return true;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        setError(error, QStringLiteral("%1: %2").arg(path, file.errorString()));
        return false;
    }
    QString why;
    if (!read(&file, objects, &why, skipped)) {
        setError(error, QStringLiteral("%1: %2").arg(path, why));
        return false;
    }
    return true;
}

} // namespace DrawingFile
} // namespace OrdaneView
