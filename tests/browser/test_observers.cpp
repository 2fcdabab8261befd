// The observer lists, the symbol information dialog, the members of indices and the dialog
// that adds them.

#include "browser/constituents.h"
#include "browser/ui/bullwindow.h"
#include "browser/ui/indexexpanddialog.h"
#include "browser/ui/infodialog.h"
#include "browser/ui/observerlist.h"
#include "browser/ui/observerwindow.h"
#include "data/quotefile.h"
#include "data/reader.h"
#include "support/testsettings.h"

#include <QBuffer>
#include <QDropEvent>
#include <QFormLayout>
#include <QLabel>
#include <QMessageBox>
#include <QMimeData>
#include <QPushButton>
#include <QSettings>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTimer>
#include <QTreeWidget>
#include <QtTest>

#include <functional>
#include <memory>

using namespace OrdaneBrowser;

namespace {

const QByteArray kQuotes = "Date,Open,High,Low,Close,Volume,Adj Close\n"
                           "2012-09-25,10.5,11,10,10.75,3000,0.00\n";

// "A,B" as {"A", "B"}; "" as none.
QStringList names(const char *commaSeparated)
{
    return QString::fromUtf8(commaSeparated).split(QLatin1Char(','), Qt::SkipEmptyParts);
}

QByteArray contents(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("<missing>");
}

bool write(const QString &path, const QByteArray &bytes)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
}

// Answers every modal dialog of type T that comes up while it lives, with `answer`.
template <typename T> class Answerer
{
public:
    explicit Answerer(std::function<void(T *)> answer)
    {
        QObject::connect(&mTimer, &QTimer::timeout, &mTimer, [answer] {
            if (auto *dialog = qobject_cast<T *>(QApplication::activeModalWidget()))
                answer(dialog);
        });
        mTimer.start(0);
    }

private:
    QTimer mTimer;
};

// What a view drags when all its rows are selected: every cell, row by row.
QModelIndexList everyIndex(const QAbstractItemModel *model)
{
    QModelIndexList indexes;
    for (int row = 0; row < model->rowCount(); ++row)
        for (int column = 0; column < model->columnCount(); ++column)
            indexes << model->index(row, column);
    return indexes;
}

// The label of the form row that shows `field`.
QString rowLabel(const QWidget &dialog, QWidget *field)
{
    for (const QFormLayout *form : dialog.findChildren<QFormLayout *>())
        if (auto *label = qobject_cast<QLabel *>(form->labelForField(field)))
            return label->text();
    return QString();
}

QString joined(const QVector<Constituent> &members)
{
    QStringList parts;
    for (const Constituent &m : members)
        parts << m.symbol + QLatin1Char('|') + m.name;
    return parts.join(QLatin1Char(';'));
}

} // namespace

class TestObservers : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { QVERIFY(TestSupport::useTestHome(mHome.path())); }
    void init();
    void listKeepsEachSymbolOnce();
    void listsPersistApart();
    void drops_data();
    void drops();
    void exportCharts_data();
    void exportCharts();
    void importCharts_data();
    void importCharts();
    void activationLoadsTheSeries();
    void infoDialog_data();
    void infoDialog();
    void constituents_data();
    void constituents();
    void shippedConstituents();
    void expandDialog();

private:
    QTemporaryDir mHome;
    std::unique_ptr<QTemporaryDir> mOut;
};

void TestObservers::init()
{
    QSettings().clear();
    mOut = std::make_unique<QTemporaryDir>();
}

