// Importing the quote files of other programs (MetaTrader, RBK, MetaStock, the program's own),
// merging them into the store, cancelling, the store check, and the MetaStock dialog.

#include "browser/ui/metastockimportdialog.h"
#include "data/import/importer.h"
#include "data/import/mbf.h"
#include "data/import/metastock.h"
#include "data/import/storecheck.h"
#include "data/import/textformats.h"
#include "data/quotefile.h"

#include <QHeaderView>
#include <QPushButton>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTreeWidget>
#include <QtEndian>
#include <QtTest>

#include <array>

using namespace OrdaneData;

Q_DECLARE_METATYPE(OrdaneData::ImportFormat)

namespace {

const QByteArray kHeader = "Date,Open,High,Low,Close,Volume,Adj Close";

QByteArray table(const QList<QByteArray> &rows)
{
    QByteArray text = kHeader;
    for (const QByteArray &row : rows)
        text += '\n' + row;
    return text;
}

QByteArray contents(const QString &path)
{
    QFile f(path);
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
}

bool store(const QString &path, const QByteArray &bytes)
{
    QFile f(path);
    return f.open(QIODevice::WriteOnly) && f.write(bytes) == bytes.size();
}

// A MASTER record: every byte the reader must not look at is '~'; a name shorter than 16
// and a symbol shorter than 14 bytes end with a zero byte.
QByteArray masterRecord(quint8 number, const QByteArray &name, const QByteArray &symbol)
{
    QByteArray r(53, '~');
    r[0] = char(number);
    r.replace(7, name.size(), name);
    if (name.size() < 16)
        r[7 + name.size()] = '\0';
    r.replace(36, symbol.size(), symbol);
    if (symbol.size() < 14)
        r[36 + symbol.size()] = '\0';
    return r;
}

QByteArray master(quint8 firstByte, const QList<QByteArray> &records)
{
    QByteArray bytes(53, '\0');
    bytes[0] = char(firstByte);
    for (const QByteArray &r : records)
        bytes += r;
    return bytes;
}

using Bar = std::array<float, 7>; // date YYYMMDD, open, high, low, close, volume, seventh

// A data file: a header record whose bytes would read as a bar of 1 January 1999, then the
// bars.
QByteArray dataFile(const QVector<Bar> &bars)
{
    QByteArray bytes;
    for (const Bar &bar : QVector<Bar>{Bar{990101, 1, 1, 1, 1, 1, 1}} + bars) {
        for (float v : bar) {
            char le[4];
            qToLittleEndian(toMbf(v), le);
            bytes.append(le, 4);
        }
    }
    return bytes;
}

QString describe(const QVector<MetaStockRecord> &records)
{
    QStringList out;
    for (const MetaStockRecord &r : records)
        out << QStringLiteral("%1|%2|%3").arg(r.fileNumber).arg(r.name, r.symbol);
    return out.join(QLatin1Char(' '));
}

// Every row of a converted table reads back as a bar.
bool allRowsParse(const ImportedTable &t)
{
    const QList<QByteArray> lines = t.text.split('\n');
    if (lines.first() != kHeader || lines.size() != t.rows + 1)
        return false;
    for (int i = 1; i < lines.size(); ++i) {
        if (!parseLine(QString::fromLatin1(lines.at(i))).isValid())
            return false;
    }
    return true;
}

} // namespace

class TestImport : public QObject
{
    Q_OBJECT

private slots:
    void mbf_data();
    void mbf();
    void metaTrader_data();
    void metaTrader();
    void halcyraFormat_data();
    void halcyraFormat();
    void masterRecords_data();
    void masterRecords();
    void metaStockData_data();
    void metaStockData();
    void metaStockImport();
    void rbkMergesIntoTheStore();
    void mergeVersusOverwrite_data();
    void mergeVersusOverwrite();
    void cancelBetweenFiles_data();
    void cancelBetweenFiles();
    void skippedSourcesAndProgress();
    void garbageNeverCrashes();
    void storeCheck_data();
    void storeCheck();
    void storeCheckCsvListsTheFolder();
    void metaStockDialog();

private:
    QTemporaryDir mDir;
};

