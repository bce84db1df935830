#include "bracket_finder.h"

#include "natural_order.h"

#include <algorithm>
#include <tuple>

namespace {

using Iterator = std::vector<Shot>::const_iterator;

constexpr int kMostPictures = 9; // no camera brackets more
constexpr double kSmallestBiasStep = 0.25;
constexpr double kSmallestExposureStep = 0.5;
// Shutter times are rounded: 1/30 s is 1/32 s.
constexpr double kStepTolerance = 0.25;

/// Shots that may stand in one bracket come together, by time. Others in between, such as what was
/// made of a bracket in a folder, do not disturb.
bool isBefore(const Shot &one, const Shot &other)
{
    const auto kind = [](const Shot &shot) {
        return std::make_tuple(shot.model, shot.size.width(), shot.size.height(), shot.orientation);
    };
    if (kind(one) != kind(other))
        return kind(one) < kind(other);
    if (one.takenAt != other.takenAt)
        return one.takenAt < other.takenAt;
    return brackets::isBeforeNaturally(one.path, other.path);
}

bool continues(const Shot &earlier, const Shot &later, double largestGapSeconds)
{
    const double seconds = double(earlier.takenAt.msecsTo(later.takenAt)) / 1000;
    return earlier.model == later.model && earlier.size == later.size &&
           earlier.orientation == later.orientation &&
           seconds <= largestGapSeconds + earlier.exposureSeconds;
}

/// What of: the shots' values in stops; empty when one has none.
template <typename Value>
std::vector<double> valuesOf(Iterator first, Iterator last, Value value)
{
    std::vector<double> values;
    for (auto shot = first; shot != last; ++shot) {
        const std::optional<double> stops = value(*shot);
        if (!stops)
            return {};
        values.push_back(*stops);
    }
    return values;
}

struct Steps
{
    double smallest = 0;
    double largest = 0;

    bool areEven() const { return largest - smallest <= kStepTolerance; }
};

/// Between the values in ascending order; there must be two or more.
Steps stepsOf(std::vector<double> values)
{
    std::sort(values.begin(), values.end());
    Steps steps{values[1] - values[0], 0};
    for (size_t i = 1; i < values.size(); ++i) {
        const double step = values[i] - values[i - 1];
        steps.smallest = std::min(steps.smallest, step);
        steps.largest = std::max(steps.largest, step);
    }
    return steps;
}

/// How much the shots look like one bracket, 0 for not at all. Grows with their number, so that
/// the sum over a run favours cuts that leave few shots alone. Two or more shots.
int resemblance(Iterator first, Iterator last)
{
    constexpr int kEvenSteps = 10; // per shot
    constexpr int kEvenStepsWithoutMiddle = 9;
    constexpr int kUnevenSteps = 5;
    constexpr int kPair = 3; // steps of two are always even
    const int count = int(last - first);
    const int evenWorth = count % 2 == 1 ? kEvenSteps : kEvenStepsWithoutMiddle;

    const std::vector<double> biases =
        valuesOf(first, last, [](const Shot &shot) { return shot.exposureBias; });
    const Steps biasSteps = biases.empty() ? Steps() : stepsOf(biases);
    if (biasSteps.smallest >= kSmallestBiasStep) {
        const int worth = biasSteps.areEven() ? evenWorth : kUnevenSteps;
        return count * (count == 2 ? kPair : worth);
    }
    if (biasSteps.largest > 0)
        return 0;
    const std::vector<double> exposures =
        valuesOf(first, last, [](const Shot &shot) { return shot.exposureStops(); });
    const Steps steps = exposures.empty() ? Steps() : stepsOf(exposures);
    if (steps.smallest < kSmallestExposureStep || !steps.areEven())
        return 0;
    return count * (count == 2 ? kPair : evenWorth);
}

/// Cuts a run where the sum of resemblances becomes largest, and appends what is a bracket.
void cut(Iterator first, Iterator last, int fewestPictures, std::vector<Bracket> &brackets)
{
    struct Cut
    {
        int sum = 0;
        int count = 1; ///< of the shots up to the next cut; 1: a shot of no bracket
    };
    const int shots = int(last - first);
    std::vector<Cut> best(size_t(shots) + 1); // [i]: from shot i on
    for (int i = shots - 1; i >= 0; --i) {
        best[size_t(i)].sum = best[size_t(i) + 1].sum;
        for (int count = fewestPictures; count <= std::min(kMostPictures, shots - i); ++count) {
            const int own = resemblance(first + i, first + i + count);
            const int sum = own + best[size_t(i) + size_t(count)].sum;
            if (own > 0 && sum > best[size_t(i)].sum)
                best[size_t(i)] = {sum, count};
        }
    }
    for (int i = 0; i < shots; i += best[size_t(i)].count) {
        if (best[size_t(i)].count > 1)
            brackets.emplace_back(first + i, first + i + best[size_t(i)].count);
    }
}

} // namespace

std::vector<Bracket> brackets::find(std::vector<Shot> shots, const BracketRules &rules)
{
    std::sort(shots.begin(), shots.end(), isBefore);
    std::vector<Bracket> brackets;
    for (auto first = shots.cbegin(); first != shots.cend();) {
        auto last = first + 1;
        while (last != shots.cend() && continues(*(last - 1), *last, rules.largestGapSeconds))
            ++last;
        cut(first, last, rules.fewestPictures, brackets);
        first = last;
    }
    std::stable_sort(brackets.begin(), brackets.end(),
                     [](const Bracket &one, const Bracket &other) {
                         return one.front().takenAt < other.front().takenAt;
                     });
    return brackets;
}
