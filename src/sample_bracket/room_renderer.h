#pragma once

#include "Room.h"
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

/// The same of a room that is furnished otherwise.
RadianceImage renderRoom(int width, int height, int margin, const Room &room);

/// Where the middle of a pixel shows one of the room's solids from this one on: for each pixel of
/// the radiance image 1, else 0.
std::vector<char> pixelsOfSolids(int width, int height, int margin, const Room &room,
                                 int firstSolid);

} // namespace sample
