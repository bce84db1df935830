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

    /// More pixels than that (width times height) are refused, as the file's header tells them,
    /// before memory is taken for them.
    qint64 pixelLimit = kDefaultPixelLimit;
    /// Unless 0, a copy is wanted that fits into a square of this side, and is never enlarged. Made
    /// from less than all of the file where its format allows that.
    int side = 0;
    /// Levels of a channel.
    Depth depth = Depth::Eight;
    Colours colours = Colours::AsStored;
    /// Camera raw files come in this space; with Colours::True they carry its profile.
    colour_profile::Space rawSpace = colour_profile::Space::Srgb;
    /// Ends a raw conversion soon after it has become true. Borrowed, may be null.
    const std::atomic<bool> *cancelled = nullptr;
};
