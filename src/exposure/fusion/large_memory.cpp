#include "large_memory.h"

#include <new>

#ifdef __linux__
#include <sys/mman.h>
#endif

fusion::LargeMemory fusion::largeMemory(size_t bytes)
{
    constexpr size_t kCacheLine = 64;
    constexpr size_t kLargePage = size_t(2) << 20;
    const bool isLarge = bytes >= 2 * kLargePage;
    void *memory = nullptr;
    if (posix_memalign(&memory, isLarge ? kLargePage : kCacheLine, bytes) != 0)
        throw std::bad_alloc();
#ifdef MADV_HUGEPAGE
    // Without large pages it is memory like any other.
    if (isLarge)
        madvise(memory, bytes, MADV_HUGEPAGE);
#endif
    return LargeMemory(memory);
}
