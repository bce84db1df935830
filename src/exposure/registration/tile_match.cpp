#include "tile_match.h"

#include "TilePatch.h"
#include "parallel_rows.h"

#include <algorithm>
#include <cmath>
#include <optional>

namespace registration {
namespace {

constexpr double kLeastShareThere = 0.35;
constexpr double kLeastContrast = 6.0; ///< root mean square, of normalised values
constexpr double kLeastScore = 0.25;
constexpr double kLeastCurvature = 0.004; ///< of the score per value squared, in any direction
constexpr double kLeastRoundness = 0.08;  ///< smallest curvature over the largest: lines have none
constexpr double kRivalShare = 0.95;      ///< of the best score, somewhere else: a repetition
constexpr int kRivalDistance = 3;

using Scores = std::array<double, TilePatch::kMostOffsets * TilePatch::kMostOffsets>;

/// Scores around the offset (0, 0).
struct ScoreMap
{
    const Scores &scores;
    int radius;

    double at(int dx, int dy) const
    {
        const int offsets = 2 * radius + 1;
        return scores[static_cast<size_t>((dy + radius) * offsets + dx + radius)];
    }
    bool isAtEdge(QPoint p) const { return std::abs(p.x()) >= radius || std::abs(p.y()) >= radius; }
};

QPoint bestOffset(const ScoreMap &map)
{
    QPoint best;
    for (int dy = -map.radius; dy <= map.radius; ++dy) {
        for (int dx = -map.radius; dx <= map.radius; ++dx) {
            if (map.at(dx, dy) > map.at(best.x(), best.y()))
                best = {dx, dy};
        }
    }
    return best;
}

bool hasRival(const ScoreMap &map, QPoint best)
{
    const double limit = kRivalShare * map.at(best.x(), best.y());
    for (int dy = -map.radius; dy <= map.radius; ++dy) {
        for (int dx = -map.radius; dx <= map.radius; ++dx) {
            const int away = std::max(std::abs(dx - best.x()), std::abs(dy - best.y()));
            if (away >= kRivalDistance && map.at(dx, dy) > limit)
                return true;
        }
    }
    return false;
}

/// The top of the paraboloid through the scores around the best one, relative to it. Nothing when
/// it is no clear top.
std::optional<QPointF> topAround(const ScoreMap &map, QPoint p)
{
    const auto at = [&](int dx, int dy) { return map.at(p.x() + dx, p.y() + dy); };
    const double slopeX = (at(1, 0) - at(-1, 0)) / 2;
    const double slopeY = (at(0, 1) - at(0, -1)) / 2;
    const double bendX = 2 * at(0, 0) - at(1, 0) - at(-1, 0);
    const double bendY = 2 * at(0, 0) - at(0, 1) - at(0, -1);
    const double bendXY = (at(1, -1) + at(-1, 1) - at(1, 1) - at(-1, -1)) / 4;
    const double mean = (bendX + bendY) / 2;
    const double spread = std::hypot((bendX - bendY) / 2, bendXY);
    if (mean - spread < std::max(kLeastCurvature, kLeastRoundness * (mean + spread)))
        return {};
    const double determinant = bendX * bendY - bendXY * bendXY;
    const QPointF top((slopeX * bendY - slopeY * bendXY) / determinant,
                      (slopeY * bendX - slopeX * bendXY) / determinant);
    if (std::max(std::abs(top.x()), std::abs(top.y())) > 1.0)
        return {};
    return top;
}

std::optional<QPointF> offsetOf(const ScoreMap &map, double &score)
{
    const QPoint best = bestOffset(map);
    score = map.at(best.x(), best.y());
    if (score < kLeastScore || map.isAtEdge(best) || hasRival(map, best))
        return {};
    const std::optional<QPointF> top = topAround(map, best);
    if (!top)
        return {};
    return *top + best;
}

/// A level's own coordinates and back: the middle of its first value lies amid the pixels it
/// stands for.
struct LevelScale
{
    double scale;

