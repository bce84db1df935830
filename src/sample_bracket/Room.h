#pragma once

#include "SolidTree.h"
#include "Surface.h"

#include <vector>

namespace sample {

/// The scene: a furnished room. x goes right, y up, z from the window wall (0) to the camera.
struct Room
{
    std::vector<Surface> surfaces;
    SolidTree solids;
};

/// The opening in the window wall, at z = 0: the only way for daylight.
struct WindowOpening
{
    Vector3 low;
    Vector3 high;
    bool contains(Vector3 p) const
    {
        return p.x > low.x && p.x < high.x && p.y > low.y && p.y < high.y;
    }
};

WindowOpening windowOpening();

/// The bulb of the lamp: a ball that shines.
struct Bulb
{
    Vector3 center;
    float radius;
    Vector3 radiance;
};

Bulb lampBulb();

/// Ray of the camera through a point of the plane at distance 1: x to the right, y down, 0 in the
/// middle of the picture.
Ray viewRay(float x, float y);

Room furnishedRoom();

} // namespace sample
