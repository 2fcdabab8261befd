#pragma once

#include <QColor>
#include <QToolButton>

namespace QMWidgets {

// A button showing a colour swatch; a click opens the colour dialog. An invalid colour
// shows as a crossed swatch.
class ColorButton : public QToolButton
{
    Q_OBJECT

public:
    explicit ColorButton(QWidget *parent = nullptr);

    QColor color() const { return mColor; }
    // Shows the colour without emitting colorChanged().
    void setColor(const QColor &color);

signals:
    void colorChanged(const QColor &color);

private:
    void choose();
    void updateSwatch();

    QColor mColor;
};

} // namespace QMWidgets
