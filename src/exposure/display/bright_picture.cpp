#include "bright_picture.h"

#include "Response.h"
#include "gain_rows.h"
#include "large_memory.h"
#include "parallel_rows.h"
#include "white_match.h"

#include <QColorSpace>
#include <QRgba64>

#include <algorithm>
#include <array>
#include <cmath>

namespace {

using radiance::Response;

struct Levels
{
    std::array<int, 3> channels;
};

Levels levelsAt(const QImage &picture, int x, int y)
{
    const uchar *row = picture.constScanLine(y);
    if (picture.depth() == 64) {
        const QRgba64 word = reinterpret_cast<const QRgba64 *>(row)[x];
        return {{word.red(), word.green(), word.blue()}};
    }
    const QRgb word = reinterpret_cast<const QRgb *>(row)[x];
    return {{qRed(word), qGreen(word), qBlue(word)}};
}

struct Terms
{
    Response response;
    float scale;
    float most;
};

void makeRow(const display::BrightSource &source, const Terms &terms, int y, float *pixels)
{
    constexpr float kOffset = display::kGainOffset;
    const auto *light = reinterpret_cast<const float *>(source.light.constScanLine(y));
    for (int x = 0; x < source.base.width(); ++x, pixels += 4, light += 4) {
        const Levels levels = levelsAt(source.base, x, y);
        for (size_t c = 0; c < 3; ++c) {
            const float base = terms.response.channel(int(c))[size_t(levels.channels[c])];
            const float most = terms.most * (base + kOffset) - kOffset;
            pixels[c] = std::min(std::max(terms.scale * light[c], base), most);
        }
        pixels[3] = 1.0F;
    }
}

} // namespace

QImage display::brightPicture(const BrightSource &source)
{
    QImage picture = memory::largeImage(source.base.size(), QImage::Format_RGBX32FPx4);
    const QImage flat = source.base.convertToFormat(QImage::Format_RGB32);
    if (picture.isNull() || flat.isNull())
        return {};
    const bool isDeep = source.base.depth() == 64;
    const Terms terms{Response::ofProfile(source.base.colorSpace().iccProfile(),
                                          isDeep ? Response::kShortLevels : Response::kByteLevels),
                      float(whiteMatch(flat, source.light, source.bounds)),
                      float(std::exp2(source.peak))};
    // Threads write beside each other: nothing may detach.
    uchar *pixels = picture.bits();
    const qsizetype stride = picture.bytesPerLine();
    parallel::rows(picture.size(), [&](int begin, int end) {
        for (int y = begin; y < end; ++y)
            makeRow(source, terms, y, reinterpret_cast<float *>(pixels + y * stride));
    });
    picture.setColorSpace(source.light.colorSpace());
    return picture;
}
