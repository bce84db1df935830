#pragma once

#include "Plane.h"

#include <QImage>

#include <atomic>
#include <cstdint>

namespace registration {

/// Brightness of a picture, for finding motion: 0..kWhite, or kNoGrey where the picture says
/// nothing (clipped to white or black, or transparent) and in the padding.
using GreyPlane = Plane<uint16_t>;

constexpr uint16_t kNoGrey = 0xFFFF;
constexpr int kWhite = 4080; ///< sixteen steps for each of the 255 of a byte

/// The picture at its own size, or where isHalved averaged 2 x 2 to half of it (an odd last column
/// or row is left out). Pictures of more than 8 bits per channel are brought to 12 by a square
/// root, so that dark parts of linear light keep their steps. Throws std::bad_alloc.
GreyPlane greyPlane(const QImage &picture, bool isHalved, const std::atomic<bool> &isCancelled);

/// Half the size, each value the mean of those of 2 x 2 that are there, two at least.
GreyPlane halved(const GreyPlane &plane, const std::atomic<bool> &isCancelled);

/// True for the formats that are read with 16 bits per channel.
bool isDeep(const QImage &picture);

} // namespace registration
