#include "picture_writer.h"

#include "avif_encoder.h"
#include "colour_profile.h"
#include "exif_metadata.h"
#include "exr_encoder.h"
#include "gain_map_jpeg.h"
#include "hdr_encoder.h"
#include "iptc_data.h"
#include "jpeg_encoder.h"
#include "jxl_encoder.h"
#include "png_encoder.h"
#include "tiff_encoder.h"
#include "xmp_metadata.h"

#include <QColorSpace>
#include <QPainter>
#include <QRgba64>

#include <algorithm>

namespace {

bool isDeep(const QImage &picture)
{
    return encoding::bitsPerSample(picture) == 16;
}

template <typename Word, typename AlphaOf>
bool isOpaqueIn(const QImage &words, Word opaque, const AlphaOf &alphaOf)
{
    for (int y = 0; y < words.height(); ++y) {
        const auto *row = reinterpret_cast<const Word *>(words.constScanLine(y));
        if (!std::all_of(row, row + words.width(),
                         [&](Word word) { return alphaOf(word) == alphaOf(opaque); }))
            return false;
    }
    return true;
}

/// words: 32 or 64 bits per pixel, with alpha.
bool isOpaque(const QImage &words)
{
    if (isDeep(words))
        return isOpaqueIn(words, QRgba64::fromRgba64(0, 0, 0, 0xFFFF),
                          [](QRgba64 word) { return word.alpha(); });
    return isOpaqueIn(words, qRgba(0, 0, 0, 255), [](QRgb word) { return qAlpha(word); });
}

QImage onWhite(const QImage &picture)
{
    QImage flat = picture.convertToFormat(QImage::Format_ARGB32_Premultiplied);
    if (flat.isNull())
        return flat;
    QPainter painter(&flat);
    painter.setCompositionMode(QPainter::CompositionMode_DestinationOver);
    painter.fillRect(flat.rect(), Qt::white);
    painter.end();
    return flat.convertToFormat(QImage::Format_RGB32);
}

/// Whether the picture has more than 8 bits in a sample.
bool hasDeepSamples(const QImage &picture)
{
    const QPixelFormat pixels = picture.pixelFormat();
    return std::max({pixels.redSize(), pixels.greenSize(), pixels.blueSize(), pixels.blackSize()}) >
           8;
}

bool isWrittenDeep(const QImage &picture, PictureFormat format, int bitsPerSample)
{
    const bool isAskedFor = bitsPerSample == 0 ? hasDeepSamples(picture) : bitsPerSample == 16;
    return isAskedFor && format != PictureFormat::Jpeg;
}

QImage::Format wordsWithoutAlpha(bool deep)
{
    return deep ? QImage::Format_RGBX64 : QImage::Format_RGB32;
}

/// Colours that are multiplied with alpha stay so, as dividing them loses bits.
QImage::Format wordsWithAlpha(const QImage &picture, PictureFormat format, bool deep)
{
    const bool isPremultiplied =
        picture.pixelFormat().premultiplied() == QPixelFormat::Premultiplied;
    if (isPremultiplied && format == PictureFormat::Tiff)
        return deep ? QImage::Format_RGBA64_Premultiplied : QImage::Format_ARGB32_Premultiplied;
    return deep ? QImage::Format_RGBA64 : QImage::Format_ARGB32;
}

bool isInFloats(const QImage &picture)
{
    return encoding::bitsPerSample(picture) == 32;
}

/// In linear floats, without alpha.
QImage lightOf(const QImage &picture)
{
    const QImage floats = picture.convertToFormat(QImage::Format_RGBX32FPx4);
    const QColorSpace space =
        picture.colorSpace().isValid() ? picture.colorSpace() : QColorSpace(QColorSpace::SRgb);
    if (floats.isNull() || space.transferFunction() == QColorSpace::TransferFunction::Linear)
        return floats;
    QImage tagged = floats;
    tagged.setColorSpace(space);
    return tagged.convertedToColorSpace(
        space.withTransferFunction(QColorSpace::TransferFunction::Linear));
}

/// The picture as the format's encoder takes it; null when memory is lacking.
QImage encodable(const QImage &picture, PictureFormat format, int bitsPerSample)
{
    const bool keepsFloats = format == PictureFormat::Tiff && isInFloats(picture) &&
                             (bitsPerSample == 0 || bitsPerSample == 32);
    if (picture::isForLight(format) || picture::isForBrightScreens(format))
        return lightOf(picture);
    if (keepsFloats)
        return picture.convertToFormat(QImage::Format_RGBX32FPx4);
    const bool deep = isWrittenDeep(picture, format, bitsPerSample);
    if (!picture.hasAlphaChannel())
        return picture.convertToFormat(wordsWithoutAlpha(deep));
    const QImage words = picture.convertToFormat(wordsWithAlpha(picture, format, deep));
    if (isOpaque(words))
        return words.convertToFormat(wordsWithoutAlpha(deep));
    return format == PictureFormat::Jpeg ? onWhite(words) : words;
}

struct KeptMetadata
{
    PictureMetadata kept;
    QStringList leftOut;
};

void keepProfile(const QImage &picture, KeptMetadata &metadata)
{
    const QByteArray profile = picture.colorSpace().iccProfile();
    if (profile.isEmpty() || colour_profile::fitsRgbPixels(profile))
        metadata.kept.colourProfile = profile;
    else
        metadata.leftOut += QStringLiteral("the colour profile is left out, as it is damaged or "
                                           "not one for RGB pixels");
}

void keepDatasets(const QByteArray &datasets, PictureFormat format, KeptMetadata &metadata)
{
    QByteArray kept = iptc::forNewPixels(datasets);
    if (kept.isEmpty() && !datasets.isEmpty())
        metadata.leftOut += QStringLiteral("the IPTC data are left out, as they are damaged");
    if (format == PictureFormat::Jpeg && kept.size() > iptc::kMostInJpeg) {
        kept.clear();
        metadata.leftOut += QStringLiteral("the IPTC data are left out, as they are too large for "
                                           "this kind of file");
    }
    metadata.kept.iptc = kept;
}

KeptMetadata metadataOf(const QImage &picture, PictureFormat format, const WriteOptions &options)
{
    const qsizetype largestBlock =
        format == PictureFormat::Jpeg ? exif::kLargestJpegBlock : exif::kAnySize;
    const exif::Adapted exif =
        exif::forUprightPicture(options.metadata.exif, picture, largestBlock);
    const xmp::Adapted xmp = xmp::forUprightPicture(
        options.metadata, picture, format, options.mark ? &*options.mark : nullptr,
        options.gainMap.picture.isNull() ? 0 : jpeg_file::kGainMapPropertyBytes);
    KeptMetadata metadata{{exif.tags, {}, xmp.packet, {}}, exif.leftOut + xmp.leftOut};
    metadata.kept.whiteLuminance = options.whiteLuminance;
    keepDatasets(options.metadata.iptc, format, metadata);
    keepProfile(picture, metadata);
    return metadata;
}

QString encode(const QImage &picture, PictureFormat format, const PictureMetadata &metadata,
               const WriteOptions &options, QIODevice &device)
{
    switch (format) {
    case PictureFormat::Png:
        return png_file::encode(picture, metadata, device, options.progress, options.effort);
    case PictureFormat::Jpeg:
        return options.gainMap.picture.isNull()
                   ? jpeg_file::encode(picture, metadata, options.quality, device, options.progress)
                   : jpeg_file::encodeWithGainMap(picture, metadata, options.quality,
                                                  options.gainMap, device, options.progress);
    case PictureFormat::Tiff:
        return tiff_file::encode(picture, metadata, device, options.progress,
                                 {options.tiffCompression, options.effort});
    case PictureFormat::OpenExr:
        return exr_file::encode(picture, metadata, options.bitsPerSample, device, options.progress);
    case PictureFormat::RadianceHdr:
        return hdr_file::encode(picture, metadata, device, options.progress);
    case PictureFormat::Avif:
        return avif_file::encode(picture, metadata, options.quality, device);
    case PictureFormat::JpegXl:
        return jxl_file::encode(picture, metadata, options.quality, device);
    }
    return {};
}

} // namespace

