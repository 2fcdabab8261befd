#pragma once

#include "view/viewcolors.h"

#include <QWidget>

class QCheckBox;

namespace QMWidgets {
class ColorButton;
}

namespace OrdaneView {

// The settings page of the view parameters: one colour picker per colour (the scale strip
// has two), the 3D check box, a "Predefined Colors" menu and a reset button. The page
// edits its own copy; the host stores it.
class ViewParameters : public QWidget
{
    Q_OBJECT

public:
    explicit ViewParameters(QWidget *parent = nullptr);

    ViewColors colors() const { return mColors; }
    void setColors(const ViewColors &colors);

signals:
    void parametersChanged();
    // The page wrote the settings store itself (a reset).
    void stored();

public slots:
    // Writes the reset palette into the settings store and shows it.
    void slotResetToDefault();
    void slotSetHCColors();
    void slotSetBWColors();
    void slotSetPinkColors();
    void slotSetClassicColors();

private:
    void applyScheme(ViewColors::Scheme scheme);

    ViewColors mColors;
    QMWidgets::ColorButton *mButtons[ViewColors::ParameterCount] = {};
    QCheckBox *mThreeD;
};

// Hosts the view parameters page. It has no buttons of its own: the dialog it sits in calls
// slotApply() from its Apply and OK, as for every settings page, which stores the page in
// the settings; applied() then tells the views to read them again.
class ViewSettings : public QWidget
{
    Q_OBJECT

public:
    explicit ViewSettings(QWidget *parent = nullptr);

    ViewParameters *parameters() const { return mParameters; }

signals:
    void applied();

public slots:
    void slotApply();

private:
    ViewParameters *mParameters;
};

} // namespace OrdaneView
