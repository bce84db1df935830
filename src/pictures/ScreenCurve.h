#pragma once

#include <vector>

/// The curve of sRGB (IEC 61966-2-1), from light to the level that a screen is given. A table with
/// straight lines in between: right to a hundredth of a level of 16 bits. Any thread once made.
class ScreenCurve
{
public:
    /// The one that all share.
    static const ScreenCurve &shared();

    /// light: any; what is below 0 and no number at all is black, what is above 1 is white.
    /// Returns 0..1, never falling as light rises.
    float levelOf(float light) const;

private:
    ScreenCurve();

    std::vector<float> levels; ///< at places that are even in the bits of the floats
};
