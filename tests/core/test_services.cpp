// The widget library's services: settings keys, the update search, reminders.

#include "core/reminders.h"
#include "core/setting.h"
#include "core/updater.h"
#include "support/testsettings.h"

#include <QSignalSpy>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QtTest>

using QMWidgets::Updater;

class TestServices : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init() { QSettings().clear(); }
    void settingFallsBackToDefault();
    void interpret_data();
    void interpret();
    void search_data();
    void search();
    void dueRemindersAreAnnouncedOnce();
};

void TestServices::initTestCase()
{
    TestSupport::useTestSettings();
    QCoreApplication::setApplicationVersion(QStringLiteral("2.0"));
    // Test mode must keep the settings away from the user's own.
    QVERIFY(QSettings().fileName().contains(QStringLiteral("qttest")));
}

void TestServices::settingFallsBackToDefault()
{
    // A stored text that is no number must not read as 0.
    const QMWidgets::Setting<int> interval{QStringLiteral("interval"), 7};
    QSettings().setValue(QStringLiteral("interval"), QStringLiteral("not a number"));
    QCOMPARE(interval.value(), 7);
}

void TestServices::interpret_data()
{
    QTest::addColumn<QByteArray>("reply");
    QTest::addColumn<int>("outcome");
    QTest::newRow("newer") << QByteArray("2.1") << int(Updater::NewerAvailable);
    QTest::newRow("patch-newer") << QByteArray("2.0.1\n") << int(Updater::NewerAvailable);
    QTest::newRow("same-with-line-end") << QByteArray("2.0\r\n") << int(Updater::UpToDate);
    QTest::newRow("numeric-not-textual") << QByteArray("10.0") << int(Updater::NewerAvailable);
    QTest::newRow("error-page") << QByteArray("<html>404</html>") << int(Updater::NotAVersion);
    QTest::newRow("empty") << QByteArray(" \n") << int(Updater::NoAnswer);
}

void TestServices::interpret()
{
    QFETCH(QByteArray, reply);
    QTEST(int(Updater::interpret(reply, QStringLiteral("2.0")).outcome), "outcome");
}

void TestServices::search_data()
{
    QTest::addColumn<QString>("content"); // written to the file the address names
    QTest::addColumn<bool>("withUrl");
    QTest::addColumn<int>("outcome");
    QTest::addColumn<QString>("says");
    QTest::newRow("no-address") << QString() << false << int(Updater::NoUrl)
                                << QStringLiteral("No update address");
    QTest::newRow("newer") << QStringLiteral("2.3\n") << true << int(Updater::NewerAvailable)
                           << QStringLiteral("Version 2.3 is available");
    QTest::newRow("no-answer") << QString() << true << int(Updater::NoAnswer)
                               << QStringLiteral("did not answer");
}

void TestServices::search()
{
    QFETCH(QString, content);
    QFETCH(bool, withUrl);
    QTemporaryDir dir;
    const QString file = dir.filePath(QStringLiteral("version.txt"));
    if (!content.isEmpty()) {
        QFile f(file);
        QVERIFY(f.open(QIODevice::WriteOnly));
        f.write(content.toUtf8());
    }
    if (withUrl)
        QSettings().setValue(Updater::settingsKey(), QUrl::fromLocalFile(file).toString());

    Updater updater;
    QSignalSpy started(&updater, &Updater::started);
    QSignalSpy finished(&updater, &Updater::finished);
    updater.search();
    QCOMPARE(started.count(), 1);
    QVERIFY(finished.wait(5000));
    const auto result = finished.first().first().value<Updater::Result>();
    QTEST(int(result.outcome), "outcome");
    QFETCH(QString, says);
    QVERIFY2(Updater::describe(result).contains(says), qPrintable(Updater::describe(result)));
    QVERIFY(!updater.isSearching());
}

void TestServices::dueRemindersAreAnnouncedOnce()
{
    const QDateTime now(QDate(2012, 9, 25), QTime(12, 0));
    {
        QMWidgets::Reminders reminders;
        reminders.add(now.addSecs(3600), QStringLiteral("later"));
        reminders.add(now.addSecs(-60), QStringLiteral("due"));
        reminders.add(QDateTime(), QStringLiteral("no time is no reminder"));
        QCOMPARE(reminders.list().size(), 2);
        QCOMPARE(reminders.list().first().text, QStringLiteral("due"));
    }
    QMWidgets::Reminders reminders; // kept in the settings store between runs
    QSignalSpy remind(&reminders, &QMWidgets::Reminders::remind);
    QCOMPARE(reminders.check(now), 1);
    QCOMPARE(reminders.check(now), 0);
    QCOMPARE(remind.count(), 1);
    QCOMPARE(remind.first().first().toString(), QStringLiteral("due"));
    QCOMPARE(reminders.list().size(), 1);

    reminders.setInterval(60000);
    QCOMPARE(reminders.interval(), 60000);
    reminders.remove(0);
    reminders.remove(5);
    QVERIFY(reminders.list().isEmpty());
}

QTEST_GUILESS_MAIN(TestServices)
#include "test_services.moc"
