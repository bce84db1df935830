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

/// The index of the nearest true entry, the lower of two; -1 without any.
int nearestTrue(const std::vector<char> &entries, int index)
{
    const int count = static_cast<int>(entries.size());
    for (int distance = 0; distance < count; ++distance)
        for (const int i : {index - distance, index + distance})
            if (i >= 0 && i < count && entries[static_cast<size_t>(i)] != 0)
                return i;
    return -1;
}

} // namespace

template <typename Word>
fusion::ShotReader<Word>::ShotReader(const Shot &readShot)
    : shot(readShot)
{
    if (shot.picture.hasAlphaChannel())
        findStandIns();
}

template <typename Word>
const Word *fusion::ShotReader<Word>::words(int y) const
{
    return reinterpret_cast<const Word *>(shot.picture.constScanLine(y));
}

template <typename Word>
void fusion::ShotReader<Word>::findStandIns()
{
    const auto height = static_cast<size_t>(shot.picture.height());
    std::vector<char> hasOpaque(height);
    std::vector<char> hasGaps(height);
    parallel::rows(shot.picture.size(), [&](int begin, int end) {
        for (int y = begin; y < end; ++y) {
            const Word *first = words(y);
            const Word *last = first + shot.picture.width();
            hasOpaque[static_cast<size_t>(y)] = std::any_of(first, last, isWordOpaque<Word>);
            hasGaps[static_cast<size_t>(y)] = !std::all_of(first, last, isWordOpaque<Word>);
        }
    });
    if (std::none_of(hasGaps.begin(), hasGaps.end(), [](char gaps) { return gaps != 0; }))
        return;
    standIns.resize(height);
    for (size_t y = 0; y < height; ++y)
        standIns[y] = nearestTrue(hasOpaque, static_cast<int>(y));
}

template <typename Word>
const Word *fusion::ShotReader<Word>::row(int y, Word *room) const
{
    if (standIns.empty())
        return words(y);
    const int source = standIns[static_cast<size_t>(y)];
    const int width = shot.picture.width();
    if (source < 0) {
        std::fill(room, room + width, Word(0));
        return room;
    }
    const Word *from = words(source);
    Word nearest = *std::find_if(from, from + width, isWordOpaque<Word>);
    for (int x = 0; x < width; ++x) {
        if (isOpaque(from[x]))
            nearest = from[x];
        room[x] = nearest;
    }
    return room;
}

template <typename Word>
void fusion::ShotReader<Word>::usableRow(int y, float *shares) const
{
    const int width = shot.picture.width();
    const int halfWidth = halfSize(shot.picture.size()).width();
    const uchar *mask = shot.mask.isNull() ? nullptr : shot.mask.constScanLine(y);
    for (int x = 0; x < halfWidth; ++x)
        shares[x] = mask == nullptr ? 1.0F : static_cast<float>(mask[x]) * (1.0F / 255);
    if (standIns.empty())
        return;
    for (const int row : {2 * y, std::min(2 * y + 1, shot.picture.height() - 1)})
        for (int x = 0; x < width; ++x)
            if (!isOpaque(words(row)[x]))
                shares[x / 2] = 0.0F;
}

template class fusion::ShotReader<quint32>;
template class fusion::ShotReader<quint64>;