// Patterns worked by hand: 1.0 is 0.1b * 2^1, exponent byte 128 + 1 = 0x81; 10 = 0.101b * 2^4,
// 0x84 with mantissa bits 01 after the implied one (0x200000); 12.375 = 0.1100011b * 2^4,
// mantissa 100011 (0x460000); 1050315 = 2^20 + 1739, exponent byte 0x80 + 21 = 0x95 and
// mantissa 1739 << 3 = 0x3658. The sign is bit 23, the high bit of the third byte.
void TestImport::mbf_data()
{
    QTest::addColumn<quint32>("pattern");
    QTest::addColumn<float>("value");
    QTest::addColumn<bool>("inverse"); // toMbf(value) gives the pattern back
    QTest::newRow("zero") << 0u << 0.0f << true;
    QTest::newRow("exponent-byte-zero-is-zero") << 0x00123456u << 0.0f << false;
    QTest::newRow("exponent-byte-one-is-zero") << 0x01800000u << 0.0f << false;
    QTest::newRow("one") << 0x81000000u << 1.0f << true;
    QTest::newRow("minus-one") << 0x81800000u << -1.0f << true;
    QTest::newRow("half") << 0x80000000u << 0.5f << true;
    QTest::newRow("ten") << 0x84200000u << 10.0f << true;
    QTest::newRow("price") << 0x84460000u << 12.375f << true;
    QTest::newRow("negative-price") << 0x84c60000u << -12.375f << true;
    QTest::newRow("date") << 0x95003658u << 1050315.0f << true;
}

void TestImport::mbf()
{
    QFETCH(quint32, pattern);
    QFETCH(float, value);
    QFETCH(bool, inverse);
    QCOMPARE(fromMbf(pattern), value);
    if (inverse)
        QCOMPARE(toMbf(value), pattern);
    // Negative zero has no MBF form of its own; the largest floats have none at all.
    QCOMPARE(toMbf(-0.0f), 0u);
    QCOMPARE(fromMbf(toMbf(std::numeric_limits<float>::max())), 1.7014117e38f);
}

void TestImport::metaTrader_data()
{
    QTest::addColumn<QByteArray>("source");
    QTest::addColumn<QByteArray>("expected");
    QTest::newRow("newest-first") << QByteArray(
                                         "2010.03.15,00:00,1.3721,1.3758,1.3650,1.3744,41293\n"
                                         "2010.03.16,00:00,1.3744,1.3800,1.3700,1.3790,38000\n")
                                  << table({"2010-03-16,1.3744,1.38,1.37,1.379,38000,0",
                                            "2010-03-15,1.3721,1.3758,1.365,1.3744,41293,0"});
    QTest::newRow("six-and-eight-fields-skipped")
        << QByteArray("2010.03.15,1.3721,1.3758,1.3650,1.3744,41293\n"
                      "2010.03.16,00:00,1,2,0.5,1.5,10\n"
                      "2010.03.17,00:00,1,2,0.5,1.5,10,0\n")
        << table({"2010-03-16,1,2,0.5,1.5,10,0"});
    QTest::newRow("bad-fields-spoil-the-line") << QByteArray("2010.03.15,00:00,abc,2,0.5,1.5,10\n"
                                                             "2010.03.16,00:00,1,2,0.5,1.5,1.5\n"
                                                             "2010.03.17,00:00,1,2,nan,1.5,10\n"
                                                             "2010-03-18,00:00,1,2,0.5,1.5,10\n"
                                                             "2010.02.30,00:00,1,2,0.5,1.5,10\n"
                                                             "2010.03.19,00:00,1,2,,1.5,10\n"
                                                             "2010.03.22,00:00,1,2,0.5,1.5,10\n")
                                               << table({"2010-03-22,1,2,0.5,1.5,10,0"});
    QTest::newRow("crlf-and-blanks")
        << QByteArray("2010.03.15,00:00, 1.5,2,0.5,1.5,10\r\n2010.03.16,00:00,1,2,0.5,1.5,20\r\n")
        << table({"2010-03-16,1,2,0.5,1.5,20,0", "2010-03-15,1.5,2,0.5,1.5,10,0"});
    QTest::newRow("six-significant-digits")
        << QByteArray("2010.03.15,00:00,1.2345678,123456.7,0.00012,1e3,9000000000\n")
        << table({"2010-03-15,1.23457,123457,0.00012,1000,9000000000,0"});
    QTest::newRow("nothing-usable") << QByteArray("<html>\n\n") << kHeader;
}

void TestImport::metaTrader()
{
    QFETCH(QByteArray, source);
    QFETCH(QByteArray, expected);
    const ImportedTable t = convertMetaTrader(source);
    QCOMPARE(t.text, expected);
    QCOMPARE(t.rows, expected.count('\n'));
}

