// The oscillators: hand-computed cases from fixture files, the guards every indicator
// shares, value bounds on long random series, and the fast window routines against the
// straightforward rescans and branches they replace.

#include "indicators/compute/oscillators.h"
#include "indicators/compute/seriesmath.h"

#include <QDir>
#include <QFile>
#include <QTextStream>
#include <QtTest>

#include <algorithm>
#include <cmath>
#include <random>
#include <vector>

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

// The plain forms: each formula as stated, bar by bar, through the plain series routines
// under their own guards. The computations reach the same values by fused loops, vector
// clones and chunks, and must do so to the bit.
namespace Plain {
using Buffers = QMap<QString, Series>;

int at(const Params &p, const char *name)
{
    return int(p.value(QLatin1String(name)));
}

Series minus(Series a, const Series &b)
{
    for (int i = 0; i < a.size(); ++i)
        a[i] -= b[i];
    return a;
}

Series closing(const QVector<QuoteBar> &b)
{
    Series c;
    for (const QuoteBar &bar : b)
        c.append(bar.close());
    return c;
}

Buffers one(const char *name, const Series &values)
{
    return {{QLatin1String(name), values}};
}

Buffers macd(const QVector<QuoteBar> &b, const Params &p)
{
    const Series line = minus(ema(at(p, "FastEMA"), closing(b)), ema(at(p, "SlowEMA"), closing(b)));
    return {{QStringLiteral("MACD"), line}, {QStringLiteral("SMA"), ema(at(p, "Signal"), line)}};
}

Buffers osma(const QVector<QuoteBar> &b, const Params &p)
{
    const Buffers lines = macd(b, p);
    return one("OsMA", minus(lines.first(), lines.last()));
}

Buffers impuls(const QVector<QuoteBar> &b, const Params &p)
{
    const Params asMacd = {{QStringLiteral("FastEMA"), p.value(QStringLiteral("MACD_Fast"))},
                           {QStringLiteral("SlowEMA"), p.value(QStringLiteral("MACD_Slow"))},
                           {QStringLiteral("Signal"), p.value(QStringLiteral("MACD_Signal"))}};
    const Series e = ema(at(p, "EMA_Period"), closing(b));
    Series slope(e.size(), 0.0f);
    for (int i = 1; i < e.size(); ++i)
        slope[i] = e[i] - e[i - 1];
    return {{QStringLiteral("Impuls"), osma(b, asMacd).first()},
            {QStringLiteral("ImpulsD"), slope}};
}

Buffers cho(const QVector<QuoteBar> &b, const Params &p)
{
    const Series ad = computeAD(b, Params()).buffers.first();
    return one("CHO", minus(ema(at(p, "Period1"), ad), ema(at(p, "Period2"), ad)));
}

// Rescans from the sentinels 1e6 and -1e6.
Buffers stochastic(const QVector<QuoteBar> &b, const Params &p)
{
    const int kp = at(p, "KPeriod"), slowing = at(p, "Slowing"), n = b.size();
    Series k(n, 0.0f);
    for (int i = kp + slowing - 2; n > kp && n > slowing && i < n; ++i) {
        float above = 0.0f, range = 0.0f;
        for (int j = i; j > i - slowing; --j) {
            float ll = 1000000.0f, hh = -1000000.0f;
            for (int m = j; m > j - kp; --m) {
                ll = b[m].low() < ll ? b[m].low() : ll;
                hh = b[m].high() > hh ? b[m].high() : hh;
            }
            above += b[j].close() - ll;
            range += hh - ll;
        }
        k[i] = range == 0.0f ? 100.0f : above / range * 100.0f;
    }
    return {{QStringLiteral("K"), k}, {QStringLiteral("D"), sma(at(p, "DPeriod"), k)}};
}

// Gains and losses with branches.
Buffers rsi(const QVector<QuoteBar> &b, const Params &p)
{
    const int period = at(p, "Period"), n = b.size();
    Series r(n, 0.0f);
    float gain = 0.0f, loss = 0.0f;
    for (int i = 1; n > period && i < n; ++i) {
        const float c = b[i].close() - b[i - 1].close();
        const float g = c > 0.0f ? c : 0.0f;
        const float l = c <= 0.0f ? -c : 0.0f;
        gain = i <= period ? gain + g : (gain * float(period - 1) + g) / float(period);
        loss = i <= period ? loss + l : (loss * float(period - 1) + l) / float(period);
        gain /= i == period ? float(period) : 1.0f;
        loss /= i == period ? float(period) : 1.0f;
        r[i] = i < period || loss == 0.0f ? 0.0f : 100.0f - 100.0f / (1.0f + gain / loss);
    }
    return one("RSI", r);
}

Buffers obv(const QVector<QuoteBar> &b, const Params &)
{
    Series r(b.size(), float(b.value(0).volume()));
    for (int i = 1; i < b.size(); ++i) {
        const float v = float(b[i].volume());
        const float c = b[i].close() - b[i - 1].close();
        r[i] = c > 0.0f ? r[i - 1] + v : c < 0.0f ? r[i - 1] - v : r[i - 1];
    }
    return one("OBV", r);
}

// Conditional sums over each window.
Buffers mfi(const QVector<QuoteBar> &b, const Params &p)
{
    const int period = at(p, "Period"), n = b.size();
    Series r(n, 0.0f);
    for (int i = period; period >= 1 && i < n; ++i) {
        float up = 0.0f, down = 0.0f;
        for (int j = i; j > i - period; --j) {
            const float t = typicalPrice(b[j]), before = typicalPrice(b[j - 1]);
            up += t > before ? float(b[j].volume()) * t : 0.0f;
            down += t < before ? float(b[j].volume()) * t : 0.0f;
        }
        r[i] = down == 0.0f ? 100.0f : 100.0f - 100.0f / (1.0f + up / down);
    }
    return one("MFI", r);
}

Series changes(const Series &v, int period, bool quotient)
{
    Series r(v.size(), 0.0f);
    for (int i = std::max(period, 1); i < v.size(); ++i) {
        const float base = v[i - period], d = v[i] - base;
        r[i] = quotient       ? float(double(v[i]) / double(base) * 100.0)
               : base == 0.0f ? d
                              : d * 100.0f / base;
    }
    return r;
}

Buffers roc(const QVector<QuoteBar> &b, const Params &p)
{
    return one("ROC", changes(closing(b), at(p, "Period"), false));
}

Buffers vroc(const QVector<QuoteBar> &b, const Params &p)
{
    Series v;
    for (const QuoteBar &bar : b)
        v.append(float(bar.volume()));
    return one("VROC", changes(v, at(p, "Period"), false));
}

Buffers momentum(const QVector<QuoteBar> &b, const Params &p)
{
    return one("Momentum", changes(closing(b), at(p, "Period"), true));
}

Buffers atr(const QVector<QuoteBar> &b, const Params &p)
{
    Series tr;
    for (int i = 0; i < b.size(); ++i)
        tr.append(i == 0 ? b[i].high() - b[i].low()
                         : std::max(b[i].high(), b[i - 1].close()) -
                               std::min(b[i].low(), b[i - 1].close()));
    return one("ATR", sma(at(p, "Period"), tr));
}

// The mean deviation rescanned for every bar.
Buffers cci(const QVector<QuoteBar> &b, const Params &p)
{
    const int period = at(p, "Period"), n = b.size();
    Series tp, r(n, 0.0f);
    for (const QuoteBar &bar : b)
        tp.append(typicalPrice(bar));
    const Series m = sma(period, tp);
    for (int i = period - 1; n > period && i < n; ++i) {
        float sum = 0.0f;
        for (int j = i; j > i - period; --j)
            sum += std::fabs(tp[j] - m[i]);
        const float md = sum / float(period);
        r[i] = md == 0.0f ? 0.0f : (tp[i] - m[i]) / (0.015f * md);
    }
    return one("CCI", r);
}

// Ehlers' weights (1, 2, 2, 1) / 6 and the window sums rescanned for every bar.
Buffers rvi(const QVector<QuoteBar> &b, const Params &p)
{
    const int period = at(p, "Period"), n = b.size();
    const auto weighted = [](const Series &x, int i) {
        return (x[i] + 2.0f * x[i - 1] + 2.0f * x[i - 2] + x[i - 3]) / 6.0f;
    };
    Series body, range, r(n, 0.0f), signal(n, 0.0f);
    for (const QuoteBar &bar : b) {
        body.append(bar.close() - bar.open());
        range.append(bar.high() - bar.low());
    }
    for (int i = period + 2; n > period && i < n; ++i) {
        float up = 0.0f, down = 0.0f;
        for (int j = i; j > i - period; --j) {
            up += weighted(body, j);
            down += weighted(range, j);
        }
        r[i] = down == 0.0f ? 0.0f : up / down;
    }
    for (int i = period + 5; n > period && i < n; ++i)
        signal[i] = weighted(r, i);
    return {{QStringLiteral("RVI"), r}, {QStringLiteral("RVISignal"), signal}};
}
} // namespace Plain

