#include "RunCutter.h"

#include <algorithm>
#include <cmath>

namespace {

// Seconds. Shots that a camera takes by itself follow each other at once; a person who sets each
// exposure by hand needs some time, and comes back from a look at the screen after a longer one.
constexpr double kQuick = 2.5;
constexpr double kByHand = 60;
constexpr double kLongest = 300;

bool isOtherLens(const Shot &one, const Shot &other)
{
    constexpr double kSameFocalLength = 0.03;
    const bool isZoomed =
        one.focalLength > 0 && other.focalLength > 0 &&
        std::abs(one.focalLength - other.focalLength) > kSameFocalLength * one.focalLength;
    return isZoomed || one.lens != other.lens;
}

} // namespace

RunCutter::RunCutter(const brackets::Sequence &shots, const BracketRules &bracketRules,
                     const brackets::SceneTest &sceneTest)
    : sequence(shots)
    , rules(bracketRules)
    , isSameScene(sceneTest)
    , answers(shots.shots.size())
{
    for (size_t i = 0; i + 1 < sequence.shots.size(); ++i) {
        pauses.push_back(brackets::pauseAfter(sequence, i));
        links.push_back(linkAfter(i));
    }
}

/// With pictures to look at, a long pause is worth a look.
RunCutter::Link RunCutter::linkAfter(size_t shot) const
{
    const double limit = rules.largestGapSeconds.value_or(isSameScene ? kLongest : kByHand);
    if (pauses[shot] > limit)
        return Link::Pause;
    return isOtherLens(sequence.shots[shot], sequence.shots[shot + 1]) ? Link::OtherLens
                                                                       : Link::Joined;
}

void RunCutter::cut()
{
    const size_t count = sequence.shots.size();
    for (size_t begin = 0; begin < count;) {
        size_t end = begin + 1;
        while (end < count && links[end - 1] == Link::Joined)
            ++end;
        begin = cutRun(begin, end);
    }
}

/// Returns where to go on: behind the run, or before a part of which the pictures tell that it is
/// none. Each pair of shots is looked at once.
size_t RunCutter::cutRun(size_t begin, size_t end)
{
    for (const Part &part : bestParts(begin, end)) {
        if (hasOtherScene(part))
            return part.begin;
        found.push_back(part);
    }
    return end;
}

/// Cuts a run where the sum of what the parts are worth becomes largest.
std::vector<RunCutter::Part> RunCutter::bestParts(size_t begin, size_t end) const
{
    struct Cut
    {
        int sum = 0;
        size_t count = 1; ///< of the shots up to the next cut; 1: a shot of no bracket
    };
    std::vector<Cut> best(end - begin + 1); // [i]: from shot begin + i on
    for (size_t i = end - begin; i-- > 0;) {
        best[i].sum = best[i + 1].sum;
        ExposurePattern pattern;
        double longestPause = 0;
        for (size_t shot = begin + i; shot < end && pattern.canGrow(); ++shot) {
            const double pause = pattern.count() > 0 ? pauses[shot - 1] : 0;
            longestPause = std::max(longestPause, pause);
            pattern.add(sequence.shots[shot], pause);
            if (pattern.count() > rules.mostPictures)
                break;
            const int own =
                pattern.differentExposures() >= rules.fewestPictures ? pattern.worth() : 0;
            const auto count = size_t(pattern.count());
            const int sum =
                own + isolation(begin + i, shot + 1, longestPause) + best[i + count].sum;
            if (own > 0 && sum > best[i].sum)
                best[i] = {sum, count};
        }
    }
    std::vector<Part> parts;
    for (size_t i = 0; i < end - begin; i += best[i].count) {
        if (best[i].count > 1)
            parts.push_back({begin + i, begin + i + best[i].count});
    }
    return parts;
}

/// A little more for a part that stands apart from what is before and behind it.
int RunCutter::isolation(size_t begin, size_t end, double longestPause) const
{
    const double apart = 2 * longestPause + 0.5;
    const bool isApartBefore = begin == 0 || pauses[begin - 1] > apart;
    const bool isApartBehind = end == sequence.shots.size() || pauses[end - 1] > apart;
    return (isApartBefore ? 1 : 0) + (isApartBehind ? 1 : 0);
}

