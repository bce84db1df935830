#include "avif_decoder.h"

#include "cicp_profile.h"
#include "large_memory.h"
#include "parallel_rows.h"
#include "perceptual_quantizer.h"

#include <QColorSpace>
#include <QTransform>

#include <algorithm>
#include <memory>
#include <new>

#include <avif/avif.h>

namespace {

/// A sequence's table takes memory for each; the first one is read.
constexpr uint32_t kMostPictures = 100000;

using Decoder = std::unique_ptr<avifDecoder, decltype(&avifDecoderDestroy)>;

/// Reads pieces of the device as the library asks for them.
struct Source
{
    avifIO io = {};
    QIODevice *device = nullptr;
    QByteArray piece;
};

avifResult readPiece(avifIO *io, uint32_t, uint64_t offset, size_t size, avifROData *out)
{
    auto &source = *static_cast<Source *>(io->data);
    const auto end = static_cast<uint64_t>(source.device->size());
    if (offset > end)
        return AVIF_RESULT_IO_ERROR;
    const auto count = static_cast<qint64>(std::min<uint64_t>(size, end - offset));
    if (!source.device->seek(static_cast<qint64>(offset)))
        return AVIF_RESULT_IO_ERROR;
    source.piece = source.device->read(count);
    *out = {reinterpret_cast<const uint8_t *>(source.piece.constData()),
            static_cast<size_t>(source.piece.size())};
    return source.piece.size() == count ? AVIF_RESULT_OK : AVIF_RESULT_IO_ERROR;
}

void connect(Source &source, QIODevice &device)
{
    source.device = &device;
    source.io.read = &readPiece;
    source.io.sizeHint = static_cast<uint64_t>(device.size());
    source.io.data = &source;
}

/// Of the file's first box, which lists what the file is.
bool isAvif(QIODevice &file)
{
    constexpr qint64 kLongestList = 1024;
    const QByteArray start = file.peek(kLongestList);
    if (start.mid(4, 4) != "ftyp")
        return false;
    const avifROData bytes = {reinterpret_cast<const uint8_t *>(start.constData()),
                              static_cast<size_t>(start.size())};
    return avifPeekCompatibleFileType(&bytes);
}

Decoder newDecoder(Source &source)
{
    Decoder decoder(avifDecoderCreate(), &avifDecoderDestroy);
    if (!decoder)
        return decoder;
    decoder->maxThreads = parallel::threadCount();
    decoder->strictFlags = AVIF_STRICT_DISABLED;
    decoder->ignoreXMP = AVIF_TRUE;
    decoder->imageCountLimit = kMostPictures;
    avifDecoderSetIO(decoder.get(), &source.io);
    return decoder;
}

QSize sizeOf(const avifImage &image)
{
    return {static_cast<int>(image.width), static_cast<int>(image.height)};
}

QImage::Format formatOf(const avifDecoder &decoder, ReadOptions::Depth depth)
{
    const bool isDeep = decoder.image->depth > 8 && depth == ReadOptions::Depth::AsStored;
    if (decoder.alphaPresent)
        return isDeep ? QImage::Format_RGBA64 : QImage::Format_ARGB32;
    return isDeep ? QImage::Format_RGBX64 : QImage::Format_RGB32;
}

/// The pixels, not turned; null when that fails.
QImage pixelsOf(const avifDecoder &decoder, ReadOptions::Depth depth)
{
    QImage picture(sizeOf(*decoder.image), formatOf(decoder, depth));
    if (picture.isNull())
        return picture;
    avifRGBImage words;
    avifRGBImageSetDefaults(&words, decoder.image);
    const bool isDeep = picture.depth() == 64;
    words.depth = isDeep ? 16 : 8;
    words.format = isDeep                            ? AVIF_RGB_FORMAT_RGBA
                   : Q_BYTE_ORDER == Q_LITTLE_ENDIAN ? AVIF_RGB_FORMAT_BGRA
                                                     : AVIF_RGB_FORMAT_ARGB;
    words.pixels = picture.bits();
    words.rowBytes = static_cast<uint32_t>(picture.bytesPerLine());
    return avifImageYUVToRGB(decoder.image, &words) == AVIF_RESULT_OK ? picture : QImage();
}

/// First turned against the clock, then mirrored: ISO/IEC 23000-22, 7.3.6.7.
void turnUpright(const avifImage &image, QImage &picture)
{
    if (image.transformFlags & AVIF_TRANSFORM_IROT && image.irot.angle != 0)
        picture = picture.transformed(QTransform().rotate(-90.0 * image.irot.angle));
    if (!(image.transformFlags & AVIF_TRANSFORM_IMIR))
        return;
#if AVIF_VERSION_MAJOR >= 1
    const bool isAcross = image.imir.axis == 1;
#else
    const bool isAcross = image.imir.mode == 1;
#endif
    picture = std::move(picture).mirrored(isAcross, !isAcross);
}

bool isQuantizedLight(const avifImage &image)
{
    return image.icc.size == 0 && image.transferCharacteristics == perceptual_quantizer::kTransfer;
}

/// The light of levels as they are in the file.
QImage lightOf(const QImage &levels, const avifImage &image, const ReadOptions &options)
{
    constexpr int kLinear = 8;
    const QByteArray profile = cicp_profile::of(image.colorPrimaries, kLinear);
    return perceptual_quantizer::lightOf(levels, QColorSpace::fromIccProfile(profile), options);
}

QByteArray profileOf(const avifImage &image)
{
    if (image.icc.size > 0)
        return {reinterpret_cast<const char *>(image.icc.data),
                static_cast<qsizetype>(image.icc.size)};
    return cicp_profile::of(image.colorPrimaries, image.transferCharacteristics);
}

/// The library ends the process where memory for its planes is lacking, so it is asked for ahead:
/// four planes as large as the file says, and what goes with them.
bool hasRoomFor(const avifImage &image)
{
    constexpr size_t kPlanes = 4;
    constexpr size_t kRest = size_t(32) << 20;
    const size_t planes = size_t(image.width) * image.height * kPlanes * (image.depth > 8 ? 2 : 1);
    try {
        memory::large(planes + planes / 2 + kRest);
        return true;
    } catch (const std::bad_alloc &) {
        return false;
    }
}

/// Tagged with what the file tells of colours; null when memory is lacking.
QImage pictureOf(const avifDecoder &decoder, const ReadOptions &options)
{
    const avifImage &stored = *decoder.image;
    const bool isLight = isQuantizedLight(stored);
    QImage picture = pixelsOf(decoder, isLight ? ReadOptions::Depth::AsStored : options.depth);
    turnUpright(stored, picture);
    if (isLight && !picture.isNull())
        return lightOf(picture, stored, options);
    const QByteArray profile = profileOf(stored);
    if (!profile.isEmpty())
        picture.setColorSpace(QColorSpace::fromIccProfile(profile));
    return picture;
}

/// The size is within the caller's limit.
DecodedPicture read(avifDecoder &decoder, const ReadOptions &options)
{
    if (!hasRoomFor(*decoder.image))
        return picture::failure(DecodeError::NoMemory, sizeOf(*decoder.image));
    // The pictures within may be larger than the file says.
    decoder.imageSizeLimit = uint32_t(std::min<qint64>(decoder.imageSizeLimit, options.pixelLimit));
    const avifResult result = avifDecoderNextImage(&decoder);
    if (result != AVIF_RESULT_OK)
        return picture::failure(result == AVIF_RESULT_OUT_OF_MEMORY ? DecodeError::NoMemory
                                                                    : DecodeError::Damaged);
    DecodedPicture decoded;
    decoded.image = pictureOf(decoder, options);
    if (decoded.image.isNull())
        return picture::failure(DecodeError::NoMemory, sizeOf(*decoder.image));
    if (isQuantizedLight(*decoder.image))
        decoded.whiteLuminance = perceptual_quantizer::kWhiteLuminance;
    return decoded;
}

/// Whether the file tells light beyond white in a way that is not wanted, or not known.
bool isRefused(const avifImage &image, const ReadOptions &options)
{
    if (isQuantizedLight(image))
        return options.light == ReadOptions::Light::Refused;
    return image.icc.size == 0 && cicp_profile::isHighRange(image.transferCharacteristics);
}

DecodedPicture decodeKnown(QFile &file, const ReadOptions &options)
{
    Source source;
    connect(source, file);
    const Decoder decoder = newDecoder(source);
    if (!decoder)
        return picture::failure(DecodeError::NoMemory);
    // Takes no memory for pixels. The library's own limit is 268 megapixels.
    if (avifDecoderParse(decoder.get()) != AVIF_RESULT_OK)
        return picture::failure(DecodeError::Damaged);
    const avifImage &image = *decoder->image;
    if (qint64(image.width) * image.height > options.pixelLimit)
        return picture::failure(DecodeError::TooLarge, sizeOf(image));
    if (isRefused(image, options))
        return picture::unsupported(QStringLiteral("AVIF (PQ or HLG)"));
    return read(*decoder, options);
}

PictureHeader told(const avifImage &image)
{
    const bool isTurned = image.transformFlags & AVIF_TRANSFORM_IROT && image.irot.angle % 2 == 1;
    PictureHeader header;
    header.format = QStringLiteral("AVIF");
    header.size = isTurned ? sizeOf(image).transposed() : sizeOf(image);
    header.isUpright = true;
    header.bitsPerSample = int(image.depth);
    header.profile = profileOf(image);
    if (image.icc.size == 0)
        header.colours = cicp_profile::nameOf(image.colorPrimaries, image.transferCharacteristics);
    return header;
}

/// One of the blocks of metadata; file is left at its start.
QByteArray blockIn(QIODevice &file, avifRWData avifImage::*which)
{
    QByteArray block;
    file.seek(0);
    if (isAvif(file)) {
        Source source;
        connect(source, file);
        const Decoder decoder = newDecoder(source);
        if (decoder)
            decoder->ignoreXMP = AVIF_FALSE;
        if (decoder && avifDecoderParse(decoder.get()) == AVIF_RESULT_OK)
            block = QByteArray(reinterpret_cast<const char *>((decoder->image->*which).data),
                               static_cast<qsizetype>((decoder->image->*which).size));
    }
    file.seek(0);
    return block;
}

} // namespace

std::optional<DecodedPicture> avif_decoder::decode(QFile &file, const ReadOptions &options)
{
    if (!isAvif(file))
        return std::nullopt;
    return decodeKnown(file, options);
}

std::optional<PictureHeader> avif_decoder::headerOf(QIODevice &file)
{
    std::optional<PictureHeader> header;
    file.seek(0);
    if (isAvif(file)) {
        Source source;
        connect(source, file);
        const Decoder decoder = newDecoder(source);
        if (decoder && avifDecoderParse(decoder.get()) == AVIF_RESULT_OK)
            header = told(*decoder->image);
    }
    file.seek(0);
    return header;
}

QByteArray avif_decoder::exifIn(QIODevice &file)
{
    return blockIn(file, &avifImage::exif);
}

QByteArray avif_decoder::xmpIn(QIODevice &file)
{
    return blockIn(file, &avifImage::xmp);
}
