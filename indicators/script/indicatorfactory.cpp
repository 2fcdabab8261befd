#include "indicatorfactory.h"

#include "data/home.h"
#include "indicators/catalogue.h"
#include "userexpert.h"
#include "userindicator.h"
#include "view/viewcanvas.h"

#include <QDir>
#include <QFileInfo>

namespace OrdaneView {

QString scriptFileFor(const QString &id, const QString &folder)
{
    if (id.isEmpty() || folder.isEmpty() || id.contains(QLatin1Char('/')) ||
        id.contains(QLatin1Char('\\')) || id.startsWith(QLatin1Char('.')))
        return QString();
    const QDir dir(folder);
    QStringList candidates;
    if (id.endsWith(QLatin1String(".js"), Qt::CaseInsensitive) ||
        id.endsWith(QLatin1String(".bin"), Qt::CaseInsensitive))
        candidates << id;
    else
        candidates << id + QLatin1String(".js") << id + QLatin1String(".bin");
    for (const QString &name : qAsConst(candidates)) {
        const QString path = dir.filePath(name);
        if (QFileInfo(path).isFile())
            return path;
    }
    return QString();
}

IndicatorLayer *createIndicator(const QString &id, const OrdaneData::ReaderH &reader,
                                ViewCanvas *view)
{
    if (IndicatorLayer *builtin = createBuiltinIndicator(id, reader, view))
        return builtin;
    const QString path = scriptFileFor(id, OrdaneData::Home::userIndicatorsPath());
    if (path.isEmpty())
        return nullptr;
    auto *indicator = new UserIndicator(path, view);
    indicator->setReader(reader);
    return indicator;
}

IndicatorLayer *createExpert(const QString &id, const OrdaneData::ReaderH &reader, ViewCanvas *view)
{
    const QString path = scriptFileFor(id, OrdaneData::Home::userExpertsPath());
    if (path.isEmpty())
        return nullptr;
    auto *expert = new UserExpert(path, view);
    expert->setReader(reader);
    return expert;
}

ComputedLayer *IndicatorFactory::createIndicator(const QString &id, ViewCanvas *canvas) const
{
    return OrdaneView::createIndicator(id, canvas ? canvas->reader() : OrdaneData::ReaderH(),
                                       canvas);
}

ComputedLayer *IndicatorFactory::createScript(const QString &path, bool expert,
                                              ViewCanvas *canvas) const
{
    if (!QFileInfo(path).isFile())
        return nullptr;
    UserIndicator *script = expert ? new UserExpert(path, canvas) : new UserIndicator(path, canvas);
    if (canvas)
        script->setReader(canvas->reader());
    return script;
}

void IndicatorFactory::install()
{
    static const IndicatorFactory factory;
    IndicatorSource::install(&factory);
}

} // namespace OrdaneView
