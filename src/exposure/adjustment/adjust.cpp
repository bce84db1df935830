#include "adjust.h"

#include "level_curve.h"
#include "look_pixels.h"
#include "parallel_rows.h"
#include "tone_rows.h"

#include <algorithm>
#include <memory>

namespace exposure {
namespace {

constexpr int kStretch = 512; // pixels whose channels stay in the nearest cache
constexpr int kRowsAtATime = 32;

/// Rows of a picture on their way through a look.
class RowAdjuster
{
public:
    RowAdjuster(const Look &look, const LightMap *lightMap, const LightMap::Window &placeInMap,
                int top)
        : curve(levelCurve(look, top))
        , tones(look)
        , map(lightMap)
        , window(placeInMap)
        , isCurveAlone(!tones.hasTones && look.saturation == 1.0)
    {
    }

    template <typename Pixel>
    void adjustRow(Pixel *row, int width, int y) const
    {
        for (int x = 0; x < width; x += kStretch)
            adjustStretch(row + x, std::min(kStretch, width - x), x, y);
    }

private:
    template <typename Pixel>
    void adjustStretch(Pixel *pixels, int count, int x, int y) const
    {
        uint16_t channels[3][kStretch];
        for (int i = 0; i < count; ++i) {
            channels[0][i] = look::red(pixels[i]);
            channels[1][i] = look::green(pixels[i]);
            channels[2][i] = look::blue(pixels[i]);
        }
        if (!isCurveAlone)
            toneStretch(channels, count, x, y);
        for (int i = 0; i < count; ++i) {
            pixels[i] = look::withChannels(pixels[i], curve[channels[0][i]], curve[channels[1][i]],
                                           curve[channels[2][i]]);
        }
    }

    void toneStretch(uint16_t (*channels)[kStretch], int count, int x, int y) const
    {
        float slopes[kStretch] = {};
        float offsets[kStretch] = {};
        if (tones.hasTones)
            map->row(window, x, y, count, slopes, offsets);
        applyTones(tones, {channels[0], channels[1], channels[2], slopes, offsets, size_t(count)});
    }

    const std::vector<uint16_t> curve;
    const Tones tones;
    const LightMap *const map;
    const LightMap::Window window;
    const bool isCurveAlone;
};

template <typename Pixel>
void adjustAll(QImage &picture, const RowAdjuster &adjuster)
{
    picture.detach();
    uchar *const bits = picture.bits();
    const qsizetype rowBytes = picture.bytesPerLine();
    const int width = picture.width();
    const int height = picture.height();
    // Other threads may hold a core: who is free takes the next rows.
    parallel::each((height + kRowsAtATime - 1) / kRowsAtATime, [&](int part) {
        const int end = std::min(height, (part + 1) * kRowsAtATime);
        for (int y = part * kRowsAtATime; y < end; ++y)
            adjuster.adjustRow(reinterpret_cast<Pixel *>(bits + y * rowBytes), width, y);
    });
}

bool isAdjustable(const QImage &picture)
{
    return !picture.isNull() && adjustableFormat(picture) == picture.format();
}

} // namespace

void adjust(QImage &picture, const Look &look)
{
    if (look.isNeutral() || !isAdjustable(picture))
        return;
    const auto map = look.hasTones() ? std::make_unique<LightMap>(picture) : nullptr;
    adjust(picture, look, map.get(), LightMap::Window());
}

void adjust(QImage &part, const Look &look, const LightMap *map, const LightMap::Window &window)
{
    const Look bounded = look.bounded();
    if (bounded.isNeutral() || !isAdjustable(part))
        return;
    if (part.depth() == 32)
        adjustAll<QRgb>(part, RowAdjuster(bounded, map, window, 0xFF));
    else
        adjustAll<QRgba64>(part, RowAdjuster(bounded, map, window, 0xFFFF));
}

QImage::Format adjustableFormat(const QImage &picture)
{
    const QPixelFormat format = picture.pixelFormat();
    const bool isDeep = picture.depth() == 64 || picture.format() == QImage::Format_Grayscale16 ||
                        format.redSize() > 8;
    if (picture.hasAlphaChannel())
        return isDeep ? QImage::Format_RGBA64 : QImage::Format_ARGB32;
    return isDeep ? QImage::Format_RGBX64 : QImage::Format_RGB32;
}

} // namespace exposure
