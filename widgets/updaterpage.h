#pragma once

#include "core/updater.h"

#include <QDialog>

class QLabel;

namespace QMWidgets {

// The updater's page: shows the search while it runs and its result afterwards.
class UpdaterPage : public QDialog
{
    Q_OBJECT

public:
    explicit UpdaterPage(Updater *updater, QWidget *parent = nullptr);

    QString heading() const;
    QString message() const;

private:
    void showSearching();
    void showResult(const QMWidgets::Updater::Result &result);

    QLabel *mHeading;
    QLabel *mMessage;
};

} // namespace QMWidgets
