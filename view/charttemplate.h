#pragma once

#include "chartlayer.h"

#include <QByteArray>
#include <QColor>
#include <QList>
#include <QMap>
#include <QString>

// Chart templates: how the chart area is set up (time frame, zoom, background, the price
// chart with its overlays, the indicator panes and their heights), kept as ".tt" XML files.
// This is the file format alone; the views container applies a template and describes its
// current set-up as one.
namespace OrdaneView {

// One indicator of a template: its identifier and its parameters by name. Parameters are
// written sorted by name; an indicator without parameters is an empty element.
struct TemplateIndicator
{
    QString name;
    QMap<QString, float> parameters;

    bool operator==(const TemplateIndicator &o) const
    {
        return name == o.name && parameters == o.parameters;
    }
};

struct ChartTemplate
{
    int timeFrame = 0; // OrdaneData::Reader::TimeFrame: Day .. Year
    int zoom = 8;
    QColor background = QColor(0, 0, 0);
    ChartType type = ChartType::Candle;
    bool threeD = true;
    bool colored = true;
    QList<TemplateIndicator> chartIndicators; // drawn over the prices
    QList<QList<TemplateIndicator>> panes;    // one list per indicator pane, top down
    QList<int> splitter; // pixels: the price chart first, then each pane; may be short

    bool operator==(const ChartTemplate &o) const;
};

// The time-frame words of the files: "DAY", "WEEK", "MONTH", "QUARTAL", "YEAR".
QString timeFrameWord(int frame);
// Any word other than "WEEK", "MONTH", "QUARTAL" or "YEAR" reads as the day frame.
int timeFrameOfWord(const QString &word);
// The chart-type words: "Candle", "Bar", "Line", "Empty"; others read as "Candle".
QString chartTypeWord(ChartType type);
ChartType chartTypeOfWord(const QString &word);

// A parameter value as the files write it: whole numbers without decimals ("14"), others
// in the fewest significant digits (6 to 9) that read back as the same float ("0.7").
QString parameterText(float value);

// Reads a template (UTF-8 XML, with or without a declaration). False, with *error as
// "line L, column C: message" for text that is not XML or a message naming the root when
// it is not Template; *out is then untouched. Missing elements keep their defaults; a
// TimeFrame word that is not known reads as the day frame, Splitter values that are not
// whole numbers are left out, parameters that are not numbers are left out, and so are
// Indicator elements without a name. Indicator names are kept whether known or not.
bool parseTemplate(const QByteArray &xml, ChartTemplate *out, QString *error = nullptr);
// As parseTemplate, the error led by the path; also false when the file cannot be opened.
bool readTemplateFile(const QString &path, ChartTemplate *out, QString *error = nullptr);
// The saved form, UTF-8 without an XML declaration: elements in the fixed order, one blank
// of indentation per level, a line end after the root. Parsing it and writing again gives
// the same bytes. An invalid background is written as "#000000".
QByteArray writeTemplate(const ChartTemplate &t);
// Through QSaveFile: on failure the old file stays and *error says why.
bool writeTemplateFile(const QString &path, const ChartTemplate &t, QString *error = nullptr);

// The built-in templates, in menu order: menu text (translatable, with its "&") and
// resource path (":/Templates/TrawlerWeek.tt" first: also the fallback set-up).
struct BuiltinTemplate
{
    const char *menuText;
    const char *resource;
};
const QList<BuiltinTemplate> &builtinTemplates();
// The set-up used when no saved one can be read.
inline QString fallbackTemplate()
{
    return QStringLiteral(":/Templates/TrawlerWeek.tt");
}

} // namespace OrdaneView
