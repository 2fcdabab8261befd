#pragma once

#include <QtGlobal>

// Single-precision numbers in Microsoft Binary Format, as the MetaStock data files hold them.
//
// A number is 32 bits: the exponent byte on top (bits 24..31), the sign in bit 23 and 23
// mantissa bits below it. Read as a little-endian 32-bit integer, a file's four bytes give
// exactly this pattern. Its value is 1.m * 2^(exponent - 129), so the IEEE exponent field is
// the MBF exponent byte less 2; the mantissa bits are the same in both.

namespace OrdaneData {

// The IEEE single of an MBF pattern. The pattern 0 is 0. Exponent bytes 0 and 1, which leave
// no IEEE exponent (MBF's zero and magnitudes below 2^-127), also give 0.
float fromMbf(quint32 mbf);

// The MBF pattern of an IEEE single: 0 for either zero. Magnitudes of 2^127 and more (IEEE
// exponent field 254), infinities and NaNs have no MBF form and give the largest MBF
// magnitude with their sign. fromMbf(toMbf(v)) == v for every other float.
quint32 toMbf(float value);

} // namespace OrdaneData
