#pragma once

#include <QImage>

#include <vector>

/// One number a pixel, row after row, for the quality measures: simple and slow, in double.
struct Plane
{
    int width = 0;
    int height = 0;
    std::vector<double> values; ///< width x height

    Plane() = default;
    Plane(int planeWidth, int planeHeight, double value = 0.0)
        : width(planeWidth)
        , height(planeHeight)
        , values(static_cast<size_t>(planeWidth) * static_cast<size_t>(planeHeight), value)
    {
    }

    double &at(int x, int y) { return values[index(x, y)]; }
    double at(int x, int y) const { return values[index(x, y)]; }

private:
    size_t index(int x, int y) const
    {
        return static_cast<size_t>(y) * static_cast<size_t>(width) + static_cast<size_t>(x);
    }
};

namespace planes {

/// The luma of a picture of any format, .299 R + .587 G + .114 B, 0..255.
Plane grey(const QImage &picture);

/// Per pixel first * second; both of one size.
Plane product(const Plane &first, const Plane &second);

/// Means over 2 x 2 pixels, every other one each way; a last odd row or column repeats.
Plane halved(const Plane &plane);

/// Mean under a Gaussian window of 11 x 11 pixels, sigma 1.5, wherever the whole window lies
/// inside: 10 pixels less each way; empty when the plane is smaller than the window.
Plane windowMean(const Plane &plane);

double mean(const Plane &plane);

} // namespace planes
