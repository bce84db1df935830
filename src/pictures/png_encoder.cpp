#include "png_encoder.h"

#include "cicp_profile.h"
#include "literal_stream.h"

#include <QtEndian>

#include <algorithm>
#include <csetjmp>
#include <memory>
#include <vector>

#include <libdeflate.h>
#include <png.h>

namespace {

// libdeflate compresses the rows, the PNG library writes everything around them. On a merged
// photograph of 12 megapixels (processor time on one core) filtering and compressing take
// 76 + 255 ms and give 14.1 MB; zlib at its fastest level takes 640 ms for 14.8 MB in place of the
// 255. libdeflate's level 1 is the usual effort; its level 2 takes 470 ms for 13.8 MB.
constexpr png_byte kAverageFilter = 3;
constexpr int kUsualEffort = 1;
/// Chunks hold at most 2^31 - 1 bytes.
constexpr size_t kLargestChunk = size_t(1) << 30;

using Bytes = std::vector<png_byte>;

/// As encoding::unpackRow, with the first byte of each sample first.
void unpackRow(const QImage &picture, int y, png_byte *bytes)
{
    encoding::unpackRow(picture, y, bytes);
    if (Q_BYTE_ORDER == Q_LITTLE_ENDIAN && encoding::bitsPerSample(picture) == 16)
        qbswap<2>(bytes, static_cast<qsizetype>(encoding::bytesPerRow(picture) / 2), bytes);
}

/// The rows as PNG files hold them before compression: each begins with its filter's number, each
/// byte is the difference from the mean of the same channel in the pixels to the left and above.
template <size_t kPixelBytes>
Bytes filterRows(const QImage &picture, const EncodeProgress &progress)
{
    const size_t rowBytes = encoding::bytesPerRow(picture);
    Bytes filtered((rowBytes + 1) * static_cast<size_t>(picture.height()));
    // One black (and transparent) pixel to the left of each row, and a black row above the first.
    Bytes above(kPixelBytes + rowBytes);
    Bytes row(kPixelBytes + rowBytes);
    png_byte *out = filtered.data();
    for (int y = 0; y < picture.height(); ++y) {
        unpackRow(picture, y, row.data() + kPixelBytes);
        *out++ = kAverageFilter;
        for (size_t i = kPixelBytes; i < row.size(); ++i)
            *out++ = static_cast<png_byte>(row[i] - (row[i - kPixelBytes] + above[i]) / 2);
        std::swap(row, above);
        if (progress)
            progress(0.25 * (y + 1) / picture.height());
    }
    return filtered;
}

Bytes filterRows(const QImage &picture, const EncodeProgress &progress)
{
    switch (encoding::samplesPerPixel(picture) * encoding::bitsPerSample(picture) / 8) {
    case 3:
        return filterRows<3>(picture, progress);
    case 4:
        return filterRows<4>(picture, progress);
    case 6:
        return filterRows<6>(picture, progress);
    default:
        return filterRows<8>(picture, progress);
    }
}

/// A zlib stream, or nothing when memory is lacking.
Bytes compress(const png_byte *bytes, size_t count, int effort)
{
    const std::unique_ptr<libdeflate_compressor, decltype(&libdeflate_free_compressor)> compressor(
        libdeflate_alloc_compressor(effort), &libdeflate_free_compressor);
    if (!compressor)
        return {};
    Bytes stream(libdeflate_zlib_compress_bound(compressor.get(), count));
    stream.resize(
        libdeflate_zlib_compress(compressor.get(), bytes, count, stream.data(), stream.size()));
    return stream;
}

/// Whether looking for repetition wins little: in pieces of the rows, evenly far apart.
bool isNoisy(const Bytes &rows)
{
    constexpr size_t kPieces = 4;
    constexpr size_t kPieceBytes = 1 << 16;
    constexpr double kMostLoss = 1.04;
    if (rows.size() < 2 * kPieces * kPieceBytes)
        return false;
    size_t alone = 0;
    size_t repeated = 0;
    for (size_t piece = 0; piece < kPieces; ++piece) {
        const png_byte *bytes = rows.data() + rows.size() / kPieces * piece;
        alone += literal_stream::sizeOf(bytes, kPieceBytes);
        repeated += compress(bytes, kPieceBytes, kUsualEffort).size();
    }
    return double(alone) < kMostLoss * double(repeated);
}

Bytes compress(const QImage &picture, const Bytes &rows, int effort)
{
    const bool isQuick = encoding::bitsPerSample(picture) == 16 && effort == kUsualEffort;
    return isQuick && isNoisy(rows) ? literal_stream::compressed(rows.data(), rows.size())
                                    : compress(rows.data(), rows.size(), effort);
}

/// Everything that the library's calls need; they jump back on error, so the functions that make
/// them own nothing.
struct PngWriter
{
    ~PngWriter() { png_destroy_write_struct(&png, &info); }

