// In one direction: with U the doubling, whose weights are 1/4 and 3/4, the best half h of a row g
// solves (U'U) h = U'g. U' sums four samples with weights 1 3 3 1 over 4; U'U has 5/4 on its
// diagonal and 3/8 beside it, and the row of its inverse falls off as (-1/3)^|n|: a recursion to
// the right and one back. Beyond the edges all is mirrored, as decoders repeat the last sample.

#include "half_size.h"

#include "parallel_rows.h"

#include <algorithm>
#include <array>
#include <type_traits>

namespace {

constexpr size_t kLanes = 4;
constexpr float kPole = -1.0F / 3.0F;
constexpr int kStartTerms = 16; // of which the last counts 3^-16

/// Index of a sample of n whose row is mirrored at both ends.
int mirrored(int i, int n)
{
    const int place = i % (2 * n);
    return place < n ? place : 2 * n - 1 - place;
}

/// U' of a row of `width` pixels.
void narrow(const float *pixels, int width, float *places)
{
    const auto at = [&](int x) { return pixels + kLanes * size_t(std::clamp(x, 0, width - 1)); };
    for (int i = 0; i < (width + 1) / 2; ++i, places += kLanes) {
        const float *a = at(2 * i - 1);
        const float *b = at(2 * i);
        const float *c = at(2 * i + 1);
        const float *d = at(2 * i + 2);
        for (size_t lane = 0; lane < kLanes; ++lane)
            places[lane] = 0.25F * (a[lane] + d[lane]) + 0.75F * (b[lane] + c[lane]);
    }
}

/// The inverse of U'U along lines of n samples `stride` apart; as many lines beside each other as
/// the count says: a number that the compiler knows for rows, any for columns.
template <typename Count>
void invert(float *samples, int n, size_t stride, Count count)
{
    for (size_t i = 0; i < count; ++i) {
        float before = 0.0F;
        for (int j = kStartTerms - 1; j >= 0; --j)
            before = samples[size_t(mirrored(j, n)) * stride + i] + kPole * before;
        samples[i] += kPole * before;
    }
    for (int y = 1; y < n; ++y) {
        float *row = samples + size_t(y) * stride;
        for (size_t i = 0; i < count; ++i)
            row[i] += kPole * (row - stride)[i];
    }
    float *last = samples + size_t(n - 1) * stride;
    for (size_t i = 0; i < count; ++i)
        last[i] *= 1.0F + kPole;
    for (int y = n - 2; y >= 0; --y) {
        float *row = samples + size_t(y) * stride;
        for (size_t i = 0; i < count; ++i)
            row[i] = (1.0F - kPole * kPole) * row[i] + kPole * (row + stride)[i];
    }
}

using OnePlace = std::integral_constant<size_t, kLanes>;

/// The rows of the full plane, each narrowed once while one goes down.
class NarrowRows
{
public:
    NarrowRows(QSize fullSize, const std::function<void(int, float *)> &fullRow)
        : size(fullSize)
        , row(fullRow)
        , pixels(kLanes * size_t(size.width()))
    {
        for (auto &places : kept)
            places.resize(kLanes * size_t((size.width() + 1) / 2));
    }

    /// y: beyond the edges the last row counts; of the rows asked for the last four are kept.
    const float *at(int y)
    {
        const int within = std::clamp(y, 0, size.height() - 1);
        const size_t place = size_t(within) % kept.size();
        if (rows[place] != within) {
            row(within, pixels.data());
            narrow(pixels.data(), size.width(), kept[place].data());
            rows[place] = within;
        }
        return kept[place].data();
    }

private:
    const QSize size;
    const std::function<void(int, float *)> &row;
    std::vector<float> pixels;
    std::array<std::vector<float>, 4> kept;
    std::array<int, 4> rows = {-1, -1, -1, -1};
};

} // namespace

std::vector<float> display::halfSizeOf(QSize size,
                                       const std::function<void(int y, float *pixels)> &row)
{
    const QSize half((size.width() + 1) / 2, (size.height() + 1) / 2);
    const size_t stride = kLanes * size_t(half.width());
    std::vector<float> plane(stride * size_t(half.height()));
    parallel::rows(half, [&](int begin, int end) {
        NarrowRows rows(size, row);
        for (int y = begin; y < end; ++y) {
            const float *a = rows.at(2 * y - 1);
            const float *b = rows.at(2 * y);
            const float *c = rows.at(2 * y + 1);
            const float *d = rows.at(2 * y + 2);
            float *to = plane.data() + stride * size_t(y);
            for (size_t i = 0; i < stride; ++i)
                to[i] = 0.25F * (a[i] + d[i]) + 0.75F * (b[i] + c[i]);
            invert(to, half.width(), kLanes, OnePlace());
        }
    });
    parallel::rows(half.transposed(), [&](int begin, int end) {
        invert(plane.data() + kLanes * size_t(begin), half.height(), stride,
               kLanes * size_t(end - begin));
    });
    return plane;
}
