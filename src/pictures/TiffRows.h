#pragma once

#include <cstdint>
#include <vector>

#include <tiffio.h>

/// The rows of a TIFF picture from the first to the last, however the file stores them: in strips
/// or tiles, its channels together or apart. The numbers of a pixel stand side by side, in the
/// order of the channels and of the machine's bytes. Borrows the file. One thread.
class TiffRows
{
public:
    /// The file's current directory, with numbers of 8, 16 or 32 bits.
    explicit TiffRows(TIFF *file);

    /// Row y, valid until the next call; null when it is not in the file or damaged. Ask in the
    /// order of the rows. May throw std::bad_alloc.
    const unsigned char *row(std::uint32_t y);

private:
    bool readBand(std::uint32_t firstRow);
    bool readPiece(std::uint32_t x, std::uint32_t y, std::uint16_t channel);
    void placePiece(std::uint32_t x, std::uint32_t rows, std::uint16_t channel);
    bool isPieceSensible() const;

    TIFF *const tiff;
    std::uint32_t width = 0;
    std::uint32_t height = 0;
    std::uint16_t channels = 1;
    std::size_t numberBytes = 1;
    bool areChannelsApart = false;
    bool isTiled = false;
    std::uint32_t pieceWidth = 0;
    std::uint32_t pieceRows = 0;
    std::vector<unsigned char> piece;
    std::vector<unsigned char> band; ///< some rows, or one
};
