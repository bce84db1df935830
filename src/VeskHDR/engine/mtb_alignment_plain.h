#pragma once

#include <QImage>
#include <QList>
#include <QPoint>

#include <vector>

// The search of mtb_alignment.h written down plainly, on the bitmaps of one byte per pixel of
// mtb_primitives.h: the definition that the fast code (mtb_search.h) is held against, and the code
// that takes over where the pictures of a pair differ in size. It shares no step with the fast
// code.

namespace plain {

void getExpShift(const QImage *img1, int threshold1, const QImage *img2, int threshold2,
                 int tolerance, int level, int &shiftX, int &shiftY);

void mtbalign(bool skipSearch, const QImage *img1, const QImage *img2, double percentile,
              int tolerance, int levels, int &shiftX, int &shiftY);

/// mtb::pairShifts (mtb_shifts.h), plainly: thresholds at the median, tolerance 4.
std::vector<QPoint> pairShifts(const QList<QImage *> &pictures);

} // namespace plain
