// The scanner's candidate symbols: their order across the boundaries of length, the number
// of candidates of a run, the single-precision powers and the probe symbols made from them.

#include "browser/symbolgenerator.h"

#include <QSet>
#include <QtTest>

#include <limits>

using OrdaneBrowser::SymbolGenerator;

namespace {
QStringList split(const char *texts)
{
    return QString::fromLatin1(texts).split(QLatin1Char(' '));
}
} // namespace

class TestSymbolGenerator : public QObject
{
    Q_OBJECT

private slots:
    void candidatesInOrder_data();
    void candidatesInOrder();
    void candidateCount_data();
    void candidateCount();
    void wholeRunNeverUsesTheLastCharacter();
    void probeSymbols_data();
    void probeSymbols();
};

// With the default alphabet M = 37 and the powers are 37, 1369, 50653 (and 1874161 for
// length 5 on). Index i gives, for p = L-1 .. 1, the character at ((i / 37^p) - 1) mod 37
// when i > 37^p, then the one at i mod 37.
void TestSymbolGenerator::candidatesInOrder_data()
{
    QTest::addColumn<QString>("alphabet");
    QTest::addColumn<int>("length");
    QTest::addColumn<quint64>("start");
    QTest::addColumn<QStringList>("expected");

    const QString standard = SymbolGenerator::defaultAlphabet();
    QTest::newRow("zero-first") << standard << 4 << quint64(0) << split("0 1 2 3 4 5 6 7 8 9 A");
    // 36 is "_"; 37 is not greater than 37, so it gives "0" again; 38 = 1*37 + 1 is "01".
    QTest::newRow("one-to-two-characters") << standard << 4 << quint64(35) << split("Z _ 0 01 02");
    // 1368 = 36*37 + 36: "Z_". 1369 = 37*37 is not above 1369: (37-1) mod 37 = 36, 0 -> "_0".
    // 1370: 1370/1369 = 1 -> "0", 1370/37 = 37 -> "_", 1370 mod 37 = 1 -> "0_1".
    QTest::newRow("two-to-three-characters")
        << standard << 4 << quint64(1368) << split("Z_ _0 0_1 0_2");
    // 1405: 1 -> "0", 1405/37 = 37 -> "_", 1405 mod 37 = 36 -> "0__"; 1406 = 38*37: "000".
    QTest::newRow("first-three-zeros") << standard << 4 << quint64(1405) << split("0__ 000");
    // 50652 = 36*1369 + 36*37 + 36 -> "ZZ_"; 50653 = 37^3 -> "__0";
    // 50654: 50654/50653 = 1 -> "0", /1369 = 37 -> "_", /37 = 1369 -> 1368 mod 37 = 36 -> "_",
    // 50654 mod 37 = 1 -> "0__1".
    QTest::newRow("three-to-four-characters")
        << standard << 4 << quint64(50652) << split("ZZ_ __0 0__1");
    // 37^4 = 1874161 = 37*50653 = 1369*1369 = 50653*37: 36 at every position -> "___0".
    // 1874160: /50653 = 36 -> 35 "Z", /1369 = 1368 -> 1367 mod 37 = 35 "Z",
    // /37 = 50652 -> 50651 mod 37 = 35 "Z", mod 37 = 36 "_" -> "ZZZ_".
    QTest::newRow("near-37-to-the-4th")
        << standard << 4 << quint64(1874160) << split("ZZZ_ ___0 ___1");
    // The last two of the run (2085136 candidates): 2085135 / 50653 = 41 -> 40 mod 37 = 3,
    // / 1369 = 1523 -> 1522 mod 37 = 5, / 37 = 56355 -> 56354 mod 37 = 3, mod 37 = 0.
    QTest::newRow("end-of-the-run") << standard << 4 << quint64(2085134) << split("352_ 3530");
    // 37^5 = 69,343,957 is 69,343,960 in single precision, so 69,343,958 .. 69,343,960 get no
    // fifth-place character ("____1" rather than "0____1" as an exact power would give);
    // 69,343,961 = 69,343,957 + 4 is the first above it: "0____4".
    QTest::newRow("single-precision-power")
        << standard << 6 << quint64(69343957) << split("____0 ____1 ____2 ____3 0____4");
    // M = 2: 0 "A", 1 "X", 2 is not above 2, "A"; 3: 3/2 = 1 -> "A", then "X"; and so on.
    QTest::newRow("tiny-alphabet")
        << QStringLiteral("AX-") << 2 << quint64(0) << split("A X A AX XA XX AA AX XA");
    // M = 1: every power is 1 and every digit the first character.
    QTest::newRow("two-characters")
        << QStringLiteral("01") << 3 << quint64(0) << split("0 0 000 000");
}

