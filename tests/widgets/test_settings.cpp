// The settings dialog and its pages, and the virtual resolution.

#include "support/testsettings.h"
#include "widgets/languagepage.h"
#include "widgets/settingsdialog.h"
#include "widgets/updatespage.h"
#include "widgets/virtualresolution.h"
#include "widgets/virtualresolutiondialog.h"

#include <QDialogButtonBox>
#include <QPointer>
#include <QPushButton>
#include <QSignalSpy>
#include <QStandardPaths>
#include <QtTest>

using namespace QMWidgets;

namespace {
// Pages that count how often the dialog asks them to store; the second is named in the
// program's slot style, as the chart colour page is.
class CountingPage : public QWidget
{
    Q_OBJECT
public:
    int calls = 0;
public slots:
    void apply() { ++calls; }
};
class SlotStylePage : public QWidget
{
    Q_OBJECT
public:
    int calls = 0;
public slots:
    void slotApply() { ++calls; }
};

// The language page without its message box.
class QuietLanguagePage : public LanguagePage
{
public:
    int notices = 0;

protected:
    void showRestartNotice() override { ++notices; }
};

QVariant stored(const QString &key)
{
    return QSettings().value(key);
}
} // namespace

class TestSettings : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup() { qunsetenv("QT_SCALE_FACTOR"); }

    void buttonsApplyPages_data();
    void buttonsApplyPages();
    void lastPageAndSizeAreRemembered();
    void cancelStoresNothingFromRealPages();
    void languagePageShowsCurrentChoice_data();
    void languagePageShowsCurrentChoice();
    void languagePageStoresOnlyAChange();
    void updatesPageStoresItsKeys();

    void factorIsClampedAndRead_data();
    void factorIsClampedAndRead();
    void applyVirtualResolution_data();
    void applyVirtualResolution();
    void virtualResolutionDialog();
};

void TestSettings::initTestCase()
{
    TestSupport::useTestSettings();
    QVERIFY(QSettings().fileName().contains(QStringLiteral("qttest")));
}

void TestSettings::init()
{
    QSettings().clear();
    qunsetenv("QT_SCALE_FACTOR");
}

void TestSettings::buttonsApplyPages_data()
{
    QTest::addColumn<int>("button");
    QTest::addColumn<int>("calls");
    QTest::addColumn<bool>("staysOpen");
    QTest::newRow("ok") << int(QDialogButtonBox::Ok) << 1 << false;
    QTest::newRow("apply") << int(QDialogButtonBox::Apply) << 1 << true;
    QTest::newRow("cancel") << int(QDialogButtonBox::Cancel) << 0 << false;
}

void TestSettings::buttonsApplyPages()
{
    QFETCH(int, button);
    QFETCH(int, calls);
    QFETCH(bool, staysOpen);
    SettingsDialog dialog;
    auto *counting = new CountingPage;
    auto *slotStyle = new SlotStylePage;
    dialog.addPage(counting, QStringLiteral("Counting"));
    dialog.addPage(new QWidget, QStringLiteral("Nothing to store"));
    dialog.addPage(slotStyle, QStringLiteral("Colours"));
    dialog.show();
    auto *box = dialog.findChild<QDialogButtonBox *>();
    QTest::mouseClick(box->button(QDialogButtonBox::StandardButton(button)), Qt::LeftButton);
    QCOMPARE(counting->calls, calls);
    QCOMPARE(slotStyle->calls, calls);
    QCOMPARE(dialog.isVisible(), staysOpen);
}

void TestSettings::lastPageAndSizeAreRemembered()
{
    QPointer<QWidget> owned = new QWidget;
    {
        SettingsDialog dialog;
        dialog.addPage(owned, QStringLiteral("0"));
        dialog.addPage(new QWidget, QStringLiteral("1"));
        dialog.addPage(new QWidget, QStringLiteral("2"));
        QCOMPARE(dialog.currentIndex(), 0);
        dialog.setCurrentIndex(7); // no such page: stays
        dialog.setCurrentIndex(2);
        dialog.resize(720, 510);
        dialog.reject();
    }
    QVERIFY(owned.isNull());

    SettingsDialog again;
    for (int i = 0; i < 3; ++i) {
        again.addPage(new QWidget, QString::number(i));
        // Until the remembered page exists, the first is shown.
        QCOMPARE(again.currentIndex(), i < 2 ? 0 : 2);
    }
    QCOMPARE(again.size(), QSize(720, 510));
}

