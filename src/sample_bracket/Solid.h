#pragma once

#include "Vector3.h"

#include <limits>

namespace sample {

enum class Shape {
    Box,  ///< -1..1 on all three axes
    Ball, ///< radius 1
    Cone, ///< y from -1 to 1, radius 1 at the bottom and topRadius at the top, closed
    Tube, ///< as Cone, without its two ends
};

/// A unit shape, scaled by halfSize along its own axes, then rotated, then moved to center.
struct Solid
{
    Shape shape = Shape::Box;
    int surface = 0; ///< index into the scene's surfaces
    Vector3 center;
    Vector3 halfSize{1.0F, 1.0F, 1.0F};
    Matrix3 axes; ///< rotation
    float topRadius = 1.0F;
};

constexpr float kFarAway = std::numeric_limits<float>::max();

struct Hit
{
    int solid = -1;            ///< index, -1: nothing was hit
    float distance = kFarAway; ///< along the ray, in lengths of its direction
    Vector3 normal;            ///< of the unit shape; see worldNormal()
    bool hasHit() const { return solid >= 0; }
};

struct Bounds
{
    Vector3 low{kFarAway, kFarAway, kFarAway};
    Vector3 high{-kFarAway, -kFarAway, -kFarAway};
    void include(Vector3 point);
    void include(const Bounds &other);
};

Bounds boundsOf(const Solid &solid);

/// Shortens hit to where the ray enters (or, from inside, leaves) the solid, when that is nearer
/// than hit.distance. True when it did; the caller sets hit.solid.
bool intersect(const Solid &solid, const Ray &ray, Hit &hit);

/// The point in the solid's own frame, in metres.
Vector3 ownPoint(const Solid &solid, Vector3 point);

/// Outward unit normal in the world.
Vector3 worldNormal(const Solid &solid, Vector3 shapeNormal);

} // namespace sample
