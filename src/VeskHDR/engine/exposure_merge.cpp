#include "exposure_merge.h"

#include "exposure_merge_rows.h"
#include "large_memory.h"
#include "merge_weights.h"
#include "parallel_rows.h"
#include "picture_pixels.h"

#include <algorithm>
#include <memory>
#include <new>
#include <vector>

namespace {

/// Rows of a picture as words: its own, or a copy made row by row when its format is another.
class RowReader
{
public:
    explicit RowReader(const QImage &source)
        : picture(source)
        , copy(pixels::areColours(source) ? 0 : static_cast<size_t>(source.width()))
    {
    }

    const uint32_t *row(int y)
    {
        if (copy.empty())
            return reinterpret_cast<const uint32_t *>(picture.constScanLine(y));
        for (int x = 0; x < picture.width(); ++x)
            copy[static_cast<size_t>(x)] = pixels::at(picture, x, y);
        return copy.data();
    }

private:
    const QImage &picture;
    std::vector<uint32_t> copy;
};

bool sameSize(const QList<QImage *> &pictures)
{
    return std::all_of(pictures.begin(), pictures.end(), [&](const QImage *picture) {
        return picture && picture->size() == pictures.first()->size();
    });
}

/// Merges rows begin..end of the pictures into the same rows of the image that starts at `words`.
void mergeRows(const QList<QImage *> &pictures, int begin, int end, uchar *words, int bytesPerLine)
{
    std::vector<RowReader> readers;
    readers.reserve(static_cast<size_t>(pictures.size()));
    for (const QImage *picture : pictures)
        readers.emplace_back(*picture);
    const auto width = static_cast<size_t>(pictures.first()->width());
    const float *table = weights::table();
    std::vector<const uint32_t *> rows(readers.size());
    std::vector<merge::StretchWeights> weights(readers.size());
    for (int y = begin; y < end; ++y) {
        std::transform(readers.begin(), readers.end(), rows.begin(),
                       [y](RowReader &reader) { return reader.row(y); });
        merge::mergeRow(rows.data(), rows.size(), width, table, weights.data(),
                        reinterpret_cast<uint32_t *>(words + qptrdiff(y) * bytesPerLine));
    }
}

QImage *mergeAll(const QList<QImage *> &pictures)
{
    const QSize size = pictures.first()->size();
    auto merged = std::make_unique<QImage>(memory::largeImage(size, QImage::Format_RGB32));
    if (merged->size() != size)
        return nullptr;
    uchar *words = merged->bits();
    const int bytesPerLine = merged->bytesPerLine();
    parallel::rows(
        size, [&](int begin, int end) { mergeRows(pictures, begin, end, words, bytesPerLine); });
    return merged.release();
}

} // namespace

QImage *mergeExposures(const QList<QImage *> &pictures)
{
    if (pictures.isEmpty() || !sameSize(pictures))
        return nullptr;
    try {
        return mergeAll(pictures);
    } catch (const std::bad_alloc &) {
        return nullptr;
    }
}
