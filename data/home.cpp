#include "home.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QMutex>
#include <QMutexLocker>
#include <QSaveFile>
#include <QStandardPaths>

namespace OrdaneData::Home {

namespace {
QMutex gMutex;
QString gPath;

QString sub(const char *name)
{
    return path() + QLatin1Char('/') + QLatin1String(name);
}
} // namespace

QString resolve(const QStringList &arguments)
{
    QString dir;
    for (int i = 1; i < arguments.size(); ++i) {
        const QString &a = arguments.at(i);
        if (a == QLatin1String("--home") && i + 1 < arguments.size()) {
            dir = arguments.at(i + 1);
            break;
        }
        if (a.startsWith(QLatin1String("--home="))) {
            dir = a.mid(7);
            break;
        }
    }
    if (dir.isEmpty())
        dir = qEnvironmentVariable("HALCYRA_HOME");
    if (dir.isEmpty())
        dir = QStandardPaths::writableLocation(QStandardPaths::AppDataLocation);
    return QDir::cleanPath(QDir::current().absoluteFilePath(dir));
}

bool setPath(const QString &dir, QString *error)
{
    const QString absolute = QDir::cleanPath(QDir::current().absoluteFilePath(dir));
    if (!QDir().mkpath(absolute)) {
        if (error)
            *error = QStringLiteral("Cannot create the home folder %1").arg(absolute);
        return false;
    }
    QMutexLocker lock(&gMutex);
    gPath = absolute;
    return true;
}

QString path()
{
    QMutexLocker lock(&gMutex);
    return gPath;
}

QString storagePath()
{
    return sub("Storage");
}

QStringList storedSymbols()
{
    const QStringList files =
        QDir(storagePath()).entryList({QStringLiteral("*.csv")}, QDir::Files, QDir::Name);
    QStringList symbols;
    symbols.reserve(files.size());
    for (const QString &file : files)
        if (!file.startsWith(QLatin1Char('_')))
            symbols << file.chopped(4);
    return symbols;
}

QString templatesPath()
{
    return sub("Templates");
}

QString userIndicatorsPath()
{
    return sub("UserIndicators");
}

QString userExpertsPath()
{
    return sub("UserExperts");
}

QString calibratorPath()
{
    return sub("Calibrator");
}

QString lastKnownSymbolsFile()
{
    return sub("lastknown.sym");
}

namespace {
// Copies every file of a resource folder into `dir` unless `dir` already holds any entry.
// Byte for byte through a save file rather than QFile::copy, which would keep the
// resource's read-only mode on files the user is meant to edit.
int installResources(const QString &resources, const QString &dir, const char *what, QString *error)
{
    QDir target(dir);
    if (!target.exists() && !QDir().mkpath(dir)) {
        if (error)
            *error = QStringLiteral("Cannot create the folder %1").arg(dir);
        return -1;
    }
    if (!target.isEmpty(QDir::AllEntries | QDir::NoDotAndDotDot | QDir::Hidden | QDir::System))
        return 0;

    int copied = 0;
    const QDir source(resources);
    const QStringList names = source.entryList(QDir::Files, QDir::Name);
    for (const QString &name : names) {
        QFile in(source.filePath(name));
        if (!in.open(QIODevice::ReadOnly)) {
            if (error)
                *error = QStringLiteral("Cannot read the %1 %2").arg(QLatin1String(what), name);
            return -1;
        }
        const QByteArray bytes = in.readAll();
        const QString path = target.filePath(name);
        QSaveFile out(path);
        if (!out.open(QIODevice::WriteOnly) || out.write(bytes) != bytes.size() || !out.commit()) {
            if (error)
                *error = QStringLiteral("Cannot write %1: %2").arg(path, out.errorString());
            return -1;
        }
        QFile::setPermissions(path, QFile::permissions(path) | QFileDevice::ReadOwner |
                                        QFileDevice::WriteOwner);
        ++copied;
    }
    return copied;
}
} // namespace

int installSamples(const QString &storageDir, QString *error)
{
    return installResources(QStringLiteral(":/Storage"), storageDir, "sample", error);
}

int installScripts(const QString &dir, QString *error)
{
    return installResources(QStringLiteral(":/UserIndicators"), dir, "example script", error);
}

bool prepare(QString *error)
{
    const QString home = path();
    if (home.isEmpty()) {
        if (error)
            *error = QStringLiteral("No home folder is set");
        return false;
    }
    for (const QString &dir : {templatesPath(), userIndicatorsPath(), userExpertsPath()}) {
        if (!QDir().mkpath(dir)) {
            if (error)
                *error = QStringLiteral("Cannot create the folder %1").arg(dir);
            return false;
        }
    }
    return installSamples(storagePath(), error) >= 0 &&
           installScripts(userIndicatorsPath(), error) >= 0;
}

} // namespace OrdaneData::Home
