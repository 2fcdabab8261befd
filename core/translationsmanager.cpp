#include "translationsmanager.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QTranslator>

namespace QMWidgets {

TranslationsManager::TranslationsManager(QObject *parent)
    : QObject(parent)
{}

TranslationsManager::~TranslationsManager()
{
    removeAll();
}

void TranslationsManager::removeAll()
{
    for (const auto &t : mTranslators)
        QCoreApplication::removeTranslator(t.get());
    mTranslators.clear();
}

QStringList TranslationsManager::install(const QString &code)
{
    removeAll();
    mLanguage = code;

    const QString resources = QStringLiteral(":/Translations/");
    const QString toolkit = QLibraryInfo::location(QLibraryInfo::TranslationsPath);
    const struct
    {
        QString prefix;
        QStringList folders;
    } files[] = {
        {QStringLiteral("qt_"), {resources, toolkit}},
        {QStringLiteral("libs_"), {resources}},
        {QCoreApplication::applicationName() + QLatin1Char('_'), {resources}},
    };

    QStringList installed;
    for (const auto &f : files) {
        for (const QString &folder : f.folders) {
            auto translator = std::make_unique<QTranslator>();
            const QString name = f.prefix + code + QLatin1String(".qm");
            if (translator->load(name, folder)) {
                QCoreApplication::installTranslator(translator.get());
                mTranslators.push_back(std::move(translator));
                installed << folder + name;
                break;
            }
        }
    }
    emit languageChanged(code);
    return installed;
}

} // namespace QMWidgets
