#pragma once

#include <cstddef>
#include <cstdint>

/// Row functions of the fusion of 8-bit pictures, in vector instructions, the best that the
/// processor has. Numbers are levels of grey times 64 (0..16320), their differences, and weights
/// times 32767. All rows but those of pixel words have kRowSlack numbers of padding, which is read
/// and written; no two arguments overlap unless they are equal. Any thread, reentrant.
namespace fusion {

struct ByteRows
{
    using Number = uint16_t;
    using Kept = Number; ///< of shots and weights, from one step to the next
    using Word = uint32_t;

    /// A weight of 1.
    static constexpr float kFullWeight = 32767.0F;
    /// From a number to a level in 0..1.
    static constexpr float kUnit = 1.0F / (255 * 64);

    /// Takes words 0xAARRGGBB apart: levels of red, green, blue.
    static void split(const Word *words, size_t count, Number *const channels[3]);

    /// The first halving, from levels of four rows: taps 1 3 3 1 each way, `half` numbers to out.
    /// across: a row to work in, of WorkRows.
    static void firstSmaller(const Number *const rows[4], size_t count, size_t half, Number *across,
                             Number *out);

    /// The other halvings, from numbers or weights.
    static void smaller(const Number *const rows[4], size_t count, size_t half, Number *across,
                        Number *out);

    /// A row twice as long, between the nearest and the next nearest row of the smaller level, of
    /// `half` numbers.
    static void larger(const Number *near, const Number *far, size_t half, Number *across,
                       Number *out);

    /// base = sum = numbers - enlarged; `enlarged` null: numbers.
    static void start(const Number *numbers, const Number *enlarged, size_t count, Number *base,
                      Number *sum);

    /// sum += (numbers - enlarged - base) * weights.
    static void add(const Number *numbers, const Number *enlarged, const Number *base,
                    const Number *weights, size_t count, Number *sum);

    /// As start and add, from levels.
    static void startLevels(const Number *levels, const Number *enlarged, size_t count,
                            Number *base, Number *sum);
    static void addLevels(const Number *levels, const Number *enlarged, const Number *base,
                          const Number *weights, size_t count, Number *sum);

    /// What larger() takes and gives of a result, which can be negative: out = sum + enlarged.
    static void finish(const Number *sum, const Number *enlarged, size_t count, Number *out);

    /// Opaque pixels from results of three channels.
    static void join(const Number *const sums[3], const Number *const enlarged[3], size_t count,
                     Word *words);

    /// numbers times kUnit.
    static void toUnit(const Number *numbers, size_t count, float *levels);

    /// Weights from shares 0..1.
    static void toWeights(const float *shares, size_t count, Number *weights);
};

} // namespace fusion
