// Quote downloading without the network: the table query, the checks of a reply, when to
// update, the merge of a reply into a stored file and the conversions of the other replies.

#include "data/home.h"
#include "data/quotefile.h"
#include "data/quotetable.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QtTest>

using namespace OrdaneData;

class TestQuoteTable : public QObject
{
    Q_OBJECT

private slots:
    void tableUrl_data();
    void tableUrl();
    void isValidTable_data();
    void isValidTable();
    void lastCompletedTradingDay_data();
    void lastCompletedTradingDay();
    void needsUpdate_data();
    void needsUpdate();
    void mergeTable_data();
    void mergeTable();
    void convertDailyCsv_data();
    void convertDailyCsv();
    void parseCurrentQuote_data();
    void parseCurrentQuote();
};

namespace {

const QByteArray kHeader = "Date,Open,High,Low,Close,Volume,Adj Close";

// A table of the stored header and the given rows, "\n" between lines.
QByteArray table(const QList<QByteArray> &rows)
{
    QByteArray text = kHeader;
    for (const QByteArray &row : rows)
        text += '\n' + row;
    return text;
}

} // namespace

void TestQuoteTable::tableUrl_data()
{
    QTest::addColumn<QString>("symbol");
    QTest::addColumn<QDate>("start");
    QTest::addColumn<QDate>("end");
    QTest::addColumn<QString>("query");
    QTest::newRow("index-caret-escaped")
        << QStringLiteral("^DJI") << QDate(2012, 1, 2) << QDate(2012, 9, 25)
        << QStringLiteral("s=%5EDJI&e=25&d=8&f=2012&g=d&b=2&a=0&c=2012&ignore=.csv");
    QTest::newRow("december-start-no-leading-zeros")
        << QStringLiteral("ADS.DE") << QDate(2011, 12, 31) << QDate(2012, 1, 9)
        << QStringLiteral("s=ADS.DE&e=9&d=0&f=2012&g=d&b=31&a=11&c=2011&ignore=.csv");
    QTest::newRow("every-caret-escaped")
        << QStringLiteral("^A^B") << QDate(2012, 10, 1) << QDate(2012, 12, 31)
        << QStringLiteral("s=%5EA%5EB&e=31&d=11&f=2012&g=d&b=1&a=9&c=2012&ignore=.csv");
}

void TestQuoteTable::tableUrl()
{
    QFETCH(QString, symbol);
    QFETCH(QDate, start);
    QFETCH(QDate, end);
    QTEST(OrdaneData::tableUrl(symbol, start, end), "query");
}

void TestQuoteTable::isValidTable_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<bool>("valid");
    QTest::newRow("stored-form") << table({"2012-09-25,30.95,31.00,30.36,30.39,54266400,30.39"})
                                 << true;
    QTest::newRow("crlf-and-short-header")
        << QByteArray("Date,Open,High,Low,Close,Volume\r\n2012-09-25,1,2,0.5,1.5,100\r\n") << true;
    QTest::newRow("no-date-open-start")
        << QByteArray("Open,Date\n2012-09-25,30.95,31.00,30.36,30.39,54266400,30.39") << false;
    QTest::newRow("header-without-date-line") << kHeader + '\n' << false;
    QTest::newRow("us-date-only") << kHeader + "\n9/25/2012,1,2,0.5,1.5,100,1.5" << false;
    QTest::newRow("html-page") << QByteArray("<!DOCTYPE html>\n<html><body>Date,Open 2012-09-25"
                                             "</body></html>")
                               << false;
    QTest::newRow("empty") << QByteArray() << false;
}

void TestQuoteTable::isValidTable()
{
    QFETCH(QByteArray, text);
    QTEST(OrdaneData::isValidTable(text), "valid");
}

