#pragma once

#include <QColor>
#include <QString>

namespace OrdaneView {

// The view parameters: the colours of the charts and the 3D flag, kept in the settings
// store under "ViewParameters/...". Colours are stored as their name text (#rrggbb); an
// empty or missing text reads as the fallback, and a text that names no colour reads as
// an invalid colour (it is not replaced by the fallback).
struct ViewColors
{
    enum Scheme { Default, BlackOnWhite, Pink, Matrix };

    // The fourteen parameters in their page order.
    enum Parameter {
        Line,
        ThreeD,
        UpBar,
        DownBar,
        UpCandle,
        DownCandle,
        UpCandleBorder,
        DownCandleBorder,
        Label,
        MarginBackground,
        MarginBackground2,
        MarginNumbers,
        Grid,
        Background,
        ParameterCount
    };

    QColor line;
    bool threeD = true;
    QColor upBar;
    QColor downBar;
    QColor upCandle;
    QColor downCandle;
    QColor upCandleBorder;
    QColor downCandleBorder;
    QColor label;
    QColor marginBackground;
    QColor marginBackground2;
    QColor marginNumbers;
    QColor grid;
    QColor background;

    // The settings key of a parameter, such as "ViewParameters/UpBar".
    static QString key(Parameter p);

    // A colour parameter by index (ThreeD has none).
    QColor color(Parameter p) const;
    void setColor(Parameter p, const QColor &c);

    // The values every missing key falls back to: the default scheme.
    static ViewColors fallback();
    static ViewColors scheme(Scheme s);

    // Reads the settings store; missing or empty keys give the fallback.
    static ViewColors load();
    // Writes all fourteen parameters.
    void save() const;

    // Writes the reset palette (white line, blue and red bars and candles, yellow labels,
    // cyan scale, dark blue background, 3D on) straight into the settings store. It is a
    // palette of its own, not the default scheme.
    static void resetToDefault();

    // These colours on another plot background, kept readable: what was painted in the old
    // background colour (hollow candle bodies) takes the new one, and every other colour
    // painted on the plot (lines, bars, candle bodies, wicks and borders, labels, grid) that
    // would be hard to tell from the new background takes its opposite lightness. The scale
    // strip keeps its colours; it has a background of its own.
    ViewColors onBackground(const QColor &background) const;
    // WCAG's contrast ratio of two colours: 1 (the same lightness) to 21 (black on white).
    static double contrast(const QColor &a, const QColor &b);

    bool operator==(const ViewColors &o) const;
    bool operator!=(const ViewColors &o) const { return !(*this == o); }
};

} // namespace OrdaneView
