#include "ForeignColours.h"

#include "colour_profile.h"

#include <QRgba64>

#include <cstring>
#include <new>

namespace {

using Pixels = ColourTransform::Pixels;

Pixels targetOf(QImage::Format format)
{
    return format == QImage::Format_RGB32 ? Pixels::Words8 : Pixels::Words16;
}

/// Of how much light gets through, 0..255.
QRgb word(int cyan, int magenta, int yellow, int black)
{
    return qRgb(black * cyan / 255, black * magenta / 255, black * yellow / 255);
}

QRgba64 deepWord(const quint16 *inks)
{
    constexpr quint32 kMost = 0xFFFF;
    const auto level = [&](quint32 ink) {
        return quint16(((kMost - ink) * (kMost - inks[3]) + kMost / 2) / kMost);
    };
    return QRgba64::fromRgba64(level(inks[0]), level(inks[1]), level(inks[2]), kMost);
}

/// A number of a pixel's channel as L*, or as a* or b*.
float labNumber(quint8 number, int channel, ForeignColours::Kind kind)
{
    if (channel == 0)
        return number * (100.0F / 255);
    return kind == ForeignColours::Kind::CieLab ? float(qint8(number)) : float(number) - 128;
}

float labNumber(quint16 number, int channel, ForeignColours::Kind kind)
{
    const bool isCie = kind == ForeignColours::Kind::CieLab;
    if (channel == 0)
        return number * 100.0F / (isCie ? 0xFFFF : 0xFF00);
    return isCie ? qint16(number) / 256.0F : number / 256.0F - 128;
}

} // namespace

ForeignColours::ForeignColours(const Source &foreign, QImage::Format words)
    : source(foreign)
    , format(words)
    , way({foreign.profile, pixels()},
          {colour_profile::of(colour_profile::Space::Srgb), targetOf(words)})
{
    if (isLab() && way.isNull())
        throw std::bad_alloc();
}

Pixels ForeignColours::pixels() const
{
    if (isLab())
        return Pixels::LabFloat;
    if (source.kind == Kind::InvertedInks)
        return Pixels::InvertedInks8;
    return source.bits == 8 ? Pixels::Inks8 : Pixels::Inks16;
}

void ForeignColours::convertRow(const uchar *numbers, uchar *words, int count)
{
    const void *const row = packed(numbers, count);
    if (way.isNull())
        multiply(row, words, count);
    else
        way.convertRow(row, words, count);
}

/// The numbers as the transform takes them.
const void *ForeignColours::packed(const uchar *numbers, int count)
{
    constexpr int kInks = 4;
    if (isLab()) {
        labRow.resize(size_t(count) * 3);
        source.bits == 8 ? fillLab<quint8>(numbers, count) : fillLab<quint16>(numbers, count);
        return labRow.data();
    }
    if (source.channels == kInks)
        return numbers;
    const size_t pixelBytes = size_t(kInks * source.bits / 8);
    inkRow.resize(size_t(count) * pixelBytes);
    for (int x = 0; x < count; ++x)
        std::memcpy(inkRow.data() + size_t(x) * pixelBytes,
                    numbers + qsizetype(x) * source.channels * source.bits / 8, pixelBytes);
    return inkRow.data();
}

template <typename Number>
void ForeignColours::fillLab(const uchar *numbers, int count)
{
    const auto *from = reinterpret_cast<const Number *>(numbers);
    float *to = labRow.data();
    for (int x = 0; x < count; ++x, from += source.channels) {
        for (int channel = 0; channel < 3; ++channel)
            *to++ = labNumber(from[channel], channel, source.kind);
    }
}

void ForeignColours::multiply(const void *inks, uchar *words, int count) const
{
    const auto *bytes = static_cast<const uchar *>(inks);
    const uchar flip = source.kind == Kind::InvertedInks ? 0 : 0xFF;
    for (int x = 0; x < count; ++x) {
        const uchar *ink = bytes + 4 * qsizetype(x);
        if (source.bits == 16) {
            const auto *wide = static_cast<const quint16 *>(inks) + 4 * qsizetype(x);
            const QRgba64 pixel = deepWord(wide);
            if (format == QImage::Format_RGB32)
                reinterpret_cast<QRgb *>(words)[x] = pixel.toArgb32();
            else
                reinterpret_cast<QRgba64 *>(words)[x] = pixel;
            continue;
        }
        reinterpret_cast<QRgb *>(words)[x] =
            word(ink[0] ^ flip, ink[1] ^ flip, ink[2] ^ flip, ink[3] ^ flip);
    }
}
