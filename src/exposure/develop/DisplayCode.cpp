#include "DisplayCode.h"

#include <algorithm>
#include <cmath>
#include <cstring>

namespace develop {
namespace {

// Of a positive number's bits, those that name its stretch: the exponent and 11 more. So a stretch
// has 15 levels at most.
constexpr int kLowBits = 12;
constexpr quint32 kOneBits = 0x3F800000;
constexpr quint32 kLeastBits = (127U - 21) << 23; // less light than level 1 begins with
constexpr quint32 kLeastStretch = kLeastBits >> kLowBits;

quint32 bitsOf(float number)
{
    quint32 bits = 0;
    std::memcpy(&bits, &number, sizeof bits);
    return bits;
}

float numberOf(quint32 bits)
{
    float number = 0.0F;
    std::memcpy(&number, &bits, sizeof number);
    return number;
}

} // namespace

DisplayCode::DisplayCode()
    : borders(kTop)
{
    for (int level = 0; level < kTop; ++level)
        borders[size_t(level)] = static_cast<float>(lightOf((level + 0.5) / kTop));
    size_t level = 0;
    for (quint32 stretch = kLeastStretch; stretch <= kOneBits >> kLowBits; ++stretch) {
        const float least = numberOf(stretch << kLowBits);
        while (level < borders.size() && borders[level] <= least)
            ++level;
        starts.push_back(static_cast<quint16>(level));
    }
}

quint16 DisplayCode::levelOf(float light) const
{
    static const float kLeast = numberOf(kLeastBits);
    if (!(light >= kLeast)) // nor is what is not a number
        return 0;
    if (light >= 1.0F)
        return kTop;
    size_t level = starts[(bitsOf(light) >> kLowBits) - kLeastStretch];
    while (level < borders.size() && borders[level] <= light)
        ++level;
    return static_cast<quint16>(level);
}

quint16 DisplayCode::levelOfPlain(float light) const
{
    if (std::isnan(light))
        return 0;
    return static_cast<quint16>(std::upper_bound(borders.begin(), borders.end(), light) -
                                borders.begin());
}

double DisplayCode::lightOf(double encoded)
{
    return encoded <= 0.04045 ? encoded / 12.92 : std::pow((encoded + 0.055) / 1.055, 2.4);
}

} // namespace develop
