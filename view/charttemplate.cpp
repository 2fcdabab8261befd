#include "charttemplate.h"

#include <QDomDocument>
#include <QFile>
#include <QSaveFile>

#include <cmath>

namespace OrdaneView {

namespace {

const char *const kFrames[] = {"DAY", "WEEK", "MONTH", "QUARTAL", "YEAR"};

struct TypeWord
{
    ChartType type;
    const char *word;
};
const TypeWord kTypes[] = {{ChartType::Candle, "Candle"},
                           {ChartType::Bar, "Bar"},
                           {ChartType::Line, "Line"},
                           {ChartType::Empty, "Empty"}};

QString boolWord(bool on)
{
    return on ? QStringLiteral("true") : QStringLiteral("false");
}

// "true" and "false" as the files write them; anything else leaves the value alone.
void readBool(const QDomElement &e, bool *value)
{
    const QString text = e.text().trimmed();
    if (text.compare(QLatin1String("true"), Qt::CaseInsensitive) == 0)
        *value = true;
    else if (text.compare(QLatin1String("false"), Qt::CaseInsensitive) == 0)
        *value = false;
}

void readInt(const QDomElement &e, int *value)
{
    bool ok = false;
    const int v = e.text().trimmed().toInt(&ok);
    if (ok)
        *value = v;
}

QDomElement textElement(QDomDocument &doc, const QString &name, const QString &text)
{
    QDomElement e = doc.createElement(name);
    e.appendChild(doc.createTextNode(text));
    return e;
}

void writeIndicators(QDomDocument &doc, QDomElement &parent,
                     const QList<TemplateIndicator> &indicators)
{
    for (const TemplateIndicator &i : indicators) {
        QDomElement e = doc.createElement(QStringLiteral("Indicator"));
        e.setAttribute(QStringLiteral("name"), i.name);
        for (auto it = i.parameters.cbegin(); it != i.parameters.cend(); ++it) {
            QDomElement p =
                textElement(doc, QStringLiteral("Parameter"), parameterText(it.value()));
            p.setAttribute(QStringLiteral("name"), it.key());
            e.appendChild(p);
        }
        parent.appendChild(e);
    }
}

// The Indicator children of `parent`. A nameless element names nothing and is dropped, as
// is a parameter whose text is not a number (the indicator keeps its default for it).
QList<TemplateIndicator> readIndicators(const QDomElement &parent)
{
    QList<TemplateIndicator> list;
    for (QDomElement e = parent.firstChildElement(QStringLiteral("Indicator")); !e.isNull();
         e = e.nextSiblingElement(QStringLiteral("Indicator"))) {
        TemplateIndicator indicator;
        indicator.name = e.attribute(QStringLiteral("name")).trimmed();
        if (indicator.name.isEmpty())
            continue;
        for (QDomElement p = e.firstChildElement(QStringLiteral("Parameter")); !p.isNull();
             p = p.nextSiblingElement(QStringLiteral("Parameter"))) {
            bool ok = false;
            const float value = p.text().trimmed().toFloat(&ok);
            const QString name = p.attribute(QStringLiteral("name"));
            if (ok && !name.isEmpty())
                indicator.parameters.insert(name, value);
        }
        list.append(indicator);
    }
    return list;
}

} // namespace

bool ChartTemplate::operator==(const ChartTemplate &o) const
{
    return timeFrame == o.timeFrame && zoom == o.zoom && background == o.background &&
           type == o.type && threeD == o.threeD && colored == o.colored &&
           chartIndicators == o.chartIndicators && panes == o.panes && splitter == o.splitter;
}

QString timeFrameWord(int frame)
{
    return QLatin1String(kFrames[frame >= 0 && frame < 5 ? frame : 0]);
}

int timeFrameOfWord(const QString &word)
{
    const QString w = word.trimmed();
    for (int frame = 1; frame < 5; ++frame)
        if (w == QLatin1String(kFrames[frame]))
            return frame;
    return 0;
}

QString chartTypeWord(ChartType type)
{
    for (const TypeWord &t : kTypes)
        if (t.type == type)
            return QLatin1String(t.word);
    return QStringLiteral("Candle");
}

ChartType chartTypeOfWord(const QString &word)
{
    const QString w = word.trimmed();
    for (const TypeWord &t : kTypes)
        if (w == QLatin1String(t.word))
            return t.type;
    return ChartType::Candle;
}

QString parameterText(float value)
{
    const double v = double(value);
    if (std::isfinite(v) && std::abs(v) < 1e15 && v == std::trunc(v))
        return QString::number(qint64(v));
    // Six digits say most hand-entered values exactly; nine always bring the float back.
    for (int precision = 6; precision < 9; ++precision) {
        const QString text = QString::number(v, 'g', precision);
        if (text.toFloat() == value)
            return text;
    }
    return QString::number(v, 'g', 9);
}

bool parseTemplate(const QByteArray &xml, ChartTemplate *out, QString *error)
{
    QDomDocument doc;
    QString message;
    int line = 0, column = 0;
    if (!doc.setContent(xml, &message, &line, &column)) {
        if (error)
            *error = QStringLiteral("line %1, column %2: %3").arg(line).arg(column).arg(message);
        return false;
    }
    const QDomElement root = doc.documentElement();
    if (root.tagName() != QLatin1String("Template")) {
        if (error)
            *error = QStringLiteral("the root element is <%1>, not <Template>").arg(root.tagName());
        return false;
    }

    ChartTemplate t;
    const auto child = [](const QDomElement &parent, const char *name) {
        return parent.firstChildElement(QLatin1String(name));
    };
    QDomElement e = child(root, "TimeFrame");
    if (!e.isNull())
        t.timeFrame = timeFrameOfWord(e.text());
    readInt(child(root, "Zoom"), &t.zoom);
    // The element is spelled so in the saved format; keep.
    e = child(root, "BackgrounColor");
    if (!e.isNull()) {
        const QColor c(e.text().trimmed());
        if (c.isValid())
            t.background = c;
    }
    const QDomElement chart = child(root, "ChartView");
    if (!chart.isNull()) {
        e = child(chart, "Type");
        if (!e.isNull())
            t.type = chartTypeOfWord(e.text());
        readBool(child(chart, "ThreeD"), &t.threeD);
        readBool(child(chart, "Colored"), &t.colored);
        t.chartIndicators = readIndicators(chart);
    }
    // A pane whose indicators are all nameless stays, so the splitter values keep their panes.
    for (e = child(root, "IndicatorView"); !e.isNull();
         e = e.nextSiblingElement(QStringLiteral("IndicatorView")))
        t.panes.append(readIndicators(e));
    for (QDomElement v = child(child(root, "Splitter"), "value"); !v.isNull();
         v = v.nextSiblingElement(QStringLiteral("value"))) {
        bool ok = false;
        const int pixels = v.text().trimmed().toInt(&ok);
        if (ok)
            t.splitter.append(pixels);
    }
    *out = t;
    return true;
}

bool readTemplateFile(const QString &path, ChartTemplate *out, QString *error)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        if (error)
            *error = QStringLiteral("cannot open %1: %2").arg(path, file.errorString());
        return false;
    }
    QString why;
    if (!parseTemplate(file.readAll(), out, &why)) {
        if (error)
            *error = QStringLiteral("%1: %2").arg(path, why);
        return false;
    }
    return true;
}

