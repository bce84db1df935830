#pragma once

#include "veskhdr_export.h"

#include <QImage>
#include <QSize>

#include <vector>

// The steps of median-threshold-bitmap registration (G. Ward, "Fast, Robust Image Registration for
// Compositing High Dynamic Range Photographs from Handheld Exposures", Journal of Graphics Tools
// 8(2), 2003) one by one, on pictures and on bitmaps of one byte per pixel.
//
// Picture      words of 32 bits, read as 0xAARRGGBB as they stand, whichever of the 32-bit formats
//              they are; a picture of another depth is read through a copy in
//              QImage::Format_ARGB32. Who wants another 32-bit format converted does it on reading.
// Grey image   QImage::Format_Indexed8, grey levels 0..255, with a grey colour table.
// Bitmap       QImage::Format_Indexed8, bytes 0 or 1, with a black and white colour table. The
//              threshold bitmap is 1 at and above the threshold, the exclusion bitmap is 1 where
//              the grey level is far enough from the threshold to be trusted.
// Shift        shifting by (x, y) moves what is at (u, v) to (u + x, v + y). Any int will do.
//
// Pictures and bitmaps are borrowed unless a function says otherwise. Where sizes differ, positions
// outside an image count as 0 and nothing is written outside one. Any thread, reentrant.

/// New QImage::Format_ARGB32 picture of img's size with img's content shifted; transparent black
/// (0x00000000) where no pixel of img lands. The caller owns it and it owns its pixels. A null
/// picture when memory for the pixels is lacking.
VESKHDR_EXPORT QImage *shiftQImage(const QImage *img, int dx, int dy);

/// New bitmap of that size; its contents are not initialised. The caller owns it.
VESKHDR_EXPORT QImage *setbitmap(QSize size);

/// Sum of the bytes of an 8-bit image: the number of 1 bits of a bitmap.
VESKHDR_EXPORT qint64 sumimage(const QImage *img);

/// Fills threshold bitmap tb and exclusion bitmap eb from grey image img: tb is 1 at levels >=
/// threshold, eb is 0 at levels strictly within tolerance of the threshold. Any threshold and
/// tolerance; their sum and difference do not overflow.
VESKHDR_EXPORT void setThreshold(const QImage *img, int threshold, int tolerance, QImage *tb,
                                 QImage *eb);

/// Writes the grey image of picture img into lum, a QImage::Format_Indexed8 image of the same size,
/// and into cdf[i] (256 entries) the fraction of pixels whose grey level is at most i.
VESKHDR_EXPORT void getLum(const QImage *img, QImage *lum, std::vector<double> &cdf);

/// Difference bitmap of two threshold bitmaps under their exclusion bitmaps. In each row the
/// exclusion bitmaps are read one after another at the differing pixels only (eb2 only where eb1
/// let the pixel pass), not at the pixel's own column. This decides which shift wins.
VESKHDR_EXPORT void XORimages(const QImage *tb1, const QImage *eb1, const QImage *tb2,
                              const QImage *eb2, QImage *out);

/// Writes bitmap in, shifted, into the existing bitmap out; 0 where nothing of in lands.
VESKHDR_EXPORT void shiftimage(const QImage *in, int dx, int dy, QImage *out);
