#include "jpeg_decoder.h"

#include "exif_orientation.h"
#include "UprightRows.h"

#include <QColorSpace>

#include <csetjmp>
#include <cstdlib>
#include <cstring>
#include <vector>

#include <jpeglib.h>

#include <jerror.h>

#ifndef JCS_ALPHA_EXTENSIONS
#error "libjpeg-turbo is needed: pictures are decoded straight to 32-bit words"
#endif

namespace {

constexpr int kExifMarker = JPEG_APP0 + 1;
constexpr int kIccMarker = JPEG_APP0 + 2;
constexpr unsigned kLongestMarker = 0xFFFF;
/// A progressive file has about ten scans; thousands only serve to keep the decoder busy.
constexpr int kMostScans = 500;

/// The library's error and progress hooks, with what they found.
struct Hooks
{
    jpeg_error_mgr errors; // first: the library hands back a pointer to it
    jpeg_progress_mgr progress;
    std::jmp_buf failed;
    bool outOfMemory = false;
    bool damaged = false;
};

Hooks &hooksOf(j_common_ptr codec)
{
    return *reinterpret_cast<Hooks *>(codec->err);
}

[[noreturn]] void onError(j_common_ptr codec)
{
    Hooks &hooks = hooksOf(codec);
    hooks.outOfMemory = codec->err->msg_code == JERR_OUT_OF_MEMORY;
    hooks.damaged = !hooks.outOfMemory;
    std::longjmp(hooks.failed, 1);
}

/// Warnings that mean lost pixels. The others (odd version numbers, stray bytes between segments)
/// are common in files whose pixels are all right.
bool meansLostPixels(int warning)
{
    switch (warning) {
    case JWRN_JPEG_EOF:
    case JWRN_HIT_MARKER:
    case JWRN_HUFF_BAD_CODE:
    case JWRN_ARITH_BAD_CODE:
    case JWRN_MUST_RESYNC:
    case JWRN_NOT_SEQUENTIAL:
        return true;
    default:
        return false;
    }
}

void onMessage(j_common_ptr codec, int level)
{
    constexpr int kWarning = -1;
    if (level == kWarning && meansLostPixels(codec->err->msg_code))
        hooksOf(codec).damaged = true;
}

void onProgress(j_common_ptr codec)
{
    if (reinterpret_cast<j_decompress_ptr>(codec)->input_scan_number > kMostScans)
        onError(codec);
}

/// A decompressor with its hooks. The library's calls jump to Hooks::failed on error, so they are
/// only made from functions that own nothing.
class Decompressor
{
public:
    Decompressor()
    {
        codec.err = jpeg_std_error(&hooks.errors);
        hooks.errors.error_exit = onError;
        hooks.errors.emit_message = onMessage;
        hooks.errors.output_message = [](j_common_ptr) {};
        hooks.progress.progress_monitor = onProgress;
    }
    ~Decompressor()
    {
        jpeg_destroy_decompress(&codec);
        std::free(profile);
    }
    Decompressor(const Decompressor &) = delete;
    Decompressor &operator=(const Decompressor &) = delete;

    bool readHeader(std::FILE *file);
    bool start();
    bool readRows(UprightRows &rows, std::vector<JSAMPLE> &inkRow);
    QSize size() const
    {
        return {static_cast<int>(codec.image_width), static_cast<int>(codec.image_height)};
    }
    QImage::Format format() const;
    bool hasInks() const { return codec.num_components == 4; }

