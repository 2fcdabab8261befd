#pragma once

#include <QApplication>

namespace QMWidgets {

class Reminders;
class TranslationsManager;
class Updater;

// The application object: the toolkit's application with the services of the widget
// library (translations, updater, reminders), which live as long as it does.
class App : public QApplication
{
    Q_OBJECT

public:
    App(int &argc, char **argv, const QString &organization, const QString &application);
    ~App() override;

    static App *instance();

    TranslationsManager *translations() const { return mTranslations; }
    Updater *updater() const { return mUpdater; }
    Reminders *reminders() const { return mReminders; }

private:
    TranslationsManager *mTranslations;
    Updater *mUpdater;
    Reminders *mReminders;
};

} // namespace QMWidgets
