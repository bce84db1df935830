#pragma once

/// While one lives, QImageReader takes as much memory as a picture needs. By itself it refuses
/// pictures beyond a limit of the whole process; readers that know a picture's size from its header
/// and have a limit of their own lift that one. After the last the limit is again what it was, or
/// what somebody else has set meanwhile. Any thread, several at once.
class AllocationLimitLift
{
public:
    AllocationLimitLift();
    ~AllocationLimitLift();
    AllocationLimitLift(const AllocationLimitLift &) = delete;
    AllocationLimitLift &operator=(const AllocationLimitLift &) = delete;
};
