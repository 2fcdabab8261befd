#include "viewcolors.h"

#include "core/setting.h"

#include <QVariant>

#include <algorithm>
#include <cmath>

namespace OrdaneView {

namespace {

struct Entry
{
    const char *key;
    QColor ViewColors::*member; // null for ThreeD
};

const Entry kEntries[ViewColors::ParameterCount] = {
    {"Line", &ViewColors::line},
    {"ThreeD", nullptr},
    {"UpBar", &ViewColors::upBar},
    {"DownBar", &ViewColors::downBar},
    {"UpCandle", &ViewColors::upCandle},
    {"DownCandle", &ViewColors::downCandle},
    {"UpCandleBorder", &ViewColors::upCandleBorder},
    {"DownCandleBorder", &ViewColors::downCandleBorder},
    {"Label", &ViewColors::label},
    {"MarginBackground", &ViewColors::marginBackground},
    {"MarginBackground2", &ViewColors::marginBackground2},
    {"MarginNumbers", &ViewColors::marginNumbers},
    {"Grid", &ViewColors::grid},
    {"Background", &ViewColors::background},
};

// One scheme as a row of colours in parameter order (the ThreeD slot is a placeholder).
ViewColors fromRow(const QColor (&row)[ViewColors::ParameterCount], bool threeD)
{
    ViewColors c;
    for (int i = 0; i < ViewColors::ParameterCount; ++i)
        if (kEntries[i].member)
            c.*kEntries[i].member = row[i];
    c.threeD = threeD;
    return c;
}

} // namespace

QString ViewColors::key(Parameter p)
{
    return QStringLiteral("ViewParameters/") + QLatin1String(kEntries[p].key);
}

QColor ViewColors::color(Parameter p) const
{
    return kEntries[p].member ? this->*kEntries[p].member : QColor();
}

void ViewColors::setColor(Parameter p, const QColor &c)
{
    if (kEntries[p].member)
        this->*kEntries[p].member = c;
}

ViewColors ViewColors::fallback()
{
    return scheme(Default);
}

ViewColors ViewColors::scheme(Scheme s)
{
    const QColor sky(0, 191, 255), pink(255, 192, 192), maroon(64, 0, 0);
    const QColor salmon(255, 128, 128), crimson(192, 0, 0), green(0, 255, 0);
    const QColor red(Qt::red), white(Qt::white), black(Qt::black), grey(Qt::lightGray);
    const QColor none;
    switch (s) {
    case Default:
        return fromRow({sky, none, sky, red, sky, red, sky, red, white, black, QColor(80, 80, 80),
                        white, QColor(37, 37, 37), black},
                       true);
    case BlackOnWhite:
        return fromRow({black, none, black, black, white, black, black, black, black, white, grey,
                        black, grey, white},
                       false);
    case Pink:
        return fromRow({pink, none, pink, maroon, pink, maroon, maroon, maroon, pink, crimson,
                        salmon, pink, salmon, crimson},
                       false);
    case Matrix:
        return fromRow({green, none, green, green, black, green, white, green, white, black, black,
                        white, QColor(64, 64, 64), black},
                       false);
    }
    return fromRow({}, true);
}

namespace {
// A colour parameter's key with no default: an empty text means the fallback.
QMWidgets::Setting<QString> stored(ViewColors::Parameter p)
{
    return {ViewColors::key(p), QString()};
}
} // namespace

ViewColors ViewColors::load()
{
    const ViewColors fb = fallback();
    ViewColors c = fb;
    for (int i = 0; i < ParameterCount; ++i) {
        const auto p = Parameter(i);
        const QString text = stored(p).value();
        if (p == ThreeD)
            c.threeD = text.isEmpty() ? fb.threeD : QVariant(text).toBool();
        else
            c.setColor(p, text.isEmpty() ? fb.color(p) : QColor(text));
    }
    return c;
}

void ViewColors::save() const
{
    for (int i = 0; i < ParameterCount; ++i) {
        const auto p = Parameter(i);
        if (p == ThreeD)
            QMWidgets::Setting<bool>{key(p), true}.setValue(threeD);
        else
            stored(p).setValue(color(p).name());
    }
}

void ViewColors::resetToDefault()
{
    const auto put = [](Parameter p, Qt::GlobalColor c) {
        stored(p).setValue(QColor(c).name());
    };
    put(Line, Qt::white);
    put(UpBar, Qt::blue);
    put(DownBar, Qt::red);
    put(UpCandle, Qt::blue);
    put(DownCandle, Qt::red);
    put(UpCandleBorder, Qt::blue);
    put(DownCandleBorder, Qt::red);
    put(Label, Qt::yellow);
    put(MarginBackground, Qt::cyan);
    put(MarginBackground2, Qt::black);
    put(MarginNumbers, Qt::cyan);
    put(Grid, Qt::lightGray);
    put(Background, Qt::darkBlue);
    QMWidgets::Setting<bool>{key(ThreeD), true}.setValue(true);
}

double ViewColors::contrast(const QColor &a, const QColor &b)
{
    // Relative luminance of sRGB, as WCAG 2 defines it.
    const auto luminance = [](const QColor &c) {
        const auto channel = [](double v) {
            return v <= 0.03928 ? v / 12.92 : std::pow((v + 0.055) / 1.055, 2.4);
        };
        return 0.2126 * channel(c.redF()) + 0.7152 * channel(c.greenF()) +
               0.0722 * channel(c.blueF());
    };
    const double la = luminance(a), lb = luminance(b);
    return (std::max(la, lb) + 0.05) / (std::min(la, lb) + 0.05);
}

ViewColors ViewColors::onBackground(const QColor &newBackground) const
{
    // Below this ratio a thin line or small text is hard to make out.
    constexpr double kReadable = 1.8;
    ViewColors c = *this;
    c.background = newBackground;
    if (!newBackground.isValid() || newBackground == background)
        return c;
    // The grid is meant to be faint, so it is left as it is.
    for (Parameter p :
         {Line, UpBar, DownBar, UpCandle, DownCandle, UpCandleBorder, DownCandleBorder, Label}) {
        const QColor old = color(p);
        if (!old.isValid())
            continue;
        if (old == background) {
            c.setColor(p, newBackground);
        } else if (contrast(old, newBackground) < kReadable) {
            const QColor hsl = old.toHsl();
            QColor flipped = QColor::fromHslF(std::max(hsl.hslHueF(), 0.0), hsl.hslSaturationF(),
                                              1.0 - hsl.lightnessF(), hsl.alphaF());
            // A colour of middle lightness stays near the middle when flipped.
            if (contrast(flipped, newBackground) < kReadable)
                flipped = contrast(Qt::white, newBackground) > contrast(Qt::black, newBackground)
                              ? QColor(Qt::white)
                              : QColor(Qt::black);
            c.setColor(p, flipped);
        }
    }
    return c;
}

bool ViewColors::operator==(const ViewColors &o) const
{
    for (int i = 0; i < ParameterCount; ++i)
        if (color(Parameter(i)) != o.color(Parameter(i)))
            return false;
    return threeD == o.threeD;
}

} // namespace OrdaneView
