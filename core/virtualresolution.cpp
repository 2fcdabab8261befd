#include "virtualresolution.h"

#include "setting.h"

#include <QSettings>

#include <cmath>

namespace QMWidgets {

namespace {
const Setting<double> kFactor{QStringLiteral("VirtualResolution/Factor"), 1.0};
const char kScaleVariable[] = "QT_SCALE_FACTOR";

bool sSetByUser = false;

double readFactor(const QSettings &settings)
{
    const double f = kFactor.value(settings);
    // "nan" and "inf" parse as numbers; neither is a usable scale.
    if (!std::isfinite(f))
        return 1.0;
    return qBound(kMinVirtualResolution, f, kMaxVirtualResolution);
}
} // namespace

double virtualResolutionFactor()
{
    return readFactor(QSettings());
}

void setVirtualResolutionFactor(double factor)
{
    const double f =
        std::isfinite(factor) ? qBound(kMinVirtualResolution, factor, kMaxVirtualResolution) : 1.0;
    kFactor.setValue(f);
}

void applyVirtualResolution(const QString &organization, const QString &application)
{
    sSetByUser = qEnvironmentVariableIsSet(kScaleVariable);
    if (sSetByUser)
        return;
    const double f = readFactor(QSettings(organization, application));
    if (f != 1.0)
        qputenv(kScaleVariable, QByteArray::number(f, 'g', 6));
}

bool scaleFactorSetByUser()
{
    return sSetByUser;
}

double runningScaleFactor()
{
    bool ok = false;
    const double f = qEnvironmentVariable(kScaleVariable).toDouble(&ok);
    return ok && std::isfinite(f) && f > 0 ? f : 1.0;
}

QSize apparentScreenSize(const QSize &screen, double factor)
{
    if (!(factor > 0))
        return screen;
    return QSize(qRound(screen.width() / factor), qRound(screen.height() / factor));
}

} // namespace QMWidgets
