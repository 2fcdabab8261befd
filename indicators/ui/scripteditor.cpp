#include "scripteditor.h"

#include "scripthighlighter.h"
#include "scripttextedit.h"

#include <QAction>
#include <QCheckBox>
#include <QCloseEvent>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QInputDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QMessageBox>
#include <QPushButton>
#include <QSaveFile>
#include <QShortcut>
#include <QStatusBar>
#include <QStyle>
#include <QTextBlock>
#include <QToolBar>
#include <QToolButton>
#include <QVBoxLayout>

namespace OrdaneView {

ScriptEditor::ScriptEditor(QWidget *parent)
    : QMainWindow(parent, Qt::Window)
    , mEdit(new ScriptTextEdit)
    , mHighlighter(new ScriptHighlighter(mEdit->document()))
    , mPosition(new QLabel)
{
    setObjectName(QStringLiteral("ScriptEditor"));
    setAttribute(Qt::WA_DeleteOnClose);
    mEdit->setObjectName(QStringLiteral("scriptText"));

    mSave = addCommand(tr("&Save"), "actionScriptSave", QKeySequence::Save);
    mSave->setIcon(style()->standardIcon(QStyle::SP_DialogSaveButton));
    mRunPane = addCommand(tr("Run in New &Pane"), "actionScriptRunPane", Qt::Key_F5);
    mRunPane->setIcon(style()->standardIcon(QStyle::SP_MediaPlay));
    mRunChart = addCommand(tr("Run on &Chart"), "actionScriptRunChart", Qt::CTRL | Qt::Key_F5);
    mDebugPane = addCommand(tr("&Debug in New Pane"), "actionScriptDebugPane", Qt::Key_F6);
    mDebugChart =
        addCommand(tr("Debug on C&hart"), "actionScriptDebugChart", Qt::CTRL | Qt::Key_F6);
    mFind = addCommand(tr("&Find"), "actionScriptFind", QKeySequence::Find);
    mFindNext = addCommand(tr("Find &Next"), "actionScriptFindNext", Qt::Key_F3);
    mFindPrevious =
        addCommand(tr("Find &Previous"), "actionScriptFindPrevious", Qt::SHIFT | Qt::Key_F3);
    mGoToLine = addCommand(tr("&Go to Line..."), "actionScriptGoToLine", Qt::CTRL | Qt::Key_G);
    mClose = addCommand(tr("&Close"), "actionScriptClose", QKeySequence::Close);

    connect(mSave, &QAction::triggered, this, &ScriptEditor::saveWithMessage);
    connect(mRunPane, &QAction::triggered, this, [this] {
        if (saveWithMessage())
            emit addIndicators({fileName()});
    });
    connect(mRunChart, &QAction::triggered, this, [this] {
        if (saveWithMessage())
            emit addChartIndicators({fileName()});
    });
    connect(mDebugPane, &QAction::triggered, this, [this] {
        if (saveWithMessage())
            emit debugIndicator(fileName(), filePath());
    });
    connect(mDebugChart, &QAction::triggered, this, [this] {
        if (saveWithMessage())
            emit debugChartIndicator(fileName(), filePath());
    });
    connect(mFind, &QAction::triggered, this, &ScriptEditor::showFindBar);
    connect(mFindNext, &QAction::triggered, this, &ScriptEditor::findNext);
    connect(mFindPrevious, &QAction::triggered, this, &ScriptEditor::findPrevious);
    connect(mGoToLine, &QAction::triggered, this, &ScriptEditor::goToLine);
    connect(mClose, &QAction::triggered, this, &QWidget::close);

    createFindBar();
    auto *central = new QWidget;
    auto *layout = new QVBoxLayout(central);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(mEdit);
    layout->addWidget(mFindBar);
    setCentralWidget(central);
    createMenus();
    statusBar()->addPermanentWidget(mPosition);

    // The colours of the script follow the background the editor is really painted on.
    const auto followBase = [this] {
        mHighlighter->setBackground(mEdit->palette().color(QPalette::Base));
    };
    connect(mEdit, &ScriptTextEdit::paletteChanged, this, followBase);
    followBase();
    connect(mEdit->document(), &QTextDocument::modificationChanged, this,
            &QWidget::setWindowModified);
    connect(mEdit, &QPlainTextEdit::cursorPositionChanged, this, &ScriptEditor::showCursorPosition);
    showCursorPosition();
    mEdit->setFocus();
    resize(760, 620);
}

QAction *ScriptEditor::addCommand(const QString &text, const char *name, const QKeySequence &keys)
{
    auto *action = new QAction(text, this);
    action->setObjectName(QLatin1String(name));
    action->setShortcut(keys);
    // Reachable from the keyboard even while the find bar has the focus.
    addAction(action);
    return action;
}

void ScriptEditor::createMenus()
{
    QMenu *file = menuBar()->addMenu(tr("&File"));
    file->addAction(mSave);
    file->addSeparator();
    file->addAction(mClose);

    QMenu *edit = menuBar()->addMenu(tr("&Edit"));
    QAction *undo = edit->addAction(tr("&Undo"), mEdit, &QPlainTextEdit::undo, QKeySequence::Undo);
    QAction *redo = edit->addAction(tr("&Redo"), mEdit, &QPlainTextEdit::redo, QKeySequence::Redo);
    edit->addSeparator();
    QAction *cut = edit->addAction(tr("Cu&t"), mEdit, &QPlainTextEdit::cut, QKeySequence::Cut);
    QAction *copy = edit->addAction(tr("&Copy"), mEdit, &QPlainTextEdit::copy, QKeySequence::Copy);
    edit->addAction(tr("&Paste"), mEdit, &QPlainTextEdit::paste, QKeySequence::Paste);
    edit->addSeparator();
    edit->addAction(mFind);
    edit->addAction(mFindNext);
    edit->addAction(mFindPrevious);
    edit->addAction(mGoToLine);
    undo->setEnabled(false);
    redo->setEnabled(false);
    cut->setEnabled(false);
    copy->setEnabled(false);
    connect(mEdit, &QPlainTextEdit::undoAvailable, undo, &QAction::setEnabled);
    connect(mEdit, &QPlainTextEdit::redoAvailable, redo, &QAction::setEnabled);
    connect(mEdit, &QPlainTextEdit::copyAvailable, cut, &QAction::setEnabled);
    connect(mEdit, &QPlainTextEdit::copyAvailable, copy, &QAction::setEnabled);

    QMenu *run = menuBar()->addMenu(tr("&Run"));
    run->addAction(mRunPane);
    run->addAction(mRunChart);
    run->addSeparator();
    run->addAction(mDebugPane);
    run->addAction(mDebugChart);

    QToolBar *tools = addToolBar(tr("Script"));
    tools->setObjectName(QStringLiteral("scriptToolBar"));
    tools->setMovable(false);
    // Text only: the run and debug commands have no pictures of their own.
    tools->setToolButtonStyle(Qt::ToolButtonTextOnly);
    tools->addAction(mSave);
    tools->addSeparator();
    tools->addAction(mRunPane);
    tools->addAction(mRunChart);
    tools->addSeparator();
    tools->addAction(mDebugPane);
    tools->addAction(mDebugChart);
}

void ScriptEditor::createFindBar()
{
    mFindBar = new QWidget;
    mFindBar->setObjectName(QStringLiteral("scriptFindBar"));
    mFindText = new QLineEdit;
    mFindText->setObjectName(QStringLiteral("scriptFindText"));
    mFindText->setClearButtonEnabled(true);
    mFindPalette = mFindText->palette();
    mMatchCase = new QCheckBox(tr("Match &case"));
    mMatchCase->setObjectName(QStringLiteral("scriptMatchCase"));
    auto *next = new QPushButton(tr("&Next"));
    auto *previous = new QPushButton(tr("&Previous"));
    auto *hide = new QToolButton;
    hide->setAutoRaise(true);
    hide->setIcon(style()->standardIcon(QStyle::SP_TitleBarCloseButton));
    hide->setToolTip(tr("Close the find bar (Esc)"));
    for (QPushButton *button : {next, previous}) {
        button->setAutoDefault(false);
        button->setFocusPolicy(Qt::TabFocus);
    }

    auto *layout = new QHBoxLayout(mFindBar);
    layout->setContentsMargins(6, 4, 6, 4);
    auto *label = new QLabel(tr("Find:"));
    label->setBuddy(mFindText);
    layout->addWidget(label);
    layout->addWidget(mFindText, 1);
    layout->addWidget(next);
    layout->addWidget(previous);
    layout->addWidget(mMatchCase);
    layout->addStretch();
    layout->addWidget(hide);
    mFindBar->hide();

    auto closeBar = [this] {
        mFindBar->hide();
        mEdit->setFocus();
    };
    auto *escape = new QShortcut(Qt::Key_Escape, mFindBar);
    escape->setContext(Qt::WidgetWithChildrenShortcut);
    connect(escape, &QShortcut::activated, this, closeBar);
    connect(hide, &QToolButton::clicked, this, closeBar);
    connect(next, &QPushButton::clicked, this, &ScriptEditor::findNext);
    connect(previous, &QPushButton::clicked, this, &ScriptEditor::findPrevious);
    connect(mFindText, &QLineEdit::returnPressed, this, &ScriptEditor::findNext);
    connect(mFindText, &QLineEdit::textChanged, this,
            [this] { mFindText->setPalette(mFindPalette); });
    connect(mMatchCase, &QCheckBox::toggled, this, [this] { mFindText->setPalette(mFindPalette); });
}

bool ScriptEditor::open(const QString &path, QString *error)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text)) {
        if (error)
            *error = file.errorString();
        return false;
    }
    const QString text = QString::fromUtf8(file.readAll());
    mPath = QFileInfo(path).absoluteFilePath();
    mEdit->setPlainText(text);
    mEdit->document()->setModified(false);
    setWindowModified(false);
    setWindowTitle(tr("%1[*] - Script Editor").arg(fileName()));
    return true;
}

