#include "shot_order.h"

#include <algorithm>
#include <cstring>

namespace {

/// Less than 0, 0 or greater, as memcmp. Where the format has no alpha, its bits are not looked at.
template <typename Word>
int compareRows(const uchar *first, const uchar *second, int width, Word looked)
{
    const auto *a = reinterpret_cast<const Word *>(first);
    const auto *b = reinterpret_cast<const Word *>(second);
    for (int x = 0; x < width; ++x)
        if ((a[x] & looked) != (b[x] & looked))
            return (a[x] & looked) < (b[x] & looked) ? -1 : 1;
    return 0;
}

int comparePictureRows(const QImage &first, const QImage &second, int y)
{
    const uchar *a = first.constScanLine(y);
    const uchar *b = second.constScanLine(y);
    const bool hasAlpha = first.hasAlphaChannel();
    if (first.depth() == 64)
        return compareRows<quint64>(a, b, first.width(), hasAlpha ? ~0ULL : 0xFFFFFFFFFFFFULL);
    return compareRows<quint32>(a, b, first.width(), hasAlpha ? ~0U : 0xFFFFFFU);
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

bool comesBefore(const fusion::Shot &first, const fusion::Shot &second)
{
    for (int y = 0; y < first.picture.height(); ++y) {
        const int order = comparePictureRows(first.picture, second.picture, y);
        if (order != 0)
            return order < 0;
    }
    return compareMasks(first.mask, second.mask) < 0;
}

} // namespace

void fusion::sortByContents(std::vector<Shot> &shots)
{
    std::stable_sort(shots.begin(), shots.end(), comesBefore);
}
