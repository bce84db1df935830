#pragma once

/// Lets a test program run out of memory where it wants: its operator new obeys the objects that
/// exist. Memory that the C library gives to others is not touched.
namespace littleMemory {

/// Refuses large blocks while it exists, with std::bad_alloc.
class RefuseLargeBlocks
{
public:
    RefuseLargeBlocks();
    ~RefuseLargeBlocks();
    RefuseLargeBlocks(const RefuseLargeBlocks &) = delete;
    RefuseLargeBlocks &operator=(const RefuseLargeBlocks &) = delete;
};

/// From now on all that is asked for with std::nothrow is refused.
void refuseWithoutException();

} // namespace littleMemory
