#pragma once

#include <QtGlobal>

#include <cstddef>

/// Row functions of the fusion of 16-bit pictures, as ByteRows has them for 8-bit ones: numbers are
/// floats, levels of 0..65535. What is kept of shots and weights is rounded to whole numbers, of
/// weights in 65535ths, which halves the memory; results are not. Plain loops, in the order of
/// operations that they say. No padding is touched but one number before and two behind rows to
/// work in.
namespace fusion {

struct DeepRows
{
    using Number = float;
    using Kept = quint16;
    using Word = quint64; ///< QRgba64: red in the lowest 16 bits

    static constexpr float kUnit = 1.0F / 65535;

    static void split(const Word *words, size_t count, Number *const channels[3]);
    static void firstSmaller(const Number *const rows[4], size_t count, size_t half, Number *across,
                             Kept *out);
    static void smaller(const Kept *const rows[4], size_t count, size_t half, Number *across,
                        Kept *out);
    static void larger(const Kept *near, const Kept *far, size_t half, Number *across, Number *out);
    static void larger(const Number *near, const Number *far, size_t half, Number *across,
                       Number *out);
    static void start(const Kept *numbers, const Number *enlarged, size_t count, Number *base,
                      Number *sum);
    static void add(const Kept *numbers, const Number *enlarged, const Number *base,
                    const Kept *weights, size_t count, Number *sum);
    static void startLevels(const Number *levels, const Number *enlarged, size_t count,
                            Number *base, Number *sum);
    static void addLevels(const Number *levels, const Number *enlarged, const Number *base,
                          const Number *weights, size_t count, Number *sum);
    static void finish(const Number *sum, const Number *enlarged, size_t count, Number *out);
    static void join(const Number *const sums[3], const Number *const enlarged[3], size_t count,
                     Word *words);
    static void toUnit(const Kept *numbers, size_t count, float *levels);
    static void toWeights(const float *shares, size_t count, Kept *weights);
};

} // namespace fusion