// A plain form, and the periods of its indicator with values that leave every one of them
// shorter than the test series.
struct PlainForm
{
    const char *id;
    Plain::Buffers (*compute)(const QVector<QuoteBar> &, const Params &);
    std::vector<std::pair<const char *, float>> periods;
};

const PlainForm plainForms[] = {
    {"MACD", &Plain::macd, {{"FastEMA", 5}, {"SlowEMA", 13}, {"Signal", 4}}},
    {"OsMA", &Plain::osma, {{"FastEMA", 5}, {"SlowEMA", 13}, {"Signal", 4}}},
    {"Impuls",
     &Plain::impuls,
     {{"MACD_Fast", 5}, {"MACD_Slow", 13}, {"MACD_Signal", 4}, {"EMA_Period", 7}}},
    {"CHO", &Plain::cho, {{"Period1", 3}, {"Period2", 10}}},
    {"Stochastic", &Plain::stochastic, {{"KPeriod", 14}, {"DPeriod", 3}, {"Slowing", 3}}},
    {"RSI", &Plain::rsi, {{"Period", 7}}},
    {"OBV", &Plain::obv, {}},
    {"MFI", &Plain::mfi, {{"Period", 14}}},
    {"ROC", &Plain::roc, {{"Period", 12}}},
    {"VROC", &Plain::vroc, {{"Period", 25}}},
    {"Momentum", &Plain::momentum, {{"Period", 14}}},
    {"ATR", &Plain::atr, {{"Period", 14}}},
    {"CCI", &Plain::cci, {{"Period", 14}}},
    {"RVI", &Plain::rvi, {{"Period", 10}}}};

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
        // Each fused, wide or chunked computation against its plain form: on a long walk, on
        // one beyond the stochastic's sentinels, and with each period in turn set to 40 over
        // 39, 40 and 41 bars, where the guard of that period alone decides.
        QTest::addColumn<QString>("id");
        QTest::addColumn<Params>("params");
        QTest::addColumn<int>("n");
        QTest::addColumn<float>("scale");
        for (const PlainForm &form : plainForms) {
            Params base;
            for (const auto &[name, value] : form.periods)
                base.insert(QLatin1String(name), value);
            const QString id = QLatin1String(form.id);
            QTest::addRow("%s-long-walk", form.id) << id << base << 5000 << 1.0f;
            QTest::addRow("%s-beyond-the-sentinels", form.id) << id << base << 5000 << 20000.0f;
            for (const auto &period : form.periods) {
                Params params = base;
                params.insert(QLatin1String(period.first), 40);
                for (int n : {39, 40, 41})
                    QTest::addRow("%s-%s-40-over-%d-bars", form.id, period.first, n)
                        << id << params << n << 1.0f;
            }
        }
    }

    void fastFormsMatchPlainForms()
    {
        QFETCH(QString, id);
        QFETCH(Params, params);
        QFETCH(int, n);
        QFETCH(float, scale);
        const QVector<QuoteBar> bars = randomWalk(n, 42, scale);
        const auto form =
            std::find_if(std::begin(plainForms), std::end(plainForms),
                         [&](const PlainForm &f) { return id == QLatin1String(f.id); });
        const Plain::Buffers expected = form->compute(bars, params);
        const Plain::Buffers got = computation(id)(bars, params).buffers;
        QCOMPARE(got.keys(), expected.keys());
        for (auto it = expected.cbegin(); it != expected.cend(); ++it)
            QVERIFY2(firstDifference(got.value(it.key()), *it) < 0,
                     qPrintable(it.key() + QStringLiteral(" differs at bar %1")
                                               .arg(firstDifference(got.value(it.key()), *it))));
    }
};

QTEST_GUILESS_MAIN(TestOscillators)
#include "test_oscillators.moc"
