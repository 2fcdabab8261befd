// The local quote service, over real HTTP on loopback: the three request forms, the faults,
// the default data and stopping on a signal.

#include "data/quotefile.h"
#include "support/quoteservice.h"

#include <QDir>
#include <QFile>
#include <QNetworkAccessManager>
#include <QNetworkProxy>
#include <QNetworkReply>
#include <QtTest>

#include <csignal>
#include <memory>

namespace {

struct Response
{
    int status = 0;
    QByteArray body;
    QUrl url; // after redirections
    bool finished = false;
};

QString fixtureDir()
{
    return QFINDTESTDATA("../data/quoteservice");
}

// The lines of a fixture file dated `dates`, in that order, after the stored header.
QByteArray fixtureRows(const QString &file, const QStringList &dates)
{
    QFile f(QDir(fixtureDir()).filePath(file));
    if (!f.open(QIODevice::ReadOnly))
        return "cannot read the fixture";
    const QList<QByteArray> lines = f.readAll().split('\n');
    QByteArray text(OrdaneData::kQuoteFileHeader);
    for (const QString &date : dates)
        for (const QByteArray &line : lines)
            if (line.startsWith(date.toLatin1() + ','))
                text += '\n' + line;
    return text;
}

QDate lastWeekdayBefore(const QDate &day)
{
    QDate d = day.addDays(-1);
    while (d.dayOfWeek() > 5)
        d = d.addDays(-1);
    return d;
}

} // namespace

class TestQuoteService : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanupTestCase();
    void table_data();
    void table();
    void fields_data();
    void fields();
    void daily_data();
    void daily();
    void dailyLimit();
    void faults_data();
    void faults();
    void stallHoldsUpNoOtherRequest();
    void samplesReachYesterday_data();
    void samplesReachYesterday();
    void stopsOnSignal_data();
    void stopsOnSignal();

private:
    // Starts a GET of `target` (path and query) and returns its reply, following redirections.
    QNetworkReply *startGet(const TestSupport::QuoteService &service, const QString &target);
    Response get(const TestSupport::QuoteService &service, const QString &target);
    static Response finish(QNetworkReply *reply);

    QNetworkAccessManager mNetwork;
    std::unique_ptr<TestSupport::QuoteService> mFixture; // serves tests/data/quoteservice
    std::unique_ptr<TestSupport::QuoteService> mSamples; // serves the default data
};

QNetworkReply *TestQuoteService::startGet(const TestSupport::QuoteService &service,
                                          const QString &target)
{
    QNetworkRequest request(service.url().resolved(QUrl(target)));
    request.setAttribute(QNetworkRequest::RedirectPolicyAttribute,
                         QNetworkRequest::NoLessSafeRedirectPolicy);
    request.setTransferTimeout(30000);
    return mNetwork.get(request);
}

Response TestQuoteService::finish(QNetworkReply *reply)
{
    if (!reply->isFinished()) {
        QSignalSpy done(reply, &QNetworkReply::finished);
        done.wait(60000);
    }
    Response r;
    r.finished = reply->isFinished();
    r.status = reply->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
    r.body = reply->readAll();
    r.url = reply->url();
    reply->deleteLater();
    return r;
}

Response TestQuoteService::get(const TestSupport::QuoteService &service, const QString &target)
{
    return finish(startGet(service, target));
}

void TestQuoteService::initTestCase()
{
    QNetworkProxy::setApplicationProxy(QNetworkProxy::NoProxy);
    mFixture = std::make_unique<TestSupport::QuoteService>(QStringList(), fixtureDir());
    mSamples = std::make_unique<TestSupport::QuoteService>();
    QVERIFY(mFixture->isRunning());
    QVERIFY(mSamples->isRunning());
    QCOMPARE(mFixture->url().host(), QStringLiteral("127.0.0.1"));
}

void TestQuoteService::cleanupTestCase()
{
    mFixture.reset();
    mSamples.reset();
}

