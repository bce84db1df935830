#include "jxl_decoder.h"

#include "Chromaticities.h"
#include "cicp_profile.h"
#include "jxl_threads.h"
#include "perceptual_quantizer.h"

#include <QColorSpace>

#include <atomic>
#include <cstdlib>
#include <memory>

#include <jxl/decode.h>
#include <jxl/version.h>

namespace {

using Decoder = std::unique_ptr<JxlDecoder, decltype(&JxlDecoderDestroy)>;

void *allocate(void *isShort, size_t size)
{
    void *const memory = std::malloc(size);
    if (!memory)
        *static_cast<std::atomic<bool> *>(isShort) = true;
    return memory;
}

void release(void *, void *memory)
{
    std::free(memory);
}

/// A decoder that reads a device piece by piece.
class Reader
{
public:
    explicit Reader(QIODevice &source)
        : device(source)
        , memory{&isMemoryShort, &allocate, &release}
        , decoder(JxlDecoderCreate(&memory), &JxlDecoderDestroy)
    {
    }
    Reader(const Reader &) = delete;
    Reader &operator=(const Reader &) = delete;

    bool begin(int events)
    {
        return decoder && JxlDecoderSubscribeEvents(get(), events) == JXL_DEC_SUCCESS;
    }

    /// The next event that is not about input. JXL_DEC_ERROR when the file ends before.
    JxlDecoderStatus next()
    {
        while (true) {
            const JxlDecoderStatus status = JxlDecoderProcessInput(get());
            if (status != JXL_DEC_NEED_MORE_INPUT)
                return status;
            if (hasEnded)
                return JXL_DEC_ERROR;
            feed();
        }
    }

    JxlDecoder *get() const { return decoder.get(); }
    bool hasMemoryRunOut() const { return isMemoryShort || !decoder; }

private:
    void feed()
    {
        constexpr qint64 kPieceBytes = 1 << 20;
        const size_t left = JxlDecoderReleaseInput(get());
        const QByteArray fresh = device.read(kPieceBytes);
        piece = piece.right(static_cast<qsizetype>(left)) + fresh;
        JxlDecoderSetInput(get(), reinterpret_cast<const uint8_t *>(piece.constData()),
                           static_cast<size_t>(piece.size()));
        hasEnded = fresh.isEmpty();
        if (hasEnded)
            JxlDecoderCloseInput(get());
    }

    QIODevice &device;
    std::atomic<bool> isMemoryShort = false;
    const JxlMemoryManager memory;
    const Decoder decoder;
    QByteArray piece;
    bool hasEnded = false;
};

bool isJxl(QIODevice &file)
{
    const QByteArray start = file.peek(12);
    const JxlSignature signature = JxlSignatureCheck(
        reinterpret_cast<const uint8_t *>(start.constData()), static_cast<size_t>(start.size()));
    return signature == JXL_SIG_CODESTREAM || signature == JXL_SIG_CONTAINER;
}

QColorSpace linearSpaceOf(const JxlColorEncoding &colours)
{
    const auto point = [](const double(&place)[2]) { return QPointF(place[0], place[1]); };
    return Chromaticities{point(colours.primaries_red_xy), point(colours.primaries_green_xy),
                          point(colours.primaries_blue_xy), point(colours.white_point_xy)}
        .linearSpace();
}

/// One picture, event by event.
class Picture
{
public:
    Picture(QFile &file, const ReadOptions &readOptions)
        : reader(file)
        , options(readOptions)
    {
    }

    DecodedPicture decode()
    {
        if (!reader.begin(JXL_DEC_BASIC_INFO | JXL_DEC_COLOR_ENCODING | JXL_DEC_FULL_IMAGE))
            return picture::failure(DecodeError::NoMemory);
        JxlDecoderSetParallelRunner(reader.get(), &jxl_threads::run, nullptr);
        JxlDecoderSetUnpremultiplyAlpha(reader.get(), JXL_TRUE);
        while (true) {
            const JxlDecoderStatus event = reader.next();
            if (event == JXL_DEC_FULL_IMAGE)
                return finished();
            const DecodedPicture refused = take(event);
            if (refused.error != DecodeError::None)
                return refused;
        }
    }

private:
    /// An error, or none to go on.
    DecodedPicture take(JxlDecoderStatus event)
    {
        switch (event) {
        case JXL_DEC_BASIC_INFO:
            return takeInfo();
        case JXL_DEC_COLOR_ENCODING:
            return takeColours();
        case JXL_DEC_NEED_IMAGE_OUT_BUFFER:
            return giveBuffer();
        default:
            return failed();
        }
    }

    DecodedPicture failed() const
    {
        return picture::failure(
            reader.hasMemoryRunOut() ? DecodeError::NoMemory : DecodeError::Damaged, size);
    }