    QPointF toPixels(QPointF p) const
    {
        return {p.x() * scale + (scale - 1) / 2, p.y() * scale + (scale - 1) / 2};
    }
    QPointF toLevel(QPointF p) const
    {
        return {(p.x() - (scale - 1) / 2) / scale, (p.y() - (scale - 1) / 2) / scale};
    }
};

/// How the map turns and stretches the surroundings of a point.
std::array<double, 4> turnAt(const Matrix &map, QPointF point)
{
    constexpr double kStep = 8.0;
    const QPointF x =
        mapped(map, point + QPointF(kStep, 0)) - mapped(map, point - QPointF(kStep, 0));
    const QPointF y =
        mapped(map, point + QPointF(0, kStep)) - mapped(map, point - QPointF(0, kStep));
    return {x.x() / (2 * kStep), y.x() / (2 * kStep), x.y() / (2 * kStep), y.y() / (2 * kStep)};
}

struct TileGrid
{
    int columns;
    int lines;
    int side;
    QSize plane;

    QPoint first(int tile) const
    {
        const auto place = [](int i, int count, int room) {
            return count > 1 ? room * i / (count - 1) : room / 2;
        };
        return {place(tile % columns, columns, plane.width() - side),
                place(tile / columns, lines, plane.height() - side)};
    }
};

/// Tiles overlap by half at most.
TileGrid tileGrid(const NormalisedPlane &plane, const MatchSearch &search)
{
    const int side = std::min({search.side, plane.width, plane.height});
    const auto most = [side](int length) { return std::max(1, 2 * (length / side) - 1); };
    const double across = std::sqrt(double(search.tiles) * plane.width / plane.height);
    const int columns = std::clamp(static_cast<int>(across + 0.5), 1, most(plane.width));
    const int lines = std::clamp(search.tiles / columns, 1, most(plane.height));
    return {columns, lines, side, {plane.width, plane.height}};
}

struct TileOutcome
{
    bool isTextured = false;
    std::optional<Match> match;
};

class TileFinder
{
public:
    TileFinder(const ShotPyramid &reference, const ShotPyramid &shot, const Matrix &map,
               const MatchSearch &search)
        : referencePlane(reference.levels[search.level])
        , shotPlane(shot.levels[search.level])
        , toShot(map)
        , scale{double(reference.scale(search.level))}
        , radius(search.radius)
    {
    }

    TileOutcome find(QPoint first, int side) const
    {
        TilePatch patch(side, radius);
        if (patch.readTile(referencePlane, first.x(), first.y()) < kLeastShareThere ||
            patch.tileContrast() < kLeastContrast)
            return {};
        const QPointF middle = QPointF(first) + QPointF(side - 1, side - 1) / 2;
        const QPointF place = scale.toPixels(middle);
        const QPointF expected = scale.toLevel(mapped(toShot, place));
        if (patch.readPatch(shotPlane, expected, turnAt(toShot, place)) < kLeastShareThere ||
            patch.patchContrast() < kLeastContrast)
            return {};
        Scores scores;
        patch.score(scores);
        Match match;
        const std::optional<QPointF> offset = offsetOf({scores, radius}, match.score);
        if (!offset)
            return {true, {}};
        match.reference = place;
        match.shot = mapped(toShot, scale.toPixels(middle + *offset));
        return {true, match};
    }

private:
    const NormalisedPlane &referencePlane;
    const NormalisedPlane &shotPlane;
    const Matrix &toShot;
    const LevelScale scale;
    const int radius;
};

MatchResult collected(const std::vector<TileOutcome> &outcomes)
{
    MatchResult result;
    for (const TileOutcome &outcome : outcomes) {
        result.textured += outcome.isTextured ? 1 : 0;
        if (outcome.match)
            result.matches.push_back(*outcome.match);
    }
    return result;
}

} // namespace

MatchResult findMatches(const ShotPyramid &reference, const ShotPyramid &shot, const Matrix &toShot,
                        const MatchSearch &search, const std::atomic<bool> &isCancelled)
{
    const TileGrid grid = tileGrid(reference.levels[search.level], search);
    const TileFinder finder(reference, shot, toShot, search);
    std::vector<TileOutcome> outcomes(static_cast<size_t>(grid.columns * grid.lines));
    parallel::each(static_cast<int>(outcomes.size()), [&](int tile) {
        if (!isCancelled)
            outcomes[static_cast<size_t>(tile)] = finder.find(grid.first(tile), grid.side);
    });
    return collected(outcomes);
}

} // namespace registration