void TestQuoteService::table_data()
{
    QTest::addColumn<QString>("query");
    QTest::addColumn<int>("status");
    QTest::addColumn<QString>("dates"); // the rows expected, newest first

    // 2 January 2012 to 25 September 2012, months counted from 0; both ends included, the
    // line that is not a bar left out.
    QTest::newRow("index-from-january-to-september")
        << "s=%5EDJI&e=25&d=8&f=2012&g=d&b=2&a=0&c=2012&ignore=.csv" << 200
        << "2012-09-25 2012-05-04 2012-01-03 2012-01-02";
    QTest::newRow("one-day") << "s=%5EDJI&e=26&d=8&f=2012&g=d&b=26&a=8&c=2012&ignore=.csv" << 200
                             << "2012-09-26";
    QTest::newRow("lower-case-symbol")
        << "s=aapl&e=31&d=11&f=2011&g=d&b=1&a=11&c=2011" << 200 << "2011-12-30";
    QTest::newRow("no-bar-in-range") << "s=AAPL&e=28&d=1&f=2012&g=d&b=1&a=1&c=2012" << 200 << "";
    QTest::newRow("unknown-symbol") << "s=NOPE&e=25&d=8&f=2012&g=d&b=2&a=0&c=2012" << 404 << "";
    QTest::newRow("month-out-of-range")
        << "s=AAPL&e=25&d=12&f=2012&g=d&b=2&a=0&c=2012" << 400 << "";
    QTest::newRow("no-end") << "s=AAPL&g=d&b=2&a=0&c=2012" << 400 << "";
    QTest::newRow("no-symbol") << "e=25&d=8&f=2012&g=d&b=2&a=0&c=2012" << 400 << "";
}

void TestQuoteService::table()
{
    QFETCH(QString, query);
    QFETCH(int, status);
    QFETCH(QString, dates);
    const Response r = get(*mFixture, QStringLiteral("/table.csv?") + query);
    QCOMPARE(r.status, status);
    if (status == 200)
        QCOMPARE(r.body,
                 fixtureRows(query.contains(QLatin1String("DJI")) ? QStringLiteral("^DJI.csv")
                                                                  : QStringLiteral("AAPL.csv"),
                             dates.split(QLatin1Char(' '), Qt::SkipEmptyParts)));
    else
        QVERIFY(!r.body.isEmpty());
}

void TestQuoteService::fields_data()
{
    QTest::addColumn<QString>("query");
    QTest::addColumn<QByteArray>("line");

    QTest::newRow("newest-bar") << "s=AAPL&f=l1d1t1ohgv&e=.csv"
                                << QByteArray("30.39,\"9/25/2012\",\"4:00pm\",30.95,31,30.36,"
                                              "54266400\r\n");
    // Quotes inside a text value doubled; an empty figure and N/A both lacking.
    QTest::newRow("metadata")
        << "s=AAPL&f=nxe7e8e9j1j4rr5yb4dep5p6qr1r6s7c4&e=.csv"
        << QByteArray("\"Apple, Synthetic \"\"A\"\"\",\"NasdaqNM\",16.12,18.05,N/A,206.2B,"
                      "58.52B,14.15,0.71,1.21,126.84,2.65,15.50,1.32,1.73,\"Aug 9\",\"Aug 16\","
                      "13.60,N/A,\"USD\"\r\n");
    // r before r5 and e before e7: a letter takes the digit after it, nothing more.
    QTest::newRow("codes-read-greedily")
        << "s=AAPL&f=rr5ee7l1&e=.csv" << QByteArray("14.15,0.71,15.50,16.12,30.39\r\n");
    QTest::newRow("unknown-code") << "s=AAPL&f=l1k9z&e=.csv" << QByteArray("30.39,N/A,N/A\r\n");
    QTest::newRow("index-without-prices")
        << "s=%5EDJI&f=nl1c4&e=.csv" << QByteArray("\"Index of Thirty\",10388,\"USD\"\r\n");
    QTest::newRow("unknown-symbol")
        << "s=NOPE&f=l1d1t1ohgv&e=.csv" << QByteArray("N/A,N/A,N/A,N/A,N/A,N/A,N/A\r\n");
}

void TestQuoteService::fields()
{
    QFETCH(QString, query);
    QFETCH(QByteArray, line);
    const Response r = get(*mFixture, QStringLiteral("/d/quotes.csv?") + query);
    QCOMPARE(r.status, 200);
    QCOMPARE(r.body, line);
}

