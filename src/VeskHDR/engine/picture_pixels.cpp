#include "picture_pixels.h"

namespace {

int paletteIndex(const QImage &picture, int x, int y)
{
    const uchar *row = picture.constScanLine(y);
    switch (picture.format()) {
    case QImage::Format_Mono:
        return row[x >> 3] >> (7 - (x & 7)) & 1;
    case QImage::Format_MonoLSB:
        return row[x >> 3] >> (x & 7) & 1;
    default:
        return row[x];
    }
}

bool hasPalette(QImage::Format format)
{
    return format == QImage::Format_Mono || format == QImage::Format_MonoLSB ||
           format == QImage::Format_Indexed8;
}

} // namespace

bool pixels::areColours(const QImage &picture)
{
    return picture.format() == QImage::Format_RGB32 || picture.format() == QImage::Format_ARGB32;
}

bool pixels::have32Bits(const QImage &picture)
{
    return picture.depth() == 32;
}

QRgb pixels::at(const QImage &picture, int x, int y)
{
    if (hasPalette(picture.format()) && paletteIndex(picture, x, y) >= picture.colorCount())
        return 0;
    return picture.pixel(x, y);
}

QImage pixels::asWords(const QImage &picture)
{
    if (picture.isNull() || have32Bits(picture))
        return picture;
    QImage words(picture.size(), QImage::Format_ARGB32);
    for (int y = 0; y < words.height(); ++y) {
        auto *row = reinterpret_cast<QRgb *>(words.scanLine(y));
        for (int x = 0; x < words.width(); ++x)
            row[x] = at(picture, x, y);
    }
    return words;
}
