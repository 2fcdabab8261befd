#pragma once

#include <QString>
#include <QVector>

class QIODevice;

namespace OrdaneBrowser {

// One member of an index as the constituents list names it.
struct Constituent
{
    QString symbol; // as its quote file would be named ("SAP.DE")
    QString name;   // empty when the list gives none
};

// The constituents list kept beside the metadata store: storagePath() + "/_constituents.csv".
//
//   index,symbol,name
//   ^GDAXI,SAP.DE,SAP
//   ^GSPC,JNJ,"Johnson & Johnson, Inc."
//
// One member per line, the header first. A field may be enclosed in double quotes, which
// lets it hold commas; a quote inside such a field is written twice. The file is UTF-8.
QString constituentsFile();

// The members of `index` (compared without regard to case) in the order of the list, each
// symbol once (its first line wins). Blank lines, the header and lines without a symbol are
// passed over. Reads the device from where it stands to its end; an unknown index gives none.
QVector<Constituent> readConstituents(QIODevice *device, const QString &index);

// The same from the file at `path`. A file that cannot be opened gives none and, when
// `error` is given, the reason in *error (which is cleared otherwise).
QVector<Constituent> readConstituents(const QString &path, const QString &index,
                                      QString *error = nullptr);

} // namespace OrdaneBrowser
