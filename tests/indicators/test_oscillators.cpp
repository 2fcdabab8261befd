// The oscillators: hand-computed cases from fixture files, the guards every indicator
// shares, value bounds on long random series, and the fast window routines against the
// straightforward rescans and branches they replace.

#include "indicators/compute/oscillators.h"
#include "indicators/compute/seriesmath.h"

#include <QDir>
#include <QFile>
#include <QTextStream>
#include <QtTest>

#include <cmath>
#include <random>

using namespace Indicators;
using namespace Indicators::OscillatorParts;

namespace {
// Every identifier with the computation of the same name.
#define ENTRY(id) std::pair<const char *, Computation>(#id, &compute##id)
const std::pair<const char *, Computation> table[] = {
    ENTRY(MACD), ENTRY(OsMA),     ENTRY(Impuls), ENTRY(RSI),        ENTRY(Momentum),
    ENTRY(ROC),  ENTRY(VROC),     ENTRY(Bears),  ENTRY(Bulls),      ENTRY(Volume),
    ENTRY(OBV),  ENTRY(AD),       ENTRY(CHO),    ENTRY(CHV),        ENTRY(MFI),
    ENTRY(FRC),  ENTRY(DeMarker), ENTRY(ATR),    ENTRY(Stochastic), ENTRY(WilliamsPR),
    ENTRY(CCI),  ENTRY(RVI),      ENTRY(DI),     ENTRY(ADX),        ENTRY(DPO)};
#undef ENTRY

Computation computation(const QString &id)
{
    for (const auto &[name, compute] : table)
        if (id == QLatin1String(name))
            return compute;
    return nullptr;
}

Series buffer(const char *id, const QVector<QuoteBar> &bars, const char *name)
{
    return computation(QLatin1String(id))(bars, Params()).buffers.value(QLatin1String(name));
}

// A seeded random walk on a grid of 1/64 (exact in float), so that unchanged closes, flat
// bars and zero volumes occur; every bar keeps low <= open, close <= high.
QVector<QuoteBar> randomWalk(int n, unsigned seed, float scale = 1.0f)
{
    std::mt19937 rng(seed);
    std::uniform_int_distribution<int> step(-3, 3);
    std::uniform_int_distribution<int> wick(0, 3);
    QVector<QuoteBar> bars;
    int close = 6400;
    for (int i = 0; i < n; ++i) {
        const int open = close;
        close = std::max(1, close + step(rng));
        const float high = float(std::max(open, close) + wick(rng)) * scale / 64.0f;
        const float low = float(std::max(0, std::min(open, close) - wick(rng))) * scale / 64.0f;
        bars.append(QuoteBar(QDate(2000, 1, 3).addDays(i), float(open) * scale / 64.0f, high, low,
                             float(close) * scale / 64.0f, qint64(rng() % 21) * 1000));
    }
    return bars;
}

// The first index where two series differ (NaN equals NaN), or -1.
int firstDifference(const Series &a, const Series &b)
{
    for (int i = 0; i < std::max(a.size(), b.size()); ++i)
        if (i >= a.size() || i >= b.size() || !(a[i] == b[i] || (a[i] != a[i] && b[i] != b[i])))
            return i;
    return -1;
}

struct Case
{
    QString id;
    Params params;
    QVector<QuoteBar> bars;
    QMap<QString, Series> expected;
    QString colours;
    float tolerance = 0.0f;
};

// Reads a fixture; the format is described in the fixture folder's README.md.
Case readCase(const QString &path)
{
    Case c;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text))
        return c;
    QTextStream in(&file);
    while (!in.atEnd()) {
        const QStringList f = in.readLine().split(QLatin1Char(' '), Qt::SkipEmptyParts);
        const QString key = f.value(0);
        if (key == QLatin1String("indicator"))
            c.id = f.value(1);
        else if (key == QLatin1String("param"))
            c.params.insert(f.value(1), f.value(2).toFloat());
        else if (key == QLatin1String("bar"))
            c.bars.append(QuoteBar(QDate(2000, 1, 3).addDays(c.bars.size()), f.value(1).toFloat(),
                                   f.value(2).toFloat(), f.value(3).toFloat(), f.value(4).toFloat(),
                                   f.value(5).toLongLong()));
        else if (key == QLatin1String("colours"))
            c.colours = f.mid(1).join(QString());
        else if (key == QLatin1String("tolerance"))
            c.tolerance = f.value(1).toFloat();
        else if (key == QLatin1String("expect"))
            for (const QString &v : f.mid(2))
                c.expected[f.value(1)].append(v == QLatin1String("nan")   ? NAN
                                              : v == QLatin1String("inf") ? INFINITY
                                                                          : v.toFloat());
    }
    return c;
}