    png_structp png = nullptr;
    png_infop info = nullptr;
    QIODevice *device = nullptr;
};

void onWrite(png_structp png, png_bytep bytes, size_t length)
{
    if (!encoding::writeAll(*static_cast<QIODevice *>(png_get_io_ptr(png)), bytes,
                            static_cast<qint64>(length)))
        png_error(png, "write");
}

void onFlush(png_structp)
{
}

[[noreturn]] void onError(png_structp png, png_const_charp)
{
    png_longjmp(png, 1);
}

void onWarning(png_structp, png_const_charp)
{
}

bool create(PngWriter &writer)
{
    writer.png = png_create_write_struct(PNG_LIBPNG_VER_STRING, nullptr, onError, onWarning);
    if (!writer.png)
        return false;
    // A profile that is only odd is written as it is.
    png_set_benign_errors(writer.png, 1);
    writer.info = png_create_info_struct(writer.png);
    return writer.info;
}

/// The packet as a text that is not compressed, as its standard wants it.
void setXmp(PngWriter &writer, const QByteArray &xmp)
{
    static char keyword[] = "XML:com.adobe.xmp";
    png_text text = {};
    text.compression = PNG_ITXT_COMPRESSION_NONE;
    text.key = keyword;
    text.text = const_cast<char *>(xmp.constData());
    text.itxt_length = static_cast<size_t>(xmp.size());
    if (!xmp.isEmpty())
        png_set_text(writer.png, writer.info, &text, 1);
}

void setMetadata(PngWriter &writer, const QImage &picture, const QByteArray &exif,
                 const PictureMetadata &metadata)
{
    const QByteArray &colourProfile = metadata.colourProfile;
    setXmp(writer, metadata.xmp);
    if (!colourProfile.isEmpty())
        png_set_iCCP(writer.png, writer.info, "ICC profile", PNG_COMPRESSION_TYPE_BASE,
                     reinterpret_cast<png_const_bytep>(colourProfile.constData()),
                     static_cast<png_uint_32>(colourProfile.size()));
    if (!exif.isEmpty())
        png_set_eXIf_1(writer.png, writer.info, static_cast<png_uint_32>(exif.size()),
                       reinterpret_cast<png_bytep>(const_cast<char *>(exif.constData())));
    constexpr double kInchesPerMetre = 1 / 0.0254;
    const encoding::Resolution resolution = encoding::resolutionOf(picture);
    png_set_pHYs(
        writer.png, writer.info, static_cast<png_uint_32>(qRound(resolution.x * kInchesPerMetre)),
        static_cast<png_uint_32>(qRound(resolution.y * kInchesPerMetre)), PNG_RESOLUTION_METER);
}

/// For readers that know no profiles.
void writeCodePoints(PngWriter &writer, const QByteArray &colourProfile)
{
    constexpr png_byte kCodePoints[] = {'c', 'I', 'C', 'P', 0};
    constexpr png_byte kNoMatrix = 0;
    constexpr png_byte kFullRange = 1;
    const std::optional<cicp_profile::Codes> codes = cicp_profile::codesOf(colourProfile);
    if (!codes)
        return;
    const png_byte chunk[] = {png_byte(codes->primaries), png_byte(codes->transfer), kNoMatrix,
                              kFullRange};
    png_write_chunk(writer.png, kCodePoints, chunk, sizeof chunk);
}

void writePixels(PngWriter &writer, const Bytes &stream)
{
    constexpr png_byte kImageData[] = {'I', 'D', 'A', 'T', 0};
    for (size_t at = 0; at < stream.size(); at += kLargestChunk)
        png_write_chunk(writer.png, kImageData, stream.data() + at,
                        std::min(kLargestChunk, stream.size() - at));
}

bool write(PngWriter &writer, const QImage &picture, const QByteArray &exif,
           const PictureMetadata &metadata, const Bytes &stream)
{
    constexpr png_byte kEnd[] = {'I', 'E', 'N', 'D', 0};
    if (setjmp(png_jmpbuf(writer.png)))
        return false;
    png_set_write_fn(writer.png, writer.device, onWrite, onFlush);
    png_set_IHDR(writer.png, writer.info, static_cast<png_uint_32>(picture.width()),
                 static_cast<png_uint_32>(picture.height()), encoding::bitsPerSample(picture),
                 picture.hasAlphaChannel() ? PNG_COLOR_TYPE_RGBA : PNG_COLOR_TYPE_RGB,
                 PNG_INTERLACE_NONE, PNG_COMPRESSION_TYPE_BASE, PNG_FILTER_TYPE_BASE);
    setMetadata(writer, picture, exif, metadata);
    png_write_info_before_PLTE(writer.png, writer.info);
    writeCodePoints(writer, metadata.colourProfile);
    png_write_info(writer.png, writer.info);
    writePixels(writer, stream);
    // The library's own way to end a file insists on having compressed the rows itself.
    png_write_chunk(writer.png, kEnd, nullptr, 0);
    return true;
}

} // namespace

QString png_file::encode(const QImage &picture, const PictureMetadata &metadata, QIODevice &device,
                         const EncodeProgress &progress, int effort)
{
    const Bytes stream = compress(picture, filterRows(picture, progress), effort);
    const QByteArray exif = metadata.exif.block();
    PngWriter writer;
    writer.device = &device;
    if (stream.empty() || !create(writer) || !write(writer, picture, exif, metadata, stream))
        return PictureEncoder::tr("the PNG file could not be written");
    if (progress)
        progress(1.0);
    return {};
}
