#include "app.h"

#include "core/reminders.h"
#include "core/translationsmanager.h"
#include "core/updater.h"

namespace QMWidgets {

namespace {
// The identity must be in place before the services below read any setting.
int &withIdentity(int &argc, const QString &organization, const QString &application)
{
    QCoreApplication::setOrganizationName(organization);
    QCoreApplication::setApplicationName(application);
    return argc;
}
} // namespace

App::App(int &argc, char **argv, const QString &organization, const QString &application)
    : QApplication(withIdentity(argc, organization, application), argv)
    , mTranslations(std::make_unique<TranslationsManager>())
    , mUpdater(std::make_unique<Updater>())
    , mReminders(std::make_unique<Reminders>())
{}

App::~App() = default;

App *App::instance()
{
    return qobject_cast<App *>(QCoreApplication::instance());
}

} // namespace QMWidgets
