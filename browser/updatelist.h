#pragma once

#include <QString>
#include <QStringList>

namespace OrdaneBrowser {

// The symbols a bulk update brings up to date. Imported series (symbols ending in ".IMP")
// have no quote source and are never on either list.

// "Update All Data": every "*.csv" file of `folder`, by file name in name order, named by the
// file name up to its last "."; the store's own files (names starting with "_") are left out.
// A folder that cannot be read gives none.
QStringList storedSymbolsToUpdate(const QString &folder);

// "Update Visible Items Only": `symbols` in their order, without the imported ones.
QStringList updatableSymbols(const QStringList &symbols);

} // namespace OrdaneBrowser
