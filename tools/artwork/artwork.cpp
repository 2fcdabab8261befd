// Paints Halcyra's pictures: the window icon, the splash screen and the small pictures
// the style sheet refers to.
//
//   QT_QPA_PLATFORM=offscreen artwork RESOURCES_DIR
//
// writes RESOURCES_DIR/app.png, RESOURCES_DIR/appsplash.png, RESOURCES_DIR/HCStyle/
// lowres/*.png and the pictures under RESOURCES_DIR/pix, among them the tick marks and the
// planet and zodiac symbols scripts draw (pix/planets, pix/zodiacs; their glyphs come from
// DejaVu Sans, which must be installed), the bull's and bear's heads of the observer lists
// and the flags (flags.cpp). The palette is the style
// sheet's: deep slate surfaces, teal for rising bars, coral for falling ones, amber for the
// average line.

#include "flags.h"

#include <QDir>
#include <QFont>
#include <QFontInfo>
#include <QFontMetricsF>
#include <QGuiApplication>
#include <QImage>
#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>
#include <QRadialGradient>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <functional>
#include <iterator>
#include <utility>
#include <vector>

namespace {

const QColor kDeep(0x0e, 0x15, 0x1e);
const QColor kSurface(0x17, 0x22, 0x2f);
const QColor kRaised(0x22, 0x31, 0x42);
const QColor kText(0xdf, 0xe5, 0xec);
const QColor kMuted(0x8d, 0x9a, 0xa8);
const QColor kTeal(0x2f, 0xbf, 0xa8);
const QColor kCoral(0xe5, 0x64, 0x6b);
const QColor kAmber(0xf2, 0xb8, 0x4b);

bool save(const QImage &image, const QString &path)
{
    if (!image.save(path, "PNG")) {
        std::fprintf(stderr, "artwork: cannot write %s\n", qPrintable(path));
        return false;
    }
    std::printf("%s %dx%d\n", qPrintable(path), image.width(), image.height());
    return true;
}

QImage canvas(int w, int h)
{
    QImage image(w, h, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    return image;
}

struct Candle
{
    double open, high, low, close;
};

// A fixed little rally with one pull-back, used by the icon.
const std::vector<Candle> kIconCandles = {
    {0.30, 0.42, 0.20, 0.38}, {0.38, 0.50, 0.33, 0.47}, {0.47, 0.52, 0.36, 0.40},
    {0.40, 0.66, 0.38, 0.62}, {0.62, 0.84, 0.58, 0.80},
};

void drawCandle(QPainter &p, double x, double width, const Candle &c, double top, double height,
                double alpha = 1.0)
{
    auto y = [&](double v) {
        return top + (1.0 - v) * height;
    };
    QColor colour = c.close >= c.open ? kTeal : kCoral;
    colour.setAlphaF(alpha);
    p.setPen(QPen(colour, std::max(1.0, width * 0.14), Qt::SolidLine, Qt::RoundCap));
    p.drawLine(QPointF(x, y(c.high)), QPointF(x, y(c.low)));
    const QRectF body(x - width / 2, y(std::max(c.open, c.close)), width,
                      std::max(1.5, std::abs(c.close - c.open) * height));
    QLinearGradient g(body.topLeft(), body.topRight());
    g.setColorAt(0.0, colour.lighter(125));
    g.setColorAt(1.0, colour.darker(115));
    p.setPen(Qt::NoPen);
    p.setBrush(g);
    p.drawRoundedRect(body, width * 0.12, width * 0.12);
}

QImage icon(int size)
{
    QImage image = canvas(size, size);
    QPainter p(&image);
    p.setRenderHint(QPainter::Antialiasing);
    const double s = size;
    const QRectF tile(s * 0.04, s * 0.04, s * 0.92, s * 0.92);

    QLinearGradient bg(tile.topLeft(), tile.bottomLeft());
    bg.setColorAt(0, kRaised);
    bg.setColorAt(1, kDeep);
    p.setPen(QPen(kTeal.darker(160), s * 0.012));
    p.setBrush(bg);
    p.drawRoundedRect(tile, s * 0.2, s * 0.2);

    // Faint grid lines.
    p.setPen(QPen(QColor(255, 255, 255, 22), s * 0.008));
    for (int i = 1; i < 4; ++i) {
        const double y = tile.top() + tile.height() * i / 4.0;
        p.drawLine(QPointF(tile.left() + s * 0.08, y), QPointF(tile.right() - s * 0.08, y));
    }

    const double top = tile.top() + s * 0.1, height = tile.height() - s * 0.2;
    const double step = (tile.width() - s * 0.24) / (kIconCandles.size() - 1);
    std::vector<QPointF> line;
    for (size_t i = 0; i < kIconCandles.size(); ++i) {
        const double x = tile.left() + s * 0.12 + step * i;
        drawCandle(p, x, s * 0.1, kIconCandles[i], top, height);
        const Candle &c = kIconCandles[i];
        line.emplace_back(x, top + (1.0 - (c.open + c.close) / 2 + 0.1) * height);
    }
    QPainterPath path(line.front());
    for (size_t i = 1; i < line.size(); ++i) {
        const QPointF a = line[i - 1], b = line[i];
        path.cubicTo(QPointF((a.x() + b.x()) / 2, a.y()), QPointF((a.x() + b.x()) / 2, b.y()), b);
    }
    p.setBrush(Qt::NoBrush);
    p.setPen(QPen(kAmber, s * 0.035, Qt::SolidLine, Qt::RoundCap));
    p.drawPath(path);
    return image;
}

QImage splash()
{
    const int w = 640, h = 360;
    QImage image(w, h, QImage::Format_ARGB32_Premultiplied);
    QPainter p(&image);
    p.setRenderHint(QPainter::Antialiasing);
    p.setRenderHint(QPainter::TextAntialiasing);

    QLinearGradient bg(0, 0, w, h);
    bg.setColorAt(0, kRaised);
    bg.setColorAt(0.55, kSurface);
    bg.setColorAt(1, kDeep);
    p.fillRect(image.rect(), bg);
    QRadialGradient glow(QPointF(w * 0.78, h * 0.25), w * 0.55);
    glow.setColorAt(0, QColor(47, 191, 168, 46));
    glow.setColorAt(1, QColor(47, 191, 168, 0));
    p.fillRect(image.rect(), glow);

    // A band across the top for the start-up message.
    p.fillRect(QRectF(0, 0, w, 30), QColor(0, 0, 0, 70));

    // A quiet chart in the lower half: a seeded walk of candles with an average line.
    std::vector<Candle> candles;
    unsigned seed = 20120925u;
    auto next = [&] {
        seed = seed * 1103515245u + 12345u;
        return double((seed >> 8) & 0xFFFF) / 65535.0;
    };
    double close = 0.35;
    for (int i = 0; i < 38; ++i) {
        const double open = close + (next() - 0.5) * 0.03;
        close = open + (next() - 0.45) * 0.12;
        candles.push_back({open, std::max(open, close) + next() * 0.04,
                           std::min(open, close) - next() * 0.04, close});
    }
    // Stretch the walk over the band, leaving a margin above and below.
    double lo = candles.front().low, hi = candles.front().high;
    for (const Candle &c : candles) {
        lo = std::min(lo, c.low);
        hi = std::max(hi, c.high);
    }
    for (Candle &c : candles)
        for (double *v : {&c.open, &c.high, &c.low, &c.close})
            *v = 0.08 + 0.84 * (*v - lo) / (hi - lo);
    const double chartTop = h * 0.50, chartHeight = h * 0.40, step = (w - 60.0) / candles.size();
    p.setPen(QPen(QColor(255, 255, 255, 16), 1));
    for (int i = 0; i <= 4; ++i)
        p.drawLine(QPointF(0, chartTop + chartHeight * i / 4),
                   QPointF(w, chartTop + chartHeight * i / 4));
    QPainterPath average;
    double sum = 0;
    for (size_t i = 0; i < candles.size(); ++i) {
        const double x = 30 + step * (i + 0.5);
        drawCandle(p, x, step * 0.56, candles[i], chartTop, chartHeight, 0.62);
        sum += candles[i].close;
        if (i >= 5)
            sum -= candles[i - 5].close;
        const double avg = sum / std::min<double>(i + 1, 5);
        const QPointF pt(x, chartTop + (1.0 - avg) * chartHeight);
        if (i == 0)
            average.moveTo(pt);
        else
            average.lineTo(pt);
    }
    p.setBrush(Qt::NoBrush);
    p.setPen(QPen(QColor(242, 184, 75, 170), 2.2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    p.drawPath(average);
    QLinearGradient fade(0, chartTop - 10, 0, h);
    fade.setColorAt(0, QColor(14, 21, 30, 0));
    fade.setColorAt(1, QColor(14, 21, 30, 200));
    p.fillRect(QRectF(0, chartTop - 10, w, h - chartTop + 10), fade);

    // Name and line.
    const QImage mark = icon(88);
    p.drawImage(QPointF(40, 64), mark);
    QFont title(QStringLiteral("DejaVu Sans"));
    title.setPixelSize(58);
    title.setBold(true);
    title.setLetterSpacing(QFont::PercentageSpacing, 96);
    p.setFont(title);
    p.setPen(kText);
    p.drawText(QPointF(146, 126), QStringLiteral("Halcyra"));
    const double titleWidth = QFontMetricsF(title).horizontalAdvance(QStringLiteral("Halcyra"));
    QFont version(QStringLiteral("DejaVu Sans"));
    version.setPixelSize(22);
    version.setBold(true);
    p.setFont(version);
    p.setPen(kAmber);
    p.drawText(QPointF(152 + titleWidth, 92), QStringLiteral("2.0"));
    QFont line(QStringLiteral("DejaVu Sans"));
    line.setPixelSize(15);
    p.setFont(line);
    p.setPen(kMuted);
    p.drawText(QPointF(149, 152), QStringLiteral("Technical analysis of end-of-day quotes"));
    p.setPen(QPen(kTeal, 2));
    p.drawLine(QPointF(149, 166), QPointF(149 + 64, 166));
    return image;
}

// Small pictures for the style sheet, drawn at 16 x 16.
using Painter = void (*)(QPainter &, const QColor &);

void chevron(QPainter &p, const QColor &c, double angle)
{
    p.translate(8, 8);
    p.rotate(angle);
    p.setPen(QPen(c, 1.8, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    p.drawPolyline(QPolygonF({QPointF(-4, -2), QPointF(0, 2), QPointF(4, -2)}));
}

void box(QPainter &p, const QColor &border, const QColor &fill)
{
    p.setPen(QPen(border, 1.2));
    p.setBrush(fill);
    p.drawRoundedRect(QRectF(1.5, 1.5, 13, 13), 3, 3);
}

QImage small(const std::function<void(QPainter &)> &paint)
{
    QImage image = canvas(16, 16);
    QPainter p(&image);
    p.setRenderHint(QPainter::Antialiasing);
    paint(p);
    return image;
}

// Tool-strip icons, drawn at 20 x 20 in the muted colour with teal and coral accents.
QImage toolIcon(const std::function<void(QPainter &)> &paint)
{
    QImage image = canvas(20, 20);
    QPainter p(&image);
    p.setRenderHint(QPainter::Antialiasing);
    paint(p);
    return image;
}

void candleGlyph(QPainter &p, double x, double top, double bottom, double bodyTop,
                 double bodyBottom, const QColor &c)
{
    p.setPen(QPen(c, 1.4, Qt::SolidLine, Qt::RoundCap));
    p.drawLine(QPointF(x, top), QPointF(x, bottom));
    p.setPen(Qt::NoPen);
    p.setBrush(c);
    p.drawRoundedRect(QRectF(x - 2.2, bodyTop, 4.4, bodyBottom - bodyTop), 0.8, 0.8);
}

void magnifier(QPainter &p, bool plus)
{
    p.setBrush(Qt::NoBrush);
    p.setPen(QPen(kText, 1.8));
    p.drawEllipse(QPointF(8.5, 8.5), 5.5, 5.5);
    p.setPen(QPen(kText, 2.4, Qt::SolidLine, Qt::RoundCap));
    p.drawLine(QPointF(12.8, 12.8), QPointF(17.5, 17.5));
    p.setPen(QPen(kTeal, 1.8, Qt::SolidLine, Qt::RoundCap));
    p.drawLine(QPointF(6, 8.5), QPointF(11, 8.5));
    if (plus)
        p.drawLine(QPointF(8.5, 6), QPointF(8.5, 11));
}

// The tick marks scripts put on bars: a solid triangle, pointing up or down, in a 16 x 16
// picture.
QImage tick(bool up)
{
    const QColor fill = up ? QColor(0x3c, 0xc4, 0x5e) : QColor(0xe5, 0x48, 0x4d);
    QImage image = canvas(16, 16);
    QPainter p(&image);
    p.setRenderHint(QPainter::Antialiasing);
    p.setPen(QPen(fill.darker(170), 1.0, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
    p.setBrush(fill);
    const double tip = up ? 2.5 : 13.5, base = up ? 13.5 : 2.5;
    p.drawPolygon(QPolygonF({QPointF(8, tip), QPointF(14, base), QPointF(2, base)}));
    return image;
}

// The heads on the items of the observer lists, 16 x 16: a bull's for the bullish picks, a
// bear's for the rest. They are saved as BMP, which keeps no transparency, so each sits on
// the lists' own background colour and reads as a small tile on a selected row. At this size
// a head is recognised by its outline: the bull by wide horns over a long face, the bear by
// round ears over a round face; the eyes and the muzzle only confirm it.
QImage headTile(const std::function<void(QPainter &)> &paint)
{
    QImage image(16, 16, QImage::Format_RGB32);
    image.fill(QColor(0x12, 0x1b, 0x26));
    QPainter p(&image);
    p.setRenderHint(QPainter::Antialiasing);
    paint(p);
    return image;
}

QImage bullHead()
{
    return headTile([](QPainter &p) {
        const QColor horn(0xee, 0xe4, 0xcc);
        const QColor hide = kTeal;
        // The horns: out from the poll, then up to a point, tapering.
        p.setBrush(horn);
        p.setPen(QPen(horn.darker(170), 0.5));
        for (const int side : {-1, 1}) {
            const auto x = [side](double dx) {
                return 8 + side * dx;
            };
            QPainterPath path(QPointF(x(2.8), 5.6));
            path.cubicTo(QPointF(x(5.2), 5.8), QPointF(x(7.2), 4.6), QPointF(x(7.1), 0.5));
            path.cubicTo(QPointF(x(6.3), 2.6), QPointF(x(5.0), 3.7), QPointF(x(2.8), 3.5));
            path.closeSubpath();
            p.drawPath(path);
        }
        // The ears, level with the eyes.
        p.setPen(Qt::NoPen);
        p.setBrush(hide.darker(135));
        p.drawEllipse(QPointF(3.2, 7.0), 2.1, 1.15);
        p.drawEllipse(QPointF(12.8, 7.0), 2.1, 1.15);
        // The long face, broad at the brow and narrowing to the muzzle.
        QPainterPath face(QPointF(4.6, 3.9));
        face.lineTo(11.4, 3.9);
        face.cubicTo(QPointF(11.8, 7.5), QPointF(10.8, 9.5), QPointF(10.5, 11.5));
        face.lineTo(5.5, 11.5);
        face.cubicTo(QPointF(5.2, 9.5), QPointF(4.2, 7.5), QPointF(4.6, 3.9));
        p.setBrush(hide);
        p.drawPath(face);
        p.setBrush(hide.lighter(150));
        p.drawRoundedRect(QRectF(4.9, 10.2, 6.2, 4.8), 2.3, 2.3);
        p.setBrush(kDeep);
        p.drawEllipse(QPointF(6.6, 12.8), 0.85, 0.85);
        p.drawEllipse(QPointF(9.4, 12.8), 0.85, 0.85);
        p.drawEllipse(QPointF(6.0, 7.1), 0.95, 0.95);
        p.drawEllipse(QPointF(10.0, 7.1), 0.95, 0.95);
    });
}

QImage bearHead()
{
    return headTile([](QPainter &p) {
        const QColor fur = kCoral;
        p.setPen(Qt::NoPen);
        // The round ears, then the round face over them.
        p.setBrush(fur.darker(125));
        p.drawEllipse(QPointF(3.6, 3.9), 2.7, 2.7);
        p.drawEllipse(QPointF(12.4, 3.9), 2.7, 2.7);
        p.setBrush(kDeep.lighter(150));
        p.drawEllipse(QPointF(3.7, 4.0), 1.2, 1.2);
        p.drawEllipse(QPointF(12.3, 4.0), 1.2, 1.2);
        p.setBrush(fur);
        p.drawEllipse(QPointF(8, 9.0), 6.6, 6.0);
        // The muzzle with its nose, and the small eyes.
        p.setBrush(QColor(0xf3, 0xc4, 0xa6));
        p.drawEllipse(QPointF(8, 11.6), 3.2, 2.5);
        p.setBrush(kDeep);
        p.drawEllipse(QPointF(8, 10.5), 1.5, 1.05);
        p.drawEllipse(QPointF(5.4, 7.9), 0.95, 0.95);
        p.drawEllipse(QPointF(10.6, 7.9), 0.95, 0.95);
    });
}

// Planet and zodiac symbols for scripts: the font's glyph, filled in a light colour inside a
// dark rim so that it reads on dark and light charts alike.
struct Symbol
{
    const char *name;
    uint codePoint;
};

const Symbol kPlanets[] = {
    {"sun", 0x2609},     {"moon", 0x263D},    {"mercury", 0x263F}, {"venus", 0x2640},
    {"mars", 0x2642},    {"jupiter", 0x2643}, {"saturn", 0x2644},  {"uranus", 0x2645},
    {"neptune", 0x2646}, {"pluto", 0x2647},
};

const Symbol kZodiacs[] = {
    {"aries", 0x2648},       {"taurus", 0x2649},    {"gemini", 0x264A},   {"cancer", 0x264B},
    {"leo", 0x264C},         {"virgo", 0x264D},     {"libra", 0x264E},    {"scorpio", 0x264F},
    {"sagittarius", 0x2650}, {"capricorn", 0x2651}, {"aquarius", 0x2652}, {"pisces", 0x2653},
};

const int kSymbolSize = 24;

// The glyph's outline, set large and unhinted so that it only depends on the font file.
// Empty when the font has no such glyph; no other font is allowed to stand in.
QPainterPath glyphOutline(uint codePoint)
{
    QFont font(QStringLiteral("DejaVu Sans"));
    font.setPixelSize(100);
    font.setStyleStrategy(QFont::NoFontMerging);
    font.setHintingPreference(QFont::PreferNoHinting);
    QPainterPath path;
    if (QFontInfo(font).family() != font.family() || !QFontMetricsF(font).inFontUcs4(codePoint))
        return path;
    path.addText(0, 0, font, QString::fromUcs4(&codePoint, 1));
    return path;
}

// One scale for every symbol, so that their strokes weigh the same: the largest glyph spans
// 20 of the 24 pixels, leaving room for the rim.
double symbolScale()
{
    double extent = 0;
    const auto grow = [&](const Symbol &s) {
        const QRectF r = glyphOutline(s.codePoint).boundingRect();
        extent = std::max({extent, r.width(), r.height()});
    };
    for (const Symbol &s : kPlanets)
        grow(s);
    for (const Symbol &s : kZodiacs)
        grow(s);
    return extent > 0 ? 20.0 / extent : 0;
}

QImage symbol(const QPainterPath &outline, double scale, const QColor &fill)
{
    QImage image = canvas(kSymbolSize, kSymbolSize);
    QPainter p(&image);
    p.setRenderHint(QPainter::Antialiasing);
    const QRectF ink = outline.boundingRect();
    p.translate(kSymbolSize / 2.0, kSymbolSize / 2.0);
    p.scale(scale, scale);
    p.translate(-ink.center());
    // The rim: a dark stroke of which only the outer half shows once the glyph is filled.
    p.setBrush(Qt::NoBrush);
    p.setPen(QPen(kDeep, 2.0 / scale, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    p.drawPath(outline);
    p.setPen(QPen(fill, 0.4 / scale, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    p.setBrush(fill);
    p.drawPath(outline);
    return image;
}
} // namespace

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication app(argc, argv);
    if (argc != 2) {
        std::fprintf(stderr, "usage: artwork RESOURCES_DIR\n");
        return 2;
    }
    const QDir out(QString::fromLocal8Bit(argv[1]));
    const QDir style(out.filePath(QStringLiteral("HCStyle/lowres")));
    QDir().mkpath(style.absolutePath());

    bool ok = save(icon(256), out.filePath(QStringLiteral("app.png"))) &&
              save(splash(), out.filePath(QStringLiteral("appsplash.png")));

    const struct
    {
        const char *name;
        std::function<void(QPainter &)> paint;
    } pictures[] = {
        {"arrow_down",
         [](QPainter &p) {
             chevron(p, kMuted, 0);
         }},
        {"arrow_up",
         [](QPainter &p) {
             chevron(p, kMuted, 180);
         }},
        {"arrow_left",
         [](QPainter &p) {
             chevron(p, kMuted, 90);
         }},
        {"arrow_right",
         [](QPainter &p) {
             chevron(p, kMuted, -90);
         }},
        {"arrow_down_hover",
         [](QPainter &p) {
             chevron(p, kText, 0);
         }},
        {"arrow_up_hover",
         [](QPainter &p) {
             chevron(p, kText, 180);
         }},
        {"branch_closed",
         [](QPainter &p) {
             chevron(p, kMuted, -90);
         }},
        {"branch_open",
         [](QPainter &p) {
             chevron(p, kMuted, 0);
         }},
        {"checkbox_unchecked",
         [](QPainter &p) {
             box(p, kMuted, kDeep);
         }},
        {"checkbox_unchecked_hover",
         [](QPainter &p) {
             box(p, kTeal, kDeep);
         }},
        {"checkbox_checked",
         [](QPainter &p) {
             box(p, kTeal, kTeal.darker(130));
             p.setPen(QPen(kText, 2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
             p.drawPolyline(QPolygonF({QPointF(4.5, 8.2), QPointF(7, 10.8), QPointF(11.6, 5.2)}));
         }},
        {"checkbox_indeterminate",
         [](QPainter &p) {
             box(p, kTeal, kDeep);
             p.setPen(QPen(kTeal, 2, Qt::SolidLine, Qt::RoundCap));
             p.drawLine(QPointF(5, 8), QPointF(11, 8));
         }},
        {"radio_unchecked",
         [](QPainter &p) {
             p.setPen(QPen(kMuted, 1.2));
             p.setBrush(kDeep);
             p.drawEllipse(QPointF(8, 8), 6.2, 6.2);
         }},
        {"radio_checked",
         [](QPainter &p) {
             p.setPen(QPen(kTeal, 1.2));
             p.setBrush(kDeep);
             p.drawEllipse(QPointF(8, 8), 6.2, 6.2);
             p.setPen(Qt::NoPen);
             p.setBrush(kTeal);
             p.drawEllipse(QPointF(8, 8), 3.4, 3.4);
         }},
        {"close",
         [](QPainter &p) {
             p.setPen(QPen(kMuted, 1.6, Qt::SolidLine, Qt::RoundCap));
             p.drawLine(QPointF(4.5, 4.5), QPointF(11.5, 11.5));
             p.drawLine(QPointF(11.5, 4.5), QPointF(4.5, 11.5));
         }},
        {"float",
         [](QPainter &p) {
             p.setPen(QPen(kMuted, 1.3));
             p.setBrush(Qt::NoBrush);
             p.drawRect(QRectF(5.5, 3.5, 7, 6));
             p.setBrush(kSurface);
             p.drawRect(QRectF(3.5, 6.5, 7, 6));
         }},
        {"grip",
         [](QPainter &p) {
             p.setPen(Qt::NoPen);
             p.setBrush(kMuted);
             for (int i = 0; i < 3; ++i)
                 p.drawEllipse(QPointF(8, 4 + 4 * i), 1.1, 1.1);
         }},
    };
    for (const auto &picture : pictures)
        ok = ok && save(small(picture.paint),
                        style.filePath(QLatin1String(picture.name) + QLatin1String(".png")));

    const QDir pix(out.filePath(QStringLiteral("pix")));
    QDir().mkpath(pix.absolutePath());
    // The pointer marker on a bar's close, and the pointer's mark on the date axis.
    QImage marker = canvas(11, 11);
    {
        QPainter p(&marker);
        p.setRenderHint(QPainter::Antialiasing);
        p.setPen(QPen(kAmber, 1.6));
        p.setBrush(QColor(14, 21, 30, 160));
        p.drawEllipse(QPointF(5.5, 5.5), 4.2, 4.2);
        p.setPen(Qt::NoPen);
        p.setBrush(kAmber);
        p.drawEllipse(QPointF(5.5, 5.5), 1.4, 1.4);
    }
    ok = ok && save(marker, pix.filePath(QStringLiteral("marker.png")));
    QImage pointer = canvas(9, 6);
    {
        QPainter p(&pointer);
        p.setRenderHint(QPainter::Antialiasing);
        p.setPen(Qt::NoPen);
        p.setBrush(kAmber);
        p.drawPolygon(QPolygonF({QPointF(0, 0), QPointF(9, 0), QPointF(4.5, 6)}));
    }
    ok = ok && save(pointer, pix.filePath(QStringLiteral("pointer.png")));

    const struct
    {
        const char *name;
        std::function<void(QPainter &)> paint;
    } tools[] = {
        {"zoom_in",
         [](QPainter &p) {
             magnifier(p, true);
         }},
        {"zoom_out",
         [](QPainter &p) {
             magnifier(p, false);
         }},
        {"chart_candle",
         [](QPainter &p) {
             candleGlyph(p, 5, 3, 15, 6, 12, kTeal);
             candleGlyph(p, 10, 5, 18, 9, 15, kCoral);
             candleGlyph(p, 15, 2, 12, 4, 9, kTeal);
         }},
        {"chart_bar",
         [](QPainter &p) {
             const auto bar = [&](double x, double hi, double lo, double o, double c,
                                  const QColor &col) {
                 p.setPen(QPen(col, 1.6, Qt::SolidLine, Qt::FlatCap));
                 p.drawLine(QPointF(x, hi), QPointF(x, lo));
                 p.drawLine(QPointF(x - 3, o), QPointF(x, o));
                 p.drawLine(QPointF(x, c), QPointF(x + 3, c));
             };
             bar(5, 4, 15, 12, 7, kTeal);
             bar(10.5, 6, 18, 8, 15, kCoral);
             bar(16, 2, 12, 10, 4, kTeal);
         }},
        {"chart_line",
         [](QPainter &p) {
             p.setPen(QPen(kTeal, 1.8, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
             p.drawPolyline(
                 QPolygonF({QPointF(2, 15), QPointF(7, 10), QPointF(11, 13), QPointF(18, 4)}));
         }},
        {"chart_empty",
         [](QPainter &p) {
             p.setPen(QPen(kMuted, 1.4));
             p.setBrush(Qt::NoBrush);
             p.drawRoundedRect(QRectF(2.5, 3.5, 15, 13), 2, 2);
             p.setPen(QPen(kMuted, 1.2, Qt::DotLine));
             p.drawLine(QPointF(5, 10), QPointF(15, 10));
         }},
        {"grid",
         [](QPainter &p) {
             p.setPen(QPen(kMuted, 1.2));
             for (double v : {3.5, 8.5, 13.5, 18.0}) {
                 p.drawLine(QPointF(v, 2), QPointF(v, 18));
                 p.drawLine(QPointF(2, v), QPointF(18, v));
             }
         }},
        {"pointer_info",
         [](QPainter &p) {
             p.setPen(QPen(kMuted, 1.2, Qt::DotLine));
             p.drawLine(QPointF(7, 1), QPointF(7, 19));
             p.setPen(QPen(kAmber, 1.6));
             p.setBrush(kDeep);
             p.drawEllipse(QPointF(7, 10), 3, 3);
             p.setPen(QPen(kText, 1));
             p.setBrush(kRaised);
             p.drawRoundedRect(QRectF(11.5, 3.5, 7, 9), 1.5, 1.5);
         }},
        {"separators",
         [](QPainter &p) {
             p.setPen(QPen(kMuted, 1.4, Qt::DashLine));
             p.drawLine(QPointF(7, 2), QPointF(7, 18));
             p.drawLine(QPointF(14, 2), QPointF(14, 18));
             p.setPen(QPen(kTeal, 1.6, Qt::SolidLine, Qt::RoundCap));
             p.drawPolyline(QPolygonF({QPointF(2, 13), QPointF(10, 9), QPointF(18, 6)}));
         }},
        {"draw",
         [](QPainter &p) {
             // A drawn line with its two anchors marked.
             p.setPen(QPen(kAmber, 1.6, Qt::SolidLine, Qt::RoundCap));
             p.drawLine(QPointF(4, 15), QPointF(16, 5));
             p.setPen(Qt::NoPen);
             p.setBrush(kText);
             p.drawRect(QRectF(2, 13, 4, 4));
             p.drawRect(QRectF(14, 3, 4, 4));
         }},
        {"picture",
         [](QPainter &p) {
             p.setPen(QPen(kText, 1.4));
             p.setBrush(Qt::NoBrush);
             p.drawRoundedRect(QRectF(2.5, 4.5, 15, 12), 2, 2);
             p.setPen(Qt::NoPen);
             p.setBrush(kTeal);
             p.drawPolygon(QPolygonF({QPointF(4, 15), QPointF(9, 9), QPointF(12, 12),
                                      QPointF(14, 10), QPointF(16.5, 15)}));
             p.setBrush(kAmber);
             p.drawEllipse(QPointF(13.5, 7.5), 1.4, 1.4);
         }},
        {"save_csv",
         [](QPainter &p) {
             p.setPen(QPen(kText, 1.4));
             p.setBrush(Qt::NoBrush);
             p.drawPolygon(QPolygonF({QPointF(4.5, 2.5), QPointF(12.5, 2.5), QPointF(16.5, 6.5),
                                      QPointF(16.5, 17.5), QPointF(4.5, 17.5)}));
             p.setPen(QPen(kTeal, 1.3));
             for (double y : {8.0, 11.0, 14.0})
                 p.drawLine(QPointF(7, y), QPointF(14, y));
         }},
    };
    for (const auto &tool : tools)
        ok = ok && save(toolIcon(tool.paint),
                        pix.filePath(QLatin1String(tool.name) + QLatin1String(".png")));

    // The indicator list: a pane with a curve; scripts add a badge, packed ones a padlock.
    const auto indicatorGlyph = [](QPainter &p) {
        p.setPen(QPen(kMuted, 1.2));
        p.setBrush(kSurface);
        p.drawRoundedRect(QRectF(1.5, 2.5, 13, 11), 2, 2);
        p.setPen(QPen(kTeal, 1.6, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        p.setBrush(Qt::NoBrush);
        QPainterPath curve(QPointF(3.5, 10.5));
        curve.cubicTo(QPointF(6, 3.5), QPointF(8.5, 12.5), QPointF(12.5, 5));
        p.drawPath(curve);
    };
    ok = ok && save(small(indicatorGlyph), pix.filePath(QStringLiteral("indicator.png")));
    ok = ok && save(small([&](QPainter &p) {
                        indicatorGlyph(p);
                        p.setPen(QPen(kDeep, 1));
                        p.setBrush(kAmber);
                        p.drawEllipse(QPointF(12, 12), 3.5, 3.5);
                        p.setPen(QPen(kDeep, 1.3));
                        p.drawLine(QPointF(12, 10.2), QPointF(12, 13.8));
                    }),
                    pix.filePath(QStringLiteral("indicator_js.png")));
    ok = ok && save(small([&](QPainter &p) {
                        indicatorGlyph(p);
                        p.setPen(QPen(kText, 1.2));
                        p.setBrush(Qt::NoBrush);
                        p.drawArc(QRectF(9.5, 7, 5, 6), 0, 180 * 16);
                        p.setPen(Qt::NoPen);
                        p.setBrush(kCoral);
                        p.drawRoundedRect(QRectF(8.5, 10, 7, 5.5), 1, 1);
                    }),
                    pix.filePath(QStringLiteral("indicator_locked.png")));

    // Tick marks and astronomical symbols that scripts draw on charts.
    ok = ok && save(tick(true), pix.filePath(QStringLiteral("uptick.png")));
    ok = ok && save(tick(false), pix.filePath(QStringLiteral("downtick.png")));
    const double scale = symbolScale();
    const auto saveSymbols = [&](const Symbol *begin, const Symbol *end, const QString &folder,
                                 const QColor &fill) {
        const QDir dir(pix.filePath(folder));
        QDir().mkpath(dir.absolutePath());
        bool written = true;
        for (const Symbol *s = begin; s != end && written; ++s) {
            const QPainterPath outline = glyphOutline(s->codePoint);
            if (outline.isEmpty() || scale <= 0) {
                std::fprintf(stderr, "artwork: DejaVu Sans has no glyph U+%04X for %s\n",
                             s->codePoint, s->name);
                return false;
            }
            written = save(symbol(outline, scale, fill),
                           dir.filePath(QLatin1String(s->name) + QLatin1String(".png")));
        }
        return written;
    };
    ok = ok &&
         saveSymbols(std::begin(kPlanets), std::end(kPlanets), QStringLiteral("planets"), kAmber);
    ok = ok && saveSymbols(std::begin(kZodiacs), std::end(kZodiacs), QStringLiteral("zodiacs"),
                           QColor(0x7f, 0xc8, 0xf0));

    // The current row of the symbol list.
    QImage down = canvas(10, 10);
    {
        QPainter p(&down);
        p.setRenderHint(QPainter::Antialiasing);
        p.setPen(Qt::NoPen);
        p.setBrush(kAmber);
        p.drawPolygon(QPolygonF({QPointF(1, 2.5), QPointF(9, 2.5), QPointF(5, 8)}));
    }
    ok = ok && save(down, pix.filePath(QStringLiteral("pointer10x10down.png")));

    // The heads on the items of the observer lists.
    for (const auto &[name, image] :
         {std::pair{"bullicon.bmp", bullHead()}, std::pair{"bearicon.bmp", bearHead()}}) {
        const QString path = pix.filePath(QLatin1String(name));
        if (!ok || !image.save(path, "BMP")) {
            std::fprintf(stderr, "artwork: cannot write %s\n", qPrintable(path));
            ok = false;
            break;
        }
        std::printf("%s %dx%d\n", qPrintable(path), image.width(), image.height());
    }

    // The flags of the interface languages and of the exchanges' countries.
    ok = ok && saveFlags(pix.absolutePath());
    return ok ? 0 : 1;
}
