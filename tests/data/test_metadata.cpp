// The symbol metadata store: its tables, rows that go in and come out unchanged whatever
// they hold, the service's replies, use from two threads, the sample store, and the
// exchange table with its flags.

#include "data/exchanges.h"
#include "data/home.h"
#include "data/metadata.h"
#include "support/testsettings.h"

#include <QImage>
#include <QSqlDatabase>
#include <QSqlQuery>
#include <QTemporaryDir>
#include <QThread>
#include <QtTest>

#include <memory>

using namespace OrdaneData;

namespace {

QStringList gLog;

void keepMessage(QtMsgType, const QMessageLogContext &, const QString &text)
{
    gLog << text;
}

// A row of 22 values: the symbol, then "<column>-<tag>" for the other columns.
QStringList row(const QString &symbol, const QString &tag)
{
    QStringList values{symbol};
    for (const QString &column : MetaData::columns().mid(1))
        values << column + QLatin1Char('-') + tag;
    return values;
}

QMap<QString, QString> recordOf(const QStringList &values)
{
    QMap<QString, QString> record;
    for (int i = 0; i < values.size(); ++i)
        record.insert(MetaData::columns().at(i), values.at(i));
    return record;
}

// Results of a statement on a connection of the test's own, beside the store's.
QStringList queryFile(const QString &path, const QString &statement)
{
    QStringList result;
    {
        QSqlDatabase db =
            QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), QStringLiteral("test"));
        db.setDatabaseName(path);
        if (db.open()) {
            QSqlQuery query(db);
            if (query.exec(statement))
                while (query.next())
                    result << query.value(0).toString();
        }
    }
    QSqlDatabase::removeDatabase(QStringLiteral("test"));
    return result;
}

QStringList storeConnections(const QString &path)
{
    return QSqlDatabase::connectionNames().filter(path);
}

const QString kReply = QStringLiteral(
    "\"Microsoft Corpora\",\"NasdaqNM\",2.73,2.85,0.74,257.0B,21.882B,15.36,1.59,2.80,8.491,"
    "0.92,2.731,3.52,3.66,\"Nov 13\",\"Dec 13\",15.55,1.40,\"USD\"\r\n");

} // namespace

class TestMetaData : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void createsTheTables();
    void rowsRoundTrip_data();
    void rowsRoundTrip();
    void refusedWrites();
    void symbolsOfExchanges_data();
    void symbolsOfExchanges();
    void refresh_data();
    void refresh();
    void refreshAgain_data();
    void refreshAgain();
    void failuresGoToTheDebugLog();
    void secondThread();
    void sampleStore_data();
    void sampleStore();
    void exchangeTable();
    void flags_data();
    void flags();

private:
    QString newPath() { return mDir.filePath(QStringLiteral("s%1/_meta.tdb").arg(++mCount)); }

    QTemporaryDir mDir;
    int mCount = 0;
};

void TestMetaData::initTestCase()
{
    TestSupport::useTestSettings();
    QVERIFY(mDir.isValid());
    // The refresh date must not follow the locale; make sure this run's locale would show.
    QCOMPARE(QDate(2012, 10, 2).toString(QStringLiteral("MMM")), QStringLiteral("Okt."));
    qInstallMessageHandler(keepMessage);
}

void TestMetaData::init()
{
    gLog.clear();
}

