#pragma once

#include "textformats.h"

#include <QByteArray>
#include <QString>
#include <QVector>

// MetaStock data folders: a MASTER file listing the securities, and one data file per
// security, "f" + its file number + ".dat", beside it. docs/imports.md gives the byte layout.

namespace OrdaneData {

// One security listed in a MASTER file.
struct MetaStockRecord
{
    int fileNumber = 0; // a signed byte: 200 on disk reads -56 and names f-56.dat
    QString name;       // at most 16 characters
    QString symbol;     // at most 14 characters
};

// The records of a MASTER file's bytes. Their number is the first byte, read as a signed
// byte, less one (so 1, 0 and every byte from 128 up list none); record i follows a 53-byte
// header at byte 53 * (i + 1) and takes 53 bytes. The list stops at the first record the
// bytes do not hold whole.
QVector<MetaStockRecord> readMasterRecords(const QByteArray &master);

// A MASTER file and the folder of its data files.
class MetaStockMaster
{
public:
    // Reads the file whole. Returns false, with errorString(), when it cannot be read; the
    // records are then empty.
    bool load(const QString &path);

    const QVector<MetaStockRecord> &records() const { return mRecords; }
    QString path() const { return mPath; }
    QString errorString() const { return mError; }
    // The data file of a record: the MASTER's folder + "/f" + number + ".dat".
    QString dataFile(const MetaStockRecord &record) const;

private:
    QString mPath;
    QString mFolder;
    QString mError;
    QVector<MetaStockRecord> mRecords;
};

// A data file's bytes to a stored table. The file holds size / 28 records of 28 bytes,
// record 0 its own header; every other record is a bar of seven MBF numbers (little-endian):
// date as YYYMMDD with YYY the year less 1900, open, high, low, close, volume and a seventh
// value. Rows run from the last record down to record 1: date yyyy-MM-dd, the prices and
// the seventh value with 3 decimals, the volume with none. A record whose date is not a day
// of the calendar is left out.
ImportedTable convertMetaStockData(const QByteArray &data);

} // namespace OrdaneData
