#include "FlagRuns.h"

#include <algorithm>
#include <cstring>

motion::FlagRuns::FlagRuns(const Plane &flags, size_t width)
{
    findRuns(flags, width);
    for (size_t row = 1; row + 1 < rowStart.size(); ++row)
        joinRows(rowStart[row - 1], rowStart[row], rowStart[row + 1], width);
    numberGroups();
}

void motion::FlagRuns::findRuns(const Plane &flags, size_t width)
{
    for (size_t row = 0; row < flags.size(); row += width) {
        rowStart.push_back(all.size());
        const uint8_t *const end = &flags[row] + width;
        const auto next = [end](const uint8_t *from, int flag) {
            const void *found = std::memchr(from, flag, static_cast<size_t>(end - from));
            return found == nullptr ? end : static_cast<const uint8_t *>(found);
        };
        const auto place = [&](const uint8_t *flag) {
            return static_cast<size_t>(flag - flags.data());
        };
        for (const uint8_t *begin = next(&flags[row], 1); begin < end;) {
            const uint8_t *behind = next(begin, 0);
            all.push_back({place(begin), place(behind), all.size()});
            begin = next(behind, 1);
        }
    }
    rowStart.push_back(all.size());
}

/// Joins the runs of a row, [row, end), with those of the row above it, [above, row).
void motion::FlagRuns::joinRows(size_t above, size_t row, size_t end, size_t width)
{
    const size_t endAbove = row;
    while (above < endAbove && row < end) {
        const size_t begin = all[above].begin + width; // as if in this row
        const size_t behind = all[above].end + width;
        if (begin <= all[row].end && all[row].begin <= behind)
            join(above, row);
        if (behind < all[row].end)
            ++above;
        else
            ++row;
    }
}

size_t motion::FlagRuns::firstOf(size_t run)
{
    while (all[run].group != run)
        run = all[run].group = all[all[run].group].group;
    return run;
}

void motion::FlagRuns::join(size_t first, size_t second)
{
    const auto [low, high] = std::minmax({firstOf(first), firstOf(second)});
    all[high].group = low;
}

void motion::FlagRuns::numberGroups()
{
    for (size_t run = 0; run < all.size(); ++run) {
        const size_t earlier = all[run].group;
        all[run].group = earlier == run ? groups++ : all[earlier].group;
    }
}

std::vector<size_t> motion::FlagRuns::groupSizes() const
{
    std::vector<size_t> sizes(groups);
    for (const Run &run : all)
        sizes[run.group] += run.end - run.begin;
    return sizes;
}
