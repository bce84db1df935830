#pragma once

#include "mtb_primitives.h"
#include "veskhdr_export.h"

#include <QImage>
#include <QList>

// Median-threshold-bitmap registration of hand-held exposures: the search over its steps, which
// mtb_primitives.h has, with the source of the method and what a picture, a bitmap and a shift are.
// It finds whole-pixel translations, no rotation.
//
// Nothing is thrown: a search that lacks memory leaves shiftX and shiftY unwritten. Thresholds,
// tolerances and levels may be any int; a search on more than 30 levels is one on 30, whose largest
// shift just fits an int.

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
/// each by a shifted picture with pixels of its own, which the list's owner now owns, and deletes
/// the unshifted one, whose pixels are not written. Picture 0 stays. When memory runs out, those
/// not yet replaced stay too. Ends the process with an assertion report when the list has fewer
/// than two pictures.
VESKHDR_EXPORT void mtb_alignment(bool skipSearch, QList<QImage *> &ImagePtrList);
