#pragma once

#include "pair_registration.h"

#include <vector>

namespace registration {

/// How the shots of a set lie over one another, by all pairs that were compared: each says where
/// one shot lies, as seen from another, and no pair is quite right. solve() finds the places of all
/// at once for which the pairs are wrong by least: a motion averaging as in V. Govindu, "Lie-
/// Algebraic Averaging for Globally Consistent Motion Estimation", CVPR 2004, section 3, on the
/// four corners of the reference instead of a Lie algebra. One thread at a time.
class MotionGraph
{
public:
    /// Pairs that set a corner further from where their ends lie are wrong.
    static constexpr double kLoopTolerance = 1.5; // pixels

    /// shots: of the set; size: of the reference.
    MotionGraph(int shots, int reference, QSize size);

    /// Both places must be known, or one of them the reference.
    void add(int from, int to, const PairResult &pair);

    /// Improves the matrices of the places that are to be resampled; the kinds and all else stay.
    /// places: one for each shot, as the walk through the set found them.
    void solve(std::vector<PairResult> &places) const;

private:
    struct Edge
    {
        int from;
        int to;
        PairResult pair;
    };

    bool isRight(const Edge &edge, const std::vector<PairResult> &places) const;
    std::vector<Edge> rightEdges(const std::vector<PairResult> &places) const;
    std::vector<QPointF> moves(QPointF corner, const std::vector<Edge> &edges,
                               const std::vector<int> &unknowns,
                               const std::vector<PairResult> &places) const;
    void improve(const std::vector<Edge> &edges, const std::vector<int> &unknowns,
                 std::vector<PairResult> &places) const;

    const int shots;
    const int reference;
    const QSize size;
    std::vector<Edge> edges;
};

} // namespace registration
