#pragma once

#include <QSize>
#include <QString>

namespace QMWidgets {

// Virtual resolution: the whole user interface drawn larger or smaller by a factor the user
// picks. The factor lives in the setting "VirtualResolution/Factor" (1.0 = no scaling) and
// takes effect at the next start, through the toolkit's QT_SCALE_FACTOR.

// The smallest and largest factor offered and accepted.
constexpr double kMinVirtualResolution = 0.5;
constexpr double kMaxVirtualResolution = 3.0;

// The stored factor, clamped to [0.5, 3.0]; 1.0 when nothing is stored or the stored value
// is no finite number. Reads the application's settings (identity already set).
double virtualResolutionFactor();

// Stores `factor` clamped to [0.5, 3.0]; a value that is no finite number stores 1.0.
void setVirtualResolutionFactor(double factor);

// Prepares the process for the stored factor. Must be called BEFORE the QApplication is
// created: the toolkit reads QT_SCALE_FACTOR once, while the application object is built.
// Because no application identity exists yet, the settings are opened as
// QSettings(organization, application). When the factor is not 1.0, QT_SCALE_FACTOR is set
// to it, unless the user has already set QT_SCALE_FACTOR in the environment: the user's own
// value always wins and the stored factor is then ignored for this run.
void applyVirtualResolution(const QString &organization, const QString &application);

// True when applyVirtualResolution() found QT_SCALE_FACTOR already set by the user, so the
// stored factor is not in effect.
bool scaleFactorSetByUser();

// The factor the toolkit was started with: QT_SCALE_FACTOR when it holds a positive number,
// otherwise 1.0.
double runningScaleFactor();

// The screen size the user interface appears to have at `factor`: `screen` (in unscaled
// pixels) divided by the factor and rounded to whole pixels.
QSize apparentScreenSize(const QSize &screen, double factor);

} // namespace QMWidgets
