#pragma once

#include "Vector3.h"

#include <vector>

namespace sample {

/// Linear RGB radiance, row by row from the top left, width * height pixels.
struct RadianceImage
{
    int width = 0;
    int height = 0;
    std::vector<Vector3> pixels;
    const Vector3 &at(int x, int y) const
    {
        return pixels[static_cast<size_t>(y) * static_cast<size_t>(width) + static_cast<size_t>(x)];
    }
};

/// Renders the room on several threads; their number does not change the result.
/// margin: pixels that are added on every side of a picture of width x height, for cameras that
/// point a little elsewhere.
RadianceImage renderRoom(int width, int height, int margin);

} // namespace sample
