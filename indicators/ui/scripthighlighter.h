#pragma once

#include <QSyntaxHighlighter>
#include <QTextCharFormat>

namespace OrdaneView {

// Colours the JavaScript of an indicator script: keywords, numbers, strings, comments
// (block comments carry on across lines) and the names the program hands to scripts.
class ScriptHighlighter : public QSyntaxHighlighter
{
    Q_OBJECT

public:
    enum Kind { Keyword, Number, String, Comment, Interface, KindCount };

    explicit ScriptHighlighter(QTextDocument *document);

    // The format text of the given kind gets.
    QTextCharFormat format(Kind kind) const { return mFormats[kind]; }

protected:
    void highlightBlock(const QString &text) override;

private:
    enum State { Plain = 0, InBlockComment = 1 };

    // Finishes a block comment that starts at `from`; returns where the text after it
    // begins, or -1 when the comment goes on past the end of the line.
    int blockComment(const QString &text, int from, int open);

    QTextCharFormat mFormats[KindCount];
};

} // namespace OrdaneView
