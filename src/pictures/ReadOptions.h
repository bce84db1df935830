#pragma once

#include "colour_profile.h"

#include <VeskRaw.h>

#include <atomic>

/// Pixels that a picture may have unless the caller says otherwise.
constexpr qint64 kDefaultPixelLimit = VeskRaw::kDefaultPixelLimit;

/// How a picture is to be read.
struct ReadOptions
{
    enum class Depth {
        Eight,    ///< 8 bits per channel at most
        AsStored, ///< 16 bits per channel where the file has more than 8
    };

    enum class Colours {
        AsStored, ///< the numbers of the file: grey stays grey, inks are multiplied
        True ///< words of red, green and blue, 8 or 16 bits each, with the profile that they are
             ///< of (none: sRGB): grey, inks and Lab become sRGB by their profiles
    };

    enum class Light {
        Refused, ///< such files are of no kind that is read
        Shown,   ///< with the curve of sRGB, cut off at white, in the file's primaries
        Floats   ///< Format_RGBX32FPx4, or with alpha, linear, tagged as such
    };

    /// More pixels than that (width times height) are refused, as the file's header tells them,
    /// before memory is taken for them.
    qint64 pixelLimit = kDefaultPixelLimit;
    /// Unless 0, a copy is wanted that fits into a square of this side, and is never enlarged. Made
    /// from less than all of the file where its format allows that.
    int side = 0;
    /// Levels of a channel.
    Depth depth = Depth::Eight;
    Colours colours = Colours::AsStored;
    /// What becomes of files that hold linear light: OpenEXR, Radiance, TIFF of floats.
    Light light = Light::Refused;
    /// Camera raw files come in this space; with Colours::True they carry its profile.
    colour_profile::Space rawSpace = colour_profile::Space::Srgb;
    /// Camera raw files come as linear light, as their sensors measure it: tagged so, best with all
    /// bits.
    bool isRawLinear = false;
    /// Ends the reading soon after it has become true. Borrowed, may be null.
    const std::atomic<bool> *cancelled = nullptr;
};