    DecodedPicture takeInfo()
    {
        if (JxlDecoderGetBasicInfo(reader.get(), &info) != JXL_DEC_SUCCESS)
            return failed();
        if (qint64(info.xsize) * info.ysize > options.pixelLimit)
            return picture::failure(DecodeError::TooLarge,
                                    {static_cast<int>(info.xsize), static_cast<int>(info.ysize)});
        size = QSize(static_cast<int>(info.xsize), static_cast<int>(info.ysize));
        return info.exponent_bits_per_sample > 0
                   ? picture::unsupported(QStringLiteral("JPEG XL (floating-point numbers)"))
                   : DecodedPicture();
    }

    DecodedPicture takeColours()
    {
        constexpr auto kPixels = JXL_COLOR_PROFILE_TARGET_DATA;
        JxlColorEncoding colours = {};
        size_t length = 0;
#if JPEGXL_NUMERIC_VERSION < JPEGXL_COMPUTE_NUMERIC_VERSION(0, 9, 0)
        const auto isTold =
            JxlDecoderGetColorAsEncodedProfile(reader.get(), nullptr, kPixels, &colours);
        const auto hasProfile =
            JxlDecoderGetICCProfileSize(reader.get(), nullptr, kPixels, &length);
        profile.resize(static_cast<qsizetype>(length));
        const auto bytes = reinterpret_cast<uint8_t *>(profile.data());
        if (hasProfile == JXL_DEC_SUCCESS)
            JxlDecoderGetColorAsICCProfile(reader.get(), nullptr, kPixels, bytes, length);
#else
        const auto isTold = JxlDecoderGetColorAsEncodedProfile(reader.get(), kPixels, &colours);
        const auto hasProfile = JxlDecoderGetICCProfileSize(reader.get(), kPixels, &length);
        profile.resize(static_cast<qsizetype>(length));
        const auto bytes = reinterpret_cast<uint8_t *>(profile.data());
        if (hasProfile == JXL_DEC_SUCCESS)
            JxlDecoderGetColorAsICCProfile(reader.get(), kPixels, bytes, length);
#endif
        return isTold == JXL_DEC_SUCCESS ? takeCurve(colours) : DecodedPicture();
    }

    DecodedPicture takeCurve(const JxlColorEncoding &colours)
    {
        isLight = colours.transfer_function == JXL_TRANSFER_FUNCTION_PQ;
        const bool isRefused = isLight ? options.light == ReadOptions::Light::Refused
                                       : colours.transfer_function == JXL_TRANSFER_FUNCTION_HLG;
        if (isRefused)
            return picture::unsupported(QStringLiteral("JPEG XL (PQ or HLG)"));
        if (isLight)
            lightSpace = linearSpaceOf(colours);
        return {};
    }

    DecodedPicture giveBuffer()
    {
        const bool isDeep =
            isLight || (info.bits_per_sample > 8 && options.depth == ReadOptions::Depth::AsStored);
        const bool hasAlpha = info.alpha_bits > 0;
        image =
            QImage(size, isDeep ? (hasAlpha ? QImage::Format_RGBA64 : QImage::Format_RGBX64)
                                : (hasAlpha ? QImage::Format_RGBA8888 : QImage::Format_RGBX8888));
        if (image.isNull())
            return picture::failure(DecodeError::NoMemory, size);
        const JxlPixelFormat layout = {4, isDeep ? JXL_TYPE_UINT16 : JXL_TYPE_UINT8,
                                       JXL_NATIVE_ENDIAN, 0};
        const auto bytes = static_cast<size_t>(image.sizeInBytes());
        return JxlDecoderSetImageOutBuffer(reader.get(), &layout, image.bits(), bytes) ==
                       JXL_DEC_SUCCESS
                   ? DecodedPicture()
                   : failed();
    }

    DecodedPicture finished()
    {
        if (isLight)
            return finishedLight();
        if (image.depth() == 32)
            image = std::move(image).convertToFormat(info.alpha_bits > 0 ? QImage::Format_ARGB32
                                                                         : QImage::Format_RGB32);
        if (image.isNull())
            return picture::failure(DecodeError::NoMemory, size);
        if (!profile.isEmpty())
            image.setColorSpace(QColorSpace::fromIccProfile(profile));
        return {image, DecodeError::None, {}};
    }

    DecodedPicture finishedLight() const
    {
        DecodedPicture light;
        light.image = perceptual_quantizer::lightOf(image, lightSpace, options);
        light.whiteLuminance = perceptual_quantizer::kWhiteLuminance;
        return light.image.isNull() ? picture::failure(DecodeError::NoMemory, size) : light;
    }

    Reader reader;
    const ReadOptions &options;
    JxlBasicInfo info = {};
    QSize size;
    QByteArray profile;
    bool isLight = false;   ///< the numbers are levels of the perceptual quantizer
    QColorSpace lightSpace; ///< whose primaries they are of
    QImage image;
};

/// The bytes of a file's first box of one kind, also of a compressed one.
class Box
{
public:
    Box(QIODevice &file, const char *name)
        : reader(file)
        , wanted(name)
    {
    }

