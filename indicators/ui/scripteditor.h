#pragma once

#include <QMainWindow>
#include <QPalette>

class QAction;
class QCheckBox;
class QLabel;
class QLineEdit;

namespace OrdaneView {

class ScriptHighlighter;
class ScriptTextEdit;

// The window a user writes a script indicator in: one ".js" file, coloured, with line
// numbers, a find bar and the commands that save the script and hand it to the chart area.
//
// Every run and debug command saves first and does nothing more when that fails. A script
// indicator is known by its file name ("Trend.js"), the debug commands also pass the full
// path. Closing with unsaved changes asks whether to save them.
class ScriptEditor : public QMainWindow
{
    Q_OBJECT

public:
    explicit ScriptEditor(QWidget *parent = nullptr);

    // Loads the file (UTF-8). On failure the editor is unchanged and *error says why.
    bool open(const QString &path, QString *error = nullptr);
    // Writes the text through a save file: on failure the file on disk stays as it was.
    bool save(QString *error = nullptr);

    QString fileName() const;
    // Absolute.
    QString filePath() const { return mPath; }

    ScriptTextEdit *textEdit() const { return mEdit; }
    ScriptHighlighter *highlighter() const { return mHighlighter; }

    // Closes the window without asking, dropping unsaved changes (the file is gone).
    void discardAndClose();

public slots:
    void showFindBar();
    // Select the next / previous match of the find bar's text, wrapping around the ends.
    // A miss leaves the selection alone and marks the find text.
    bool findNext();
    bool findPrevious();
    void goToLine();

signals:
    void addIndicators(const QStringList &ids);
    void addChartIndicators(const QStringList &ids);
    void debugIndicator(const QString &name, const QString &file);
    void debugChartIndicator(const QString &name, const QString &file);

protected:
    void closeEvent(QCloseEvent *event) override;

private:
    QAction *addCommand(const QString &text, const char *name, const QKeySequence &keys);
    void createFindBar();
    void createMenus();
    // Saves, telling the user when that fails.
    bool saveWithMessage();
    bool find(bool backward);
    void showCursorPosition();

    QString mPath;
    ScriptTextEdit *mEdit;
    ScriptHighlighter *mHighlighter;
    QWidget *mFindBar;
    QLineEdit *mFindText;
    QCheckBox *mMatchCase;
    QPalette mFindPalette;
    QLabel *mPosition;

    QAction *mSave;
    QAction *mRunPane;
    QAction *mRunChart;
    QAction *mDebugPane;
    QAction *mDebugChart;
    QAction *mFind;
    QAction *mFindNext;
    QAction *mFindPrevious;
    QAction *mGoToLine;
    QAction *mClose;
};

} // namespace OrdaneView
