#pragma once

#include "Solid.h"

#include <vector>

namespace sample {

/// Bounding volume hierarchy over solids. Const after construction, any thread.
class SolidTree
{
public:
    explicit SolidTree(std::vector<Solid> solids);

    const std::vector<Solid> &solids() const { return solids_; }

    Hit nearestHit(const Ray &ray) const;

    /// True when something stands on the ray before this distance.
    bool isBlocked(const Ray &ray, float distance) const;

private:
    struct Node
    {
        Bounds bounds;
        int first = 0; ///< leaf: first solid in order_; else index of the right child
        int count = 0; ///< leaf: number of solids; 0 for an inner node, left child follows it
    };

    void build(int first, int count);
    /// Sorts these solids of order_ and returns how many of them make the left child.
    int split(int first, int count);
    void sortByCenter(int first, int count, int axis);
    const Bounds &boundsAt(int position) const;
    /// Nearest hit before hit.distance, or the first one found with stopAtAny.
    void search(const Ray &ray, bool stopAtAny, Hit &hit) const;
    bool searchLeaf(const Node &leaf, const Ray &ray, Hit &hit) const;

    std::vector<Solid> solids_;
    std::vector<Bounds> bounds_;
    std::vector<int> order_;
    std::vector<Node> nodes_;
};

} // namespace sample