void TestQuoteTable::lastCompletedTradingDay_data()
{
    QTest::addColumn<QDate>("today");
    QTest::addColumn<QDate>("expected");
    // 2012-09-24 was a Monday.
    QTest::newRow("monday-to-friday") << QDate(2012, 9, 24) << QDate(2012, 9, 21);
    QTest::newRow("sunday-to-friday") << QDate(2012, 9, 23) << QDate(2012, 9, 21);
    QTest::newRow("saturday-to-friday") << QDate(2012, 9, 22) << QDate(2012, 9, 21);
    QTest::newRow("wednesday-to-tuesday") << QDate(2012, 9, 26) << QDate(2012, 9, 25);
    QTest::newRow("monday-across-month-end") << QDate(2012, 10, 1) << QDate(2012, 9, 28);
}

void TestQuoteTable::lastCompletedTradingDay()
{
    QFETCH(QDate, today);
    QTEST(OrdaneData::lastCompletedTradingDay(today), "expected");
}

void TestQuoteTable::needsUpdate_data()
{
    QTest::addColumn<int>("fileAgeDays"); // -1: no stored file
    QTest::addColumn<bool>("marker");
    QTest::addColumn<bool>("expected");
    QTest::newRow("imp-marker-on-old-file") << 30 << true << false;
    QTest::newRow("imp-marker-without-file") << -1 << true << false;
    QTest::newRow("file-written-today") << 0 << false << false;
    QTest::newRow("file-written-yesterday") << 1 << false << true;
    QTest::newRow("missing-file") << -1 << false << true;
}

void TestQuoteTable::needsUpdate()
{
    QFETCH(int, fileAgeDays);
    QFETCH(bool, marker);

    QTemporaryDir home;
    QVERIFY(Home::setPath(home.path()));
    QVERIFY(QDir().mkpath(storagePath()));
    const QString symbol = QStringLiteral("MSFT");
    const QDate today(2012, 9, 26);
    if (fileAgeDays >= 0) {
        QFile file(fileOf(symbol));
        QVERIFY(file.open(QIODevice::WriteOnly));
        QVERIFY(file.write(kHeader) == kHeader.size() && file.flush());
        // Late in the day, so that a day boundary is not crossed by accident.
        QVERIFY(file.setFileTime(QDateTime(today.addDays(-fileAgeDays), QTime(23, 30)),
                                 QFileDevice::FileModificationTime));
    }
    if (marker) {
        QFile imp(storagePath() + QStringLiteral("/MSFT.IMP"));
        QVERIFY(imp.open(QIODevice::WriteOnly));
    }
    QTEST(OrdaneData::needsUpdate(symbol, today), "expected");
}

