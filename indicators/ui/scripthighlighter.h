#pragma once

#include <QSyntaxHighlighter>
#include <QTextCharFormat>

namespace OrdaneView {

// Colours the JavaScript of an indicator script: keywords, numbers, strings, comments
// (block comments carry on across lines) and the names the program hands to scripts.
//
// The colours suit the background the text is shown on: light ones on a dark background,
// dark ones on a light background. That background starts as the application palette's
// base; whoever shows the document passes the real one (a style sheet may paint the editor
// unlike the palette) to setBackground().
class ScriptHighlighter : public QSyntaxHighlighter
{
    Q_OBJECT

public:
    enum Kind { Keyword, Number, String, Comment, Interface, KindCount };

    explicit ScriptHighlighter(QTextDocument *document);

    // Chooses the colours for text on `background` and colours the document again when
    // they change.
    void setBackground(const QColor &background);

    // The format text of the given kind gets.
    QTextCharFormat format(Kind kind) const { return mFormats[kind]; }

protected:
    void highlightBlock(const QString &text) override;

private:
    enum State { Plain = 0, InBlockComment = 1 };

    // Finishes a block comment that starts at `from`; returns where the text after it
    // begins, or -1 when the comment goes on past the end of the line.
    int blockComment(const QString &text, int from, int open);
    // The formats for a dark background or a light one.
    void chooseFormats(bool dark);

    QTextCharFormat mFormats[KindCount];
    bool mDark = false;
};

} // namespace OrdaneView