void TestObservers::listKeepsEachSymbolOnce()
{
    ObserverList list;
    QSignalSpy changed(&list, &ObserverList::symbolsChanged);
    QVERIFY(list.addSymbol(QStringLiteral("MSFT")));
    QVERIFY(!list.addSymbol(QStringLiteral("MSFT")) && !list.addSymbol(QStringLiteral("  ")));
    QCOMPARE(list.addSymbols(names("AAPL, UTX ,MSFT,AAPL")), 2);
    QCOMPARE(list.symbols(), names("AAPL,MSFT,UTX"));
    QCOMPARE(changed.count(), 2);

    // Delete removes every selected item, and nothing when none is selected.
    list.findSymbol(QStringLiteral("AAPL"))->setSelected(true);
    list.findSymbol(QStringLiteral("UTX"))->setSelected(true);
    QTest::keyClick(&list, Qt::Key_Delete);
    QTest::keyClick(&list, Qt::Key_Delete);
    QCOMPARE(list.symbols(), names("MSFT"));
    QCOMPARE(changed.count(), 3);

    // The bear's head outside a bull window, the bull's inside one, selected or not.
    const auto picture = [](const QListWidgetItem *item, QIcon::Mode mode) {
        return item->icon().pixmap(16, 16, mode).toImage().convertToFormat(QImage::Format_RGB32);
    };
    const auto resource = [](const char *name) {
        return QImage(QLatin1String(name)).convertToFormat(QImage::Format_RGB32);
    };
    QVERIFY(resource(":/pix/bearicon.bmp").size() == QSize(16, 16));
    QCOMPARE(picture(list.item(0), QIcon::Selected), resource(":/pix/bearicon.bmp"));
    BullWindow bulls;
    bulls.list()->addSymbol(QStringLiteral("SAP.DE"));
    QCOMPARE(picture(bulls.list()->item(0), QIcon::Normal), resource(":/pix/bullicon.bmp"));
}

void TestObservers::listsPersistApart()
{
    {
        ObserverWindow bears;
        BullWindow bulls;
        bears.list()->addSymbols(names("UTX,MAN.DE"));
        bulls.list()->addSymbol(QStringLiteral("AAPL"));
        bears.list()->removeSymbol(QStringLiteral("UTX"));
    }
    QCOMPARE(QSettings().value(QStringLiteral("Observer/Bears")).toStringList(), names("MAN.DE"));
    QCOMPARE(ObserverWindow().list()->symbols(), names("MAN.DE"));
    BullWindow bulls;
    QCOMPARE(bulls.list()->symbols(), names("AAPL"));
    // Emptied, a list stays empty at the next start.
    bulls.list()->removeSymbol(QStringLiteral("AAPL"));
    QVERIFY(BullWindow().list()->symbols().isEmpty());
}

void TestObservers::drops_data()
{
    QTest::addColumn<QString>("source"); // "browser", "list" or "text"
    QTest::addColumn<QString>("payload");
    QTest::addColumn<QString>("expected");
    const auto row = [](const char *name, const char *source, const char *payload,
                        const char *expected) {
        QTest::newRow(name) << source << payload << expected;
    };
    // The browser's rows name the symbol in column 2, beside the name and the exchange.
    row("browser-rows", "browser", "ADS.DE,MSFT", "AAPL,ADS.DE,MSFT");
    row("other-observer-list", "list", "BMW.DE", "AAPL,BMW.DE");
    row("text-with-separators", "text", " UTX, SAP.DE;\nEURUSD=X ", "AAPL,EURUSD=X,SAP.DE,UTX");
    row("text-file-address", "text", "file:///home/me/MSFT.csv", "AAPL");
}

