#include "TiffRows.h"

#include <algorithm>
#include <cstring>

TiffRows::TiffRows(TIFF *file)
    : tiff(file)
    , isTiled(TIFFIsTiled(file))
{
    std::uint16_t bits = 8;
    std::uint16_t planes = PLANARCONFIG_CONTIG;
    TIFFGetField(tiff, TIFFTAG_IMAGEWIDTH, &width);
    TIFFGetField(tiff, TIFFTAG_IMAGELENGTH, &height);
    TIFFGetFieldDefaulted(tiff, TIFFTAG_BITSPERSAMPLE, &bits);
    TIFFGetFieldDefaulted(tiff, TIFFTAG_SAMPLESPERPIXEL, &channels);
    TIFFGetFieldDefaulted(tiff, TIFFTAG_PLANARCONFIG, &planes);
    numberBytes = bits / 8U;
    areChannelsApart = planes == PLANARCONFIG_SEPARATE;
    pieceWidth = width;
    if (isTiled) {
        TIFFGetField(tiff, TIFFTAG_TILEWIDTH, &pieceWidth);
        TIFFGetField(tiff, TIFFTAG_TILELENGTH, &pieceRows);
    } else {
        TIFFGetFieldDefaulted(tiff, TIFFTAG_ROWSPERSTRIP, &pieceRows);
        pieceRows = std::min(pieceRows, height);
    }
}

/// Damaged files claim more than there is memory: a piece is hardly larger than the picture.
bool TiffRows::isPieceSensible() const
{
    constexpr std::uint64_t kLargestOfSmallPictures = 64 << 20;
    const std::uint64_t pictureBytes = std::uint64_t(width) * height * channels * numberBytes;
    const std::uint64_t pieceBytes = isTiled ? TIFFTileSize64(tiff) : TIFFStripSize64(tiff);
    return pieceWidth > 0 && pieceRows > 0 && pieceBytes > 0 &&
           pieceBytes <= std::max(kLargestOfSmallPictures, 2 * pictureBytes);
}

const unsigned char *TiffRows::row(std::uint32_t y)
{
    const std::size_t rowBytes = std::size_t(width) * channels * numberBytes;
    if (!isTiled && !areChannelsApart) {
        band.resize(std::max(rowBytes, std::size_t(TIFFScanlineSize(tiff))));
        return TIFFReadScanline(tiff, band.data(), y, 0) == 1 ? band.data() : nullptr;
    }
    if (y % std::max(pieceRows, 1U) == 0 && !readBand(y))
        return nullptr;
    return band.data() + (y % pieceRows) * rowBytes;
}

/// All rows of the strips or tiles that begin in this row.
bool TiffRows::readBand(std::uint32_t firstRow)
{
    if (!isPieceSensible())
        return false;
    piece.resize(std::size_t(isTiled ? TIFFTileSize(tiff) : TIFFStripSize(tiff)));
    const std::uint32_t rows = std::min(pieceRows, height - firstRow);
    band.resize(std::size_t(rows) * width * channels * numberBytes);
    const std::uint16_t planes = areChannelsApart ? channels : 1;
    for (std::uint16_t channel = 0; channel < planes; ++channel) {
        for (std::uint32_t x = 0; x < width; x += pieceWidth) {
            if (!readPiece(x, firstRow, channel))
                return false;
            placePiece(x, rows, channel);
        }
    }
    return true;
}

bool TiffRows::readPiece(std::uint32_t x, std::uint32_t y, std::uint16_t channel)
{
    if (isTiled)
        return TIFFReadTile(tiff, piece.data(), x, y, 0, channel) >= 0;
    const std::uint32_t strip = TIFFComputeStrip(tiff, y, channel);
    return TIFFReadEncodedStrip(tiff, strip, piece.data(), tmsize_t(piece.size())) >= 0;
}

/// Moves the piece's numbers to their places in the band.
void TiffRows::placePiece(std::uint32_t x, std::uint32_t rows, std::uint16_t channel)
{
    const std::size_t pixelBytes = channels * numberBytes;
    const std::size_t partBytes = areChannelsApart ? numberBytes : pixelBytes;
    const std::size_t columns = std::min(pieceWidth, width - x);
    for (std::size_t y = 0; y < rows; ++y) {
        const unsigned char *from = piece.data() + y * pieceWidth * partBytes;
        unsigned char *to = band.data() + (y * width + x) * pixelBytes +
                            (areChannelsApart ? channel : 0) * partBytes;
        if (partBytes == pixelBytes) {
            std::memcpy(to, from, columns * pixelBytes);
            continue;
        }
        for (std::size_t i = 0; i < columns; ++i)
            std::memcpy(to + i * pixelBytes, from + i * partBytes, partBytes);
    }
}
