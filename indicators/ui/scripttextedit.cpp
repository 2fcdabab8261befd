#include "scripttextedit.h"

#include <QFontDatabase>
#include <QPainter>
#include <QTextBlock>

namespace OrdaneView {

// The line number gutter; the text edit paints it.
class ScriptGutter : public QWidget
{
public:
    explicit ScriptGutter(ScriptTextEdit *edit)
        : QWidget(edit)
        , mEdit(edit)
    {}

    QSize sizeHint() const override { return {mEdit->gutterWidth(), 0}; }

protected:
    void paintEvent(QPaintEvent *event) override { mEdit->paintGutter(event); }

private:
    ScriptTextEdit *mEdit;
};

namespace {
constexpr int kTabWidth = 4;
constexpr int kGutterPadding = 4;
} // namespace

ScriptTextEdit::ScriptTextEdit(QWidget *parent)
    : QPlainTextEdit(parent)
    , mGutter(new ScriptGutter(this))
{
    setLineWrapMode(QPlainTextEdit::NoWrap);
    QFont font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    font.setStyleHint(QFont::Monospace);
    setFont(font); // the gutter and the tab width follow in changeEvent()

    connect(this, &QPlainTextEdit::blockCountChanged, this, &ScriptTextEdit::updateGutterWidth);
    connect(this, &QPlainTextEdit::updateRequest, this, &ScriptTextEdit::updateGutter);
    connect(this, &QPlainTextEdit::cursorPositionChanged, this, &ScriptTextEdit::markCurrentLine);
    updateGutterWidth();
    markCurrentLine();
}

int ScriptTextEdit::gutterWidth() const
{
    int digits = 1;
    for (int top = qMax(1, blockCount()); top >= 10; top /= 10)
        ++digits;
    // Never narrower than two digits, so the first lines do not make the text jump.
    digits = qMax(digits, 2);
    return 2 * kGutterPadding + fontMetrics().horizontalAdvance(QLatin1Char('9')) * digits;
}

void ScriptTextEdit::goToLine(int line)
{
    const QTextBlock block = document()->findBlockByNumber(qBound(1, line, blockCount()) - 1);
    setTextCursor(QTextCursor(block));
    centerCursor();
}

void ScriptTextEdit::updateGutterWidth()
{
    setViewportMargins(gutterWidth(), 0, 0, 0);
    const QRect area = contentsRect();
    mGutter->setGeometry(area.left(), area.top(), gutterWidth(), area.height());
}

void ScriptTextEdit::updateGutter(const QRect &rect, int dy)
{
    if (dy)
        mGutter->scroll(0, dy);
    else
        mGutter->update(0, rect.y(), mGutter->width(), rect.height());
    if (rect.contains(viewport()->rect()))
        updateGutterWidth();
}

void ScriptTextEdit::resizeEvent(QResizeEvent *event)
{
    QPlainTextEdit::resizeEvent(event);
    updateGutterWidth();
}

void ScriptTextEdit::changeEvent(QEvent *event)
{
    QPlainTextEdit::changeEvent(event);
    if (event->type() == QEvent::FontChange) {
        mGutter->setFont(font());
        setTabStopDistance(kTabWidth * QFontMetricsF(font()).horizontalAdvance(QLatin1Char(' ')));
        updateGutterWidth();
    } else if (event->type() == QEvent::PaletteChange) {
        markCurrentLine();
        emit paletteChanged();
    }
}

void ScriptTextEdit::markCurrentLine()
{
    // The highlight colour, mostly faded into the base: visible, yet quiet.
    const QColor base = palette().color(QPalette::Base);
    const QColor mark = palette().color(QPalette::Highlight);
    const qreal weight = 0.12;
    QColor line;
    line.setRgbF(base.redF() + (mark.redF() - base.redF()) * weight,
                 base.greenF() + (mark.greenF() - base.greenF()) * weight,
                 base.blueF() + (mark.blueF() - base.blueF()) * weight);

    QTextEdit::ExtraSelection current;
    current.format.setBackground(line);
    current.format.setProperty(QTextFormat::FullWidthSelection, true);
    current.cursor = textCursor();
    current.cursor.clearSelection();
    setExtraSelections({current});
    mGutter->update();
}

void ScriptTextEdit::paintGutter(QPaintEvent *event)
{
    QPainter painter(mGutter);
    painter.fillRect(event->rect(), palette().color(QPalette::Window));
    painter.setPen(palette().color(QPalette::Mid));
    painter.drawLine(mGutter->width() - 1, event->rect().top(), mGutter->width() - 1,
                     event->rect().bottom());

    const int current = textCursor().blockNumber();
    QTextBlock block = firstVisibleBlock();
    qreal top = blockBoundingGeometry(block).translated(contentOffset()).top();
    const int lineHeight = fontMetrics().height();
    while (block.isValid() && top <= event->rect().bottom()) {
        const qreal height = blockBoundingRect(block).height();
        if (block.isVisible() && top + height >= event->rect().top()) {
            painter.setPen(
                palette().color(block.blockNumber() == current ? QPalette::Text : QPalette::Dark));
            painter.drawText(QRectF(0, top, mGutter->width() - kGutterPadding, lineHeight),
                             Qt::AlignRight | Qt::AlignVCenter,
                             QString::number(block.blockNumber() + 1));
        }
        top += height;
        block = block.next();
    }
}

} // namespace OrdaneView