void TestQuoteTable::mergeTable_data()
{
    QTest::addColumn<QByteArray>("stored");
    QTest::addColumn<QByteArray>("reply");
    QTest::addColumn<QByteArray>("merged");
    QTest::addColumn<int>("added");
    QTest::addColumn<int>("replaced");

    const QByteArray d25 = "2012-09-25,30.95,31.00,30.36,30.39,54266400,30.39";
    const QByteArray d24 = "2012-09-24,31,31.2,30.8,31.1,40000000,0.00";
    const QByteArray d24new = "2012-09-24,31.00,31.20,30.80,31.05,41000000,30.12";
    const QByteArray d21 = "2012-09-21,31.5,31.6,30.9,31.19,70000000,0.00";
    const QByteArray d20 = "2012-09-20,31,31.6,30.8,31.4,60000000,0.00";
    const QByteArray d14 = "2012-09-14,30,30.5,29.9,30.2,50000000,30.2";
    const QByteArray d13 = "2012-09-13,29,30.1,28.9,30,50000000,30";

    QTest::newRow("overlap-reply-row-wins-as-sent")
        << table({d24, d21, d20}) << table({d25, d24new, d21}) << table({d25, d24new, d21, d20})
        << 1 << 1;
    QTest::newRow("gap-between-stored-and-reply")
        << table({d14, d13}) << table({d25, d24}) << table({d25, d24, d14, d13}) << 2 << 0;
    QTest::newRow("reply-older-than-everything-stored")
        << table({d25, d24}) << table({d14, d13}) << table({d25, d24, d14, d13}) << 2 << 0;
    QTest::newRow("empty-stored") << QByteArray() << table({d25, d24}) << table({d25, d24}) << 2
                                  << 0;
    QTest::newRow("stored-without-header")
        << d21 + '\n' + d20 << table({d25}) << table({d25, d21, d20}) << 1 << 0;
    QTest::newRow("empty-reply-keeps-stored")
        << table({d25, d24}) << kHeader << table({d25, d24}) << 0 << 0;
    QTest::newRow("duplicate-in-reply-topmost-wins")
        << table({d21}) << table({d24new, d24, d21}) << table({d24new, d21}) << 1 << 0;
    QTest::newRow("crlf-reply") << table({d21}) << kHeader + "\r\n" + d25 + "\r\n" + d24 + "\r\n"
                                << table({d25, d24, d21}) << 2 << 0;
    QTest::newRow("bad-rows-dropped-both-sides")
        << table({d24, "garbage", "2012-09-23,1,2,3", d21})
        << table({d25, "2012-02-30,1,1,1,1,1,1"}) << table({d25, d24, d21}) << 1 << 0;
    QTest::newRow("unordered-stored-sorted")
        << table({d20, d24, d21}) << table({d25}) << table({d25, d24, d21, d20}) << 1 << 0;
}

void TestQuoteTable::mergeTable()
{
    QFETCH(QByteArray, stored);
    QFETCH(QByteArray, reply);
    const TableMerge merge = OrdaneData::mergeTable(stored, reply);
    QTEST(merge.text, "merged");
    QTEST(merge.added, "added");
    QTEST(merge.replaced, "replaced");
}

void TestQuoteTable::convertDailyCsv_data()
{
    QTest::addColumn<QByteArray>("reply");
    QTest::addColumn<bool>("ok");
    QTest::addColumn<QByteArray>("table"); // when ok
    QTest::addColumn<QString>("error");    // when not

    QTest::newRow("oldest-first-crlf-exponent-volume")
        << QByteArray("Date,Open,High,Low,Close,Volume\r\n"
                      "2012-09-24,31.00,31.20,30.80,31.05,9.77425e+07\r\n"
                      "2012-09-25,30.95,31.00,30.36,30.39,54266400\r\n")
        << true
        << table({"2012-09-25,30.95,31.00,30.36,30.39,54266400,30.39",
                  "2012-09-24,31.00,31.20,30.80,31.05,97742500,31.05"})
        << QString();
    QTest::newRow("volume-rounded-bad-rows-dropped-later-duplicate-wins")
        << QByteArray("Date,Open,High,Low,Close,Volume\n"
                      "2012-09-21,1,2,0.5,1.5,12.5\n"
                      "2012-09-24,1,2,0.5,1.5,x\n"
                      "2012-09-25,1,2,0.5,1.5\n"
                      "2012-09-21,1,2,0.5,1.6,7")
        << true << table({"2012-09-21,1,2,0.5,1.6,7,1.6"}) << QString();
    QTest::newRow("daily-hits-limit")
        << QByteArray("Exceeded the daily hits limit") << false << QByteArray()
        << QStringLiteral("Exceeded the daily hits limit");
    QTest::newRow("no-data") << QByteArray("  No data \r\n") << false << QByteArray()
                             << QStringLiteral("No data");
    const QByteArray longLine = "<html><head><title>" + QByteArray(150, 'x') + "</title>";
    QTest::newRow("html-page-cut") << longLine + "\n<body></body></html>" << false << QByteArray()
                                   << QString::fromLatin1(longLine.left(120));
    QTest::newRow("header-without-rows")
        << QByteArray("Date,Open,High,Low,Close,Volume\n") << false << QByteArray()
        << QStringLiteral("Date,Open,High,Low,Close,Volume");
    QTest::newRow("empty") << QByteArray() << false << QByteArray()
                           << QStringLiteral("empty reply");
    QTest::newRow("blank-lines-only")
        << QByteArray("\r\n\r\n") << false << QByteArray() << QStringLiteral("empty reply");
}