void TestObservers::drops()
{
    QFETCH(QString, source);
    QFETCH(QString, payload);
    QFETCH(QString, expected);

    ObserverList list;
    list.addSymbol(QStringLiteral("AAPL"));
    std::unique_ptr<QMimeData> data(new QMimeData);
    QTreeWidget browser;
    QListWidget other;
    if (source == QLatin1String("browser")) {
        browser.setColumnCount(5);
        for (const QString &symbol : payload.split(QLatin1Char(',')))
            new QTreeWidgetItem(&browser, {QString(), QString(), symbol, QStringLiteral("Name"),
                                           QStringLiteral("XETRA")});
        data.reset(browser.model()->mimeData(everyIndex(browser.model())));
    } else if (source == QLatin1String("list")) {
        other.addItems(payload.split(QLatin1Char(',')));
        data.reset(other.model()->mimeData(everyIndex(other.model())));
    } else {
        data->setText(payload);
    }

    // As a drag arrives: it enters, and only a target that accepted the entry gets the drop.
    const Qt::DropActions offered = Qt::CopyAction | Qt::MoveAction;
    QDragEnterEvent enter(QPoint(5, 5), offered, data.get(), Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(list.viewport(), &enter);
    // The user asks to move (with Shift, say); a move would have the browser delete the rows.
    QDropEvent drop(QPoint(5, 5), offered, data.get(), Qt::LeftButton, Qt::ShiftModifier);
    drop.setDropAction(Qt::MoveAction);
    QApplication::sendEvent(list.viewport(), &drop);
    QCOMPARE(list.symbols().join(QLatin1Char(',')), expected);
    const bool welcome = !ObserverList::symbolsIn(data.get()).isEmpty();
    QCOMPARE(enter.isAccepted(), welcome);
    QCOMPARE(drop.isAccepted(), welcome);
    if (welcome)
        QCOMPARE(drop.dropAction(), Qt::CopyAction);
}

void TestObservers::exportCharts_data()
{
    QTest::addColumn<QString>("symbol");
    QTest::addColumn<QByteArray>("before"); // in the folder; empty: no file
    QTest::addColumn<bool>("replace");      // the answer to the question whether to replace it
    QTest::addColumn<QByteArray>("after");
    QTest::addColumn<int>("written");
    QTest::addColumn<QString>("box"); // what the box shown says, in part; empty: none shown

    const QByteArray stored = contents(OrdaneData::fileOf(QStringLiteral("UTX")));
    const QByteArray mine("mine");
    const char *question = "UTX.csv exists already. Replace it?";
    QTest::newRow("new-file") << "UTX" << QByteArray() << false << stored << 1 << "";
    QTest::newRow("replace-declined") << "UTX" << mine << false << mine << 0 << question;
    QTest::newRow("replace-accepted") << "UTX" << mine << true << stored << 1 << question;
    QTest::newRow("not-stored") << "NOPE" << QByteArray() << false << QByteArray("<missing>") << 0
                                << "NOPE: no stored quotes";
}

void TestObservers::exportCharts()
{
    QFETCH(QString, symbol);
    QFETCH(QByteArray, before);
    QFETCH(bool, replace);
    QFETCH(QByteArray, after);
    QFETCH(int, written);
    QFETCH(QString, box);

    ObserverWindow window;
    window.list()->addSymbols({QStringLiteral("MSFT"), symbol});
    window.list()->findSymbol(symbol)->setSelected(true);
    const QString target = mOut->filePath(symbol + QLatin1String(".csv"));
    if (!before.isEmpty())
        QVERIFY(write(target, before));

    QStringList shown;
    Answerer<QMessageBox> answerer([&](QMessageBox *message) {
        shown << message->text();
        if (QAbstractButton *button = message->button(replace ? QMessageBox::Yes : QMessageBox::No))
            button->click();
        else
            message->accept();
    });
    QCOMPARE(window.exportCharts(mOut->path()), written);
    QCOMPARE(contents(target), after);
    // Only the selected symbol's file is written.
    QVERIFY(!QFile::exists(mOut->filePath(QStringLiteral("MSFT.csv"))));
    QCOMPARE(shown.size(), box.isEmpty() ? 0 : 1);
    QVERIFY2(shown.join(QLatin1Char('|')).contains(box), qPrintable(shown.join(QLatin1Char('|'))));
}

void TestObservers::importCharts_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QString>("listed");
    QTest::addColumn<QByteArray>("stored"); // the store's file of the symbol afterwards

    const QByteArray notes("Symbol,Note\nMSFT,buy\n");
    const QByteArray msft = contents(OrdaneData::fileOf(QStringLiteral("MSFT")));
    QTest::newRow("new-quote-file") << "NEW.DE.csv" << kQuotes << "NEW.DE" << kQuotes;
    QTest::newRow("not-a-quote-file") << "NOTES.csv" << notes << "" << QByteArray("<missing>");
    // The stored quotes stay as they are; the symbol joins the list.
    QTest::newRow("already-stored") << "MSFT.csv" << kQuotes << "MSFT" << msft;
}

