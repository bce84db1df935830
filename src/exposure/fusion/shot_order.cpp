#include "shot_order.h"

#include <QRgba64>

#include <algorithm>
#include <cstring>

namespace {

/// What is compared of a pixel: coverage, then red, green, blue; of uncovered ones nothing.
quint64 key(quint32 word, bool hasAlpha)
{
    const bool isCovered = !hasAlpha || word >= 0xFF000000U;
    return isCovered ? word | 0xFF000000U : 0;
}

quint64 key(quint64 word, bool hasAlpha)
{
    const QRgba64 pixel = QRgba64::fromRgba64(word);
    if (hasAlpha && pixel.alpha() != 65535)
        return 0;
    return quint64(1) << 48 | quint64(pixel.red()) << 32 | quint64(pixel.green()) << 16 |
           pixel.blue();
}

/// Less than 0, 0 or greater, as memcmp.
template <typename Word>
int compareRows(const QImage &first, const QImage &second, int y)
{
    const auto *a = reinterpret_cast<const Word *>(first.constScanLine(y));
    const auto *b = reinterpret_cast<const Word *>(second.constScanLine(y));
    const bool aHasAlpha = first.hasAlphaChannel();
    const bool bHasAlpha = second.hasAlphaChannel();
    const int width = first.width();
    if (aHasAlpha == bHasAlpha && std::memcmp(a, b, static_cast<size_t>(width) * sizeof(Word)) == 0)
        return 0;
    for (int x = 0; x < width; ++x) {
        const quint64 aKey = key(a[x], aHasAlpha);
        const quint64 bKey = key(b[x], bHasAlpha);
        if (aKey != bKey)
            return aKey < bKey ? -1 : 1;
    }
    return 0;
}

int comparePictureRows(const QImage &first, const QImage &second, int y)
{
    return first.depth() == 64 ? compareRows<quint64>(first, second, y)
                               : compareRows<quint32>(first, second, y);
}

int compareMasks(const QImage &first, const QImage &second)
{
    if (first.isNull() || second.isNull())
        return static_cast<int>(first.isNull()) - static_cast<int>(second.isNull());
    for (int y = 0; y < first.height(); ++y) {
        const int order = std::memcmp(first.constScanLine(y), second.constScanLine(y),
                                      static_cast<size_t>(first.width()));
        if (order != 0)
            return order;
    }
    return 0;
}

using Shots = std::vector<fusion::Shot>::iterator;

/// Shots that follow one another and are alike as far as has been looked.
struct Ties
{
    Shots begin;
    Shots end;
};

/// Sorts tied shots and appends what is still tied. compare: as memcmp.
template <typename Compare>
void sortTies(const Ties &ties, Compare compare, std::vector<Ties> &left)
{
    const auto isFirst = [&](const fusion::Shot &shot) { return compare(*ties.begin, shot) == 0; };
    if (std::all_of(ties.begin + 1, ties.end, isFirst)) {
        left.push_back(ties);
        return;
    }
    std::stable_sort(ties.begin, ties.end, [&](const fusion::Shot &a, const fusion::Shot &b) {
        return compare(a, b) < 0;
    });
    for (Shots begin = ties.begin; begin != ties.end;) {
        const auto differs = [&](const fusion::Shot &shot) { return compare(*begin, shot) != 0; };
        const Shots end = std::find_if(begin + 1, ties.end, differs);
        if (end - begin > 1)
            left.push_back({begin, end});
        begin = end;
    }
}

template <typename Compare>
std::vector<Ties> sorted(const std::vector<Ties> &groups, Compare compare)
{
    std::vector<Ties> left;
    for (const Ties &ties : groups)
        sortTies(ties, compare, left);
    return left;
}

} // namespace

/// Row by row, so that shots that are alike over many rows, black ones for example, are not read
/// again and again.
void fusion::sortByContents(std::vector<Shot> &shots)
{
    if (shots.size() < 2)
        return;
    std::vector<Ties> groups{{shots.begin(), shots.end()}};
    const int height = shots.front().picture.height();
    for (int y = 0; y < height && !groups.empty(); ++y)
        groups = sorted(groups, [y](const Shot &first, const Shot &second) {
            return comparePictureRows(first.picture, second.picture, y);
        });
    sorted(groups, [](const Shot &first, const Shot &second) {
        return compareMasks(first.mask, second.mask);
    });
}
