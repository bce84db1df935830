#pragma once

#include "Vector3.h"

#include <vector>

namespace sample {

/// Irradiance on what the camera sees, at a part of the picture's resolution. It is gathered with
/// few rays and smoothed along surfaces, so that soft light costs little and shows no grain.
class LightMap
{
public:
    struct Texel
    {
        Vector3 position;
        Vector3 normal;
        Vector3 irradiance;
        float distance = 0.0F; ///< from the eye; 0: nothing here
    };

    LightMap(int width, int height);

    int width() const { return width_; }
    int height() const { return height_; }
    Texel &at(int x, int y);
    const Texel &at(int x, int y) const;

    /// Averages neighbours that lie on the same surface.
    void smooth();

    /// Irradiance at a position on the map (in texels, their centers at .5), from texels on the
    /// same surface only. False when there are none.
    bool lookUp(float x, float y, Vector3 position, Vector3 normal, Vector3 &irradiance) const;

private:
    Vector3 smoothed(int x, int y, int step) const;

    int width_;
    int height_;
    std::vector<Texel> texels_;
};

} // namespace sample