void TestObservers::importCharts()
{
    QFETCH(QString, file);
    QFETCH(QByteArray, content);
    QFETCH(QString, listed);
    QFETCH(QByteArray, stored);

    const QString path = mOut->filePath(file);
    QVERIFY(write(path, content));
    BullWindow window;
    QStringList shown;
    Answerer<QMessageBox> answerer([&](QMessageBox *message) {
        shown << message->text();
        message->accept();
    });
    QCOMPARE(window.importCharts({path}), listed.isEmpty() ? 0 : 1);
    QCOMPARE(window.list()->symbols().join(QLatin1Char(',')), listed);
    QCOMPARE(contents(OrdaneData::fileOf(QFileInfo(file).completeBaseName())), stored);
    // A refused file is named in the one warning at the end.
    QCOMPARE(shown.size(), listed.isEmpty() ? 1 : 0);
    QVERIFY(shown.join(QString()).contains(listed.isEmpty() ? file : QString()));
    QFile::remove(OrdaneData::fileOf(QStringLiteral("NEW.DE")));
}

void TestObservers::activationLoadsTheSeries()
{
    ObserverWindow window;
    window.list()->addSymbols(names("ADS.DE,GONE"));
    QSignalSpy selected(&window, &ObserverWindow::observerItemSeletected);
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));

    // The test library's double-click is the second click of two; one click loads nothing.
    ObserverList *list = window.list();
    const QPoint row = list->visualItemRect(list->findSymbol(QStringLiteral("ADS.DE"))).center();
    QTest::mouseClick(list->viewport(), Qt::LeftButton, Qt::NoModifier, row);
    QCOMPARE(selected.count(), 0);
    QTest::mouseDClick(list->viewport(), Qt::LeftButton, Qt::NoModifier, row);
    QCOMPARE(selected.count(), 1);
    const auto reader = selected.takeFirst().at(0).value<OrdaneData::ReaderH>();
    OrdaneData::Reader expected;
    QVERIFY(expected.loadFile(OrdaneData::fileOf(QStringLiteral("ADS.DE"))));
    QCOMPARE(reader->symbol(), QStringLiteral("ADS.DE"));
    QCOMPARE(reader->bars(), expected.bars());

    // Enter activates as well; a symbol with nothing stored emits nothing and says why.
    list->setCurrentItem(list->findSymbol(QStringLiteral("GONE")));
    QTest::keyClick(list, Qt::Key_Return);
    QCOMPARE(selected.count(), 0);
    QVERIFY2(window.statusText().contains(QLatin1String("GONE")), qPrintable(window.statusText()));
}

void TestObservers::infoDialog_data()
{
    QTest::addColumn<QString>("record"); // column=value;...
    QTest::addColumn<QString>("title");
    QTest::addColumn<QString>("exchange");
    QTest::addColumn<QString>("flag"); // resource of the flag shown; empty for none

    const QString figures = QStringLiteral(";epsecy=2.95;marktkap=262.2B;pe=N/A;dy=2.95;"
                                           "exdividenddate=15-Aug-12;lastupdate=26 Sep 2012");
    QTest::newRow("full-record") << QStringLiteral("name=Microsoft Corporation;exchange=NasdaqNM") +
                                        figures
                                 << "MSFT – Microsoft Corporation"
                                 << "NASDAQ National Market"
                                 << ":/pix/fus.bmp";
    QTest::newRow("unknown-exchange-no-name")
        << QStringLiteral("name=N/A;exchange=Moonbase") + figures << "MSFT"
        << "Moonbase"
        << "";
    QTest::newRow("no-record") << ""
                               << "MSFT"
                               << ""
                               << "";
}