QByteArray writeTemplate(const ChartTemplate &t)
{
    QDomDocument doc;
    QDomElement root = doc.createElement(QStringLiteral("Template"));
    doc.appendChild(root);
    root.appendChild(textElement(doc, QStringLiteral("TimeFrame"), timeFrameWord(t.timeFrame)));
    root.appendChild(textElement(doc, QStringLiteral("Zoom"), QString::number(t.zoom)));
    root.appendChild(
        textElement(doc, QStringLiteral("BackgrounColor"),
                    (t.background.isValid() ? t.background : QColor(Qt::black)).name()));

    QDomElement chart = doc.createElement(QStringLiteral("ChartView"));
    chart.appendChild(textElement(doc, QStringLiteral("Type"), chartTypeWord(t.type)));
    chart.appendChild(textElement(doc, QStringLiteral("ThreeD"), boolWord(t.threeD)));
    chart.appendChild(textElement(doc, QStringLiteral("Colored"), boolWord(t.colored)));
    writeIndicators(doc, chart, t.chartIndicators);
    root.appendChild(chart);

    for (const QList<TemplateIndicator> &pane : t.panes) {
        QDomElement view = doc.createElement(QStringLiteral("IndicatorView"));
        writeIndicators(doc, view, pane);
        root.appendChild(view);
    }

    QDomElement splitter = doc.createElement(QStringLiteral("Splitter"));
    for (int pixels : t.splitter)
        splitter.appendChild(textElement(doc, QStringLiteral("value"), QString::number(pixels)));
    root.appendChild(splitter);
    return doc.toByteArray(1);
}

bool writeTemplateFile(const QString &path, const ChartTemplate &t, QString *error)
{
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(writeTemplate(t)) < 0 || !file.commit()) {
        if (error)
            *error = QStringLiteral("cannot write %1: %2").arg(path, file.errorString());
        return false;
    }
    return true;
}

const QList<BuiltinTemplate> &builtinTemplates()
{
    static const QList<BuiltinTemplate> list = {
        {QT_TRANSLATE_NOOP("OrdaneView::ChartTemplate", "Trawler &Week"),
         ":/Templates/TrawlerWeek.tt"},
        {QT_TRANSLATE_NOOP("OrdaneView::ChartTemplate", "Trawler &Day"),
         ":/Templates/TrawlerDay.tt"},
        {QT_TRANSLATE_NOOP("OrdaneView::ChartTemplate", "W&ork Template"),
         ":/Templates/WorkTemplate.tt"},
        {QT_TRANSLATE_NOOP("OrdaneView::ChartTemplate", "W&illiams"), ":/Templates/Williams.tt"},
        {QT_TRANSLATE_NOOP("OrdaneView::ChartTemplate", "&Elder Rays"), ":/Templates/ElderRays.tt"},
        {QT_TRANSLATE_NOOP("OrdaneView::ChartTemplate", "&BollingerBands"),
         ":/Templates/BollingerBands.tt"},
    };
    return list;
}

} // namespace OrdaneView
