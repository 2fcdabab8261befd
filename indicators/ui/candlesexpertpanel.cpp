#include "candlesexpertpanel.h"

#include "core/setting.h"

#include <QCheckBox>
#include <QEvent>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QSignalBlocker>
#include <QTreeWidget>
#include <QVBoxLayout>

#include <algorithm>

namespace OrdaneView {

namespace {
// The list shows at least this many patterns however little room the dock has.
constexpr int kListRows = 4;

QString joinedTexts(const QList<CandlePattern::Pattern> &patterns)
{
    QStringList texts;
    for (const CandlePattern::Pattern p : patterns)
        texts << CandlePattern::text(p);
    return texts.join(QLatin1Char(','));
}

// The stored choices. The patterns are kept as their texts joined by commas: every pattern
// until the user chooses, and an empty text is a choice of none.
const QMWidgets::Setting<bool> kActive{QStringLiteral("CandleGuru/Active"), false};
const QMWidgets::Setting<int> kStrength{QStringLiteral("CandleGuru/Strength"),
                                        CandlePattern::kAllGrades};
const QMWidgets::Setting<bool> kBlending{QStringLiteral("CandleGuru/Blending"), false};
QMWidgets::Setting<QString> patternsSetting()
{
    return {QStringLiteral("CandleGuru/Patterns"), joinedTexts(CandlePattern::allPatterns())};
}
} // namespace

CandlesExpertPanel::CandlesExpertPanel(QWidget *parent)
    : QWidget(parent)
    , mGuru(new QCheckBox(tr("Activate Guru"), this))
    , mList(new QTreeWidget(this))
    , mHint(new QLabel(tr("Select the patterns to mark; Ctrl+click adds one."), this))
    , mStrength(new QGroupBox(tr("Strength"), this))
    , mStrong(new QCheckBox(tr("Strong"), this))
    , mNormal(new QCheckBox(tr("Normal"), this))
    , mLow(new QCheckBox(tr("Low"), this))
    , mBlending(new QCheckBox(tr("Blending"), this))
{
    qRegisterMetaType<QList<CandlePattern::Pattern>>();
    setObjectName(QStringLiteral("CandleGuruPanel"));
    setWindowTitle(tr("Candle Guru"));
    mGuru->setObjectName(QStringLiteral("CandleGuruPanelGuru"));
    mList->setObjectName(QStringLiteral("CandleGuruPanelList"));
    mHint->setObjectName(QStringLiteral("CandleGuruPanelHint"));
    mStrong->setObjectName(QStringLiteral("CandleGuruPanelStrong"));
    mNormal->setObjectName(QStringLiteral("CandleGuruPanelNormal"));
    mLow->setObjectName(QStringLiteral("CandleGuruPanelLow"));
    mBlending->setObjectName(QStringLiteral("CandleGuruPanelBlending"));

    mGuru->setToolTip(tr("Mark candle patterns on the price chart"));
    mStrong->setToolTip(tr("Show the patterns closest to their ideal shape"));
    mNormal->setToolTip(tr("Show the patterns of medium strength"));
    mLow->setToolTip(tr("Show the loosest matches"));
    mBlending->setToolTip(
        tr("Test a pair of candles that forms no two-candle pattern as one candle"));

    mList->setColumnCount(1);
    mList->setHeaderLabels({tr("Pattern Name")});
    mList->setRootIsDecorated(false);
    mList->setUniformRowHeights(true);
    mList->setSelectionMode(QAbstractItemView::ExtendedSelection);
    mList->header()->setStretchLastSection(true);
    const QList<CandlePattern::Pattern> patterns = CandlePattern::allPatterns();
    for (const CandlePattern::Pattern p : patterns) {
        auto *item = new QTreeWidgetItem(mList, {CandlePattern::text(p)});
        item->setData(0, Qt::UserRole, int(p));
    }

    mHint->setWordWrap(true);
    QFont small = mHint->font();
    small.setPointSizeF(small.pointSizeF() * 0.9);
    mHint->setFont(small);

    auto *strengthRow = new QHBoxLayout(mStrength);
    strengthRow->addWidget(mStrong);
    strengthRow->addWidget(mNormal);
    strengthRow->addWidget(mLow);
    strengthRow->addStretch();

    // The list takes whatever room the dock has to spare.
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(mGuru);
    layout->addWidget(mList, 1);
    layout->addWidget(mHint);
    layout->addWidget(mStrength);
    layout->addWidget(mBlending);

    fitListHeight();
    restore();

    connect(mGuru, &QCheckBox::toggled, this, &CandlesExpertPanel::slotEnableGui);
    connect(mGuru, &QCheckBox::toggled, this, [this](bool on) {
        kActive.setValue(on);
        emit showCandlePatterns(on);
    });
    connect(mList, &QTreeWidget::itemSelectionChanged, this,
            &CandlesExpertPanel::slotItemSelectionChanged);
    for (QCheckBox *box : {mStrong, mNormal, mLow})
        connect(box, &QCheckBox::toggled, this, &CandlesExpertPanel::slotStrengthChanged);
    connect(mBlending, &QCheckBox::toggled, this, &CandlesExpertPanel::slotBlendingChanged);
}

void CandlesExpertPanel::restore()
{
    mGuru->setChecked(kActive.value());
    const int mask = kStrength.value();
    mStrong->setChecked(mask & CandlePattern::Strong);
    mNormal->setChecked(mask & CandlePattern::Normal);
    mLow->setChecked(mask & CandlePattern::Low);
    mBlending->setChecked(kBlending.value());

    const QStringList texts = patternsSetting().value().split(QLatin1Char(','), Qt::SkipEmptyParts);
    for (int row = 0; row < mList->topLevelItemCount(); ++row) {
        QTreeWidgetItem *item = mList->topLevelItem(row);
        item->setSelected(texts.contains(item->text(0)));
    }
    slotEnableGui(mGuru->isChecked());
}

void CandlesExpertPanel::fitListHeight()
{
    // Measured after the style (and a style sheet's padding) has had its say.
    mList->ensurePolished();
    const int row = std::max(mList->sizeHintForRow(0), mList->fontMetrics().height());
    mList->setMinimumHeight(mList->header()->sizeHint().height() + kListRows * row +
                            2 * mList->frameWidth());
}

void CandlesExpertPanel::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    // A dock lays its widget out without asking a wrapped label how tall it is at this
    // width; given too little, the hint was cut off. Its minimum says so now.
    mHint->setMinimumHeight(mHint->heightForWidth(mHint->width()));
}

