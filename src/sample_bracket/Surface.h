#pragma once

#include "Vector3.h"

namespace sample {

enum class Pattern {
    Plain,
    Plaster,
    Bricks,
    Planks,    ///< floor boards along z
    WoodGrain, ///< one piece, grain along its longest side
    Drawers,
    BookSpine,
    Rug,
    Painting,
    Ceramic, ///< glazed, with two rings
    Mottled, ///< fruit, clay
    Cloth,
};

struct Surface
{
    Pattern pattern = Pattern::Plain;
    Vector3 color;       ///< reflected share of the light, 0..1
    Vector3 secondColor; ///< what the pattern draws with
    float gloss = 0.0F;  ///< share that is mirrored when seen from straight above, 0..1
    Vector3 emission{};  ///< radiance of its own
};

/// Reflected share of the light at a point of the surface.
/// point: in the solid's own frame, metres. normal: outward, in that frame. halfSize: the solid's.
/// variant: makes boards, books and fruits differ.
Vector3 colorAt(const Surface &surface, Vector3 point, Vector3 normal, Vector3 halfSize,
                int variant);

} // namespace sample