void TestObservers::infoDialog()
{
    QFETCH(QString, record);
    QFETCH(QString, title);
    QFETCH(QString, exchange);
    QFETCH(QString, flag);

    QMap<QString, QString> values;
    for (const QString &field : record.split(QLatin1Char(';'), Qt::SkipEmptyParts))
        values.insert(field.section(QLatin1Char('='), 0, 0), field.section(QLatin1Char('='), 1));
    InfoDialog dialog(QStringLiteral("MSFT"), values);
    const auto label = [&](const char *name) {
        return dialog.findChild<QLabel *>(QLatin1String(name));
    };
    QCOMPARE(label("InfoDialogTitle")->text(), title);
    QVERIFY(dialog.findChild<QPushButton *>(QStringLiteral("InfoDialogClose")));
    if (record.isEmpty()) {
        QVERIFY(label("InfoDialogNone")->text().contains(QLatin1String("MSFT")));
        QVERIFY(!label("InfoDialogExchange") && !label("pe"));
        return;
    }
    QCOMPARE(label("InfoDialogExchange")->text(), exchange);
    const QPixmap shown = label("InfoDialogFlag")->pixmap(Qt::ReturnByValue);
    QCOMPARE(shown.isNull(), flag.isEmpty());
    if (!flag.isEmpty())
        QCOMPARE(shown.toImage(), QPixmap(flag).toImage());

    // "N/A" and missing figures show as a dash, the yield with its percent sign.
    const char *rows[][3] = {
        {"epsecy", "EPS estimate, this year", "2.95"},
        {"marktkap", "Market capitalisation", "262.2B"},
        {"pe", "P/E ratio", "–"},
        {"dy", "Dividend yield", "2.95 %"},
        {"peg", "PEG ratio", "–"},
        {"lastupdate", "Last refresh", "26 Sep 2012"},
    };
    for (const auto &row : rows) {
        QLabel *value = label(row[0]);
        QVERIFY2(value, row[0]);
        QCOMPARE(value->text(), QString::fromUtf8(row[2]));
        QCOMPARE(rowLabel(dialog, value), QString::fromUtf8(row[1]));
    }
}

void TestObservers::constituents_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QString>("index");
    QTest::addColumn<QString>("members"); // symbol|name;...
    const auto row = [](const char *name, const char *lines, const char *index,
                        const char *members) {
        QTest::newRow(name) << QByteArray("index,symbol,name\n") + lines << index << members;
    };
    row("members-of-one-index", "^GDAXI,SAP.DE,SAP\n^GSPC,AAPL,Apple\n^GDAXI,SIE.DE,Siemens\n",
        "^gdaxi", "SAP.DE|SAP;SIE.DE|Siemens");
    row("quoted-names",
        "^GSPC,JNJ,\"Johnson & Johnson, Inc.\"\n\"^GSPC\",KO,\"The \"\"Coke\"\" Co\"", "^GSPC",
        "JNJ|Johnson & Johnson, Inc.;KO|The \"Coke\" Co");
    row("blank-lines-crlf-and-blanks",
        "\r\n^FTSE , BP.L , BP \r\n\r\n   \n^FTSE,VOD.L,Vodafone\r\n", "^FTSE",
        "BP.L|BP;VOD.L|Vodafone");
    row("no-name-no-symbol-twice", "^N,A\n^N,,Nameless\n^N,A,Again\n^N\n^N,B,\n", "^N", "A|;B|");
    row("unknown-index", "^GDAXI,SAP.DE,SAP\n", "^N225", "");
}

