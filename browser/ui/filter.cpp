#include "filter.h"

#include "browser/filters/filterrun.h"
#include "data/exchanges.h"
#include "data/home.h"
#include "data/metadata.h"
#include "data/quotefile.h"
#include "stocklist.h"
#include "storagebrowser.h"

#include <QCheckBox>
#include <QComboBox>
#include <QCoreApplication>
#include <QDateEdit>
#include <QDoubleSpinBox>
#include <QFormLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QListWidget>
#include <QMenu>
#include <QPointer>
#include <QPushButton>
#include <QSpinBox>
#include <QTreeWidget>
#include <QVBoxLayout>

#include <cmath>

namespace OrdaneBrowser {

namespace {
// A result cell that sorts by its number when it holds one.
class ResultItem : public QTreeWidgetItem
{
public:
    using QTreeWidgetItem::QTreeWidgetItem;
    bool operator<(const QTreeWidgetItem &other) const override
    {
        const int column = treeWidget() ? treeWidget()->sortColumn() : 0;
        bool a = false, b = false;
        const double x = text(column).trimmed().toDouble(&a);
        const double y = other.text(column).trimmed().toDouble(&b);
        if (a && b)
            return x < y;
        return text(column) < other.text(column);
    }
};

// "As of:" (or another date) left at its default shows the series' newest day; the date
// edit's lowest date stands for it.
const QDate kNewest(1900, 1, 1);

} // namespace

Filter::Filter(const QString &name, QPushButton *stop, QWidget *parent)
    : QWidget(parent)
    , mSpec(findFilter(name))
    , mStop(stop)
    , mResultLabel(new QLabel(this))
    , mResults(new QTreeWidget(this))
    , mFind(new QPushButton(tr("&Find"), this))
    , mApply(new QPushButton(this))
{
    Q_ASSERT(mSpec);
    setObjectName(name);
    buildControls();
    showFound();
}

QString Filter::name() const
{
    return mSpec->title;
}

void Filter::buildControls()
{
    auto *layout = new QVBoxLayout(this);
    if (!mSpec->caption.isEmpty()) {
        auto *caption = new QLabel(mSpec->caption, this);
        caption->setObjectName(objectName() + QStringLiteral("Caption"));
        caption->setWordWrap(true);
        layout->addWidget(caption);
    }
    auto *form = new QFormLayout;
    form->setFieldGrowthPolicy(QFormLayout::FieldsStayAtSizeHint);
    QGroupBox *volumeRange = nullptr;
    QFormLayout *rangeForm = nullptr;
    for (const FilterControl &control : mSpec->controls) {
        QWidget *widget = controlWidget(control);
        mControls.insert(control.key, widget);
        // The volume range of the volume filter is a group of its own, with presets.
        if (mSpec->name == QLatin1String("VolumeFilter") &&
            (control.key == QLatin1String("Begin") || control.key == QLatin1String("End"))) {
            if (!volumeRange) {
                volumeRange = new QGroupBox(tr("Volume Range"), this);
                rangeForm = new QFormLayout(volumeRange);
                form->addRow(volumeRange);
            }
            rangeForm->addRow(control.label, widget);
            continue;
        }
        if (control.label.isEmpty())
            form->addRow(QString(), widget);
        else if (control.kind == FilterControl::Exchanges)
            form->addRow(new QLabel(control.label, this));
        if (control.kind == FilterControl::Exchanges) {
            form->addRow(widget);
        } else if (!control.label.isEmpty()) {
            auto *label = new QLabel(control.label, this);
            label->setBuddy(widget->focusProxy() ? widget->focusProxy() : widget);
            form->addRow(label, widget);
        }
    }
    layout->addLayout(form);
    if (volumeRange)
        addPresets(mControls.value(QStringLiteral("Begin")),
                   mControls.value(QStringLiteral("End")));

    mFind->setObjectName(objectName() + QStringLiteral("Find"));
    mApply->setText(mSpec->applyText);
    mApply->setObjectName(objectName() + QStringLiteral("Apply"));
    auto *buttons = new QHBoxLayout;
    buttons->addWidget(mFind);
    buttons->addStretch(1);
    buttons->addWidget(mApply);

    mResults->setObjectName(objectName() + QStringLiteral("Results"));
    mResults->setRootIsDecorated(false);
    mResults->setSelectionMode(QAbstractItemView::ExtendedSelection);
    mResults->setHeaderLabels(mSpec->columns);
    mResults->setSortingEnabled(true);
    mResults->sortByColumn(0, Qt::AscendingOrder);
    mResults->header()->setStretchLastSection(true);
    mResultLabel->setObjectName(objectName() + QStringLiteral("Found"));

    if (mSpec->storedSymbols) {
        // Fill acts on the browser's list itself: it has no results to choose from.
        mFind->hide();
        mResults->hide();
        connect(mApply, &QPushButton::clicked, this, &Filter::slotFind);
    } else {
        connect(mFind, &QPushButton::clicked, this, &Filter::slotFind);
        connect(mApply, &QPushButton::clicked, this, &Filter::slotApply);
        layout->addWidget(mResults, 1);
    }
    layout->addLayout(buttons);
    layout->addWidget(mResultLabel);
    if (mSpec->storedSymbols)
        layout->addStretch(1);
}

QWidget *Filter::controlWidget(const FilterControl &control)
{
    switch (control.kind) {
    case FilterControl::Integer: {
        auto *spin = new QSpinBox(this);
        spin->setRange(int(control.minimum), int(std::min(control.maximum, 2147483647.0)));
        spin->setValue(int(control.value));
        spin->setGroupSeparatorShown(control.maximum >= 100000);
        return spin;
    }
    case FilterControl::Decimal: {
        auto *spin = new QDoubleSpinBox(this);
        spin->setDecimals(3);
        spin->setRange(control.minimum, control.maximum);
        spin->setValue(control.value);
        spin->setGroupSeparatorShown(control.maximum >= 100000);
        return spin;
    }
    case FilterControl::Choice: {
        auto *combo = new QComboBox(this);
        combo->addItems(control.items);
        combo->setCurrentIndex(int(control.value));
        return combo;
    }
    case FilterControl::Date: {
        auto *date = new QDateEdit(this);
        date->setCalendarPopup(true);
        date->setDisplayFormat(QStringLiteral("yyyy-MM-dd"));
        date->setMinimumDate(kNewest);
        date->setSpecialValueText(tr("newest day"));
        date->setDate(kNewest);
        return date;
    }
    case FilterControl::Range: {
        auto *range = new QWidget(this);
        auto *row = new QHBoxLayout(range);
        row->setContentsMargins(0, 0, 0, 0);
        for (double value : {control.value, control.value2}) {
            auto *spin = new QDoubleSpinBox(range);
            spin->setDecimals(3);
            spin->setRange(control.minimum, control.maximum);
            spin->setValue(value);
            row->addWidget(spin);
        }
        range->setFocusProxy(range->findChild<QDoubleSpinBox *>());
        return range;
    }
    case FilterControl::Exchanges: {
        auto *box = new QWidget(this);
        auto *column = new QVBoxLayout(box);
        column->setContentsMargins(0, 0, 0, 0);
        auto *list = new QListWidget(box);
        list->setObjectName(objectName() + QStringLiteral("Exchanges"));
        // Symbols the store knows nothing about have no exchange: "(unknown)".
        QStringList codes{QString()};
        OrdaneData::MetaData meta;
        if (meta.open()) {
            for (const QString &symbol : meta.symbols())
                codes << meta.record(symbol).value(QStringLiteral("exchange"));
        }
        codes.removeDuplicates();
        codes.sort();
        for (const QString &code : qAsConst(codes)) {
            const OrdaneData::Exchange *exchange = OrdaneData::findExchange(code);
            auto *item = new QListWidgetItem(code.isEmpty() ? tr("(unknown)") : code, list);
            item->setData(Qt::UserRole, code);
            if (exchange) {
                item->setToolTip(exchange->name);
                if (!exchange->flag.isEmpty())
                    item->setIcon(QIcon(exchange->flag));
            }
            item->setCheckState(Qt::Checked);
        }
        auto *operations = new QPushButton(tr("List Operations"), box);
        auto *menu = new QMenu(operations);
        const auto setAll = [list](Qt::CheckState (*state)(Qt::CheckState)) {
            for (int i = 0; i < list->count(); ++i)
                list->item(i)->setCheckState(state(list->item(i)->checkState()));
        };
        menu->addAction(tr("Check All"), this,
                        [setAll] { setAll([](Qt::CheckState) { return Qt::Checked; }); });
        menu->addAction(tr("Uncheck All"), this,
                        [setAll] { setAll([](Qt::CheckState) { return Qt::Unchecked; }); });
        // Spelled so on purpose; keep.
        menu->addAction(tr("Inverte"), this, [setAll] {
            setAll([](Qt::CheckState s) { return s == Qt::Checked ? Qt::Unchecked : Qt::Checked; });
        });
        operations->setMenu(menu);
        column->addWidget(list);
        column->addWidget(operations, 0, Qt::AlignLeft);
        box->setFocusProxy(list);
        return box;
    }
    }
    return new QWidget(this);
}

void Filter::addPresets(QWidget *begin, QWidget *end)
{
    auto *group = new QGroupBox(tr("Capitalization Levels"), this);
    auto *row = new QHBoxLayout(group);
    for (const VolumePreset &preset : volumePresets()) {
        auto *button = new QPushButton(tr("%1:").arg(preset.name), group);
        button->setObjectName(objectName() + preset.name);
        connect(button, &QPushButton::clicked, this, [begin, end, preset] {
            qobject_cast<QDoubleSpinBox *>(begin)->setValue(preset.begin);
            qobject_cast<QDoubleSpinBox *>(end)->setValue(preset.end);
        });
        row->addWidget(button);
    }
    static_cast<QBoxLayout *>(layout())->insertWidget(layout()->count(), group);
}

FilterValues Filter::values() const
{
    FilterValues values;
    for (const FilterControl &control : mSpec->controls) {
        QWidget *widget = mControls.value(control.key);
        switch (control.kind) {
        case FilterControl::Integer:
            values.insert(control.key, double(qobject_cast<QSpinBox *>(widget)->value()));
            break;
        case FilterControl::Decimal:
            values.insert(control.key, qobject_cast<QDoubleSpinBox *>(widget)->value());
            break;
        case FilterControl::Choice:
            values.insert(control.key, qobject_cast<QComboBox *>(widget)->currentText());
            break;
        case FilterControl::Date: {
            const QDate date = qobject_cast<QDateEdit *>(widget)->date();
            values.insert(control.key, date == kNewest ? QDate() : date);
            break;
        }
        case FilterControl::Range: {
            const QList<QDoubleSpinBox *> spins = widget->findChildren<QDoubleSpinBox *>();
            values.insert(control.key,
                          QVariantList{spins.value(0)->value(), spins.value(1)->value()});
            break;
        }
        case FilterControl::Exchanges: {
            QStringList checked;
            auto *list = widget->findChild<QListWidget *>();
            for (int i = 0; i < list->count(); ++i)
                if (list->item(i)->checkState() == Qt::Checked)
                    checked << list->item(i)->data(Qt::UserRole).toString();
            // Every box checked: every exchange, also those the list does not show.
            values.insert(control.key, checked.size() == list->count()
                                           ? QStringList{QStringLiteral("*")}
                                           : checked);
            break;
        }
        }
    }
    return values;
}

bool Filter::setValue(const QString &key, const QVariant &value)
{
    QWidget *widget = mControls.value(key);
    if (!widget)
        return false;
    if (auto *spin = qobject_cast<QSpinBox *>(widget))
        spin->setValue(value.toInt());
    else if (auto *decimal = qobject_cast<QDoubleSpinBox *>(widget))
        decimal->setValue(value.toDouble());
    else if (auto *combo = qobject_cast<QComboBox *>(widget)) {
        const int index = combo->findText(value.toString());
        if (index < 0)
            return false;
        combo->setCurrentIndex(index);
    } else if (auto *date = qobject_cast<QDateEdit *>(widget))
        date->setDate(value.toDate().isValid() ? value.toDate() : kNewest);
    else
        return false;
    return true;
}

StorageBrowser *Filter::browser() const
{
    for (QObject *p = parent(); p; p = p->parent())
        if (auto *found = qobject_cast<StorageBrowser *>(p))
            return found;
    return nullptr;
}

void Filter::showFound()
{
    mResultLabel->setText(tr("Found: %1 of %2").arg(mFound).arg(mTotal));
}

void Filter::slotProgress(int percent)
{
    emit progress(percent);
}

void Filter::slotFind()
{
    StorageBrowser *target = browser();
    if (!target || mRunning)
        return;
    QStringList symbols =
        mSpec->storedSymbols ? OrdaneData::Home::storedSymbols() : target->stockList()->symbols();
    symbols.removeAll(QString());
    mResults->clear();
    mTotal = symbols.size();
    mFound = 0;
    showFound();
    mRunning = true;
    mFind->setEnabled(false);
    if (mStop) {
        mStop->setChecked(false);
        mStop->setEnabled(true);
    }

    OrdaneData::MetaData meta;
    FilterRun run(*mSpec, values(), target->storageFolder(), meta.open() ? &meta : nullptr);
    QPointer<Filter> self(this);
    int shown = -1;
    const QVector<FilterRow> rows = run.run(symbols, [&](int examined, int total) {
        const int percent = total ? examined * 100 / total : 0;
        if (percent != shown) {
            shown = percent;
            emit progress(percent);
        }
        // The stop button is heard between symbols.
        QCoreApplication::processEvents();
        if (!self || (mStop && mStop->isChecked()))
            run.stop();
    });
    if (!self)
        return;
    mResults->setSortingEnabled(false);
    for (const FilterRow &row : rows) {
        auto *item = new ResultItem(mResults, QStringList{row.symbol} + row.values);
        for (int column = 1; column < mResults->columnCount(); ++column)
            item->setTextAlignment(column, Qt::AlignRight | Qt::AlignVCenter);
    }
    mResults->setSortingEnabled(true);
    mFound = rows.size();
    showFound();
    if (mSpec->storedSymbols) {
        QStringList passed;
        for (const FilterRow &row : rows)
            passed << row.symbol;
        target->slotSetSymbols(passed);
    }
    mRunning = false;
    mFind->setEnabled(true);
    if (mStop) {
        mStop->setChecked(false);
        mStop->setEnabled(false);
    }
    emit progress(0);
}

void Filter::slotApply()
{
    applySelection();
}

void Filter::applySelection()
{
    StorageBrowser *target = browser();
    if (!target)
        return;
    QStringList symbols;
    for (QTreeWidgetItem *item : mResults->selectedItems())
        symbols << item->text(0);
    if (!symbols.isEmpty())
        target->slotSetSymbols(symbols);
}

PE::PE(QPushButton *stop, QWidget *parent)
    : Filter(QStringLiteral("PE"), stop, parent)
{}

QString PE::name() const
{
    return spec().title;
}

} // namespace OrdaneBrowser
