#include "registration.h"

#include "SetRegistration.h"
#include "reference_shot.h"

#include <algorithm>
#include <new>

namespace registration {
namespace {

Result registered(const QList<QImage> &shots, const Options &options)
{
    static const std::atomic<bool> never{false};
    const std::atomic<bool> &isCancelled = options.isCancelled ? *options.isCancelled : never;
    const std::vector<exposure::ShotLight> lights = exposure::lightsOf(shots);
    Result result;
    const bool isGiven = options.reference >= 0 && options.reference < shots.size();
    result.reference = isGiven ? options.reference : exposure::referenceShot(lights);
    SetRegistration set(shots, result.reference, options, isCancelled);
    result.transforms = set.run(exposure::orderOfBrightness(lights));
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
