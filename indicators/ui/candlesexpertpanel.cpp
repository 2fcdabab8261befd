#include "candlesexpertpanel.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QSettings>
#include <QSignalBlocker>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace OrdaneView {

namespace {
// The stored choices. The patterns are kept as their texts joined by commas; a missing key
// selects every pattern, an empty text none.
const QString kActiveKey = QStringLiteral("CandleGuru/Active");     // false
const QString kPatternsKey = QStringLiteral("CandleGuru/Patterns"); // every pattern
const QString kStrengthKey = QStringLiteral("CandleGuru/Strength"); // kAllGrades
const QString kBlendingKey = QStringLiteral("CandleGuru/Blending"); // false
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

    auto *layout = new QVBoxLayout(this);
    layout->addWidget(mGuru);
    layout->addWidget(mList, 1);
    layout->addWidget(mHint);
    layout->addWidget(mStrength);
    layout->addWidget(mBlending);

    restore();

    connect(mGuru, &QCheckBox::toggled, this, &CandlesExpertPanel::slotEnableGui);
    connect(mGuru, &QCheckBox::toggled, this, [this](bool on) {
        QSettings().setValue(kActiveKey, on);
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
    const QSettings settings;
    mGuru->setChecked(settings.value(kActiveKey, false).toBool());
    const int mask = settings.value(kStrengthKey, CandlePattern::kAllGrades).toInt();
    mStrong->setChecked(mask & CandlePattern::Strong);
    mNormal->setChecked(mask & CandlePattern::Normal);
    mLow->setChecked(mask & CandlePattern::Low);
    mBlending->setChecked(settings.value(kBlendingKey, false).toBool());

    const bool stored = settings.contains(kPatternsKey);
    const QStringList texts =
        settings.value(kPatternsKey).toString().split(QLatin1Char(','), Qt::SkipEmptyParts);
    for (int row = 0; row < mList->topLevelItemCount(); ++row) {
        QTreeWidgetItem *item = mList->topLevelItem(row);
        item->setSelected(!stored || texts.contains(item->text(0)));
    }
    slotEnableGui(mGuru->isChecked());
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
    QStringList texts;
    for (const CandlePattern::Pattern p : patterns)
        texts << CandlePattern::text(p);
    QSettings().setValue(kPatternsKey, texts.join(QLatin1Char(',')));
    emit required(patterns);
}

void CandlesExpertPanel::slotStrengthChanged()
{
    const int mask = strength();
    QSettings().setValue(kStrengthKey, mask);
    emit strengthChanged(mask);
}

void CandlesExpertPanel::slotBlendingChanged(bool on)
{
    QSettings().setValue(kBlendingKey, on);
    emit blendingChanged(on);
}

void CandlesExpertPanel::slotEnableGui(bool on)
{
    for (QWidget *w : std::initializer_list<QWidget *>{mList, mHint, mStrength, mStrong, mNormal,
                                                       mLow, mBlending})
        w->setEnabled(on);
}

} // namespace OrdaneView