void TestSymbolGenerator::candidatesInOrder()
{
    QFETCH(QString, alphabet);
    QFETCH(int, length);
    QFETCH(quint64, start);
    QFETCH(QStringList, expected);
    SymbolGenerator generator;
    generator.setAlphabet(alphabet);
    generator.setLength(length);
    generator.setIndex(start);
    QStringList texts;
    for (int i = 0; i < expected.size(); ++i)
        texts << generator.next();
    QCOMPARE(texts, expected);
    QCOMPARE(generator.index(), start + quint64(expected.size()));
}

void TestSymbolGenerator::candidateCount_data()
{
    QTest::addColumn<QString>("alphabet");
    QTest::addColumn<int>("length");
    QTest::addColumn<quint64>("count");

    const QString standard = SymbolGenerator::defaultAlphabet();
    QTest::newRow("defaults") << standard << 4 << quint64(2085136);
    QTest::newRow("tiny-alphabet") << QStringLiteral("AX-") << 2 << quint64(9);
    // 38^5 = 32 * 19^5 fits single precision exactly; 38^6 = 3,010,936,384 does not.
    QTest::newRow("exact-in-single-precision") << standard << 5 << quint64(79235168);
    QTest::newRow("rounded-in-single-precision") << standard << 6 << quint64(3010936320);
    QTest::newRow("beyond-64-bits") << standard << 20 << std::numeric_limits<quint64>::max();
    QTest::newRow("empty-alphabet") << QString() << 4 << quint64(0);
    QTest::newRow("one-character") << QStringLiteral("A") << 4 << quint64(0);
}

void TestSymbolGenerator::candidateCount()
{
    QFETCH(QString, alphabet);
    QFETCH(int, length);
    QFETCH(quint64, count);
    SymbolGenerator generator;
    generator.setAlphabet(alphabet);
    generator.setLength(length);
    QCOMPARE(generator.candidateCount(), count);
    QCOMPARE(generator.atEnd(), count == 0);
    if (count == 0) {
        // Nothing to make, and no division by zero on the way.
        QCOMPARE(generator.next(), QString());
        QCOMPARE(generator.index(), quint64(0));
    }
    generator.setIndex(count);
    QVERIFY(generator.atEnd());
}

// The defaults' whole run: never "-", never longer than the length, and fewer distinct texts
// than candidates (counted over the run of length 3, 54,872 candidates).
void TestSymbolGenerator::wholeRunNeverUsesTheLastCharacter()
{
    SymbolGenerator generator;
    int longest = 0;
    bool dash = false;
    while (!generator.atEnd()) {
        const QString text = generator.next();
        longest = qMax(longest, int(text.size()));
        dash = dash || text.contains(QLatin1Char('-'));
    }
    QVERIFY(!dash);
    QCOMPARE(longest, 4);
    QCOMPARE(generator.index(), quint64(2085136));

    SymbolGenerator shorter;
    shorter.setLength(3);
    QSet<QString> distinct;
    while (!shorter.atEnd())
        distinct.insert(shorter.next());
    QVERIFY(quint64(distinct.size()) < shorter.candidateCount());
}

void TestSymbolGenerator::probeSymbols_data()
{
    QTest::addColumn<QString>("candidate");
    QTest::addColumn<QString>("prefix");
    QTest::addColumn<QString>("postfix");
    QTest::addColumn<QString>("fill");
    QTest::addColumn<int>("width");
    QTest::addColumn<QString>("probe");

    const auto row = [](const char *name, const char *candidate, const char *prefix,
                        const char *postfix, const char *fill, int width, const char *probe) {
        QTest::newRow(name) << QString::fromLatin1(candidate) << QString::fromLatin1(prefix)
                            << QString::fromLatin1(postfix) << QString::fromLatin1(fill) << width
                            << QString::fromLatin1(probe);
    };
    row("postfix-only", "7", "", ".de", "", 4, "7.de");
    row("filled-to-the-width", "7", "", "", "0", 4, "0007");
    row("first-fill-character", "AB", "X", ".F", "#*", 4, "X##AB.F");
    row("longer-than-the-width", "ABCDE", "", "", "0", 4, "ABCDE");
}

void TestSymbolGenerator::probeSymbols()
{
    QFETCH(QString, candidate);
    QFETCH(QString, prefix);
    QFETCH(QString, postfix);
    QFETCH(QString, fill);
    QFETCH(int, width);
    QFETCH(QString, probe);
    QCOMPARE(OrdaneBrowser::probeSymbol(candidate, prefix, postfix, fill, width), probe);
}

QTEST_APPLESS_MAIN(TestSymbolGenerator)
#include "test_symbolgenerator.moc"
