#include "indicatorfactorywidget.h"

#include "data/home.h"
#include "indicators/catalogue.h"

#include <QAction>
#include <QDir>
#include <QMimeData>

#include <algorithm>

namespace OrdaneView {

IndicatorFactoryWidget::IndicatorFactoryWidget(QWidget *parent)
    : QListWidget(parent)
    , mAddInPane(new QAction(tr("Add in New &Pane"), this))
    , mAddToChart(new QAction(tr("Add to &Chart"), this))
{
    setObjectName(QStringLiteral("IndicatorFactoryWidget"));
    setSelectionMode(QAbstractItemView::ExtendedSelection);
    setDragEnabled(true);
    setDragDropMode(QAbstractItemView::DragOnly);
    setContextMenuPolicy(Qt::ActionsContextMenu);
    addAction(mAddInPane);
    addAction(mAddToChart);

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
    auto enableActions = [this] {
        const bool any = !selectedItems().isEmpty();
        mAddInPane->setEnabled(any);
        mAddToChart->setEnabled(any);
    };
    connect(this, &QListWidget::itemSelectionChanged, this, enableActions);

    refresh();
    enableActions();
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
    if (OrdaneData::Home::path().isEmpty())
        return;
    const QStringList scripts =
        QDir(OrdaneData::Home::userIndicatorsPath())
            .entryList({QStringLiteral("*.js"), QStringLiteral("*.bin")}, QDir::Files, QDir::Name);
    for (const QString &file : scripts) {
        const bool packed = file.endsWith(QLatin1String(".bin"), Qt::CaseInsensitive);
        addEntry(file, file,
                 packed ? QStringLiteral(":/pix/indicator_locked.png")
                        : QStringLiteral(":/pix/indicator_js.png"));
    }
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
    return {QLatin1String(kMimeType)};
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
    mime->setData(QLatin1String(kMimeType), ids.join(QLatin1Char('\n')).toUtf8());
    return mime;
}

} // namespace OrdaneView
