#pragma once

#include <QByteArray>

#include <hwy/targets.h>

#include <vector>

/// The vector targets that this processor has, for tests that force them one by one.
namespace vectorTargets {

inline std::vector<int64_t> supported()
{
    std::vector<int64_t> targets;
    hwy::SetSupportedTargetsForTest(0);
    for (int64_t rest = hwy::SupportedTargets(); rest != 0; rest &= rest - 1)
        targets.push_back(rest & -rest);
    return targets;
}

/// Uses this target alone while it exists.
class Forced
{
public:
    explicit Forced(int64_t target)
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
};

} // namespace vectorTargets