QString ScriptEditor::fileName() const
{
    return QFileInfo(mPath).fileName();
}

bool ScriptEditor::save(QString *error)
{
    QSaveFile out(mPath);
    if (mPath.isEmpty() || !out.open(QIODevice::WriteOnly | QIODevice::Text) ||
        out.write(mEdit->toPlainText().toUtf8()) < 0 || !out.commit()) {
        if (error)
            *error = mPath.isEmpty() ? tr("No file is open.") : out.errorString();
        return false;
    }
    mEdit->document()->setModified(false);
    return true;
}

bool ScriptEditor::saveWithMessage()
{
    QString error;
    if (save(&error))
        return true;
    QMessageBox::critical(
        this, tr("Error"),
        tr("Can not save \"%1\":\n%2").arg(QDir::toNativeSeparators(mPath), error));
    return false;
}

void ScriptEditor::discardAndClose()
{
    mEdit->document()->setModified(false);
    close();
}

void ScriptEditor::closeEvent(QCloseEvent *event)
{
    if (!mEdit->document()->isModified()) {
        event->accept();
        return;
    }
    const auto answer = QMessageBox::question(
        this, tr("Script Editor"),
        tr("\"%1\" has been modified.\nDo you want to save your changes?").arg(fileName()),
        QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel, QMessageBox::Save);
    if (answer == QMessageBox::Discard || (answer == QMessageBox::Save && saveWithMessage()))
        event->accept();
    else
        event->ignore();
}

