// The flags, painted at 16 x 11 pixels. At that size a flag is recognised by its colours and
// layout, so emblems are reduced to a shape or two and stripes and crosses sit on whole
// pixels; only round and slanted shapes are antialiased.

#include "flags.h"

#include <QDir>
#include <QImage>
#include <QPainter>

#include <cmath>
#include <cstdio>
#include <functional>
#include <initializer_list>
#include <utility>

namespace {

const int kWidth = 16;
const int kHeight = 11;

using Paint = std::function<void(QPainter &)>;

// Full-width bands from the top: (rows, colour).
void bands(QPainter &p, std::initializer_list<std::pair<int, QColor>> rows)
{
    int y = 0;
    for (const auto &[height, colour] : rows) {
        p.fillRect(0, y, kWidth, height, colour);
        y += height;
    }
}

// The equal thirds of the tricolours 16 pixels wide cannot be: 5, 6 and 5 columns.
void columns(QPainter &p, const QColor &hoist, const QColor &middle, const QColor &fly)
{
    p.fillRect(0, 0, 5, kHeight, hoist);
    p.fillRect(5, 0, 6, kHeight, middle);
    p.fillRect(11, 0, 5, kHeight, fly);
}

// Alternating stripes, one row each, starting and ending with `first`.
void rowStripes(QPainter &p, const QColor &first, const QColor &second)
{
    for (int y = 0; y < kHeight; ++y)
        p.fillRect(0, y, kWidth, 1, y % 2 == 0 ? first : second);
}

// The Nordic cross: three pixels wide, its upright towards the hoist.
void nordicCross(QPainter &p, const QColor &colour, int width = 3)
{
    const int x = 4 + (3 - width) / 2, y = 4 + (3 - width) / 2;
    p.fillRect(x, 0, width, kHeight, colour);
    p.fillRect(0, y, kWidth, width, colour);
}

void disc(QPainter &p, const QPointF &centre, double radius, const QColor &colour)
{
    p.setPen(Qt::NoPen);
    p.setBrush(colour);
    p.drawEllipse(centre, radius, radius);
}

// A star of `points` points; the inner radius as a share of the outer one.
void star(QPainter &p, const QPointF &centre, double radius, const QColor &colour, int points = 5,
          double inner = 0.4)
{
    QPolygonF shape;
    for (int i = 0; i < 2 * points; ++i) {
        const double angle = M_PI * i / points - M_PI / 2;
        const double r = i % 2 == 0 ? radius : radius * inner;
        shape << centre + QPointF(std::cos(angle) * r, std::sin(angle) * r);
    }
    p.setPen(Qt::NoPen);
    p.setBrush(colour);
    p.drawPolygon(shape);
}

const QColor kUnionBlue(0x01, 0x21, 0x69);
const QColor kUnionRed(0xc8, 0x10, 0x2e);

// Pixels drawn from a picture: every character other than a blank is one pixel of `colour`.
void pixels(QPainter &p, int left, int top, std::initializer_list<const char *> rows,
            const QColor &colour)
{
    int y = top;
    for (const char *row : rows) {
        for (int x = 0; row[x]; ++x)
            if (row[x] != ' ')
                p.fillRect(left + x, y, 1, 1, colour);
        ++y;
    }
}

// The union flag as the canton of a flag, in the top left eight by six pixels: the red cross
// and the white diagonals, without the white edges that would leave no blue.
void unionCanton(QPainter &p)
{
    p.fillRect(0, 0, 8, 6, kUnionBlue);
    pixels(p, 0, 0, {"x      x", " x    x ", "", "", " x    x ", "x      x"}, Qt::white);
    p.fillRect(3, 0, 2, 6, kUnionRed);
    p.fillRect(0, 2, 8, 2, kUnionRed);
}

struct Flag
{
    const char *country;
    Paint paint;
};

const Flag kFlags[] = {
    {"de",
     [](QPainter &p) {
         bands(p, {{4, Qt::black}, {3, QColor(0xdd, 0x00, 0x00)}, {4, QColor(0xff, 0xce, 0x00)}});
     }},
    {"ru",
     [](QPainter &p) {
         bands(p, {{4, Qt::white}, {3, QColor(0x00, 0x39, 0xa6)}, {4, QColor(0xd5, 0x2b, 0x1e)}});
     }},
    {"en",
     [](QPainter &p) {
         p.fillRect(0, 0, kWidth, kHeight, kUnionBlue);
         p.setRenderHint(QPainter::Antialiasing);
         p.setPen(QPen(Qt::white, 2.6));
         p.drawLine(QPointF(0, 0), QPointF(16, 11));
         p.drawLine(QPointF(16, 0), QPointF(0, 11));
         p.setPen(QPen(kUnionRed, 1));
         p.drawLine(QPointF(0, 0), QPointF(16, 11));
         p.drawLine(QPointF(16, 0), QPointF(0, 11));
         p.setRenderHint(QPainter::Antialiasing, false);
         p.fillRect(6, 0, 4, 11, Qt::white);
         p.fillRect(0, 4, 16, 3, Qt::white);
         p.fillRect(7, 0, 2, 11, kUnionRed);
         p.fillRect(0, 5, 16, 1, kUnionRed);
     }},
    {"us",
     [](QPainter &p) {
         rowStripes(p, QColor(0xb2, 0x22, 0x34), Qt::white);
         p.fillRect(0, 0, 7, 6, QColor(0x3c, 0x3b, 0x6e));
         for (int y = 1; y <= 4; ++y)
             for (int x = 1 + (y + 1) % 2; x <= 5; x += 2)
                 p.fillRect(x, y, 1, 1, Qt::white);
     }},
    {"au",
     [](QPainter &p) {
         p.fillRect(0, 0, kWidth, kHeight, kUnionBlue);
         unionCanton(p);
         // The Commonwealth star under the canton, the Southern Cross in the fly.
         pixels(p, 3, 7, {" x ", "xxx", " x "}, Qt::white);
         pixels(p, 10, 1, {"  x  ", "     ", "    x", "x    ", "   x ", "     ", "     ", "  x  "},
                Qt::white);
     }},
    {"nz",
     [](QPainter &p) {
         p.fillRect(0, 0, kWidth, kHeight, kUnionBlue);
         unionCanton(p);
         // The Southern Cross: red stars edged in white.
         for (const QPoint &at : {QPoint(12, 2), QPoint(14, 5), QPoint(10, 5), QPoint(12, 8)}) {
             pixels(p, at.x() - 1, at.y() - 1, {" x ", "x x", " x "}, Qt::white);
             p.fillRect(at.x(), at.y(), 1, 1, QColor(0xc8, 0x10, 0x2e));
         }
     }},
    {"eu",
     [](QPainter &p) {
         p.fillRect(0, 0, kWidth, kHeight, QColor(0x00, 0x33, 0x99));
         p.setRenderHint(QPainter::Antialiasing);
         for (int i = 0; i < 12; ++i) {
             const double angle = M_PI * i / 6;
             disc(p, QPointF(8 + 3.6 * std::cos(angle), 5.5 + 3.6 * std::sin(angle)), 0.6,
                  QColor(0xff, 0xcc, 0x00));
         }
     }},
    {"ie",
     [](QPainter &p) {
         columns(p, QColor(0x16, 0x9b, 0x62), Qt::white, QColor(0xff, 0x88, 0x3e));
     }},
    {"fr",
     [](QPainter &p) {
         columns(p, QColor(0x00, 0x23, 0x95), Qt::white, QColor(0xed, 0x29, 0x39));
     }},
    {"it",
     [](QPainter &p) {
         columns(p, QColor(0x00, 0x92, 0x46), Qt::white, QColor(0xce, 0x2b, 0x37));
     }},
    {"nl",
     [](QPainter &p) {
         bands(p, {{4, QColor(0xae, 0x1c, 0x28)}, {3, Qt::white}, {4, QColor(0x21, 0x46, 0x8b)}});
     }},
    {"at",
     [](QPainter &p) {
         const QColor red(0xc8, 0x10, 0x2e);
         bands(p, {{4, red}, {3, Qt::white}, {4, red}});
     }},
    {"es",
     [](QPainter &p) {
         const QColor red(0xaa, 0x15, 0x1b);
         bands(p, {{3, red}, {5, QColor(0xf1, 0xbf, 0x00)}, {3, red}});
         // The arms, towards the hoist.
         p.fillRect(4, 4, 2, 3, red);
     }},
    {"pt",
     [](QPainter &p) {
         p.fillRect(0, 0, 6, kHeight, QColor(0x04, 0x6a, 0x38));
         p.fillRect(6, 0, 10, kHeight, QColor(0xda, 0x29, 0x1c));
         // The armillary sphere with the shield.
         pixels(p, 4, 3, {" xx ", "x  x", "x  x", "x  x", " xx "}, QColor(0xff, 0xe9, 0x00));
         p.fillRect(5, 4, 2, 3, Qt::white);
         p.fillRect(5, 5, 2, 1, QColor(0x00, 0x33, 0x99));
     }},
    {"ch",
     [](QPainter &p) {
         p.fillRect(0, 0, kWidth, kHeight, QColor(0xda, 0x29, 0x1c));
         p.fillRect(6, 2, 3, 7, Qt::white);
         p.fillRect(4, 4, 7, 3, Qt::white);
     }},
    {"se",
     [](QPainter &p) {
         p.fillRect(0, 0, kWidth, kHeight, QColor(0x00, 0x6a, 0xa7));
         nordicCross(p, QColor(0xfe, 0xcc, 0x02));
     }},
    {"no",
     [](QPainter &p) {
         p.fillRect(0, 0, kWidth, kHeight, QColor(0xba, 0x0c, 0x2f));
         nordicCross(p, Qt::white);
         nordicCross(p, QColor(0x00, 0x20, 0x5b), 1);
     }},
    {"dk",
     [](QPainter &p) {
         p.fillRect(0, 0, kWidth, kHeight, QColor(0xc8, 0x10, 0x2e));
         nordicCross(p, Qt::white);
     }},
    {"ca",
     [](QPainter &p) {
         const QColor red(0xd5, 0x2b, 0x1e);
         p.fillRect(0, 0, kWidth, kHeight, Qt::white);
         p.fillRect(0, 0, 4, kHeight, red);
         p.fillRect(12, 0, 4, kHeight, red);
         // The maple leaf, its stem down.
         pixels(p, 5, 2, {"  xx  ", "x xx x", "xxxxxx", "xxxxxx", " xxxx ", "  xx  ", "  xx  "},
                red);
     }},
    {"mx",
     [](QPainter &p) {
         columns(p, QColor(0x00, 0x68, 0x47), Qt::white, QColor(0xce, 0x11, 0x26));
         p.setRenderHint(QPainter::Antialiasing);
         // The eagle on its cactus.
         disc(p, QPointF(8, 5.5), 1.5, QColor(0x8c, 0x5a, 0x2b));
         disc(p, QPointF(8, 6.6), 0.7, QColor(0x00, 0x68, 0x47));
     }},
    {"br",
     [](QPainter &p) {
         p.fillRect(0, 0, kWidth, kHeight, QColor(0x00, 0x9c, 0x3b));
         p.setRenderHint(QPainter::Antialiasing);
         p.setPen(Qt::NoPen);
         p.setBrush(QColor(0xff, 0xdf, 0x00));
         p.drawPolygon(QPolygonF({{1.3, 5.5}, {8, 1.2}, {14.7, 5.5}, {8, 9.8}}));
         disc(p, QPointF(8, 5.5), 2.5, QColor(0x00, 0x27, 0x76));
         p.setPen(QPen(Qt::white, 0.6));
         p.setBrush(Qt::NoBrush);
         p.drawArc(QRectF(4.5, 5, 7, 6), 50 * 16, 80 * 16);
     }},
    {"ar",
     [](QPainter &p) {
         const QColor blue(0x74, 0xac, 0xdf);
         bands(p, {{4, blue}, {3, Qt::white}, {4, blue}});
         p.setRenderHint(QPainter::Antialiasing);
         disc(p, QPointF(8, 5.5), 1.3, QColor(0xf6, 0xb4, 0x0e));
     }},
    {"sg",
     [](QPainter &p) {
         bands(p, {{6, QColor(0xef, 0x33, 0x40)}, {5, Qt::white}});
         // The crescent and the ring of five stars.
         pixels(p, 1, 1, {" xx  x ", "x   x x", "x      ", " xx x x"}, Qt::white);
     }},
    {"my",
     [](QPainter &p) {
         const QColor yellow(0xff, 0xcc, 0x00);
         rowStripes(p, QColor(0xcc, 0x00, 0x01), Qt::white);
         p.fillRect(0, 0, 8, 6, QColor(0x01, 0x00, 0x66));
         // The crescent and the star.
         pixels(p, 1, 1, {" xx   ", "x   x ", "x  xxx", " xx x "}, yellow);
     }},
    {"id",
     [](QPainter &p) {
         bands(p, {{6, QColor(0xff, 0x00, 0x00)}, {5, Qt::white}});
     }},
    {"th",
     [](QPainter &p) {
         const QColor red(0xa5, 0x19, 0x31);
         bands(p,
               {{2, red}, {2, Qt::white}, {3, QColor(0x2d, 0x2a, 0x4a)}, {2, Qt::white}, {2, red}});
     }},
    {"in",
     [](QPainter &p) {
         bands(p, {{4, QColor(0xff, 0x99, 0x33)}, {3, Qt::white}, {4, QColor(0x13, 0x88, 0x08)}});
         p.setRenderHint(QPainter::Antialiasing);
         // The wheel.
         p.setPen(QPen(QColor(0x00, 0x00, 0x80), 0.8));
         p.setBrush(Qt::NoBrush);
         p.drawEllipse(QPointF(8, 5.5), 1.4, 1.4);
     }},
    {"cn",
     [](QPainter &p) {
         const QColor yellow(0xff, 0xde, 0x00);
         p.fillRect(0, 0, kWidth, kHeight, QColor(0xde, 0x29, 0x10));
         p.setRenderHint(QPainter::Antialiasing);
         star(p, QPointF(3, 3.2), 2.5, yellow);
         p.setRenderHint(QPainter::Antialiasing, false);
         pixels(p, 6, 1, {"x ", " x", " x", "x "}, yellow);
     }},
    {"tw",
     [](QPainter &p) {
         const QColor blue(0x00, 0x00, 0x95);
         p.fillRect(0, 0, kWidth, kHeight, QColor(0xfe, 0x00, 0x00));
         p.fillRect(0, 0, 8, 6, blue);
         p.setRenderHint(QPainter::Antialiasing);
         // The white sun.
         star(p, QPointF(4, 3), 2.5, Qt::white, 12, 0.6);
         disc(p, QPointF(4, 3), 1.3, blue);
         disc(p, QPointF(4, 3), 1.0, Qt::white);
     }},
    {"hk",
     [](QPainter &p) {
         p.fillRect(0, 0, kWidth, kHeight, QColor(0xde, 0x29, 0x10));
         p.setRenderHint(QPainter::Antialiasing);
         // The bauhinia flower: five petals around the middle.
         p.translate(8, 5.5);
         p.setPen(Qt::NoPen);
         p.setBrush(Qt::white);
         for (int i = 0; i < 5; ++i) {
             p.drawEllipse(QPointF(0, -1.9), 1.0, 1.9);
             p.rotate(72);
         }
     }},
    {"kr",
     [](QPainter &p) {
         const QColor red(0xcd, 0x2e, 0x3a), blue(0x00, 0x47, 0xa0);
         p.fillRect(0, 0, kWidth, kHeight, Qt::white);
         p.setRenderHint(QPainter::Antialiasing);
         // The trigrams in the corners, across the diagonals.
         p.setPen(QPen(Qt::black, 0.7));
         for (const QPointF &corner :
              {QPointF(2.4, 2.1), QPointF(13.6, 2.1), QPointF(2.4, 8.9), QPointF(13.6, 8.9)}) {
             p.save();
             p.translate(corner);
             p.rotate((corner.x() < 8) == (corner.y() < 5.5) ? -56.3 : 56.3);
             for (double offset : {-1.0, 0.0, 1.0})
                 p.drawLine(QPointF(-1.1, offset), QPointF(1.1, offset));
             p.restore();
         }
         // The red and blue circle, its dividing line along the diagonal.
         p.translate(8, 5.5);
         p.rotate(33.7);
         const QRectF circle(-2.9, -2.9, 5.8, 5.8);
         p.setPen(Qt::NoPen);
         p.setBrush(red);
         p.drawPie(circle, 0, 180 * 16);
         p.setBrush(blue);
         p.drawPie(circle, 180 * 16, 180 * 16);
         disc(p, QPointF(-1.45, 0), 1.45, red);
         disc(p, QPointF(1.45, 0), 1.45, blue);
     }},
    {"il",
     [](QPainter &p) {
         const QColor blue(0x00, 0x38, 0xb8);
         p.fillRect(0, 0, kWidth, kHeight, Qt::white);
         p.fillRect(0, 1, kWidth, 2, blue);
         p.fillRect(0, 8, kWidth, 2, blue);
         // The star of David.
         pixels(p, 6, 3, {"  x  ", "xxxxx", " x x ", "xxxxx", "  x  "}, blue);
     }},
};

} // namespace

bool saveFlags(const QString &dir)
{
    const QDir out(dir);
    for (const Flag &flag : kFlags) {
        QImage image(kWidth, kHeight, QImage::Format_RGB32);
        image.fill(Qt::white);
        {
            QPainter p(&image);
            flag.paint(p);
        }
        const QString path =
            out.filePath(QStringLiteral("f%1.bmp").arg(QLatin1String(flag.country)));
        if (!image.save(path, "BMP")) {
            std::fprintf(stderr, "artwork: cannot write %s\n", qPrintable(path));
            return false;
        }
        std::printf("%s %dx%d\n", qPrintable(path), image.width(), image.height());
    }
    return true;
}
