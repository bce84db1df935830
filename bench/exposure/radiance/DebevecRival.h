#pragma once

#include <QImage>

#include <memory>
#include <vector>

/// The radiance that OpenCV makes of the same pictures, which it holds in its own layout: the curve
/// by CalibrateDebevec, the light by MergeDebevec.
class DebevecRival
{
public:
    /// exposures: in seconds.
    DebevecRival(const std::vector<QImage> &shots, const std::vector<double> &exposures);
    ~DebevecRival();
    DebevecRival(const DebevecRival &) = delete;
    DebevecRival &operator=(const DebevecRival &) = delete;

    void calibrate();
    /// After calibrate().
    void merge();

    /// Of the last merge, 3 floats a pixel: blue, green, red.
    const float *row(int y) const;

private:
    struct Pictures;
    std::unique_ptr<Pictures> d;
};
