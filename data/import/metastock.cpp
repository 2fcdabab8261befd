#include "metastock.h"

#include "data/quotefile.h"
#include "mbf.h"

#include <QDate>
#include <QFile>
#include <QFileInfo>
#include <QtEndian>

#include <cmath>

namespace OrdaneData {

namespace {

constexpr int kMasterRecordSize = 53;
constexpr int kNumberOffset = 0;
constexpr int kNameOffset = 7;
constexpr int kNameSize = 16;
constexpr int kSymbolOffset = 36;
constexpr int kSymbolSize = 14;

constexpr int kDataRecordSize = 28;

// Bytes up to the first zero (or, when `blankEnds`, the first blank), at most `size` of them.
QString text(const char *p, int size, bool blankEnds)
{
    int n = 0;
    while (n < size && p[n] != '\0' && !(blankEnds && p[n] == ' '))
        ++n;
    return QString::fromLatin1(p, n);
}

float mbfAt(const char *p, int field)
{
    return fromMbf(qFromLittleEndian<quint32>(p + 4 * field));
}

QByteArray decimals(float value, int count)
{
    return QByteArray::number(double(value), 'f', count);
}

// YYYMMDD, YYY the year less 1900: 1050315 is 15 March 2005. Years past 9999 would not
// read back as stored dates.
QDate dateOf(float value)
{
    if (!(value >= 0.0f && value < 81000000.0f))
        return QDate();
    const int v = int(value);
    return QDate(1900 + v / 10000, v / 100 % 100, v % 100);
}

} // namespace

QVector<MetaStockRecord> readMasterRecords(const QByteArray &master)
{
    QVector<MetaStockRecord> records;
    if (master.isEmpty())
        return records;
    const int count = int(qint8(master.at(0))) - 1;
    for (int i = 0; i < count; ++i) {
        const int offset = kMasterRecordSize * (i + 1);
        if (master.size() - offset < kMasterRecordSize)
            break;
        const char *record = master.constData() + offset;
        MetaStockRecord r;
        r.fileNumber = qint8(record[kNumberOffset]);
        r.name = text(record + kNameOffset, kNameSize, false);
        r.symbol = text(record + kSymbolOffset, kSymbolSize, true);
        records.append(r);
    }
    return records;
}

bool MetaStockMaster::load(const QString &path)
{
    mPath = path;
    mFolder = QFileInfo(path).path();
    mRecords.clear();
    mError.clear();
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        mError = file.errorString();
        return false;
    }
    mRecords = readMasterRecords(file.readAll());
    return true;
}

QString MetaStockMaster::dataFile(const MetaStockRecord &record) const
{
    return mFolder + QLatin1String("/f") + QString::number(record.fileNumber) +
           QLatin1String(".dat");
}

ImportedTable convertMetaStockData(const QByteArray &data)
{
    ImportedTable table;
    const int count = data.size() / kDataRecordSize;
    table.text.reserve(int(sizeof(kQuoteFileHeader)) +
                       int(qMin(qint64(count) * 64, qint64(1) << 28)));
    table.text += kQuoteFileHeader;
    for (int i = count - 1; i >= 1; --i) {
        const char *record = data.constData() + i * kDataRecordSize;
        const QDate date = dateOf(mbfAt(record, 0));
        if (!date.isValid())
            continue;
        table.text += '\n';
        table.text += date.toString(QStringLiteral("yyyy-MM-dd")).toLatin1();
        for (int field = 1; field <= 4; ++field)
            table.text += ',' + decimals(mbfAt(record, field), 3);
        table.text += ',' + decimals(mbfAt(record, 5), 0);
        table.text += ',' + decimals(mbfAt(record, 6), 3);
        ++table.rows;
    }
    return table;
}

} // namespace OrdaneData
