#include "heap.h"

// __GLIBC__ comes from the C library's own headers (features.h, which every standard header
// includes): tested before any of them, it is never defined and the setting compiles to
// nothing.
#include <cstdlib>

#if defined(__GLIBC__)
#include <malloc.h>
#endif

namespace OrdaneData::Heap {

void reuseLargeBlocks()
{
#if defined(__GLIBC__)
    // Blocks up to 32 MiB (the most the allocator allows) come from the heap rather than
    // from fresh mappings, and up to 256 MiB of free heap is kept before trimming.
    mallopt(M_MMAP_THRESHOLD, 32 * 1024 * 1024);
    mallopt(M_TRIM_THRESHOLD, 256 * 1024 * 1024);
#endif
}

} // namespace OrdaneData::Heap
