#pragma once

#include <QDialog>
#include <QPointer>

class QComboBox;
class QDoubleSpinBox;

namespace QMWidgets {
class ColorButton;
}

namespace OrdaneView {

class DrawObject;

// The looks of one figure on a page titled "Color&Style": its colour, line width and pen
// style. OK applies them to the figure (which repaints through its changed() signal); Cancel
// leaves it as it was. Storing the change is the caller's.
class DrawObjectProperties : public QDialog
{
    Q_OBJECT

public:
    explicit DrawObjectProperties(DrawObject *object, QWidget *parent = nullptr);

    QMWidgets::ColorButton *colorButton() const { return mColor; }
    QDoubleSpinBox *widthBox() const { return mWidth; }
    QComboBox *styleBox() const { return mStyle; }

public slots:
    // Gives the figure the page's values.
    void slotApply();

private:
    QPointer<DrawObject> mObject;
    QMWidgets::ColorButton *mColor;
    QDoubleSpinBox *mWidth;
    QComboBox *mStyle;
};

} // namespace OrdaneView
