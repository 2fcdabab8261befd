#pragma once

#include <QString>
#include <QStringList>

namespace OrdaneData {

// The one folder that holds the program's own files (settings aside):
//
//   Storage/         stored quote files, one per symbol, the metadata store _meta.tdb and
//                    the index members _constituents.csv
//   Templates/       chart templates
//   UserIndicators/  script indicators, with the shipped examples (see installScripts)
//   UserExperts/     expert scripts
//   Calibrator/      calibration results (made by the first calibration that writes)
//   Drawings/        figures drawn on charts, one file per symbol (made by the first figure)
//   lastknown.sym    the browser's symbol list between runs
//
// It is chosen once per process: `--home DIR` (or `--home=DIR`) on the command line,
// else the environment variable HALCYRA_HOME, else the platform's application data
// folder (which needs the application identity set first).
namespace Home {

// The folder the given command line and environment choose, made absolute.
// `arguments` is the whole command line including the program name.
QString resolve(const QStringList &arguments);

// Makes `dir` the home folder of this process. Creates it when missing; returns false
// with a message in *error when it cannot be created.
bool setPath(const QString &dir, QString *error = nullptr);
QString path();

QString storagePath();
QString templatesPath();
QString userIndicatorsPath();
QString userExpertsPath();
QString calibratorPath();
QString lastKnownSymbolsFile();
// The symbols of the stored quote files ("MSFT" for Storage/MSFT.csv), sorted. Files whose
// names start with "_" are the store's own (the index members "_constituents.csv") and are
// left out.
QStringList storedSymbols();

// Creates the folders of a home that are missing and, when the storage folder is missing
// or empty, copies the sample quote files, the sample metadata store ("_meta.tdb", see
// MetaData) and the members of the sample indices ("_constituents.csv") into it; the same for the
// example scripts and the UserIndicators folder. Existing files are never touched. Returns false
// with a message in *error when something could not be created.
bool prepare(QString *error = nullptr);

// Copies every file of the resource folder ":/Storage" into storageDir unless that
// folder already holds any entry. Returns the number of files copied, or -1 on failure.
int installSamples(const QString &storageDir, QString *error = nullptr);

// Copies every file of the resource folder ":/UserIndicators" (plain and packed example
// scripts) into `dir` unless that folder already holds any entry, byte for byte and
// writable by the user. A user who deleted some of the examples keeps it that way; one who
// deleted them all, leaving the folder empty, gets them back at the next start. Returns
// the number of files copied (0 in a program built without them), or -1 on failure.
int installScripts(const QString &dir, QString *error = nullptr);

} // namespace Home
} // namespace OrdaneData
