#include "jxl_encoder.h"

#ifndef VESK_WITH_JXL

bool jxl_file::isAvailable()
{
    return false;
}

QString jxl_file::encode(const QImage &, const PictureMetadata &, int, QIODevice &)
{
    return PictureEncoder::tr("this program was built without JPEG XL");
}

#else

#include "jxl_threads.h"
#include "perceptual_quantizer.h"

#include <memory>
#include <vector>

#include <jxl/encode.h>

namespace {

using Encoder = std::unique_ptr<JxlEncoder, decltype(&JxlEncoderDestroy)>;

bool describe(JxlEncoder *encoder, QSize size)
{
    constexpr float kBrightestLuminance = 10000.0F; // of the quantizer
    JxlBasicInfo info;
    JxlEncoderInitBasicInfo(&info);
    info.xsize = uint32_t(size.width());
    info.ysize = uint32_t(size.height());
    info.bits_per_sample = 10;
    info.intensity_target = kBrightestLuminance;
    JxlColorEncoding colours = {};
    colours.color_space = JXL_COLOR_SPACE_RGB;
    colours.white_point = JXL_WHITE_POINT_D65;
    colours.primaries = JXL_PRIMARIES_2100;
    colours.transfer_function = JXL_TRANSFER_FUNCTION_PQ;
    colours.rendering_intent = JXL_RENDERING_INTENT_RELATIVE;
    return JxlEncoderSetBasicInfo(encoder, &info) == JXL_ENC_SUCCESS &&
           JxlEncoderSetColorEncoding(encoder, &colours) == JXL_ENC_SUCCESS;
}

/// bytes: the library copies them.
bool addBox(JxlEncoder *encoder, const char *name, const QByteArray &bytes)
{
    return JxlEncoderAddBox(encoder, name, reinterpret_cast<const uint8_t *>(bytes.constData()),
                            size_t(bytes.size()), JXL_FALSE) == JXL_ENC_SUCCESS;
}

bool addMetadata(JxlEncoder *encoder, const PictureMetadata &metadata)
{
    const QByteArray exif = metadata.exif.block();
    // The block begins behind an offset of 4 bytes: ISO/IEC 18181-2, 9.4.
    const bool isExifAdded = exif.isEmpty() || addBox(encoder, "Exif", QByteArray(4, '\0') + exif);
    const bool isXmpAdded = metadata.xmp.isEmpty() || addBox(encoder, "xml ", metadata.xmp);
    JxlEncoderCloseBoxes(encoder);
    return isExifAdded && isXmpAdded;
}

/// Three numbers a pixel, as the format has no place for a fourth without meaning.
std::vector<quint16> samplesOf(const QImage &levels)
{
    std::vector<quint16> samples;
    samples.reserve(3 * size_t(levels.width()) * size_t(levels.height()));
    for (int y = 0; y < levels.height(); ++y) {
        const auto *row = reinterpret_cast<const quint16 *>(levels.constScanLine(y));
        for (int x = 0; x < levels.width(); ++x, row += 4)
            samples.insert(samples.end(), row, row + 3);
    }
    return samples;
}

/// 1, where loss begins to be seen, for 90; from 30 on as the library's own program has it.
float distanceOf(int quality)
{
    return quality >= 30 ? 0.1F + 0.09F * float(100 - quality) : 6.4F + 0.3F * float(30 - quality);
}

bool addPixels(JxlEncoder *encoder, const QImage &levels, int quality)
{
    constexpr int kEffort = 4; // higher ones take minutes for the pictures of cameras
    const std::vector<quint16> samples = samplesOf(levels);
    JxlEncoderFrameSettings *settings = JxlEncoderFrameSettingsCreate(encoder, nullptr);
    const JxlPixelFormat layout = {3, JXL_TYPE_UINT16, JXL_NATIVE_ENDIAN, 0};
    return settings &&
           JxlEncoderSetFrameDistance(settings, distanceOf(quality)) == JXL_ENC_SUCCESS &&
           JxlEncoderFrameSettingsSetOption(settings, JXL_ENC_FRAME_SETTING_EFFORT, kEffort) ==
               JXL_ENC_SUCCESS &&
           JxlEncoderAddImageFrame(settings, &layout, samples.data(),
                                   samples.size() * sizeof(quint16)) == JXL_ENC_SUCCESS;
}

bool send(JxlEncoder *encoder, QIODevice &device)
{
    std::vector<uint8_t> piece(1 << 20);
    JxlEncoderStatus status = JXL_ENC_NEED_MORE_OUTPUT;
    while (status == JXL_ENC_NEED_MORE_OUTPUT) {
        uint8_t *next = piece.data();
        size_t room = piece.size();
        status = JxlEncoderProcessOutput(encoder, &next, &room);
        if (status == JXL_ENC_ERROR ||
            !encoding::writeAll(device, piece.data(), qint64(piece.size() - room)))
            return false;
    }
    return true;
}

} // namespace

bool jxl_file::isAvailable()
{
    return true;
}

QString jxl_file::encode(const QImage &picture, const PictureMetadata &metadata, int quality,
                         QIODevice &device)
{
    const QImage levels = perceptual_quantizer::levelsOf(picture);
    const Encoder encoder(JxlEncoderCreate(nullptr), &JxlEncoderDestroy);
    if (levels.isNull() || !encoder)
        return PictureEncoder::tr("not enough memory");
    JxlEncoderSetParallelRunner(encoder.get(), &jxl_threads::run, nullptr);
    const bool isAdded = JxlEncoderUseBoxes(encoder.get()) == JXL_ENC_SUCCESS &&
                         describe(encoder.get(), picture.size()) &&
                         addMetadata(encoder.get(), metadata) &&
                         addPixels(encoder.get(), levels, quality);
    JxlEncoderCloseInput(encoder.get());
    return isAdded && send(encoder.get(), device)
               ? QString()
               : PictureEncoder::tr("the JPEG XL file could not be written");
}

#endif
