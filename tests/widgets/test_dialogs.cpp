// Dialogs: editing a stored file, the updater's page.

#include "core/updater.h"
#include "data/home.h"
#include "data/quotefile.h"
#include "data/ui/editcsvdialog.h"
#include "support/messagebox.h"
#include "support/testsettings.h"
#include "widgets/updaterpage.h"

#include <QMessageBox>
#include <QPushButton>
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

QTEST_MAIN(TestDialogs)
#include "test_dialogs.moc"