void TestSettings::cancelStoresNothingFromRealPages()
{
    QSettings().setValue(QStringLiteral("Language"), QStringLiteral("en"));
    SettingsDialog dialog;
    auto *language = new QuietLanguagePage;
    auto *updates = new UpdatesPage;
    dialog.addPage(language, QStringLiteral("Language"));
    dialog.addPage(updates, QStringLiteral("Updates"));
    QVERIFY(language->setLanguage(QStringLiteral("de")));
    updates->setCheckAtStart(true);
    updates->setUpdateUrl(QStringLiteral("http://localhost/v"));
    dialog.reject();
    QCOMPARE(stored(QStringLiteral("Language")).toString(), QStringLiteral("en"));
    QVERIFY(!QSettings().contains(QStringLiteral("checkupdates")));
    QVERIFY(!QSettings().contains(QStringLiteral("UpdateUrl")));
}

void TestSettings::languagePageShowsCurrentChoice_data()
{
    QTest::addColumn<QString>("stored");
    QTest::addColumn<QString>("shown");
    QTest::addColumn<int>("offered");
    QTest::newRow("locale-name") << "ru_RU"
                                 << "ru" << 3;
    // The setting matches anywhere in the value.
    QTest::newRow("contains-de") << "mde"
                                 << "de" << 3;
    // Known to the program but not offered: kept as an extra entry, not replaced.
    QTest::newRow("spanish") << "es_ES"
                             << "es" << 4;
    QTest::newRow("unknown") << "pt_BR"
                             << "en" << 3;
}

void TestSettings::languagePageShowsCurrentChoice()
{
    QFETCH(QString, stored);
    QFETCH(QString, shown);
    QFETCH(int, offered);
    QSettings().setValue(QStringLiteral("Language"), stored);
    QuietLanguagePage page;
    QCOMPARE(page.language(), shown);
    QCOMPARE(page.languages().size(), offered);

    // Applying what is shown leaves the stored value as it was.
    QSignalSpy restart(&page, &LanguagePage::restartNeeded);
    page.apply();
    QCOMPARE(restart.count(), 0);
    QCOMPARE(::stored(QStringLiteral("Language")).toString(), stored);
}

void TestSettings::languagePageStoresOnlyAChange()
{
    // Nothing stored: the page follows the system locale and must not freeze it.
    QuietLanguagePage page;
    QSignalSpy restart(&page, &LanguagePage::restartNeeded);
    page.apply();
    QVERIFY(!QSettings().contains(QStringLiteral("Language")));

    const QString other =
        page.language() == QLatin1String("ru") ? QStringLiteral("de") : QStringLiteral("ru");
    QVERIFY(page.setLanguage(other));
    QVERIFY(!page.setLanguage(QStringLiteral("fr")));
    page.apply();
    QCOMPARE(stored(QStringLiteral("Language")).toString(), other);
    QCOMPARE(restart.count(), 1);
    QCOMPARE(page.notices, 1);

    // A second Apply of the same choice is no change.
    page.apply();
    QCOMPARE(restart.count(), 1);
}

void TestSettings::updatesPageStoresItsKeys()
{
    {
        UpdatesPage page;
        QVERIFY(!page.checkAtStart());
        page.setCheckAtStart(true);
        page.setUpdateUrl(QStringLiteral("  http://localhost/version.txt "));
        page.apply();
    }
    QCOMPARE(stored(QStringLiteral("checkupdates")).toBool(), true);
    QCOMPARE(stored(QStringLiteral("UpdateUrl")).toString(),
             QStringLiteral("http://localhost/version.txt"));

    UpdatesPage reopened;
    QVERIFY(reopened.checkAtStart());
    reopened.setCheckAtStart(false);
    reopened.setUpdateUrl(QStringLiteral("   "));
    reopened.apply();
    QCOMPARE(stored(QStringLiteral("checkupdates")).toBool(), false);
    QVERIFY(!QSettings().contains(QStringLiteral("UpdateUrl")));
}

