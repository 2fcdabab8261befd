#pragma once

#include <QApplication>

#include <memory>

namespace QMWidgets {

class Reminders;
class TranslationsManager;
class Updater;

// The application object: the toolkit's application with the services of the widget
// library (translations, updater, reminders). They are made after the toolkit's
// application and go before it: the translators, for one, can only be removed from an
// application that is still whole.
class App : public QApplication
{
    Q_OBJECT

public:
    App(int &argc, char **argv, const QString &organization, const QString &application);
    ~App() override;

    static App *instance();

    TranslationsManager *translations() const { return mTranslations.get(); }
    Updater *updater() const { return mUpdater.get(); }
    Reminders *reminders() const { return mReminders.get(); }

private:
    // Members, not children: they are destroyed at the end of ~App(), while QApplication
    // still stands, rather than by ~QObject() after it has been taken down.
    std::unique_ptr<TranslationsManager> mTranslations;
    std::unique_ptr<Updater> mUpdater;
    std::unique_ptr<Reminders> mReminders;
};

} // namespace QMWidgets
