#include "little_memory.h"

#include <atomic>
#include <cstdint>
#include <cstdlib>
#include <new>

namespace {

constexpr size_t kLargeBlock = 1024;

std::atomic<size_t> smallestRefused{SIZE_MAX};
std::atomic<bool> refusesWithoutException{false};

} // namespace

void *operator new(size_t size)
{
    void *memory = size < smallestRefused ? std::malloc(size > 0 ? size : 1) : nullptr;
    if (!memory)
        throw std::bad_alloc();
    return memory;
}

void *operator new(size_t size, const std::nothrow_t &) noexcept
{
    return refusesWithoutException ? nullptr : std::malloc(size > 0 ? size : 1);
}

void *operator new[](size_t size)
{
    return operator new(size);
}

void operator delete(void *memory) noexcept
{
    std::free(memory);
}

void operator delete[](void *memory) noexcept
{
    std::free(memory);
}

void operator delete(void *memory, size_t) noexcept
{
    std::free(memory);
}

void operator delete[](void *memory, size_t) noexcept
{
    std::free(memory);
}

littleMemory::RefuseLargeBlocks::RefuseLargeBlocks()
{
    smallestRefused = kLargeBlock;
}

littleMemory::RefuseLargeBlocks::~RefuseLargeBlocks()
{
    smallestRefused = SIZE_MAX;
}

void littleMemory::refuseWithoutException()
{
    refusesWithoutException = true;
}
