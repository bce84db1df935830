#pragma once

#include <QImage>

#include <functional>

namespace picture {

/// The picture with fewer pixels, each the mean of the area that it covers, rounded. Formats RGB32,
/// RGBX64, the premultiplied ones and the greys of 8 and 16 bits stay; others, and sizes that are
/// larger in one direction, are left to Qt, which keeps the format or takes a near one. Profile and
/// resolution stay. Null for an empty size. Any thread; uses all cores inside the call, equal
/// results on any number of them. Not those threads of Qt's on which the GUI thread's painting
/// waits: there it would wait for all of this.
QImage areaMean(const QImage &picture, QSize size);
/// The same of an area within the picture.
QImage areaMean(const QImage &picture, const QRect &area, QSize size);

/// Pixels that lie side by side.
struct PixelRun
{
    const uchar *pixels;
    int end; ///< the column behind the last of them
};
/// A picture whose pixels lie in several places.
struct PixelSource
{
    QImage model; ///< of any size; gives the format, the colours and the resolution
    /// From column x of row y on. Called on several threads.
    std::function<PixelRun(int x, int y)> run;
};
/// Whether pixels of that format are taken from such a source.
bool isTakenFromRuns(QImage::Format format);
/// The same of an area of such a picture; size: not larger than the area.
QImage areaMean(const PixelSource &source, const QRect &area, QSize size);

} // namespace picture