void CandlesExpertPanel::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange)
        fitListHeight();
}

QList<CandlePattern::Pattern> CandlesExpertPanel::requiredPatterns() const
{
    QList<CandlePattern::Pattern> patterns;
    for (int row = 0; row < mList->topLevelItemCount(); ++row) {
        const QTreeWidgetItem *item = mList->topLevelItem(row);
        if (item->isSelected())
            patterns << CandlePattern::Pattern(item->data(0, Qt::UserRole).toInt());
    }
    return patterns;
}

int CandlesExpertPanel::strength() const
{
    return (mStrong->isChecked() ? CandlePattern::Strong : 0) |
           (mNormal->isChecked() ? CandlePattern::Normal : 0) |
           (mLow->isChecked() ? CandlePattern::Low : 0);
}

bool CandlesExpertPanel::isBlending() const
{
    return mBlending->isChecked();
}

bool CandlesExpertPanel::isActive() const
{
    return mGuru->isChecked();
}

void CandlesExpertPanel::slotItemSelectionChanged()
{
    const QList<CandlePattern::Pattern> patterns = requiredPatterns();
    patternsSetting().setValue(joinedTexts(patterns));
    emit required(patterns);
}

void CandlesExpertPanel::slotStrengthChanged()
{
    const int mask = strength();
    kStrength.setValue(mask);
    emit strengthChanged(mask);
}

void CandlesExpertPanel::slotBlendingChanged(bool on)
{
    kBlending.setValue(on);
    emit blendingChanged(on);
}

void CandlesExpertPanel::slotEnableGui(bool on)
{
    for (QWidget *w : std::initializer_list<QWidget *>{mList, mHint, mStrength, mStrong, mNormal,
                                                       mLow, mBlending})
        w->setEnabled(on);
}

} // namespace OrdaneView
