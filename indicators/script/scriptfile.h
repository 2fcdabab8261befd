#pragma once

#include <QByteArray>
#include <QString>

namespace OrdaneView {
namespace Scripts {

// Script files: plain UTF-8 text ending ".js", or packed, ending ".bin": the three bytes
// "MZE" and then a compressed block (a 4-byte big-endian length of the text, then a zlib
// stream).

// The largest text a packed file may unpack to. A stated length above it, or one the
// stream does not keep, is refused before anything is unpacked in full.
constexpr int kMaxScriptBytes = 16 * 1024 * 1024;

struct ScriptText
{
    QString text;
    bool packed = false;
    QString error; // empty when the text was read
};

// Whether a file name is that of a packed script.
bool isPackedName(const QString &fileName);

// The text of a script file. Errors name the problem: "Script error: Unknown binary format"
// for a packed file without the "MZE" mark, the size limit, a damaged stream, a file that
// cannot be opened.
ScriptText readScript(const QString &path);

// The same from bytes already read; `packed` says how to take them.
ScriptText decodeScript(const QByteArray &bytes, bool packed);

// The packed form of a script text.
QByteArray packScript(const QString &text);

} // namespace Scripts
} // namespace OrdaneView
