// Loading a series from a stored file or from text received from the quote service.

#include "data/quotefile.h"
#include "data/reader.h"

#include <QSignalSpy>
#include <QTemporaryDir>
#include <QtTest>

using namespace OrdaneData;

namespace {
QString fixture(const char *name)
{
    return QFINDTESTDATA(QStringLiteral("loading/") + QLatin1String(name));
}

// n weekday bars ending 2012-09-25, as stored text (newest first).
QString generatedText(int n)
{
    QVector<QuoteBar> bars;
    QDate d(2012, 9, 25);
    while (bars.size() < n) {
        if (d.dayOfWeek() <= 5)
            bars.prepend(QuoteBar(d, 10 + bars.size(), 11, 9, 10, bars.size()));
        d = d.addDays(-1);
    }
    return seriesToText(bars);
}

void fill(Reader &r, int n)
{
    for (int i = 0; i < n; ++i)
        r.appendBar(QuoteBar(QDate(1999, 1, 4).addDays(i), 1, 2, 0.5f, 1.5f, 1));
}
} // namespace

class TestLoading : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { Reader::setHistoryLimit(-1); }

    void fileIsTurnedOldestFirst_data();
    void fileIsTurnedOldestFirst();
    void badLinesAreDroppedAndTheRestKept();
    void headerOnlyFileKeepsOldBars();
    void missingFileFailsAndKeepsBars();
    void historyLimitKeepsOldestBars_data();
    void historyLimitKeepsOldestBars();
    void textEndsAtFirstEmptyLine();
    void loadsDoNotSignal();
};

void TestLoading::fileIsTurnedOldestFirst_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<int>("bars");
    QTest::newRow("newest-first") << fixture("newest_first.csv") << 3;
    QTest::newRow("crlf") << fixture("crlf.csv") << 2;
    QTest::newRow("no-trailing-newline") << fixture("no_trailing_newline.csv") << 2;
}

void TestLoading::fileIsTurnedOldestFirst()
{
    QFETCH(QString, file);
    QFETCH(int, bars);
    Reader r;
    QVERIFY(r.loadFile(file));
    QCOMPARE(r.count(), bars);
    for (int i = 1; i < r.count(); ++i)
        QVERIFY(r.bar(i - 1).date() < r.bar(i).date());
    QCOMPARE(r.bar(bars - 1), QuoteBar(QDate(2012, 9, 25), 30.95f, 31, 30.36f, 30.39f, 54266400));
    QCOMPARE(r.timeFrame(), int(Day));
}

void TestLoading::badLinesAreDroppedAndTheRestKept()
{
    // Blank lines, a slashed date, a trailing comma and a line mentioning "Date" go;
    // the N/A line becomes a flat bar.
    Reader r;
    QVERIFY(r.loadFile(fixture("blank_and_bad_lines.csv")));
    QCOMPARE(r.count(), 3);
    QCOMPARE(r.bar(0).date(), QDate(2012, 9, 18));
    QCOMPARE(r.bar(1), QuoteBar(QDate(2012, 9, 20), 31.4f, 31.4f, 31.4f, 31.4f, 0));
    QCOMPARE(r.bar(2).date(), QDate(2012, 9, 25));
}

void TestLoading::headerOnlyFileKeepsOldBars()
{
    Reader r;
    fill(r, 5);
    QVERIFY(r.loadFile(fixture("header_only.csv")));
    QCOMPARE(r.count(), 5);
    QVERIFY(r.loadText(QStringLiteral("Date,Open,High,Low,Close,Volume,Adj Close\n")));
    QCOMPARE(r.count(), 5);
}

void TestLoading::missingFileFailsAndKeepsBars()
{
    Reader r;
    fill(r, 4);
    QVERIFY(!r.loadFile(QStringLiteral("/nonexistent/halcyra/X.csv")));
    QCOMPARE(r.count(), 4);
}

void TestLoading::historyLimitKeepsOldestBars_data()
{
    QTest::addColumn<int>("limit");
    QTest::addColumn<int>("kept");
    QTest::newRow("limit-70") << 70 << 70;
    QTest::newRow("no-limit") << -1 << 300;
    QTest::newRow("zero-is-no-limit") << 0 << 300;
}

void TestLoading::historyLimitKeepsOldestBars()
{
    QFETCH(int, limit);
    QFETCH(int, kept);
    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("X.csv"));
    QVERIFY(writeText(path, generatedText(300)));

    Reader all;
    QVERIFY(all.loadFile(path));
    Reader::setHistoryLimit(limit);
    for (bool fromText : {false, true}) {
        Reader r;
        QVERIFY(fromText ? r.loadText(generatedText(300)) : r.loadFile(path));
        QCOMPARE(r.count(), kept);
        QCOMPARE(r.bar(0), all.bar(0));
        QCOMPARE(r.bar(kept - 1), all.bar(kept - 1));
    }
}

void TestLoading::textEndsAtFirstEmptyLine()
{
    Reader r;
    QVERIFY(r.loadText(QStringLiteral("Date,Open,High,Low,Close,Volume,Adj Close\n"
                                      "2012-09-25,3,3,3,3,3,3\n"
                                      "Date,again\n"
                                      "2012-09-24,2,2,2,2,2,2\n"
                                      "bad line\n"
                                      "2012-09-21,1,1,1,1,1,1\n"
                                      "\n"
                                      "2012-09-20,0,0,0,0,0,0")));
    QCOMPARE(r.count(), 3);
    QCOMPARE(r.bar(0).date(), QDate(2012, 9, 21));
    QCOMPARE(r.bar(2).date(), QDate(2012, 9, 25));

    Reader lastLineWithoutEnd;
    QVERIFY(lastLineWithoutEnd.loadText(QStringLiteral("2012-09-25,3,3,3,3,3,3")));
    QCOMPARE(lastLineWithoutEnd.count(), 1);
}

void TestLoading::loadsDoNotSignal()
{
    // Whoever loads announces the change; the loaders stay quiet so a caller can make
    // several changes and announce them once.
    Reader r;
    QSignalSpy spy(&r, &Reader::dataChanged);
    QVERIFY(r.loadFile(fixture("newest_first.csv")));
    QCOMPARE(spy.count(), 0);
}

QTEST_GUILESS_MAIN(TestLoading)
#include "test_loading.moc"