void TestMetaData::createsTheTables()
{
    const QString path = newPath(); // in a folder yet to be made
    {
        MetaData store(path);
        QVERIFY(store.open());
        QVERIFY(store.symbols().isEmpty());
    }
    QCOMPARE(
        queryFile(path, QStringLiteral("SELECT sql FROM sqlite_master WHERE name = 'metadata'")),
        QStringList{QStringLiteral(
            "CREATE TABLE metadata ( symbol         VARCHAR(16) PRIMARY KEY NOT NULL, name      "
            "     VARCHAR(32), exchange       VARCHAR(16), epsecy         VARCHAR(16), epseny   "
            "      VARCHAR(16), epsexq         VARCHAR(16), marktkap       VARCHAR(16), ebitda  "
            "       VARCHAR(16), pe             VARCHAR(16), peg            VARCHAR(16), dy     "
            "        VARCHAR(16), bookvalue      VARCHAR(16), dividendsshare VARCHAR(16), "
            "earningshare   VARCHAR(16), pricesales     VARCHAR(16), pricebook      VARCHAR(16), "
            "exdividenddate VARCHAR(16), dividenpaydate VARCHAR(16), pepsecy        VARCHAR(16), "
            "shortratio     VARCHAR(16), currency       VARCHAR(16), lastupdate     "
            "VARCHAR(16))")});
    QCOMPARE(
        queryFile(path, QStringLiteral("SELECT sql FROM sqlite_master WHERE name = 'version'")),
        QStringList{QStringLiteral("CREATE TABLE version ( id INTEGER )")});
    QCOMPARE(queryFile(path, QStringLiteral("SELECT id FROM version")),
             QStringList{QStringLiteral("0")});

    // Opened again, the file is kept as it is.
    MetaData store(path);
    QVERIFY(store.open());
    QVERIFY(store.insert(row(QStringLiteral("MSFT"), QStringLiteral("a"))));
    QCOMPARE(queryFile(path, QStringLiteral("SELECT id FROM version")),
             QStringList{QStringLiteral("0")});
    QVERIFY(gLog.isEmpty());
}

void TestMetaData::rowsRoundTrip_data()
{
    QTest::addColumn<QString>("symbol");
    QTest::addColumn<QString>("text"); // stands in every column but the symbol

    QTest::newRow("plain") << QStringLiteral("MSFT") << QStringLiteral("Microsoft Corporation");
    QTest::newRow("single-quote") << QStringLiteral("MCO") << QStringLiteral("Moody's");
    QTest::newRow("hostile-value") << QStringLiteral("X'); DROP TABLE METADATA; --")
                                   << QStringLiteral("x'); DROP TABLE metadata; --");
    QTest::newRow("not-latin-1") << QStringLiteral("GLE.PA")
                                 << QStringLiteral("Soci\u00e9t\u00e9 G\u00e9n\u00e9rale \u20ac");
    QTest::newRow("empty") << QStringLiteral("E") << QStringLiteral("");
}

void TestMetaData::rowsRoundTrip()
{
    QFETCH(QString, symbol);
    QFETCH(QString, text);
    MetaData store(newPath());
    QVERIFY(store.insert(row(QStringLiteral("AAPL"), QStringLiteral("apple"))));

    QStringList values{symbol};
    for (int i = 1; i < MetaData::columns().size(); ++i)
        values << text;
    QVERIFY(store.insert(values));
    QCOMPARE(store.record(symbol), recordOf(values));

    // Every column but the symbol changes; the neighbour stays.
    const QStringList changed = row(symbol, text);
    QVERIFY(store.update(changed.mid(1) << symbol));
    QCOMPARE(store.record(symbol), recordOf(changed));
    QCOMPARE(store.record(QStringLiteral("AAPL")),
             recordOf(row(QStringLiteral("AAPL"), QStringLiteral("apple"))));
    QCOMPARE(store.symbols().size(), 2);
    QVERIFY2(gLog.isEmpty(), qPrintable(gLog.join(QLatin1Char('\n'))));
}

void TestMetaData::refusedWrites()
{
    MetaData store(newPath());
    const QStringList msft = row(QStringLiteral("MSFT"), QStringLiteral("a"));
    QVERIFY(store.insert(msft));

    QVERIFY(!store.insert(row(QStringLiteral("MSFT"), QStringLiteral("b"))));
    QVERIFY(!store.insert(row(QStringLiteral("AAPL"), QStringLiteral("b")).mid(1)));
    QVERIFY(
        !store.update(row(QStringLiteral("MSFT"), QStringLiteral("b")) << QStringLiteral("MSFT")));
    QCOMPARE(gLog.filter(QStringLiteral("Error while metadata update")).size(), 3);
    // Updating a symbol that is not stored writes nothing, and is no error.
    QVERIFY(store.update(row(QStringLiteral("AAPL"), QStringLiteral("b")).mid(1)
                         << QStringLiteral("AAPL")));
    QCOMPARE(store.symbols(), QStringList{QStringLiteral("MSFT")});
    QCOMPARE(store.record(QStringLiteral("msft")), recordOf(msft));
    QVERIFY(store.record(QStringLiteral("AAPL")).isEmpty());
}

