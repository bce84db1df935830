#pragma once

#include <QImage>

#include <atomic>
#include <cstdint>
#include <vector>

namespace registration {

/// Brightness of a picture, for finding motion: 0..kWhite, or kNoGrey where the picture says
/// nothing (clipped to white or black, or transparent).
struct GreyPlane
{
    GreyPlane() = default;
    /// All kNoGrey.
    GreyPlane(int columns, int lines);

    /// `width` values, followed by kNoGrey up to `stride`, a multiple of kRowPadding.
    uint16_t *row(int y) { return values.data() + static_cast<size_t>(y) * stride; }
    const uint16_t *row(int y) const { return values.data() + static_cast<size_t>(y) * stride; }

    int width = 0;
    int height = 0;
    size_t stride = 0;
    std::vector<uint16_t> values;
};

constexpr uint16_t kNoGrey = 0xFFFF;
constexpr int kWhite = 4080;        ///< sixteen steps for each of the 255 of a byte
constexpr size_t kRowPadding = 32;  ///< values in the widest vector of 16-bit lanes

/// The picture at its own size, or where isHalved averaged 2 x 2 to half of it (an odd last column
/// or row is left out). Pictures of more than 8 bits per channel are brought to 12 by a square
/// root, so that dark parts of linear light keep their steps. Throws std::bad_alloc.
GreyPlane greyPlane(const QImage &picture, bool isHalved, const std::atomic<bool> &isCancelled);

/// Half the size, each value the mean of those of 2 x 2 that are there, two at least.
GreyPlane halved(const GreyPlane &plane);

/// True for the formats that are read with 16 bits per channel.
bool isDeep(const QImage &picture);

} // namespace registration