void TestQuoteService::daily_data()
{
    QTest::addColumn<QString>("query");
    QTest::addColumn<QByteArray>("body");

    // Oldest first; volumes from 1e6 on in the short form, prices as stored.
    QTest::newRow("oldest-first") << "s=aapl.us&i=d&d1=20120103&d2=20120924&apikey=KEY"
                                  << QByteArray(
                                         "Date,Open,High,Low,Close,Volume\r\n"
                                         "2012-01-03,25.00,25.50,24.90,25.40,987654\r\n"
                                         "2012-06-29,28.00,28.50,27.90,28.40,1e+06\r\n"
                                         "2012-09-24,30.10,30.99,30.00,30.95,9.77425e+07\r\n");
    QTest::newRow("index") << "s=^dji&i=d&d1=20120101&d2=20120102&apikey=KEY"
                           << QByteArray("Date,Open,High,Low,Close,Volume\r\n"
                                         "2012-01-02,9380,9410,9371.25,9402,0\r\n");
    QTest::newRow("unknown-symbol")
        << "s=nope.us&i=d&d1=20120101&d2=20121231&apikey=KEY" << QByteArray("No data");
    QTest::newRow("no-bar-in-range")
        << "s=aapl.us&i=d&d1=20120201&d2=20120228&apikey=KEY" << QByteArray("No data");
}

void TestQuoteService::daily()
{
    QFETCH(QString, query);
    QFETCH(QByteArray, body);
    const Response r = get(*mFixture, QStringLiteral("/q/d/l/?") + query);
    QCOMPARE(r.status, 200);
    QCOMPARE(r.body, body);
}

void TestQuoteService::dailyLimit()
{
    TestSupport::QuoteService service({QStringLiteral("--limit"), QStringLiteral("2")},
                                      fixtureDir());
    QVERIFY(service.isRunning());
    const QString daily = QStringLiteral("/q/d/l/?s=aapl.us&i=d&d1=20120103&d2=20120103");
    // An unknown symbol counts as a hit too.
    QVERIFY(get(service, QStringLiteral("/q/d/l/?s=nope.us&i=d")).body == "No data");
    QVERIFY(get(service, daily).body.startsWith("Date,"));
    const Response refused = get(service, daily);
    QCOMPARE(refused.status, 200);
    QCOMPARE(refused.body, QByteArray("Exceeded the daily hits limit"));
    // The first provider's forms have no limit.
    QCOMPARE(get(service, QStringLiteral("/d/quotes.csv?s=AAPL&f=l1")).body,
             QByteArray("30.39\r\n"));
}

void TestQuoteService::faults_data()
{
    QTest::addColumn<QString>("fault");
    QTest::addColumn<QString>("target");
    QTest::addColumn<int>("status");
    QTest::addColumn<QByteArray>("body"); // "<html>": an HTML page; "<normal>": the usual answer

    const QString table = QStringLiteral("/table.csv?s=AAPL&e=25&d=8&f=2012&g=d&b=2&a=0&c=2012");
    QTest::newRow("status") << "AAPL=status:503" << table << 503 << QByteArray("<html>");
    QTest::newRow("html") << "AAPL=html" << table << 200 << QByteArray("<html>");
    QTest::newRow("empty") << "AAPL=empty" << table << 200 << QByteArray();
    QTest::newRow("nodate") << "AAPL=nodate" << table << 200
                            << QByteArray("Date,Open,High,Low,Close,Volume,Adj Close");
    QTest::newRow("stall") << "AAPL=stall:200" << table << 200 << QByteArray("<normal>");
    QTest::newRow("body") << "AAPL=body:Date,Open\n2012-09-25,oops" << table << 200
                          << QByteArray("Date,Open\n2012-09-25,oops");
    QTest::newRow("redirect") << "AAPL=redirect" << table << 200 << QByteArray("<normal>");
    // Any request naming the symbol: the fields and the second provider's form too.
    QTest::newRow("status-on-fields") << "aapl=status:404"
                                      << "/d/quotes.csv?s=AAPL&f=l1" << 404 << QByteArray("<html>");
    QTest::newRow("empty-on-daily") << "AAPL=empty"
                                    << "/q/d/l/?s=aapl.us&i=d" << 200 << QByteArray();
    QTest::newRow("other-symbols-unaffected")
        << "MSFT=empty" << table << 200 << QByteArray("<normal>");
}

void TestQuoteService::faults()
{
    QFETCH(QString, fault);
    QFETCH(QString, target);
    QFETCH(int, status);
    QFETCH(QByteArray, body);
    TestSupport::QuoteService service({QStringLiteral("--fault"), fault}, fixtureDir());
    QVERIFY(service.isRunning());
    const Response r = get(service, target);
    QCOMPARE(r.status, status);
    if (body == "<html>")
        QVERIFY2(r.body.contains("<html") && r.body.contains("</html>"), r.body.constData());
    else if (body == "<normal>")
        QCOMPARE(r.body, get(*mFixture, target).body);
    else
        QCOMPARE(r.body, body);
    if (fault.endsWith(QLatin1String("redirect")))
        QVERIFY(r.url.query().endsWith(QLatin1String("&redirected=1")));
}

