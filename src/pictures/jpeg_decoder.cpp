#include "jpeg_decoder.h"

#include "ForeignColours.h"
#include "UprightRows.h"
#include "colour_profile.h"
#include "exif_block.h"
#include "exif_orientation.h"
#include "true_colours.h"

#include <QColorSpace>

#include <algorithm>
#include <csetjmp>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <optional>
#include <vector>

#include <jpeglib.h>

#include <jerror.h>

#include <fcntl.h>
#include <unistd.h>

#ifndef JCS_ALPHA_EXTENSIONS
#error "libjpeg-turbo is needed: pictures are decoded straight to 32-bit words"
#endif

namespace {

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
    bool hasEnded = false;          ///< the file has, before its end marker
    unsigned componentsOfScans = 0; ///< a bit for each component that a scan has brought
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
/// are common in files whose pixels are all right; where the file ends, Decompressor::hasLostScans
/// tells.
bool meansLostPixels(int warning)
{
    switch (warning) {
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
    if (level != kWarning)
        return;
    Hooks &hooks = hooksOf(codec);
    hooks.hasEnded = hooks.hasEnded || codec->err->msg_code == JWRN_JPEG_EOF;
    hooks.damaged = hooks.damaged || meansLostPixels(codec->err->msg_code);
}

void onProgress(j_common_ptr codec)
{
    const auto *decompressor = reinterpret_cast<j_decompress_ptr>(codec);
    if (decompressor->input_scan_number > kMostScans)
        onError(codec);
    for (int i = 0; i < decompressor->comps_in_scan; ++i)
        hooksOf(codec).componentsOfScans |= 1U << decompressor->cur_comp_info[i]->component_index;
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
    /// inks: null for pictures that have none.
    bool readRows(UprightRows &rows, std::vector<JSAMPLE> &inkRow, ForeignColours *inks);
    QSize size() const
    {
        return {static_cast<int>(codec.image_width), static_cast<int>(codec.image_height)};
    }
    /// Smaller by a power of two when that leaves at least twice the side (0: not smaller).
    void decideScale(int side);
    /// Of the rows, once started.
    QSize outputSize() const
    {
        return {static_cast<int>(codec.output_width), static_cast<int>(codec.output_height)};
    }
    QImage::Format format() const;
    bool hasInks() const { return codec.num_components == 4; }
    bool hasLostScans() const;

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

void Decompressor::decideScale(int side)
{
    const unsigned longest = std::max(codec.image_width, codec.image_height);
    while (side > 0 && codec.scale_denom < 8 &&
           longest / (2 * codec.scale_denom) >= 2 * unsigned(side))
        codec.scale_denom *= 2;
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

/// Whether a file that has ended before its end marker may lack pixels of which there was no other
/// warning: whole scans, or anything of an arithmetically coded one, whose decoder reads zeros
/// there in silence. Asked while the decompressor still knows, that is before it finishes.
bool Decompressor::hasLostScans() const
{
    const unsigned allComponents = (1U << codec.num_components) - 1;
    if (codec.arith_code || hooks.componentsOfScans != allComponents)
        return true;
    const auto isExact = [](int lackingBits) { return lackingBits == 0; };
    for (int i = 0; codec.progressive_mode && i < codec.num_components; ++i) {
        const int *lackingBits = codec.coef_bits[i];
        if (!std::all_of(lackingBits, lackingBits + DCTSIZE2, isExact))
            return true;
    }
    return false;
}

bool Decompressor::readRows(UprightRows &rows, std::vector<JSAMPLE> &inkRow, ForeignColours *inks)
{
    if (setjmp(hooks.failed))
        return false;
    while (codec.output_scanline < codec.output_height) {
        const auto y = static_cast<int>(codec.output_scanline);
        uchar *row = rows.row(y);
        JSAMPROW target = inks ? inkRow.data() : row;
        jpeg_read_scanlines(&codec, &target, 1);
        if (inks)
            inks->convertRow(inkRow.data(), row, outputSize().width());
        rows.rowWritten(y);
    }
    const bool haveScansBeenLost = hasLostScans();
    jpeg_finish_decompress(&codec);
    return !hooks.damaged && !(hooks.hasEnded && haveScansBeenLost);
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

QByteArray profileOf(const Decompressor &decompressor)
{
    return decompressor.profile ? QByteArray(reinterpret_cast<const char *>(decompressor.profile),
                                             static_cast<qsizetype>(decompressor.profileBytes))
                                : QByteArray();
}

/// Programs write inks inverted, and Adobe's mark with them. Where the mark is missing, true
/// colours take them as they stand.
ForeignColours::Source inkSource(const Decompressor &decompressor, bool isTrue)
{
    const bool isInverted = !isTrue || decompressor.codec.saw_Adobe_marker;
    return {isInverted ? ForeignColours::Kind::InvertedInks : ForeignColours::Kind::Inks, 8, 4,
            isTrue ? profileOf(decompressor) : QByteArray()};
}

/// The profile of inks has done its work when true colours are wanted.
void applyColourProfile(const Decompressor &decompressor, bool isTrue, DecodedPicture &picture)
{
    const QByteArray profile = profileOf(decompressor);
    if (isTrue && decompressor.hasInks()) {
        picture.image.setColorSpace(QColorSpace::SRgb);
        if (!profile.isEmpty() && !colour_profile::fitsInkPixels(profile))
            picture.warnings += true_colours::damagedProfileWarning();
    } else if (!profile.isEmpty()) {
        picture.image.setColorSpace(QColorSpace::fromIccProfile(profile));
    }
}

DecodedPicture failure(const Decompressor &decompressor)
{
    return decompressor.hooks.outOfMemory
               ? picture::failure(DecodeError::NoMemory, decompressor.size())
               : picture::failure(DecodeError::Damaged);
}

DecodedPicture decodeStream(std::FILE *stream, QImageIOHandler::Transformations orientation,
                            const ReadOptions &options)
{
    Decompressor decompressor;
    if (!decompressor.readHeader(stream) || decompressor.format() == QImage::Format_Invalid)
        return failure(decompressor);
    const QSize whole = decompressor.size();
    if (qint64(whole.width()) * whole.height() > options.pixelLimit)
        return picture::failure(DecodeError::TooLarge, whole);
    decompressor.decideScale(options.side);
    if (!decompressor.start())
        return failure(decompressor);

    const QSize size = decompressor.outputSize();
    UprightRows rows(size, decompressor.format(), orientation);
    if (rows.isNull())
        return picture::failure(DecodeError::NoMemory, size);
    const bool isTrue = options.colours == ReadOptions::Colours::True;
    std::vector<JSAMPLE> inkRow;
    std::optional<ForeignColours> inks;
    if (decompressor.hasInks()) {
        inkRow.resize(size_t(size.width()) * 4);
        inks.emplace(inkSource(decompressor, isTrue), QImage::Format_RGB32);
    }
    if (!decompressor.readRows(rows, inkRow, inks ? &*inks : nullptr))
        return failure(decompressor);

    DecodedPicture picture{std::move(rows.image()), DecodeError::None, {}};
    applyDensity(decompressor.codec, picture.image);
    applyColourProfile(decompressor, isTrue, picture);
    return picture;
}

} // namespace

DecodedPicture jpeg::decode(QFile &file, const ReadOptions &options)
{
    const auto orientation = exif::orientation(exif::blockIn(file));
    const int descriptor = ::fcntl(file.handle(), F_DUPFD_CLOEXEC, 0);
    const std::unique_ptr<std::FILE, int (*)(std::FILE *)> stream(
        descriptor < 0 ? nullptr : ::fdopen(descriptor, "rb"), &std::fclose);
    if (!stream) {
        ::close(descriptor);
        return picture::failure(DecodeError::Unreadable);
    }
    std::rewind(stream.get()); // both share their place in the file
    DecodedPicture decoded = decodeStream(stream.get(), orientation, options);
    return std::ferror(stream.get()) ? picture::failure(DecodeError::Unreadable) : decoded;
}
