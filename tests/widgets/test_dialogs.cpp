// Dialogs: editing a stored file, the updater's page.

#include "core/updater.h"
#include "data/home.h"
#include "data/quotefile.h"
#include "data/ui/editcsvdialog.h"
#include "data/ui/quoteservicepage.h"
#include "support/messagebox.h"
#include "support/quoteservice.h"
#include "support/testsettings.h"
#include "widgets/updaterpage.h"

#include <QComboBox>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QSettings>
#include <QSignalSpy>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QtTest>

namespace {
QByteArray contents(const QString &path)
{
    QFile f(path);
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
}
} // namespace

class TestDialogs : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void editCsvSavesAndConfirms();
    void editCsvFailureKeepsDialogOpen();
    void updaterPageShowsSearchThenResult();
    void quoteServicePage();

private:
    QTemporaryDir mHome;
};

void TestDialogs::initTestCase()
{
    TestSupport::useTestSettings();
    QVERIFY(OrdaneData::Home::setPath(mHome.path()));
    QVERIFY(QDir().mkpath(OrdaneData::storagePath()));
}

void TestDialogs::editCsvSavesAndConfirms()
{
    const QString path = OrdaneData::fileOf(QStringLiteral("MSFT"));
    QVERIFY(OrdaneData::writeText(path, QStringLiteral("Date,Open,High,Low,Close,Volume,Adj Close\n"
                                                       "2012-09-25,1,2,0.5,1.5,10,0")));
    OrdaneData::EditCsvDialog dialog(QStringLiteral("MSFT"));
    QVERIFY(dialog.text().endsWith(QStringLiteral("2012-09-25,1,2,0.5,1.5,10,0")));

    dialog.setText(dialog.text() + QStringLiteral("\n2012-09-24,1,1,1,1,1,0"));
    dialog.show();
    QString title, text;
    TestSupport::answerNextMessageBox(&text, &title);
    QTest::mouseClick(dialog.findChild<QPushButton *>(QStringLiteral("EditCsvDialogSave")),
                      Qt::LeftButton);
    QCOMPARE(title, QStringLiteral("Information"));
    QCOMPARE(text, QStringLiteral("The data for MSFT was successfully saved"));
    QCOMPARE(dialog.result(), int(QDialog::Accepted));
    QVERIFY(contents(path).endsWith("\n2012-09-24,1,1,1,1,1,0"));
}

void TestDialogs::editCsvFailureKeepsDialogOpen()
{
    OrdaneData::EditCsvDialog dialog(QStringLiteral("GONE"));
    dialog.setText(QStringLiteral("edited"));
    dialog.show();
    // The storage folder disappears while the dialog is open.
    QVERIFY(QDir(OrdaneData::storagePath()).removeRecursively());
    QString title, text;
    TestSupport::answerNextMessageBox(&text, &title);
    dialog.slotSave();
    QCOMPARE(title, QStringLiteral("Error"));
    QVERIFY(text.contains(QStringLiteral("GONE")));
    QVERIFY(dialog.isVisible());
    QCOMPARE(dialog.text(), QStringLiteral("edited"));
    QVERIFY(QDir().mkpath(OrdaneData::storagePath()));
}

void TestDialogs::updaterPageShowsSearchThenResult()
{
    QMWidgets::Updater updater;
    QMWidgets::UpdaterPage page(&updater);
    QSignalSpy finished(&updater, &QMWidgets::Updater::finished);
    updater.search();
    QVERIFY(page.heading().contains(QStringLiteral("Searching for the updates")));
    QVERIFY(page.heading().contains(QStringLiteral("Please, wait ...")));
    QVERIFY(finished.wait(5000));
    QVERIFY(page.message().contains(QStringLiteral("UpdateUrl")));
}

// The quote service page keeps what it shows, offers the fields each provider uses, and
// tries the service as a download would.
void TestDialogs::quoteServicePage()
{
    TestSupport::QuoteService service({QStringLiteral("--fault"), QStringLiteral("UTX=html")});
    QVERIFY(service.isRunning());
    OrdaneData::QuoteServicePage page;
    auto *tableHost = page.findChild<QLineEdit *>(QStringLiteral("QuoteServicePageTableHost"));
    auto *quoteHost = page.findChild<QLineEdit *>(QStringLiteral("QuoteServicePageQuoteHost"));
    auto *apiKey = page.findChild<QLineEdit *>(QStringLiteral("QuoteServicePageApiKey"));
    auto *provider = page.findChild<QComboBox *>(QStringLiteral("QuoteServicePageProvider"));
    QVERIFY(tableHost->text().isEmpty());
    QVERIFY(quoteHost->isEnabled() && !apiKey->isEnabled());
    QSignalSpy tried(&page, &OrdaneData::QuoteServicePage::tried);
    page.slotTry();
    QCOMPARE(page.tryResult(), OrdaneData::QuoteService::notConfigured());

    tableHost->setText(service.url().toString() + QStringLiteral("/"));
    page.slotTry();
    QVERIFY(tried.wait(10000));
    QVERIFY(tried.constLast().at(0).toBool());
    QVERIFY2(page.tryResult().startsWith(QStringLiteral("The service answered")),
             qPrintable(page.tryResult()));
    page.findChild<QLineEdit *>(QStringLiteral("QuoteServicePageSymbol"))
        ->setText(QStringLiteral("UTX"));
    page.slotTry();
    QVERIFY(tried.wait(10000));
    QVERIFY(!tried.constLast().at(0).toBool());
    QVERIFY2(page.tryResult().startsWith(QStringLiteral("No quotes for UTX: not a quote table")),
             qPrintable(page.tryResult()));

    provider->setCurrentIndex(1);
    QVERIFY(!quoteHost->isEnabled() && apiKey->isEnabled());
    apiKey->setText(QStringLiteral("secret"));
    page.apply();
    const OrdaneData::QuoteService stored = OrdaneData::QuoteService::fromSettings();
    QCOMPARE(stored.provider, OrdaneData::QuoteService::DailyCsv);
    QCOMPARE(stored.tableHost, service.url().toString() + QStringLiteral("/"));
    QCOMPARE(stored.apiKey, QStringLiteral("secret"));
    QCOMPARE(QSettings().value(QStringLiteral("QuoteService/Provider")).toString(),
             QStringLiteral("stooq"));
}

QTEST_MAIN(TestDialogs)
#include "test_dialogs.moc"
