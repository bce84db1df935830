#include "radiance_plain.h"

#include "LevelTables.h"

#include <QColor>

namespace radiance {
namespace {

/// What the shots tell of one channel of one pixel.
struct Channel
{
    float light = 0.0F;
    float weight = 0.0F;
    float atLeast = 0.0F;
    float atMost = 0.0F;
    bool hasAtLeast = false;
    bool hasAtMost = false;
};

int levelOf(const QImage &picture, int x, int y, int channel)
{
    const QRgba64 colour = picture.pixelColor(x, y).rgba64();
    const quint16 deep[] = {colour.red(), colour.green(), colour.blue()};
    return picture.depth() == 64 ? deep[channel] : deep[channel] / 257;
}

float shareOf(const Shot &shot, int x, int y, bool ignoresMasks)
{
    const QImage &mask = shot.picture.mask;
    if (shot.picture.picture.pixelColor(x, y).rgba64().alpha() != 0xFFFF)
        return 0.0F;
    return mask.isNull() || ignoresMasks ? 1.0F : float(mask.constScanLine(y / 2)[x / 2]) / 255.0F;
}

void add(Channel &channel, int level, float share, float exposure, const std::vector<float> &light)
{
    const auto highest = int(light.size()) - 1;
    const float weight = weightOfLevel(double(level) / highest);
    channel.light += share * (weight * light[size_t(level)]);
    channel.weight += (share * exposure) * weight;
    if (share == 0.0F)
        return;
    const float told = light[size_t(level)] / exposure;
    if (level > highest / 2 + 1) {
        if (!channel.hasAtLeast || told > channel.atLeast)
            channel.atLeast = told;
        channel.hasAtLeast = true;
    } else {
        if (!channel.hasAtMost || told < channel.atMost)
            channel.atMost = told;
        channel.hasAtMost = true;
    }
}

float valueOf(const Channel &channel)
{
    if (channel.weight > 0.0F)
        return channel.light / channel.weight;
    if (channel.hasAtLeast && channel.hasAtMost)
        return (channel.atLeast + channel.atMost) / 2.0F;
    return channel.hasAtLeast ? channel.atLeast : channel.hasAtMost ? channel.atMost : 0.0F;
}

unsigned char boundOf(const Channel &channel)
{
    if (channel.weight > 0.0F || channel.hasAtLeast == channel.hasAtMost)
        return kMeasured;
    return channel.hasAtLeast ? kIsBrighter : kIsDarker;
}

} // namespace

Result mergePlain(const std::vector<Shot> &shots, const std::vector<float> &exposures,
                  const Response &response)
{
    const QSize size = shots.front().picture.picture.size();
    Result result;
    result.picture = QImage(size, QImage::Format_RGBX32FPx4);
    result.bounds = QImage(size, QImage::Format_Grayscale8);
    result.bounds.fill(0);
    for (int y = 0; y < size.height(); ++y) {
        auto *pixels = reinterpret_cast<float *>(result.picture.scanLine(y));
        for (int x = 0; x < size.width(); ++x) {
            bool ignoresMasks = true;
            for (const Shot &shot : shots)
                ignoresMasks = ignoresMasks && shareOf(shot, x, y, false) == 0.0F;
            unsigned char bound = kMeasured;
            for (int c = 0; c < 3; ++c) {
                Channel channel;
                for (size_t i = 0; i < shots.size(); ++i)
                    add(channel, levelOf(shots[i].picture.picture, x, y, c),
                        shareOf(shots[i], x, y, ignoresMasks), exposures[i], response.channel(c));
                pixels[4 * x + c] = valueOf(channel);
                bound = std::max(bound, boundOf(channel));
            }
            pixels[4 * x + 3] = 1.0F;
            result.bounds.scanLine(y)[x] = bound;
        }
    }
    result.status = fusion::Status::Done;
    return result;
}

} // namespace radiance
