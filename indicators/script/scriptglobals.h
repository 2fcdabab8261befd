#pragma once

#include <QHash>
#include <QImage>
#include <QObject>
#include <QString>

class QPainter;
class QScriptEngine;

namespace OrdaneView {
namespace Scripts {

// Puts the script interface's constants and free functions into an engine's global object:
// DrawStyle, PenStyle and BrushStyle (each constant also as a function of its name in lower
// camel case), messageBox(...) and output(...). Both functions join their arguments with
// blanks; messageBox shows the text titled `title` (see showMessage), output writes one
// line to the debug output.
void installConstants(QScriptEngine *engine, const QString &title);

// The pictures a script may draw: national flags, planets, zodiac signs and tick marks, as
// resource paths for Painter.drawImage().
class ScriptImage : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QString UpTick READ upTick CONSTANT)
    Q_PROPERTY(QString DownTick READ downTick CONSTANT)

public:
    using QObject::QObject;

    Q_INVOKABLE QString flag(const QString &country) const; // ":/pix/f<country>.bmp"
    Q_INVOKABLE QString planet(const QString &name) const;  // ":/pix/planets/<name>.png"
    Q_INVOKABLE QString zodiac(const QString &name) const;  // ":/pix/zodiacs/<name>.png"
    Q_INVOKABLE QString upTick() const;
    Q_INVOKABLE QString downTick() const;
};

// Drawing for a script's draw(): the painter of the view being painted, bound only while
// draw() runs; outside that every call does nothing. Coordinates are pixels of the plot,
// colours are colour texts such as "#00FF00", angles are in 1/16 degree.
class ScriptPainter : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    void bind(QPainter *painter);
    void unbind() { bind(nullptr); }

    Q_INVOKABLE void drawLine(int x1, int y1, int x2, int y2);
    Q_INVOKABLE void setPenColor(const QString &colour);
    Q_INVOKABLE void setPenStyle(int style);
    Q_INVOKABLE void setPenWidth(int width);
    Q_INVOKABLE void setPen(const QString &colour, int width, int style);
    Q_INVOKABLE void setBrushColor(const QString &colour);
    Q_INVOKABLE void setBrushStyle(int style);
    Q_INVOKABLE void setBrush(const QString &colour, int style);
    Q_INVOKABLE void drawChord(int x1, int y1, int x2, int y2, int startAngle, int spanAngle);
    Q_INVOKABLE void drawPie(int x1, int y1, int x2, int y2, int startAngle, int spanAngle);
    Q_INVOKABLE void drawRect(int x1, int y1, int x2, int y2);
    Q_INVOKABLE void drawEllipse(int x1, int y1, int x2, int y2);
    Q_INVOKABLE void drawRoundRect(int x1, int y1, int x2, int y2, int xRadius, int yRadius);
    Q_INVOKABLE void drawPoint(int x, int y);
    Q_INVOKABLE void drawImage(int x1, int y1, int x2, int y2, const QString &image);
    Q_INVOKABLE void drawImage(int x, int y, const QString &image);
    Q_INVOKABLE void drawText(int x1, int y1, int x2, int y2, const QString &text);
    Q_INVOKABLE void drawText(int x, int y, const QString &text);
    Q_INVOKABLE void setFontSize(int points);
    Q_INVOKABLE void setOpacity(float opacity);
    Q_INVOKABLE void setBrushTextureImage(const QString &image);

private:
    QImage image(const QString &path);

    QPainter *mPainter = nullptr;
    QHash<QString, QImage> mImages;
};

} // namespace Scripts
} // namespace OrdaneView
