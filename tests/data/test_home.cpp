// The home folder: how it is chosen, and what a first start puts into it.

#include "data/home.h"
#include "data/quotefile.h"
#include "support/testsettings.h"

#include <QFile>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QtTest>

using namespace OrdaneData;

namespace {
const QStringList kSamples = {QStringLiteral("AAPL.csv"),   QStringLiteral("ADS.DE.csv"),
                              QStringLiteral("MAN.DE.csv"), QStringLiteral("MSFT.csv"),
                              QStringLiteral("UTX.csv"),    QStringLiteral("_constituents.csv"),
                              QStringLiteral("_meta.tdb")};

const QStringList kScripts = {QStringLiteral("DonchianChannel.bin"), QStringLiteral("HullMA.js"),
                              QStringLiteral("KeltnerChannel.js"),   QStringLiteral("TRIX.bin"),
                              QStringLiteral("VolumeSpikes.js"),     QStringLiteral("ZScore.js")};

QStringList files(const QString &dir)
{
    return QDir(dir).entryList(QDir::Files, QDir::Name);
}
} // namespace

class TestHome : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanup() { qunsetenv("HALCYRA_HOME"); }
    void resolve_data();
    void resolve();
    void firstStartInstallsSamples();
    void emptyStorageGetsSamples();
    void userFilesAreNeverTouched();
    void exampleScripts_data();
    void exampleScripts();
    void unusableHomeIsReported();
};

void TestHome::initTestCase()
{
    TestSupport::useTestSettings();
}

void TestHome::resolve_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("environment");
    QTest::addColumn<QString>("expected");

    auto args = [](std::initializer_list<const char *> list) {
        QStringList result{QStringLiteral("halcyra")};
        for (const char *a : list)
            result << QString::fromLatin1(a);
        return result;
    };
    const QString appData = QStandardPaths::writableLocation(QStandardPaths::AppDataLocation);
    const QString env = QStringLiteral("/tmp/env");
    QTest::newRow("option-wins") << args({"--home", "/tmp/a"}) << env << QStringLiteral("/tmp/a");
    QTest::newRow("option-with-equals")
        << args({"--home=/tmp/b"}) << QString() << QStringLiteral("/tmp/b");
    QTest::newRow("relative-made-absolute")
        << args({"--home", "h/../x"}) << QString() << QDir::currentPath() + QStringLiteral("/x");
    QTest::newRow("environment") << args({}) << env << env;
    QTest::newRow("option-without-folder-falls-back") << args({"--home"}) << env << env;
    QTest::newRow("platform-folder") << args({}) << QString() << appData;
}

void TestHome::resolve()
{
    QFETCH(QStringList, arguments);
    QFETCH(QString, environment);
    if (!environment.isEmpty())
        qputenv("HALCYRA_HOME", environment.toLocal8Bit());
    QTEST(Home::resolve(arguments), "expected");
}

void TestHome::firstStartInstallsSamples()
{
    QTemporaryDir dir;
    const QString home = dir.filePath(QStringLiteral("new/home"));
    QString error;
    QVERIFY(Home::setPath(home, &error));
    QVERIFY2(Home::prepare(&error), qPrintable(error));

    QCOMPARE(files(Home::storagePath()), kSamples);
    for (const char *folder : {"Templates", "UserIndicators", "UserExperts"})
        QVERIFY(QFileInfo(home + QLatin1Char('/') + QLatin1String(folder)).isDir());
    // Made by the first calibration that writes, not at start.
    QVERIFY(!QFileInfo::exists(Home::calibratorPath()));

    QFile installed(fileOf(QStringLiteral("MSFT")));
    QFile resource(QStringLiteral(":/Storage/MSFT.csv"));
    QVERIFY(installed.open(QIODevice::ReadOnly) && resource.open(QIODevice::ReadOnly));
    QCOMPARE(installed.readAll(), resource.readAll());
    // The user edits these files, so they must not inherit the resource's read-only mode.
    QVERIFY(installed.permissions() & QFileDevice::WriteOwner);
}