void TestMetaData::symbolsOfExchanges_data()
{
    QTest::addColumn<QStringList>("codes");
    QTest::addColumn<QStringList>("expected");

    const QString msft = QStringLiteral("MSFT"), ibm = QStringLiteral("IBM"),
                  ads = QStringLiteral("ADS.DE");
    QTest::newRow("one-code") << QStringList{QStringLiteral("NYSE")} << QStringList{ibm};
    QTest::newRow("two-codes") << QStringList{QStringLiteral("NasdaqNM"), QStringLiteral("XETRA")}
                               << QStringList{ads, msft};
    QTest::newRow("unknown-code") << QStringList{QStringLiteral("TSE")} << QStringList();
    QTest::newRow("quote-in-code")
        << QStringList{QStringLiteral("x') OR ('1'='1")} << QStringList();
    QTest::newRow("empty-list") << QStringList() << QStringList();
}

void TestMetaData::symbolsOfExchanges()
{
    QFETCH(QStringList, codes);
    QFETCH(QStringList, expected);
    MetaData store(newPath());
    for (const auto &[symbol, exchange] :
         {std::pair{"MSFT", "NasdaqNM"}, std::pair{"IBM", "NYSE"}, std::pair{"ADS.DE", "XETRA"}}) {
        QStringList values = row(QLatin1String(symbol), QStringLiteral("x"));
        values[2] = QLatin1String(exchange);
        QVERIFY(store.insert(values));
    }
    QStringList symbols = store.symbolsOfExchanges(codes);
    symbols.sort();
    QCOMPARE(symbols, expected);
    QVERIFY(gLog.isEmpty());
}

void TestMetaData::refresh_data()
{
    QTest::addColumn<QString>("symbol");
    QTest::addColumn<QString>("reply");
    QTest::addColumn<bool>("imported");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("exchange");

    const QString corp = QStringLiteral("Microsoft Corpora");
    QTest::newRow("as-sent") << QStringLiteral("MSFT") << kReply << false << corp
                             << QStringLiteral("NasdaqNM");
    QTest::newRow("barcelona") << QStringLiteral("TEF.BC") << kReply << false << corp
                               << QStringLiteral("Barcelona");
    QTest::newRow("pink-sheets") << QStringLiteral("ABCD.PK") << kReply << false << corp
                                 << QStringLiteral("Pink Sheets");
    QTest::newRow("suffix-not-at-end")
        << QStringLiteral("A.PKX") << kReply << false << corp << QStringLiteral("NasdaqNM");
    QTest::newRow("imported-wins")
        << QStringLiteral("TEF.BC") << kReply << true << corp << QStringLiteral("Imported");
    QString quoted = kReply;
    quoted.replace(QStringLiteral("\"Microsoft Corpora\""),
                   QStringLiteral("\"Moody's Corp, \"\"New\"\"\""));
    quoted.chop(2);
    QTest::newRow("comma-and-quotes-in-name-no-line-end")
        << QStringLiteral("MCO") << quoted << false << QStringLiteral("Moody's Corp, \"New\"")
        << QStringLiteral("NasdaqNM");
}

void TestMetaData::refresh()
{
    QFETCH(QString, symbol);
    QFETCH(QString, reply);
    QFETCH(bool, imported);
    MetaData store(newPath());
    QVERIFY(store.refresh(symbol, reply, imported, QDate(2012, 10, 2)));
    QCOMPARE(store.symbols(), QStringList{symbol});
    const QMap<QString, QString> record = store.record(symbol);
    QTEST(record.value(QStringLiteral("name")), "name");
    QTEST(record.value(QStringLiteral("exchange")), "exchange");
    QCOMPARE(record.value(QStringLiteral("epsecy")), QStringLiteral("2.73"));
    QCOMPARE(record.value(QStringLiteral("dividenpaydate")), QStringLiteral("Dec 13"));
    QCOMPARE(record.value(QStringLiteral("currency")), QStringLiteral("USD"));
    // English under the German locale of this run.
    QCOMPARE(record.value(QStringLiteral("lastupdate")), QStringLiteral("02 Oct 2012"));
}

