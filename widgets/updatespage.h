#pragma once

#include <QWidget>

class QCheckBox;
class QLineEdit;

namespace QMWidgets {

// Settings page of the update check: whether the program searches for a newer version at
// start ("checkupdates", off unless stored) and the address it asks ("UpdateUrl", see
// Updater), empty until the user sets one. apply() stores both; an address left empty
// removes "UpdateUrl".
class UpdatesPage : public QWidget
{
    Q_OBJECT

public:
    explicit UpdatesPage(QWidget *parent = nullptr);

    static bool checkAtStartDefault() { return false; }

    bool checkAtStart() const;
    void setCheckAtStart(bool on);
    QString updateUrl() const;
    void setUpdateUrl(const QString &url);

public slots:
    void apply();

private:
    QCheckBox *mCheck;
    QLineEdit *mUrl;
};

} // namespace QMWidgets
