#include "regions.h"

#include "FlagRuns.h"

#include <QtAlgorithms>

#include <algorithm>
#include <cmath>
#include <limits>
#include <numeric>

namespace {

using motion::Movement;
using motion::Region;
using motion::SmallShot;

/// A shot shows the same as the reference when no more of the region's places disagree.
constexpr double kLargestDisagreement = 0.04;

/// How many places of a region are looked at to choose for it, evenly spread: fewer for many shots,
/// as all pairs of them are compared.
constexpr size_t kMostSamples = 20000;
constexpr size_t kMostSamplesOfAll = 100000;

/// Logarithm of how well exposed and how rich in contrast the shot is there, as the fusion weighs
/// pixels.
double richness(const SmallShot &shot, size_t place)
{
    constexpr double kClipped = -2.3; // a tenth
    double square = 0.0;
    for (const SmallShot::Levels &channel : shot.levels) {
        const double distance = channel[place] / 255.0 - 0.5;
        square += distance * distance;
    }
    const double step = shot.highest[1][place] - shot.lowest[1][place];
    return -2 * square + std::log(step + 1) + (motion::isClipped(shot, place) ? kClipped : 0.0);
}

Region samplesOf(const Region &region, size_t shots)
{
    const size_t most = std::min(kMostSamples, kMostSamplesOfAll / shots);
    const size_t step = (region.size() + most - 1) / most;
    Region samples;
    for (size_t i = 0; i < region.size(); i += step)
        samples.push_back(region[i]);
    return samples;
}

/// The samples, given in the order of rows, in the order of the tiles of the picture that they lie
/// in.
Region inTiles(const Region &samples, const SmallShot &size)
{
    constexpr size_t kSide = 16;
    const auto width = static_cast<size_t>(size.width);
    const size_t tilesAcross = width / kSide + 1;
    const auto tileOf = [=](size_t place) {
        return place / width / kSide * tilesAcross + place % width / kSide;
    };
    std::vector<size_t> next(tileOf(size.covered.size() - 1) + tilesAcross + 1);
    for (const size_t place : samples)
        ++next[tileOf(place) + 1];
    std::partial_sum(next.begin(), next.end(), next.begin());
    Region sorted(samples.size());
    for (const size_t place : samples)
        sorted[next[tileOf(place)]++] = place;
    return sorted;
}

/// A flag for each sample, 64 that lie together in a word.
using Flags = std::vector<uint64_t>;

template <typename Condition>
Flags flagsOf(const Region &samples, Condition condition)
{
    Flags flags((samples.size() + 63) / 64);
    for (size_t i = 0; i < samples.size(); ++i)
        flags[i / 64] |= static_cast<uint64_t>(condition(samples[i])) << (i % 64);
    return flags;
}

/// Which shots disagree where in a region.
class Disagreement
{
public:
    Disagreement(const Region &places, const std::vector<SmallShot> &shots,
                 const Movement &movement)
        : count(shots.size())
        , samples(inTiles(places, shots[0]))
        , pairs(count * count)
    {
        for (size_t i = 0; i < count; ++i) {
            clipped.push_back(
                flagsOf(samples, [&](size_t place) { return motion::isClipped(shots[i], place); }));
            for (size_t j = 0; j < i; ++j)
                pairs[i * count + j] =
                    flagsOf(samples, [&](size_t place) { return movement.disagree(i, j, place); });
        }
        const std::vector<size_t> &order = movement.byBrightness();
        for (size_t distance = kNear + 1; distance < count; ++distance)
            for (size_t i = 0; i + distance < count; ++i)
                askThoseBetween(order, i, i + distance);
    }

    bool showTheSame(size_t first, size_t second) const
    {
        return first == second || isFew(flags(first, second), nullptr);
    }

    /// The same where the reference shows nothing: both may agree with that.
    bool showTheSame(size_t first, size_t second, size_t reference) const
    {
        return first == second || isFew(flags(first, second), &clipped[reference]);
    }

private:
    const Flags &flags(size_t first, size_t second) const
    {
        return pairs[std::max(first, second) * count + std::min(first, second)];
    }

    /// No more of all the samples are flagged than may be, and no more of any that lie together:
    /// a thing is small beside a large region, but not beside the places that it fills.
    bool isFew(const Flags &disagreeing, const Flags *where) const
    {
        constexpr unsigned kMostTogether = 12; // of 64
        unsigned all = 0;
        for (size_t i = 0; i < disagreeing.size(); ++i) {
            const uint64_t word = disagreeing[i] & (where != nullptr ? (*where)[i] : ~uint64_t(0));
            const unsigned together = qPopulationCount(quint64(word));
            all += together;
            if (together > kMostTogether)
                return false;
        }
        return all <= kLargestDisagreement * static_cast<double>(samples.size());
    }

