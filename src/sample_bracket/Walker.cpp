#include "Walker.h"

#include <cmath>
#include <vector>

namespace sample {

namespace {

/// Builds a person of 1.72 m from the feet up, who looks to the right.
class Walker
{
public:
    Walker(const Room &room, Vector3 feet)
        : surfaces_(room.surfaces)
        , solids_(room.solids.solids())
        , feet_(feet)
    {
    }

    Room inRoom(float stride)
    {
        addLegs(stride);
        addBody(stride);
        addHead();
        return {surfaces_, SolidTree(solids_)};
    }

private:
    int surface(Pattern pattern, Vector3 color, Vector3 secondColor)
    {
        surfaces_.push_back({pattern, color, secondColor});
        return static_cast<int>(surfaces_.size()) - 1;
    }

    void addBall(int surface, Vector3 center, Vector3 halfSize)
    {
        solids_.push_back({Shape::Ball, surface, feet_ + center, halfSize, {}, 1.0F});
    }

    /// From one joint to the next, as a row of balls that overlap.
    void addLimb(int surface, Vector3 from, Vector3 to, float radius)
    {
        constexpr int kBalls = 14;
        for (int i = 0; i <= kBalls; ++i) {
            const float t = static_cast<float>(i) / kBalls;
            const float thickness = radius * (1.0F - 0.35F * t);
            addBall(surface, from + (to - from) * t, {thickness, thickness, thickness});
        }
    }

    void addLegs(float stride)
    {
        const int trousers = surface(Pattern::Cloth, {0.10F, 0.11F, 0.16F}, {0.08F, 0.09F, 0.13F});
        const int shoe = surface(Pattern::Plain, {0.05F, 0.03F, 0.02F}, {});
        for (const float side : {-1.0F, 1.0F}) {
            const Vector3 foot{0.30F * stride * side, 0.06F, 0.09F * side};
            addLimb(trousers, {0.0F, 0.90F, 0.09F * side}, foot, 0.095F);
            addBall(shoe, foot + Vector3{0.06F, -0.01F, 0.0F}, {0.13F, 0.05F, 0.05F});
        }
    }

    void addBody(float stride)
    {
        const int shirt = surface(Pattern::Cloth, {0.62F, 0.10F, 0.08F}, {0.50F, 0.07F, 0.06F});
        const int skin = surface(Pattern::Plain, {0.58F, 0.38F, 0.29F}, {});
        addBall(shirt, {0.0F, 0.98F, 0.0F}, {0.15F, 0.16F, 0.18F});
        addBall(shirt, {0.0F, 1.20F, 0.0F}, {0.16F, 0.27F, 0.21F});
        for (const float side : {-1.0F, 1.0F}) {
            const Vector3 hand{-0.26F * stride * side, 0.84F, 0.28F * side};
            addLimb(shirt, {0.0F, 1.38F, 0.20F * side}, hand, 0.065F);
            addBall(skin, hand, {0.05F, 0.06F, 0.04F});
        }
    }

    void addHead()
    {
        const int skin = surface(Pattern::Plain, {0.58F, 0.38F, 0.29F}, {});
        const int hair = surface(Pattern::Mottled, {0.09F, 0.06F, 0.04F}, {0.14F, 0.09F, 0.06F});
        addLimb(skin, {0.0F, 1.40F, 0.0F}, {0.0F, 1.52F, 0.0F}, 0.06F);
        addBall(skin, {0.01F, 1.60F, 0.0F}, {0.10F, 0.12F, 0.09F});
        addBall(hair, {-0.015F, 1.635F, 0.0F}, {0.105F, 0.105F, 0.095F});
    }

    std::vector<Surface> surfaces_;
    std::vector<Solid> solids_;
    Vector3 feet_;
};

} // namespace

Room withWalker(const Room &room, Vector3 feet, float stride)
{
    return Walker(room, feet).inRoom(stride);
}

} // namespace sample
