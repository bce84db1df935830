#pragma once

#include "LevelTables.h"

#include <QImage>

#include <vector>

namespace radiance {

/// A shot as the merge reads it.
struct ShotRows
{
    const QImage *picture = nullptr;
    const QImage *mask = nullptr; ///< may be a null picture
    float exposure = 1.0F;        ///< that of the reference is 1
};

/// One row of the radiance: 4 floats a pixel, the last one 1. bounds: one byte a pixel, see
/// radiance_options.h; left alone where all is measured. shots: all with the same number of bits.
/// Borrows all; for one row at a time on a thread.
class RadianceRows
{
public:
    RadianceRows(const std::vector<ShotRows> &shotsInOrder, const Response &response);

    void makeRow(int y, float *pixels, unsigned char *bounds) const;

private:
    struct Sums
    {
        float light[3] = {0.0F, 0.0F, 0.0F};
        float weight[3] = {0.0F, 0.0F, 0.0F};
    };

    class Bound;

    template <typename Word>
    void makeRowOf(int y, float *pixels, unsigned char *bounds) const;
    template <typename Word>
    void addOpenShot(const ShotRows &shot, int y, int begin, int end, Sums *sums) const;
    template <typename Word>
    void addShot(const ShotRows &shot, int y, int begin, int end, Sums *sums) const;
    void addPixel(float exposure, float share, const int *levels, Sums &sums) const;
    static unsigned char takeBounds(const Bound *bounds, Sums &sums);
    template <typename Word>
    unsigned char fillIn(int x, int y, Sums &sums) const;

    const std::vector<ShotRows> &shots;
    const Response &response;
    const LevelTables tables;
};

} // namespace radiance
