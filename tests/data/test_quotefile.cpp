// The stored line format: parsing, formatting, whole-file text, writing, import lines.

#include "data/quotefile.h"
#include "data/reader.h"

#include <QFile>
#include <QTemporaryDir>
#include <QtTest>

#include <charconv>

using namespace OrdaneData;

class TestQuoteFile : public QObject
{
    Q_OBJECT

private slots:
    void parseLine_data();
    void parseLine();
    void pricesReadExactlyAsTheStandardConversion();
    void formatLine_data();
    void formatLine();
    void fileTextIsNewestFirstWithoutFinalLineEnd();
    void writeThenReadGivesSameBars();
    void writeText();
    void normalizeImportedLine_data();
    void normalizeImportedLine();
};

void TestQuoteFile::parseLine_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<bool>("valid");
    QTest::addColumn<QDate>("date");
    QTest::addColumn<float>("open");
    QTest::addColumn<float>("high");
    QTest::addColumn<float>("low");
    QTest::addColumn<float>("close");
    QTest::addColumn<qint64>("volume");

    const QDate d(2012, 9, 25);
    auto ok = [&](const char *name, const char *line, float o, float h, float l, float c, qint64 v,
                  QDate date = QDate(2012, 9, 25)) {
        QTest::newRow(name) << QString::fromLatin1(line) << true << date << o << h << l << c << v;
    };
    auto bad = [&](const char *name, const char *line) {
        QTest::newRow(name) << QString::fromLatin1(line) << false << QDate() << -1.0f << -1.0f
                            << -1.0f << -1.0f << qint64(-1);
    };

    ok("sample", "2012-09-25,30.95,31.00,30.36,30.39,54266400,30.39", 30.95f, 31.0f, 30.36f, 30.39f,
       54266400);
    ok("line-end-kept", "2012-09-25,30.95,31.00,30.36,30.39,54266400,30.39\n", 30.95f, 31.0f,
       30.36f, 30.39f, 54266400);
    ok("crlf", "2012-09-25,30.95,31.00,30.36,30.39,54266400,30.39\r\n", 30.95f, 31.0f, 30.36f,
       30.39f, 54266400);
    ok("blanks-around-numbers", "2012-09-25, 30.95 ,31,30.36,30.39, 54266400 ,x", 30.95f, 31.0f,
       30.36f, 30.39f, 54266400);
    ok("exponent-and-plus", "2012-09-25,+1e1,2.5E1,5,10.,7,0", 10, 25, 5, 10, 7);
    ok("leap-day", "2012-02-29,1,2,0.5,1.5,100,0", 1, 2, 0.5f, 1.5f, 100, QDate(2012, 2, 29));
    ok("na-open-high-low-gives-flat-bar", "2012-09-25,N/A,N/A,N/A,30.39,54266400,30.39", 30.39f,
       30.39f, 30.39f, 30.39f, 54266400);
    ok("na-close-keeps-others-close-zero", "2012-09-25,30.95,31.00,30.36,N/A,54266400,30.39",
       30.95f, 31.0f, 30.36f, 0.0f, 54266400);
    // Any missing field flattens the bar onto a numeric close, the volume's included.
    ok("na-volume-flattens-too", "2012-09-25,30.95,31.00,30.36,30.39,N/A,30.39", 30.39f, 30.39f,
       30.39f, 30.39f, 0);

    bad("eight-fields-trailing-comma", "2012-09-25,30.95,31.00,30.36,30.39,54266400,30.39,");
    bad("six-fields", "2012-09-25,30.95,31.00,30.36,30.39,54266400");
    bad("blank-line", "\n");
    bad("header", "Date,Open,High,Low,Close,Volume,Adj Close");
    bad("slash-date", "2012/09/25,30.95,31.00,30.36,30.39,54266400,30.39");
    bad("us-date", "09/25/2012,30.95,31.00,30.36,30.39,54266400,30.39");
    bad("impossible-date", "2012-02-30,30.95,31.00,30.36,30.39,54266400,30.39");
    bad("one-digit-month", "2012-9-25,30.95,31.00,30.36,30.39,54266400,30.39");
    bad("text-price", "2012-09-25,abc,31.00,30.36,30.39,54266400,30.39");
    bad("empty-price", "2012-09-25,,31.00,30.36,30.39,54266400,30.39");
    bad("nan-price", "2012-09-25,nan,31.00,30.36,30.39,54266400,30.39");
    bad("float-overflow", "2012-09-25,1e39,31.00,30.36,30.39,54266400,30.39");
    bad("fractional-volume", "2012-09-25,30.95,31.00,30.36,30.39,1.5e6,30.39");
}