// A second reply about a stored symbol rewrites its row, unless it is broken.
void TestMetaData::refreshAgain_data()
{
    QTest::addColumn<QString>("reply");
    QTest::addColumn<bool>("accepted");

    QString line = kReply;
    line.replace(QStringLiteral("Microsoft Corpora"), QStringLiteral("Microsoft Corp."));
    QTest::newRow("renamed") << line << true;
    line.chop(2);
    QTest::newRow("19-values") << line.left(line.lastIndexOf(QLatin1Char(','))) << false;
    QTest::newRow("21-values") << line + QStringLiteral(",N/A") << false;
    QTest::newRow("unclosed-quote") << line.mid(1) << false;
    QTest::newRow("empty-line") << QStringLiteral("\r\n") << false;
}

void TestMetaData::refreshAgain()
{
    QFETCH(QString, reply);
    QFETCH(bool, accepted);
    MetaData store(newPath());
    QVERIFY(store.refresh(QStringLiteral("MSFT"), kReply, false, QDate(2012, 3, 1)));
    const QMap<QString, QString> before = store.record(QStringLiteral("MSFT"));
    QCOMPARE(store.refresh(QStringLiteral("MSFT"), reply, false, QDate(2012, 12, 24)), accepted);
    QCOMPARE(store.symbols(), QStringList{QStringLiteral("MSFT")});
    QMap<QString, QString> expected = before;
    if (accepted) {
        expected[QStringLiteral("name")] = QStringLiteral("Microsoft Corp.");
        expected[QStringLiteral("lastupdate")] = QStringLiteral("24 Dec 2012");
    }
    QCOMPARE(store.record(QStringLiteral("MSFT")), expected);
}

void TestMetaData::failuresGoToTheDebugLog()
{
    // A folder where the file should be cannot be opened.
    MetaData folder(mDir.path());
    QVERIFY(!folder.open());
    QVERIFY(folder.symbols().isEmpty());
    QVERIFY(!gLog.isEmpty());
    QVERIFY2(gLog.first().startsWith(QStringLiteral("Cannot open database: ")),
             qPrintable(gLog.first()));

    // A file that is no database opens, but no statement runs on it.
    gLog.clear();
    const QString path = mDir.filePath(QStringLiteral("garbage.tdb"));
    QFile garbage(path);
    QVERIFY(garbage.open(QIODevice::WriteOnly));
    garbage.write(QByteArray(4096, 'x'));
    garbage.close();
    MetaData store(path);
    QVERIFY(store.symbols().isEmpty());
    QVERIFY(store.record(QStringLiteral("MSFT")).isEmpty());
    QVERIFY(!store.insert(row(QStringLiteral("MSFT"), QStringLiteral("a"))));
    QCOMPARE(gLog.size(), 3);
    QVERIFY2(gLog.at(0).startsWith(QStringLiteral("MetaData Error: ")) &&
                 gLog.at(0).contains(QStringLiteral("file is not a database")),
             qPrintable(gLog.at(0)));
    QVERIFY(gLog.at(1).startsWith(QStringLiteral("MetaData Error: ")));
    QVERIFY(gLog.at(2).startsWith(QStringLiteral("Error while metadata update ")));
}