void TestImport::halcyraFormat_data()
{
    QTest::addColumn<QByteArray>("source");
    QTest::addColumn<QByteArray>("expected");
    // Rows keep the values the program reads from them, in the source's order.
    QTest::newRow("rewritten-by-the-stored-writer")
        << table({"2012-09-25,30.950,31.00,30.36,30.39,54266400,30.39",
                  "2012-09-24,30,31,29,30.5,100,0"})
        << table({"2012-09-25,30.95,31,30.36,30.39,54266400,0.00",
                  "2012-09-24,30,31,29,30.5,100,0.00"});
    QTest::newRow("n/a-flat-at-the-close") << table({"2012-09-25,N/A,N/A,N/A,30.39,N/A,N/A"})
                                           << table({"2012-09-25,30.39,30.39,30.39,30.39,0,0.00"});
    QTest::newRow("bad-lines-dropped")
        << table({"2012-09-25,1,2,0.5,1.5,10,0", "garbage", "", "2012-09-24,1,2,0.5,1.5"})
        << table({"2012-09-25,1,2,0.5,1.5,10,0.00"});
    QTest::newRow("no-header") << QByteArray("2012-09-25,1,2,0.5,1.5,10,0") << QByteArray();
}

void TestImport::halcyraFormat()
{
    QFETCH(QByteArray, source);
    QFETCH(QByteArray, expected);
    const ImportedTable t = convertHalcyra(source);
    QCOMPARE(t.text, expected);
    QCOMPARE(t.rows, expected.count('\n'));
}

void TestImport::masterRecords_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("records"); // number|name|symbol, space-separated
    const QByteArray ibm = masterRecord(1, "INTL BUS MACH", "IBM");
    const QByteArray sap = masterRecord(2, "SAP", "SAP.DE");
    QTest::newRow("first-byte-zero-lists-none") << master(0, {ibm, sap}) << QString();
    QTest::newRow("first-byte-one-lists-none") << master(1, {ibm, sap}) << QString();
    QTest::newRow("first-byte-above-127-lists-none") << master(0x83, {ibm, sap}) << QString();
    QTest::newRow("first-byte-less-one")
        << master(2, {ibm, sap}) << QStringLiteral("1|INTL BUS MACH|IBM");
    QTest::newRow("truncated-file-stops-the-list")
        << master(4, {ibm, sap, sap.left(52)})
        << QStringLiteral("1|INTL BUS MACH|IBM 2|SAP|SAP.DE");
    QTest::newRow("sixteen-character-name-read-whole")
        << master(2, {masterRecord(3, "ABCDEFGHIJKLMNOP", "X")})
        << QStringLiteral("3|ABCDEFGHIJKLMNOP|X");
    QTest::newRow("symbol-ends-at-a-blank")
        << master(2, {masterRecord(4, "IBM", "IBM           ")}) << QStringLiteral("4|IBM|IBM");
    QTest::newRow("fourteen-character-symbol")
        << master(2, {masterRecord(4, "LONG", "ABCDEFGHIJKLMN")})
        << QStringLiteral("4|LONG|ABCDEFGHIJKLMN");
    QTest::newRow("file-number-above-127-negative")
        << master(2, {masterRecord(200, "HIGH", "HI")}) << QStringLiteral("-56|HIGH|HI");
    QTest::newRow("empty") << QByteArray() << QString();
}

void TestImport::masterRecords()
{
    QFETCH(QByteArray, bytes);
    QTEST(describe(readMasterRecords(bytes)), "records");
}

void TestImport::metaStockData_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QByteArray>("expected");
    const Bar first{1050314, 12, 12.5, 11.75, 12.25, 150000, 0};
    const Bar second{1050315, 12.375, 13.5, 12, 13.25, 200000, 13.25};
    QTest::newRow("newest-record-first")
        << dataFile({first, second})
        << table({"2005-03-15,12.375,13.500,12.000,13.250,200000,13.250",
                  "2005-03-14,12.000,12.500,11.750,12.250,150000,0.000"});
    QTest::newRow("record-order-not-date-order")
        << dataFile({second, first})
        << table({"2005-03-14,12.000,12.500,11.750,12.250,150000,0.000",
                  "2005-03-15,12.375,13.500,12.000,13.250,200000,13.250"});
    QTest::newRow("header-only-no-bars") << dataFile({}) << kHeader;
    QTest::newRow("partial-record-not-read")
        << dataFile({first}) + dataFile({second}).mid(28, 27)
        << table({"2005-03-14,12.000,12.500,11.750,12.250,150000,0.000"});
    QTest::newRow("date-not-a-day-left-out")
        << dataFile({first, Bar{1050231, 1, 1, 1, 1, 1, 1}})
        << table({"2005-03-14,12.000,12.500,11.750,12.250,150000,0.000"});
    QTest::newRow("empty") << QByteArray() << kHeader;
}

