#include "hdr_encoder.h"

#include "Chromaticities.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace {

// Rows of other widths are not run-length coded.
constexpr int kShortestCoded = 8;
constexpr int kLongestCoded = 0x7FFF;

QByteArray number(double value)
{
    return QByteArray::number(value, 'g', 6);
}

QByteArray headerOf(const QImage &picture, const PictureMetadata &metadata)
{
    // Watts of light are those of equal energy white.
    constexpr double kLumensPerWatt = 179.0;
    QByteArray header = "#?RADIANCE\nFORMAT=32-bit_rle_rgbe\n";
    if (metadata.whiteLuminance > 0.0)
        header += "EXPOSURE=" + number(kLumensPerWatt / metadata.whiteLuminance) + '\n';
    const Chromaticities colours = Chromaticities::of(picture.colorSpace());
    header += "PRIMARIES=";
    for (const QPointF point : {colours.red, colours.green, colours.blue, colours.white})
        header += ' ' + number(point.x()) + ' ' + number(point.y());
    return header + "\n\n-Y " + QByteArray::number(picture.height()) + " +X " +
           QByteArray::number(picture.width()) + '\n';
}

/// How many bytes from `begin` on are the same.
size_t runAt(const std::vector<unsigned char> &bytes, size_t begin)
{
    constexpr size_t kLongestRun = 127;
    size_t end = begin + 1;
    while (end < bytes.size() && end - begin < kLongestRun && bytes[end] == bytes[begin])
        ++end;
    return end - begin;
}

void appendCoded(const std::vector<unsigned char> &bytes, QByteArray &coded)
{
    constexpr size_t kShortestRun = 4;
    constexpr size_t kLongestRest = 128;
    for (size_t i = 0; i < bytes.size();) {
        const size_t run = runAt(bytes, i);
        if (run >= kShortestRun) {
            coded += char(128 + run);
            coded += char(bytes[i]);
            i += run;
            continue;
        }
        size_t end = i + run;
        while (end < bytes.size() && runAt(bytes, end) < kShortestRun)
            ++end;
        end = std::min(end, i + kLongestRest);
        coded += char(end - i);
        coded.append(reinterpret_cast<const char *>(&bytes[i]), qsizetype(end - i));
        i = end;
    }
}

QByteArray codedRow(const std::vector<hdr_file::Bytes> &pixels)
{
    const auto width = int(pixels.size());
    QByteArray coded;
    if (width < kShortestCoded || width > kLongestCoded)
        return {reinterpret_cast<const char *>(pixels.data()), qsizetype(4 * pixels.size())};
    coded += '\2';
    coded += '\2';
    coded += char(width >> 8);
    coded += char(width & 0xFF);
    std::vector<unsigned char> channel(pixels.size());
    for (size_t c = 0; c < 4; ++c) {
        std::transform(pixels.begin(), pixels.end(), channel.begin(),
                       [c](const hdr_file::Bytes &pixel) { return pixel.channels[c]; });
        appendCoded(channel, coded);
    }
    return coded;
}

} // namespace

hdr_file::Bytes hdr_file::bytesOf(const float *light)
{
    const float most = std::max({light[0], light[1], light[2]});
    constexpr float kLeast = 1e-32F;
    if (!(most > kLeast))
        return {};
    int exponent = 0;
    const float scale = std::frexp(std::min(most, 1e37F), &exponent) * 256.0F / most;
    Bytes bytes{};
    for (int c = 0; c < 3; ++c)
        bytes.channels[c] = static_cast<unsigned char>(std::clamp(light[c] * scale, 0.0F, 255.0F));
    bytes.channels[3] = static_cast<unsigned char>(exponent + 128);
    return bytes;
}

QString hdr_file::encode(const QImage &picture, const PictureMetadata &metadata, QIODevice &device,
                         const EncodeProgress &progress)
{
    const QString failure = PictureEncoder::tr("the Radiance file could not be written");
    const QByteArray header = headerOf(picture, metadata);
    if (!encoding::writeAll(device, header.constData(), header.size()))
        return failure;
    std::vector<Bytes> pixels(static_cast<size_t>(picture.width()));
    for (int y = 0; y < picture.height(); ++y) {
        const auto *row = reinterpret_cast<const float *>(picture.constScanLine(y));
        for (size_t x = 0; x < pixels.size(); ++x)
            pixels[x] = bytesOf(row + 4 * x);
        const QByteArray coded = codedRow(pixels);
        if (!encoding::writeAll(device, coded.constData(), coded.size()))
            return failure;
        if (progress)
            progress(double(y + 1) / picture.height());
    }
    return {};
}
