#pragma once

#include <QDialog>
#include <QIcon>

class QDialogButtonBox;
class QListWidget;
class QStackedWidget;

namespace QMWidgets {

// The program's settings: a list of pages (icon and title) on the left, the chosen page on
// the right, and OK / Cancel / Apply beneath.
//
// A page is any widget. Pages that store something declare a slot "apply()" (or, in the
// program's slot naming, "slotApply()"); OK and Apply call it on every page that has one,
// in the order the pages were added. Cancel calls nothing, so what a page holds is only
// stored by OK or Apply.
//
// The dialog remembers the page last shown ("SettingsDialog/Page", its index) and its size
// ("SettingsDialog/Size") from one opening to the next.
class SettingsDialog : public QDialog
{
    Q_OBJECT

public:
    explicit SettingsDialog(QWidget *parent = nullptr);
    ~SettingsDialog() override;

    // Adds a page; the dialog takes ownership. When it is the page shown last time, it is
    // shown again.
    void addPage(QWidget *page, const QString &title, const QIcon &icon = QIcon());

    int pageCount() const;
    QWidget *page(int index) const;
    int currentIndex() const;
    void setCurrentIndex(int index);

public slots:
    // Calls the apply slot of every page that has one.
    void apply();

    void accept() override;
    void done(int result) override;

private:
    QListWidget *mList;
    QStackedWidget *mStack;
    QDialogButtonBox *mButtons;
    int mRememberedPage;
};

} // namespace QMWidgets
