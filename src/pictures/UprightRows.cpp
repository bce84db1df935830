#include "UprightRows.h"

namespace {

/// So many pixels of 32 bits are a cache line: a turned strip fills whole lines.
constexpr int kStripRows = 16;

/// A pixel of four floats.
struct Floats
{
    quint64 halves[2];
};

bool isOnItsSide(QImageIOHandler::Transformations transformation)
{
    return transformation & QImageIOHandler::TransformationRotate90;
}

} // namespace

UprightRows::UprightRows(QSize stored, QImage::Format format,
                         QImageIOHandler::Transformations wanted)
    : storedSize(stored)
    , transformation(wanted)
    , picture(isOnItsSide(wanted) ? stored.transposed() : stored, format)
{
    if (!isNull() && isTurned())
        strip.resize(kStripRows * static_cast<size_t>(stored.width()) * pixelBytes());
}

uchar *UprightRows::row(int y)
{
    if (!isTurned())
        return picture.scanLine(y);
    return strip.data() + static_cast<size_t>(y % kStripRows) *
                              static_cast<size_t>(storedSize.width()) * pixelBytes();
}

void UprightRows::rowWritten(int y)
{
    const bool isStripFull = (y + 1) % kStripRows == 0 || y + 1 == storedSize.height();
    if (!isTurned() || !isStripFull)
        return;
    const int firstRow = y - y % kStripRows;
    if (pixelBytes() == 1)
        placeStrip<uchar>(firstRow, y + 1 - firstRow);
    else if (pixelBytes() == 2)
        placeStrip<quint16>(firstRow, y + 1 - firstRow);
    else if (pixelBytes() == 8)
        placeStrip<quint64>(firstRow, y + 1 - firstRow);
    else if (pixelBytes() == sizeof(Floats))
        placeStrip<Floats>(firstRow, y + 1 - firstRow);
    else
        placeStrip<QRgb>(firstRow, y + 1 - firstRow);
}

/// Mirrors first, then turns clockwise: stored pixel (x, y) lands at origin + x * stepX + y *
/// stepY, counted in pixels of the upright picture's memory.
template <typename Pixel>
void UprightRows::placeStrip(int firstRow, int rowCount)
{
    const std::ptrdiff_t width = storedSize.width();
    const std::ptrdiff_t height = storedSize.height();
    const bool mirrors = transformation & QImageIOHandler::TransformationMirror;
    const bool flips = transformation & QImageIOHandler::TransformationFlip;
    const bool turns = isOnItsSide(transformation);
    const std::ptrdiff_t line = picture.bytesPerLine() / std::ptrdiff_t(sizeof(Pixel));
    const std::ptrdiff_t stepX = (turns ? line : 1) * (mirrors ? -1 : 1);
    const std::ptrdiff_t stepY = (turns ? -1 : line) * (flips ? -1 : 1);
    const std::ptrdiff_t origin =
        (mirrors ? -stepX * (width - 1) : 0) +
        (turns ? (flips ? 0 : height - 1) : (flips ? line * (height - 1) : 0));

    Pixel *target = reinterpret_cast<Pixel *>(picture.bits()) + origin + firstRow * stepY;
    const auto *source = reinterpret_cast<const Pixel *>(strip.data());
    for (std::ptrdiff_t x = 0; x < width; ++x) {
        for (std::ptrdiff_t y = 0; y < rowCount; ++y)
            target[x * stepX + y * stepY] = source[y * width + x];
    }
}