void TestMetaData::secondThread()
{
    const QString path = newPath();
    {
        MetaData store(path);
        QVERIFY(store.insert(row(QStringLiteral("MSFT"), QStringLiteral("a"))));
        QCOMPARE(storeConnections(path).size(), 1);

        QMap<QString, QString> seen;
        bool refreshed = false;
        int connectionsInside = 0;
        std::unique_ptr<QThread> worker(QThread::create([&] {
            seen = store.record(QStringLiteral("MSFT"));
            refreshed = store.refresh(QStringLiteral("AAPL"), kReply);
            connectionsInside = storeConnections(path).size();
        }));
        worker->start();
        QVERIFY(worker->wait(60000));

        QCOMPARE(seen, recordOf(row(QStringLiteral("MSFT"), QStringLiteral("a"))));
        QVERIFY(refreshed);
        QCOMPARE(connectionsInside, 2);
        // The worker's connection ended with it; this thread's is still in use.
        QCOMPARE(storeConnections(path).size(), 1);
        QCOMPARE(store.record(QStringLiteral("AAPL")).value(QStringLiteral("exchange")),
                 QStringLiteral("NasdaqNM"));
    }
    QVERIFY(storeConnections(path).isEmpty());
    QVERIFY2(gLog.isEmpty(), qPrintable(gLog.join(QLatin1Char('\n'))));
}

void TestMetaData::sampleStore_data()
{
    QTest::addColumn<QString>("symbol");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("exchange");
    QTest::addColumn<QString>("currency");

    QTest::newRow("^GSPC") << QStringLiteral("^GSPC") << QStringLiteral("S&P 500")
                           << QStringLiteral("SNP") << QStringLiteral("USD");
    QTest::newRow("^GDAXI") << QStringLiteral("^GDAXI") << QStringLiteral("DAX")
                            << QStringLiteral("XETRA") << QStringLiteral("EUR");
    QTest::newRow("^FTSE") << QStringLiteral("^FTSE") << QStringLiteral("FTSE 100")
                           << QStringLiteral("FSI") << QStringLiteral("GBP");
}

// The store a first start installs with the sample quotes.
void TestMetaData::sampleStore()
{
    QFETCH(QString, symbol);
    QFETCH(QString, name);
    QFETCH(QString, exchange);
    QFETCH(QString, currency);
    QTemporaryDir storage;
    QVERIFY(Home::installSamples(storage.path()) > 0);
    MetaData store(storage.filePath(QStringLiteral("_meta.tdb")));
    QCOMPARE(store.symbols().size(), 3);

    QMap<QString, QString> expected;
    for (const QString &column : MetaData::columns())
        expected.insert(column, QStringLiteral("N/A"));
    expected[QStringLiteral("symbol")] = symbol;
    expected[QStringLiteral("name")] = name;
    expected[QStringLiteral("exchange")] = exchange;
    expected[QStringLiteral("currency")] = currency;
    expected[QStringLiteral("lastupdate")] = QStringLiteral("26 Sep 2012");
    QCOMPARE(store.record(symbol), expected);
    QVERIFY(findExchange(exchange));
}

void TestMetaData::exchangeTable()
{
    QSet<QString> codes;
    for (const Exchange &exchange : exchanges()) {
        QVERIFY2(!codes.contains(exchange.code), qPrintable(exchange.code));
        codes.insert(exchange.code);
        QVERIFY(!exchange.name.isEmpty());
        QCOMPARE(findExchange(exchange.code), &exchange);
    }
    QVERIFY(codes.size() >= 60);
    QVERIFY(!findExchange(QStringLiteral("Atlantis")));
    QVERIFY(findExchange(QStringLiteral("Imported"))->flag.isEmpty());
}

void TestMetaData::flags_data()
{
    QTest::addColumn<QString>("flag");
    for (const Exchange &exchange : exchanges())
        if (!exchange.flag.isEmpty())
            QTest::newRow(qPrintable(exchange.code)) << exchange.flag;
}

void TestMetaData::flags()
{
    QFETCH(QString, flag);
    const QImage image(flag);
    QVERIFY2(!image.isNull(), qPrintable(flag));
    QCOMPARE(image.size(), QImage(QStringLiteral(":/pix/fde.bmp")).size());
}

// The whole run under a German locale, which is read once, at its first use: the refresh
// date must still come out in English.
int main(int argc, char **argv)
{
    qputenv("LC_ALL", "de_DE.UTF-8");
    QCoreApplication app(argc, argv);
    TestMetaData test;
    return QTest::qExec(&test, argc, argv);
}

#include "test_metadata.moc"
