#pragma once

/// What photographers change in a finished picture, all neutral unless set.
namespace exposure {

struct Look
{
    double exposure = 0.0;   ///< stops brighter, -4 to 4
    double contrast = 0.0;   ///< -1 (flat) to 1 (hard), around the middle of the encoded values
    double highlights = 0.0; ///< -1 (darker, with more to see in them) to 1
    double shadows = 0.0;    ///< -1 to 1 (brighter, with more to see in them)
    double blackPoint = 0.0; ///< the encoded value that becomes black, 0 to 0.4
    double whitePoint = 1.0; ///< the encoded value that becomes white, 0.6 to 1
    double saturation = 1.0; ///< 0 (grey) to 3

    friend bool operator==(const Look &a, const Look &b)
    {
        return a.exposure == b.exposure && a.contrast == b.contrast &&
               a.highlights == b.highlights && a.shadows == b.shadows &&
               a.blackPoint == b.blackPoint && a.whitePoint == b.whitePoint &&
               a.saturation == b.saturation;
    }
    friend bool operator!=(const Look &a, const Look &b) { return !(a == b); }

    bool isNeutral() const { return *this == Look(); }
    bool hasTones() const { return highlights != 0.0 || shadows != 0.0; }
    /// Each number as the nearest within its range; what is no number as neutral.
    Look bounded() const;
};

} // namespace exposure