ExposurePattern RunCutter::patternOf(const Part &part) const
{
    ExposurePattern pattern;
    for (size_t i = part.begin; i < part.end; ++i)
        pattern.add(sequence.shots[i], i > part.begin ? pauses[i - 1] : 0);
    return pattern;
}

/// Whether the metadata alone leave open that this shot of a part and the next one show one scene.
bool RunCutter::isDoubtful(const Part &part, size_t shot) const
{
    const Shot &first = sequence.shots[part.begin];
    const Shot &next = sequence.shots[shot + 1];
    const bool isChosenByCamera =
        next.mode == Shot::Exposure::Automatic && next.exposureBias == first.exposureBias;
    return pauses[shot] > kQuick || sequence.clockSeconds > 0 || isChosenByCamera;
}

/// Looks at the pictures, and remembers the answer.
bool RunCutter::showsOtherScene(size_t shot)
{
    if (!isSameScene)
        return false;
    if (!answers[shot])
        answers[shot] = isSameScene(sequence.shots[shot], sequence.shots[shot + 1]);
    const bool mustBeSeen = pauses[shot] > kByHand && !rules.largestGapSeconds;
    return *answers[shot] == brackets::Scene::Other ||
           (mustBeSeen && *answers[shot] == brackets::Scene::Unknown);
}

/// Marks the places where the scene changes.
bool RunCutter::hasOtherScene(const Part &part)
{
    bool hasOther = false;
    for (size_t shot = part.begin; shot + 1 < part.end; ++shot) {
        if (isDoubtful(part, shot) && showsOtherScene(shot)) {
            links[shot] = Link::OtherScene;
            hasOther = true;
        }
    }
    return hasOther;
}

QStringList RunCutter::warningsOf(const Part &part) const
{
    QStringList warnings;
    const ExposurePattern pattern = patternOf(part);
    if (pattern.count() > pattern.differentExposures())
        warnings += QStringLiteral("some shots have the same exposure");
    if (pattern.isContradictory())
        warnings += QStringLiteral("the exposures do not follow the exposure biases");
    bool isUnseen = false;
    for (size_t shot = part.begin; shot + 1 < part.end; ++shot)
        isUnseen = isUnseen ||
                   (isDoubtful(part, shot) &&
                    answers[shot].value_or(brackets::Scene::Unknown) == brackets::Scene::Unknown);
    if (isUnseen)
        warnings += QStringLiteral("it is not certain that all shots show the same scene");
    return warnings;
}

QString RunCutter::reasonFor(size_t shot) const
{
    const bool hasBefore = shot > 0 && isNear(shot - 1);
    const bool hasBehind = shot < links.size() && isNear(shot);
    if (!hasBefore && !hasBehind)
        return reasonForSingle(shot);
    const size_t begin = hasBefore ? shot - 1 : shot;
    const size_t end = hasBehind ? shot + 2 : shot + 1;
    if (patternOf({begin, end}).isOfOneExposure())
        return QStringLiteral("its neighbours have the same exposure");
    return QStringLiteral("with its neighbours it makes no bracket of %1 exposures or more")
        .arg(rules.fewestPictures);
}

double RunCutter::longestUsualPause() const
{
    return rules.largestGapSeconds.value_or(kByHand);
}

bool RunCutter::isNear(size_t shot) const
{
    return links[shot] == Link::Joined && pauses[shot] <= longestUsualPause();
}

QString RunCutter::reasonForSingle(size_t shot) const
{
    const auto isLink = [&](Link link) {
        return (shot > 0 && links[shot - 1] == link) ||
               (shot < links.size() && links[shot] == link);
    };
    if (isLink(Link::OtherScene))
        return QStringLiteral("its neighbours show another scene");
    if (isLink(Link::OtherLens))
        return QStringLiteral("its neighbours have another lens or focal length");
    return QStringLiteral("it stands alone, there is no shot of the same camera, size and "
                          "orientation within %1 s")
        .arg(qRound(longestUsualPause()));
}
