#pragma once

#include "veskhdr_export.h"

#include <QImage>
#include <QList>
#include <QSize>

#include <vector>

// Median-threshold-bitmap registration of hand-held exposures (G. Ward, "Fast, Robust Image
// Registration for Compositing High Dynamic Range Photographs from Handheld Exposures", Journal of
// Graphics Tools 8(2), 2003). It finds whole-pixel translations, no rotation.
//
// Picture      words 0xAARRGGBB (QImage::Format_RGB32, QImage::Format_ARGB32); a picture of
//              another format is read through a copy in QImage::Format_ARGB32.
// Grey image   QImage::Format_Indexed8, grey levels 0..255, with a grey colour table.
// Bitmap       QImage::Format_Indexed8, bytes 0 or 1, with a black and white colour table. The
//              threshold bitmap is 1 at and above the threshold, the exclusion bitmap is 1 where
//              the grey level is far enough from the threshold to be trusted.
// Shift        shifting by (x, y) moves what is at (u, v) to (u + x, v + y).
//
// Pictures and bitmaps are borrowed unless a function says otherwise. Where sizes differ, positions
// outside an image count as 0 and nothing is written outside one. Any thread, reentrant.

/// New QImage::Format_ARGB32 picture of img's size with img's content shifted; transparent black
/// (0x00000000) where no pixel of img lands. The caller owns it.
VESKHDR_EXPORT QImage *shiftQImage(const QImage *img, int dx, int dy);

/// New bitmap of that size; its contents are not initialised. The caller owns it.
VESKHDR_EXPORT QImage *setbitmap(QSize size);

/// Sum of the bytes of an 8-bit image: the number of 1 bits of a bitmap.
VESKHDR_EXPORT qint64 sumimage(const QImage *img);

/// Fills threshold bitmap tb and exclusion bitmap eb from grey image img: tb is 1 at levels >=
/// threshold, eb is 0 at levels strictly within tolerance of the threshold.
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

/// Searches the shift of grey image img2 onto grey image img1, first at half size when level > 0,
/// then among the nine neighbours of twice that shift. Of equally good shifts the first wins (x
/// outer, y inner, from the low end). shiftX and shiftY stay unwritten when none is better than a
/// difference in every pixel.
VESKHDR_EXPORT void getExpShift(const QImage *img1, int threshold1, const QImage *img2,
                                int threshold2, int tolerance, int level, int &shiftX, int &shiftY);

/// Shift of picture img2 onto picture img1, thresholds taken at this percentile (0..1) of each
/// picture's grey levels. With skipSearch, shiftX and shiftY stay unwritten.
VESKHDR_EXPORT void mtbalign(bool skipSearch, const QImage *img1, const QImage *img2,
                             double percentile, int tolerance, int levels, int &shiftX,
                             int &shiftY);

/// Aligns pictures 1..n-1 of the list to picture 0, through the shifts between neighbours: replaces
/// each by a shifted copy that the list's owner now owns and deletes the unshifted one. Picture 0
/// stays. Ends the process with an assertion report when the list has fewer than two pictures.
VESKHDR_EXPORT void mtb_alignment(bool skipSearch, QList<QImage *> &ImagePtrList);
