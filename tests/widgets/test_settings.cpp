// The settings dialog and its pages, and the virtual resolution.

#include "core/virtualresolution.h"
#include "support/testsettings.h"
#include "widgets/languagepage.h"
#include "widgets/settingsdialog.h"
#include "widgets/updatespage.h"
#include "widgets/virtualresolutiondialog.h"

#include <QDialogButtonBox>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QSignalSpy>
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
} // namespace

class TestSettings : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { TestSupport::useTestSettings(); }
    void init();

    void buttonsApplyPages_data();
    void buttonsApplyPages();
    void languagePage_data();
    void languagePage();
    void updatesPageStoresItsKeysOnApply();

    void factorIsClampedAppliedAndChosen_data();
    void factorIsClampedAppliedAndChosen();
};

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
    QPointer<CountingPage> counting = new CountingPage;
    {
        SettingsDialog dialog;
        auto *slotStyle = new SlotStylePage;
        dialog.addPage(counting, QStringLiteral("Counting"));
        dialog.addPage(new QWidget, QStringLiteral("Nothing to store"));
        dialog.addPage(slotStyle, QStringLiteral("Colours"));
        dialog.setCurrentIndex(7); // no such page: stays
        QCOMPARE(dialog.currentIndex(), 0);
        dialog.setCurrentIndex(2);
        dialog.show();
        dialog.resize(720, 510);
        auto *box = dialog.findChild<QDialogButtonBox *>();
        QTest::mouseClick(box->button(QDialogButtonBox::StandardButton(button)), Qt::LeftButton);
        QCOMPARE(counting->calls, calls);
        QCOMPARE(slotStyle->calls, calls);
        QCOMPARE(dialog.isVisible(), staysOpen);
        dialog.reject();
    }
    QVERIFY(counting.isNull());

    // The next dialog opens at the same size on the last page, once that page exists.
    SettingsDialog again;
    for (int i = 0; i < 3; ++i) {
        again.addPage(new QWidget, QString::number(i));
        QCOMPARE(again.currentIndex(), i < 2 ? 0 : 2);
    }
    QCOMPARE(again.size(), QSize(720, 510));
}

void TestSettings::languagePage_data()
{
    QTest::addColumn<QString>("stored"); // null: nothing stored
    QTest::addColumn<QString>("shown");  // null: whatever the system locale gives
    QTest::addColumn<int>("offered");
    QTest::newRow("nothing-stored") << QString() << QString() << 0;
    QTest::newRow("locale-name") << QStringLiteral("ru_RU") << QStringLiteral("ru") << 3;
    // The setting matches anywhere in the value.
    QTest::newRow("contains-de") << QStringLiteral("mde") << QStringLiteral("de") << 3;
    // Known to the program but not offered: kept as an extra entry, not replaced.
    QTest::newRow("spanish") << QStringLiteral("es_ES") << QStringLiteral("es") << 4;
    QTest::newRow("unknown") << QStringLiteral("pt_BR") << QStringLiteral("en") << 3;
}

void TestSettings::languagePage()
{
    QFETCH(QString, stored);
    QFETCH(QString, shown);
    QFETCH(int, offered);
    const QString key = QStringLiteral("Language");
    if (!stored.isNull())
        QSettings().setValue(key, stored);
    QuietLanguagePage page;
    if (!shown.isNull()) {
        QCOMPARE(page.language(), shown);
        QCOMPARE(page.languages().size(), offered);
    }

    // Applying what is shown leaves the stored value as it was: with nothing stored the
    // page follows the system locale and must not freeze it.
    QSignalSpy restart(&page, &LanguagePage::restartNeeded);
    page.apply();
    QCOMPARE(restart.count(), 0);
    QCOMPARE(QSettings().contains(key), !stored.isNull());
    QCOMPARE(QSettings().value(key).toString(), stored);

    // Another choice is stored only on Apply, and only once; a restart is asked for.
    const QString other =
        page.language() == QLatin1String("ru") ? QStringLiteral("de") : QStringLiteral("ru");
    QVERIFY(page.setLanguage(other));
    QVERIFY(!page.setLanguage(QStringLiteral("fr")));
    QCOMPARE(QSettings().value(key).toString(), stored);
    page.apply();
    page.apply();
    QCOMPARE(QSettings().value(key).toString(), other);
    QCOMPARE(restart.count(), 1);
    QCOMPARE(page.notices, 1);
}

