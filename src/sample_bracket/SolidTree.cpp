#include "SolidTree.h"

#include <array>
#include <numeric>
#include <utility>

namespace sample {

namespace {

constexpr int kLeafSize = 2;
constexpr int kMaxDepth = 64;

float component(Vector3 v, int axis)
{
    return axis == 0 ? v.x : axis == 1 ? v.y : v.z;
}

float halfArea(const Bounds &bounds)
{
    const Vector3 size = bounds.high - bounds.low;
    return size.x * size.y + size.y * size.z + size.z * size.x;
}

/// Distance at which the ray enters the bounds, kFarAway when it does not before farthest.
float entryDistance(const Bounds &b, Vector3 origin, Vector3 inverse, float farthest)
{
    const Vector3 t1 = (b.low - origin) * inverse;
    const Vector3 t2 = (b.high - origin) * inverse;
    const float enter = std::max(std::max(std::min(t1.x, t2.x), std::min(t1.y, t2.y)),
                                 std::max(std::min(t1.z, t2.z), 0.0F));
    const float leave = std::min(std::min(std::max(t1.x, t2.x), std::max(t1.y, t2.y)),
                                 std::min(std::max(t1.z, t2.z), farthest));
    return enter <= leave ? enter : kFarAway;
}

} // namespace

SolidTree::SolidTree(std::vector<Solid> solids)
    : solids_(std::move(solids))
    , order_(solids_.size())
{
    for (const Solid &solid : solids_)
        bounds_.push_back(boundsOf(solid));
    std::iota(order_.begin(), order_.end(), 0);
    build(0, static_cast<int>(order_.size()));
}

void SolidTree::build(int first, int count)
{
    const auto index = nodes_.size();
    nodes_.emplace_back();
    Bounds all;
    for (int i = first; i < first + count; ++i)
        all.include(boundsAt(i));
    nodes_[index].bounds = all;
    if (count <= kLeafSize) {
        nodes_[index].first = first;
        nodes_[index].count = count;
        return;
    }
    const int leftCount = split(first, count);
    build(first, leftCount);
    nodes_[index].first = static_cast<int>(nodes_.size());
    build(first + leftCount, count - leftCount);
}

int SolidTree::split(int first, int count)
{
    // The cut with the smallest expected number of solids that a ray has to look at: a part costs
    // its surface area times its number of solids.
    float lowestCost = kFarAway;
    int bestAxis = 0;
    int bestCount = count / 2;
    std::vector<float> leftCosts(static_cast<size_t>(count));
    for (int axis = 0; axis < 3; ++axis) {
        sortByCenter(first, count, axis);
        Bounds left;
        for (int i = 0; i + 1 < count; ++i) {
            left.include(boundsAt(first + i));
            leftCosts[static_cast<size_t>(i) + 1] = halfArea(left) * static_cast<float>(i + 1);
        }
        Bounds right;
        for (int i = count - 1; i > 0; --i) {
            right.include(boundsAt(first + i));
            const float cost =
                leftCosts[static_cast<size_t>(i)] + halfArea(right) * static_cast<float>(count - i);
            if (cost < lowestCost) {
                lowestCost = cost;
                bestAxis = axis;
                bestCount = i;
            }
        }
    }
    sortByCenter(first, count, bestAxis);
    return bestCount;
}

const Bounds &SolidTree::boundsAt(int position) const
{
    return bounds_[static_cast<size_t>(order_[static_cast<size_t>(position)])];
}

void SolidTree::sortByCenter(int first, int count, int axis)
{
    const auto isLower = [this, axis](int a, int b) {
        const Bounds &boundsA = bounds_[static_cast<size_t>(a)];
        const Bounds &boundsB = bounds_[static_cast<size_t>(b)];
        return std::make_pair(component(boundsA.low + boundsA.high, axis), a) <
               std::make_pair(component(boundsB.low + boundsB.high, axis), b);
    };
    std::sort(order_.begin() + first, order_.begin() + first + count, isLower);
}

Hit SolidTree::nearestHit(const Ray &ray) const
{
    Hit hit;
    search(ray, false, hit);
    return hit;
}

bool SolidTree::isBlocked(const Ray &ray, float distance) const
{
    Hit hit;
    hit.distance = distance;
    search(ray, true, hit);
    return hit.hasHit();
}

void SolidTree::search(const Ray &ray, bool stopAtAny, Hit &hit) const
{
    struct Pending
    {
        int node;
        float distance;
    };
    const Vector3 d = ray.direction;
    const Vector3 inverse{1.0F / d.x, 1.0F / d.y, 1.0F / d.z};
    std::array<Pending, kMaxDepth> stack;
    size_t depth = 0;
    stack[depth++] = {0, 0.0F};
    while (depth > 0) {
        const Pending pending = stack[--depth];
        if (pending.distance > hit.distance)
            continue;
        const Node &node = nodes_[static_cast<size_t>(pending.node)];
        if (node.count > 0) {
            if (searchLeaf(node, ray, hit) && stopAtAny)
                return;
            continue;
        }
        Pending near{pending.node + 1, 0.0F};
        Pending far{node.first, 0.0F};
        for (Pending *child : {&near, &far})
            child->distance = entryDistance(nodes_[static_cast<size_t>(child->node)].bounds,
                                            ray.origin, inverse, hit.distance);
        if (far.distance < near.distance)
            std::swap(near, far);
        if (far.distance < kFarAway)
            stack[depth++] = far;
        if (near.distance < kFarAway)
            stack[depth++] = near;
    }
}

bool SolidTree::searchLeaf(const Node &leaf, const Ray &ray, Hit &hit) const
{
    bool isNearer = false;
    for (int i = leaf.first; i < leaf.first + leaf.count; ++i) {
        const int solid = order_[static_cast<size_t>(i)];
        if (!intersect(solids_[static_cast<size_t>(solid)], ray, hit))
            continue;
        hit.solid = solid;
        isNearer = true;
    }
    return isNearer;
}

} // namespace sample
