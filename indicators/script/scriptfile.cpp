#include "scriptfile.h"

#include <QCoreApplication>
#include <QFile>
#include <QtEndian>

#include <zlib.h>

namespace OrdaneView {
namespace Scripts {

namespace {
const QByteArray kMagic = QByteArrayLiteral("MZE");

// Unpacks a zlib stream into exactly `size` bytes. Fails on a damaged stream and on one that
// would give more or fewer bytes, without ever holding more than `size` of them (qUncompress
// keeps growing its buffer for as long as the stream goes on).
bool inflateCapped(const QByteArray &stream, quint32 size, QByteArray *out)
{
    out->resize(int(size));
    z_stream z{};
    if (inflateInit(&z) != Z_OK)
        return false;
    z.next_in = reinterpret_cast<Bytef *>(const_cast<char *>(stream.constData()));
    z.avail_in = uInt(stream.size());
    z.next_out = reinterpret_cast<Bytef *>(out->data());
    z.avail_out = uInt(size);
    int status = inflate(&z, Z_FINISH);
    if (status == Z_BUF_ERROR && z.avail_out == 0) {
        // The text is full; the stream must end here and not hold one byte more.
        Bytef spare;
        z.next_out = &spare;
        z.avail_out = 1;
        status = inflate(&z, Z_FINISH);
        if (z.avail_out == 0)
            status = Z_DATA_ERROR;
    }
    inflateEnd(&z);
    return status == Z_STREAM_END && z.total_out == size;
}

QString tr(const char *text)
{
    return QCoreApplication::translate("OrdaneView::Scripts", text);
}
} // namespace

bool isPackedName(const QString &fileName)
{
    return fileName.endsWith(QLatin1String(".bin"), Qt::CaseInsensitive);
}

ScriptText decodeScript(const QByteArray &bytes, bool packed)
{
    ScriptText result;
    result.packed = packed;
    if (!packed) {
        result.text = QString::fromUtf8(bytes);
        return result;
    }
    if (!bytes.startsWith(kMagic)) {
        result.error = tr("Script error: Unknown binary format");
        return result;
    }
    const QByteArray block = bytes.mid(kMagic.size());
    if (block.size() < 4) {
        result.error = tr("Script error: the packed script is cut short");
        return result;
    }
    // qUncompress would allocate whatever the header states; check it first.
    const quint32 stated = qFromBigEndian<quint32>(block.constData());
    if (stated > quint32(kMaxScriptBytes)) {
        result.error = tr("Script error: the packed script states %1 bytes, more than the "
                          "limit of %2 bytes")
                           .arg(stated)
                           .arg(kMaxScriptBytes);
        return result;
    }
    QByteArray text;
    if (!inflateCapped(block.mid(4), stated, &text)) {
        result.error = tr("Script error: the packed script is damaged or does not unpack to "
                          "the %1 bytes it states")
                           .arg(stated);
        return result;
    }
    result.text = QString::fromUtf8(text);
    return result;
}

ScriptText readScript(const QString &path)
{
    const bool packed = isPackedName(path);
    QFile file(path);
    if (!file.open(packed ? QIODevice::ReadOnly : QIODevice::ReadOnly | QIODevice::Text)) {
        ScriptText result;
        result.packed = packed;
        result.error = tr("Script error: cannot open %1: %2").arg(path, file.errorString());
        return result;
    }
    // A packed file larger than any compressed limit-sized text is not read in full.
    const qint64 cap = packed ? qint64(kMaxScriptBytes) + 64 * 1024 : qint64(kMaxScriptBytes);
    if (file.size() > cap) {
        ScriptText result;
        result.packed = packed;
        result.error =
            tr("Script error: %1 is larger than the limit of %2 bytes").arg(path).arg(cap);
        return result;
    }
    return decodeScript(file.readAll(), packed);
}

QByteArray packScript(const QString &text)
{
    return kMagic + qCompress(text.toUtf8(), 9);
}

} // namespace Scripts
} // namespace OrdaneView
