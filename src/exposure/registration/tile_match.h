#pragma once

#include "ShotPyramid.h"
#include "Transform.h"

#include <vector>

namespace registration {

/// A place of the reference and where the shot shows the same, in pixels of the two pictures.
struct Match
{
    QPointF reference;
    QPointF shot;
    double score = 0.0; ///< normalised correlation, -1..1
};

struct MatchSearch
{
    size_t level = 0; ///< of both pyramids
    int side = 64;    ///< of a tile, in values of the level; at most kLargestTile
    int radius = 6;   ///< in values of the level, at most kLargestRadius
    int tiles = 160;  ///< about so many, spread evenly
};

struct MatchResult
{
    std::vector<Match> matches;
    int textured = 0; ///< tiles in which both pictures show something, found again or not
};

constexpr int kLargestRadius = 6;

/// Looks for tiles of the reference in the shot, around where the matrix (from the reference's
/// pixel centres to the shot's) has them. Each tile is found by the best normalised correlation
/// within the radius, to a fraction of a value by a paraboloid through the best and its
/// neighbours. Left out are tiles with too little to see, those found at the edge of the search,
/// and those that a line or a repetition leaves in doubt.
MatchResult findMatches(const ShotPyramid &reference, const ShotPyramid &shot, const Matrix &toShot,
                        const MatchSearch &search, const std::atomic<bool> &isCancelled);

} // namespace registration
