#include "mtb_search.h"

#include "mtb_rows.h"
#include "parallel_rows.h"
#include "picture_pixels.h"

#include <algorithm>
#include <array>
#include <mutex>

namespace {

/// errors[i][j]: differences when the moved picture is shifted by (startX + i, startY + j).
using Errors = std::array<std::array<qint64, 3>, 3>;

constexpr int kLastLevel = 255;

/// Which position each pixel of an image of `halfLength` takes from one of `length`, in Qt's fast
/// scaling of 8-bit images: in order, none twice. Qt itself is asked, on ramps that hold the
/// positions byte by byte.
std::vector<int> sampledPositions(int length, int halfLength, Qt::Orientation direction)
{
    const bool across = direction == Qt::Horizontal;
    const auto along = [across](int n) { return across ? QSize(n, 1) : QSize(1, n); };
    std::vector<int> positions(static_cast<size_t>(halfLength));
    for (int shift = 0; shift < 32 && (length >> shift) > 0; shift += 8) {
        QImage ramp(along(length), QImage::Format_Indexed8);
        if (ramp.isNull())
            throw std::bad_alloc();
        for (int i = 0; i < length; ++i)
            ramp.scanLine(across ? 0 : i)[across ? i : 0] = static_cast<uchar>(i >> shift);
        const QImage half =
            ramp.scaled(along(halfLength), Qt::IgnoreAspectRatio, Qt::FastTransformation);
        for (int i = 0; i < halfLength; ++i)
            positions[static_cast<size_t>(i)] += half.constScanLine(across ? 0 : i)[across ? i : 0]
                                                 << shift;
    }
    return positions;
}

/// The positions that an image of half the size, rounded half up, takes in one direction.
std::vector<int> halvedPositions(int length, Qt::Orientation direction)
{
    return sampledPositions(length, qRound(length / 2.0), direction);
}

/// Packs rows of grey levels to the two bitmaps.
class Thresholder
{
public:
    Thresholder(int threshold, int tolerance)
        : above{std::max(threshold, 0), kLastLevel}
        , excluded{static_cast<int>(std::clamp<qint64>(qint64(threshold) - tolerance + 1, 0, 256)),
                   static_cast<int>(std::clamp<qint64>(qint64(threshold) + tolerance - 1, -1, 255))}
    {
    }

    void pack(const uint8_t *grey, mtb::BitmapLevel &level, int y) const
    {
        const size_t words = level.threshold.wordsPerRow();
        uint64_t *thresholdRow = level.threshold.row(y);
        uint64_t *exclusionRow = level.exclusion.row(y);
        mtb::packRow(grey, words, above, thresholdRow);
        mtb::packRow(grey, words, excluded, exclusionRow);
        std::transform(exclusionRow, exclusionRow + words, exclusionRow,
                       [](uint64_t word) { return ~word; });
        if (const int rest = level.threshold.width() % 64) {
            const uint64_t inside = ~uint64_t(0) >> (64 - rest);
            thresholdRow[words - 1] &= inside;
            exclusionRow[words - 1] &= inside;
        }
    }

private:
    mtb::LevelRange above;
    mtb::LevelRange excluded;
};

mtb::BitmapLevel bitmapLevel(const mtb::GreyImage &grey, const Thresholder &thresholder)
{
    mtb::BitmapLevel level{{grey.width(), grey.height()}, {grey.width(), grey.height()}};
    parallel::rows({grey.width(), grey.height()}, [&](int begin, int end) {
        for (int y = begin; y < end; ++y)
            thresholder.pack(grey.row(y), level, y);
    });
    return level;
}

/// Thresholding does not look at neighbours, so the bitmaps of a smaller image are samples of those
/// of the larger one.
mtb::BitmapLevel halved(const mtb::BitmapLevel &level, const mtb::Halving &halving)
{
    const int width = halving.columns.count();
    const int height = static_cast<int>(halving.rows.size());
    mtb::BitmapLevel half{{width, height}, {width, height}};
    parallel::rows({width, height}, [&](int begin, int end) {
        for (int y = begin; y < end; ++y) {
            const int sourceY = halving.rows[static_cast<size_t>(y)];
            halving.columns.sample(level.threshold.row(sourceY), half.threshold.row(y));
            halving.columns.sample(level.exclusion.row(sourceY), half.exclusion.row(y));
        }
    });
    return half;
}

/// Writes row `in` shifted by `shift` pixels to `out`; bits that leave the width are dropped.
void shiftRow(const mtb::PackedBitmap &bitmap, int y, int shift, std::vector<uint64_t> &out)
{
    const uint64_t *in = bitmap.row(y);
    const auto words = static_cast<qint64>(bitmap.wordsPerRow());
    const qint64 wordShift = shift >= 0 ? shift / 64 : -((63 - qint64(shift)) / 64);
    const int bitShift = static_cast<int>(shift - wordShift * 64); // 0..63
    const auto wordAt = [&](qint64 i) { return i >= 0 && i < words ? in[i] : 0; };
    for (qint64 i = 0; i < words; ++i) {
        const uint64_t low = wordAt(i - wordShift);
        const uint64_t carried = wordAt(i - wordShift - 1);
        out[static_cast<size_t>(i)] =
            bitShift == 0 ? low : low << bitShift | carried >> (64 - bitShift);
    }
    if (const int rest = bitmap.width() % 64)
        out.back() &= ~uint64_t(0) >> (64 - rest);
}

/// Adds the errors that rows begin..end of the moved picture cause.
void addErrors(const mtb::BitmapLevel &reference, const mtb::BitmapLevel &moved, int startX,
               int startY, int begin, int end, Errors &errors)
{
    const size_t words = moved.threshold.wordsPerRow();
    std::vector<uint64_t> shifted(words);
    for (int y = begin; y < end; ++y) {
        for (int i = 0; i < 3; ++i) {
            shiftRow(moved.threshold, y, startX + i, shifted);
            for (int j = 0; j < 3; ++j) {
                const qint64 referenceY = qint64(y) + startY + j;
                if (referenceY < 0 || referenceY >= reference.threshold.height())
                    continue;
                const int row = static_cast<int>(referenceY);
                errors[static_cast<size_t>(i)][static_cast<size_t>(j)] += mtb::rowError(
                    {reference.threshold.row(row), reference.exclusion.row(row), shifted.data(),
                     moved.exclusion.row(y), words, moved.threshold.width(), startX + i});
            }
        }
    }
}

/// Rows of the reference picture on which no row of the shifted one lands count nothing: there the
/// shifted exclusion bitmap is 0.
Errors countErrors(const mtb::BitmapLevel &reference, const mtb::BitmapLevel &moved, int startX,
                   int startY)
{
    Errors total = {};
    std::mutex mutex;
    parallel::rows({moved.threshold.width(), moved.threshold.height()}, [&](int begin, int end) {
        Errors errors = {};
        addErrors(reference, moved, startX, startY, begin, end, errors);
        const std::lock_guard lock(mutex);
        for (size_t i = 0; i < 3; ++i) {
            for (size_t j = 0; j < 3; ++j)
                total[i][j] += errors[i][j];
        }
    });
    return total;
}

} // namespace