void TestQuoteFile::parseLine()
{
    QFETCH(QString, line);
    QFETCH(bool, valid);

    const QuoteBar bar = OrdaneData::parseLine(line);
    QCOMPARE(bar.isValid(), valid);
    if (!valid) {
        QCOMPARE(bar, QuoteBar());
        return;
    }
    QTEST(bar.date(), "date");
    QTEST(bar.open(), "open");
    QTEST(bar.high(), "high");
    QTEST(bar.low(), "low");
    QTEST(bar.close(), "close");
    QTEST(bar.volume(), "volume");
}

void TestQuoteFile::pricesReadExactlyAsTheStandardConversion()
{
    // Short decimals take a fast path; it must round exactly like from_chars, including
    // at its limits (7 digits, 10 decimals) and past them.
    std::uint64_t state = 12345;
    for (int i = 0; i < 20000; ++i) {
        state = state * 6364136223846793005ull + 1442695040888963407ull;
        const int digits = 1 + int(state >> 60) % 9;
        const int decimals = int(state >> 56) % 12;
        QByteArray number = QByteArray::number(qulonglong(state >> 20) % 1000000000ull)
                                .right(digits)
                                .rightJustified(decimals + 1, '0');
        if (decimals > 0)
            number.insert(number.size() - decimals, '.');
        float expected = 0;
        std::from_chars(number.constData(), number.constData() + number.size(), expected);
        const QByteArray line = "2012-09-25," + number + ",1,1,1,1,0";
        const QuoteBar bar =
            OrdaneData::parseLine(line.constData(), line.constData() + line.size());
        QVERIFY2(bar.open() == expected, number.constData());
    }
}

void TestQuoteFile::formatLine_data()
{
    QTest::addColumn<float>("price");
    QTest::addColumn<QString>("text");
    QTest::newRow("two-decimals") << 30.95f << QStringLiteral("30.95");
    QTest::newRow("hundreds") << 688.26f << QStringLiteral("688.26");
    QTest::newRow("six-significant-digits") << 12345.678f << QStringLiteral("12345.7");
    QTest::newRow("whole-number") << 31.0f << QStringLiteral("31");
    QTest::newRow("small") << 0.000123f << QStringLiteral("0.000123");
    QTest::newRow("million") << 1234567.0f << QStringLiteral("1.23457e+06");
}

void TestQuoteFile::formatLine()
{
    QFETCH(float, price);
    QFETCH(QString, text);
    const QuoteBar bar(QDate(2012, 9, 25), price, price, price, price, 54266400);
    QCOMPARE(OrdaneData::formatLine(bar),
             QStringLiteral("2012-09-25,%1,%1,%1,%1,54266400,0.00").arg(text));
}

void TestQuoteFile::fileTextIsNewestFirstWithoutFinalLineEnd()
{
    const QVector<QuoteBar> bars = {QuoteBar(QDate(2012, 9, 24), 1, 2, 0.5f, 1.5f, 10),
                                    QuoteBar(QDate(2012, 9, 25), 2, 3, 1.5f, 2.5f, 20)};
    QCOMPARE(seriesToText(bars), QStringLiteral("Date,Open,High,Low,Close,Volume,Adj Close\n"
                                                "2012-09-25,2,3,1.5,2.5,20,0.00\n"
                                                "2012-09-24,1,2,0.5,1.5,10,0.00"));
    QCOMPARE(seriesToText(QVector<QuoteBar>()),
             QStringLiteral("Date,Open,High,Low,Close,Volume,Adj Close"));
}

