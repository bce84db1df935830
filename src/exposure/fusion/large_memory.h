#pragma once

#include <cstddef>
#include <cstdlib>
#include <memory>

namespace fusion {

struct FreeMemory
{
    void operator()(void *memory) const { std::free(memory); }
};

/// Owned memory whose contents are not set, at an address that is a multiple of 64.
using LargeMemory = std::unique_ptr<void, FreeMemory>;

/// Asks the system for large pages where that is worth it: taking small ones one by one takes a
/// fifth of a fusion's time. Throws std::bad_alloc. Any thread.
LargeMemory largeMemory(size_t bytes);

} // namespace fusion
