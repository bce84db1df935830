#include "large_image.h"

#include <cstdlib>

#ifdef __linux__
#include <sys/mman.h>
#endif

namespace {

constexpr size_t kPixelBytes = 4;
#ifdef MADV_HUGEPAGE
constexpr size_t kLargePage = size_t(2) << 20;
#endif

} // namespace

QImage pixels::largeImage(QSize size, QImage::Format format)
{
#ifdef MADV_HUGEPAGE
    if (!size.isValid())
        return QImage(size, format);
    const size_t bytes =
        static_cast<size_t>(size.width()) * static_cast<size_t>(size.height()) * kPixelBytes;
    // Smaller than two pages there is nothing to win.
    if (bytes < 2 * kLargePage)
        return QImage(size, format);
    void *memory = nullptr;
    if (posix_memalign(&memory, kLargePage, bytes) != 0)
        return QImage();
    // Without large pages it is memory like any other.
    madvise(memory, bytes, MADV_HUGEPAGE);
    QImage image(static_cast<uchar *>(memory), size.width(), size.height(),
                 size.width() * static_cast<qsizetype>(kPixelBytes), format, std::free, memory);
    if (image.isNull())
        std::free(memory);
    return image;
#else
    return QImage(size, format);
#endif
}
