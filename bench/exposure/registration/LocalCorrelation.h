#pragma once

#include <QImage>

/// How well two aligned pictures agree, whatever their exposures.
struct LocalCorrelation
{
    double mean = 0.0; ///< -1..1
    int windows = 0;   ///< that it is the mean of
};

/// Mean correlation of grey in windows of 15 x 15 pixels, eight pixels apart. Windows count where
/// both pictures have texture (a deviation of six grey levels) and nothing in them is clipped or
/// uncovered (alpha 0). Pictures of one size, any format.
LocalCorrelation localCorrelation(const QImage &first, const QImage &second);
