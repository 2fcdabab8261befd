#pragma once

#include <QObject>
#include <QStringList>

#include <memory>
#include <vector>

class QTranslator;

namespace QMWidgets {

// Installs the translators of one interface language and swaps them when the language
// changes. For a code such as "de" it loads, from ":/Translations/", "qt_de.qm" (the
// toolkit's texts; when the resources lack it, from the toolkit's own translations
// folder), "libs_de.qm" (this library's texts) and the application's own
// "<application name>_de.qm". A missing file leaves those texts in English.
class TranslationsManager : public QObject
{
    Q_OBJECT

public:
    explicit TranslationsManager(QObject *parent = nullptr);
    ~TranslationsManager() override;

    // Replaces the installed translators with those of `code`; returns the paths of the
    // files that were found and installed.
    QStringList install(const QString &code);
    QString language() const { return mLanguage; }

signals:
    void languageChanged(const QString &code);

private:
    void removeAll();

    QString mLanguage;
    std::vector<std::unique_ptr<QTranslator>> mTranslators;
};

} // namespace QMWidgets
