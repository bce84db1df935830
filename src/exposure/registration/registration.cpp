#include "registration.h"

#include "SetRegistration.h"
#include "ShotLight.h"

#include <algorithm>
#include <new>

namespace registration {
namespace {

Result registered(const QList<QImage> &shots, const Options &options)
{
    static const std::atomic<bool> never{false};
    const std::atomic<bool> &isCancelled = options.isCancelled ? *options.isCancelled : never;
    std::vector<ShotLight> lights;
    for (const QImage &shot : shots)
        lights.push_back(shotLight(shot));
    Result result;
    const bool isGiven = options.reference >= 0 && options.reference < shots.size();
    result.reference = isGiven ? options.reference : bestExposed(lights);
    SetRegistration set(shots, result.reference, options, isCancelled);
    result.transforms = set.run(orderOfBrightness(lights));
    result.outcome = isCancelled ? Outcome::Cancelled : Outcome::Done;
    return result;
}

} // namespace

Result registerShots(const QList<QImage> &shots, const Options &options)
{
    const bool isAnyNull =
        std::any_of(shots.begin(), shots.end(), [](const QImage &shot) { return shot.isNull(); });
    if (shots.isEmpty() || isAnyNull)
        return {};
    Result result;
    try {
        result = registered(shots, options);
    } catch (const std::bad_alloc &) {
        result.outcome = Outcome::OutOfMemory;
    }
    if (result.outcome != Outcome::Done)
        result.transforms.clear();
    return result;
}

} // namespace registration
