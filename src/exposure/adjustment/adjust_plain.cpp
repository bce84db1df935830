#include "adjust.h"
#include "level_curve.h"
#include "look_pixels.h"
#include "tone_rows.h"

namespace exposure {
namespace {

template <typename Pixel>
void adjustPixels(QImage &picture, const Look &look, int top)
{
    const LightMap map(picture);
    const std::vector<uint16_t> curve = levelCurve(look, top);
    const Tones tones(look);
    for (int y = 0; y < picture.height(); ++y) {
        auto *row = reinterpret_cast<Pixel *>(picture.scanLine(y));
        for (int x = 0; x < picture.width(); ++x) {
            const LightMap::Line line = map.at(x, y);
            uint16_t red = look::red(row[x]);
            uint16_t green = look::green(row[x]);
            uint16_t blue = look::blue(row[x]);
            plain::applyTones(tones, {&red, &green, &blue, &line.slope, &line.offset, 1});
            row[x] = look::withChannels(row[x], curve[red], curve[green], curve[blue]);
        }
    }
}

} // namespace

void adjustPlain(QImage &picture, const Look &look)
{
    const Look bounded = look.bounded();
    if (bounded.isNeutral() || picture.isNull() || adjustableFormat(picture) != picture.format())
        return;
    if (picture.depth() == 32)
        adjustPixels<QRgb>(picture, bounded, 0xFF);
    else
        adjustPixels<QRgba64>(picture, bounded, 0xFFFF);
}

} // namespace exposure
