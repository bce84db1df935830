#pragma once

#include "fusion_options.h"

#include <QSize>

#include <vector>

/// Shots for tests of the fusion, the same ones for the same seed.
namespace randomShots {

/// One smooth scene with noise, each shot brighter than the one before; `format` as it says.
std::vector<fusion::Shot> bracket(size_t count, QSize size, QImage::Format format, quint32 seed);

/// Makes a third of each shot's left or right transparent, with rubbish below where the format
/// keeps it, and single pixels too.
void uncover(std::vector<fusion::Shot> &shots, quint32 seed);

/// Gives every other shot a mask of random softness.
void maskSome(std::vector<fusion::Shot> &shots, quint32 seed);

} // namespace randomShots
