#include "mtb_shifts.h"

#include "mtb_alignment.h"
#include "mtb_alignment_plain.h"
#include "mtb_search.h"

#include <algorithm>
#include <cmath>
#include <memory>
#include <numeric>

namespace {

bool sameSize(const QList<QImage *> &pictures)
{
    return std::all_of(pictures.begin(), pictures.end(), [&](const QImage *picture) {
        return !picture->isNull() && picture->size() == pictures.first()->size();
    });
}

} // namespace

int mtb::pyramidLevels(QSize size)
{
    const int smallerSide = std::min(size.width(), size.height());
    if (smallerSide < 1)
        return 0;
    return std::max(static_cast<int>(std::floor(std::log(smallerSide) / 0.6931471805599453)) - 6,
                    0);
}

int mtb::largestFindableShift(int levels)
{
    return (2 << levels) - 1;
}

std::vector<QPoint> mtb::pairShifts(const QList<QImage *> &pictures)
{
    if (!sameSize(pictures))
        return pairShiftsPlain(pictures);
    const int levels = pyramidLevels(pictures.first()->size());
    std::vector<QPoint> shifts(static_cast<size_t>(pictures.size()) - 1);
    BitmapPyramid previous = bitmapPyramid(*pictures.first(), kMedian, kTolerance, levels);
    for (size_t i = 0; i < shifts.size(); ++i) {
        BitmapPyramid next =
            bitmapPyramid(*pictures[static_cast<int>(i) + 1], kMedian, kTolerance, levels);
        search(previous, next, shifts[i].rx(), shifts[i].ry());
        previous = std::move(next);
    }
    return shifts;
}

std::vector<QPoint> mtb::summedShifts(const std::vector<QPoint> &pairShifts)
{
    std::vector<QPoint> sums(pairShifts.size());
    std::partial_sum(pairShifts.begin(), pairShifts.end(), sums.begin());
    return sums;
}

void mtb::shiftPictures(QList<QImage *> &pictures, const std::vector<QPoint> &summedShifts)
{
    // The picture at position 1 is always the next unshifted one.
    for (const QPoint shift : summedShifts) {
        const std::unique_ptr<QImage> unshifted(pictures.takeAt(1));
        pictures.append(shiftQImage(unshifted.get(), shift.x(), shift.y()));
    }
}