bool picture::hasTransparency(const QImage &picture)
{
    if (!picture.hasAlphaChannel())
        return false;
    return !isOpaque(picture.convertToFormat(hasDeepSamples(picture) ? QImage::Format_RGBA64
                                                                     : QImage::Format_ARGB32));
}

WriteResult picture::write(const QImage &picture, const QString &path, PictureFormat format,
                           const WriteOptions &options)
{
    const QImage words = encodable(picture, format, options.bitsPerSample);
    if (words.isNull())
        return {OutputFile::Error::WriteFailed, PictureEncoder::tr("not enough memory"), {}};
    OutputFile output(path, options.mayReplace, options.temporaryName);
    if (!output.open())
        return {output.error(), output.reason(), {}};
    const KeptMetadata metadata = metadataOf(picture, format, options);
    const QString problem = encode(words, format, metadata.kept, options, output.device());
    // What stopped the encoder is mostly that the device takes no more.
    if (!problem.isEmpty())
        return {OutputFile::Error::WriteFailed,
                output.hasDeviceFailed() ? output.device().errorString() : problem,
                {}};
    if (!output.publish())
        return {output.error(), output.reason(), {}};
    return {OutputFile::Error::None, {}, metadata.leftOut};
}

WriteResult picture::write(const QImage &picture, QIODevice &device, PictureFormat format,
                           const WriteOptions &options)
{
    const QImage words = encodable(picture, format, options.bitsPerSample);
    if (words.isNull())
        return {OutputFile::Error::WriteFailed, PictureEncoder::tr("not enough memory"), {}};
    const KeptMetadata metadata = metadataOf(picture, format, options);
    const QString problem = encode(words, format, metadata.kept, options, device);
    if (!problem.isEmpty())
        return {OutputFile::Error::WriteFailed, problem, {}};
    return {OutputFile::Error::None, {}, metadata.leftOut};
}
