// The sample store: reproducible from its generator, and plausible quotes.

#include "data/metadata.h"
#include "data/reader.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

#include <algorithm>

using namespace OrdaneData;

class TestSamples : public QObject
{
    Q_OBJECT

private slots:
    void generatorReproducesCommittedFiles();
    void samplesArePlausible_data();
    void samplesArePlausible();
};

void TestSamples::generatorReproducesCommittedFiles()
{
    QTemporaryDir out;
    QProcess generator;
    generator.start(QStringLiteral(SAMPLEGEN), {out.path()});
    QVERIFY(generator.waitForFinished(60000));
    QCOMPARE(generator.exitCode(), 0);

    const QDir committed(QStringLiteral(SAMPLES_DIR));
    // The quote files; the store's own files ("_constituents.csv") are written by hand.
    QStringList names = committed.entryList({QStringLiteral("*.csv")}, QDir::Files);
    names.erase(
        std::remove_if(names.begin(), names.end(),
                       [](const QString &name) { return name.startsWith(QLatin1Char('_')); }),
        names.end());
    QCOMPARE(names.size(), 5);
    for (const QString &name : names) {
        QFile a(committed.filePath(name)), b(QDir(out.path()).filePath(name));
        QVERIFY(a.open(QIODevice::ReadOnly) && b.open(QIODevice::ReadOnly));
        QVERIFY2(a.readAll() == b.readAll(), qPrintable(name + QStringLiteral(" differs")));
    }

    // The metadata store holds the same rows; its bytes are the SQLite library's business.
    const QString shippedPath = committed.filePath(QStringLiteral("_meta.tdb"));
    QVERIFY(QFileInfo::exists(shippedPath)); // else opening it would make one
    MetaData shipped(shippedPath);
    MetaData generated(QDir(out.path()).filePath(QStringLiteral("_meta.tdb")));
    QStringList symbols = generated.symbols();
    symbols.sort();
    QCOMPARE(symbols, QStringList({QStringLiteral("^FTSE"), QStringLiteral("^GDAXI"),
                                   QStringLiteral("^GSPC")}));
    QStringList shippedSymbols = shipped.symbols();
    shippedSymbols.sort();
    QCOMPARE(shippedSymbols, symbols);
    for (const QString &symbol : symbols)
        QCOMPARE(shipped.record(symbol), generated.record(symbol));
}

void TestSamples::samplesArePlausible_data()
{
    QTest::addColumn<QString>("symbol");
    for (const char *s : {"AAPL", "ADS.DE", "MAN.DE", "MSFT", "UTX"})
        QTest::newRow(s) << QString::fromLatin1(s);
}

void TestSamples::samplesArePlausible()
{
    QFETCH(QString, symbol);
    Reader r;
    QVERIFY(r.loadFile(QStringLiteral(":/Storage/%1.csv").arg(symbol)));
    QVERIFY(r.count() >= 2500 && r.count() <= 3200);
    QVERIFY(r.bar(0).date().year() == 2000 || r.bar(0).date().year() == 2003);
    QCOMPARE(r.bars().constLast().date(), QDate(2012, 9, 25));
    int flatDays = 0;
    for (int i = 0; i < r.count(); ++i) {
        const QuoteBar &b = r.bar(i);
        QVERIFY2(b.date().dayOfWeek() <= 5, qPrintable(b.date().toString()));
        QVERIFY(i == 0 || r.bar(i - 1).date() < b.date());
        QVERIFY(b.low() > 0);
        QVERIFY(b.low() <= b.open() && b.open() <= b.high());
        QVERIFY(b.low() <= b.close() && b.close() <= b.high());
        QVERIFY(b.volume() > 0);
        flatDays += b.open() == b.close();
    }
    // Some open = close days give the pattern recogniser dojis to find.
    QVERIFY(flatDays > 0);
}

QTEST_GUILESS_MAIN(TestSamples)
#include "test_samples.moc"
