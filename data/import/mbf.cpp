#include "mbf.h"

#include <cstring>

namespace OrdaneData {

namespace {
constexpr quint32 kMantissa = 0x007fffffu;
} // namespace

float fromMbf(quint32 mbf)
{
    const quint32 exponent = mbf >> 24;
    if (exponent < 2)
        return 0.0f;
    const quint32 sign = (mbf >> 23) & 1u;
    const quint32 ieee = (sign << 31) | ((exponent - 2) << 23) | (mbf & kMantissa);
    float value;
    std::memcpy(&value, &ieee, sizeof value);
    return value;
}

quint32 toMbf(float value)
{
    quint32 ieee;
    std::memcpy(&ieee, &value, sizeof ieee);
    const quint32 sign = ieee >> 31;
    const quint32 exponent = (ieee >> 23) & 0xffu;
    if ((ieee & 0x7fffffffu) == 0)
        return 0;
    if (exponent >= 254)
        return 0xff000000u | (sign << 23) | kMantissa;
    return ((exponent + 2) << 24) | (sign << 23) | (ieee & kMantissa);
}

} // namespace OrdaneData