void TestImport::metaStockData()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QByteArray, expected);
    const ImportedTable t = convertMetaStockData(bytes);
    QCOMPARE(t.text, expected);
    QCOMPARE(t.rows, expected.count('\n'));
}

// A MASTER of four records: a data file with bars, a missing one, one with only its header
// and one numbered above 127. Targets are replaced, merge or not.
void TestImport::metaStockImport()
{
    QTemporaryDir folder;
    QTemporaryDir storage;
    const QString masterPath = folder.filePath(QStringLiteral("MASTER"));
    QVERIFY(store(masterPath,
                  master(5, {masterRecord(1, "ALPHA", "AAA"), masterRecord(2, "BETA", "BBB"),
                             masterRecord(3, "GAMMA", "CCC"), masterRecord(200, "DELTA", "DDD")})));
    QVERIFY(store(folder.filePath(QStringLiteral("f1.dat")),
                  dataFile({{1050314, 1, 2, 0.5, 1.5, 10, 0}, {1050315, 2, 3, 1, 2.5, 20, 0}})));
    QVERIFY(store(folder.filePath(QStringLiteral("f3.dat")), dataFile({})));
    QVERIFY(store(folder.filePath(QStringLiteral("f-56.dat")),
                  dataFile({{1120925, 30, 31, 29, 30.5, 1000, 0}})));
    const QString aaa = storage.filePath(QStringLiteral("AAA.IMP.csv"));
    QVERIFY(store(aaa, table({"2012-09-25,1,1,1,1,1,0"})));

    Importer importer(storage.path());
    QSignalSpy progress(&importer, &Importer::progress);
    const ImportReport report = importer.run(ImportFormat::MetaStock, {masterPath}, true);
    QCOMPARE(report.symbols, QStringList({QStringLiteral("AAA.IMP"), QStringLiteral("DDD.IMP")}));
    QCOMPARE(report.rows, 3);
    QCOMPARE(report.skipped, QStringList({folder.filePath(QStringLiteral("f2.dat: cannot be read")),
                                          folder.filePath(QStringLiteral("f3.dat: no quotes"))}));
    QCOMPARE(contents(aaa), table({"2005-03-15,2.000,3.000,1.000,2.500,20,0.000",
                                   "2005-03-14,1.000,2.000,0.500,1.500,10,0.000"}));
    QCOMPARE(contents(storage.filePath(QStringLiteral("DDD.IMP.csv"))),
             table({"2012-09-25,30.000,31.000,29.000,30.500,1000,0.000"}));
    QVERIFY(!QFileInfo::exists(storage.filePath(QStringLiteral("CCC.IMP.csv"))));
    QCOMPARE(progress.size(), 4); // one step per record
    QCOMPARE(progress.last().first().toInt(), 100);
}

// RBK files always merge: into ABC.IMP's stored rows, and each ticker into its own target.
void TestImport::rbkMergesIntoTheStore()
{
    QTemporaryDir storage;
    const QString abc = storage.filePath(QStringLiteral("ABC.IMP.csv"));
    QVERIFY(store(abc, table({"2012-09-20,1,1,1,1,1,0", "2012-09-19,9,9.5,8.5,9,700,0"})));
    const QString dir = QFINDTESTDATA("import/rbk");
    Importer importer(storage.path());
    ImportReport report = importer.run(
        ImportFormat::Rbk,
        {dir + QStringLiteral("/two_tickers.txt"), dir + QStringLiteral("/header_only.txt")},
        false);
    QCOMPARE(report.symbols, QStringList({QStringLiteral("ABC.IMP"), QStringLiteral("XYZ.IMP")}));
    QCOMPARE(report.rows, 5);
    QCOMPARE(report.skipped, QStringList(dir + QStringLiteral("/header_only.txt: no quotes")));
    // The file's later line of a day wins, in a stored file and in a new one; the imported
    // 20th replaces the stored one and the 19th stays; lines of ten fields or with another
    // date form are not read.
    QCOMPARE(contents(abc),
             table({"2012-09-21,10.5,11.5,10,11.25,1300,0", "2012-09-20,10,11,9.5,10.5,1000,0",
                    "2012-09-19,9,9.5,8.5,9,700,0"}));
    QCOMPARE(contents(storage.filePath(QStringLiteral("XYZ.IMP.csv"))),
             table({"2012-09-20,20,21,19,20.75,600,0"}));

    report = importer.run(ImportFormat::Rbk, {dir + QStringLiteral("/next_day.txt")}, false);
    QCOMPARE(report.symbols, QStringList(QStringLiteral("ABC.IMP")));
    QVERIFY(contents(abc).startsWith(
        table({"2012-09-25,11.5,12,11,11.75,800,0", "2012-09-21,10.5,11.5,10,11.25,1300,0"})));
}