void TestQuoteFile::writeThenReadGivesSameBars()
{
    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("X.csv"));
    Reader original;
    original.appendBar(QuoteBar(QDate(2012, 9, 21), 31.5f, 31.6f, 30.9f, 31.19f, 70000000));
    original.appendBar(QuoteBar(QDate(2012, 9, 24), 31.0f, 31.2f, 30.8f, 31.1f, 40000000));
    original.appendBar(QuoteBar(QDate(2012, 9, 25), 1234.5678f, 1240.0f, 1230.0f, 1235.0f, 7));
    QVERIFY(OrdaneData::writeText(path, seriesToText(original)));

    Reader read;
    QVERIFY(read.loadFile(path));
    QCOMPARE(read.count(), 3);
    QCOMPARE(read.bar(0), original.bar(0));
    QCOMPARE(read.bar(1), original.bar(1));
    // More than six significant digits come back rounded to six.
    QCOMPARE(read.bar(2).open(), 1234.57f);
    QCOMPARE(read.bar(2).close(), 1235.0f);
}

void TestQuoteFile::writeText()
{
    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("X.csv"));
    QVERIFY(OrdaneData::writeText(path, QStringLiteral("old text that is longer")));
    QVERIFY(OrdaneData::writeText(path, QStringLiteral("new \u00e9 \u20ac")));
    QFile file(path);
    QVERIFY(file.open(QIODevice::ReadOnly));
    // Latin-1: e-acute is one byte, the euro sign has no Latin-1 form.
    QCOMPARE(file.readAll(), QByteArray("new \xe9 ?"));

    QString error;
    QVERIFY(!OrdaneData::writeText(dir.filePath(QStringLiteral("missing/X.csv")),
                                   QStringLiteral("x"), &error));
    QVERIFY(!error.isEmpty());

    // A target that cannot be replaced leaves what was there.
    QVERIFY(QDir(dir.path()).mkdir(QStringLiteral("Y.csv")));
    QVERIFY(!OrdaneData::writeText(dir.filePath(QStringLiteral("Y.csv")), QStringLiteral("x")));
    QVERIFY(QFileInfo(dir.filePath(QStringLiteral("Y.csv"))).isDir());
}

void TestQuoteFile::normalizeImportedLine_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<QString>("normalized");
    QTest::newRow("dotted-date") << QStringLiteral("2012.09.25,30.95,31.00,30.36,30.39,54266400")
                                 << QStringLiteral("2012-09-25,30.95,31,30.36,30.39,54266400,0\n");
    QTest::newRow("extra-fields-dropped") << QStringLiteral("2012.09.25,1,2,0.5,1.5,100,99,x")
                                          << QStringLiteral("2012-09-25,1,2,0.5,1.5,100,0\n");
    QTest::newRow("seven-digits-rounded") << QStringLiteral("2012.09.25,1234.5678,1,1,1,5")
                                          << QStringLiteral("2012-09-25,1234.57,1,1,1,5,0\n");
    QTest::newRow("line-end-on-volume") << QStringLiteral("2012.09.25,1,2,0.5,1.5,100\r\n")
                                        << QStringLiteral("2012-09-25,1,2,0.5,1.5,100,0\n");
    QTest::newRow("text-price") << QStringLiteral("2012.09.25,x,2,0.5,1.5,100") << QString();
    QTest::newRow("fractional-volume") << QStringLiteral("2012.09.25,1,2,0.5,1.5,1.5") << QString();
    QTest::newRow("too-few-fields") << QStringLiteral("2012.09.25,1,2,0.5,1.5") << QString();
}

void TestQuoteFile::normalizeImportedLine()
{
    QFETCH(QString, line);
    QTEST(OrdaneData::normalizeImportedLine(line), "normalized");
}

QTEST_GUILESS_MAIN(TestQuoteFile)
#include "test_quotefile.moc"
