#pragma once

#include <QListWidget>
#include <QStringList>

class QAction;

namespace OrdaneView {

// The indicator list of the main window: the listed built-in indicators in list order,
// then the script files ("*.js", "*.bin") of the home folder's "UserIndicators". Every
// entry keeps its identifier in Qt::UserRole; a script's identifier is its file name.
//
// Activating an entry (double-click, Return) emits addIndicators() with its identifier;
// the context menu adds the selected entries in a new pane or to the chart. Dragging
// entries carries their identifiers as kMimeType.
class IndicatorFactoryWidget : public QListWidget
{
    Q_OBJECT

public:
    // Drag data: the identifiers joined by "\n", UTF-8.
    static constexpr char kMimeType[] = "application/x-halcyra-indicators";

    explicit IndicatorFactoryWidget(QWidget *parent = nullptr);

    // The identifiers of the selected entries, in list order.
    QStringList selectedIdentifiers() const;

    QAction *addInPaneAction() const { return mAddInPane; }
    QAction *addToChartAction() const { return mAddToChart; }

public slots:
    // Lists the built-ins and the script files anew.
    void refresh();

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

    QAction *mAddInPane;
    QAction *mAddToChart;
};

} // namespace OrdaneView