void TestSettings::updatesPageStoresItsKeysOnApply()
{
    {
        // No address comes with the program, and the field does not suggest one.
        UpdatesPage page;
        auto *field = page.findChild<QLineEdit *>(QStringLiteral("UpdatesPageUrl"));
        QVERIFY(page.updateUrl().isEmpty());
        QVERIFY(!field->placeholderText().isEmpty());
        QVERIFY(!field->placeholderText().contains(QLatin1String("://")));
        QVERIFY(!page.checkAtStart());
        page.setCheckAtStart(true);
        page.setUpdateUrl(QStringLiteral("  http://localhost/version.txt "));
        QVERIFY(QSettings().allKeys().isEmpty());
        page.apply();
    }
    QCOMPARE(QSettings().value(QStringLiteral("checkupdates")).toBool(), true);
    QCOMPARE(QSettings().value(QStringLiteral("UpdateUrl")).toString(),
             QStringLiteral("http://localhost/version.txt"));

    UpdatesPage reopened;
    QVERIFY(reopened.checkAtStart());
    reopened.setCheckAtStart(false);
    reopened.setUpdateUrl(QStringLiteral("   "));
    reopened.apply();
    QCOMPARE(QSettings().value(QStringLiteral("checkupdates")).toBool(), false);
    QVERIFY(!QSettings().contains(QStringLiteral("UpdateUrl")));
}

void TestSettings::factorIsClampedAppliedAndChosen_data()
{
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<double>("factor");
    QTest::addColumn<QByteArray>("scale"); // QT_SCALE_FACTOR at start; empty: left unset
    QTest::newRow("nothing-stored") << QVariant() << 1.0 << QByteArray();
    QTest::newRow("in-range") << QVariant(0.8) << 0.8 << QByteArray("0.8");
    QTest::newRow("unscaled") << QVariant(1.0) << 1.0 << QByteArray();
    QTest::newRow("too-small") << QVariant(0.2) << 0.5 << QByteArray("0.5");
    QTest::newRow("negative") << QVariant(-2) << 0.5 << QByteArray("0.5");
    QTest::newRow("too-large") << QVariant(7) << 3.0 << QByteArray("3");
    QTest::newRow("nan-text") << QVariant(QStringLiteral("nan")) << 1.0 << QByteArray();
    QTest::newRow("inf-text") << QVariant(QStringLiteral("inf")) << 1.0 << QByteArray();
    QTest::newRow("locale-comma") << QVariant(QStringLiteral("1,5")) << 1.0 << QByteArray();
}

void TestSettings::factorIsClampedAppliedAndChosen()
{
    QFETCH(QVariant, value);
    QFETCH(double, factor);
    QFETCH(QByteArray, scale);
    const QString key = QStringLiteral("VirtualResolution/Factor");
    if (value.isValid())
        QSettings().setValue(key, value);
    QCOMPARE(virtualResolutionFactor(), factor);

    // The start-up reads it through the explicit identity, before any application exists.
    const QString organization = QStringLiteral("Skarvel");
    const QString application = QStringLiteral("Halcyra2");
    applyVirtualResolution(organization, application);
    QCOMPARE(qEnvironmentVariableIsSet("QT_SCALE_FACTOR"), !scale.isEmpty());
    QCOMPARE(qgetenv("QT_SCALE_FACTOR"), scale);
    QVERIFY(!scaleFactorSetByUser());
    // A scale the user set wins.
    qputenv("QT_SCALE_FACTOR", "1.25");
    applyVirtualResolution(organization, application);
    QCOMPARE(qgetenv("QT_SCALE_FACTOR"), QByteArray("1.25"));
    QVERIFY(scaleFactorSetByUser());

    // The dialog starts at the factor read; it shows what a choice makes of the screen, and
    // stores it only when accepted.
    {
        VirtualResolutionDialog dialog;
        QCOMPARE(dialog.percent(), qRound(factor * 100));
        dialog.setScreenSize(QSize(1920, 1080));
        dialog.setPercent(125);
        QCOMPARE(dialog.preview(), QStringLiteral("1920 × 1080 appears as 1536 × 864"));
        dialog.setPercent(20);
        QCOMPARE(dialog.preview(), QStringLiteral("1920 × 1080 appears as 3840 × 2160"));
        dialog.reject();
    }
    QCOMPARE(virtualResolutionFactor(), factor);
    VirtualResolutionDialog dialog;
    dialog.setPercent(130);
    dialog.accept();
    QCOMPARE(virtualResolutionFactor(), 1.3);
}

QTEST_MAIN(TestSettings)
#include "test_settings.moc"
