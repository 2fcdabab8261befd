// The stored line format: parsing, formatting, whole-file text, writing, import lines.

#include "data/quotefile.h"
#include "data/reader.h"

#include <QFile>
#include <QTemporaryDir>
#include <QtTest>

#include <charconv>
#include <cmath>
#include <cstring>
#include <limits>

using namespace OrdaneData;

namespace {

// The writer as it was before it printed its numbers itself, through the toolkit's
// conversions. The stored files written so far have this text, so the writer must keep
// giving it byte for byte.
QString referenceLine(const QuoteBar &bar)
{
    const auto number = [](float v) {
        return QString::number(double(v), 'g', 6);
    };
    return bar.date().toString(QStringLiteral("yyyy-MM-dd")) + QLatin1Char(',') +
           number(bar.open()) + QLatin1Char(',') + number(bar.high()) + QLatin1Char(',') +
           number(bar.low()) + QLatin1Char(',') + number(bar.close()) + QLatin1Char(',') +
           QString::number(bar.volume()) + QLatin1String(",0.00");
}

QString referenceText(const QVector<QuoteBar> &barsOldestFirst)
{
    QString text = QLatin1String(kQuoteFileHeader);
    for (int i = barsOldestFirst.size() - 1; i >= 0; --i)
        text += QLatin1Char('\n') + referenceLine(barsOldestFirst.at(i));
    return text;
}

struct Random
{
    std::uint64_t state;
    std::uint64_t next()
    {
        state = state * 6364136223846793005ull + 1442695040888963407ull;
        return state >> 16;
    }
    int below(int n) { return int(next() % std::uint64_t(n)); }
};

// Prices across every magnitude the float has: random bit patterns (denormals, infinities
// and NaNs among them), random decimals of up to seven digits scaled by 1e-14 to 1e13, and
// exact halves at the seventh significant digit, which the toolkit rounds away from zero.
float randomPrice(Random &r)
{
    switch (r.below(4)) {
    case 0: {
        const std::uint32_t bits = std::uint32_t(r.next());
        float v;
        std::memcpy(&v, &bits, sizeof v);
        return v;
    }
    case 1:
    case 2:
        return float(double(r.below(10000000)) * std::pow(10.0, r.below(28) - 14));
    default: {
        // x * 10^s = q + 0.5 for a six-digit q. For s > 0 that is exact only when 5^s divides
        // 2q + 1 = t * 5^s, so x = t / 2^(s+1); for s <= 0, x = (2q + 1) * 5^-s / 2^(s+1).
        const int s = r.below(11) - 2;
        const double five = std::pow(5.0, std::abs(s));
        if (s > 0) {
            const int low = int(std::ceil(200001 / five));
            const int high = int(1999999 / five);
            int t = (low + r.below(high - low + 1)) | 1;
            if (t > high)
                t -= 2;
            return float(std::ldexp(double(t), -s - 1));
        }
        const double odd = 2.0 * (100000 + r.below(900000)) + 1;
        return float(std::ldexp(odd * five, -s - 1));
    }
    }
}

} // namespace

class TestQuoteFile : public QObject
{
    Q_OBJECT

private slots:
    void parseLine_data();
    void parseLine();
    void pricesReadExactlyAsTheStandardConversion();
    void formatLine_data();
    void formatLine();
    void writerGivesTheToolkitsText_data();
    void writerGivesTheToolkitsText();
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
    QTest::newRow("six-significant-digits") << 12345.678f << QStringLiteral("12345.7");
    QTest::newRow("whole-number") << 31.0f << QStringLiteral("31");
    QTest::newRow("small") << 0.000123f << QStringLiteral("0.000123");
    QTest::newRow("million") << 1234567.0f << QStringLiteral("1.23457e+06");
    // Unlike printf, which rounds an exact half to even ("12345.2").
    QTest::newRow("half-rounds-away-from-zero") << 12345.25f << QStringLiteral("12345.3");
}

void TestQuoteFile::formatLine()
{
    QFETCH(float, price);
    QFETCH(QString, text);
    const QuoteBar bar(QDate(2012, 9, 25), price, price, price, price, 54266400);
    QCOMPARE(OrdaneData::formatLine(bar),
             QStringLiteral("2012-09-25,%1,%1,%1,%1,54266400,0.00").arg(text));
}

