#pragma once

#include <QImage>

#include <cstddef>
#include <cstdlib>
#include <memory>

/// Memory of many megabytes, whose contents are not set. The system is asked to give it in large
/// pages, which takes less than half of the time that small ones take, one by one, at their first
/// touch. Without large pages it is memory like any other. Any thread, reentrant.
namespace memory {

struct Free
{
    void operator()(void *bytes) const { std::free(bytes); }
};

/// Owned, at an address that is a multiple of 64.
using Large = std::unique_ptr<void, Free>;

/// Throws std::bad_alloc.
Large large(size_t bytes);

/// Gives whole large pages between these addresses of large() memory back to the system: their
/// contents are lost, the memory stays the owner's.
void giveBack(void *begin, void *end);

/// New image, like QImage(size, format), that owns such memory when it is worth it. Null when
/// memory is lacking or the size is not valid.
QImage largeImage(QSize size, QImage::Format format);

/// Gives memory that was freed, and that the C library keeps for later, back to the system: for
/// steps that need much after others that needed much in many pieces. Takes about a millisecond.
void giveBackFreed();

} // namespace memory
