#include "scripthighlighter.h"

#include <QGuiApplication>
#include <QPalette>
#include <QSet>

#include <cmath>

namespace OrdaneView {

namespace {

const QSet<QString> &keywords()
{
    static const QSet<QString> words = {
        QStringLiteral("var"),     QStringLiteral("function"),  QStringLiteral("for"),
        QStringLiteral("while"),   QStringLiteral("if"),        QStringLiteral("else"),
        QStringLiteral("return"),  QStringLiteral("new"),       QStringLiteral("with"),
        QStringLiteral("do"),      QStringLiteral("break"),     QStringLiteral("continue"),
        QStringLiteral("switch"),  QStringLiteral("case"),      QStringLiteral("default"),
        QStringLiteral("this"),    QStringLiteral("true"),      QStringLiteral("false"),
        QStringLiteral("null"),    QStringLiteral("undefined"), QStringLiteral("typeof"),
        QStringLiteral("in"),      QStringLiteral("try"),       QStringLiteral("catch"),
        QStringLiteral("finally"), QStringLiteral("throw"),     QStringLiteral("delete"),
    };
    return words;
}

// The globals the program gives every script and the operations of an indicator object.
const QSet<QString> &interfaceNames()
{
    static const QSet<QString> names = {
        QStringLiteral("Shared"),
        QStringLiteral("DrawStyle"),
        QStringLiteral("PenStyle"),
        QStringLiteral("BrushStyle"),
        QStringLiteral("Image"),
        QStringLiteral("Painter"),
        QStringLiteral("messageBox"),
        QStringLiteral("output"),
        QStringLiteral("createBuffer"),
        QStringLiteral("createParameter"),
        QStringLiteral("parameter"),
        QStringLiteral("setBufferColor"),
        QStringLiteral("setBufferData"),
        QStringLiteral("setBufferDrawStyle"),
        QStringLiteral("setAutoChangeMaxMin"),
        QStringLiteral("addLevel"),
        QStringLiteral("drawLevel"),
        QStringLiteral("removeAllLevels"),
        QStringLiteral("ema"),
        QStringLiteral("sma"),
        QStringLiteral("smma"),
        QStringLiteral("wma"),
        QStringLiteral("median"),
        QStringLiteral("stdDev"),
        QStringLiteral("stdDevNMinus1"),
        QStringLiteral("shift"),
        QStringLiteral("drawBox"),
        QStringLiteral("getIndicator"),
        QStringLiteral("setFullName"),
        QStringLiteral("fullName"),
        QStringLiteral("bufferData"),
        QStringLiteral("setParameter"),
        QStringLiteral("init"),
        QStringLiteral("start"),
        QStringLiteral("deinit"),
        QStringLiteral("draw"),
    };
    return names;
}

bool startsWord(QChar c)
{
    return c.isLetter() || c == QLatin1Char('_') || c == QLatin1Char('$');
}

bool inWord(QChar c)
{
    return startsWord(c) || c.isDigit();
}

// The end of the number that starts at `i`: decimal with fraction and exponent, or hex.
int numberEnd(const QString &text, int i)
{
    const int n = text.size();
    if (text.at(i) == QLatin1Char('0') && i + 1 < n &&
        (text.at(i + 1) == QLatin1Char('x') || text.at(i + 1) == QLatin1Char('X'))) {
        i += 2;
        while (i < n && isxdigit(text.at(i).toLatin1()))
            ++i;
        return i;
    }
    while (i < n && text.at(i).isDigit())
        ++i;
    if (i < n && text.at(i) == QLatin1Char('.')) {
        ++i;
        while (i < n && text.at(i).isDigit())
            ++i;
    }
    if (i < n && (text.at(i) == QLatin1Char('e') || text.at(i) == QLatin1Char('E'))) {
        int j = i + 1;
        if (j < n && (text.at(j) == QLatin1Char('+') || text.at(j) == QLatin1Char('-')))
            ++j;
        if (j < n && text.at(j).isDigit()) {
            i = j;
            while (i < n && text.at(i).isDigit())
                ++i;
        }
    }
    return i;
}

// Whether light text reads better than dark text on `background`: its relative luminance
// (the sRGB weighting of the usual contrast formula) lies below the point where black and
// white text have the same contrast on it.
bool isDark(const QColor &background)
{
    const auto linear = [](qreal c) {
        return c <= 0.03928 ? c / 12.92 : std::pow((c + 0.055) / 1.055, 2.4);
    };
    const QColor rgb = background.toRgb();
    const qreal luminance =
        0.2126 * linear(rgb.redF()) + 0.7152 * linear(rgb.greenF()) + 0.0722 * linear(rgb.blueF());
    return luminance < 0.179;
}

QTextCharFormat coloured(const QColor &colour, bool bold = false, bool italic = false)
{
    QTextCharFormat format;
    format.setForeground(colour);
    if (bold)
        format.setFontWeight(QFont::Bold);
    format.setFontItalic(italic);
    return format;
}

} // namespace

ScriptHighlighter::ScriptHighlighter(QTextDocument *document)
    : QSyntaxHighlighter(document)
{
    chooseFormats(isDark(QGuiApplication::palette().color(QPalette::Base)));
}

void ScriptHighlighter::setBackground(const QColor &background)
{
    const bool dark = isDark(background);
    if (dark == mDark)
        return;
    chooseFormats(dark);
    rehighlight();
}

void ScriptHighlighter::chooseFormats(bool dark)
{
    // Each set keeps a contrast of at least 4.5 : 1 (the usual threshold for body text) on
    // white or on black and on the near-black of the dark style sheet.
    mDark = dark;
    mFormats[Keyword] = coloured(dark ? QColor(0x82, 0xaa, 0xff) : QColor(0x00, 0x00, 0x99), true);
    mFormats[Number] = coloured(dark ? QColor(0xf7, 0x8c, 0x6c) : QColor(0xa0, 0x40, 0x00));
    mFormats[String] = coloured(dark ? QColor(0xc3, 0xe8, 0x8d) : QColor(0x00, 0x70, 0x00));
    mFormats[Comment] =
        coloured(dark ? QColor(0x9a, 0xa5, 0xb1) : QColor(0x5f, 0x66, 0x6d), false, true);
    mFormats[Interface] = coloured(dark ? QColor(0xe0, 0x8a, 0xe0) : QColor(0x80, 0x00, 0x80));
}

int ScriptHighlighter::blockComment(const QString &text, int from, int open)
{
    const int close = text.indexOf(QLatin1String("*/"), open);
    if (close < 0) {
        setFormat(from, text.size() - from, mFormats[Comment]);
        setCurrentBlockState(InBlockComment);
        return -1;
    }
    setFormat(from, close + 2 - from, mFormats[Comment]);
    return close + 2;
}

void ScriptHighlighter::highlightBlock(const QString &text)
{
    setCurrentBlockState(Plain);
    int i = 0;
    if (previousBlockState() == InBlockComment) {
        i = blockComment(text, 0, 0);
        if (i < 0)
            return;
    }

    const int n = text.size();
    while (i < n) {
        const QChar c = text.at(i);
        const QChar next = i + 1 < n ? text.at(i + 1) : QChar();
        if (c == QLatin1Char('/') && next == QLatin1Char('/')) {
            setFormat(i, n - i, mFormats[Comment]);
            return;
        }
        if (c == QLatin1Char('/') && next == QLatin1Char('*')) {
            i = blockComment(text, i, i + 2);
            if (i < 0)
                return;
            continue;
        }
        if (c == QLatin1Char('"') || c == QLatin1Char('\'')) {
            // An unclosed string ends with its line.
            int j = i + 1;
            while (j < n && text.at(j) != c)
                j += text.at(j) == QLatin1Char('\\') ? 2 : 1;
            j = qMin(j + 1, n);
            setFormat(i, j - i, mFormats[String]);
            i = j;
            continue;
        }
        if (c.isDigit() || (c == QLatin1Char('.') && next.isDigit())) {
            const int end = numberEnd(text, i);
            setFormat(i, end - i, mFormats[Number]);
            i = end;
            continue;
        }
        if (startsWord(c)) {
            int end = i + 1;
            while (end < n && inWord(text.at(end)))
                ++end;
            const QString word = text.mid(i, end - i);
            if (keywords().contains(word))
                setFormat(i, end - i, mFormats[Keyword]);
            else if (interfaceNames().contains(word))
                setFormat(i, end - i, mFormats[Interface]);
            i = end;
            continue;
        }
        ++i;
    }
}

} // namespace OrdaneView