void TestQuoteFile::writerGivesTheToolkitsText_data()
{
    QTest::addColumn<QVector<QuoteBar>>("bars");

    // Each price as open, high, low and close of its own bar, with the volumes and dates
    // at their limits on the side.
    using Limits = std::numeric_limits<float>;
    QVector<float> edges = {0.0f,      -0.0f,      0.000123456f, 1e-5f,      0.0001f,     99999.95f,
                            99999.94f, 999999.5f,  999999.4f,    9.999995f,  9.999994f,   100000.5f,
                            1234.125f, 1234565.0f, 1e6f,         1000001.0f, 16777215.0f, 3e9f,
                            -30.95f,   -12345.25f, 1e-6f,        1e18f};
    edges << Limits::min() << Limits::denorm_min() << Limits::max() << Limits::infinity()
          << -Limits::infinity() << Limits::quiet_NaN();
    // Just below and at each power of ten, where the digit count changes.
    for (int e = -10; e <= 20; ++e) {
        const float p = float(std::pow(10.0, e));
        edges << p << std::nextafter(p, 0.0f) << std::nextafter(p, 2 * p)
              << float(9.999995 * std::pow(10.0, e - 1));
    }
    const qint64 volumes[] = {
        0, 1, 54266400, std::numeric_limits<qint64>::max(), std::numeric_limits<qint64>::min(), -1};
    QVector<QuoteBar> edgeBars;
    for (int i = 0; i < edges.size(); ++i) {
        const float p = edges.at(i);
        edgeBars << QuoteBar(QDate(2012, 9, 25).addDays(i), p, p, p, p, volumes[i % 6]);
    }
    edgeBars << QuoteBar(QDate(999, 12, 31), 1, 2, 0.5f, 1.5f, 7)
             << QuoteBar(QDate(-4714, 11, 23), 1, 2, 0.5f, 1.5f, 7) << QuoteBar()
             << QuoteBar(QDate(10000, 1, 1), 1, 2, 0.5f, 1.5f, 7);
    QTest::newRow("edge-values") << edgeBars;

    Random r{20120925};
    QVector<QuoteBar> random;
    for (int i = 0; i < 50000; ++i) {
        const qint64 volume = r.below(3) == 0 ? qint64(r.next() << r.below(17)) : r.below(100);
        random << QuoteBar(QDate(1000, 1, 1).addDays(r.below(3300000)), randomPrice(r),
                           randomPrice(r), randomPrice(r), randomPrice(r), volume);
    }
    QTest::newRow("random-magnitudes") << random;

    for (const char *symbol : {"AAPL", "ADS.DE", "MAN.DE", "MSFT", "UTX"}) {
        Reader sample;
        QVERIFY(sample.loadFile(QStringLiteral(":/Storage/%1.csv").arg(QLatin1String(symbol))));
        QVERIFY(sample.count() > 2000);
        QTest::newRow(qPrintable(QStringLiteral("sample-%1").arg(QLatin1String(symbol))))
            << sample.bars();
    }
}

void TestQuoteFile::writerGivesTheToolkitsText()
{
    QFETCH(QVector<QuoteBar>, bars);
    const QString expected = referenceText(bars);
    const QString text = seriesToText(bars);
    if (text != expected) {
        // Name the first line that differs rather than dump the whole text.
        const QStringList got = text.split(QLatin1Char('\n'));
        const QStringList want = expected.split(QLatin1Char('\n'));
        for (int i = 0; i < std::min(got.size(), want.size()); ++i)
            QCOMPARE(got.at(i), want.at(i));
        QCOMPARE(got.size(), want.size());
    }
    QCOMPARE(seriesToBytes(bars), expected.toLatin1());
    if (!bars.isEmpty())
        QCOMPARE(OrdaneData::formatLine(bars.last()), referenceLine(bars.last()));
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
    file.close();
    // Bytes are written as they are.
    QVERIFY(OrdaneData::writeText(path, QByteArray("raw \xe9\x80\r\n")));
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(file.readAll(), QByteArray("raw \xe9\x80\r\n"));

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
