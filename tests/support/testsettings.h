#pragma once

#include "data/home.h"

#include <QCoreApplication>
#include <QSettings>
#include <QStandardPaths>

namespace TestSupport {

// The start of every test program: the settings store in test mode under the program's own
// identity, and empty, so that no test reads or writes the user's settings or another
// test's leftovers.
inline void useTestSettings()
{
    QStandardPaths::setTestModeEnabled(true);
    QCoreApplication::setOrganizationName(QStringLiteral("Skarvel"));
    QCoreApplication::setApplicationName(QStringLiteral("Halcyra2"));
    QSettings().clear();
}

// The same, with a prepared home folder (samples in its storage) at `path`.
inline bool useTestHome(const QString &path)
{
    useTestSettings();
    return OrdaneData::Home::setPath(path) && OrdaneData::Home::prepare();
}

} // namespace TestSupport
