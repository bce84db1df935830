#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

/// Picks some bits of a packed row, the same ones of every row, 64 at a time: the compress
/// operation of Warren, Hacker's Delight, 2nd edition, section 7-4.
class BitSampler
{
public:
    /// positions: of the bits to pick, strictly increasing, all in 0..length-1.
    BitSampler(const std::vector<int> &positions, int length);

    int count() const { return picked; }

    /// in: a row of `length` bits, bit x % 64 of word x / 64. out: count() bits in the same layout,
    /// the rest of the last word 0.
    void sample(const uint64_t *in, uint64_t *out) const;

private:
    /// What is done with one word of a row: the bits outside of `mask` are dropped, then those of
    /// moves[i] move down by 2^i.
    struct Word
    {
        uint64_t mask;
        std::array<uint64_t, 6> moves;
        int count;
    };

    static Word compression(uint64_t mask);

    std::vector<Word> words;
    int picked;
};
