#include "BitSampler.h"

#include <QtAlgorithms>

#include <algorithm>
#include <iterator>

namespace {

/// Bit i: whether the bits 0..i of the word have an odd number of ones.
uint64_t prefixParity(uint64_t word)
{
    for (int shift = 1; shift < 64; shift *= 2)
        word ^= word << shift;
    return word;
}

} // namespace

BitSampler::BitSampler(const std::vector<int> &positions, int length)
    : picked(static_cast<int>(positions.size()))
{
    std::vector<uint64_t> masks((static_cast<size_t>(length) + 63) / 64);
    for (const int position : positions)
        masks[static_cast<size_t>(position) / 64] |= uint64_t(1) << (position % 64);
    std::transform(masks.begin(), masks.end(), std::back_inserter(words), compression);
}

BitSampler::Word BitSampler::compression(uint64_t mask)
{
    Word word{mask, {}, static_cast<int>(qPopulationCount(quint64(mask)))};
    uint64_t zerosBelow = ~mask << 1; // each bit that is dropped moves those above it down by one
    for (int i = 0; i < 6; ++i) {
        const uint64_t oddly = prefixParity(zerosBelow);
        const uint64_t moving = oddly & mask;
        word.moves[static_cast<size_t>(i)] = moving;
        mask = (mask ^ moving) | (moving >> (1 << i));
        zerosBelow &= ~oddly;
    }
    return word;
}

void BitSampler::sample(const uint64_t *in, uint64_t *out) const
{
    uint64_t pending = 0;
    int pendingCount = 0; // 0..63
    for (size_t i = 0; i < words.size(); ++i) {
        const Word &word = words[i];
        uint64_t bits = in[i] & word.mask;
        for (int step = 0; step < 6; ++step) {
            const uint64_t moving = bits & word.moves[static_cast<size_t>(step)];
            bits = (bits ^ moving) | (moving >> (1 << step));
        }
        pending |= bits << pendingCount;
        pendingCount += word.count;
        if (pendingCount < 64)
            continue;
        *out++ = pending;
        pendingCount -= 64;
        // None of this word's bits is left when they just filled the one before.
        pending = pendingCount > 0 ? bits >> (word.count - pendingCount) : 0;
    }
    if (pendingCount > 0)
        *out = pending;
}
