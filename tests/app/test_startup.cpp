// Start-up: the language choice, the style sheet and the translations it installs.

#include "app/startup.h"
#include "core/language.h"
#include "core/setting.h"
#include "core/translationsmanager.h"
#include "support/testsettings.h"

#include <QFile>
#include <QRegularExpression>
#include <QStandardPaths>
#include <QtTest>

class TestStartup : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void chooseLanguage_data();
    void chooseLanguage();
    void storedLanguageOverridesSystemLocale();
    void styleSheetPicturesAllExist();
    void translationsFollowTheLanguage();
};

void TestStartup::initTestCase()
{
    TestSupport::useTestSettings();
}

void TestStartup::chooseLanguage_data()
{
    QTest::addColumn<QString>("value");
    QTest::addColumn<QString>("code");
    const auto row = [](const char *value, const char *code) {
        QTest::newRow(value) << QString::fromLatin1(value) << QString::fromLatin1(code);
    };
    row("de_DE", "de");
    row("ru_RU", "ru");
    row("es_ES", "es");
    row("zh_CN", "zh_CN");
    row("zh_TW", "en");
    row("pt_BR", "en");
    row("en_US", "en");
    row("", "en");
    // The tests match anywhere and run in the order de, ru, es, zh_CN.
    row("mde", "de");
    row("ru_de", "de");
    row("es_ru", "ru");
    row("es_RU", "es"); // the tests are case-sensitive
    row("zh_CN_es", "es");
    row("DE", "en");
}

void TestStartup::chooseLanguage()
{
    QFETCH(QString, value);
    QTEST(QMWidgets::chooseLanguage(value), "code");
}

void TestStartup::storedLanguageOverridesSystemLocale()
{
    const QMWidgets::Setting<QString> language{QStringLiteral("Language"), QStringLiteral("de_DE")};
    QCOMPARE(QMWidgets::chooseLanguage(language.value()), QStringLiteral("de"));
    language.setValue(QStringLiteral("ru"));
    QCOMPARE(QMWidgets::chooseLanguage(language.value()), QStringLiteral("ru"));
    language.reset();
}

void TestStartup::styleSheetPicturesAllExist()
{
    const QString sheet = Halcyra::loadStyleSheet();
    QVERIFY(!sheet.isEmpty());
    QVERIFY(!sheet.contains(QStringLiteral("../HCStyle/")));
    const QRegularExpression url(QStringLiteral("url\\(([^)]*)\\)"));
    int pictures = 0;
    for (auto it = url.globalMatch(sheet); it.hasNext(); ++pictures) {
        const QString path = it.next().captured(1);
        QVERIFY2(path.startsWith(QStringLiteral(":/HCStyle/lowres/")), qPrintable(path));
        QVERIFY2(QFile::exists(path), qPrintable(path));
    }
    QVERIFY(pictures > 10);
    for (const char *picture : {":/app.png", ":/appsplash.png"})
        QVERIFY(!QImage(QString::fromLatin1(picture)).isNull());
}

void TestStartup::translationsFollowTheLanguage()
{
    const auto searching = [] {
        return QCoreApplication::translate("QMWidgets::UpdaterPage", "Searching for the updates");
    };
    const auto stored = [] {
        return QCoreApplication::translate("Halcyra::MainWindow", "Work Area");
    };
    QMWidgets::TranslationsManager manager;

    const QStringList german = manager.install(QStringLiteral("de"));
    QVERIFY(german.contains(QStringLiteral(":/Translations/Halcyra2_de.qm")));
    QVERIFY(german.contains(QStringLiteral(":/Translations/libs_de.qm")));
    // The toolkit's own texts come from its translations folder.
    QVERIFY(german.filter(QStringLiteral("qt_de.qm")).size() == 1);
    QCOMPARE(searching(), QStringLiteral("Suche nach Aktualisierungen"));
    QCOMPARE(stored(), QStringLiteral("Arbeitsbereich"));

    QVERIFY(manager.install(QStringLiteral("ru"))
                .contains(QStringLiteral(":/Translations/Halcyra2_ru.qm")));
    QCOMPARE(stored(), QStringLiteral("Рабочая область"));

    // No files of ours for English: every text stays as written.
    QCOMPARE(manager.install(QStringLiteral("en")).filter(QStringLiteral(":/")), QStringList());
    QCOMPARE(searching(), QStringLiteral("Searching for the updates"));
}

QTEST_MAIN(TestStartup)
#include "test_startup.moc"
