#include "normalised_plane.h"

#include "normalise_rows.h"
#include "parallel_rows.h"

#include <algorithm>
#include <cmath>

namespace registration {
namespace {

constexpr int kCellsAround = 2; ///< on each side of a node

/// Of the values that are there in a cell of kNodeDistance squared.
struct CellSums
{
    uint32_t count = 0;
    uint32_t sum = 0;
    uint32_t squares = 0; ///< 64 * kWhite squared fits
};

struct CellGrid
{
    int columns;
    int lines;
    std::vector<CellSums> cells;

    const CellSums &at(int x, int y) const
    {
        return cells[static_cast<size_t>(y) * static_cast<size_t>(columns)
                     + static_cast<size_t>(x)];
    }
};

/// Mean and reciprocal deviation at the points where four cells meet, borders included.
struct NodeGrid
{
    size_t columns;
    std::vector<float> means;
    std::vector<float> scales;
};

void addToCells(const uint16_t *row, int width, CellSums *cells)
{
    for (int first = 0; first < width; first += kNodeDistance) {
        CellSums &cell = cells[first / kNodeDistance];
        for (int x = first; x < first + kNodeDistance; ++x) { // the padding is kNoGrey
            const uint32_t isThere = row[x] != kNoGrey;
            const uint32_t value = isThere != 0 ? row[x] : 0U;
            cell.count += isThere;
            cell.sum += value;
            cell.squares += value * value;
        }
    }
}

CellGrid cellGrid(const GreyPlane &grey)
{
    CellGrid grid{(grey.width + kNodeDistance - 1) / kNodeDistance,
                  (grey.height + kNodeDistance - 1) / kNodeDistance, {}};
    grid.cells.resize(static_cast<size_t>(grid.columns) * static_cast<size_t>(grid.lines));
    const auto line = [&](int y) { return grid.cells.data() + size_t(y) * size_t(grid.columns); };
    parallel::rows({grey.width * kNodeDistance, grid.lines}, [&](int begin, int end) {
        const int stop = std::min(end * kNodeDistance, grey.height);
        for (int y = begin * kNodeDistance; y < stop; ++y)
            addToCells(grey.row(y), grey.width, line(y / kNodeDistance));
    });
    return grid;
}

struct Statistics
{
    float mean = 0.0F;
    float scale = 0.0F;
};

Statistics statisticsAround(const CellGrid &grid, int nodeX, int nodeY)
{
    uint64_t count = 0;
    uint64_t sum = 0;
    uint64_t squares = 0;
    for (int y = std::max(0, nodeY - kCellsAround); y < std::min(grid.lines, nodeY + kCellsAround); ++y) {
        for (int x = std::max(0, nodeX - kCellsAround); x < std::min(grid.columns, nodeX + kCellsAround); ++x) {
            count += grid.at(x, y).count;
            sum += grid.at(x, y).sum;
            squares += grid.at(x, y).squares;
        }
    }
    if (count == 0)
        return {};
    const double mean = double(sum) / double(count);
    const double variance = std::max(0.0, double(squares) / double(count) - mean * mean);
    return {float(mean), float(kStepsPerDeviation / (std::sqrt(variance) + kNoiseFloor))};
}

NodeGrid nodeGrid(const CellGrid &cells)
{
    NodeGrid nodes{static_cast<size_t>(cells.columns) + 1, {}, {}};
    const size_t count = nodes.columns * (static_cast<size_t>(cells.lines) + 1);
    nodes.means.resize(count);
    nodes.scales.resize(count);
    parallel::rows({cells.columns * kNodeDistance * kNodeDistance, cells.lines + 1}, [&](int begin, int end) {
        for (int y = begin; y < end; ++y) {
            for (int x = 0; x <= cells.columns; ++x) {
                const Statistics at = statisticsAround(cells, x, y);
                nodes.means[size_t(y) * nodes.columns + size_t(x)] = at.mean;
                nodes.scales[size_t(y) * nodes.columns + size_t(x)] = at.scale;
            }
        }
    });
    return nodes;
}

/// Values between two lines of nodes.
void blend(const std::vector<float> &nodes, size_t columns, int y, std::vector<float> &out)
{
    const float *upper = &nodes[size_t(y / kNodeDistance) * columns];
    const float *lower = upper + columns;
    const float share = (float(y % kNodeDistance) + 0.5F) / float(kNodeDistance);
    for (size_t i = 0; i < columns; ++i)
        out[i] = upper[i] + (lower[i] - upper[i]) * share;
}

void normaliseRows(const GreyPlane &grey, const NodeGrid &nodes, int begin, int end,
                   const std::atomic<bool> &isCancelled, NormalisedPlane &plane)
{
    std::vector<float> means(nodes.columns);
    std::vector<float> scales(nodes.columns);
    for (int y = begin; y < end && !isCancelled; ++y) {
        blend(nodes.means, nodes.columns, y, means);
        blend(nodes.scales, nodes.columns, y, scales);
        normaliseRow(grey.row(y), nodes.columns - 1, means.data(), scales.data(), plane.row(y));
    }
}

} // namespace

NormalisedPlane normalised(const GreyPlane &grey, const std::atomic<bool> &isCancelled)
{
    NormalisedPlane plane{grey.width, grey.height, grey.stride, {}};
    plane.values.resize(grey.values.size(), kNothing);
    const NodeGrid nodes = nodeGrid(cellGrid(grey));
    parallel::rows({grey.width, grey.height}, [&](int begin, int end) {
        normaliseRows(grey, nodes, begin, end, isCancelled, plane);
    });
    return plane;
}

} // namespace registration
