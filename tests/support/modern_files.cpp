#include "modern_files.h"

#include <algorithm>
#include <memory>
#include <vector>

#include <avif/avif.h>
#include <jxl/encode.h>

namespace {

void describe(const modern_files::Recipe &recipe, avifImage &image)
{
    image.yuvRange = AVIF_RANGE_FULL;
    image.colorPrimaries = avifColorPrimaries(recipe.primaries);
    image.transferCharacteristics = avifTransferCharacteristics(recipe.transfer);
    image.matrixCoefficients = AVIF_MATRIX_COEFFICIENTS_IDENTITY;
    const auto bytesOf = [](const QByteArray &bytes) {
        return reinterpret_cast<const uint8_t *>(bytes.constData());
    };
    if (!recipe.profile.isEmpty())
        avifImageSetProfileICC(&image, bytesOf(recipe.profile), size_t(recipe.profile.size()));
    if (!recipe.exif.isEmpty())
        avifImageSetMetadataExif(&image, bytesOf(recipe.exif), size_t(recipe.exif.size()));
    if (!recipe.xmp.isEmpty())
        avifImageSetMetadataXMP(&image, bytesOf(recipe.xmp), size_t(recipe.xmp.size()));
    // The library turns by what the EXIF data say; here the file's own properties count.
    image.transformFlags = AVIF_TRANSFORM_NONE;
    if (recipe.quarterTurns > 0)
        image.transformFlags |= AVIF_TRANSFORM_IROT;
    image.irot.angle = uint8_t(recipe.quarterTurns);
    if (recipe.mirror >= 0)
        image.transformFlags |= AVIF_TRANSFORM_IMIR;
#if AVIF_VERSION_MAJOR >= 1
    image.imir.axis = uint8_t(std::max(recipe.mirror, 0));
#else
    image.imir.mode = uint8_t(std::max(recipe.mirror, 0));
#endif
}

QByteArray encoded(avifImage *image)
{
    const std::unique_ptr<avifEncoder, decltype(&avifEncoderDestroy)> encoder(avifEncoderCreate(),
                                                                              &avifEncoderDestroy);
    encoder->minQuantizer = encoder->maxQuantizer = AVIF_QUANTIZER_LOSSLESS;
    encoder->minQuantizerAlpha = encoder->maxQuantizerAlpha = AVIF_QUANTIZER_LOSSLESS;
    encoder->speed = 8;
    avifRWData output = AVIF_DATA_EMPTY;
    QByteArray file;
    if (avifEncoderWrite(encoder.get(), image, &output) == AVIF_RESULT_OK)
        file = QByteArray(reinterpret_cast<const char *>(output.data), qsizetype(output.size));
    avifRWDataFree(&output);
    return file;
}

bool begin(JxlEncoder *encoder, const modern_files::Recipe &recipe)
{
    JxlBasicInfo info;
    JxlEncoderInitBasicInfo(&info);
    info.xsize = uint32_t(recipe.picture.width());
    info.ysize = uint32_t(recipe.picture.height());
    info.bits_per_sample = uint32_t(recipe.bits);
    info.alpha_bits = recipe.picture.hasAlphaChannel() ? uint32_t(recipe.bits) : 0;
    info.num_extra_channels = recipe.picture.hasAlphaChannel() ? 1 : 0;
    info.orientation = JxlOrientation(recipe.orientation);
    info.uses_original_profile = JXL_TRUE;
    if (JxlEncoderSetBasicInfo(encoder, &info) != JXL_ENC_SUCCESS)
        return false;
    if (!recipe.profile.isEmpty())
        return JxlEncoderSetICCProfile(
                   encoder, reinterpret_cast<const uint8_t *>(recipe.profile.constData()),
                   size_t(recipe.profile.size())) == JXL_ENC_SUCCESS;
    JxlColorEncoding colours;
    JxlColorEncodingSetToSRGB(&colours, JXL_FALSE);
    colours.primaries = recipe.primaries == 12 ? JXL_PRIMARIES_P3 : JXL_PRIMARIES_SRGB;
    colours.transfer_function =
        recipe.transfer == 16 ? JXL_TRANSFER_FUNCTION_PQ : JXL_TRANSFER_FUNCTION_SRGB;
    return JxlEncoderSetColorEncoding(encoder, &colours) == JXL_ENC_SUCCESS;
}

void addBox(JxlEncoder *encoder, const modern_files::Recipe &recipe, const char *name,
            const QByteArray &box)
{
    JxlEncoderAddBox(encoder, name, reinterpret_cast<const uint8_t *>(box.constData()),
                     size_t(box.size()), recipe.isMetadataCompressed);
}

bool addPixels(JxlEncoder *encoder, const modern_files::Recipe &recipe)
{
    const bool hasAlpha = recipe.picture.hasAlphaChannel();
    const QImage words =
        recipe.picture.convertToFormat(hasAlpha ? QImage::Format_RGBA64 : QImage::Format_RGBX64);
    std::vector<quint16> samples;
    for (int y = 0; y < words.height(); ++y) {
        const auto *row = reinterpret_cast<const quint16 *>(words.constScanLine(y));
        for (int i = 0; i < 4 * words.width(); ++i) {
            if (hasAlpha || i % 4 != 3)
                samples.push_back(row[i]);
        }
    }
    JxlEncoderFrameSettings *settings = JxlEncoderFrameSettingsCreate(encoder, nullptr);
    JxlEncoderSetFrameLossless(settings, JXL_TRUE);
    JxlEncoderFrameSettingsSetOption(settings, JXL_ENC_FRAME_SETTING_EFFORT, 3);
    const JxlPixelFormat layout = {hasAlpha ? 4U : 3U, JXL_TYPE_UINT16, JXL_NATIVE_ENDIAN, 0};
    return JxlEncoderAddImageFrame(settings, &layout, samples.data(), samples.size() * 2) ==
           JXL_ENC_SUCCESS;
}

QByteArray outputOf(JxlEncoder *encoder)
{
    QByteArray file(1 << 16, '\0');
    size_t done = 0;
    while (true) {
        auto *next = reinterpret_cast<uint8_t *>(file.data()) + done;
        size_t room = size_t(file.size()) - done;
        const JxlEncoderStatus status = JxlEncoderProcessOutput(encoder, &next, &room);
        done = size_t(file.size()) - room;
        if (status != JXL_ENC_NEED_MORE_OUTPUT)
            return status == JXL_ENC_SUCCESS ? file.left(qsizetype(done)) : QByteArray();
        file.resize(file.size() * 2);
    }
}

} // namespace

