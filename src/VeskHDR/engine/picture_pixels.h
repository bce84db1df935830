#pragma once

#include <QImage>

/// The pixels of pictures of any format. Any thread, reentrant.
namespace pixels {

/// True when the rows are words that mean 0xAARRGGBB: QImage::Format_RGB32, QImage::Format_ARGB32.
bool areColours(const QImage &picture);

/// True when the rows are words of 32 bits, whatever they mean.
bool have32Bits(const QImage &picture);

/// QImage::pixel, and 0 for an index that the picture's colour table does not have (a damaged
/// palette file can hold one). x and y must lie inside the picture.
QRgb at(const QImage &picture, int x, int y);

/// The picture as words for those who do not ask for the format: itself (shared, not copied) when
/// it has 32 bits per pixel, in whichever format; else a copy of its pixels in
/// QImage::Format_ARGB32. Null when memory for the copy is lacking.
QImage asWords(const QImage &picture);

} // namespace pixels
