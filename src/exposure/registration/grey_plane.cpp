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

/// The picture in the format that the rows are read in.
QImage readable(const QImage &picture, QImage::Format format)
{
    QImage result = picture.format() == format ? picture : picture.convertToFormat(format);
    if (result.isNull())
        throw std::bad_alloc();
    return result;
}

QImage asWords(const QImage &picture)
{
    if (picture.format() == QImage::Format_RGB32 || picture.format() == QImage::Format_ARGB32 ||
        picture.format() == QImage::Format_ARGB32_Premultiplied)
        return picture;
    return readable(picture,
                    picture.hasAlphaChannel() ? QImage::Format_ARGB32 : QImage::Format_RGB32);
}

void readWords(const QImage &picture, bool isHalved, int begin, int end, GreyPlane &plane)
{
    const uint32_t opaque = picture.hasAlphaChannel() ? 0 : 0xFF000000U;
    const auto words = [&](int y) {
        return reinterpret_cast<const uint32_t *>(picture.constScanLine(y));
    };
    const auto width = static_cast<size_t>(plane.width);
    for (int y = begin; y < end; ++y) {
        if (isHalved)
            greyOfPairs({words(2 * y), words(2 * y + 1), width, opaque}, plane.row(y));
        else
            greyOfWords({words(y), nullptr, width, opaque}, plane.row(y));
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

void readDeep(const QImage &picture, bool isHalved, int begin, int end, GreyPlane &plane)
{
    const int side = isHalved ? 2 : 1;
    for (int y = begin; y < end; ++y) {
        for (int x = 0; x < plane.width; ++x)
            plane.row(y)[x] = deepGrey(picture, side * x, side * y, side);
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
    const QImage source = deep ? readable(picture, QImage::Format_RGBA64) : asWords(picture);
    parallel::rows({plane.width, plane.height}, [&](int begin, int end) {
        for (int y = begin; y < end && !isCancelled; y += kRowsBetweenLooks) {
            const int stop = std::min(end, y + kRowsBetweenLooks);
            if (deep)
                readDeep(source, isHalved, y, stop, plane);
            else
                readWords(source, isHalved, y, stop, plane);
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
