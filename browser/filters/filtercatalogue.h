#pragma once

#include <QDate>
#include <QMap>
#include <QPair>
#include <QString>
#include <QStringList>
#include <QVariant>
#include <QVector>

#include <optional>

namespace OrdaneData {
class MetaData;
class Reader;
} // namespace OrdaneData

namespace OrdaneBrowser {
class FilterWorkspace;
} // namespace OrdaneBrowser

// The filters of the filter dialog as one table: each filter's controls (with their defaults
// and ranges), its result columns, its apply button's text and its test. The dialog builds
// its pages from the table, the command-line tool sets the same controls by name, and a run
// (filterrun.h) applies the test to many symbols. Nothing here uses widgets.
namespace OrdaneBrowser {

// One control of a filter page.
struct FilterControl
{
    enum Kind {
        Integer,   // a spin box: value, minimum, maximum
        Decimal,   // a spin box with decimals: value, minimum, maximum
        Choice,    // a combo box: items, value = the default item's index
        Date,      // a date; value unused (the default is the series' newest day)
        Range,     // two decimal spin boxes, lower and upper: value and value2
        Exchanges, // a checkable list of the metadata store's exchanges, all checked at first
    };

    QString label; // as shown, with its "&" and ":" ("&RSI Period:"); empty for a combo
                   // without a label (the comparison "Higher"/"Lower")
    Kind kind = Integer;
    double value = 0;
    double minimum = 0;
    double maximum = 0;
    QStringList items;
    double value2 = 0; // Range: the upper bound's default

    // The name the control is set by in FilterValues and on the command line: the label
    // without "&" and ":" ("RSI Period"); an unlabelled combo is "Rule", or "Level Rule"
    // when the filter also has a control labelled "Rule:".
    QString key;
};

// What the controls of one filter hold, by key: a double for Integer and Decimal, the item
// text for Choice, a QDate for Date (invalid: the newest day), a QPair-like QVariantList
// {lower, upper} for Range, a QStringList of checked exchange codes for Exchanges. In an
// Exchanges list, "" stands for the symbols without a known exchange (no metadata record, or
// none named in it), and "*", the default, for every exchange and those symbols too: a
// dialog whose boxes are all checked passes {"*"}.
using FilterValues = QMap<QString, QVariant>;

// One symbol that passed: the symbol and the other columns' texts, numbers already written
// with 3 decimals and right-justified with blanks to a width of 12.
struct FilterRow
{
    QString symbol;
    QStringList values;

    bool operator==(const FilterRow &o) const { return symbol == o.symbol && values == o.values; }
};

// What a test gets besides the filter's values: the stored series of the symbol (already
// cut at "As of:" and shown in the filter's time frame), the metadata store (may be null),
// and the "As of:" day.
struct FilterInput
{
    const OrdaneData::Reader *series = nullptr; // null for a filter that reads no series
    OrdaneData::MetaData *meta = nullptr;
    QString symbol;
    QDate asOf;   // the newest day the test may see; today when "As of:" is not set
    QString file; // the symbol's stored quote file
    // Where the test computes its indicators: the run's worker, which keeps them from symbol
    // to symbol. Null when a test is called by itself; it then makes its own.
    FilterWorkspace *workspace = nullptr;
};

struct FilterSpec;
// Tests one symbol; a value when it passes. Must be safe to call from several threads at
// once with distinct inputs (a run tests symbols in parallel).
using FilterTest = std::optional<FilterRow> (*)(const FilterSpec &spec, const FilterValues &values,
                                                const FilterInput &input);

struct FilterSpec
{
    QString name;                    // the list entry and class name: "RSIFilter"
    QString title;                   // what the filter's name() says: empty, "P/E Ratio" for PE
    QString caption;                 // a text above the controls (Fill), or empty
    QVector<FilterControl> controls; // in page order; every filter ends with "As of:"
    QStringList columns;             // result columns, "Symbol" first
    QString applyText;               // "&Apply Selection", "&Apply selected" or "&Apply"
    // Whether the filter tests the stored symbols rather than the browser's (Fill), and acts on
    // the browser list directly.
    bool storedSymbols = false;
    FilterTest test = nullptr;
    // Whether the test needs the series (all but Fill, which looks at the file's size only).
    // Without it a run loads nothing and passes a null `series`.
    bool readsSeries = true;
};

// The seventeen filters in the dialog's order: Fill, Trend, VolumeFilter, RSIFilter,
// StochasticFilter, TimeMachine, Price, UpToDate, VolumeBreakOut, MoneyFlow, MovingAverage,
// HCVolatilityFilter, MedianFilter, DPOFilter, PE, ImpulsFilter, ConsolidationFilter.
const QVector<FilterSpec> &filterCatalogue();
// The filter of that name (list entry), or nullptr.
const FilterSpec *findFilter(const QString &name);

// The controls' defaults.
FilterValues defaultValues(const FilterSpec &spec);
// Sets one control from "Key=Value" text, as the command line gives it (a Choice takes its
// item text, a Range "lower..upper", a Date "yyyy-MM-dd", Exchanges codes joined by ",").
// False with *error naming the valid keys, or items, when the key or the value is unknown.
bool setFilterValue(const FilterSpec &spec, FilterValues &values, const QString &assignment,
                    QString *error);

// The time frame a filter's "Time Frame:" value names (OrdaneData::Day .. Quarter); the daily
// entry's text, "Day", and no "Time Frame:" control at all give the day frame.
int filterTimeFrame(const FilterValues &values);

// A number as result columns show it: 3 decimals, right-justified to a width of 12.
QString filterNumber(double value);

// The volume ranges the volume filter's preset buttons fill "Begin:" and "End:" with, in the
// buttons' order: Micro, Minor, Major, Macro.
struct VolumePreset
{
    QString name;
    double begin;
    double end;
};
const QVector<VolumePreset> &volumePresets();

} // namespace OrdaneBrowser