QByteArray modern_files::avif(const Recipe &recipe)
{
    const std::unique_ptr<avifImage, decltype(&avifImageDestroy)> image(
        avifImageCreate(recipe.picture.width(), recipe.picture.height(), recipe.bits,
                        AVIF_PIXEL_FORMAT_YUV444),
        &avifImageDestroy);
    describe(recipe, *image);
    QImage words = recipe.picture.convertToFormat(QImage::Format_RGBA64);
    avifRGBImage rgb;
    avifRGBImageSetDefaults(&rgb, image.get());
    rgb.depth = 16;
    rgb.ignoreAlpha = !recipe.picture.hasAlphaChannel();
    rgb.pixels = words.bits();
    rgb.rowBytes = uint32_t(words.bytesPerLine());
    return avifImageRGBToYUV(image.get(), &rgb) == AVIF_RESULT_OK ? encoded(image.get())
                                                                  : QByteArray();
}

QByteArray modern_files::jxl(const Recipe &recipe)
{
    const std::unique_ptr<JxlEncoder, decltype(&JxlEncoderDestroy)> encoder(
        JxlEncoderCreate(nullptr), &JxlEncoderDestroy);
    if (!recipe.exif.isEmpty() || !recipe.xmp.isEmpty())
        JxlEncoderUseBoxes(encoder.get());
    if (!begin(encoder.get(), recipe))
        return {};
    if (!recipe.exif.isEmpty())
        addBox(encoder.get(), recipe, "Exif", QByteArray(4, '\0') + recipe.exif);
    if (!recipe.xmp.isEmpty())
        addBox(encoder.get(), recipe, "xml ", recipe.xmp);
    if (!addPixels(encoder.get(), recipe))
        return {};
    JxlEncoderCloseInput(encoder.get());
    return outputOf(encoder.get());
}