QDir fixtures()
{
    return QDir(QFINDTESTDATA("../data/indicators/oscillators"));
}
} // namespace

class TestOscillators : public QObject
{
    Q_OBJECT

private slots:
    void handComputed_data()
    {
        // One row a fixture, and every identifier needs at least one.
        QTest::addColumn<QString>("path");
        const QStringList files = fixtures().entryList({QStringLiteral("*.txt")}, QDir::Files);
        QSet<QString> covered;
        for (const QString &f : files) {
            covered.insert(readCase(fixtures().filePath(f)).id);
            QTest::newRow(qPrintable(QFileInfo(f).completeBaseName())) << fixtures().filePath(f);
        }
        for (const auto &entry : table)
            QVERIFY2(covered.contains(QLatin1String(entry.first)), entry.first);
    }

    void handComputed()
    {
        QFETCH(QString, path);
        const Case c = readCase(path);
        QVERIFY2(computation(c.id), qPrintable(c.id));
        const Result r = computation(c.id)(c.bars, c.params);
        QCOMPARE(r.buffers.keys(), c.expected.keys());
        for (auto it = c.expected.cbegin(); it != c.expected.cend(); ++it) {
            const Series got = r.buffers.value(it.key());
            QCOMPARE(got.size(), it->size());
            for (int i = 0; i < got.size(); ++i) {
                const float want = it->at(i);
                const bool near = std::abs(got[i] - want) <= c.tolerance * std::abs(want);
                QVERIFY2(
                    near || firstDifference({got[i]}, {want}) < 0,
                    qPrintable(QStringLiteral("%1[%2] = %3").arg(it.key()).arg(i).arg(got[i])));
            }
        }
        const QMap<QRgb, QChar> legend = {{qRgb(0x32, 0xCD, 0x32), QLatin1Char('G')},
                                          {qRgb(0xFF, 0x00, 0x00), QLatin1Char('R')},
                                          {qRgb(0x00, 0x00, 0xFF), QLatin1Char('B')}};
        QString colours;
        for (int bar : r.barColours.keys()) {
            QCOMPARE(bar, colours.size());
            colours += legend.value(r.barColours.value(bar).rgb(), QLatin1Char('?'));
        }
        QCOMPARE(colours, c.colours);
    }

    void boundsAndWindowsOnALongWalk()
    {
        // Bounded values stay within their scale. A windowed value sees only its window:
        // dropping the first 1000 bars leaves the values past the warm-up as they were.
        const QVector<QuoteBar> bars = randomWalk(20000, 2024);
        const float inf = INFINITY;
        const struct
        {
            const char *id, *name;
            float low, high;
            bool windowed;
        } checks[] = {
            {"Stochastic", "K", 0, 100, true}, {"Stochastic", "D", 0, 100, true},
            {"RSI", "RSI", 0, 100, false},     {"MFI", "MFI", 0, 100, true},
            {"ADX", "+DI", 0, 100, false},     {"ADX", "-DI", 0, 100, false},
            {"ADX", "ADX", 0, 100, false},     {"WilliamsPR", "WilliamsPR", -100, 0, true},
            {"CCI", "CCI", -inf, inf, true},   {"RVI", "RVISignal", -inf, inf, true},
            {"ATR", "ATR", 0, inf, true},      {"DPO", "DPO", -inf, inf, true}};
        for (const auto &c : checks) {
            const Series s = buffer(c.id, bars, c.name);
            for (int i = 0; i < s.size(); ++i)
                QVERIFY2(s[i] >= c.low && s[i] <= c.high, c.name);
            if (c.windowed)
                QVERIFY2(
                    firstDifference(s.mid(1100), buffer(c.id, bars.mid(1000), c.name).mid(100)) < 0,
                    c.name);
        }
    }

    void windowRoutinesMatchRescans_data()
    {
        QTest::addColumn<int>("period");
        QTest::addColumn<int>("n");
        for (int p : {1, 3, 4, 14, 256, 257})
            for (int n : {p - 1, p, 1203})
                QTest::addRow("period-%d-%d-values", p, n) << p << n;
    }

