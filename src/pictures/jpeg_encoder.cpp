#include "jpeg_encoder.h"

#include "iptc_data.h"

#include <algorithm>
#include <array>
#include <csetjmp>
#include <cstdio>
#include <optional>

#include <jpeglib.h>

#include <jerror.h>

namespace {

constexpr int kExifMarker = JPEG_APP0 + 1; // XMP's as well
constexpr int kPhotoshopMarker = JPEG_APP0 + 13;
constexpr int kFullColourFromQuality = 90;
constexpr size_t kBufferBytes = 1 << 16;
constexpr int kLargestSide = JPEG_MAX_DIMENSION;

/// The library's error and output hooks. Its calls jump to failed on error, so the functions that
/// make them own nothing.
struct Hooks
{
    jpeg_error_mgr errors; // first: the library hands back a pointer to it
    std::jmp_buf failed;
};

struct Destination
{
    jpeg_destination_mgr manager; // first, as above
    QIODevice *device;
    std::array<JOCTET, kBufferBytes> buffer;
};

[[noreturn]] void onError(j_common_ptr codec)
{
    std::longjmp(reinterpret_cast<Hooks *>(codec->err)->failed, 1);
}

void rewind(j_compress_ptr codec)
{
    auto *destination = reinterpret_cast<Destination *>(codec->dest);
    destination->manager.next_output_byte = destination->buffer.data();
    destination->manager.free_in_buffer = destination->buffer.size();
}

void send(j_compress_ptr codec, size_t length)
{
    auto *destination = reinterpret_cast<Destination *>(codec->dest);
    if (!encoding::writeAll(*destination->device, destination->buffer.data(),
                            static_cast<qint64>(length)))
        ERREXIT(codec, JERR_FILE_WRITE);
    rewind(codec);
}

boolean onBufferFull(j_compress_ptr codec)
{
    send(codec, kBufferBytes);
    return TRUE;
}

void onEnd(j_compress_ptr codec)
{
    send(codec, kBufferBytes - codec->dest->free_in_buffer);
}

/// As they stand in the file, signatures included; empty ones are not written.
struct Blocks
{
    QByteArray exif;
    QByteArray xmp;
    QByteArray iptc;
    QByteArray colourProfile;
};

class Compressor
{
public:
    explicit Compressor(QIODevice &device)
    {
        codec.err = jpeg_std_error(&hooks.errors);
        hooks.errors.error_exit = onError;
        hooks.errors.output_message = [](j_common_ptr) {};
        destination.manager.init_destination = rewind;
        destination.manager.empty_output_buffer = onBufferFull;
        destination.manager.term_destination = onEnd;
        destination.device = &device;
    }
    ~Compressor() { jpeg_destroy_compress(&codec); }
    Compressor(const Compressor &) = delete;
    Compressor &operator=(const Compressor &) = delete;

    bool write(const QImage &picture, const Blocks &blocks, int quality,
               const EncodeProgress &progress);

private:
    void configure(const QImage &picture, int quality);
    void writeMetadata(const Blocks &blocks);

    jpeg_compress_struct codec = {};
    Hooks hooks = {};
    Destination destination = {};
};

void Compressor::configure(const QImage &picture, int quality)
{
    codec.image_width = static_cast<JDIMENSION>(picture.width());
    codec.image_height = static_cast<JDIMENSION>(picture.height());
    codec.input_components = 4;
    codec.in_color_space = Q_BYTE_ORDER == Q_LITTLE_ENDIAN ? JCS_EXT_BGRX : JCS_EXT_XRGB;
    jpeg_set_defaults(&codec);
    jpeg_set_quality(&codec, quality, TRUE);
    codec.optimize_coding = TRUE;
    const encoding::Resolution resolution = encoding::resolutionOf(picture);
    constexpr UINT8 kPerInch = 1;
    codec.density_unit = kPerInch;
    codec.X_density = static_cast<UINT16>(qRound(resolution.x));
    codec.Y_density = static_cast<UINT16>(qRound(resolution.y));
    if (quality >= kFullColourFromQuality) {
        codec.comp_info[0].h_samp_factor = 1;
        codec.comp_info[0].v_samp_factor = 1;
    }
}

void Compressor::writeMetadata(const Blocks &blocks)
{
    const auto put = [this](int marker, const QByteArray &block) {
        if (!block.isEmpty())
            jpeg_write_marker(&codec, marker, reinterpret_cast<const JOCTET *>(block.constData()),
                              static_cast<unsigned>(block.size()));
    };
    put(kExifMarker, blocks.exif);
    put(kExifMarker, blocks.xmp);
    put(kPhotoshopMarker, blocks.iptc);
    if (!blocks.colourProfile.isEmpty())
        jpeg_write_icc_profile(&codec,
                               reinterpret_cast<const JOCTET *>(blocks.colourProfile.constData()),
                               static_cast<unsigned>(blocks.colourProfile.size()));
}

bool Compressor::write(const QImage &picture, const Blocks &blocks, int quality,
                       const EncodeProgress &progress)
{
    if (setjmp(hooks.failed))
        return false;
    jpeg_create_compress(&codec);
    codec.dest = &destination.manager;
    configure(picture, quality);
    jpeg_start_compress(&codec, TRUE);
    writeMetadata(blocks);
    while (codec.next_scanline < codec.image_height) {
        auto *row = const_cast<JSAMPROW>(picture.constScanLine(int(codec.next_scanline)));
        jpeg_write_scanlines(&codec, &row, 1);
        if (progress)
            progress(double(codec.next_scanline) / codec.image_height);
    }
    jpeg_finish_compress(&codec);
    return true;
}

/// Nothing when one of them does not fit into a segment.
std::optional<Blocks> blocksOf(const PictureMetadata &metadata)
{
    constexpr qsizetype kLargestSegment = 65533;
    const QByteArray exif = metadata.exif.block();
    const Blocks blocks{
        exif.isEmpty() ? exif : QByteArray("Exif\0\0", 6) + exif,
        metadata.xmp.isEmpty() ? QByteArray()
                               : QByteArray("http://ns.adobe.com/xap/1.0/\0", 29) + metadata.xmp,
        metadata.iptc.isEmpty() ? QByteArray() : iptc::photoshopBlock(metadata.iptc),
        metadata.colourProfile};
    if (std::max({blocks.exif.size(), blocks.xmp.size(), blocks.iptc.size()}) > kLargestSegment)
        return std::nullopt;
    return blocks;
}

} // namespace

QString jpeg_file::encode(const QImage &picture, const PictureMetadata &metadata, int quality,
                          QIODevice &device, const EncodeProgress &progress)
{
    if (picture.width() > kLargestSide || picture.height() > kLargestSide)
        return PictureEncoder::tr("JPEG files hold at most %1 pixels in a row or column")
            .arg(kLargestSide);
    const std::optional<Blocks> blocks = blocksOf(metadata);
    Compressor compressor(device);
    if (!blocks || !compressor.write(picture, *blocks, quality, progress))
        return PictureEncoder::tr("the JPEG file could not be written");
    return {};
}