void TestQuoteService::stallHoldsUpNoOtherRequest()
{
    // The stall outlasts the test; stopping the service ends it early.
    TestSupport::QuoteService service(
        {QStringLiteral("--fault"), QStringLiteral("AAPL=stall:600000")}, fixtureDir());
    QVERIFY(service.isRunning());
    QNetworkReply *stalled = startGet(service, QStringLiteral("/d/quotes.csv?s=AAPL&f=l1"));
    const Response other = get(service, QStringLiteral("/d/quotes.csv?s=%5EDJI&f=l1"));
    QCOMPARE(other.body, QByteArray("10388\r\n"));
    QVERIFY(!stalled->isFinished());
    QVERIFY(service.stop());
    const Response late = finish(stalled);
    QVERIFY(late.finished);
}

void TestQuoteService::samplesReachYesterday_data()
{
    QTest::addColumn<QString>("symbol");
    QTest::addColumn<QString>("dailySymbol"); // in the second provider's spelling
    QTest::newRow("AAPL") << "AAPL"
                          << "aapl.us";
    QTest::newRow("ADS.DE") << "ADS.DE"
                            << "ads.de";
    QTest::newRow("MAN.DE") << "MAN.DE"
                            << "man.de";
    QTest::newRow("MSFT") << "MSFT"
                          << "msft.us";
    QTest::newRow("UTX") << "UTX"
                         << "utx";
}

void TestQuoteService::samplesReachYesterday()
{
    QFETCH(QString, symbol);
    QFETCH(QString, dailySymbol);
    const QDate yesterday = QDate::currentDate().addDays(-1);
    const Response r =
        get(*mSamples, QStringLiteral("/table.csv?s=%1&e=%2&d=%3&f=%4&g=d&b=1&a=0&c=1990")
                           .arg(symbol)
                           .arg(yesterday.day())
                           .arg(yesterday.month() - 1)
                           .arg(yesterday.year()));
    QCOMPARE(r.status, 200);

    // The shipped bars, up to 25 September 2012, end the reply unchanged.
    QFile sample(QStringLiteral(":/Storage/%1.csv").arg(symbol));
    QVERIFY(sample.open(QIODevice::ReadOnly));
    const QByteArray shipped = sample.readAll().mid(int(qstrlen(OrdaneData::kQuoteFileHeader)));
    QVERIFY(r.body.endsWith(shipped));

    // Before them one bar for every weekday from 26 September 2012 to yesterday, newest first.
    const QList<QByteArray> added = r.body.left(r.body.size() - shipped.size()).split('\n').mid(1);
    QDate expected = lastWeekdayBefore(yesterday.addDays(1));
    for (const QByteArray &line : added) {
        const QuoteBar bar = OrdaneData::parseLine(QString::fromLatin1(line));
        QCOMPARE(bar.date(), expected);
        QVERIFY2(bar.low() > 0 && bar.low() <= bar.open() && bar.open() <= bar.high() &&
                     bar.low() <= bar.close() && bar.close() <= bar.high() && bar.volume() > 0,
                 line.constData());
        expected = lastWeekdayBefore(expected);
    }
    QCOMPARE(expected, QDate(2012, 9, 25));

    // The second provider's spelling reaches the same series.
    const Response daily =
        get(*mSamples, QStringLiteral("/q/d/l/?s=%1&i=d&d1=20120925&d2=20120925").arg(dailySymbol));
    QVERIFY2(daily.body.startsWith("Date,Open,High,Low,Close,Volume\r\n2012-09-25,"),
             daily.body.constData());
}

void TestQuoteService::stopsOnSignal_data()
{
    QTest::addColumn<int>("signal");
    QTest::newRow("SIGTERM") << int(SIGTERM);
    QTest::newRow("SIGINT") << int(SIGINT);
}

void TestQuoteService::stopsOnSignal()
{
    QFETCH(int, signal);
    TestSupport::QuoteService service({}, fixtureDir());
    QVERIFY(service.isRunning());
    // A connection kept open by the client does not hold the service up.
    QCOMPARE(get(service, QStringLiteral("/d/quotes.csv?s=AAPL&f=l1")).status, 200);
    QCOMPARE(::kill(pid_t(service.processId()), signal), 0);
    QTRY_VERIFY_WITH_TIMEOUT(!service.isRunning(), 30000);
    QVERIFY(service.stop());
}

QTEST_GUILESS_MAIN(TestQuoteService)
#include "test_quoteservice.moc"