    /// None when there is no such box, or a larger one than metadata are.
    QByteArray read()
    {
        if (!reader.begin(JXL_DEC_BOX) ||
            JxlDecoderSetDecompressBoxes(reader.get(), JXL_TRUE) != JXL_DEC_SUCCESS)
            return {};
        while (true) {
            const JxlDecoderStatus event = reader.next();
            const bool isDone = !bytes.isEmpty() && event != JXL_DEC_BOX_NEED_MORE_OUTPUT;
            if (isDone)
                return event == JXL_DEC_ERROR ? QByteArray() : taken();
            const bool hasMore = event == JXL_DEC_BOX || event == JXL_DEC_BOX_NEED_MORE_OUTPUT;
            if (!hasMore || !goOn(event))
                return {};
        }
    }

private:
    bool goOn(JxlDecoderStatus event)
    {
        constexpr qsizetype kLargest = 16 << 20;
        constexpr qsizetype kFirst = 1 << 14;
        JxlBoxType name = {};
        if (event == JXL_DEC_BOX)
            return JxlDecoderGetBoxType(reader.get(), name, JXL_TRUE) == JXL_DEC_SUCCESS &&
                   (wanted != QByteArray(name, sizeof name) || grow(kFirst));
        return bytes.size() < kLargest && grow(4 * bytes.size());
    }

    bool grow(qsizetype size)
    {
        const qsizetype used = bytes.isEmpty() ? 0 : taken().size();
        bytes.resize(size);
        return JxlDecoderSetBoxBuffer(reader.get(),
                                      reinterpret_cast<uint8_t *>(bytes.data()) + used,
                                      static_cast<size_t>(size - used)) == JXL_DEC_SUCCESS;
    }

    /// What is there of it; the library lets go of its memory.
    QByteArray taken()
    {
        return bytes.chopped(static_cast<qsizetype>(JxlDecoderReleaseBoxBuffer(reader.get())));
    }

    Reader reader;
    const QByteArray wanted;
    QByteArray bytes;
};

/// Of the picture that was encoded, in words; empty where a profile tells them.
QString coloursOf(JxlDecoder *decoder)
{
    constexpr int kDisplayP3 = 12; // of H.273; the other numbers are the same
    JxlColorEncoding colours = {};
#if JPEGXL_NUMERIC_VERSION < JPEGXL_COMPUTE_NUMERIC_VERSION(0, 9, 0)
    const auto isTold = JxlDecoderGetColorAsEncodedProfile(
        decoder, nullptr, JXL_COLOR_PROFILE_TARGET_ORIGINAL, &colours);
#else
    const auto isTold =
        JxlDecoderGetColorAsEncodedProfile(decoder, JXL_COLOR_PROFILE_TARGET_ORIGINAL, &colours);
#endif
    const bool isNamed = isTold == JXL_DEC_SUCCESS && colours.color_space == JXL_COLOR_SPACE_RGB &&
                         colours.primaries != JXL_PRIMARIES_CUSTOM &&
                         colours.transfer_function != JXL_TRANSFER_FUNCTION_GAMMA;
    if (!isNamed)
        return {};
    const bool isP3 =
        colours.primaries == JXL_PRIMARIES_P3 && colours.white_point == JXL_WHITE_POINT_D65;
    return cicp_profile::nameOf(isP3 ? kDisplayP3 : int(colours.primaries),
                                int(colours.transfer_function));
}

PictureHeader told(const JxlBasicInfo &info)
{
    PictureHeader header;
    header.format = QStringLiteral("JPEG XL");
    header.size = QSize(static_cast<int>(info.xsize), static_cast<int>(info.ysize));
    header.isUpright = true;
    header.bitsPerSample = static_cast<int>(info.bits_per_sample);
    return header;
}

/// file is left at its start.
QByteArray boxIn(QIODevice &file, const char *name)
{
    file.seek(0);
    const bool isContainer = isJxl(file) && file.peek(8).endsWith("JXL ");
    const QByteArray box = isContainer ? Box(file, name).read() : QByteArray();
    file.seek(0);
    return box;
}

} // namespace

std::optional<DecodedPicture> jxl_decoder::decode(QFile &file, const ReadOptions &options)
{
    if (!isJxl(file))
        return std::nullopt;
    file.seek(0);
    return Picture(file, options).decode();
}

std::optional<PictureHeader> jxl_decoder::headerOf(QIODevice &file)
{
    file.seek(0);
    std::optional<PictureHeader> header;
    JxlBasicInfo info = {};
    if (isJxl(file)) {
        Reader reader(file);
        if (reader.begin(JXL_DEC_BASIC_INFO | JXL_DEC_COLOR_ENCODING) &&
            reader.next() == JXL_DEC_BASIC_INFO &&
            JxlDecoderGetBasicInfo(reader.get(), &info) == JXL_DEC_SUCCESS) {
            header = told(info);
            if (reader.next() == JXL_DEC_COLOR_ENCODING)
                header->colours = coloursOf(reader.get());
        }
    }
    file.seek(0);
    return header;
}

QByteArray jxl_decoder::exifIn(QIODevice &file)
{
    constexpr qint64 kOffsetBytes = 4;
    return boxIn(file, "Exif").mid(kOffsetBytes);
}

QByteArray jxl_decoder::xmpIn(QIODevice &file)
{
    return boxIn(file, "xml ");
}
