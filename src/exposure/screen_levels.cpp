#include "screen_levels.h"

#include "ScreenCurve.h"
#include "large_memory.h"
#include "parallel_rows.h"

#include <QColorSpace>
#include <QRgba64>

#include <vector>

namespace exposure {
namespace {

/// Of each level of 16 bits.
std::vector<uchar> levelsOfLight()
{
    constexpr int kLevels = 65536;
    std::vector<uchar> levels(kLevels);
    for (int i = 0; i < kLevels; ++i)
        levels[size_t(i)] =
            uchar(ScreenCurve::shared().levelOf(float(i) / (kLevels - 1)) * 255.0F + 0.5F);
    return levels;
}

bool isLinear(const QImage &picture)
{
    return picture.depth() == 64 &&
           picture.colorSpace().transferFunction() == QColorSpace::TransferFunction::Linear;
}

} // namespace

QImage inScreenLevels(const QImage &picture)
{
    if (!isLinear(picture))
        return picture;
    static const std::vector<uchar> levels = levelsOfLight();
    QImage shown = memory::largeImage(
        picture.size(), picture.hasAlphaChannel() ? QImage::Format_ARGB32 : QImage::Format_RGB32);
    uchar *const bytes = shown.bits();
    if (!bytes)
        return {};
    parallel::rows(picture.size(), [&](int begin, int end) {
        for (int y = begin; y < end; ++y) {
            const auto *from = reinterpret_cast<const QRgba64 *>(picture.constScanLine(y));
            auto *to = reinterpret_cast<QRgb *>(bytes + y * shown.bytesPerLine());
            for (int x = 0; x < picture.width(); ++x)
                to[x] = qRgba(levels[from[x].red()], levels[from[x].green()],
                              levels[from[x].blue()], from[x].alpha() >> 8);
        }
    });
    return shown;
}

} // namespace exposure
