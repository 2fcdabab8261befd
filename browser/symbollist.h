#pragma once

#include <QString>
#include <QStringList>

class QIODevice;

// Symbol list files (".sym"): the symbols of a list on one line, joined by ";", with no
// separator after the last and no line end. "lastknown.sym" in the home folder carries the
// browser's list from one run to the next.
namespace OrdaneBrowser {

// The symbols of a list file's whole content, split on ";" with empty parts kept: an empty
// file gives one empty symbol, which no store holds.
QStringList readSymbolList(QIODevice *device);
// The same from a file; false (and *symbols untouched) when it cannot be opened.
bool readSymbolListFile(const QString &path, QStringList *symbols);

// Writes the list (in the locale's encoding, like any text of the user) through a save file,
// so that a failure leaves the old file as it was; false with *error saying why.
bool writeSymbolListFile(const QString &path, const QStringList &symbols, QString *error = nullptr);

// A name a list is saved under: with ".sym" appended unless it ends so already.
QString withSymbolListExtension(const QString &path);

// The symbols a first start lists, in this order.
QStringList defaultSymbols();

} // namespace OrdaneBrowser
