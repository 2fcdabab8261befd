#include "symbolgenerator.h"

#include <cmath>
#include <limits>

namespace OrdaneBrowser {

namespace {

// base^exponent in single precision, truncated. Single precision is part of the order: from
// M^5 on (37^5 = 69,343,957 becomes 69,343,960) it decides which indexes get a leading
// character, so a double here would move candidates to other indexes.
quint64 floatPower(int base, int exponent)
{
    const float power = std::pow(float(base), float(exponent));
    // 2^64, the first value a 64-bit integer cannot hold; converting it or more is undefined.
    constexpr float kLimit = 18446744073709551616.0f;
    if (!(power < kLimit))
        return std::numeric_limits<quint64>::max();
    return quint64(power);
}

} // namespace

QString SymbolGenerator::defaultAlphabet()
{
    return QStringLiteral("0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZ_-");
}

quint64 SymbolGenerator::candidateCount() const
{
    if (mAlphabet.size() < 2)
        return 0;
    return floatPower(mAlphabet.size(), mLength);
}

QString SymbolGenerator::next()
{
    const int digits = mAlphabet.size() - 1;
    if (digits < 1)
        return QString();
    const quint64 i = mIndex;
    QString text;
    for (int p = mLength - 1; p >= 1; --p) {
        const quint64 w = floatPower(digits, p);
        if (i > w)
            text += mAlphabet.at(int((i / w - 1) % quint64(digits)));
    }
    text += mAlphabet.at(int(i % quint64(digits)));
    ++mIndex;
    return text;
}

QString probeSymbol(const QString &candidate, const QString &prefix, const QString &postfix,
                    const QString &fill, int width)
{
    const QString body = fill.isEmpty() ? candidate : candidate.rightJustified(width, fill.at(0));
    return prefix + body + postfix;
}

} // namespace OrdaneBrowser
