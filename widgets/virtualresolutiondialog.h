#pragma once

#include <QDialog>
#include <QSize>

class QLabel;
class QSpinBox;

namespace QMWidgets {

// Lets the user pick the virtual resolution: the scale of the whole interface in percent
// (50 % to 300 %, in steps of 10), with a preview of the screen size the interface will
// appear to have. OK stores the factor (see virtualresolution.h); it takes effect at the
// next start. Cancel stores nothing.
class VirtualResolutionDialog : public QDialog
{
    Q_OBJECT

public:
    explicit VirtualResolutionDialog(QWidget *parent = nullptr);

    int percent() const;
    void setPercent(int percent);

    // The unscaled size of the primary screen the preview starts from; tests set their own.
    QSize screenSize() const { return mScreen; }
    void setScreenSize(const QSize &size);

    // The preview line, such as "1920 × 1080 appears as 1536 × 864".
    QString preview() const;

public slots:
    void accept() override;

private:
    void updatePreview();

    QSpinBox *mPercent;
    QLabel *mPreview;
    QSize mScreen;
};

} // namespace QMWidgets
