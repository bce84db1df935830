#pragma once

#include "planes.h"

#include <cstddef>
#include <vector>

namespace motion {

/// The flags (0 or 1) of a plane as runs within rows, and which of them touch one another, also
/// across corners. Runs stand in the order of their places; groups are numbered by their first
/// place. Throws std::bad_alloc.
class FlagRuns
{
public:
    struct Run
    {
        size_t begin; ///< places
        size_t end;
        size_t group;
    };

    FlagRuns(const Plane &flags, size_t width);

    const std::vector<Run> &runs() const { return all; }
    size_t groupCount() const { return groups; }

    /// How many places each group has.
    std::vector<size_t> groupSizes() const;

private:
    void findRuns(const Plane &flags, size_t width);
    void joinRows(size_t above, size_t row, size_t end, size_t width);
    size_t firstOf(size_t run);
    void join(size_t first, size_t second);
    void numberGroups();

    std::vector<Run> all;         ///< while groups form, `group` is an earlier run that it touches
    std::vector<size_t> rowStart; ///< the first run of each row, and the end
    size_t groups = 0;
};

} // namespace motion
