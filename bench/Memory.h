// Where the memory of large blocks comes from. Left to itself the allocator changes from one way to the other, and not for both sides of a
// ratio at once.
#pragma once

#include <malloc.h>

namespace velluto::bench {

// Fresh from the system from now on, as where a program opens a file for the first time.
inline void TakeFreshMemory()
{
    constexpr int kLarge = 1 << 17; // bytes
    ::mallopt(M_MMAP_THRESHOLD, kLarge);
    ::mallopt(M_TRIM_THRESHOLD, kLarge);
    ::malloc_trim(0);
}

// What was used before, from now on, in a process that did not ask for fresh memory after this. On 64 bits: elsewhere blocks of this size
// are never kept.
inline void KeepMemory()
{
    ::mallopt(M_MMAP_THRESHOLD, 1 << 25); // the most that there is
    ::mallopt(M_TRIM_THRESHOLD, 1 << 30);
}

} // namespace velluto::bench