    jpeg_decompress_struct codec = {};
    Hooks hooks = {};
    JOCTET *profile = nullptr; ///< colour profile, or null
    unsigned profileBytes = 0;
};

bool Decompressor::readHeader(std::FILE *file)
{
    if (setjmp(hooks.failed))
        return false;
    jpeg_create_decompress(&codec);
    codec.progress = &hooks.progress;
    jpeg_stdio_src(&codec, file);
    jpeg_save_markers(&codec, kExifMarker, kLongestMarker);
    jpeg_save_markers(&codec, kIccMarker, kLongestMarker);
    jpeg_read_header(&codec, TRUE);
    jpeg_read_icc_profile(&codec, &profile, &profileBytes);
    return true;
}

QImage::Format Decompressor::format() const
{
    switch (codec.num_components) {
    case 1:
        return QImage::Format_Grayscale8;
    case 3:
    case 4:
        return QImage::Format_RGB32;
    default:
        return QImage::Format_Invalid;
    }
}

bool Decompressor::start()
{
    if (setjmp(hooks.failed))
        return false;
    if (codec.num_components == 1)
        codec.out_color_space = JCS_GRAYSCALE;
    else if (hasInks())
        codec.out_color_space = JCS_CMYK;
    else
        codec.out_color_space = Q_BYTE_ORDER == Q_LITTLE_ENDIAN ? JCS_EXT_BGRA : JCS_EXT_ARGB;
    return jpeg_start_decompress(&codec);
}

/// Inks as every program writes them, inverted: 255 means none.
void inksToWords(const JSAMPLE *inks, QRgb *words, int width)
{
    for (int x = 0; x < width; ++x, inks += 4) {
        const int black = inks[3];
        words[x] = qRgb(black * inks[0] / 255, black * inks[1] / 255, black * inks[2] / 255);
    }
}

bool Decompressor::readRows(UprightRows &rows, std::vector<JSAMPLE> &inkRow)
{
    if (setjmp(hooks.failed))
        return false;
    while (codec.output_scanline < codec.output_height) {
        const auto y = static_cast<int>(codec.output_scanline);
        uchar *row = rows.row(y);
        JSAMPROW target = hasInks() ? inkRow.data() : row;
        jpeg_read_scanlines(&codec, &target, 1);
        if (hasInks())
            inksToWords(inkRow.data(), reinterpret_cast<QRgb *>(row), size().width());
        rows.rowWritten(y);
    }
    jpeg_finish_decompress(&codec);
    return !hooks.damaged;
}

void applyDensity(const jpeg_decompress_struct &codec, QImage &picture)
{
    constexpr int kPerInch = 1;
    constexpr int kPerCentimetre = 2;
    const double factor = codec.density_unit == kPerInch         ? 100.0 / 2.54
                          : codec.density_unit == kPerCentimetre ? 100.0
                                                                 : 0.0;
    if (factor <= 0.0 || codec.X_density == 0 || codec.Y_density == 0)
        return;
    picture.setDotsPerMeterX(static_cast<int>(codec.X_density * factor));
    picture.setDotsPerMeterY(static_cast<int>(codec.Y_density * factor));
}

void applyColourProfile(const Decompressor &decompressor, QImage &picture)
{
    if (decompressor.profile)
        picture.setColorSpace(QColorSpace::fromIccProfile(
            QByteArray(reinterpret_cast<const char *>(decompressor.profile),
                       static_cast<int>(decompressor.profileBytes))));
}

/// The library forgets the file's EXIF block with the last row: ask before.
QImageIOHandler::Transformations transformation(const jpeg_decompress_struct &codec)
{
    for (auto *marker = codec.marker_list; marker; marker = marker->next) {
        if (marker->marker == kExifMarker && exif::isExif(marker->data, marker->data_length))
            return exif::orientation(marker->data, marker->data_length);
    }
    return QImageIOHandler::TransformationNone;
}

DecodedPicture failure(const Decompressor &decompressor)
{
    return decompressor.hooks.outOfMemory
               ? decodeFailure(DecodeError::NoMemory, decompressor.size())
               : decodeFailure(DecodeError::Damaged);
}

} // namespace

DecodedPicture jpeg::decode(std::FILE *file, qint64 pixelLimit)
{
    Decompressor decompressor;
    if (!decompressor.readHeader(file) || decompressor.format() == QImage::Format_Invalid)
        return failure(decompressor);
    const auto orientation = transformation(decompressor.codec);
    const QSize size = decompressor.size();
    if (qint64(size.width()) * size.height() > pixelLimit)
        return decodeFailure(DecodeError::TooLarge, size);

    UprightRows rows(size, decompressor.format(), orientation);
    if (rows.isNull())
        return decodeFailure(DecodeError::NoMemory, size);
    std::vector<JSAMPLE> inkRow(decompressor.hasInks() ? size_t(size.width()) * 4 : 0);
    if (!decompressor.start() || !decompressor.readRows(rows, inkRow))
        return failure(decompressor);

    QImage &picture = rows.image();
    applyDensity(decompressor.codec, picture);
    applyColourProfile(decompressor, picture);
    return {picture, DecodeError::None, {}};
}