void TestImport::mergeVersusOverwrite_data()
{
    QTest::addColumn<ImportFormat>("format");
    QTest::addColumn<QByteArray>("source");
    QTest::addColumn<bool>("merge");
    QTest::addColumn<QByteArray>("expected");
    const QByteArray metaTrader = "2012.09.24,00:00,5,6,4,5.5,50\n2012.09.25,00:00,6,7,5,6.5,60\n";
    const QByteArray own = table({"2012-09-25,6,7,5,6.5,60,0", "2012-09-24,5,6,4,5.5,50,0"});
    QTest::newRow("metatrader-overwrite")
        << ImportFormat::MetaTrader << metaTrader << false
        << table({"2012-09-25,6,7,5,6.5,60,0", "2012-09-24,5,6,4,5.5,50,0"});
    QTest::newRow("metatrader-merge")
        << ImportFormat::MetaTrader << metaTrader << true
        << table({"2012-09-25,6,7,5,6.5,60,0", "2012-09-24,5,6,4,5.5,50,0",
                  "2012-09-21,1,1,1,1,1,0.00"});
    QTest::newRow("halcyra-overwrite")
        << ImportFormat::Halcyra << own << false
        << table({"2012-09-25,6,7,5,6.5,60,0.00", "2012-09-24,5,6,4,5.5,50,0.00"});
    QTest::newRow("halcyra-merge")
        << ImportFormat::Halcyra << own << true
        << table({"2012-09-25,6,7,5,6.5,60,0.00", "2012-09-24,5,6,4,5.5,50,0.00",
                  "2012-09-21,1,1,1,1,1,0.00"});
}

void TestImport::mergeVersusOverwrite()
{
    QFETCH(ImportFormat, format);
    QFETCH(QByteArray, source);
    QFETCH(bool, merge);
    QTemporaryDir storage;
    // ADS.DE.csv is named ADS.DE.IMP: only the last suffix of the file name goes.
    const QString path = mDir.filePath(QStringLiteral("ADS.DE.csv"));
    QVERIFY(store(path, source));
    const QString target = storage.filePath(QStringLiteral("ADS.DE.IMP.csv"));
    QVERIFY(store(target, table({"2012-09-24,1,1,1,1,1,0.00", "2012-09-21,1,1,1,1,1,0.00"})));
    const ImportReport report = Importer(storage.path()).run(format, {path}, merge);
    QCOMPARE(report.symbols, QStringList(QStringLiteral("ADS.DE.IMP")));
    QCOMPARE(report.rows, 2);
    QTEST(contents(target), "expected");
}

// A cancel requested from a slot stops the run before its next file: the first target is
// complete, the others are as they were, and no save file is left behind.
void TestImport::cancelBetweenFiles_data()
{
    QTest::addColumn<bool>("fromProgress"); // else from imported()
    QTest::newRow("from-imported") << false;
    QTest::newRow("from-progress") << true;
}