void TestHome::emptyStorageGetsSamples()
{
    QTemporaryDir dir;
    QVERIFY(QDir(dir.path()).mkdir(QStringLiteral("Storage")));
    QVERIFY(Home::setPath(dir.path()));
    QVERIFY(Home::prepare());
    QCOMPARE(files(Home::storagePath()), kSamples);
    // The store's own files are no symbols to chart or to update.
    QCOMPARE(Home::storedSymbols(), QStringList({QStringLiteral("AAPL"), QStringLiteral("ADS.DE"),
                                                 QStringLiteral("MAN.DE"), QStringLiteral("MSFT"),
                                                 QStringLiteral("UTX")}));
}

void TestHome::userFilesAreNeverTouched()
{
    QTemporaryDir dir;
    QVERIFY(Home::setPath(dir.path()));
    QVERIFY(QDir().mkpath(Home::storagePath()));
    const QString mine = fileOf(QStringLiteral("MSFT"));
    QVERIFY(writeText(mine, QStringLiteral("my own text")));

    QVERIFY(Home::prepare());
    QVERIFY(Home::prepare());
    QCOMPARE(files(Home::storagePath()), QStringList{QStringLiteral("MSFT.csv")});
    QFile file(mine);
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(file.readAll(), QByteArray("my own text"));
}

void TestHome::exampleScripts_data()
{
    // What the UserIndicators folder holds before the start: nothing at all, an empty
    // folder, or anything of the user's. Only the first two get the examples.
    QTest::addColumn<QString>("before"); // "-": no folder, "": empty, else a file or "dir/"
    QTest::addColumn<QStringList>("after");
    QTest::newRow("first-start") << "-" << kScripts;
    QTest::newRow("all-deleted") << "" << kScripts;
    QTest::newRow("own-script") << "Mine.js" << QStringList{QStringLiteral("Mine.js")};
    QTest::newRow("one-example-kept") << "ZScore.js" << QStringList{QStringLiteral("ZScore.js")};
    QTest::newRow("hidden-file") << ".keep" << QStringList();
    QTest::newRow("subfolder-only") << "old/" << QStringList();
}

void TestHome::exampleScripts()
{
    QFETCH(QString, before);
    QFETCH(QStringList, after);
    QTemporaryDir dir;
    QVERIFY(Home::setPath(dir.path()));
    const QString folder = Home::userIndicatorsPath();
    if (before != QLatin1String("-"))
        QVERIFY(QDir().mkpath(folder));
    if (before.endsWith(QLatin1Char('/')))
        QVERIFY(QDir(folder).mkdir(before));
    else if (!before.isEmpty() && before != QLatin1String("-"))
        QVERIFY(writeText(QDir(folder).filePath(before), QStringLiteral("mine")));

    QString error;
    QVERIFY2(Home::prepare(&error), qPrintable(error));
    QVERIFY2(Home::prepare(&error), qPrintable(error)); // a second start changes nothing
    QCOMPARE(files(folder), after);

    for (const QString &name : after) {
        QFile installed(QDir(folder).filePath(name));
        QVERIFY(installed.open(QIODevice::ReadOnly));
        if (after != kScripts) {
            QCOMPARE(installed.readAll(), QByteArray("mine"));
            continue;
        }
        // Packed scripts are binary: every byte as in the resource.
        QFile resource(QStringLiteral(":/UserIndicators/") + name);
        QVERIFY(resource.open(QIODevice::ReadOnly));
        QCOMPARE(installed.readAll(), resource.readAll());
        QVERIFY2(installed.permissions() & QFileDevice::WriteOwner, qPrintable(name));
    }
}

void TestHome::unusableHomeIsReported()
{
    QTemporaryDir dir;
    const QString blocker = dir.filePath(QStringLiteral("file"));
    QVERIFY(writeText(blocker, QStringLiteral("x")));
    QString error;
    QVERIFY(!Home::setPath(blocker + QStringLiteral("/home"), &error));
    QVERIFY(error.contains(QStringLiteral("home")));

    // A home whose storage folder is taken by a file cannot be prepared.
    QVERIFY(Home::setPath(dir.path()));
    QVERIFY(writeText(dir.filePath(QStringLiteral("Storage")), QStringLiteral("x")));
    QVERIFY(!Home::prepare(&error));
    QVERIFY(!error.isEmpty());
}

QTEST_GUILESS_MAIN(TestHome)
#include "test_home.moc"
