#pragma once

#include <QList>
#include <QListWidget>
#include <QPointer>
#include <QStringList>

class QAction;

namespace OrdaneView {

class ScriptEditor;

// The indicator list of the main window: the listed built-in indicators in list order,
// then the script files ("*.js", "*.bin") of the home folder's "UserIndicators". Every
// entry keeps its identifier in Qt::UserRole; a script's identifier is its file name.
//
// Activating an entry (double-click, Return) emits addIndicators() with its identifier;
// the context menu adds the selected entries in a new pane or to the chart. Dragging
// entries carries their identifiers as View::kIndicatorsMimeType, which the chart views
// accept.
//
// Below the list's own actions the context menu offers the script commands: a new
// indicator made from the starter script, editing the selected ".js" file and deleting
// the selected script file. Each script file has at most one editor; the editors' run and
// debug commands come out of this widget's signals.
class IndicatorFactoryWidget : public QListWidget
{
    Q_OBJECT

public:
    explicit IndicatorFactoryWidget(QWidget *parent = nullptr);

    // The identifiers of the selected entries, in list order.
    QStringList selectedIdentifiers() const;

    QAction *addInPaneAction() const { return mAddInPane; }
    QAction *addToChartAction() const { return mAddToChart; }
    QAction *newIndicatorAction() const { return mNewIndicator; }
    QAction *editScriptAction() const { return mEditScript; }
    QAction *deleteScriptAction() const { return mDeleteScript; }

    // The open editor of the script file at `path`, or nullptr.
    ScriptEditor *editorFor(const QString &path) const;
    // Brings up the editor of the ".js" file at `path`, making one when none is open.
    // Returns nullptr for a packed script and, after telling the user, for a file that
    // cannot be read.
    ScriptEditor *openEditor(const QString &path);
    // Closes every editor, each asking about unsaved changes; false when the user keeps
    // one open.
    bool closeEditors();

public slots:
    // Lists the built-ins and the script files anew.
    void refresh();
    // Asks for a name, writes the starter script under it and opens it in an editor.
    void newIndicator();
    void editSelectedScript();
    // Deletes the selected script file from the disk once the user confirms.
    void deleteSelectedScript();

signals:
    void addIndicators(const QStringList &ids);
    void addChartIndicators(const QStringList &ids);
    // From the script editor: run the named script file under the debugger.
    void debugChartIndicator(const QString &name, const QString &file);
    void debugIndicator(const QString &name, const QString &file);

protected:
    QStringList mimeTypes() const override;
    QMimeData *mimeData(const QList<QListWidgetItem *> items) const override;

private:
    void addEntry(const QString &id, const QString &text, const QString &picture);
    void updateActions();
    // The file name of the one selected entry when that is a script ("*.js", or
    // "*.bin" too when `packed`), else empty.
    QString selectedScript(bool packed) const;

    QAction *mAddInPane;
    QAction *mAddToChart;
    QAction *mNewIndicator;
    QAction *mEditScript;
    QAction *mDeleteScript;
    QList<QPointer<ScriptEditor>> mEditors;
};

} // namespace OrdaneView
