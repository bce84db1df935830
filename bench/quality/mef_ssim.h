#pragma once

#include "Plane.h"

#include <QImage>

#include <vector>

/// Quality of an exposure fusion, without a true picture to compare with: how much of the best
/// contrast and of the common structure of the shots, patch by patch, the result has.
/// K. Ma, K. Zeng, Z. Wang, "Perceptual Quality Assessment for Multi-Exposure Image Fusion",
/// IEEE Transactions on Image Processing 24(11), 2015, section IV: luma, windows of 11 x 11, three
/// scales. 1 is the best; below 11 x 11 pixels there is no window and the score is 0.
namespace mefSsim {

/// Local statistics of the shots and of a result at one scale; planes as windowMean gives them.
struct Patches
{
    std::vector<std::vector<Plane>> covariances; ///< [i][j], j <= i, of the shots
    std::vector<Plane> withResult;               ///< of each shot and the result
    Plane resultVariance;
};

Patches patches(const std::vector<Plane> &shots, const Plane &result);

/// The quality at one place, from the shots that are listed (at least one), others left out.
double placeQuality(const Patches &patches, size_t place, const std::vector<size_t> &shots);

/// How the qualities of the scales, from the finest to the coarsest, make one.
double combinedScales(const std::vector<double> &qualities);

constexpr int kScales = 3;

/// shots: two or more, of the result's size, any format.
double score(const std::vector<QImage> &shots, const QImage &result);

} // namespace mefSsim
