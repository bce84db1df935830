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
        const int range = rangeOfGains();
        const double stops = double(range) / kSteps;
        const double offset = display::kGainOffset;
        GainMap map;
        map.picture = picture(range);
        map.terms.channels.fill({0.0, stops, 1.0, offset, offset});
        map.terms.alternateHeadroom = stops;
        return map;
    }

private:
    void makeRow(int y, float *pixels) const
    {
        const int width = source.base.width();
        std::vector<float> base(4 * size_t(width), 1.0F);
        const auto *words = reinterpret_cast<const QRgb *>(source.base.constScanLine(y));
        for (int x = 0; x < width; ++x) {
            float *pixel = base.data() + 4 * size_t(x);
            pixel[0] = tables[0][size_t(qRed(words[x]))];
            pixel[1] = tables[1][size_t(qGreen(words[x]))];
            pixel[2] = tables[2][size_t(qBlue(words[x]))];
        }
        gains(base.data(), reinterpret_cast<const float *>(source.light.constScanLine(y)),
              base.size(), terms, pixels);
    }

    int stepsOf(float gain) const
    {
        return int(std::clamp(gain * float(kSteps), 0.0F, most) + 0.5F);
    }

    /// In steps; all but one in ten thousand samples lie within.
    int rangeOfGains() const
    {
        std::vector<size_t> counts(size_t(display::kMostPeak) * kSteps + 1);
        for (size_t i = 0; i < plane.size(); ++i) {
            if (i % 4 != 3)
                ++counts[size_t(stepsOf(plane[i]))];
        }
        size_t above = plane.size() / 4 * 3 / 10000;
        int range = int(counts.size()) - 1;
        while (range > kLeastRange && counts[size_t(range)] <= above)
            above -= counts[size_t(range--)];
        return range;
    }

    /// Levels 0 to 255 for gains from 0 to the range; null when memory is lacking.
    QImage picture(int range) const
    {
        QImage levels = memory::largeImage(half, QImage::Format_RGB32);
        const auto levelOf = [&](float gain) {
            return (2 * 255 * std::min(stepsOf(gain), range) + range) / (2 * range);
        };
        const float *gain = plane.data();
        for (int y = 0; y < levels.height(); ++y) {
            auto *row = reinterpret_cast<QRgb *>(levels.scanLine(y));
            for (int x = 0; x < half.width(); ++x, gain += 4)
                row[x] = qRgb(levelOf(gain[0]), levelOf(gain[1]), levelOf(gain[2]));
        }
        return levels;
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
