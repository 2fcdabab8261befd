#pragma once

#include <QString>
#include <QtGlobal>

namespace OrdaneBrowser {

// The candidate symbols the scanner probes the quote service with, one after another.
//
// With N the length of the alphabet, M = N - 1, L the length and i the index, next() builds
// the candidate of index i and then moves on to i + 1:
//   for each position p from L - 1 down to 1, with w = M^p: when i > w, the character at
//   ((i / w) - 1) mod M (integer division); nothing for this position otherwise;
//   then the character at i mod M.
// The digits run over the first M characters only, so the alphabet's last character ("-" by
// default) is never produced; short candidates come first, and several indexes give the same
// text ("0" is both index 0 and index 37 with the defaults). The order is deliberate and
// fixed: a scan's start value is an index into it, so a stopped scan resumes at the index it
// reached. It is not a plain count in base N and must not become one.
//
// The powers are computed in single precision and truncated to 64-bit integers, as is the
// number of candidates, N^L (2,085,136 with the defaults); powers past the 64-bit range count
// as the largest 64-bit value. An alphabet of fewer than two characters has no candidates:
// candidateCount() is 0 and next() gives an empty text without moving.
class SymbolGenerator
{
public:
    static QString defaultAlphabet(); // "0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZ_-"
    static constexpr int kDefaultLength = 4;

    quint64 index() const { return mIndex; }
    void setIndex(quint64 index) { mIndex = index; }
    QString alphabet() const { return mAlphabet; }
    void setAlphabet(const QString &alphabet) { mAlphabet = alphabet; }
    int length() const { return mLength; }
    void setLength(int length) { mLength = length; }

    // N^L as described above; a run ends when the index reaches it. It is larger than the
    // number of distinct candidates.
    quint64 candidateCount() const;
    bool atEnd() const { return mIndex >= candidateCount(); }

    // The candidate of the current index; the index then grows by one.
    QString next();

private:
    quint64 mIndex = 0;
    QString mAlphabet = defaultAlphabet();
    int mLength = kDefaultLength;
};

// The symbol the scanner asks the quote service for: prefix + candidate + postfix, the
// candidate first right-justified to `width` with the first character of `fill` unless
// `fill` is empty ("7" with fill "0" and width 4 is "0007"; longer candidates stay whole).
QString probeSymbol(const QString &candidate, const QString &prefix, const QString &postfix,
                    const QString &fill = QString(), int width = 0);

} // namespace OrdaneBrowser
