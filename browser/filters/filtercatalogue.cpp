#include "filtercatalogue.h"

#include "filtertests.h"

#include <cmath>

namespace OrdaneBrowser {

namespace {

// The key of a label: "&RSI Period:" is set as "RSI Period".
QString keyOf(QString label)
{
    label.remove(QLatin1Char('&'));
    label = label.trimmed();
    if (label.endsWith(QLatin1Char(':')))
        label.chop(1);
    return label.trimmed();
}

QStringList texts(std::initializer_list<const char *> items)
{
    QStringList list;
    for (const char *item : items)
        list << QLatin1String(item);
    return list;
}

FilterControl control(const char *label, FilterControl::Kind kind, double value = 0,
                      double minimum = 0, double maximum = 0)
{
    FilterControl c;
    c.label = QLatin1String(label);
    c.kind = kind;
    c.value = value;
    c.minimum = minimum;
    c.maximum = maximum;
    return c;
}

FilterControl integer(const char *label, double value, double minimum, double maximum)
{
    return control(label, FilterControl::Integer, value, minimum, maximum);
}

FilterControl decimal(const char *label, double value, double minimum, double maximum)
{
    return control(label, FilterControl::Decimal, value, minimum, maximum);
}

FilterControl choice(const char *label, std::initializer_list<const char *> items)
{
    FilterControl c = control(label, FilterControl::Choice);
    c.items = texts(items);
    return c;
}

// The unlabelled comparison beside a level.
FilterControl comparison()
{
    return choice("", {"Higher", "Lower"});
}

FilterControl timeFrame(std::initializer_list<const char *> frames = {"Day", "Week", "Month"})
{
    return choice("Time Frame:", frames);
}

FilterControl range(const char *label, double lower, double upper, double minimum, double maximum)
{
    FilterControl c = control(label, FilterControl::Range, lower, minimum, maximum);
    c.value2 = upper;
    return c;
}

// The four rules of a crossing of A over B.
FilterControl crossingRule(const char *a, const char *b)
{
    const QString A = QLatin1String(a);
    const QString B = QLatin1String(b);
    FilterControl c = control("Rule:", FilterControl::Choice);
    c.items = QStringList{A + QLatin1String(" Higher ") + B + QLatin1String(" (Just Signaled)"),
                          A + QLatin1String(" Higher ") + B,
                          A + QLatin1String(" Lower ") + B + QLatin1String(" (Just Signaled)"),
                          A + QLatin1String(" Lower ") + B};
    return c;
}

const char *const kSelection = "&Apply Selection";
const char *const kSelected = "&Apply selected";

// A catalogue row: the controls get their keys and the closing "As of:".
FilterSpec filter(const char *name, QVector<FilterControl> controls,
                  std::initializer_list<const char *> columns, const char *applyText,
                  FilterTest test)
{
    FilterSpec spec;
    spec.name = QLatin1String(name);
    controls.append(control("As of:", FilterControl::Date));
    bool hasRule = false;
    for (const FilterControl &c : controls)
        hasRule = hasRule || c.label == QLatin1String("Rule:");
    for (FilterControl &c : controls)
        c.key =
            !c.label.isEmpty() ? keyOf(c.label) : QLatin1String(hasRule ? "Level Rule" : "Rule");
    spec.controls = controls;
    spec.columns = texts(columns);
    spec.applyText = QLatin1String(applyText);
    spec.test = test;
    return spec;
}

QVector<FilterSpec> makeCatalogue()
{
    using namespace FilterTests;
    QVector<FilterSpec> table;

    FilterSpec fillSpec = filter("Fill",
                                 {integer("&Minimal file size (KB):", 1, 0, 10000000),
                                  control("Exchanges:", FilterControl::Exchanges)},
                                 {"Symbol"}, "&Apply", &fill);
    fillSpec.caption = QStringLiteral("Fill the browser window with the symbols, according \n"
                                      " to the rules applied to the local data");
    fillSpec.storedSymbols = true;
    fillSpec.readsSeries = false;
    table << fillSpec;

    table << filter(
        "Trend", {choice("&Trend type:", {"Up", "Down"}), integer("&Period (Days):", 25, 1, 10000)},
        {"Symbol", "Performance"}, kSelected, &trend);
    table << filter("VolumeFilter",
                    {integer("&Period (Days):", 65, 1, 10000), decimal("Begin:", 1e5, 0, 1e12),
                     decimal("End:", 1e9, 0, 1e12)},
                    {"Symbol", "Average Day Volume"}, kSelected, &volume);
    table << filter("RSIFilter",
                    {integer("&RSI Period:", 7, 1, 100), timeFrame(), integer("Level:", 30, 0, 100),
                     comparison()},
                    {"Symbol", "RSI Value"}, kSelection, &rsi);
    table << filter("StochasticFilter",
                    {integer("&K Period:", 14, 1, 100), integer("&D Period:", 3, 1, 100),
                     integer("&Slowing:", 3, 1, 100), timeFrame(), integer("K Level:", 30, 0, 100),
                     comparison(), crossingRule("K", "D")},
                    {"Symbol", "K Value", "D Value"}, kSelection, &stochastic);
    table << filter("TimeMachine",
                    {choice("&Trend type:", {"Up", "Down"}),
                     integer("&Period (Days):", 25, 1, 10000),
                     control("Start", FilterControl::Date)},
                    {"Symbol", "Performance"}, kSelected, &timeMachine);
    table << filter("Price", {range("Price Range:", 0, 10000, 0, 1e9)}, {"Symbol", "Current Price"},
                    kSelected, &price);
    table << filter("UpToDate", {integer("UpToDate Distance:", 0, 0, 100)}, {"Symbol"}, kSelected,
                    &upToDate);
    table << filter("VolumeBreakOut",
                    {integer("&Observation Period (Days):", 22, 1, 10000),
                     integer("&N Times greater than previous:", 2, 2, 100)},
                    {"Symbol", "BreakOut", "Date"}, kSelected, &volumeBreakOut);
    table << filter("MoneyFlow",
                    {integer("&Period (Days):", 65, 1, 10000), integer("&Min:", 30000, 100, 9e8)},
                    {"Symbol", "MoneyFlow(Day)"}, kSelected, &moneyFlow);
    table << filter("MovingAverage",
                    {integer("&MA1 Period:", 5, 1, 350), integer("M&A2 Period:", 8, 1, 350),
                     timeFrame(), crossingRule("MA1", "MA2")},
                    {"Symbol"}, kSelection, &movingAverage);
    table << filter("HCVolatilityFilter",
                    {integer("&HCVolatility Period:", 26, 1, 100), timeFrame(),
                     decimal("Level:", 0, -1e9, 1e9), comparison()},
                    {"Symbol", "HCVolatility Value"}, kSelection, &hcVolatility);
    table << filter("MedianFilter",
                    {integer("&M1 Period:", 5, 1, 350), integer("M&2 Period:", 8, 1, 350),
                     timeFrame(), crossingRule("M1", "M2")},
                    {"Symbol"}, kSelection, &median);
    table << filter("DPOFilter",
                    {integer("&DPO Period:", 20, 1, 100), timeFrame(), integer("Level:", 0, 0, 100),
                     comparison()},
                    {"Symbol", "DPO Value"}, kSelection, &dpo);
    FilterSpec peSpec = filter("PE", {range("PE Range:", 0, 20, -1e6, 1e6)},
                               {"Symbol", "Current PE"}, kSelected, &pe);
    peSpec.title = QStringLiteral("P/E Ratio");
    table << peSpec;
    table << filter("ImpulsFilter",
                    {integer("MACD_Fast:", 14, 1, 350), integer("MACD_Slow:", 32, 1, 350),
                     integer("MACD_Signal:", 9, 1, 350), integer("EMA_Period:", 26, 1, 350),
                     timeFrame(),
                     choice("Rule:", {"green", "blue", "blue or red", "blue or green",
                                      "just turned red", "just turned green", "just turned blue",
                                      "just turned blue from red", "just turned blue from green"})},
                    {"Symbol"}, kSelection, &impuls);
    table << filter("ConsolidationFilter",
                    {integer("Interval:", 4, 1, 100), timeFrame({"Week", "Month", "Quartal"}),
                     choice("Type:", {"Close", "Open+Close"})},
                    {"Symbol", "Duration", "Cons.High", "Cons.Low", "Last Close", "Volume"},
                    kSelection, &consolidation);
    return table;
}

const FilterControl *controlOf(const FilterSpec &spec, const QString &key)
{
    for (const FilterControl &c : spec.controls)
        if (c.key.compare(key, Qt::CaseInsensitive) == 0)
            return &c;
    return nullptr;
}

QVariant defaultOf(const FilterControl &c)
{
    switch (c.kind) {
    case FilterControl::Integer:
    case FilterControl::Decimal:
        return c.value;
    case FilterControl::Choice:
        return c.items.value(int(c.value));
    case FilterControl::Date:
        return QDate();
    case FilterControl::Range:
        return QVariantList{c.value, c.value2};
    case FilterControl::Exchanges:
        return QStringList{QStringLiteral("*")};
    }
    return QVariant();
}

QString numberText(double v)
{
    return QString::number(v, 'g', 12);
}

// A number for control `c` from text; false with *error when it is none or out of range.
bool readNumber(const FilterControl &c, const QString &text, double *value, QString *error)
{
    bool ok = false;
    const double v = text.toDouble(&ok);
    if (!ok || !std::isfinite(v) || (c.kind == FilterControl::Integer && v != std::floor(v))) {
        *error = QStringLiteral("%1 expects %2, not \"%3\"")
                     .arg(c.key,
                          QLatin1String(c.kind == FilterControl::Integer ? "a whole number"
                                                                         : "a number"),
                          text);
        return false;
    }
    if (v < c.minimum || v > c.maximum) {
        *error = QStringLiteral("%1 must lie within %2 .. %3, not %4")
                     .arg(c.key, numberText(c.minimum), numberText(c.maximum), text);
        return false;
    }
    *value = v;
    return true;
}

} // namespace

const QVector<FilterSpec> &filterCatalogue()
{
    static const QVector<FilterSpec> table = makeCatalogue();
    return table;
}

const FilterSpec *findFilter(const QString &name)
{
    for (const FilterSpec &spec : filterCatalogue())
        if (spec.name == name)
            return &spec;
    return nullptr;
}

FilterValues defaultValues(const FilterSpec &spec)
{
    FilterValues values;
    for (const FilterControl &c : spec.controls)
        values.insert(c.key, defaultOf(c));
    return values;
}

bool setFilterValue(const FilterSpec &spec, FilterValues &values, const QString &assignment,
                    QString *error)
{
    QString ignored;
    QString &message = error ? *error : ignored;
    const int equals = assignment.indexOf(QLatin1Char('='));
    const QString key = keyOf(equals < 0 ? assignment : assignment.left(equals));
    const FilterControl *c = controlOf(spec, key);
    if (!c) {
        QStringList keys;
        for (const FilterControl &each : spec.controls)
            keys << each.key;
        message = QStringLiteral("%1 has no control \"%2\" (its controls: %3)")
                      .arg(spec.name, key, keys.join(QLatin1String(", ")));
        return false;
    }
    if (equals < 0) {
        message = QStringLiteral("expected %1=VALUE").arg(c->key);
        return false;
    }
    const QString text = assignment.mid(equals + 1).trimmed();
    switch (c->kind) {
    case FilterControl::Integer:
    case FilterControl::Decimal: {
        double v = 0;
        if (!readNumber(*c, text, &v, &message))
            return false;
        values.insert(c->key, v);
        return true;
    }
    case FilterControl::Choice:
        for (const QString &item : c->items) {
            if (item.compare(text, Qt::CaseInsensitive) == 0) {
                values.insert(c->key, item);
                return true;
            }
        }
        message = QStringLiteral("\"%1\" is not an item of %2 (its items: %3)")
                      .arg(text, c->key, c->items.join(QLatin1String(", ")));
        return false;
    case FilterControl::Date: {
        // Empty: back to the default, the newest day.
        const QDate date = QDate::fromString(text, QStringLiteral("yyyy-MM-dd"));
        if (!text.isEmpty() && !date.isValid()) {
            message = QStringLiteral("%1 expects a date yyyy-MM-dd, not \"%2\"").arg(c->key, text);
            return false;
        }
        values.insert(c->key, date);
        return true;
    }
    case FilterControl::Range: {
        const QStringList bounds = text.split(QStringLiteral(".."));
        double lower = 0;
        double upper = 0;
        if (bounds.size() != 2) {
            message = QStringLiteral("%1 expects lower..upper, not \"%2\"").arg(c->key, text);
            return false;
        }
        if (!readNumber(*c, bounds.at(0).trimmed(), &lower, &message) ||
            !readNumber(*c, bounds.at(1).trimmed(), &upper, &message))
            return false;
        if (lower > upper) {
            message = QStringLiteral("%1: the lower bound %2 lies above the upper %3")
                          .arg(c->key, numberText(lower), numberText(upper));
            return false;
        }
        values.insert(c->key, QVariantList{lower, upper});
        return true;
    }
    case FilterControl::Exchanges: {
        QStringList codes;
        for (const QString &code : text.split(QLatin1Char(',')))
            codes << code.trimmed();
        values.insert(c->key, codes);
        return true;
    }
    }
    return false;
}

int filterTimeFrame(const FilterValues &values)
{
    // OrdaneData::Day, Week, Month, Quarter; "Quartal" is how the consolidation filter names it.
    static const QStringList frames = texts({"Day", "Week", "Month", "Quartal"});
    return std::max(frames.indexOf(values.value(QStringLiteral("Time Frame")).toString()), 0);
}

QString filterNumber(double value)
{
    QString text = QString::number(value, 'f', 3);
    if (text == QLatin1String("-0.000")) // a small negative rounds to zero, not below it
        text.remove(0, 1);
    return text.rightJustified(12, QLatin1Char(' '));
}

const QVector<VolumePreset> &volumePresets()
{
    static const QVector<VolumePreset> presets = {
        {QStringLiteral("Micro"), 0, 1e5},
        {QStringLiteral("Minor"), 1e5, 1e6},
        {QStringLiteral("Major"), 1e6, 1e7},
        {QStringLiteral("Macro"), 1e7, 1e12},
    };
    return presets;
}

// What the tests share.
namespace FilterTests {

namespace {
QVariant valueOf(const FilterSpec &spec, const FilterValues &values, const QString &key)
{
    const auto it = values.constFind(key);
    if (it != values.constEnd())
        return it.value();
    const FilterControl *c = controlOf(spec, key);
    return c ? defaultOf(*c) : QVariant();
}
} // namespace

double number(const FilterSpec &spec, const FilterValues &values, const QString &key)
{
    return valueOf(spec, values, key).toDouble();
}

QString text(const FilterSpec &spec, const FilterValues &values, const QString &key)
{
    return valueOf(spec, values, key).toString();
}

int choice(const FilterSpec &spec, const FilterValues &values, const QString &key)
{
    const FilterControl *c = controlOf(spec, key);
    return c ? c->items.indexOf(text(spec, values, key)) : -1;
}

QDate date(const FilterSpec &spec, const FilterValues &values, const QString &key)
{
    return valueOf(spec, values, key).toDate();
}

std::pair<double, double> range(const FilterSpec &spec, const FilterValues &values,
                                const QString &key)
{
    const QVariantList bounds = valueOf(spec, values, key).toList();
    if (bounds.size() != 2)
        return {0, -1}; // holds nothing
    return {bounds.at(0).toDouble(), bounds.at(1).toDouble()};
}

QStringList list(const FilterSpec &spec, const FilterValues &values, const QString &key)
{
    return valueOf(spec, values, key).toStringList();
}

bool beyond(double value, double level, const QString &rule)
{
    return rule == QLatin1String("Lower") ? value < level : value > level;
}

FilterRow row(const FilterInput &input, std::initializer_list<double> numbers)
{
    FilterRow r;
    r.symbol = input.symbol;
    for (double n : numbers)
        r.values << filterNumber(n);
    return r;
}

} // namespace FilterTests

} // namespace OrdaneBrowser