void TestObservers::constituents()
{
    QFETCH(QByteArray, text);
    QFETCH(QString, index);
    QFETCH(QString, members);

    QBuffer buffer(&text);
    QVERIFY(buffer.open(QIODevice::ReadOnly));
    QCOMPARE(joined(readConstituents(&buffer, index)), members);
}

void TestObservers::shippedConstituents()
{
    // A first start puts the list beside the metadata store, UTF-8, with 15 members of each
    // sample index, the samples among them.
    QCOMPARE(constituentsFile(), OrdaneData::storagePath() + QStringLiteral("/_constituents.csv"));
    QString error = QStringLiteral("unset");
    const QString dax =
        joined(readConstituents(constituentsFile(), QStringLiteral("^GDAXI"), &error));
    QVERIFY(error.isEmpty());
    QVERIFY(dax.startsWith(QStringLiteral("ADS.DE|adidas;")));
    QVERIFY(dax.contains(QStringLiteral(";MUV2.DE|Münchener Rück;")));
    for (const char *index : {"^GSPC", "^GDAXI", "^FTSE"})
        QCOMPARE(readConstituents(constituentsFile(), QLatin1String(index)).size(), 15);

    QVERIFY(readConstituents(mOut->filePath(QStringLiteral("none.csv")), {}, &error).isEmpty());
    QVERIFY(!error.isEmpty());
}

void TestObservers::expandDialog()
{
    const QVector<Constituent> members = {{QStringLiteral("SAP.DE"), QStringLiteral("SAP")},
                                          {QStringLiteral("SIE.DE"), QStringLiteral("Siemens")},
                                          {QStringLiteral("BMW.DE"), QStringLiteral("BMW")}};
    IndexExpandDialog dialog(QStringLiteral("^GDAXI"), members);
    QSignalSpy added(&dialog, &IndexExpandDialog::addIndexSymbols);
    auto *add = dialog.findChild<QPushButton *>(QStringLiteral("IndexExpandDialogAdd"));
    QTreeWidget *list = dialog.memberList();
    QCOMPARE(list->topLevelItem(1)->text(IndexExpandDialog::NameColumn), QStringLiteral("Siemens"));
    QCOMPARE(dialog.checkedSymbols(), names("SAP.DE,SIE.DE,BMW.DE"));

    // Nothing checked, nothing to add.
    dialog.findChild<QPushButton *>(QStringLiteral("IndexExpandDialogUncheckAll"))->click();
    QVERIFY(!add->isEnabled());
    list->topLevelItem(2)->setCheckState(0, Qt::Checked);
    list->topLevelItem(0)->setCheckState(0, Qt::Checked);
    add->click();
    QCOMPARE(dialog.result(), int(QDialog::Accepted));
    QCOMPARE(added.count(), 1);
    QCOMPARE(added.at(0).at(0).toStringList(), names("SAP.DE,BMW.DE"));

    IndexExpandDialog none(QStringLiteral("^N225"), {});
    QVERIFY(!none.findChild<QPushButton *>(QStringLiteral("IndexExpandDialogAdd")));
    QVERIFY(none.findChild<QLabel *>(QStringLiteral("IndexExpandDialogInfo"))
                ->text()
                .startsWith(QStringLiteral("No members of ^N225")));

    // Run from the store's list, the dialog returns what it added, and nothing when cancelled.
    for (const bool accept : {true, false}) {
        Answerer<IndexExpandDialog> answerer([accept](IndexExpandDialog *shown) {
            shown->uncheckAll();
            shown->memberList()->topLevelItem(0)->setCheckState(0, Qt::Checked);
            accept ? shown->accept() : shown->reject();
        });
        QCOMPARE(IndexExpandDialog::pickMembers(QStringLiteral("^FTSE")),
                 accept ? names("AZN.L") : QStringList());
    }
}

QTEST_MAIN(TestObservers)
#include "test_observers.moc"
