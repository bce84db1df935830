#pragma once

#include "BitSampler.h"
#include "GreyHistogram.h"

#include <QImage>

#include <cstdint>
#include <memory>
#include <vector>

// The search of mtb_alignment.h on packed bitmaps.
//
// A bitmap holds 64 pixels in a word. Neither a shifted bitmap nor a difference bitmap is ever made
// whole; the count of differences follows from counts of bits. In one row let D be the number of
// columns where the threshold bitmaps differ. The k-th of them reads byte k of the first exclusion
// bitmap; the j-th of those that pass reads byte j of the second one (shifted). So
//     J     = ones among the first D columns of the first exclusion row,
//     count = ones among the first J columns of the second, shifted, exclusion row.
// What a picture contributes (grey levels, threshold, bitmaps of every level) does not depend on
// the picture it is compared with, so it is computed once and used for both of its neighbours.
namespace mtb {

/// A search on more levels than these is one on these: its largest shift just fits an int.
constexpr int kMostLevels = 30;

/// Grey levels 0..255 of a picture, row by row.
class GreyImage
{
public:
    GreyImage(int width, int height);

    int width() const { return columns; }
    int height() const { return lines; }
    /// `width` levels, followed by zeros up to a multiple of kPadding.
    const uint8_t *row(int y) const { return levels.get() + static_cast<size_t>(y) * stride; }
    uint8_t *row(int y) { return levels.get() + static_cast<size_t>(y) * stride; }

    static constexpr size_t kPadding = 64;

private:
    int columns;
    int lines;
    size_t stride;
    std::unique_ptr<uint8_t[]> levels;
};

/// One bit per pixel; bit x % 64 of word x / 64. Bits beyond the width are 0.
class PackedBitmap
{
public:
    PackedBitmap(int width, int height);

    int width() const { return columns; }
    int height() const { return lines; }
    size_t wordsPerRow() const { return stride; }
    const uint64_t *row(int y) const { return words.data() + static_cast<size_t>(y) * stride; }
    uint64_t *row(int y) { return words.data() + static_cast<size_t>(y) * stride; }

private:
    int columns;
    int lines;
    size_t stride;
    std::vector<uint64_t> words;
};

/// Threshold and exclusion bitmap of a picture at one level of the search.
struct BitmapLevel
{
    PackedBitmap threshold;
    PackedBitmap exclusion;
};

/// Full size first, each further level of half the size of the one before.
using BitmapPyramid = std::vector<BitmapLevel>;

/// Fills grey, which has the picture's size, and tells how often each level occurs. picture: any
/// format, not null.
GreyHistogram makeGrey(const QImage &picture, GreyImage &grey);

/// The bytes of an 8-bit image as grey levels.
GreyImage greyImage(const QImage &lum);

/// What an image of half the size takes from the image.
struct Halving
{
    BitSampler columns;
    std::vector<int> rows;
};

/// How the levels of a pyramid come from one another: from each the next; kMostLevels at most.
std::vector<Halving> halvings(QSize size, int levels);

/// halvings: of the image's size.
BitmapPyramid bitmapPyramid(const GreyImage &grey, int threshold, int tolerance,
                            const std::vector<Halving> &halvings);

/// The pyramid of a picture, thresholded at this percentile (0..1) of its grey levels. grey: room
/// to work in, of the picture's size; fresh memory for each picture would take longer to get than
/// to fill.
BitmapPyramid bitmapPyramid(const QImage &picture, double percentile, int tolerance,
                            const std::vector<Halving> &halvings, GreyImage &grey);

/// getExpShift on two pyramids of equal sizes.
void search(const BitmapPyramid &reference, const BitmapPyramid &moved, int &shiftX, int &shiftY);

} // namespace mtb
