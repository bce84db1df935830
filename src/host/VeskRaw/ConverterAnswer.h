#pragma once

#include <cstdint>

/// What the program that converts raw files writes to its standard output, in the machine's own
/// byte order: this, and after a success the rows of the picture as raw::writeRow makes them.
struct ConverterAnswer
{
    static constexpr std::uint64_t kMagic = 0x3157415256455354; // begins every answer

    std::uint64_t magic = kMagic;
    std::uint32_t failure = 0; ///< a raw::Failure
    std::int32_t libraryError = 0;
    std::int32_t width = 0;
    std::int32_t height = 0;
};

/// The arguments of that program, in this order: the file and whole numbers.
enum ConverterArgument {
    PathArgument = 1,
    PixelLimitArgument,
    QuickArgument,
    BitsArgument,
    ColourSpaceArgument,
    LinearArgument,
    MemoryLimitArgument, ///< bytes of address space; 0 for none
    ConverterArgumentCount
};
