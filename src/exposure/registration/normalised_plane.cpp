#include "normalised_plane.h"

#include "grey_rows.h"
#include "normalise_rows.h"
#include "parallel_rows.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace registration {
namespace {

constexpr int kSide = kCellSide;
constexpr int kCellsAround = 2; ///< on each side of a node

struct CellGrid
{
    int columns;
    int lines;
    std::vector<CellSums> cells;

    const CellSums *line(int y) const { return cells.data() + size_t(y) * size_t(columns); }
    CellSums *line(int y) { return cells.data() + size_t(y) * size_t(columns); }
};

/// Mean and reciprocal deviation at the points where four cells meet, borders included.
struct NodeGrid
{
    size_t columns;
    std::vector<float> means;
    std::vector<float> scales;
};

CellGrid cellGrid(const GreyPlane &grey)
{
    CellGrid grid{(grey.width + kSide - 1) / kSide, (grey.height + kSide - 1) / kSide, {}};
    grid.cells.resize(static_cast<size_t>(grid.columns) * static_cast<size_t>(grid.lines));
    parallel::rows({grey.width * kSide, grid.lines}, [&](int begin, int end) {
        for (int y = begin; y < end; ++y) {
            const int lines = std::min(kSide, grey.height - y * kSide);
            sumCells(grey.row(y * kSide), grey.stride, size_t(lines), size_t(grid.columns),
                     grid.line(y));
        }
    });
    return grid;
}

/// Sums over several cells.
struct Sums
{
    uint64_t count = 0;
    uint64_t sum = 0;
    uint64_t squares = 0;

    template <typename Other>
    void add(const Other &other)
    {
        count += other.count;
        sum += other.sum;
        squares += other.squares;
    }
};

struct Statistics
{
    float mean = 0.0F;
    float scale = 0.0F;
};

Statistics statisticsOf(const Sums &sums)
{
    if (sums.count == 0)
        return {};
    const double mean = double(sums.sum) / double(sums.count);
    const double variance = double(sums.squares) / double(sums.count) - mean * mean;
    const double deviation = std::sqrt(std::max(0.0, variance));
    return {float(mean), float(kStepsPerDeviation / (deviation + kNoiseFloor))};
}

/// Of the cells above and below a line of nodes.
std::vector<Sums> columnSums(const CellGrid &grid, int node)
{
    std::vector<Sums> columns(size_t(grid.columns));
    const int end = std::min(grid.lines, node + kCellsAround);
    for (int y = std::max(0, node - kCellsAround); y < end; ++y) {
        for (int x = 0; x < grid.columns; ++x)
            columns[size_t(x)].add(grid.line(y)[x]);
    }
    return columns;
}

void fillNodes(const std::vector<Sums> &columns, float *means, float *scales)
{
    const int count = static_cast<int>(columns.size());
    for (int node = 0; node <= count; ++node) {
        Sums around;
        const int end = std::min(count, node + kCellsAround);
        for (int x = std::max(0, node - kCellsAround); x < end; ++x)
            around.add(columns[size_t(x)]);
        const Statistics statistics = statisticsOf(around);
        means[node] = statistics.mean;
        scales[node] = statistics.scale;
    }
}

NodeGrid nodeGrid(const CellGrid &cells)
{
    NodeGrid nodes{static_cast<size_t>(cells.columns) + 1, {}, {}};
    nodes.means.resize(nodes.columns * (static_cast<size_t>(cells.lines) + 1));
    nodes.scales.resize(nodes.means.size());
    parallel::rows({cells.columns * kSide * kSide, cells.lines + 1}, [&](int begin, int end) {
        for (int y = begin; y < end; ++y) {
            const size_t first = size_t(y) * nodes.columns;
            fillNodes(columnSums(cells, y), &nodes.means[first], &nodes.scales[first]);
        }
    });
    return nodes;
}

/// Values between two lines of nodes.
void blend(const std::vector<float> &nodes, size_t columns, int y, std::vector<float> &out)
{
    const float *upper = &nodes[size_t(y / kSide) * columns];
    const float *lower = upper + columns;
    const float share = (float(y % kSide) + 0.5F) / float(kSide);
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
    NormalisedPlane plane(grey.width, grey.height, kNothing);
    const CellGrid cells = cellGrid(grey);
    if (isCancelled)
        return plane;
    const NodeGrid nodes = nodeGrid(cells);
    parallel::rows({grey.width, grey.height}, [&](int begin, int end) {
        normaliseRows(grey, nodes, begin, end, isCancelled, plane);
    });
    return plane;
}

} // namespace registration
