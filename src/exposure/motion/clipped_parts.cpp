#include "clipped_parts.h"

#include <algorithm>
#include <cstdlib>

namespace {

using motion::ClippedPart;
using motion::Movement;
using motion::Plane;
using motion::Region;
using motion::RegionChoice;
using motion::SmallShot;

constexpr size_t kLeastPlaces = 20;
constexpr double kLargestDisagreement = 0.1; ///< around a part
constexpr double kLargestClipped = 0.5;      ///< of a part, in a shot that is to show it

size_t countDisagreeing(const Region &places, const Movement &movement, size_t first, size_t second)
{
    return static_cast<size_t>(std::count_if(places.begin(), places.end(), [&](size_t place) {
        return movement.disagree(first, second, place);
    }));
}

bool isShare(size_t count, const Region &places, double share)
{
    return static_cast<double>(count) <= share * static_cast<double>(places.size());
}

bool showsPart(const SmallShot &shot, const Region &part)
{
    const auto clipped = std::count_if(
        part.begin(), part.end(), [&](size_t place) { return motion::isClipped(shot, place); });
    return isShare(static_cast<size_t>(clipped), part, kLargestClipped);
}

/// Places of the region that lie two places or less beside it.
Region around(const Region &part, const Plane &inRegion, const SmallShot &size)
{
    const int width = size.width;
    Plane left = inRegion;
    for (const size_t place : part)
        left[place] = 0;
    Region ring;
    for (const size_t place : part) {
        const int x = static_cast<int>(place) % width;
        const int y = static_cast<int>(place) / width;
        for (int row = std::max(y - 2, 0); row <= std::min(y + 2, size.height - 1); ++row) {
            for (int column = std::max(x - 2, 0); column <= std::min(x + 2, width - 1); ++column) {
                const size_t next = static_cast<size_t>(row) * static_cast<size_t>(width) +
                                    static_cast<size_t>(column);
                if (left[next] == 0)
                    continue;
                left[next] = 0;
                ring.push_back(next);
            }
        }
    }
    return ring;
}

/// Shots from the nearest in brightness to the farthest, the reference itself not.
std::vector<size_t> nearestShots(const Movement &movement, size_t reference)
{
    const std::vector<size_t> &order = movement.byBrightness();
    std::vector<long> rank(order.size());
    for (size_t i = 0; i < order.size(); ++i)
        rank[order[i]] = static_cast<long>(i);
    std::vector<size_t> nearest = order;
    nearest.erase(std::find(nearest.begin(), nearest.end(), reference));
    std::stable_sort(nearest.begin(), nearest.end(), [&](size_t a, size_t b) {
        return std::labs(rank[a] - rank[reference]) < std::labs(rank[b] - rank[reference]);
    });
    return nearest;
}

/// The shots for a part, all 0 when none shows it without cutting through something.
std::vector<char> shotsFor(const Region &part, const Region &ring, const RegionChoice &choice,
                           const std::vector<SmallShot> &shots, const Movement &movement)
{
    std::vector<char> usable(shots.size());
    const auto fits = [&](size_t shot) {
        const size_t disagreeing = countDisagreeing(ring, movement, shot, choice.reference);
        return isShare(disagreeing, ring, kLargestDisagreement);
    };
    for (const size_t shot : nearestShots(movement, choice.reference)) {
        if (!showsPart(shots[shot], part) || !fits(shot))
            continue;
        for (size_t other = 0; other < shots.size(); ++other)
            usable[other] = fits(other) && isShare(countDisagreeing(part, movement, other, shot),
                                                   part, kLargestDisagreement / 2);
        usable[shot] = 1;
        break;
    }
    return usable;
}

} // namespace

std::vector<ClippedPart> motion::clippedParts(const Region &region, const RegionChoice &choice,
                                              const std::vector<SmallShot> &shots,
                                              const Movement &movement)
{
    Plane inRegion(shots[0].covered.size());
    Plane clipped(shots[0].covered.size());
    for (const size_t place : region) {
        inRegion[place] = 1;
        clipped[place] = 1;
        for (size_t shot = 0; shot < shots.size(); ++shot)
            if (choice.kept[shot] != 0 && !isClipped(shots[shot], place))
                clipped[place] = 0;
    }
    std::vector<ClippedPart> parts;
    for (const Region &part : touching(clipped, shots[0].width, kLeastPlaces)) {
        const Region ring = around(part, inRegion, shots[0]);
        parts.push_back({part, shotsFor(part, ring, choice, shots, movement)});
    }
    return parts;
}
