#include "scriptglobals.h"

#include "scriptmessages.h"

#include <QDebug>
#include <QPainter>
#include <QRect>
#include <QScriptContext>
#include <QScriptEngine>

namespace OrdaneView {
namespace Scripts {

namespace {
struct Constant
{
    const char *name;
    int value;
};

// An object with the constants as properties and, for each, a function named like it in
// lower camel case that returns it (DrawStyle.LINE and DrawStyle.line()).
QScriptValue constants(QScriptEngine *engine, std::initializer_list<Constant> list,
                       std::initializer_list<Constant> functionsOnly = {})
{
    QScriptValue object = engine->newObject();
    const auto addFunction = [&](const QString &name, int value) {
        QScriptValue f = engine->newFunction(
            [](QScriptContext *context, QScriptEngine *) { return context->callee().data(); });
        f.setData(value);
        object.setProperty(name, f);
    };
    for (const Constant &c : list) {
        const QString name = QLatin1String(c.name);
        object.setProperty(name, c.value, QScriptValue::ReadOnly | QScriptValue::Undeletable);
        // LINE -> line, SolidLine -> solidLine, Dense1Pattern -> dense1Pattern.
        QString function = name.at(0).toLower() + name.mid(1);
        if (name == name.toUpper())
            function = name.toLower();
        addFunction(function, c.value);
    }
    for (const Constant &c : functionsOnly)
        addFunction(QLatin1String(c.name), c.value);
    return object;
}

QString joined(QScriptContext *context)
{
    QStringList parts;
    for (int i = 0; i < context->argumentCount(); ++i)
        parts << context->argument(i).toString();
    return parts.join(QLatin1Char(' '));
}
} // namespace

void installConstants(QScriptEngine *engine, const QString &title)
{
    QScriptValue global = engine->globalObject();
    global.setProperty(QStringLiteral("DrawStyle"),
                       constants(engine, {{"LINE", 0}, {"HISTOGRAM", 1}, {"POINTS", 2}}));
    global.setProperty(QStringLiteral("PenStyle"),
                       constants(engine, {{"NoPen", Qt::NoPen},
                                          {"SolidLine", Qt::SolidLine},
                                          {"DashLine", Qt::DashLine},
                                          {"DotLine", Qt::DotLine},
                                          {"DashDotLine", Qt::DashDotLine},
                                          {"DashDotDotLine", Qt::DashDotDotLine},
                                          {"CustomDashLine", Qt::CustomDashLine}}));
    global.setProperty(QStringLiteral("BrushStyle"),
                       constants(engine, {{"NoBrush", Qt::NoBrush},
                                          {"SolidPattern", Qt::SolidPattern},
                                          {"Dense1Pattern", Qt::Dense1Pattern},
                                          {"Dense2Pattern", Qt::Dense2Pattern},
                                          {"Dense3Pattern", Qt::Dense3Pattern},
                                          {"Dense4Pattern", Qt::Dense4Pattern},
                                          {"Dense5Pattern", Qt::Dense5Pattern},
                                          {"Dense6Pattern", Qt::Dense6Pattern},
                                          {"Dense7Pattern", Qt::Dense7Pattern},
                                          {"HorPattern", Qt::HorPattern},
                                          {"VerPattern", Qt::VerPattern},
                                          {"CrossPattern", Qt::CrossPattern},
                                          {"BDiagPattern", Qt::BDiagPattern},
                                          {"FDiagPattern", Qt::FDiagPattern},
                                          {"DiagCrossPattern", Qt::DiagCrossPattern},
                                          {"LinearGradientPattern", Qt::LinearGradientPattern},
                                          {"ConicalGradientPattern", Qt::ConicalGradientPattern},
                                          {"RadialGradientPattern", Qt::RadialGradientPattern},
                                          {"TexturePattern", Qt::TexturePattern}}));

    QScriptValue box = engine->newFunction([](QScriptContext *context, QScriptEngine *) {
        showMessage(Severity::Information, context->callee().data().toString(), joined(context));
        return QScriptValue();
    });
    box.setData(title);
    global.setProperty(QStringLiteral("messageBox"), box);
    global.setProperty(QStringLiteral("output"),
                       engine->newFunction([](QScriptContext *context, QScriptEngine *) {
                           qCInfo(lcScript).noquote() << joined(context);
                           return QScriptValue();
                       }));
}

QString ScriptImage::flag(const QString &country) const
{
    return QStringLiteral(":/pix/f%1.bmp").arg(country);
}

QString ScriptImage::planet(const QString &name) const
{
    return QStringLiteral(":/pix/planets/%1.png").arg(name);
}

QString ScriptImage::zodiac(const QString &name) const
{
    return QStringLiteral(":/pix/zodiacs/%1.png").arg(name);
}

QString ScriptImage::upTick() const
{
    return QStringLiteral(":/pix/uptick.png");
}

QString ScriptImage::downTick() const
{
    return QStringLiteral(":/pix/downtick.png");
}

void ScriptPainter::bind(QPainter *painter)
{
    if (mPainter)
        mPainter->restore();
    mPainter = painter;
    // Whatever the script changes stays within its own draw().
    if (mPainter)
        mPainter->save();
}

QImage ScriptPainter::image(const QString &path)
{
    auto it = mImages.find(path);
    if (it == mImages.end())
        it = mImages.insert(path, QImage(path));
    return it.value();
}

void ScriptPainter::drawLine(int x1, int y1, int x2, int y2)
{
    if (mPainter)
        mPainter->drawLine(x1, y1, x2, y2);
}

void ScriptPainter::setPenColor(const QString &colour)
{
    if (!mPainter)
        return;
    QPen pen = mPainter->pen();
    pen.setColor(QColor(colour));
    mPainter->setPen(pen);
}

void ScriptPainter::setPenStyle(int style)
{
    if (!mPainter)
        return;
    QPen pen = mPainter->pen();
    pen.setStyle(Qt::PenStyle(std::clamp(style, 0, int(Qt::CustomDashLine))));
    mPainter->setPen(pen);
}

void ScriptPainter::setPenWidth(int width)
{
    if (!mPainter)
        return;
    QPen pen = mPainter->pen();
    pen.setWidth(std::clamp(width, 0, 100));
    mPainter->setPen(pen);
}

void ScriptPainter::setPen(const QString &colour, int width, int style)
{
    setPenColor(colour);
    setPenWidth(width);
    setPenStyle(style);
}

void ScriptPainter::setBrushColor(const QString &colour)
{
    if (!mPainter)
        return;
    QBrush brush = mPainter->brush();
    brush.setColor(QColor(colour));
    if (brush.style() == Qt::NoBrush)
        brush.setStyle(Qt::SolidPattern);
    mPainter->setBrush(brush);
}

void ScriptPainter::setBrushStyle(int style)
{
    if (!mPainter)
        return;
    QBrush brush = mPainter->brush();
    // Gradients and textures need more than a style; those are left to their own calls.
    const auto s = Qt::BrushStyle(std::clamp(style, 0, int(Qt::DiagCrossPattern)));
    brush.setStyle(s);
    mPainter->setBrush(brush);
}

void ScriptPainter::setBrush(const QString &colour, int style)
{
    setBrushColor(colour);
    setBrushStyle(style);
}

void ScriptPainter::drawChord(int x1, int y1, int x2, int y2, int startAngle, int spanAngle)
{
    if (mPainter)
        mPainter->drawChord(QRect(QPoint(x1, y1), QPoint(x2, y2)), startAngle, spanAngle);
}

void ScriptPainter::drawPie(int x1, int y1, int x2, int y2, int startAngle, int spanAngle)
{
    if (mPainter)
        mPainter->drawPie(QRect(QPoint(x1, y1), QPoint(x2, y2)), startAngle, spanAngle);
}

void ScriptPainter::drawRect(int x1, int y1, int x2, int y2)
{
    if (mPainter)
        mPainter->drawRect(QRect(QPoint(x1, y1), QPoint(x2, y2)));
}

void ScriptPainter::drawEllipse(int x1, int y1, int x2, int y2)
{
    if (mPainter)
        mPainter->drawEllipse(QRect(QPoint(x1, y1), QPoint(x2, y2)));
}

void ScriptPainter::drawRoundRect(int x1, int y1, int x2, int y2, int xRadius, int yRadius)
{
    if (mPainter)
        mPainter->drawRoundedRect(QRect(QPoint(x1, y1), QPoint(x2, y2)), xRadius, yRadius);
}

void ScriptPainter::drawPoint(int x, int y)
{
    if (mPainter)
        mPainter->drawPoint(x, y);
}

void ScriptPainter::drawImage(int x1, int y1, int x2, int y2, const QString &path)
{
    if (mPainter)
        mPainter->drawImage(QRect(QPoint(x1, y1), QPoint(x2, y2)), image(path));
}

void ScriptPainter::drawImage(int x, int y, const QString &path)
{
    if (mPainter)
        mPainter->drawImage(x, y, image(path));
}

void ScriptPainter::drawText(int x1, int y1, int x2, int y2, const QString &text)
{
    if (mPainter)
        mPainter->drawText(QRect(QPoint(x1, y1), QPoint(x2, y2)), Qt::AlignCenter, text);
}

void ScriptPainter::drawText(int x, int y, const QString &text)
{
    if (mPainter)
        mPainter->drawText(x, y, text);
}

void ScriptPainter::setFontSize(int points)
{
    if (!mPainter)
        return;
    QFont font = mPainter->font();
    font.setPointSize(std::clamp(points, 1, 200));
    mPainter->setFont(font);
}

void ScriptPainter::setOpacity(float opacity)
{
    if (mPainter)
        mPainter->setOpacity(std::clamp(double(opacity), 0.0, 1.0));
}

void ScriptPainter::setBrushTextureImage(const QString &path)
{
    if (!mPainter)
        return;
    QBrush brush = mPainter->brush();
    brush.setTextureImage(image(path));
    mPainter->setBrush(brush);
}

} // namespace Scripts
} // namespace OrdaneView
