#include "viewparameters.h"

#include "widgets/colorbutton.h"

#include <QCheckBox>
#include <QCoreApplication>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QMenu>
#include <QPushButton>
#include <QToolButton>
#include <QVBoxLayout>

namespace OrdaneView {

namespace {
// Row labels in parameter order; the scale strip's second colour shares the row before.
const char *const kLabels[ViewColors::ParameterCount] = {
    QT_TRANSLATE_NOOP("OrdaneView::ViewParameters", "Line"),
    QT_TRANSLATE_NOOP("OrdaneView::ViewParameters", "3D Candles"),
    QT_TRANSLATE_NOOP("OrdaneView::ViewParameters", "Up Bar"),
    QT_TRANSLATE_NOOP("OrdaneView::ViewParameters", "Down Bar"),
    QT_TRANSLATE_NOOP("OrdaneView::ViewParameters", "Up Candle"),
    QT_TRANSLATE_NOOP("OrdaneView::ViewParameters", "Down Candle"),
    QT_TRANSLATE_NOOP("OrdaneView::ViewParameters", "Up Candle Border"),
    QT_TRANSLATE_NOOP("OrdaneView::ViewParameters", "Down Candle Border"),
    QT_TRANSLATE_NOOP("OrdaneView::ViewParameters", "Label"),
    QT_TRANSLATE_NOOP("OrdaneView::ViewParameters", "Margin Background"),
    nullptr,
    QT_TRANSLATE_NOOP("OrdaneView::ViewParameters", "Margin Numbers"),
    QT_TRANSLATE_NOOP("OrdaneView::ViewParameters", "Grid"),
    QT_TRANSLATE_NOOP("OrdaneView::ViewParameters", "Background"),
};
} // namespace

ViewParameters::ViewParameters(QWidget *parent)
    : QWidget(parent)
    , mColors(ViewColors::load())
    , mThreeD(new QCheckBox(tr(kLabels[ViewColors::ThreeD]), this))
{
    setObjectName(QStringLiteral("ViewParameters"));
    auto *grid = new QGridLayout;
    int row = 0;
    for (int i = 0; i < ViewColors::ParameterCount; ++i) {
        const auto p = ViewColors::Parameter(i);
        if (p == ViewColors::ThreeD) {
            grid->addWidget(mThreeD, row++, 1, 1, 2);
            continue;
        }
        auto *button = new QMWidgets::ColorButton(this);
        button->setObjectName(QStringLiteral("ViewParameters") + ViewColors::key(p).mid(15));
        mButtons[i] = button;
        connect(button, &QMWidgets::ColorButton::colorChanged, this, [this, p](const QColor &c) {
            mColors.setColor(p, c);
            emit parametersChanged();
        });
        if (p == ViewColors::MarginBackground2) {
            // The scale strip's second colour shares the row of the first.
            grid->addWidget(button, row - 1, 2);
            continue;
        }
        grid->addWidget(new QLabel(tr(kLabels[i]), this), row, 0);
        grid->addWidget(button, row++, 1);
    }
    grid->setColumnStretch(3, 1);
    connect(mThreeD, &QCheckBox::toggled, this, [this](bool on) {
        if (on == mColors.threeD)
            return;
        mColors.threeD = on;
        emit parametersChanged();
    });

    auto *schemes = new QToolButton(this);
    schemes->setObjectName(QStringLiteral("ViewParametersSchemes"));
    schemes->setText(tr("Predefined Colors"));
    schemes->setPopupMode(QToolButton::InstantPopup);
    auto *menu = new QMenu(schemes);
    menu->addAction(tr("%1 (default)").arg(QCoreApplication::applicationName()), this,
                    &ViewParameters::slotSetHCColors);
    menu->addAction(tr("Matrix"), this, &ViewParameters::slotSetClassicColors);
    menu->addAction(tr("Black On White"), this, &ViewParameters::slotSetBWColors);
    schemes->setMenu(menu);
    auto *reset = new QPushButton(tr("Reset"), this);
    reset->setObjectName(QStringLiteral("ViewParametersReset"));
    connect(reset, &QPushButton::clicked, this, &ViewParameters::slotResetToDefault);

    auto *buttons = new QHBoxLayout;
    buttons->addWidget(schemes);
    buttons->addWidget(reset);
    buttons->addStretch(1);
    auto *layout = new QVBoxLayout(this);
    layout->addLayout(grid);
    layout->addLayout(buttons);
    layout->addStretch(1);
    setColors(mColors);
}

void ViewParameters::setColors(const ViewColors &colors)
{
    mColors = colors;
    for (int i = 0; i < ViewColors::ParameterCount; ++i)
        if (mButtons[i])
            mButtons[i]->setColor(colors.color(ViewColors::Parameter(i)));
    const QSignalBlocker blocker(mThreeD);
    mThreeD->setChecked(colors.threeD);
}

void ViewParameters::applyScheme(ViewColors::Scheme scheme)
{
    setColors(ViewColors::scheme(scheme));
    emit parametersChanged();
}

void ViewParameters::slotResetToDefault()
{
    ViewColors::resetToDefault();
    setColors(ViewColors::load());
    emit parametersChanged();
    emit stored();
}

void ViewParameters::slotSetHCColors()
{
    applyScheme(ViewColors::Default);
}

void ViewParameters::slotSetBWColors()
{
    applyScheme(ViewColors::BlackOnWhite);
}

void ViewParameters::slotSetPinkColors()
{
    applyScheme(ViewColors::Pink);
}

void ViewParameters::slotSetClassicColors()
{
    applyScheme(ViewColors::Matrix);
}

ViewSettings::ViewSettings(QWidget *parent)
    : QWidget(parent)
    , mParameters(new ViewParameters(this))
{
    setObjectName(QStringLiteral("ViewSettings"));
    connect(mParameters, &ViewParameters::stored, this, &ViewSettings::applied);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(mParameters);
}

void ViewSettings::slotApply()
{
    mParameters->colors().save();
    emit applied();
}

} // namespace OrdaneView
