#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

// One row of a resampled picture. The plain functions are the definition; the other gives the same
// to the bit, with vector instructions: whole numbers, rounded at the same places. Any thread,
// reentrant.
namespace registration {

constexpr size_t kTaps = 6;       ///< pixels that a filter reads, across and down
constexpr int kPhases = 128;      ///< places between two pixels
constexpr int kWeightOne = 16384; ///< the weights of a phase add up to it

using TapWeights = std::array<int16_t, 8>; ///< kTaps weights and two zeros

/// Weights of every phase, made once.
const std::array<TapWeights, kPhases> &filterPhases();

/// Where the pixels come from that make up one of the result.
struct TapPlace
{
    int x = 0; ///< of the first pixel read
    int y = 0;
    uint16_t phaseX = 0;
    uint16_t phaseY = 0;
    bool isCovered = false; ///< otherwise the result is 0 and nothing is read
};

/// The shot to read from: rows of 0xAARRGGBB words, or of four 16-bit channels, alpha last.
struct SourcePixels
{
    const uint8_t *bits;
    size_t rowBytes;
    int width;
    int height;
    bool isOpaque; ///< what stands in place of alpha means nothing
};

void resampleWords(const SourcePixels &source, const TapPlace *places, size_t count, uint32_t *out);

namespace plain {

void resampleWords(const SourcePixels &source, const TapPlace *places, size_t count, uint32_t *out);

/// out: four channels for each place. There is no other.
void resampleDeep(const SourcePixels &source, const TapPlace *places, size_t count, uint16_t *out);

} // namespace plain

/// True when all taps of a place lie inside.
inline bool isInner(const SourcePixels &source, const TapPlace &place)
{
    constexpr int kCount = kTaps;
    return place.x >= 0 && place.y >= 0 && place.x + kCount <= source.width &&
           place.y + kCount <= source.height;
}

/// The pixels of a place at the border, those outside replaced by the nearest inside.
template <typename Pixel>
struct BorderPixels
{
    BorderPixels(const SourcePixels &source, const TapPlace &place);

    std::array<Pixel, kTaps * kTaps> pixels;
};

extern template struct BorderPixels<uint32_t>;
extern template struct BorderPixels<uint64_t>;

} // namespace registration
