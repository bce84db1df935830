#include "reference_shot.h"

#include <algorithm>
#include <cstdlib>
#include <numeric>

namespace exposure {
namespace {

constexpr double kAsGood = 0.8; ///< of the best score

/// What is clipped cannot be had back, and what stands beside it gains contrast: so clipping counts
/// twice.
double score(const ShotLight &light)
{
    return light.visibleShare * light.visibleShare * light.detail;
}

struct Candidate
{
    int shot;
    int fromMiddle; ///< of the set, in half places
    double score;
};

bool comesBefore(const Candidate &a, const Candidate &b)
{
    return a.fromMiddle != b.fromMiddle ? a.fromMiddle < b.fromMiddle : a.score > b.score;
}

} // namespace

int referenceShot(const std::vector<ShotLight> &lights)
{
    double best = 0.0;
    for (const ShotLight &light : lights)
        best = std::max(best, score(light));
    const std::vector<int> order = orderOfBrightness(lights);
    const int last = static_cast<int>(order.size()) - 1;
    std::vector<Candidate> candidates;
    for (int rank = 0; rank <= last; ++rank) {
        const int shot = order[size_t(rank)];
        const double shows = score(lights[size_t(shot)]);
        if (shows >= kAsGood * best)
            candidates.push_back({shot, std::abs(2 * rank - last), shows});
    }
    return std::min_element(candidates.begin(), candidates.end(), comesBefore)->shot;
}

int referenceShot(const QList<QImage> &shots)
{
    return referenceShot(lightsOf(shots));
}

std::vector<ShotLight> lightsOf(const QList<QImage> &shots)
{
    std::vector<ShotLight> lights;
    for (const QImage &shot : shots)
        lights.push_back(shotLight(shot));
    return lights;
}

std::vector<int> orderOfBrightness(const std::vector<ShotLight> &lights)
{
    std::vector<int> order(lights.size());
    std::iota(order.begin(), order.end(), 0);
    std::stable_sort(order.begin(), order.end(), [&](int a, int b) {
        const ShotLight &first = lights[size_t(a)];
        const ShotLight &second = lights[size_t(b)];
        if (first.brightness != second.brightness)
            return first.brightness < second.brightness;
        return first.fingerprint < second.fingerprint;
    });
    return order;
}

} // namespace exposure