    void windowRoutinesMatchRescans()
    {
        // Values of very different size, so that another order of addition would show.
        QFETCH(int, period);
        QFETCH(int, n);
        std::mt19937 rng(99);
        std::uniform_real_distribution<float> u(-1.0f, 1.0f);
        Series values(n), means(n), lowest(n), highest(n), sums(n, 0.0f), deviations(n, 0.0f);
        for (int i = 0; i < n; ++i) {
            values[i] = u(rng) * std::pow(10.0f, float(rng() % 9));
            means[i] = u(rng) * 1000.0f;
            const auto from = values.begin() + std::max(0, i - period + 1);
            lowest[i] = *std::min_element(from, values.begin() + i + 1);
            highest[i] = *std::max_element(from, values.begin() + i + 1);
            for (int j = i; j > i - period && i >= period - 1; --j) {
                sums[i] += values[j];
                deviations[i] += std::fabs(values[j] - means[i]);
            }
            deviations[i] /= float(period);
        }
        Series slidLow = values, slidHigh = values;
        slideExtremes(period, slidLow, slidHigh);
        QCOMPARE(firstDifference(slidLow, lowest), -1);
        QCOMPARE(firstDifference(slidHigh, highest), -1);
        QCOMPARE(firstDifference(windowSums(period, values), sums), -1);
        QCOMPARE(firstDifference(meanDeviations(period, values, means), deviations), -1);
    }

    void fastFormsMatchPlainForms_data()
    {
        QTest::addColumn<float>("scale");
        QTest::newRow("prices-near-100") << 1.0f;
        QTest::newRow("prices-beyond-the-sentinels") << 20000.0f;
    }

    void fastFormsMatchPlainForms()
    {
        // The plain forms of the steps (rescans from the sentinels, branches, conditional sums)
        // against the computations on a long random walk: identical values.
        QFETCH(float, scale);
        const QVector<QuoteBar> b = randomWalk(5000, 42, scale);
        const int n = b.size();
        Series k(n, 0.0f), rsi(n, 0.0f), obv(n, float(b[0].volume())), mfi(n, 0.0f);
        float gain = 0.0f, loss = 0.0f;
        for (int i = 1; i < n; ++i) {
            const float c = b[i].close() - b[i - 1].close();
            const float g = c > 0.0f ? c : 0.0f;
            const float l = c <= 0.0f ? -c : 0.0f;
            gain = i <= 7 ? gain + g : (gain * 6.0f + g) / 7.0f;
            loss = i <= 7 ? loss + l : (loss * 6.0f + l) / 7.0f;
            gain /= i == 7 ? 7.0f : 1.0f;
            loss /= i == 7 ? 7.0f : 1.0f;
            rsi[i] = i < 7 || loss == 0.0f ? 0.0f : 100.0f - 100.0f / (1.0f + gain / loss);
            const float v = float(b[i].volume());
            obv[i] = c > 0.0f ? obv[i - 1] + v : c < 0.0f ? obv[i - 1] - v : obv[i - 1];
        }
        for (int i = 15; i < n; ++i) {
            float sumLow = 0.0f, sumHigh = 0.0f, up = 0.0f, down = 0.0f;
            for (int j = i; j > i - 3; --j) {
                float ll = 1000000.0f, hh = -1000000.0f;
                for (int m = j; m > j - 14; --m) {
                    ll = b[m].low() < ll ? b[m].low() : ll;
                    hh = b[m].high() > hh ? b[m].high() : hh;
                }
                sumLow += b[j].close() - ll;
                sumHigh += hh - ll;
            }
            k[i] = sumHigh == 0.0f ? 100.0f : sumLow / sumHigh * 100.0f;
            for (int j = i; j > i - 14; --j) {
                const float t = typicalPrice(b[j]), before = typicalPrice(b[j - 1]);
                up += t > before ? float(b[j].volume()) * t : 0.0f;
                down += t < before ? float(b[j].volume()) * t : 0.0f;
            }
            mfi[i] = down == 0.0f ? 100.0f : 100.0f - 100.0f / (1.0f + up / down);
        }
        QCOMPARE(firstDifference(buffer("Stochastic", b, "K"), k), -1);
        QCOMPARE(firstDifference(buffer("RSI", b, "RSI"), rsi), -1);
        QCOMPARE(firstDifference(buffer("OBV", b, "OBV"), obv), -1);
        QCOMPARE(firstDifference(buffer("MFI", b, "MFI").mid(15), mfi.mid(15)), -1);

        // MACD runs its three averages in one loop: the same as one average after another.
        const Series closeSeries = closes(b);
        Series macd = ema(12, closeSeries);
        const Series slow = ema(26, closeSeries);
        for (int i = 0; i < n; ++i)
            macd[i] -= slow[i];
        QCOMPARE(firstDifference(buffer("MACD", b, "MACD"), macd), -1);
        QCOMPARE(firstDifference(buffer("MACD", b, "SMA"), ema(9, macd)), -1);
    }
};

QTEST_GUILESS_MAIN(TestOscillators)
#include "test_oscillators.moc"