void TestImport::cancelBetweenFiles()
{
    QFETCH(bool, fromProgress);
    QTemporaryDir sources;
    QTemporaryDir storage;
    const QByteArray old = table({"2012-09-21,1,1,1,1,1,0"});
    QStringList paths;
    for (const char *name : {"A", "B", "C", "D"}) {
        const QString symbol = QLatin1String(name);
        paths << sources.filePath(symbol + QStringLiteral(".csv"));
        QVERIFY(store(paths.last(), "2012.09.25,00:00,6,7,5,6.5,60\n"));
        QVERIFY(store(storage.filePath(symbol + QStringLiteral(".IMP.csv")), old));
    }
    Importer importer(storage.path());
    if (fromProgress)
        connect(&importer, &Importer::progress, &importer, &Importer::cancel);
    else
        connect(&importer, &Importer::imported, &importer, &Importer::cancel);

    const ImportReport report = importer.run(ImportFormat::MetaTrader, paths, false);
    QVERIFY(report.cancelled);
    QCOMPARE(report.symbols, QStringList(QStringLiteral("A.IMP")));
    QCOMPARE(contents(storage.filePath(QStringLiteral("A.IMP.csv"))),
             table({"2012-09-25,6,7,5,6.5,60,0"}));
    for (const char *name : {"B", "C", "D"})
        QCOMPARE(contents(storage.filePath(QLatin1String(name) + QStringLiteral(".IMP.csv"))), old);
    QCOMPARE(QDir(storage.path()).entryList(QDir::Files | QDir::Hidden).size(), 4);
    QCOMPARE(report.describe(), QStringLiteral("Imported 1 symbol (1 row); cancelled"));

    // The next run starts afresh.
    disconnect(&importer, nullptr, &importer, nullptr);
    QVERIFY(!importer.run(ImportFormat::MetaTrader, paths, false).cancelled);
}

void TestImport::skippedSourcesAndProgress()
{
    QTemporaryDir storage;
    const QString good = mDir.filePath(QStringLiteral("EURUSD1440.csv"));
    const QString empty = mDir.filePath(QStringLiteral("empty.csv"));
    const QString notStored = mDir.filePath(QStringLiteral("plain.csv"));
    QVERIFY(store(good, "2010.03.15,00:00,1,2,0.5,1.5,10\n2010.03.16,00:00,1,2,0.5,1.5,10\n"));
    QVERIFY(store(empty, ""));
    QVERIFY(store(notStored, "2010-03-15,1,2,0.5,1.5,10,0\n"));
    const QString missing = mDir.filePath(QStringLiteral("missing.csv"));

    Importer importer(storage.path());
    QSignalSpy progress(&importer, &Importer::progress);
    QSignalSpy imported(&importer, &Importer::imported);
    ImportReport report =
        importer.run(ImportFormat::MetaTrader, {missing, good, mDir.path(), empty}, false);
    QCOMPARE(report.symbols, QStringList(QStringLiteral("EURUSD1440.IMP")));
    QCOMPARE(imported.size(), 1);
    QCOMPARE(imported.first().first().toString(), QStringLiteral("EURUSD1440.IMP"));
    QCOMPARE(report.skipped, QStringList({missing + QStringLiteral(": cannot be read"),
                                          mDir.path() + QStringLiteral(": cannot be read"),
                                          empty + QStringLiteral(": no quotes")}));
    QCOMPARE(report.describe(),
             QStringLiteral("Imported 1 symbol (2 rows); skipped 3 files: missing.csv (cannot "
                            "be read), %1 (cannot be read), empty.csv (no quotes)")
                 .arg(QFileInfo(mDir.path()).fileName()));
    QList<int> percents;
    for (const QList<QVariant> &args : qAsConst(progress))
        percents << args.first().toInt();
    QCOMPARE(percents, QList<int>({25, 50, 75, 100}));

    report = importer.run(ImportFormat::Halcyra, {notStored}, false);
    QCOMPARE(report.skipped, QStringList(notStored + QStringLiteral(": not a quote file")));

    // Many sources: whole percentages, each once, in order.
    progress.clear();
    QStringList many;
    for (int i = 0; i < 250; ++i)
        many << missing;
    report = importer.run(ImportFormat::MetaTrader, many, false);
    QCOMPARE(progress.size(), 101);
    QCOMPARE(progress.first().first().toInt(), 0);
    for (int i = 1; i < progress.size(); ++i)
        QCOMPARE(progress.at(i).first().toInt(), progress.at(i - 1).first().toInt() + 1);
    QCOMPARE(report.describe().left(47),
             QStringLiteral("Imported 0 symbols (0 rows); skipped 250 files:"));

    // A storage folder that cannot be made: every target fails, and says so.
    Importer blocked(good + QStringLiteral("/Storage"));
    report = blocked.run(ImportFormat::MetaTrader, {good}, false);
    QVERIFY(report.symbols.isEmpty());
    QCOMPARE(report.skipped.size(), 1);
    QVERIFY2(report.skipped.first().startsWith(good + QStringLiteral(": EURUSD1440.IMP cannot be "
                                                                     "written")),
             qPrintable(report.skipped.first()));
}

