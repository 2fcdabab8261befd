#include "viewcolors.h"

#include <QSettings>

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

ViewColors ViewColors::load()
{
    const ViewColors fb = fallback();
    ViewColors c = fb;
    QSettings settings;
    for (int i = 0; i < ParameterCount; ++i) {
        const auto p = Parameter(i);
        const QVariant v = settings.value(key(p));
        if (p == ThreeD) {
            c.threeD = v.isValid() && !v.toString().isEmpty() ? v.toBool() : fb.threeD;
            continue;
        }
        const QString text = v.toString();
        c.setColor(p, text.isEmpty() ? fb.color(p) : QColor(text));
    }
    return c;
}

void ViewColors::save() const
{
    QSettings settings;
    for (int i = 0; i < ParameterCount; ++i) {
        const auto p = Parameter(i);
        if (p == ThreeD)
            settings.setValue(key(p), threeD);
        else
            settings.setValue(key(p), color(p).name());
    }
}

void ViewColors::resetToDefault()
{
    QSettings settings;
    const auto put = [&](Parameter p, Qt::GlobalColor c) {
        settings.setValue(key(p), QColor(c).name());
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
    settings.setValue(key(ThreeD), true);
}

bool ViewColors::operator==(const ViewColors &o) const
{
    for (int i = 0; i < ParameterCount; ++i)
        if (color(Parameter(i)) != o.color(Parameter(i)))
            return false;
    return threeD == o.threeD;
}

} // namespace OrdaneView