mtb::GreyImage::GreyImage(int width, int height)
    : columns(width)
    , lines(height)
    , stride((static_cast<size_t>(width) + kPadding - 1) / kPadding * kPadding)
    , levels(new uint8_t[stride * static_cast<size_t>(height)])
{
    for (int y = 0; y < height; ++y)
        std::fill(row(y) + width, row(y) + stride, uint8_t(0));
}

mtb::PackedBitmap::PackedBitmap(int width, int height)
    : columns(width)
    , lines(height)
    , stride((static_cast<size_t>(width) + 63) / 64)
    , words(stride * static_cast<size_t>(height))
{
}

GreyHistogram mtb::makeGrey(const QImage &picture, GreyImage &grey)
{
    const QImage words = pixels::asWords(picture);
    if (words.isNull())
        throw std::bad_alloc();
    GreyHistogram histogram;
    std::mutex mutex;
    parallel::rows(words.size(), [&](int begin, int end) {
        GreyCounter counter;
        for (int y = begin; y < end; ++y) {
            uint8_t *row = grey.row(y);
            greyRow(reinterpret_cast<const uint32_t *>(words.constScanLine(y)),
                    static_cast<size_t>(words.width()), row);
            counter.add(row, static_cast<size_t>(words.width()));
        }
        const std::lock_guard lock(mutex);
        histogram.add(counter.histogram());
    });
    return histogram;
}

mtb::GreyImage mtb::greyImage(const QImage &lum)
{
    GreyImage grey(lum.width(), lum.height());
    for (int y = 0; y < lum.height(); ++y)
        std::copy_n(lum.constScanLine(y), lum.width(), grey.row(y));
    return grey;
}

std::vector<mtb::Halving> mtb::halvings(QSize size, int levels)
{
    std::vector<Halving> halvings;
    for (int level = 0; level < std::min(levels, kMostLevels); ++level) {
        halvings.push_back({{halvedPositions(size.width(), Qt::Horizontal), size.width()},
                            halvedPositions(size.height(), Qt::Vertical)});
        size = {halvings.back().columns.count(), static_cast<int>(halvings.back().rows.size())};
    }
    return halvings;
}

mtb::BitmapPyramid mtb::bitmapPyramid(const GreyImage &grey, int threshold, int tolerance,
                                      const std::vector<Halving> &halvings)
{
    BitmapPyramid pyramid;
    pyramid.push_back(bitmapLevel(grey, Thresholder(threshold, tolerance)));
    for (const Halving &halving : halvings)
        pyramid.push_back(halved(pyramid.back(), halving));
    return pyramid;
}

mtb::BitmapPyramid mtb::bitmapPyramid(const QImage &picture, double percentile, int tolerance,
                                      const std::vector<Halving> &halvings, GreyImage &grey)
{
    const GreyHistogram histogram = makeGrey(picture, grey);
    const double pixelCount = static_cast<double>(picture.width()) * picture.height();
    const int threshold =
        GreyHistogram::percentileLevel(histogram.cumulative(pixelCount), percentile);
    return bitmapPyramid(grey, threshold, tolerance, halvings);
}

void mtb::search(const BitmapPyramid &reference, const BitmapPyramid &moved, int &shiftX,
                 int &shiftY)
{
    int startX = -1;
    int startY = -1;
    for (size_t level = reference.size(); level-- > 0;) {
        // A coarse level where no shift is good enough leaves (0, 0), the finest leaves the
        // caller's values.
        int x = 0;
        int y = 0;
        const bool finest = level == 0;
        int &bestX = finest ? shiftX : x;
        int &bestY = finest ? shiftY : y;
        const PackedBitmap &bitmap = reference[level].threshold;
        const Errors errors = countErrors(reference[level], moved[level], startX, startY);
        qint64 smallestError = qint64(bitmap.width()) * bitmap.height();
        for (int i = 0; i < 3; ++i) {
            for (int j = 0; j < 3; ++j) {
                const qint64 error = errors[static_cast<size_t>(i)][static_cast<size_t>(j)];
                if (error < smallestError) {
                    bestX = startX + i;
                    bestY = startY + j;
                    smallestError = error;
                }
            }
        }
        startX = 2 * x - 1;
        startY = 2 * y - 1;
    }
}
