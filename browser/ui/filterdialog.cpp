#include "filterdialog.h"

#include "filter.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QProgressBar>
#include <QPushButton>
#include <QVBoxLayout>

namespace OrdaneBrowser {

namespace {
template <typename F> void addPage(FiltersContainer *container, QPushButton *stop)
{
    auto *page = new QWidget(container);
    auto *filter = new F(stop, page);
    page->setObjectName(QString::fromLatin1(filter->metaObject()->className()));
    auto *layout = new QVBoxLayout(page);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(filter);
    QObject::connect(filter, &Filter::progress, container, &FiltersContainer::progress);
    container->addWidget(page);
}
} // namespace

FiltersContainer::FiltersContainer(QPushButton *stop, QWidget *parent)
    : QStackedWidget(parent)
{
    setObjectName(QStringLiteral("FiltersContainer"));
    addPage<Fill>(this, stop);
    addPage<Trend>(this, stop);
    addPage<VolumeFilter>(this, stop);
    addPage<RSIFilter>(this, stop);
    addPage<StochasticFilter>(this, stop);
    addPage<TimeMachine>(this, stop);
    addPage<Price>(this, stop);
    addPage<UpToDate>(this, stop);
    addPage<VolumeBreakOut>(this, stop);
    addPage<MoneyFlow>(this, stop);
    addPage<MovingAverage>(this, stop);
    addPage<HCVolatilityFilter>(this, stop);
    addPage<MedianFilter>(this, stop);
    addPage<DPOFilter>(this, stop);
    addPage<PE>(this, stop);
    addPage<ImpulsFilter>(this, stop);
    addPage<ConsolidationFilter>(this, stop);
}

Filter *FiltersContainer::filter(int index) const
{
    QWidget *page = widget(index);
    return page ? page->findChild<Filter *>() : nullptr;
}

QStringList FiltersContainer::entries() const
{
    QStringList names;
    for (int i = 0; i < count(); ++i)
        names << widget(i)->objectName().remove(QStringLiteral("OrdaneBrowser::"));
    return names;
}

void FiltersContainer::slotSetFilter(int index)
{
    setCurrentIndex(index);
}

void FiltersContainer::slotApply()
{
    if (Filter *f = currentFilter())
        f->slotApply();
}

QString FilterDialog::notice()
{
    // Worded so on purpose; keep.
    return QStringLiteral(
        "<FONT COLOR=#00BFFF>Important!</FONT><FONT COLOR=#FFFFFF> Before you use any filter, "
        "please make sure that the items are updated<br>&nbsp;&nbsp;&nbsp;&nbsp;&nbsp;&nbsp;"
        "&nbsp;&nbsp;&nbsp;&nbsp;&nbsp;&nbsp;&nbsp;&nbsp;&nbsp;&nbsp;&nbsp;Note, that all filters "
        "work with the EndOfDay-Data only</FONT>");
}

FilterDialog::FilterDialog(QWidget *parent)
    : QDialog(parent)
    , mList(new QListWidget(this))
    , mStop(new QPushButton(tr("Stop"), this))
    , mProgress(new QProgressBar(this))
    , mContainer(new FiltersContainer(mStop, this))
{
    setObjectName(QStringLiteral("FilterDialog"));
    setWindowTitle(QStringLiteral("Halcyra") + tr(" Filter"));
    setModal(false);
    resize(860, 600);
    mStop->setObjectName(QStringLiteral("ComboProgressStop"));
    mStop->setCheckable(true);
    mStop->setEnabled(false);
    mProgress->setRange(0, 100);
    mProgress->setValue(0);
    mList->setObjectName(QStringLiteral("FilterDialogList"));
    mList->setFixedWidth(150);
    mList->addItems(mContainer->entries());

    auto *noticeLabel = new QLabel(notice(), this);
    noticeLabel->setObjectName(QStringLiteral("FilterDialogNotice"));
    noticeLabel->setTextFormat(Qt::RichText);
    noticeLabel->setWordWrap(true);
    // The notice is written in white: it sits on a dark band of its own, readable whatever
    // the style's colours.
    noticeLabel->setStyleSheet(QStringLiteral(
        "QLabel#FilterDialogNotice { background: #2e3440; border-radius: 4px; padding: 6px; }"));
    auto *hide = new QPushButton(tr("&Hide"), this);
    auto *close = new QPushButton(tr("&Close"), this);
    connect(hide, &QPushButton::clicked, this, &QWidget::hide);
    connect(close, &QPushButton::clicked, this, &QDialog::accept);

    auto *top = new QHBoxLayout;
    top->addWidget(mList);
    top->addWidget(mContainer, 1);
    auto *progressRow = new QHBoxLayout;
    progressRow->addWidget(mProgress, 1);
    progressRow->addWidget(mStop);
    auto *buttons = new QHBoxLayout;
    buttons->addStretch(1);
    buttons->addWidget(hide);
    buttons->addWidget(close);
    auto *layout = new QVBoxLayout(this);
    layout->addLayout(top, 1);
    layout->addLayout(progressRow);
    layout->addWidget(noticeLabel);
    layout->addLayout(buttons);

    connect(mList, &QListWidget::currentItemChanged, this, &FilterDialog::slotFilterChanged);
    connect(mContainer, &FiltersContainer::progress, this, &FilterDialog::slotSetProgress);
    // The RSI filter first: the one a user reaches for most.
    mList->setCurrentRow(mContainer->entries().indexOf(QStringLiteral("RSIFilter")));
}

void FilterDialog::slotFilterChanged(QListWidgetItem *current, QListWidgetItem *previous)
{
    Q_UNUSED(previous)
    if (current)
        mContainer->slotSetFilter(mList->row(current));
}

void FilterDialog::slotSetProgress(int percent)
{
    mProgress->setValue(percent);
}

void FilterDialog::slotApply()
{
    mContainer->slotApply();
}

void FilterDialog::slotDone(const QString &symbol)
{
    Q_UNUSED(symbol) // a run's end needs nothing more of the dialog
    mProgress->setValue(0);
}

} // namespace OrdaneBrowser
