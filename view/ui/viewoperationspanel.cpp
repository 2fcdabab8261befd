#include "viewoperationspanel.h"

#include <QActionGroup>
#include <QButtonGroup>
#include <QHBoxLayout>
#include <QMenu>
#include <QToolButton>

namespace OrdaneView {

ViewOperationsPanel::ViewOperationsPanel(QWidget *parent)
    : QWidget(parent)
{
    setObjectName(QStringLiteral("ViewOperationsPanel"));
    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(4, 2, 4, 2);
    layout->setSpacing(2);
    const auto separator = [layout] {
        layout->addSpacing(10);
    };

    connect(addButton(QStringLiteral("ZoomIn"), QString(), tr("Zoom in (+)"), "zoom_in"),
            &QToolButton::clicked, this, &ViewOperationsPanel::zoomIn);
    connect(addButton(QStringLiteral("ZoomOut"), QString(), tr("Zoom out (-)"), "zoom_out"),
            &QToolButton::clicked, this, &ViewOperationsPanel::zoomOut);
    separator();

    auto *types = new QButtonGroup(this);
    const struct
    {
        const char *name, *icon;
        QString tip;
        void (ViewOperationsPanel::*signal)();
    } typeButtons[] = {
        {"Candle", "chart_candle", tr("Candles"), &ViewOperationsPanel::candleChart},
        {"Bar", "chart_bar", tr("Bars"), &ViewOperationsPanel::barChart},
        {"Line", "chart_line", tr("Line"), &ViewOperationsPanel::lineChart},
        {"Empty", "chart_empty", tr("No price chart"), &ViewOperationsPanel::emptyChart},
    };
    for (int i = 0; i < 4; ++i) {
        mChartType[i] = addButton(QLatin1String(typeButtons[i].name), QString(), typeButtons[i].tip,
                                  typeButtons[i].icon, true);
        types->addButton(mChartType[i]);
        connect(mChartType[i], &QToolButton::clicked, this, typeButtons[i].signal);
    }
    separator();

    auto *frames = new QButtonGroup(this);
    const struct
    {
        const char *name;
        QString text, tip;
        void (ViewOperationsPanel::*signal)();
    } frameButtons[] = {
        {"Day", tr("D"), tr("Daily bars"), &ViewOperationsPanel::dayFrameMode},
        {"Week", tr("W"), tr("Weekly bars"), &ViewOperationsPanel::weekFrameMode},
        {"Month", tr("M"), tr("Monthly bars"), &ViewOperationsPanel::monthFrameMode},
        {"Quarter", tr("Q"), tr("Quarterly bars"), &ViewOperationsPanel::quartalFrameMode},
        {"Year", tr("Y"), tr("Yearly bars"), &ViewOperationsPanel::yearFrameMode},
    };
    for (int i = 0; i < 5; ++i) {
        mFrame[i] = addButton(QLatin1String(frameButtons[i].name), frameButtons[i].text,
                              frameButtons[i].tip, nullptr, true);
        frames->addButton(mFrame[i]);
        connect(mFrame[i], &QToolButton::clicked, this, frameButtons[i].signal);
    }
    separator();

    mGrid = addButton(QStringLiteral("Grid"), QString(), tr("Grid"), "grid", true);
    connect(mGrid, &QToolButton::clicked, this, &ViewOperationsPanel::grid);
    mPointer = addButton(QStringLiteral("Pointer"), QString(),
                         tr("Show the prices of the bar under the pointer"), "pointer_info", true);
    connect(mPointer, &QToolButton::clicked, this, &ViewOperationsPanel::pointerMode);

    QToolButton *separators =
        addButton(QStringLiteral("Separators"), QString(), tr("Period separators"), "separators");
    separators->setPopupMode(QToolButton::InstantPopup);
    auto *menu = new QMenu(separators);
    auto *group = new QActionGroup(menu);
    const struct
    {
        QString text;
        void (ViewOperationsPanel::*signal)();
    } separatorEntries[] = {
        {tr("No Separators"), &ViewOperationsPanel::noneSeparator},
        {tr("Weeks"), &ViewOperationsPanel::weekSeparator},
        {tr("Months"), &ViewOperationsPanel::monthSeparator},
        {tr("Quarters"), &ViewOperationsPanel::quartalSeparator},
        {tr("Years"), &ViewOperationsPanel::yearSeparator},
    };
    for (int i = 0; i < 5; ++i) {
        mSeparator[i] = menu->addAction(separatorEntries[i].text, this, separatorEntries[i].signal);
        mSeparator[i]->setCheckable(true);
        group->addAction(mSeparator[i]);
    }
    mSeparator[0]->setChecked(true);
    separators->setMenu(menu);
    separator();

    // The newest bar follows the quote service's current price while this is on.
    mCpr = addButton(QStringLiteral("Cpr"), QString(), tr("Current price, every minute"), "uptick",
                     true);
    connect(mCpr, &QToolButton::toggled, this, &ViewOperationsPanel::cpr);
    separator();

    mDraw = addButton(QStringLiteral("Draw"), QString(), tr("Draw on the chart"), "draw", true);
    mDraw->setPopupMode(QToolButton::InstantPopup);
    auto *figures = new QMenu(mDraw);
    for (int i = 0; i < DrawObject::kTypeCount; ++i) {
        const auto type = DrawObject::Type(i);
        figures->addAction(DrawObject::displayName(type), this,
                           [this, type] { emit drawModeClicked(type); });
    }
    mDraw->setMenu(figures);
    separator();

    connect(addButton(QStringLiteral("Picture"), QString(), tr("Save the chart as a picture"),
                      "picture"),
            &QToolButton::clicked, this, &ViewOperationsPanel::takePicture);
    connect(
        addButton(QStringLiteral("SaveCsv"), QString(), tr("Save the series as CSV"), "save_csv"),
        &QToolButton::clicked, this, &ViewOperationsPanel::saveCsv);
    layout->addStretch(1);

    showChartType(ChartType::Candle);
    showTimeFrame(0);
}

QToolButton *ViewOperationsPanel::addButton(const QString &name, const QString &text,
                                            const QString &tip, const char *icon, bool checkable)
{
    auto *button = new QToolButton(this);
    button->setObjectName(QStringLiteral("ViewOperationsPanel") + name);
    button->setToolTip(tip);
    button->setCheckable(checkable);
    button->setAutoRaise(true);
    if (icon) {
        button->setIcon(QIcon(QStringLiteral(":/pix/%1.png").arg(QLatin1String(icon))));
        button->setIconSize(QSize(20, 20));
    } else {
        button->setText(text);
        button->setMinimumWidth(26);
    }
    layout()->addWidget(button);
    return button;
}

void ViewOperationsPanel::showChartType(ChartType type)
{
    mChartType[int(type)]->setChecked(true);
}

void ViewOperationsPanel::showTimeFrame(int frame)
{
    if (frame >= 0 && frame < 5)
        mFrame[frame]->setChecked(true);
}

void ViewOperationsPanel::showGrid(bool on)
{
    mGrid->setChecked(on);
}

void ViewOperationsPanel::showPointerMode(bool on)
{
    mPointer->setChecked(on);
}

void ViewOperationsPanel::showCpr(bool on)
{
    const QSignalBlocker blocker(mCpr);
    mCpr->setChecked(on);
}

void ViewOperationsPanel::setCprAvailable(bool available)
{
    mCpr->setEnabled(available);
}

void ViewOperationsPanel::showDrawMode(bool on)
{
    mDraw->setChecked(on);
}

void ViewOperationsPanel::showSeparatorMode(SeparatorMode mode)
{
    mSeparator[int(mode)]->setChecked(true);
}

} // namespace OrdaneView