void TestSettings::factorIsClampedAndRead_data()
{
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<double>("factor");
    QTest::newRow("nothing-stored") << QVariant() << 1.0;
    QTest::newRow("in-range") << QVariant(1.5) << 1.5;
    QTest::newRow("too-small") << QVariant(0.2) << 0.5;
    QTest::newRow("negative") << QVariant(-2) << 0.5;
    QTest::newRow("too-large") << QVariant(7) << 3.0;
    QTest::newRow("not-a-number") << QVariant(QStringLiteral("big")) << 1.0;
    QTest::newRow("nan-text") << QVariant(QStringLiteral("nan")) << 1.0;
    QTest::newRow("inf-text") << QVariant(QStringLiteral("inf")) << 1.0;
    QTest::newRow("locale-comma") << QVariant(QStringLiteral("1,5")) << 1.0;
}

void TestSettings::factorIsClampedAndRead()
{
    QFETCH(QVariant, value);
    QFETCH(double, factor);
    if (value.isValid())
        QSettings().setValue(QStringLiteral("VirtualResolution/Factor"), value);
    QCOMPARE(virtualResolutionFactor(), factor);

    // Whatever was read, storing it again keeps it.
    setVirtualResolutionFactor(virtualResolutionFactor());
    QCOMPARE(stored(QStringLiteral("VirtualResolution/Factor")).toDouble(), factor);
}

void TestSettings::applyVirtualResolution_data()
{
    QTest::addColumn<QVariant>("factor");
    QTest::addColumn<QByteArray>("userValue"); // empty: the user set nothing
    QTest::addColumn<QByteArray>("expected");  // empty: QT_SCALE_FACTOR stays unset
    QTest::newRow("scaled") << QVariant(0.8) << QByteArray() << QByteArray("0.8");
    QTest::newRow("clamped") << QVariant(9) << QByteArray() << QByteArray("3");
    QTest::newRow("unscaled") << QVariant(1.0) << QByteArray() << QByteArray();
    QTest::newRow("nothing-stored") << QVariant() << QByteArray() << QByteArray();
    QTest::newRow("user-wins") << QVariant(2.0) << QByteArray("1.25") << QByteArray("1.25");
}

void TestSettings::applyVirtualResolution()
{
    QFETCH(QVariant, factor);
    QFETCH(QByteArray, userValue);
    QFETCH(QByteArray, expected);
    // Written through the explicit identity the start-up uses before any application exists.
    const QString organization = QStringLiteral("Skarvel");
    const QString application = QStringLiteral("Halcyra2");
    QSettings settings(organization, application);
    if (factor.isValid())
        settings.setValue(QStringLiteral("VirtualResolution/Factor"), factor);
    settings.sync();
    if (!userValue.isEmpty())
        qputenv("QT_SCALE_FACTOR", userValue);

    QMWidgets::applyVirtualResolution(organization, application);
    QCOMPARE(qEnvironmentVariableIsSet("QT_SCALE_FACTOR"), !expected.isEmpty());
    QCOMPARE(qgetenv("QT_SCALE_FACTOR"), expected);
    QCOMPARE(scaleFactorSetByUser(), !userValue.isEmpty());
}

void TestSettings::virtualResolutionDialog()
{
    setVirtualResolutionFactor(2.0);
    {
        VirtualResolutionDialog dialog;
        QCOMPARE(dialog.percent(), 200);
        dialog.setScreenSize(QSize(1920, 1080));
        dialog.setPercent(125);
        QCOMPARE(dialog.preview(), QStringLiteral("1920 × 1080 appears as 1536 × 864"));
        dialog.setPercent(20);
        QCOMPARE(dialog.preview(), QStringLiteral("1920 × 1080 appears as 3840 × 2160"));
        dialog.reject();
    }
    QCOMPARE(virtualResolutionFactor(), 2.0);

    VirtualResolutionDialog dialog;
    dialog.setPercent(130);
    dialog.accept();
    QCOMPARE(virtualResolutionFactor(), 1.3);
}

QTEST_MAIN(TestSettings)
#include "test_settings.moc"