    /// Shots far apart in brightness have few levels in common, and agree too easily: they disagree
    /// as well where all shots between them and near to the brighter agree with only one of them.
    void askThoseBetween(const std::vector<size_t> &order, size_t darker, size_t brighter)
    {
        Flags &own = flags(order[darker], order[brighter]);
        for (size_t word = 0; word < own.size(); ++word) {
            uint64_t all = ~uint64_t(0);
            for (size_t i = std::max(darker + 1, brighter - kNear); i < brighter; ++i)
                all &=
                    flags(order[darker], order[i])[word] ^ flags(order[i], order[brighter])[word];
            own[word] |= all;
        }
    }

    Flags &flags(size_t first, size_t second)
    {
        return pairs[std::max(first, second) * count + std::min(first, second)];
    }

    static constexpr size_t kNear = 2; ///< in the order of brightness

    size_t count;
    Region samples;
    std::vector<Flags> pairs; ///< [i * count + j], j < i
    std::vector<Flags> clipped;
};

/// The samples' richness in each shot, shot after shot.
std::vector<double> richnessOf(const Region &samples, const std::vector<SmallShot> &shots)
{
    std::vector<double> result;
    for (const SmallShot &shot : shots)
        for (const size_t place : samples)
            result.push_back(richness(shot, place));
    return result;
}

/// A set of shots that show the same, and how rich the picture of a region is that they make.
struct Party
{
    std::vector<char> kept;
    std::vector<double> best; ///< of each sample
};

double sumOf(const double *numbers, size_t count)
{
    return std::accumulate(numbers, numbers + count, 0.0);
}

/// Shots from the richest of the samples to the poorest.
std::vector<size_t> byRichness(const std::vector<double> &rich, size_t shots)
{
    const size_t samples = rich.size() / shots;
    std::vector<double> sums;
    for (size_t shot = 0; shot < shots; ++shot)
        sums.push_back(sumOf(&rich[shot * samples], samples));
    std::vector<size_t> order(shots);
    std::iota(order.begin(), order.end(), size_t(0));
    std::stable_sort(order.begin(), order.end(),
                     [&](size_t a, size_t b) { return sums[a] > sums[b]; });
    return order;
}

/// The reference and in this order whoever agrees with it, and with those that are in already where
/// the reference shows nothing.
Party partyOf(size_t reference, const std::vector<size_t> &order, const Disagreement &disagreement,
              const std::vector<double> &rich)
{
    const size_t shots = order.size();
    const size_t samples = rich.size() / shots;
    Party party{std::vector<char>(shots), std::vector<double>(samples)};
    const auto take = [&](size_t shot) {
        const double *own = &rich[shot * samples];
        const bool isFirst = shot == reference;
        for (size_t i = 0; i < samples; ++i)
            party.best[i] = isFirst ? own[i] : std::max(party.best[i], own[i]);
        party.kept[shot] = 1;
    };
    const auto agreesWithAll = [&](size_t shot) {
        for (size_t other = 0; other < shots; ++other)
            if (party.kept[other] != 0 && !disagreement.showTheSame(shot, other, reference))
                return false;
        return disagreement.showTheSame(shot, reference);
    };
    take(reference);
    for (const size_t shot : order)
        if (shot != reference && agreesWithAll(shot))
            take(shot);
    return party;
}

} // namespace

std::vector<Region> motion::touching(const Plane &flags, int width, size_t least)
{
    const FlagRuns found(flags, static_cast<size_t>(width));
    const std::vector<size_t> sizes = found.groupSizes();
    std::vector<Region> groups(found.groupCount());
    for (const FlagRuns::Run &run : found.runs())
        if (sizes[run.group] >= least)
            for (size_t place = run.begin; place < run.end; ++place)
                groups[run.group].push_back(place);
    const auto isEmpty = [](const Region &region) { return region.empty(); };
    groups.erase(std::remove_if(groups.begin(), groups.end(), isEmpty), groups.end());
    return groups;
}

bool motion::isClipped(const SmallShot &shot, size_t place)
{
    constexpr int kBright = 250;
    constexpr int kDark = 5;
    const auto isBright = [&](const SmallShot::Levels &channel) {
        return channel[place] >= kBright;
    };
    const auto isDark = [&](const SmallShot::Levels &channel) { return channel[place] <= kDark; };
    return std::any_of(shot.levels.begin(), shot.levels.end(), isBright) ||
           std::all_of(shot.levels.begin(), shot.levels.end(), isDark);
}

motion::RegionChoice motion::choose(const Region &region, const std::vector<SmallShot> &shots,
                                    const Movement &movement, int fixed)
{
    const size_t count = shots.size();
    const Region samples = samplesOf(region, count);
    const Disagreement disagreement(samples, shots, movement);
    const std::vector<double> rich = richnessOf(samples, shots);
    const std::vector<size_t> order = byRichness(rich, count);
    RegionChoice choice;
    double bestSum = -std::numeric_limits<double>::infinity();
    for (size_t reference = 0; reference < count; ++reference) {
        if (fixed >= 0 && reference != static_cast<size_t>(fixed))
            continue;
        Party party = partyOf(reference, order, disagreement, rich);
        const double sum = sumOf(party.best.data(), party.best.size());
        if (sum <= bestSum)
            continue;
        bestSum = sum;
        choice = {reference, std::move(party.kept)};
    }
    return choice;
}