// Seeded random bytes, and random bytes under a plausible start, through every reader: no
// crash, and whatever comes out is a table whose rows read back.
void TestImport::garbageNeverCrashes()
{
    quint64 state = 0x1234567;
    const auto next = [&state] {
        state = state * 6364136223846793005ull + 1442695040888963407ull;
        return quint32(state >> 33);
    };
    QTemporaryDir folder;
    QTemporaryDir storage;
    Importer importer(storage.path());
    for (int round = 0; round < 200; ++round) {
        QByteArray bytes(int(next() % 2000), '\0');
        for (char &c : bytes)
            c = char(next() % 4 == 0 ? ",\n.0"[next() % 4] : next());
        if (round % 3 == 0)
            bytes.prepend("Date,\n2012.01.02,00:00,1,2,0.5,1.5,10\nTICKER,");
        QVERIFY(allRowsParse(convertMetaTrader(bytes)));
        QVERIFY(allRowsParse(convertHalcyra(bytes)) || !bytes.startsWith("Date"));
        for (const TickerTable &t : convertRbk(bytes))
            QVERIFY(allRowsParse(t.table) && isUsableSymbol(t.ticker));
        QVERIFY(readMasterRecords(bytes).size() <= 126);
        const ImportedTable data = convertMetaStockData(bytes);
        QCOMPARE(data.text.count('\n'), data.rows);

        // Now and then, a MASTER with up to 126 records and a data file of garbage for each.
        if (round % 10 != 0)
            continue;
        bytes.prepend(char(next()));
        QVERIFY(store(folder.filePath(QStringLiteral("MASTER")), bytes));
        for (const MetaStockRecord &r : readMasterRecords(bytes))
            store(folder.filePath(QStringLiteral("f%1.dat").arg(r.fileNumber)), bytes);
        importer.run(ImportFormat::MetaStock, {folder.filePath(QStringLiteral("MASTER"))}, false);
    }
}

void TestImport::storeCheck_data()
{
    QTest::addColumn<QString>("symbol");
    QTest::addColumn<QString>("row"); // the CSV row without the symbol
    QTest::newRow("clean") << "clean"
                           << "4,2012-09-20,2012-09-25,0,0,0,0,ok";
    QTest::newRow("crlf-line-ends") << "crlf"
                                    << "2,2012-09-24,2012-09-25,0,0,0,0,ok";
    QTest::newRow("header-only") << "header_only"
                                 << "0,,,0,0,0,0,ok";
    QTest::newRow("five-weekdays-missing") << "five_weekdays_missing"
                                           << "2,2012-09-14,2012-09-24,0,0,0,0,ok";
    QTest::newRow("six-weekdays-missing") << "six_weekdays_missing"
                                          << "2,2012-09-14,2012-09-25,0,0,0,1,damaged";
    QTest::newRow("bad-line") << "bad_line"
                              << "2,2012-09-21,2012-09-25,1,0,0,0,damaged";
    QTest::newRow("blank-line") << "blank_line"
                                << "2,2012-09-24,2012-09-25,1,0,0,0,damaged";
    QTest::newRow("repeated-date") << "repeated_date"
                                   << "4,2012-09-21,2012-09-25,0,1,0,0,damaged";
    QTest::newRow("out-of-order") << "out_of_order"
                                  << "3,2012-09-21,2012-09-25,0,0,1,0,damaged";
    QTest::newRow("missing-header") << "missing_header"
                                    << "2,2012-09-24,2012-09-25,1,0,0,0,damaged";
    QTest::newRow("binary") << "binary"
                            << "0,,,2,0,0,0,damaged";
    QTest::newRow("empty-file") << "empty"
                                << "0,,,1,0,0,0,damaged";
    QTest::newRow("missing-file") << "missing"
                                  << "0,,,1,0,0,0,damaged";
}

void TestImport::storeCheck()
{
    QFETCH(QString, symbol);
    QFETCH(QString, row);
    const QString folder = QFINDTESTDATA("import/storecheck");
    const QVector<StoreCheck> checks = checkStore(folder, {symbol});
    QCOMPARE(checks.size(), 1);
    QCOMPARE(checks.first().ok(), row.endsWith(QLatin1String(",ok")));
    QCOMPARE(storeCheckCsv(checks).section(QLatin1Char('\n'), 1),
             symbol + QLatin1Char(',') + row + QLatin1Char('\n'));
    QVERIFY(!QFileInfo::exists(folder + QStringLiteral("/missing.csv")));
}

