#pragma once

#include <QPlainTextEdit>

namespace OrdaneView {

// The text area of the script editor: a monospace font with tabs four blanks wide, line
// numbers in a gutter on the left and the cursor's line lightly marked.
class ScriptTextEdit : public QPlainTextEdit
{
    Q_OBJECT

public:
    explicit ScriptTextEdit(QWidget *parent = nullptr);

    // The width the gutter needs for the highest line number.
    int gutterWidth() const;
    QWidget *gutter() const { return mGutter; }

    // Puts the cursor at the start of the 1-based line and shows it.
    void goToLine(int line);

signals:
    // The palette changed, as when a style sheet is applied: the colours of the text may
    // need to follow the new base.
    void paletteChanged();

protected:
    void resizeEvent(QResizeEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    friend class ScriptGutter;

    void paintGutter(QPaintEvent *event);
    void updateGutterWidth();
    void updateGutter(const QRect &rect, int dy);
    void markCurrentLine();

    QWidget *mGutter;
};

} // namespace OrdaneView