void ScriptEditor::showFindBar()
{
    // A selection within one line is what the user most likely looks for.
    const QString selected = mEdit->textCursor().selectedText();
    if (!selected.isEmpty() && !selected.contains(QChar::ParagraphSeparator))
        mFindText->setText(selected);
    mFindBar->show();
    mFindText->selectAll();
    mFindText->setFocus();
}

bool ScriptEditor::findNext()
{
    return find(false);
}

bool ScriptEditor::findPrevious()
{
    return find(true);
}

bool ScriptEditor::find(bool backward)
{
    const QString text = mFindText->text();
    if (text.isEmpty()) {
        showFindBar();
        return false;
    }
    QTextDocument::FindFlags flags;
    if (backward)
        flags |= QTextDocument::FindBackward;
    if (mMatchCase->isChecked())
        flags |= QTextDocument::FindCaseSensitively;

    QTextDocument *document = mEdit->document();
    QTextCursor found = document->find(text, mEdit->textCursor(), flags);
    if (found.isNull()) {
        QTextCursor end(document);
        end.movePosition(backward ? QTextCursor::End : QTextCursor::Start);
        found = document->find(text, end, flags);
    }
    if (found.isNull()) {
        QPalette miss = mFindPalette;
        miss.setColor(QPalette::Base, QColor(255, 200, 200));
        miss.setColor(QPalette::Text, Qt::black);
        mFindText->setPalette(miss);
        return false;
    }
    mFindText->setPalette(mFindPalette);
    mEdit->setTextCursor(found);
    return true;
}

void ScriptEditor::goToLine()
{
    bool ok = false;
    const int lines = mEdit->blockCount();
    const int line =
        QInputDialog::getInt(this, tr("Go to Line"), tr("Line number (1 - %1):").arg(lines),
                             mEdit->textCursor().blockNumber() + 1, 1, lines, 1, &ok);
    if (ok)
        mEdit->goToLine(line);
}

void ScriptEditor::showCursorPosition()
{
    const QTextCursor cursor = mEdit->textCursor();
    mPosition->setText(
        tr("Line %1, Column %2").arg(cursor.blockNumber() + 1).arg(cursor.positionInBlock() + 1));
}

} // namespace OrdaneView