// Without symbols, every stored file in name order; the store is left as it was.
void TestImport::storeCheckCsvListsTheFolder()
{
    QTemporaryDir storage;
    QVERIFY(store(storage.filePath(QStringLiteral("B,C.csv")), table({"2012-09-25,1,1,1,1,1,0"})));
    QVERIFY(store(storage.filePath(QStringLiteral("A.csv")), "junk"));
    QVERIFY(store(storage.filePath(QStringLiteral("notes.txt")), "not a quote file"));
    const QDateTime before = QFileInfo(storage.filePath(QStringLiteral("A.csv"))).lastModified();
    QCOMPARE(storeCheckCsv(checkStore(storage.path())),
             QStringLiteral("symbol,rows,first,last,bad_lines,repeated_dates,out_of_order,gaps,"
                            "status\n"
                            "A,0,,,1,0,0,0,damaged\n"
                            "\"B,C\",1,2012-09-25,2012-09-25,0,0,0,0,ok\n"));
    QCOMPARE(contents(storage.filePath(QStringLiteral("A.csv"))), QByteArray("junk"));
    QCOMPARE(QFileInfo(storage.filePath(QStringLiteral("A.csv"))).lastModified(), before);
    QCOMPARE(QDir(storage.path()).entryList(QDir::Files | QDir::Hidden).size(), 3);
}

void TestImport::metaStockDialog()
{
    const QString path = mDir.filePath(QStringLiteral("MASTER"));
    QVERIFY(store(
        path, master(4, {masterRecord(1, "ZETA CORP", "ZET"), masterRecord(2, "ALPHA INC", "ALP"),
                         masterRecord(3, "MU LTD", "MU")})));
    OrdaneBrowser::MetaStockImportDialog dialog(path);
    QCOMPARE(dialog.windowTitle(), QStringLiteral("MetaStock MASTER-File import"));
    QCOMPARE(dialog.records().size(), 3);
    QTreeWidget *list = dialog.list();
    QCOMPARE(list->columnCount(), 2);
    QCOMPARE(list->headerItem()->text(0), QStringLiteral("Name"));
    QCOMPARE(list->headerItem()->text(1), QStringLiteral("Symbol"));
    QCOMPARE(list->columnWidth(0), 105);
    QCOMPARE(list->selectionMode(), QAbstractItemView::ExtendedSelection);
    QCOMPARE(list->selectionBehavior(), QAbstractItemView::SelectRows);
    QCOMPARE(list->header()->sortIndicatorSection(), 0);
    QCOMPARE(list->header()->sortIndicatorOrder(), Qt::AscendingOrder);
    QStringList rows;
    for (int i = 0; i < list->topLevelItemCount(); ++i)
        rows << list->topLevelItem(i)->text(0) + QLatin1Char('/') + list->topLevelItem(i)->text(1);
    QCOMPARE(rows, QStringList({QStringLiteral("ALPHA INC/ALP"), QStringLiteral("MU LTD/MU"),
                                QStringLiteral("ZETA CORP/ZET")}));

    dialog.resize(600, 400);
    dialog.show();
    QVERIFY(QTest::qWaitForWindowExposed(&dialog));
    auto *importAll = dialog.findChild<QPushButton *>(QStringLiteral("MetaStockImportAll"));
    auto *cancel = dialog.findChild<QPushButton *>(QStringLiteral("MetaStockImportCancel"));
    QVERIFY(importAll && cancel);
    QCOMPARE(importAll->text(), QStringLiteral("Import All"));
    QCOMPARE(cancel->text(), QStringLiteral("Cancel"));
    // Right-aligned, Import All first.
    QVERIFY(importAll->geometry().right() < cancel->geometry().left());
    QVERIFY(dialog.width() - cancel->geometry().right() < 30);
    QVERIFY(importAll->geometry().left() > dialog.width() / 2);
    QTest::mouseClick(importAll, Qt::LeftButton);
    QCOMPARE(dialog.result(), int(QDialog::Accepted));
    dialog.show();
    QTest::mouseClick(cancel, Qt::LeftButton);
    QCOMPARE(dialog.result(), int(QDialog::Rejected));

    OrdaneBrowser::MetaStockImportDialog unreadable(mDir.filePath(QStringLiteral("NOPE")));
    QCOMPARE(unreadable.list()->topLevelItemCount(), 0);
}

QTEST_MAIN(TestImport)
#include "test_import.moc"
