#pragma once

// The hot loops of the computations are compiled twice, for the baseline x86-64 and for
// AVX2, and the loader picks the copy the processor runs. Both copies do the same IEEE
// operations in the same order on every value (the build never contracts a multiply and
// an add into one rounding), so the results are the same to the bit; the wider copy only
// handles eight bars per instruction instead of four.
#if defined(__GNUC__) && !defined(__clang__) && defined(__x86_64__) && defined(__linux__)
#define HALCYRA_WIDE __attribute__((target_clones("avx512f", "avx2", "default"), flatten))
#else
#define HALCYRA_WIDE
#endif
