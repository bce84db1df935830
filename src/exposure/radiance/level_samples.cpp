#include "level_samples.h"

#include <QRgba64>

#include <algorithm>
#include <optional>

namespace radiance {
namespace {

constexpr int kCellsAcross = 64;
constexpr int kReach = 2;           // of the square whose levels must be alike
constexpr int kPlacesPerCell = 4;   // each way
constexpr int kMostDifference = 16; // of levels in the square

struct Pixel
{
    std::array<int, 3> levels;
    bool isOpaque;
};

/// The pixel with levels of 8 bits.
Pixel pixelAt(const QImage &picture, int x, int y)
{
    if (picture.depth() == 64) {
        const QRgba64 word = reinterpret_cast<const QRgba64 *>(picture.constScanLine(y))[x];
        return {{word.red8(), word.green8(), word.blue8()}, word.alpha() == 0xFFFF};
    }
    const QRgb word = reinterpret_cast<const QRgb *>(picture.constScanLine(y))[x];
    const bool isOpaque = qAlpha(word) == 255 || !picture.hasAlphaChannel();
    return {{qRed(word), qGreen(word), qBlue(word)}, isOpaque};
}

/// How far the levels around a place lie apart in a shot; `enough` where they lie that far apart or
/// farther, or where the place may not be used. Most places show that in their first pixels.
int differenceAround(const Shot &shot, QPoint place, int enough)
{
    const QImage &mask = shot.picture.mask;
    if (!mask.isNull() && mask.constScanLine(place.y() / 2)[place.x() / 2] != 255)
        return enough;
    std::array<int, 3> least = {255, 255, 255};
    std::array<int, 3> most = {0, 0, 0};
    int difference = 0;
    for (int y = place.y() - kReach; y <= place.y() + kReach; ++y) {
        for (int x = place.x() - kReach; x <= place.x() + kReach; ++x) {
            const Pixel pixel = pixelAt(shot.picture.picture, x, y);
            for (size_t c = 0; c < 3; ++c) {
                least[c] = std::min(least[c], pixel.levels[c]);
                most[c] = std::max(most[c], pixel.levels[c]);
                difference = std::max(difference, most[c] - least[c]);
            }
            if (difference >= enough || !pixel.isOpaque)
                return enough;
        }
    }
    return difference;
}

int worstDifference(const std::vector<Shot> &shots, QPoint place, int enough)
{
    int worst = 0;
    for (const Shot &shot : shots) {
        worst = std::max(worst, differenceAround(shot, place, enough));
        if (worst >= enough)
            return enough;
    }
    return worst;
}

LevelSample sampleAt(const std::vector<Shot> &shots, QPoint place)
{
    constexpr int kSide = 2 * kReach + 1;
    LevelSample sample;
    for (const Shot &shot : shots) {
        std::array<int, 3> sums = {};
        for (int y = place.y() - kReach; y <= place.y() + kReach; ++y)
            for (int x = place.x() - kReach; x <= place.x() + kReach; ++x)
                for (size_t c = 0; c < 3; ++c)
                    sums[c] += pixelAt(shot.picture.picture, x, y).levels[c];
        std::array<unsigned char, 3> mean = {};
        for (size_t c = 0; c < 3; ++c)
            mean[c] = static_cast<unsigned char>((sums[c] + kSide * kSide / 2) / (kSide * kSide));
        sample.levels.push_back(mean);
    }
    return sample;
}

/// The place in the cell that differs least; nothing when all differ too much.
std::optional<QPoint> smoothestPlace(const std::vector<Shot> &shots, const QRect &cell)
{
    const int step = std::max(1, std::max(cell.width(), cell.height()) / kPlacesPerCell);
    int least = kMostDifference + 1;
    std::optional<QPoint> best;
    for (int y = cell.top(); y <= cell.bottom(); y += step) {
        for (int x = cell.left(); x <= cell.right(); x += step) {
            const int difference = worstDifference(shots, {x, y}, least);
            if (difference < least) {
                least = difference;
                best = QPoint(x, y);
            }
        }
    }
    return best;
}

} // namespace

std::vector<LevelSample> levelSamples(const std::vector<Shot> &shots)
{
    const QSize size = shots.front().picture.picture.size();
    const QRect usable(kReach, kReach, size.width() - 2 * kReach, size.height() - 2 * kReach);
    const int side = std::max(2 * kReach + 1, std::max(size.width(), size.height()) / kCellsAcross);
    std::vector<LevelSample> samples;
    for (int top = usable.top(); top <= usable.bottom(); top += side) {
        for (int left = usable.left(); left <= usable.right(); left += side) {
            const QRect cell = QRect(left, top, side, side) & usable;
            if (const auto place = smoothestPlace(shots, cell))
                samples.push_back(sampleAt(shots, *place));
        }
    }
    return samples;
}

} // namespace radiance
