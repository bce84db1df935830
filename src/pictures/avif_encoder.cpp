#include "avif_encoder.h"

#ifndef VESK_WITH_AVIF

bool avif_file::isAvailable()
{
    return false;
}

QString avif_file::encode(const QImage &, const PictureMetadata &, int, QIODevice &)
{
    return PictureEncoder::tr("this program was built without AVIF");
}

#else

#include "parallel_rows.h"
#include "perceptual_quantizer.h"

#include <memory>

#include <avif/avif.h>

namespace {

using Image = std::unique_ptr<avifImage, decltype(&avifImageDestroy)>;
using Encoder = std::unique_ptr<avifEncoder, decltype(&avifEncoderDestroy)>;

/// What the library gives out.
struct Output
{
    Output() = default;
    ~Output() { avifRWDataFree(&bytes); }
    Output(const Output &) = delete;
    Output &operator=(const Output &) = delete;

    avifRWData bytes = AVIF_DATA_EMPTY;
};

const uint8_t *bytesOf(const QByteArray &bytes)
{
    return reinterpret_cast<const uint8_t *>(bytes.constData());
}

void describe(const PictureMetadata &metadata, avifImage &image)
{
    image.yuvRange = AVIF_RANGE_FULL;
    image.colorPrimaries = avifColorPrimaries(perceptual_quantizer::kPrimaries);
    image.transferCharacteristics = avifTransferCharacteristics(perceptual_quantizer::kTransfer);
    image.matrixCoefficients = avifMatrixCoefficients(perceptual_quantizer::kMatrix);
    const QByteArray exif = metadata.exif.block();
    if (!exif.isEmpty())
        avifImageSetMetadataExif(&image, bytesOf(exif), size_t(exif.size()));
    if (!metadata.xmp.isEmpty())
        avifImageSetMetadataXMP(&image, bytesOf(metadata.xmp), size_t(metadata.xmp.size()));
    // The pixels are upright, whatever the library reads out of the camera's data.
    image.transformFlags = AVIF_TRANSFORM_NONE;
}

/// Null when memory is lacking.
Image imageOf(const QImage &light)
{
    constexpr int kBits = 10;
    Image image(avifImageCreate(uint32_t(light.width()), uint32_t(light.height()), kBits,
                                AVIF_PIXEL_FORMAT_YUV444),
                &avifImageDestroy);
    QImage levels = perceptual_quantizer::levelsOf(light);
    if (!image || levels.isNull())
        return {nullptr, &avifImageDestroy};
    describe({}, *image);
    avifRGBImage words;
    avifRGBImageSetDefaults(&words, image.get());
    words.depth = 16;
    words.format = AVIF_RGB_FORMAT_RGBA;
    words.ignoreAlpha = AVIF_TRUE;
    words.pixels = levels.bits();
    words.rowBytes = uint32_t(levels.bytesPerLine());
    if (avifImageRGBToYUV(image.get(), &words) != AVIF_RESULT_OK)
        image.reset();
    return image;
}

Encoder newEncoder(int quality)
{
    constexpr int kSpeed = 8; // slower ones take minutes for the pictures of cameras
    Encoder encoder(avifEncoderCreate(), &avifEncoderDestroy);
    if (!encoder)
        return encoder;
    encoder->maxThreads = parallel::threadCount();
    encoder->speed = kSpeed;
    encoder->autoTiling = AVIF_TRUE;
#if AVIF_VERSION_MAJOR >= 1
    encoder->quality = quality;
#else
    encoder->minQuantizer = encoder->maxQuantizer =
        (100 - quality) * AVIF_QUANTIZER_WORST_QUALITY / 100;
#endif
    return encoder;
}

} // namespace

bool avif_file::isAvailable()
{
    return avifCodecName(AVIF_CODEC_CHOICE_AUTO, AVIF_CODEC_FLAG_CAN_ENCODE) != nullptr;
}

QString avif_file::encode(const QImage &picture, const PictureMetadata &metadata, int quality,
                          QIODevice &device)
{
    const Image image = imageOf(picture);
    const Encoder encoder = newEncoder(quality);
    if (!image || !encoder)
        return PictureEncoder::tr("not enough memory");
    describe(metadata, *image);
    Output output;
    const bool isWritten =
        avifEncoderWrite(encoder.get(), image.get(), &output.bytes) == AVIF_RESULT_OK &&
        encoding::writeAll(device, output.bytes.data, qint64(output.bytes.size));
    return isWritten ? QString() : PictureEncoder::tr("the AVIF file could not be written");
}

#endif
