#include "picture_shift.h"

#include "Overlap.h"
#include "large_memory.h"
#include "parallel_rows.h"
#include "picture_pixels.h"

#include <algorithm>
#include <cstring>
#include <memory>
#include <new>

namespace {

template <typename Pixel>
Pixel *pixelRow(uchar *bits, qptrdiff bytesPerLine, int y)
{
    return reinterpret_cast<Pixel *>(bits + y * bytesPerLine);
}

/// Rows begin..end of target: source moved by (dx, dy), 0 where nothing of it lands.
template <typename Pixel>
void copyRows(const QImage &source, int dx, int dy, uchar *target, qptrdiff bytesPerLine,
              QSize targetSize, int begin, int end)
{
    const Overlap columns(source.width(), dx, targetSize.width());
    const Overlap rows(source.height(), dy, targetSize.height());
    for (int y = begin; y < end; ++y) {
        Pixel *row = pixelRow<Pixel>(target, bytesPerLine, y);
        Pixel *const rowEnd = row + targetSize.width();
        const qint64 sourceY = qint64(y) - dy;
        if (sourceY >= rows.begin && sourceY < rows.end && columns.begin < columns.end) {
            const auto *from =
                reinterpret_cast<const Pixel *>(source.constScanLine(static_cast<int>(sourceY)));
            row = std::fill_n(row, columns.begin + dx, Pixel(0));
            row = std::copy(from + columns.begin, from + columns.end, row);
        }
        std::fill(row, rowEnd, Pixel(0));
    }
}

template <typename Pixel>
void copyPixels(const QImage &source, int dx, int dy, QImage &target)
{
    uchar *bits = target.bits();
    const qptrdiff bytesPerLine = target.bytesPerLine();
    const QSize size = target.size();
    parallel::rows(size, [&](int begin, int end) {
        copyRows<Pixel>(source, dx, dy, bits, bytesPerLine, size, begin, end);
    });
}

/// Moves the content of a picture of words inside its own memory.
void moveInside(QImage &picture, int dx, int dy)
{
    const Overlap columns(picture.width(), dx, picture.width());
    const Overlap rows(picture.height(), dy, picture.height());
    uchar *bits = picture.bits();
    const qptrdiff bytesPerLine = picture.bytesPerLine();
    const auto fillRow = [&](int y) {
        QRgb *row = pixelRow<QRgb>(bits, bytesPerLine, y);
        const qint64 sourceY = qint64(y) - dy;
        if (sourceY < rows.begin || sourceY >= rows.end || columns.begin == columns.end) {
            std::fill_n(row, picture.width(), 0U);
            return;
        }
        const int begin = columns.begin + dx;
        const int end = columns.end + dx;
        const QRgb *from = pixelRow<QRgb>(bits, bytesPerLine, static_cast<int>(sourceY));
        std::memmove(row + begin, from + columns.begin,
                     sizeof(QRgb) * static_cast<size_t>(end - begin));
        std::fill(row, row + begin, 0U);
        std::fill(row + end, row + picture.width(), 0U);
    };
    // A row must have been read before it is written.
    if (dy > 0) {
        for (int y = picture.height() - 1; y >= 0; --y)
            fillRow(y);
    } else {
        for (int y = 0; y < picture.height(); ++y)
            fillRow(y);
    }
}

QImage copied(const QImage &picture, QPoint offset)
{
    QImage shifted = shift::copy(pixels::asWords(picture), offset.x(), offset.y());
    if (shifted.isNull() && !picture.isNull())
        throw std::bad_alloc();
    return shifted;
}

QImage moved(QImage &picture, QPoint offset)
{
    if (!picture.isDetached() || !pixels::have32Bits(picture))
        return copied(picture, offset);
    QImage shifted = std::move(picture);
    shifted.reinterpretAsFormat(QImage::Format_ARGB32);
    moveInside(shifted, offset.x(), offset.y());
    return shifted;
}

/// Puts the picture that `make` gives in the place of an unshifted one.
template <typename Make>
void replace(QImage *&picture, Make make, QPoint offset)
{
    auto shifted = std::make_unique<QImage>();
    *shifted = make(*picture, offset);
    delete picture;
    picture = shifted.release();
}

} // namespace

QImage shift::copy(const QImage &words, int dx, int dy)
{
    QImage shifted = memory::largeImage(words.size(), QImage::Format_ARGB32);
    if (!shifted.isNull())
        copyPixels<QRgb>(words, dx, dy, shifted);
    return shifted;
}

void shift::copyBytes(const QImage &source, int dx, int dy, QImage &target)
{
    copyPixels<uchar>(source, dx, dy, target);
}

void shift::pictures(QList<QImage *> &pictures, const std::vector<QPoint> &shifts, Memory memory)
{
    const auto unshifted = pictures.begin() + 1;
    const int count = static_cast<int>(shifts.size());
    if (memory == Memory::New) {
        for (int i = 0; i < count; ++i)
            replace(unshifted[i], copied, shifts[static_cast<size_t>(i)]);
        return;
    }
    parallel::each(count,
                   [&](int i) { replace(unshifted[i], moved, shifts[static_cast<size_t>(i)]); });
}
