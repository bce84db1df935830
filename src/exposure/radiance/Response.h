#pragma once

#include <QByteArray>

#include <array>
#include <vector>

namespace radiance {

/// The light that each level of a shot stands for: from 0 for level 0 to 1 for the highest, never
/// falling. One curve for each of red, green and blue. A value; any thread.
class Response
{
public:
    static constexpr int kByteLevels = 256;
    static constexpr int kShortLevels = 65536;

    /// The tone curves of an ICC profile for RGB pixels, or sRGB's (IEC 61966-2-1) where it has
    /// none. levels: kByteLevels or kShortLevels.
    static Response ofProfile(const QByteArray &profile, int levels);

    /// One curve for all channels. light: for kByteLevels levels, rising, the last one above 0;
    /// scaled so that this is 1. For kShortLevels levels it is drawn out by straight lines.
    static Response ofCurve(const std::vector<double> &light, int levels);

    const std::vector<float> &channel(int index) const { return channels[size_t(index)]; }
    int levels() const { return int(channels.front().size()); }

private:
    std::array<std::vector<float>, 3> channels;
};

} // namespace radiance
