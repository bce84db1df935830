#include "gain_map_maker.h"

#include "Response.h"
#include "gain_rows.h"
#include "half_size.h"
#include "large_memory.h"
#include "parallel_rows.h"
#include "white_match.h"

#include <QColorSpace>

#include <algorithm>
#include <array>
#include <cmath>
#include <new>
#include <vector>

namespace {

using display::BrightSource;
using GainsOfRow = decltype(&display::gainsOfRow);

constexpr int kSteps = 4096;            // of a stop, while the range is not known yet
constexpr int kLeastRange = kSteps / 4; // a range of nothing cannot be told

/// One map.
class Maker
{
public:
    Maker(const BrightSource &brightSource, GainsOfRow gainsOfRow)
        : source(brightSource)
        , gains(gainsOfRow)
        , most(float(kSteps * source.peak))
    {
        const auto response = radiance::Response::ofProfile(source.base.colorSpace().iccProfile(),
                                                            radiance::Response::kByteLevels);
        for (size_t c = 0; c < tables.size(); ++c) {
            for (const float light : response.channel(int(c)))
                tables[c].push_back(light + display::kGainOffset);
        }
    }

    GainMap make()
    {
        const QSize size = source.base.size();
        terms.scale = float(display::whiteMatch(source.base, source.light, source.bounds));
        terms.most = float(std::exp2(source.peak));
        plane = display::halfSizeOf(size, [this](int y, float *pixels) { makeRow(y, pixels); });
        half = QSize((size.width() + 1) / 2, (size.height() + 1) / 2);
        const std::vector<uint16_t> steps = rounded();
        const int range = rangeOf(steps);
        const double stops = double(range) / kSteps;
        const double offset = display::kGainOffset;
        GainMap map;
        map.picture = picture(steps, range);
        map.terms.channels.fill({0.0, stops, 1.0, offset, offset});
        map.terms.alternateHeadroom = stops;
        return map;
    }

private:
    void makeRow(int y, float *pixels) const
    {
        const auto *words = reinterpret_cast<const QRgb *>(source.base.constScanLine(y));
        const int width = source.base.width();
        for (int x = 0; x < width; ++x) {
            float *pixel = pixels + 4 * size_t(x);
            pixel[0] = tables[0][size_t(qRed(words[x]))];
            pixel[1] = tables[1][size_t(qGreen(words[x]))];
            pixel[2] = tables[2][size_t(qBlue(words[x]))];
            pixel[3] = 1.0F;
        }
        gains(pixels, reinterpret_cast<const float *>(source.light.constScanLine(y)),
              4 * size_t(width), terms, pixels);
    }

    uint16_t stepsOf(float gain) const
    {
        return uint16_t(std::clamp(gain * float(kSteps), 0.0F, most) + 0.5F);
    }

    /// In steps, 4 numbers a place.
    std::vector<uint16_t> rounded() const
    {
        std::vector<uint16_t> steps(plane.size());
        const size_t stride = 4 * size_t(half.width());
        parallel::rows(half, [&](int begin, int end) {
            for (size_t i = stride * size_t(begin); i < stride * size_t(end); ++i)
                steps[i] = stepsOf(plane[i]);
        });
        return steps;
    }

    /// In steps; all but one in ten thousand samples lie within.
    static int rangeOf(const std::vector<uint16_t> &steps)
    {
        std::vector<size_t> counts(size_t(display::kMostPeak) * kSteps + 1);
        for (size_t i = 0; i < steps.size(); i += 4) {
            for (size_t c = 0; c < 3; ++c)
                ++counts[steps[i + c]];
        }
        size_t above = steps.size() / 4 * 3 / 10000;
        int range = int(counts.size()) - 1;
        while (range > kLeastRange && counts[size_t(range)] <= above)
            above -= counts[size_t(range--)];
        return range;
    }

    /// Levels 0 to 255 for gains from 0 to the range; null when memory is lacking.
    QImage picture(const std::vector<uint16_t> &steps, int range) const
    {
        std::vector<int> levels(size_t(display::kMostPeak) * kSteps + 1, 255);
        for (int gain = 0; gain < range; ++gain)
            levels[size_t(gain)] = (2 * 255 * gain + range) / (2 * range);
        QImage map = memory::largeImage(half, QImage::Format_RGB32);
        const uint16_t *place = steps.data();
        for (int y = 0; y < map.height(); ++y) {
            auto *row = reinterpret_cast<QRgb *>(map.scanLine(y));
            for (int x = 0; x < half.width(); ++x, place += 4)
                row[x] = qRgb(levels[place[0]], levels[place[1]], levels[place[2]]);
        }
        return map;
    }

    const BrightSource &source;
    const GainsOfRow gains;
    const float most;
    std::array<std::vector<float>, 3> tables;
    display::GainTerms terms;
    std::vector<float> plane; // of half size, 4 floats a place
    QSize half;
};

GainMap make(const BrightSource &source, GainsOfRow gainsOfRow)
{
    try {
        return Maker(source, gainsOfRow).make();
    } catch (const std::bad_alloc &) {
        return {};
    }
}

} // namespace

GainMap display::makeGainMap(const BrightSource &source)
{
    return make(source, &gainsOfRow);
}

GainMap display::makeGainMapPlain(const BrightSource &source)
{
    return make(source, &gainsOfRowPlain);
}
