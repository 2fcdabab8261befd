#include "drawobjectproperties.h"

#include "view/drawobjects/drawobject.h"
#include "widgets/colorbutton.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QDoubleSpinBox>
#include <QFormLayout>
#include <QPainter>
#include <QTabWidget>
#include <QVBoxLayout>

namespace OrdaneView {

namespace {
// A sample of the pen style in the figure's colour, for the style list.
QIcon styleSample(Qt::PenStyle style, const QColor &color)
{
    QPixmap sample(48, 12);
    sample.fill(Qt::transparent);
    QPainter p(&sample);
    p.setPen(QPen(color, 2, style, Qt::FlatCap));
    p.drawLine(2, 6, 46, 6);
    return QIcon(sample);
}
} // namespace

DrawObjectProperties::DrawObjectProperties(DrawObject *object, QWidget *parent)
    : QDialog(parent)
    , mObject(object)
    , mColor(new QMWidgets::ColorButton(this))
    , mWidth(new QDoubleSpinBox(this))
    , mStyle(new QComboBox(this))
{
    setObjectName(QStringLiteral("DrawObjectProperties"));
    setWindowTitle(tr("%1 Properties").arg(object->displayName()));

    mColor->setObjectName(QStringLiteral("DrawObjectColor"));
    mColor->setColor(object->color());
    mWidth->setObjectName(QStringLiteral("DrawObjectWidth"));
    mWidth->setRange(0.5, 20);
    mWidth->setSingleStep(0.5);
    mWidth->setDecimals(1);
    mWidth->setSuffix(tr(" px"));
    mWidth->setValue(object->width());
    mStyle->setObjectName(QStringLiteral("DrawObjectStyle"));
    mStyle->setIconSize(QSize(48, 12));
    const struct
    {
        Qt::PenStyle style;
        QString text;
    } styles[] = {
        {Qt::SolidLine, tr("Solid")},
        {Qt::DashLine, tr("Dashed")},
        {Qt::DotLine, tr("Dotted")},
        {Qt::DashDotLine, tr("Dash-dot")},
        {Qt::DashDotDotLine, tr("Dash-dot-dot")},
    };
    for (const auto &s : styles) {
        mStyle->addItem(styleSample(s.style, object->color()), s.text, int(s.style));
        if (s.style == object->penStyle())
            mStyle->setCurrentIndex(mStyle->count() - 1);
    }

    auto *page = new QWidget;
    auto *form = new QFormLayout(page);
    form->addRow(tr("Colour:"), mColor);
    form->addRow(tr("Width:"), mWidth);
    form->addRow(tr("Style:"), mStyle);
    auto *tabs = new QTabWidget(this);
    tabs->addTab(page, tr("Color&Style"));

    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    connect(buttons, &QDialogButtonBox::accepted, this, &DrawObjectProperties::slotApply);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(tabs);
    layout->addWidget(buttons);
}

void DrawObjectProperties::slotApply()
{
    if (!mObject)
        return;
    if (mColor->color().isValid())
        mObject->setColor(mColor->color());
    mObject->setWidth(mWidth->value());
    mObject->setPenStyle(Qt::PenStyle(mStyle->currentData().toInt()));
}

} // namespace OrdaneView
