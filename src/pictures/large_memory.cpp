#include "large_memory.h"

#include <cstdint>
#include <new>

#ifdef __linux__
#include <sys/mman.h>
#endif
#ifdef __GLIBC__
#include <malloc.h>
#endif

namespace {

constexpr size_t kCacheLine = 64;
constexpr size_t kLargePage = size_t(2) << 20;

/// With fewer than two pages there is nothing to win.
bool isWorthLargePages(size_t bytes)
{
    return bytes >= 2 * kLargePage;
}

} // namespace

memory::Large memory::large(size_t bytes)
{
    const bool isLarge = isWorthLargePages(bytes);
    void *taken = nullptr;
    if (posix_memalign(&taken, isLarge ? kLargePage : kCacheLine, bytes) != 0)
        throw std::bad_alloc();
#ifdef MADV_HUGEPAGE
    if (isLarge)
        madvise(taken, bytes, MADV_HUGEPAGE);
#endif
    return Large(taken);
}

void memory::giveBack(void *begin, void *end)
{
#ifdef MADV_DONTNEED
    const auto first = (reinterpret_cast<uintptr_t>(begin) + kLargePage - 1) / kLargePage;
    const auto behind = reinterpret_cast<uintptr_t>(end) / kLargePage;
    if (first < behind)
        madvise(reinterpret_cast<void *>(first * kLargePage), (behind - first) * kLargePage,
                MADV_DONTNEED);
#else
    Q_UNUSED(begin)
    Q_UNUSED(end)
#endif
}

void memory::giveBackFreed()
{
#ifdef __GLIBC__
    malloc_trim(0);
#endif
}

QImage memory::largeImage(QSize size, QImage::Format format)
{
    const int bits = QImage::toPixelFormat(format).bitsPerPixel();
    const qsizetype rowBytes = (qsizetype(size.width()) * bits + 31) / 32 * 4;
    if (!size.isValid() || !isWorthLargePages(size_t(rowBytes) * size_t(size.height())))
        return QImage(size, format);
    try {
        Large owned = large(size_t(rowBytes) * size_t(size.height()));
        auto *bytes = static_cast<uchar *>(owned.get());
        QImage image(bytes, size.width(), size.height(), rowBytes, format, std::free, bytes);
        if (!image.isNull())
            owned.release(); // the image frees it
        return image;
    } catch (const std::bad_alloc &) {
        return QImage();
    }
}
