#include "encoding.h"

#include <QRgba64>

#include <cmath>
#include <cstring>

namespace {

void unpackBytes(const QImage &picture, int y, unsigned char *bytes)
{
    const auto *words = reinterpret_cast<const QRgb *>(picture.constScanLine(y));
    const bool hasAlpha = picture.hasAlphaChannel();
    for (const QRgb *word = words; word != words + picture.width(); ++word) {
        *bytes++ = static_cast<unsigned char>(qRed(*word));
        *bytes++ = static_cast<unsigned char>(qGreen(*word));
        *bytes++ = static_cast<unsigned char>(qBlue(*word));
        if (hasAlpha)
            *bytes++ = static_cast<unsigned char>(qAlpha(*word));
    }
}

void unpackShorts(const QImage &picture, int y, unsigned char *bytes)
{
    const auto *words = reinterpret_cast<const QRgba64 *>(picture.constScanLine(y));
    const size_t pixelBytes = 2 * static_cast<size_t>(encoding::samplesPerPixel(picture));
    for (const QRgba64 *word = words; word != words + picture.width(); ++word) {
        const quint16 samples[] = {word->red(), word->green(), word->blue(), word->alpha()};
        std::memcpy(bytes, samples, pixelBytes);
        bytes += pixelBytes;
    }
}

void unpackFloats(const QImage &picture, int y, unsigned char *bytes)
{
    constexpr size_t kPixelBytes = 3 * sizeof(float);
    const auto *pixel = reinterpret_cast<const float *>(picture.constScanLine(y));
    for (int x = 0; x < picture.width(); ++x, pixel += 4, bytes += kPixelBytes)
        std::memcpy(bytes, pixel, kPixelBytes);
}

double dotsPerInch(int dotsPerMetre)
{
    constexpr double kMetresPerInch = 0.0254;
    const double whole = std::round(dotsPerMetre * kMetresPerInch);
    const bool isWhole = std::abs(whole / kMetresPerInch - dotsPerMetre) < 1.0;
    return isWhole ? whole : dotsPerMetre * kMetresPerInch;
}

} // namespace

bool encoding::writeAll(QIODevice &device, const void *bytes, qint64 length)
{
    const auto *next = static_cast<const char *>(bytes);
    while (length > 0) {
        const qint64 written = device.write(next, length);
        if (written <= 0)
            return false;
        next += written;
        length -= written;
    }
    return true;
}

int encoding::samplesPerPixel(const QImage &picture)
{
    return picture.hasAlphaChannel() ? 4 : 3;
}

int encoding::bitsPerSample(const QImage &picture)
{
    return picture.depth() == 128 ? 32 : picture.depth() == 64 ? 16 : 8;
}

size_t encoding::bytesPerRow(const QImage &picture)
{
    return static_cast<size_t>(picture.width()) *
           static_cast<size_t>(samplesPerPixel(picture) * bitsPerSample(picture) / 8);
}

void encoding::unpackRow(const QImage &picture, int y, unsigned char *bytes)
{
    switch (bitsPerSample(picture)) {
    case 32:
        return unpackFloats(picture, y, bytes);
    case 16:
        return unpackShorts(picture, y, bytes);
    default:
        return unpackBytes(picture, y, bytes);
    }
}

encoding::Resolution encoding::resolutionOf(const QImage &picture)
{
    return {dotsPerInch(picture.dotsPerMeterX()), dotsPerInch(picture.dotsPerMeterY())};
}
