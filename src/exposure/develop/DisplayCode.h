#pragma once

#include <QtGlobal>

#include <vector>

namespace develop {

/// Light to levels of 16 bits along sRGB's curve (IEC 61966-2-1), rounded to the nearest level.
/// Any thread once made.
class DisplayCode
{
public:
    static constexpr int kTop = 65535;

    DisplayCode();

    /// The level whose light is nearest as the eye counts it; 0 for what is not a number.
    quint16 levelOf(float light) const;

    /// The same, found the plain way.
    quint16 levelOfPlain(float light) const;

    /// The light of a level in between, 0..1 as encoded.
    static double lightOf(double encoded);

private:
    std::vector<float> borders; ///< [level]: the least light of the level after it
    std::vector<quint16>
        starts; ///< for each stretch of numbers of equal high bits, its first level
};

} // namespace develop
