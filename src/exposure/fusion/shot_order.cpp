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
    for (int x = 0; x < first.width(); ++x) {
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
