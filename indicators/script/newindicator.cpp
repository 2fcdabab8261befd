#include "newindicator.h"

#include <QDir>
#include <QFileInfo>
#include <QSaveFile>

namespace OrdaneView {
namespace Scripts {

namespace {
// Where users find more indicators written for the program.
constexpr char kCollectionAddress[] = "https://halcyra.org/indicators/";

// The starter script; every XXX becomes the indicator's name.
constexpr char kStarter[] = R"js(// XXX - %1
function init()
{
    with (XXX) {
        // create the visible buffer
        createBuffer("XXX");
        // set the line color
        setBufferColor("XXX", "#00FF00");
        // set the draw style - LINE or HISTOGRAM
        setBufferDrawStyle("XXX", DrawStyle.LINE);
        // Define the automatic size changes
        setAutoChangeMaxMin("XXX");
        // Parameter
        createParameter("Period", 75);
    }
}

function start()
{
    // Display the name of the indicator with parameters
    XXX.label = "XXX (" + XXX.parameter("Period") + ")";
    // get the number of quotes
    var num = Shared.numberOfQuotes();
    // create the buffer
    var XXXBuf = new Array(num);
    for (var i = 0; i < num; ++i) {
        //initialize the buffer with close prices
        XXXBuf[i] = Shared.close(i);
    }
    //insert the created buffer into the visible buffer
    XXX.setBufferData("XXX", XXXBuf);
}
)js";
} // namespace

QString newIndicatorText(const QString &name)
{
    // One pass from left to right: a name that itself holds "XXX" is not replaced again.
    return QString::fromLatin1(kStarter)
        .arg(QLatin1String(kCollectionAddress))
        .replace(QLatin1String("XXX"), name);
}

bool isScriptIdentifier(const QString &name)
{
    if (name.isEmpty())
        return false;
    for (int i = 0; i < name.size(); ++i) {
        const QChar c = name.at(i);
        const bool ok = c.isLetter() || c == QLatin1Char('_') || c == QLatin1Char('$') ||
                        (i > 0 && c.isDigit());
        if (!ok)
            return false;
    }
    return true;
}

QString scriptBaseName(const QString &typed)
{
    QString name = typed.trimmed();
    if (name.endsWith(QLatin1String(".js"), Qt::CaseInsensitive))
        name.chop(3);
    return name;
}

CreateResult createIndicatorScript(const QString &folder, const QString &typed, QString *path,
                                   QString *error)
{
    const QString name = scriptBaseName(typed);
    if (name.isEmpty())
        return CreateResult::NoName;
    if (!isScriptIdentifier(name))
        return CreateResult::BadName;
    const QString file = QDir(folder).filePath(name + QLatin1String(".js"));
    if (path)
        *path = file;
    if (QFileInfo::exists(file))
        return CreateResult::Exists;
    QSaveFile out(file);
    if (!QDir().mkpath(folder) || !out.open(QIODevice::WriteOnly | QIODevice::Text) ||
        out.write(newIndicatorText(name).toUtf8()) < 0 || !out.commit()) {
        if (error)
            *error = out.errorString();
        return CreateResult::Failed;
    }
    return CreateResult::Created;
}

} // namespace Scripts
} // namespace OrdaneView