void TestQuoteTable::convertDailyCsv()
{
    QFETCH(QByteArray, reply);
    QFETCH(bool, ok);
    QByteArray converted = "untouched";
    QString error;
    QCOMPARE(OrdaneData::convertDailyCsv(reply, &converted, &error), ok);
    if (ok) {
        QTEST(converted, "table");
        QVERIFY(OrdaneData::isValidTable(converted));
    } else {
        QCOMPARE(converted, QByteArray("untouched"));
        QTEST(error, "error");
    }
}

void TestQuoteTable::parseCurrentQuote_data()
{
    QTest::addColumn<QByteArray>("line");
    QTest::addColumn<QDate>("date"); // null: the invalid bar
    QTest::addColumn<float>("open");
    QTest::addColumn<float>("high");
    QTest::addColumn<float>("low");
    QTest::addColumn<float>("close");
    QTest::addColumn<qint64>("volume");

    const QDate d(2012, 9, 25);
    QTest::newRow("quoted-date-and-time-crlf")
        << QByteArray("688.26,\"9/25/2012\",\"4:00pm\",686.86,692.86,686.17,14523500\r\n") << d
        << 686.86f << 692.86f << 686.17f << 688.26f << qint64(14523500);
    QTest::newRow("unquoted-morning")
        << QByteArray("30.39,9/5/2012,9:35am,30.95,31.00,30.36,0") << QDate(2012, 9, 5) << 30.95f
        << 31.0f << 30.36f << 30.39f << qint64(0);
    QTest::newRow("na-open-high-low-take-price")
        << QByteArray("13558.92,\"9/25/2012\",\"4:00pm\",N/A,\"N/A\",N/A,0") << d << 13558.92f
        << 13558.92f << 13558.92f << 13558.92f << qint64(0);

    const auto bad = [](const char *name, const char *line) {
        QTest::newRow(name) << QByteArray(line) << QDate() << -1.0f << -1.0f << -1.0f << -1.0f
                            << qint64(-1);
    };
    bad("na-price", "N/A,\"9/25/2012\",\"4:00pm\",1,2,0.5,10");
    bad("six-fields", "688.26,\"9/25/2012\",\"4:00pm\",686.86,692.86,686.17");
    bad("eight-fields", "688.26,\"9/25/2012\",\"4:00pm\",686.86,692.86,686.17,1,2");
    bad("day-first-date", "688.26,\"25/9/2012\",\"4:00pm\",686.86,692.86,686.17,1");
    bad("24-hour-time", "688.26,\"9/25/2012\",\"16:00\",686.86,692.86,686.17,1");
    bad("fractional-volume", "688.26,\"9/25/2012\",\"4:00pm\",686.86,692.86,686.17,1.5e6");
    bad("text-low", "688.26,\"9/25/2012\",\"4:00pm\",686.86,692.86,low,1");
    bad("empty", "\r\n");
}

void TestQuoteTable::parseCurrentQuote()
{
    QFETCH(QByteArray, line);
    QFETCH(QDate, date);
    const QuoteBar bar = OrdaneData::parseCurrentQuote(line);
    if (!date.isValid()) {
        QCOMPARE(bar, QuoteBar());
        return;
    }
    QCOMPARE(bar.date(), date);
    QTEST(bar.open(), "open");
    QTEST(bar.high(), "high");
    QTEST(bar.low(), "low");
    QTEST(bar.close(), "close");
    QTEST(bar.volume(), "volume");
}

QTEST_GUILESS_MAIN(TestQuoteTable)
#include "test_quotetable.moc"
