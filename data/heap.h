#pragma once

// How the process keeps memory it has freed.
namespace OrdaneData::Heap {

// Keeps freed large blocks (series, indicator buffers: megabytes for long histories) in the
// process for the next computation instead of handing them back to the system at once.
// Returning and refetching them costs a page fault per 4 KiB, which on a long series can
// take longer than the computation itself. Call once at start; harmless elsewhere.
void reuseLargeBlocks();

} // namespace OrdaneData::Heap
