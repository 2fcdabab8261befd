#include "startup.h"

#include "app/mainwindow.h"
#include "core/language.h"
#include "core/reminders.h"
#include "core/setting.h"
#include "core/translationsmanager.h"
#include "core/updater.h"
#include "core/virtualresolution.h"
#include "data/heap.h"
#include "data/home.h"
#include "widgets/app.h"
#include "widgets/updaterpage.h"

#include <QDir>
#include <QFile>
#include <QIcon>
#include <QLocale>
#include <QMessageBox>
#include <QSplashScreen>

namespace Halcyra {

QString loadStyleSheet()
{
    QFile file(QStringLiteral(":/HCStyle/simple.qss"));
    if (!file.open(QIODevice::ReadOnly))
        return QString();
    return QString::fromUtf8(file.readAll())
        .replace(QLatin1String("../HCStyle/"), QLatin1String(":/HCStyle/lowres/"));
}

int run(int &argc, char **argv)
{
    OrdaneData::Heap::reuseLargeBlocks();
    // The interface scale the user chose takes effect before the application exists.
    QMWidgets::applyVirtualResolution(QStringLiteral("Skarvel"), QStringLiteral("Halcyra2"));
    // 1. Identity first: the settings store is keyed by it.
    QMWidgets::App app(argc, argv, QStringLiteral("Skarvel"), QStringLiteral("Halcyra2"));
    QCoreApplication::setApplicationVersion(QStringLiteral("2.0"));
    QCoreApplication::setOrganizationDomain(QStringLiteral("skarvel.org"));

    // The home folder is the program's data folder and its current folder.
    QString error;
    if (!OrdaneData::Home::setPath(OrdaneData::Home::resolve(app.arguments()), &error) ||
        !OrdaneData::Home::prepare(&error) || !QDir::setCurrent(OrdaneData::Home::path())) {
        QMessageBox::critical(nullptr, QStringLiteral("Halcyra"),
                              error.isEmpty() ? QStringLiteral("Cannot open the home folder")
                                              : error);
        return 1;
    }

    // 2. Style.
    app.setStyleSheet(loadStyleSheet());

    // 3. Splash, painted before the window is built.
    QSplashScreen splash(QPixmap(QStringLiteral(":/appsplash.png")), Qt::WindowStaysOnTopHint);
    splash.show();
    splash.showMessage(QStringLiteral("Please, Wait ..."), Qt::AlignTop | Qt::AlignHCenter,
                       Qt::white);
    QCoreApplication::processEvents();

    // 4. Icon.
    QApplication::setWindowIcon(QIcon(QStringLiteral(":/app.png")));

    // 5. Language.
    app.translations()->install(QMWidgets::interfaceLanguage());

    // 6. Main window.
    MainWindow window;
    window.show();
    splash.finish(&window);

    // 7. Update check.
    const QMWidgets::Setting<bool> checkUpdates{QStringLiteral("checkupdates"), false};
    if (checkUpdates.value()) {
        auto *page = new QMWidgets::UpdaterPage(app.updater(), &window);
        page->setAttribute(Qt::WA_DeleteOnClose);
        page->show();
        app.updater()->search();
    }

    // 8. Reminders.
    app.reminders()->setInterval(60000);

    // 9. Event loop.
    return app.exec();
}

} // namespace Halcyra
