#include "ShotReader.h"

#include "parallel_rows.h"

#include <algorithm>

namespace {

constexpr bool isOpaque(quint32 word)
{
    return word >= 0xFF000000U;
}

constexpr bool isOpaque(quint64 word)
{
    return word >= 0xFFFF000000000000U;
}

template <typename Word>
bool isWordOpaque(Word word)
{
    return isOpaque(word);
}

} // namespace

template <typename Word>
fusion::ShotReader<Word>::ShotReader(const Shot &readShot)
    : shot(readShot)
{
    if (shot.picture.hasAlphaChannel())
        findCoverage();
}

template <typename Word>
const Word *fusion::ShotReader<Word>::words(int y) const
{
    return reinterpret_cast<const Word *>(shot.picture.constScanLine(y));
}

template <typename Word>
typename fusion::ShotReader<Word>::Coverage fusion::ShotReader<Word>::coverageOf(int y) const
{
    const Word *first = words(y);
    const Word *last = first + shot.picture.width();
    Coverage found;
    found.begin = int(std::find_if(first, last, isWordOpaque<Word>) - first);
    found.end = int(last - first);
    while (found.end > found.begin && !isOpaque(first[found.end - 1]))
        --found.end;
    found.hasGaps = !std::all_of(first + found.begin, first + found.end, isWordOpaque<Word>);
    return found;
}

template <typename Word>
void fusion::ShotReader<Word>::findCoverage()
{
    const int width = shot.picture.width();
    const int height = shot.picture.height();
    coverage.resize(size_t(height));
    parallel::rows(shot.picture.size(), [&](int begin, int end) {
        for (int y = begin; y < end; ++y)
            coverage[size_t(y)] = coverageOf(y);
    });
    const auto isWhole = [width](const Coverage &row) {
        return row.begin == 0 && row.end == width && !row.hasGaps;
    };
    if (std::all_of(coverage.begin(), coverage.end(), isWhole)) {
        coverage.clear();
        return;
    }
    const auto isAny = [&](int y) {
        return y >= 0 && y < height && coverage[size_t(y)].begin < width;
    };
    for (int y = 0; y < height; ++y) {
        int distance = 0;
        while (distance < height && !isAny(y - distance) && !isAny(y + distance))
            ++distance;
        if (distance < height)
            coverage[size_t(y)].standIn = isAny(y - distance) ? y - distance : y + distance;
    }
}

template <typename Word>
const Word *fusion::ShotReader<Word>::row(int y, Word *room) const
{
    if (coverage.empty())
        return words(y);
    const int width = shot.picture.width();
    const int standIn = coverage[size_t(y)].standIn;
    if (standIn < 0) {
        std::fill(room, room + width, Word(0));
        return room;
    }
    const Coverage &from = coverage[size_t(standIn)];
    if (from.begin == 0 && from.end == width && !from.hasGaps)
        return words(standIn);
    fill(from, words(standIn), room);
    return room;
}

template <typename Word>
void fusion::ShotReader<Word>::fill(const Coverage &from, const Word *source, Word *room) const
{
    std::fill(room, room + from.begin, source[from.begin]);
    std::copy(source + from.begin, source + from.end, room + from.begin);
    std::fill(room + from.end, room + shot.picture.width(), source[from.end - 1]);
    for (int x = from.begin; from.hasGaps && x < from.end; ++x) {
        if (!isOpaque(source[x]))
            room[x] = room[x - 1]; // the first one is opaque
    }
}

template <typename Word>
void fusion::ShotReader<Word>::usableRow(int y, float *shares) const
{
    const int halfWidth = halfSize(shot.picture.size()).width();
    const uchar *mask = shot.mask.isNull() ? nullptr : shot.mask.constScanLine(y);
    for (int x = 0; x < halfWidth; ++x)
        shares[x] = mask == nullptr ? 1.0F : static_cast<float>(mask[x]) * (1.0F / 255);
    if (coverage.empty())
        return;
    leaveOut(2 * y, shares);
    leaveOut(std::min(2 * y + 1, shot.picture.height() - 1), shares);
}

/// Takes away what row y of the picture does not cover.
template <typename Word>
void fusion::ShotReader<Word>::leaveOut(int y, float *shares) const
{
    const int width = shot.picture.width();
    const Coverage &covered = coverage[size_t(y)];
    for (int x = 0; x < covered.begin; ++x)
        shares[x / 2] = 0.0F;
    for (int x = covered.end; x < width; ++x)
        shares[x / 2] = 0.0F;
    const Word *pixels = words(y);
    for (int x = covered.begin; covered.hasGaps && x < covered.end; ++x) {
        if (!isOpaque(pixels[x]))
            shares[x / 2] = 0.0F;
    }
}

template class fusion::ShotReader<quint32>;
template class fusion::ShotReader<quint64>;
