// The application object: the services it carries go before it does.

#include "core/translationsmanager.h"
#include "support/testsettings.h"
#include "widgets/app.h"

#include <QtTest>

#include <memory>

namespace {
QStringList gMessages;

void record(QtMsgType, const QMessageLogContext &, const QString &text)
{
    gMessages << text;
}
} // namespace

class TestApp : public QObject
{
    Q_OBJECT

private slots:
    void quitsQuietly();
};

// A language left installed at the end was removed only after the toolkit's application had
// gone, which it refused with a warning at every quit.
void TestApp::quitsQuietly()
{
    static int argc = 1;
    static char name[] = "test_app";
    static char *argv[] = {name, nullptr};
    auto app = std::make_unique<QMWidgets::App>(argc, argv, QStringLiteral("Skarvel"),
                                                QStringLiteral("Halcyra2"));
    TestSupport::useTestSettings();
    for (const char *code : {"de", "ru"}) // one language, then another in its place
        QVERIFY(!app->translations()->install(QLatin1String(code)).isEmpty());

    gMessages.clear();
    const QtMessageHandler previous = qInstallMessageHandler(record);
    app.reset();
    qInstallMessageHandler(previous);
    QVERIFY2(gMessages.isEmpty(), qPrintable(gMessages.join(QLatin1Char('\n'))));
    QVERIFY(!QCoreApplication::instance());
}

QTEST_APPLESS_MAIN(TestApp)
#include "test_app.moc"
