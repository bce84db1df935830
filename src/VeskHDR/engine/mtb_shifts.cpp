#include "mtb_shifts.h"

#include "assertion_report.h"
#include "mtb_alignment_plain.h"
#include "mtb_search.h"

#include <algorithm>
#include <cmath>
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
    return static_cast<int>((qint64(2) << std::clamp(levels, 0, kMostLevels)) - 1);
}

std::vector<QPoint> mtb::pairShifts(const QList<QImage *> &pictures)
{
    if (!sameSize(pictures))
        return plain::pairShifts(pictures);
    const QSize size = pictures.first()->size();
    const std::vector<Halving> halvings = mtb::halvings(size, pyramidLevels(size));
    std::vector<QPoint> shifts(static_cast<size_t>(pictures.size()) - 1);
    GreyImage grey(size.width(), size.height());
    BitmapPyramid previous = bitmapPyramid(*pictures.first(), kMedian, kTolerance, halvings, grey);
    for (size_t i = 0; i < shifts.size(); ++i) {
        BitmapPyramid next =
            bitmapPyramid(*pictures[static_cast<int>(i) + 1], kMedian, kTolerance, halvings, grey);
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

mtb::Alignment mtb::alignPictures(QList<QImage *> &pictures, bool skipSearch, shift::Memory memory)
{
    assertion::require(pictures.size() >= 2, "ImagePtrList.size()>=2", "mtb_alignment",
                       assertion::kAlignmentFile, 80);
    Alignment found;
    if (!skipSearch) {
        found.pairShifts = pairShifts(pictures);
        found.summedShifts = summedShifts(found.pairShifts);
    }
    std::vector<QPoint> shifts = found.summedShifts;
    shifts.resize(static_cast<size_t>(pictures.size()) - 1);
    shift::pictures(pictures, shifts, memory);
    return found;
}
