#include "grey_plane.h"

#include "grey_rows.h"
#include "parallel_rows.h"

#include <QPixelFormat>
#include <QRgba64>

#include <algorithm>
#include <cmath>
#include <new>

namespace registration {
namespace {

constexpr int kRowsBetweenLooks = 64; ///< at the cancel flag

bool isReadAsItIs(const QImage &picture, bool deep)
{
    switch (picture.format()) {
    case QImage::Format_RGB32:
    case QImage::Format_ARGB32:
    case QImage::Format_ARGB32_Premultiplied:
        return !deep;
    case QImage::Format_RGBX64:
    case QImage::Format_RGBA64:
    case QImage::Format_RGBA64_Premultiplied: // pixels that are not opaque say nothing
        return deep;
    default:
        return false;
    }
}

/// Rows [begin, end) of the picture in a format that they are read in: the picture's own, or
/// converted, a few at a time.
QImage readableRows(const QImage &picture, bool deep, int begin, int end)
{
    const int width = picture.width();
    if (isReadAsItIs(picture, deep))
        return QImage(picture.constScanLine(begin), width, end - begin, picture.bytesPerLine(),
                      picture.format());
    const QImage::Format opaque = deep ? QImage::Format_RGBA64 : QImage::Format_RGB32;
    const QImage::Format format =
        picture.hasAlphaChannel() && !deep ? QImage::Format_ARGB32 : opaque;
    QImage rows = picture.copy(0, begin, width, end - begin);
    rows.convertTo(format);
    if (rows.isNull())
        throw std::bad_alloc();
    return rows;
}

/// Writes the rows of the plane from `first` on.
void readWords(const QImage &rows, bool isHalved, int first, GreyPlane &plane)
{
    const uint32_t opaque = rows.hasAlphaChannel() ? 0 : 0xFF000000U;
    const auto words = [&](int y) {
        return reinterpret_cast<const uint32_t *>(rows.constScanLine(y));
    };
    const auto width = static_cast<size_t>(plane.width);
    const int count = isHalved ? rows.height() / 2 : rows.height();
    for (int y = 0; y < count; ++y) {
        if (isHalved)
            greyOfPairs({words(2 * y), words(2 * y + 1), width, opaque}, plane.row(first + y));
        else
            greyOfWords({words(y), nullptr, width, opaque}, plane.row(first + y));
    }
}

bool saysNothing(QRgba64 pixel)
{
    constexpr int kClipped = kFirstClipped * 257;
    return pixel.alpha() < 0xFFFF || pixel.red() >= kClipped || pixel.green() >= kClipped ||
           pixel.blue() >= kClipped;
}

/// Mean of side * side pixels from x, y on.
uint16_t deepGrey(const QImage &picture, int x, int y, int side)
{
    uint32_t sum = 0;
    for (int line = y; line < y + side; ++line) {
        const auto *row = reinterpret_cast<const QRgba64 *>(picture.constScanLine(line));
        for (int column = x; column < x + side; ++column) {
            if (saysNothing(row[column]))
                return kNoGrey;
            sum += row[column].red() + 2U * row[column].green() + row[column].blue();
        }
    }
    const double light = sum / (4.0 * side * side * 65535.0);
    const auto grey = static_cast<uint16_t>(std::sqrt(light) * kWhite);
    return grey < kFirstGrey ? kNoGrey : grey;
}

void readDeep(const QImage &rows, bool isHalved, int first, GreyPlane &plane)
{
    const int side = isHalved ? 2 : 1;
    for (int y = 0; y < rows.height() / side; ++y) {
        for (int x = 0; x < plane.width; ++x)
            plane.row(first + y)[x] = deepGrey(rows, side * x, side * y, side);
    }
}

} // namespace

bool isDeep(const QImage &picture)
{
    const QPixelFormat format = picture.pixelFormat();
    return format.redSize() > 8 || format.blackSize() > 8 ||
           picture.format() == QImage::Format_Grayscale16;
}

GreyPlane greyPlane(const QImage &picture, bool isHalved, const std::atomic<bool> &isCancelled)
{
    const int side = isHalved ? 2 : 1;
    GreyPlane plane(picture.width() / side, picture.height() / side, kNoGrey);
    const bool deep = isDeep(picture);
    parallel::rows({plane.width, plane.height}, [&](int begin, int end) {
        for (int y = begin; y < end && !isCancelled; y += kRowsBetweenLooks) {
            const int stop = std::min(end, y + kRowsBetweenLooks);
            const QImage rows = readableRows(picture, deep, side * y, side * stop);
            if (deep)
                readDeep(rows, isHalved, y, plane);
            else
                readWords(rows, isHalved, y, plane);
        }
    });
    return plane;
}

GreyPlane halved(const GreyPlane &plane, const std::atomic<bool> &isCancelled)
{
    GreyPlane half(plane.width / 2, plane.height / 2, kNoGrey);
    parallel::rows({half.width, half.height}, [&](int begin, int end) {
        for (int y = begin; y < end && !isCancelled; ++y)
            halveRow(plane.row(2 * y), plane.row(2 * y + 1), size_t(half.width), half.row(y));
    });
    return half;
}

} // namespace registration
