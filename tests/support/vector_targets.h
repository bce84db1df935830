#pragma once

#include <hwy/targets.h>

#include <vector>

/// The vector targets that were compiled and that this processor has, for tests that force them one
/// by one.
namespace vectorTargets {

inline std::vector<int64_t> all()
{
    hwy::SetSupportedTargetsForTest(0);
    return hwy::SupportedAndGeneratedTargets();
}

/// Uses this target alone while it exists.
class Forced
{
public:
    explicit Forced(int64_t wanted)
        : target(wanted)
    {
        hwy::SetSupportedTargetsForTest(target);
        hwy::GetChosenTarget().Update(hwy::SupportedTargets());
    }
    ~Forced()
    {
        hwy::SetSupportedTargetsForTest(0);
        hwy::GetChosenTarget().Update(hwy::SupportedTargets());
    }
    Forced(const Forced &) = delete;
    Forced &operator=(const Forced &) = delete;

    const int64_t target;
};

} // namespace vectorTargets
