#include "ShotPyramid.h"

#include <algorithm>

namespace registration {
namespace {

constexpr qint64 kMostPixelsUnscaled = 1500000;
constexpr qint64 kMostPixelsHalved = 64000000;
constexpr int kLeastSide = 16; ///< of a level

GreyPlane finestGrey(const QImage &shot, int scale, const std::atomic<bool> &isCancelled)
{
    GreyPlane grey = greyPlane(shot, scale > 1, isCancelled);
    return scale > 2 ? halved(grey, isCancelled) : std::move(grey);
}

} // namespace

int finestScale(QSize size)
{
    const qint64 pixels = qint64(size.width()) * size.height();
    if (pixels <= kMostPixelsUnscaled)
        return 1;
    return pixels <= kMostPixelsHalved ? 2 : 4;
}

ShotPyramid shotPyramid(const QImage &shot, int finestScale, const std::atomic<bool> &isCancelled)
{
    ShotPyramid pyramid{shot.size(), finestScale, {}};
    GreyPlane grey = finestGrey(shot, finestScale, isCancelled);
    while (!isCancelled) {
        pyramid.levels.push_back(normalised(grey, isCancelled));
        if (std::max(grey.width, grey.height) <= kCoarsestSide ||
            std::min(grey.width, grey.height) < 2 * kLeastSide)
            break;
        grey = halved(grey, isCancelled);
    }
    return pyramid;
}

} // namespace registration
