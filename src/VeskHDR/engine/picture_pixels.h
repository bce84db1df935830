#pragma once

#include <QImage>

/// Pictures as 32-bit words 0xAARRGGBB, whatever format the decoder chose. Any thread, reentrant.
namespace pixels {

/// True when the rows already are such words: QImage::Format_RGB32 and QImage::Format_ARGB32.
bool areWords(const QImage &picture);

/// QImage::pixel, and 0 for an index that the picture's colour table does not have (a damaged
/// palette file can hold one). x and y must lie inside the picture.
QRgb at(const QImage &picture, int x, int y);

/// The picture itself (shared, not copied) when its rows are words already, else a copy of its
/// pixels in QImage::Format_ARGB32. Null when memory for the copy is lacking.
QImage asWords(const QImage &picture);

} // namespace pixels
