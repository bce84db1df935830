#pragma once

#include <cstdint>
#include <vector>

/// The conversion of camera raw files by LibRaw, within the process. LibRaw's threads can end that
/// process where memory is short, so VeskRaw runs this in a program of its own. Free of Qt, which
/// would make up most of that program's start.
namespace raw {

/// Numbers go from process to process.
enum class Failure : std::uint32_t {
    None,
    NotRaw,     ///< not a raw file that LibRaw knows
    Unreadable, ///< the file cannot be opened
    Damaged,
    TooLarge, ///< more pixels than allowed, or than LibRaw takes
    NoMemory, ///< or no threads
    Library,  ///< LibRaw failed otherwise
    Count     ///< how many there are
};

enum class ColourSpace : std::uint32_t { Srgb, AdobeRgb, ProPhotoRgb, DisplayP3, Count };

struct Options
{
    std::int64_t pixelLimit = 0;
    bool quick = false;     ///< at half width and height
    int bitsPerChannel = 8; ///< 8 or 16
    ColourSpace colourSpace = ColourSpace::Srgb;
    bool isLinear = false; ///< light itself, without the space's curve
};

/// A converted picture: rows of one (grey) or three samples a pixel, red first, without padding.
struct Conversion
{
    Failure failure = Failure::None;
    int libraryError = 0; ///< LibRaw's number, 0 unless it is to blame
    int width = 0;
    int height = 0;
    int channels = 3;
    int bitsPerChannel = 8;
    std::vector<unsigned char> samples; ///< 16-bit ones in the machine's byte order
};

/// Upright, camera white balance, the exposure as it was taken. Throws nothing, but LibRaw's own
/// threads may end the process where memory is short. Any thread, several at once.
Conversion convert(const char *path, const Options &options);

/// What the exception in flight stands for, in a handler of exceptions or of their lack.
Failure failureInFlight();

/// One row of the picture as QImage keeps it: Format_RGB32 (4 bytes a pixel) for 8 bits a channel,
/// Format_RGBX64 (8 bytes) for 16.
void writeRow(const Conversion &picture, int y, unsigned char *row);

} // namespace raw
