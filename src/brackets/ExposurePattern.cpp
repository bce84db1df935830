#include "ExposurePattern.h"

#include <algorithm>
#include <cmath>

namespace {

// Shutter times are rounded: 1/30 s is 1/32 s.
constexpr double kSame = 0.15;
constexpr double kStepTolerance = 0.25;
constexpr double kSmallestBiasStep = 0.25;

// Worth of a shot.
constexpr int kRising = 10;
constexpr int kOutward = 10;
constexpr int kAnyOrder = 6;
constexpr int kUnevenSteps = 1;  // less
constexpr int kBrokenRhythm = 5; // less
constexpr int kTwice = 4;        // less for a shot whose exposure stood there before

/// More than the worth of a shot, so that no bracket is cut in two only to gain one.
constexpr int kBracket = 12;

bool isOneOf(const std::vector<double> &ascending, double stops)
{
    const auto at = std::lower_bound(ascending.begin(), ascending.end(), stops - kSame);
    return at != ascending.end() && *at <= stops + kSame;
}

} // namespace

void ExposurePattern::Scale::add(std::optional<double> stops)
{
    isKnown = isKnown && stops;
    if (!isKnown || isOneOf(ascending, *stops))
        return;
    const size_t count = inOrder.size();
    if (count >= 2) {
        const double before = inOrder[count - 1] - inOrder[count - 2];
        areInOneDirection = areInOneDirection && before * (*stops - inOrder[count - 1]) > 0;
        growOutward = growOutward && std::abs(*stops - inOrder[0]) >=
                                         std::abs(inOrder[count - 1] - inOrder[0]) - kStepTolerance;
    }
    inOrder.push_back(*stops);
    ascending.insert(std::upper_bound(ascending.begin(), ascending.end(), *stops), *stops);
}

/// One extra shot among up to seven is a slip, one more among each four further.
bool ExposurePattern::Scale::canGrow(int shots) const
{
    const int twice = shots - int(ascending.size());
    return isKnown && twice <= std::max(1, int(ascending.size()) / 4);
}

double ExposurePattern::Scale::smallestStep() const
{
    double smallest = ascending[1] - ascending[0];
    for (size_t i = 2; i < ascending.size(); ++i)
        smallest = std::min(smallest, ascending[i] - ascending[i - 1]);
    return smallest;
}

bool ExposurePattern::Scale::hasEvenSteps() const
{
    const double smallest = smallestStep();
    for (size_t i = 1; i < ascending.size(); ++i) {
        if (ascending[i] - ascending[i - 1] > smallest + kStepTolerance)
            return false;
    }
    return true;
}

ExposurePattern::Order ExposurePattern::Scale::order() const
{
    return areInOneDirection ? Order::Rising : growOutward ? Order::Outward : Order::Any;
}

void ExposurePattern::add(const Shot &shot, double pause)
{
    const auto trust = [](Shot::Exposure exposure) {
        return exposure == Shot::Exposure::Automatic ? 0
               : exposure == Shot::Exposure::Unknown ? 1
                                                     : 2;
    };
    if (shots == 0 || trust(shot.mode) < trust(mode))
        mode = shot.mode;
    if (shots > 0)
        pauses.push_back(pause);
    bias.add(shot.exposureBias);
    told.add(shot.bracketStops);
    light.add(shot.exposureStops());
    ++shots;
}

bool ExposurePattern::isOfOneExposure() const
{
    return shots > 1 && (light.isKnown ? light.ascending.size() == 1
                                       : bias.isKnown && bias.ascending.size() == 1);
}

bool ExposurePattern::isRhythmBroken() const
{
    if (pauses.size() < 2)
        return false;
    std::vector<double> sorted = pauses;
    std::sort(sorted.begin(), sorted.end());
    constexpr double kAlwaysQuick = 2.5;
    constexpr double kTimes = 5;
    const double usual = sorted[(sorted.size() - 1) / 2];
    return sorted.back() > kAlwaysQuick && sorted.back() > kTimes * usual + 1;
}

int ExposurePattern::worthOf(const Scale &scale, bool mayBeUneven) const
{
    const bool isEven = scale.hasEvenSteps();
    const Order order = scale.order();
    if (!isEven && (!mayBeUneven || order == Order::Any))
        return 0;
    const int ordered = order == Order::Rising    ? kRising
                        : order == Order::Outward ? kOutward
                                                  : kAnyOrder;
    const int each = ordered - (isEven ? 0 : kUnevenSteps) - (isRhythmBroken() ? kBrokenRhythm : 0);
    const int different = int(scale.ascending.size());
    return std::max(0, each * different - kTwice * (shots - different) - kBracket);
}

/// The photographer or the camera meant these to differ.
int ExposurePattern::worthOfIntent(const Scale &stops) const
{
    if (!stops.canGrow(shots) || stops.ascending.size() < 2 ||
        stops.smallestStep() < kSmallestBiasStep)
        return 0;
    return worthOf(stops, true);
}

bool ExposurePattern::isContradictory() const
{
    constexpr double kLeastShare = 0.3;
    return &scale() != &light && light.isKnown && light.range() < kLeastShare * scale().range();
}

/// Exposures that differ without a bias: set by hand; or the camera's answer to other light, as in
/// a panorama or a burst, whose steps are small and odd.
int ExposurePattern::worthOfLight() const
{
    if (!light.canGrow(shots) || light.ascending.size() < 2)
        return 0;
    const double step = light.smallestStep();
    if (mode == Shot::Exposure::ByHand || mode == Shot::Exposure::CameraBracket)
        return worthOf(light, true);
    constexpr double kLargeStep = 0.9;
    constexpr double kMiddleStep = 0.5;
    if (mode == Shot::Exposure::Automatic)
        return step >= kLargeStep && light.order() != Order::Any ? worthOf(light, false) : 0;
    constexpr size_t kMany = 4;
    constexpr double kWide = 2;
    const bool isLongRow = light.ascending.size() >= kMany && light.range() >= kWide &&
                           light.order() == Order::Rising && step >= kSmallestBiasStep;
    return isLongRow ? worthOf(light, true) : step >= kMiddleStep ? worthOf(light, false) : 0;
}

/// Biases count where they differ; some cameras note there only what the photographer chose.
const ExposurePattern::Scale &ExposurePattern::scale() const
{
    const auto differs = [](const Scale &stops) {
        return stops.isKnown && stops.ascending.size() > 1;
    };
    return differs(bias) ? bias : differs(told) ? told : light;
}

int ExposurePattern::worth() const
{
    return &scale() == &light ? worthOfLight() : worthOfIntent(scale());
}

int ExposurePattern::differentExposures() const
{
    return scale().isKnown ? int(scale().ascending.size()) : 0;
}
