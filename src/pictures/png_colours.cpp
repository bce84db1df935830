#include "png_colours.h"

#include "cicp_profile.h"
#include "colour_profile.h"
#include "little_cms.h"

#include <QtEndian>

#include <array>

#include <libdeflate.h>

namespace {

/// The chunks that count, without their checksums; empty where there is none.
struct Chunks
{
    bool isGrey = false;
    QByteArray codePoints;
    QByteArray profile;
    QByteArray primaries;
    QByteArray gamma;
    bool isStandard = false;
};

/// The colour type behind size and depth: bit 1 is for colour.
bool isGreyHeader(const QByteArray &header)
{
    return header.size() > 9 && !(header[9] & 2);
}

void take(Chunks &chunks, const QByteArray &name, const QByteArray &bytes)
{
    if (name == "IHDR")
        chunks.isGrey = isGreyHeader(bytes);
    else if (name == "cICP")
        chunks.codePoints = bytes;
    else if (name == "iCCP")
        chunks.profile = bytes;
    else if (name == "cHRM")
        chunks.primaries = bytes;
    else if (name == "gAMA")
        chunks.gamma = bytes;
    else if (name == "sRGB")
        chunks.isStandard = true;
}

/// All that stand before the pixels.
Chunks chunksIn(QIODevice &file)
{
    constexpr qint64 kSignatureBytes = 8;
    constexpr qint64 kChecksumBytes = 4;
    constexpr qint64 kLargestChunk = 16 << 20;
    Chunks chunks;
    file.seek(kSignatureBytes);
    while (true) {
        const QByteArray head = file.read(8);
        const qint64 length = head.size() == 8 ? qFromBigEndian<quint32>(head.constData()) : 0;
        const QByteArray name = head.mid(4);
        if (head.size() < 8 || name == "IDAT" || name == "PLTE" || name == "IEND" ||
            length > kLargestChunk)
            return chunks;
        const QByteArray bytes = file.read(length);
        if (bytes.size() < length || file.read(kChecksumBytes).size() < kChecksumBytes)
            return chunks;
        take(chunks, name, bytes);
    }
}

/// Of a zlib stream; empty when it is damaged or larger than profiles are.
QByteArray inflated(const QByteArray &stream)
{
    constexpr qsizetype kLargest = 16 << 20;
    const std::unique_ptr<libdeflate_decompressor, decltype(&libdeflate_free_decompressor)>
        decompressor(libdeflate_alloc_decompressor(), &libdeflate_free_decompressor);
    if (!decompressor)
        return {};
    QByteArray bytes;
    size_t length = 0;
    libdeflate_result result = LIBDEFLATE_INSUFFICIENT_SPACE;
    for (qsizetype room = 4096; result == LIBDEFLATE_INSUFFICIENT_SPACE && room <= kLargest;
         room *= 4) {
        bytes.resize(room);
        result =
            libdeflate_zlib_decompress(decompressor.get(), stream.constData(),
                                       size_t(stream.size()), bytes.data(), size_t(room), &length);
    }
    return result == LIBDEFLATE_SUCCESS ? bytes.left(qsizetype(length)) : QByteArray();
}

/// A name of 1 to 79 bytes, a zero, the number of the method, the stream.
QByteArray profileIn(const QByteArray &chunk)
{
    constexpr qsizetype kLongestName = 79;
    const qsizetype end = chunk.indexOf('\0');
    const bool isSensible = end > 0 && end <= kLongestName && end + 2 < chunk.size();
    return isSensible && chunk[end + 1] == 0 ? inflated(chunk.mid(end + 2)) : QByteArray();
}

double numberAt(const QByteArray &chunk, qsizetype index)
{
    return qFromBigEndian<quint32>(chunk.constData() + 4 * index) / 100000.0;
}

little_cms::Curve curveOf(const Chunks &chunks, const little_cms::Context &context)
{
    const double gamma = chunks.gamma.size() == 4 ? numberAt(chunks.gamma, 0) : 0;
    const cmsFloat64Number srgb[] = {2.4, 1 / 1.055, 0.055 / 1.055, 1 / 12.92, 0.04045};
    const bool isSensible = gamma > 0.01 && gamma < 100;
    return {isSensible ? cmsBuildGamma(context.get(), 1 / gamma)
                       : cmsBuildParametricToneCurve(context.get(), 4, srgb),
            &cmsFreeToneCurve};
}

/// White and the three primaries, x and y of each; sRGB's where the file says nothing.
std::array<double, 8> coordinatesOf(const Chunks &chunks)
{
    std::array<double, 8> numbers = {0.3127, 0.3290, 0.64, 0.33, 0.30, 0.60, 0.15, 0.06};
    for (size_t i = 0; chunks.primaries.size() == 32 && i < numbers.size(); ++i)
        numbers[i] = numberAt(chunks.primaries, qsizetype(i));
    return numbers;
}

QByteArray madeProfile(const Chunks &chunks)
{
    const little_cms::Context context = little_cms::newContext();
    const little_cms::Curve curve = curveOf(chunks, context);
    if (!context || !curve)
        return {};
    if (chunks.isGrey)
        return little_cms::saved(
            {cmsCreateGrayProfileTHR(context.get(), cmsD50_xyY(), curve.get()), &cmsCloseProfile});
    const std::array<double, 8> at = coordinatesOf(chunks);
    const cmsCIExyY white = {at[0], at[1], 1};
    const cmsCIExyYTRIPLE primaries = {{at[2], at[3], 1}, {at[4], at[5], 1}, {at[6], at[7], 1}};
    cmsToneCurve *const curves[] = {curve.get(), curve.get(), curve.get()};
    return little_cms::saved(
        {cmsCreateRGBProfileTHR(context.get(), &white, &primaries, curves), &cmsCloseProfile});
}

/// Primaries, curve, matrix (0: none), 1 for numbers that use the full range.
bool areKnown(const QByteArray &codePoints)
{
    return codePoints.size() == 4 && codePoints[2] == 0 && codePoints[3] == 1 &&
           cicp_profile::isKnown(uchar(codePoints[0]), uchar(codePoints[1]));
}

png_colours::Colours coloursOf(const Chunks &chunks)
{
    const auto isSound = [&chunks](const QByteArray &profile) {
        return chunks.isGrey ? colour_profile::fitsGreyPixels(profile)
                             : colour_profile::fitsRgbPixels(profile);
    };
    png_colours::Colours colours;
    const QByteArray &points = chunks.codePoints;
    if (!chunks.isGrey && areKnown(points)) {
        colours.profile = cicp_profile::of(uchar(points[0]), uchar(points[1]));
        return colours;
    }
    colours.isHighRange = points.size() == 4 && cicp_profile::isHighRange(uchar(points[1]));
    if (!chunks.profile.isEmpty()) {
        colours.profile = profileIn(chunks.profile);
        colours.isDamaged = !isSound(colours.profile);
        if (!colours.isDamaged)
            return colours;
    }
    colours.profile.clear();
    if (chunks.isStandard) {
        if (!chunks.isGrey)
            colours.profile = colour_profile::of(colour_profile::Space::Srgb);
    } else if (!chunks.gamma.isEmpty() || !chunks.primaries.isEmpty()) {
        colours.profile = madeProfile(chunks);
        if (!isSound(colours.profile))
            colours.profile.clear();
    }
    return colours;
}

} // namespace

png_colours::Colours png_colours::read(QIODevice &file)
{
    const Chunks chunks = chunksIn(file);
    file.seek(0);
    return coloursOf(chunks);
}
