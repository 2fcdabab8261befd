#include "indicatorfactorywidget.h"

#include "data/home.h"
#include "indicators/catalogue.h"
#include "indicators/script/newindicator.h"
#include "scripteditor.h"
#include "view/ui/view.h"

#include <QAction>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QInputDialog>
#include <QMessageBox>
#include <QMimeData>

#include <algorithm>

namespace OrdaneView {

namespace {

bool isPlainScript(const QString &id)
{
    return id.endsWith(QLatin1String(".js"), Qt::CaseInsensitive);
}

bool isPackedScript(const QString &id)
{
    return id.endsWith(QLatin1String(".bin"), Qt::CaseInsensitive);
}

QString scriptPath(const QString &fileName)
{
    return QDir(OrdaneData::Home::userIndicatorsPath()).filePath(fileName);
}

} // namespace

IndicatorFactoryWidget::IndicatorFactoryWidget(QWidget *parent)
    : QListWidget(parent)
    , mAddInPane(new QAction(tr("Add in New &Pane"), this))
    , mAddToChart(new QAction(tr("Add to &Chart"), this))
    , mNewIndicator(new QAction(tr("New Indicator"), this))
    , mEditScript(new QAction(tr("&Edit Script"), this))
    , mDeleteScript(new QAction(tr("&Delete Script"), this))
{
    setObjectName(QStringLiteral("IndicatorFactoryWidget"));
    setSelectionMode(QAbstractItemView::ExtendedSelection);
    setDragEnabled(true);
    setDragDropMode(QAbstractItemView::DragOnly);
    setContextMenuPolicy(Qt::ActionsContextMenu);
    addAction(mAddInPane);
    addAction(mAddToChart);
    auto *separator = new QAction(this);
    separator->setSeparator(true);
    addAction(separator);
    addAction(mNewIndicator);
    addAction(mEditScript);
    addAction(mDeleteScript);

    connect(this, &QListWidget::itemActivated, this, [this](QListWidgetItem *item) {
        emit addIndicators({item->data(Qt::UserRole).toString()});
    });
    connect(mAddInPane, &QAction::triggered, this, [this] {
        const QStringList ids = selectedIdentifiers();
        if (!ids.isEmpty())
            emit addIndicators(ids);
    });
    connect(mAddToChart, &QAction::triggered, this, [this] {
        const QStringList ids = selectedIdentifiers();
        if (!ids.isEmpty())
            emit addChartIndicators(ids);
    });
    mNewIndicator->setObjectName(QStringLiteral("actionNewIndicator"));
    mEditScript->setObjectName(QStringLiteral("actionEditIndicator"));
    mDeleteScript->setObjectName(QStringLiteral("actionDeleteIndicator"));
    connect(mNewIndicator, &QAction::triggered, this, &IndicatorFactoryWidget::newIndicator);
    connect(mEditScript, &QAction::triggered, this, &IndicatorFactoryWidget::editSelectedScript);
    connect(mDeleteScript, &QAction::triggered, this,
            &IndicatorFactoryWidget::deleteSelectedScript);
    connect(this, &QListWidget::itemSelectionChanged, this, &IndicatorFactoryWidget::updateActions);

    refresh();
}

void IndicatorFactoryWidget::updateActions()
{
    const bool any = !selectedItems().isEmpty();
    mAddInPane->setEnabled(any);
    mAddToChart->setEnabled(any);
    mEditScript->setEnabled(!selectedScript(false).isEmpty());
    mDeleteScript->setEnabled(!selectedScript(true).isEmpty());
}

QString IndicatorFactoryWidget::selectedScript(bool packed) const
{
    const QList<QListWidgetItem *> selected = selectedItems();
    if (selected.size() != 1)
        return {};
    const QString id = selected.first()->data(Qt::UserRole).toString();
    return isPlainScript(id) || (packed && isPackedScript(id)) ? id : QString();
}

QStringList IndicatorFactoryWidget::selectedIdentifiers() const
{
    QStringList ids;
    for (int row = 0; row < count(); ++row)
        if (item(row)->isSelected())
            ids << item(row)->data(Qt::UserRole).toString();
    return ids;
}

void IndicatorFactoryWidget::refresh()
{
    clear();
    const QStringList builtIns = listedIndicators();
    for (const QString &id : builtIns)
        addEntry(id, indicatorTitle(id), QStringLiteral(":/pix/indicator.png"));

    // Without a home folder there is no script folder to look into.
    if (!OrdaneData::Home::path().isEmpty()) {
        const QStringList scripts =
            QDir(OrdaneData::Home::userIndicatorsPath())
                .entryList({QStringLiteral("*.js"), QStringLiteral("*.bin")}, QDir::Files,
                           QDir::Name);
        for (const QString &file : scripts) {
            addEntry(file, file,
                     isPackedScript(file) ? QStringLiteral(":/pix/indicator_locked.png")
                                          : QStringLiteral(":/pix/indicator_js.png"));
        }
    }
    updateActions();
}

void IndicatorFactoryWidget::addEntry(const QString &id, const QString &text,
                                      const QString &picture)
{
    auto *entry = new QListWidgetItem(QIcon(picture), text, this);
    entry->setData(Qt::UserRole, id);
    entry->setToolTip(id);
}

QStringList IndicatorFactoryWidget::mimeTypes() const
{
    return {QLatin1String(View::kIndicatorsMimeType)};
}

QMimeData *IndicatorFactoryWidget::mimeData(const QList<QListWidgetItem *> items) const
{
    // In list order, whatever order the entries were picked in.
    QList<QListWidgetItem *> sorted = items;
    std::sort(sorted.begin(), sorted.end(),
              [this](QListWidgetItem *a, QListWidgetItem *b) { return row(a) < row(b); });
    QStringList ids;
    for (const QListWidgetItem *entry : qAsConst(sorted))
        ids << entry->data(Qt::UserRole).toString();
    auto *mime = new QMimeData;
    mime->setData(QLatin1String(View::kIndicatorsMimeType), ids.join(QLatin1Char('\n')).toUtf8());
    return mime;
}

ScriptEditor *IndicatorFactoryWidget::editorFor(const QString &path) const
{
    const QString wanted = QFileInfo(path).absoluteFilePath();
    for (const QPointer<ScriptEditor> &editor : mEditors)
        if (editor && editor->filePath() == wanted)
            return editor;
    return nullptr;
}

ScriptEditor *IndicatorFactoryWidget::openEditor(const QString &path)
{
    if (ScriptEditor *editor = editorFor(path)) {
        editor->showNormal();
        editor->raise();
        editor->activateWindow();
        return editor;
    }
    // Packed scripts are locked.
    if (!isPlainScript(path))
        return nullptr;

    auto *editor = new ScriptEditor(this);
    QString error;
    if (!editor->open(path, &error)) {
        delete editor;
        QMessageBox::critical(
            this, tr("Error"),
            tr("Can not open \"%1\":\n%2").arg(QDir::toNativeSeparators(path), error));
        return nullptr;
    }
    connect(editor, &ScriptEditor::addIndicators, this, &IndicatorFactoryWidget::addIndicators);
    connect(editor, &ScriptEditor::addChartIndicators, this,
            &IndicatorFactoryWidget::addChartIndicators);
    connect(editor, &ScriptEditor::debugIndicator, this, &IndicatorFactoryWidget::debugIndicator);
    connect(editor, &ScriptEditor::debugChartIndicator, this,
            &IndicatorFactoryWidget::debugChartIndicator);
    mEditors.removeAll(nullptr);
    mEditors << editor;
    editor->show();
    return editor;
}

bool IndicatorFactoryWidget::closeEditors()
{
    const QList<QPointer<ScriptEditor>> editors = mEditors;
    for (const QPointer<ScriptEditor> &editor : editors)
        if (editor && !editor->close())
            return false;
    return true;
}

void IndicatorFactoryWidget::newIndicator()
{
    bool ok = false;
    const QString typed =
        QInputDialog::getText(this, tr("New Indicator"), tr("Indicator Name:"), QLineEdit::Normal,
                              QStringLiteral("NewIndicator.js"), &ok);
    if (!ok)
        return;

    QString path;
    // Without a home folder there is nowhere to write to.
    const Scripts::CreateResult result =
        OrdaneData::Home::path().isEmpty()
            ? Scripts::CreateResult::Failed
            : Scripts::createIndicatorScript(OrdaneData::Home::userIndicatorsPath(), typed, &path);
    switch (result) {
    case Scripts::CreateResult::NoName:
        QMessageBox::critical(this, tr("Error"), tr("Can not create an indicator without name"));
        return;
    case Scripts::CreateResult::BadName:
        QMessageBox::critical(this, tr("Error"),
                              tr("The name must begin with a letter and hold only letters, digits "
                                 "and \"_\": scripts reach the indicator by this name."));
        return;
    case Scripts::CreateResult::Failed:
        QMessageBox::critical(this, tr("Error"), tr("Can not create the file"));
        return;
    case Scripts::CreateResult::Exists:
        QMessageBox::warning(this, tr("Warning"),
                             tr("This file already exists.Press Ok to open the file"));
        openEditor(path);
        return;
    case Scripts::CreateResult::Created:
        break;
    }

    refresh();
    const QString id = QFileInfo(path).fileName();
    for (int row = 0; row < count(); ++row) {
        if (item(row)->data(Qt::UserRole).toString() == id) {
            clearSelection();
            setCurrentItem(item(row));
            scrollToItem(item(row));
            break;
        }
    }
    openEditor(path);
}

void IndicatorFactoryWidget::editSelectedScript()
{
    const QString file = selectedScript(false);
    if (!file.isEmpty())
        openEditor(scriptPath(file));
}

void IndicatorFactoryWidget::deleteSelectedScript()
{
    const QString file = selectedScript(true);
    if (file.isEmpty())
        return;
    if (QMessageBox::question(
            this, tr("Delete Indicator"),
            tr("Are you sure that you want to delete \"%1\"? The file is removed from the disk.")
                .arg(file)) != QMessageBox::Yes)
        return;
    const QString path = scriptPath(file);
    if (QFile::remove(path)) {
        if (ScriptEditor *editor = editorFor(path))
            editor->discardAndClose();
    } else {
        QMessageBox::critical(this, tr("Error"), tr("Can not remove the indicator"));
    }
    refresh();
}

} // namespace OrdaneView
